// The computer's move, step by step.
//
// Reads the settings of the engine and the position; writes the record, the window and, when the game is over, its
// result. Thinking is engine/root_search.h's business, the rules of the end are end_of_game.h's, and who may press what
// meanwhile is told by the view's table of commands.
#include "control/computer_move.h"

#include "base/checked_number.h"
#include "control/book.h"
#include "control/calculation.h"
#include "control/end_of_game.h"
#include "control/log.h"
#include "control/rating.h"
#include "control/record.h"
#include "control/time_text.h"
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "rules/moves.h"
#include "rules/square_names.h"
#include "view/commands.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

using view::WindowEvent;

constexpr double PauseSeconds = 0.5;
constexpr int DeepestByTime = 20;
constexpr std::string_view Thinking = "Thinking...";
constexpr std::string_view ComputerWinsText = "Computer wins!";

// A score that has not moved over this many half-moves by this much is flat.
constexpr int FlatHalfMoves = 78;
constexpr int FlatMargin = 100;
constexpr int FlatOften = 2;
constexpr int HalfMovesBetweenOffers = 40;
constexpr double ChanceOfOffer = 0.1;

// What an evaluation says of a game that is won as it stands, at any ply that a root move can lead to.
constexpr std::int32_t WonAsItStands = engine::ForcedScore + 2;

// What one move carries from step to step.
struct MoveInProgress {
    double Started; ///< the clock when it began
    int Choices = 0;
    CalculationReport Report;
    engine::RootOutcome Found{};
    std::string MoveText{};
    std::string RawText{};
    bool ComputerHasWon = false;
    bool Drawn = false;

    explicit MoveInProgress(GameState& State) : Started(State.Outside->Seconds()), Report(State, Thinking) {}
};

// --- The end of the game -----------------------------------------------------------------------------------------

struct Ending {
    int Result;
    double Score; ///< the person's
    std::string Text;
};

Ending ComputerWins() {
    return {DecisiveResult, 0, std::string(ComputerWinsText)};
}

// The side that is not the computer's wins; against itself the computer does all the winning.
Ending PersonWins(const GameState& State) {
    if (State.PlayMode == view::ComputerComputer) {
        return ComputerWins();
    }
    return {DecisiveResult, 1, State.PlayerName + " wins!"};
}

Ending GameIsDrawn() {
    return {DrawnResult, 0.5, std::string(DrawText)};
}

void Settle(GameState& State, const Ending& How) {
    SetResultText(State, How.Result);
    UpdateRating(State, How.Score);
    CloseGame(State, How.Text);
    State.StatusText = How.Text;
}

void EndGame(GameState& State, const Ending& How) {
    Settle(State, How);
    State.Outside->Wait(PauseSeconds);
    Congratulate(State, How.Text);
}

// --- Preparation -------------------------------------------------------------------------------------------------

void ClearList(view::ListFields& List) {
    List.Lines.clear();
    List.Selected = -1;
}

void Prepare(GameState& State) {
    // 1. and 2. The engine, and what the last move left behind.
    engine::PrepareSearch(State);
    State.GameStarted = 1;
    State.SearchActive = 1;
    State.HintSource = 0;
    State.HintDest = 0;
    State.StatusText.clear();

    // 3. The lists.
    if (State.PlayMode != view::ComputerComputer) {
        ClearList(State.ChoiceList);
        ClearList(State.RootList);
        for (view::ListFields* List : {&State.GameList, &State.ChoiceList, &State.RootList}) {
            List->Enabled = false;
        }
    }

    // 4. How strong, and how long.
    view::ShowStrength(State);

    // 5. What lies ahead of the cursor is given up.
    CutRecord(State, State.GameMoves);
    view::SetStatus(State, Thinking);
    if (State.ShowCalculation == 1) {
        State.Calculation.Text.clear();
    }

    // 6. Nothing may pull the game away from under the search.
    view::ApplyEvent(State, WindowEvent::SearchBegins);
}

// --- Is the game over already? -----------------------------------------------------------------------------------

// True if it is, and then it has been ended.
bool EndsBeforeTheMove(GameState& State) {
    // 7. The root, seen by the evaluator that the search will use.
    rules::InitGameTree(State);
    std::int32_t Score = 0;
    {
        const rules::GamePositionScope Scope(State);
        Score = engine::PlayingRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, State.Side);
    }
    const bool Lost = State.SideToMoveLost != 0 || Score == engine::WindowHigh;

    // 8. A side with pieces and no move, where that is a draw.
    if (State.NoLegalDrawHit != 0) {
        State.NoLegalDrawHit = 0;
        EndGame(State, GameIsDrawn());
        return true;
    }

    // 9. Lost as it stands.
    if (Lost) {
        EndGame(State, PersonWins(State));
        return true;
    }

    // 10. No move.
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) == 0) {
        EndGame(State, State.RuleSet.AntiMode != 0 ? ComputerWins() : PersonWins(State));
        return true;
    }
    return false;
}

// --- Limits, book and search -------------------------------------------------------------------------------------

bool AskBook(GameState& State) {
    State.BookMoveSource = 0;
    if (State.UseBook == 1 && State.BookOpen == 1) {
        LookupBook(State, 1);
    }
    return State.BookMoveSource >= 1;
}

// Leaves the book's move as the only one; false if the book has none that can be played.
bool TakeBookMove(GameState& State) {
    if (!AskBook(State)) {
        State.BookOpen = 0;
        return false;
    }
    for (int I = 0; I < State.StackLimit[1]; ++I) {
        const rules::MoveRecord Record = State.MoveStack[I];
        if (Record.Source == State.BookMoveSource && Record.Dest == State.BookMoveDest) {
            State.MoveStack[0] = Record;
            State.StackLimit[1] = 1;
            return true;
        }
    }
    State.BookMoveSource = 0;
    return false;
}

void Think(GameState& State, MoveInProgress& Move) {
    // 11. A moment to see the last move, then the clock starts.
    const bool ByTime = State.FixedDepth != 1;
    Move.Choices = rules::MoveCountOfPly(State);
    State.Progress = {0, ByTime ? double(State.TimeLimit) : double(State.SearchDepth) * Move.Choices};
    State.Outside->Wait(PauseSeconds);
    const double ClockStarted = State.Outside->Seconds();
    int Depth = ByTime ? DeepestByTime : State.SearchDepth;

    // 12. and 13. A single move, or one that the book knows, is not thought about.
    const bool FromBook = State.UseBook == 1 && TakeBookMove(State);
    if (Move.Choices == 1 || FromBook) {
        Depth = 1;
    }

    // 14. to 21. The search.
    SetMoveLimit(State);
    Move.Found = engine::RootSearch(State, {Depth, ByTime, State.TimeLimit}, ClockStarted, Move.Report);
    State.DrawPending = 0;
    if (State.ShowCalculation == 1) {
        const double Seconds = engine::ElapsedSeconds(Move.Started, State.Outside->Seconds());
        State.Calculation.Text += "\nTime: " + TimeString(Seconds, false);
    }

    // 22. The moves that were looked at.
    engine::SortRootMoves(State);
    if (State.PlayMode != view::ComputerComputer) {
        view::ShowRootMoves(State);
    }

    // 23. No longer thinking.
    view::SetStatus(State, State.StatusText);
}

// --- The move ----------------------------------------------------------------------------------------------------

void Announce(GameState& State, std::string_view What, int Moves) {
    State.StatusText =
        "Computer is " + std::string(What) + " in" + view::SignedText(Moves) + (Moves > 1 ? " moves! " : " move! ");
    view::SetStatus(State, State.StatusText);
    State.ForcedAnnounced = 1;
}

// Says what the search has seen coming.
void AnnounceForced(GameState& State) {
    const std::int32_t Score = State.BestScore;
    if (Score < -engine::ForcedScore) {
        const int Odd = State.RuleSet.AntiMode == 1 ? 1 : 0;
        Announce(State, "losing", (Score + engine::WindowHigh + Odd) / 2);
    } else if (Score > engine::ForcedScore) {
        Announce(State, "winning", (engine::WindowHigh + 1 - Score) / 2);
    }
}

void PlayBest(GameState& State, MoveInProgress& Move) {
    // 24a. and b. The first record: the search has put the best one there.
    rules::DisplayMove(State, 0);
    Move.MoveText = State.MoveText.View();
    const rules::PlayedMove Played = rules::RememberMove(State, 0);
    Move.RawText = RawTextOf(State, Played.Record);
    rules::PerformMove(State, 0);
    StoreHalfMove(State, Played);
    State.GameChanged = 1;

    // 24c. Whether the mover has won is asked from its own side.
    std::int32_t Value = 0;
    {
        const rules::GamePositionScope Scope(State);
        Value = engine::PlayingRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, -State.Side);
    }

    // 24d. to g. The board is drawn and the move recorded before a message comes.
    if (State.NoLegalDrawHit != 0) {
        State.NoLegalDrawHit = 0;
        Move.Drawn = true;
    } else if (Value >= WonAsItStands) {
        Move.ComputerHasWon = true;
    } else {
        AnnounceForced(State);
    }
}

void RecordMove(GameState& State, MoveInProgress& Move) {
    // 25. Nobody has lost here without having been told so before the search.
    // 26. Figures and sound.
    State.MoveScores[State.GameMoves] = base::Narrow<std::int16_t>(State.BestScore);
    State.MoveDepths[State.GameMoves] = base::Narrow<std::int16_t>(Move.Found.DepthReached);
    State.MoveChoices[State.GameMoves] = base::Narrow<std::int16_t>(Move.Choices);
    PlayMoveSound(State);

    // 27. Row, line and log. "b" marks what the book knows: the move, or the position that it leads to.
    if (State.BookMoveSource >= 1 || AskBook(State)) {
        Move.MoveText += 'b';
    }
    if (State.GameMoves == 1) {
        WriteLogHeader(State);
    }
    AddMoveRow(State, Move.RawText, Move.MoveText, MovedByComputer);
    LogComputerMove(State, Move.MoveText, Move.Found.DepthReached, Move.Report.MainLineText, Move.Report.SearchLog);

    // 28. The new position, and the end that came with it.
    view::DrawBoard(State, 0);
    if (Move.Drawn) {
        EndGame(State, GameIsDrawn());
    } else if (Move.ComputerHasWon) {
        State.Progress.Value = State.Progress.Maximum;
        EndGame(State, ComputerWins());
    }
}

// --- After the move ----------------------------------------------------------------------------------------------

void CountFlatScore(GameState& State) {
    // 29. A score that has been the same for a long time.
    const int Before = State.GameMoves - FlatHalfMoves;
    const bool Flat = Before > 0 && State.MoveScores[Before] != 0 &&
                      std::abs(State.MoveScores[Before] - State.MoveScores[State.GameMoves]) < FlatMargin;
    State.ScoreFlatCount = Flat ? State.ScoreFlatCount + 1 : 0;
}

bool WantsDraw(GameState& State) {
    const bool FlatLongEnough = State.ScoreFlatCount >= FlatOften;
    return State.AskForDraw == 1 && State.GameEnded == 0 && State.ClosePending == 0 &&
           State.GameMoves - State.LastDrawOffer > HalfMovesBetweenOffers &&
           (State.KingsOnlyEqual == 1 || FlatLongEnough) && State.PlayMode != view::ComputerComputer &&
           State.Material[State.Ply] == 0 && State.ForcedAnnounced == 0 && State.BestScore < engine::DecidedScore &&
           (FlatLongEnough || State.Outside->Random() < ChanceOfOffer);
}

void OfferOwnDraw(GameState& State) {
    // 30. An offer of the computer's own.
    if (!WantsDraw(State)) {
        return;
    }
    State.LastDrawOffer = State.GameMoves;
    State.Outside->Wait(PauseSeconds);
    if (State.Outside->Ask("Question", "How about a draw?")) {
        Settle(State, GameIsDrawn());
        Congratulate(State, DrawText);
    }
}

void CheckDrawRules(GameState& State) {
    // 31. The rules of the draw.
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    DrawRuleCheck(State);
    if (State.GameEnded == 0 && DrawRuleEndsGame(State)) {
        Settle(State, GameIsDrawn());
        State.Outside->Wait(PauseSeconds);
        AnnounceDrawRule(State);
        State.StatusText = State.StatusPanels[view::StatusPanel];
    }
}

void CheckOtherSide(GameState& State) {
    // 32. A side that can't move; in an anti game one that has reached its end by the computer's move, too.
    if (State.GameEnded != 0) {
        return;
    }
    const bool Anti = State.RuleSet.AntiMode == 1;
    const bool Reached = Anti && engine::EvaluatePosition(State, engine::WindowLow, engine::WindowHigh, State.Side) ==
                                     engine::WindowHigh;
    rules::GenerateGameMoves(State);
    if (Reached || rules::MoveCountOfPly(State) == 0) {
        EndGame(State, Anti ? PersonWins(State) : ComputerWins());
    } else if (RecordIsFull(State)) {
        EndGame(State, GameIsDrawn());
    }
}

void GiveBackWindow(GameState& State) {
    // 33. Everything as it was; what an ended game can't use stays off.
    State.BookMoveSource = 0;
    const bool PlaysItself = State.PlayMode == view::ComputerComputer;
    view::ApplyEvent(State, WindowEvent::SearchEnds);
    if (State.GameEnded != 0) {
        view::ApplyEvent(State, WindowEvent::GameEnds);
    }
    if (PlaysItself) {
        return;
    }
    State.SearchActive = 0;
    State.GameList.Enabled = true;
    State.ChoiceList.Enabled = State.GameEnded == 0;
    State.RootList.Enabled = true;
    rules::GenerateGameMoves(State);
    view::RefreshMoveChoices(State);
}

// The computer takes the side to move over.
void TakeOverSide(GameState& State) {
    if (State.PlayMode == view::ComputerPlayer) {
        const bool WhiteMoves = State.Side == rules::White;
        const std::string& Mover = WhiteMoves ? State.WhitePlayerName : State.BlackPlayerName;
        const std::string& Other = WhiteMoves ? State.BlackPlayerName : State.WhitePlayerName;
        if (Mover == State.PlayerName && Other != State.PlayerName) {
            std::swap(State.WhitePlayerName, State.BlackPlayerName);
        }
    }
    view::ShowPlayers(State);
}

} // namespace

void ComputerMove(GameState& State) {
    MoveInProgress Move(State);
    Prepare(State);
    if (!EndsBeforeTheMove(State)) {
        Think(State, Move);
        if (State.Ending != 0) {
            return; // a handler that ran in between has ended the program
        }
        PlayBest(State, Move);
        RecordMove(State, Move);
        CountFlatScore(State);
        OfferOwnDraw(State);
        CheckDrawRules(State);
        CheckOtherSide(State);
    }
    GiveBackWindow(State);
}

void ComputeNow(GameState& State) {
    if (State.GameEnded == 1) {
        return;
    }
    view::SetStatus(State, "");
    State.CancelRequested = rules::StopRequest::None;
    State.Thinking = 1;
    TakeOverSide(State);
    ComputerMove(State);
    State.Thinking = 0;
}

} // namespace zonterbrook::control
