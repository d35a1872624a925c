// The computer's move, step by step.
//
// Reads the settings of the engine and the position; writes the record, the window and, when the game is over, its
// result. Thinking is engine/root_search.h's business, the rules of the end are ending.h's, and who may press what
// meanwhile follows from the state of the turn.
#include "control/computer_move.h"

#include "base/checked_number.h"
#include "control/book.h"
#include "control/calculation.h"
#include "control/ending.h"
#include "control/log.h"
#include "control/record.h"
#include "control/turn_state.h"
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <cstdlib>
#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr int DeepestByTime = 20;
constexpr std::string_view ThinkingStatus = "Thinking...";

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
    bool ComputerHasWon = false;
    bool Drawn = false;

    MoveInProgress(GameState& State, engine::RootObserver* AlsoTold)
        : Started(State.Outside().Seconds()), Report(State, ThinkingStatus, AlsoTold) {}
};

bool PlaysItself(const GameState& State) {
    return State.PlayMode == view::GameMode::ComputerComputer;
}

// The side that is not the computer's wins; against itself the computer does all the winning.
Ending PersonWins(const GameState& State) {
    return PlaysItself(State) ? Ending::ComputerWins : Ending::PersonWins;
}

// --- Preparation ---------------------------------------------------------------------------------------------------

void ClearList(view::ListFields& List) {
    List.Lines.clear();
    List.Selected = -1;
}

void Prepare(GameState& State) {
    // 1. The engine, and what the last move left behind.
    engine::PrepareSearch(State);
    State.HintSource = 0;
    State.HintDest = 0;
    State.StatusText.clear();

    // 2. The lists.
    if (!PlaysItself(State)) {
        ClearList(State.ChoiceList);
        ClearList(State.RootList);
    }

    // 3. How strong, and how long.
    view::ShowStrength(State);

    // 4. What lies ahead of the cursor is given up.
    CutAhead(State);
    view::SetStatus(State, ThinkingStatus);
    State.Calculated = {};
    if (State.ShowCalculation == 1) {
        State.Calculated.Stands = view::CalculationFields::Stage::Begun;
        view::WriteCalculation(State);
    }
}

// --- Is the game over already? -------------------------------------------------------------------------------------

// True if it is, and then it has been ended.
bool EndsBeforeTheMove(GameState& State) {
    // 1. The root, seen by the evaluator that the search will use.
    rules::InitGameTree(State);
    std::int32_t Score = 0;
    {
        const rules::GamePositionScope Scope(State);
        Score = engine::PlayingRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, State.Side);
    }
    const bool Lost = State.SideToMoveLost != 0 || Score == engine::WindowHigh;

    // 2. A side with pieces and no move, where that is a draw.
    if (std::exchange(State.NoLegalDrawHit, 0) != 0) {
        EndGame(State, Ending::Drawn);
        return true;
    }

    // 3. Lost as it stands.
    if (Lost) {
        EndGame(State, PersonWins(State));
        return true;
    }

    // 4. No move.
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) == 0) {
        EndGame(State, State.RuleSet.AntiMode != 0 ? Ending::ComputerWins : PersonWins(State));
        return true;
    }
    return false;
}

// --- Limits, book and search ---------------------------------------------------------------------------------------

bool AskBook(GameState& State) {
    State.BookMoveSource = 0;
    if (State.UseBook == 1 && State.BookOpen) {
        LookupBook(State, 1);
    }
    return State.BookMoveSource >= 1;
}

// Leaves the book's move as the only one; false if the book has none that can be played.
bool TakeBookMove(GameState& State) {
    if (!AskBook(State)) {
        State.BookOpen = false;
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
    // 1. A moment to see the last move, then the clock starts.
    const bool ByTime = State.FixedDepth != 1;
    Move.Choices = rules::MoveCountOfPly(State);
    State.Progress = {0, ByTime ? double(State.TimeLimit) : double(State.SearchDepth) * Move.Choices};
    State.Outside().Wait(PauseSeconds);
    const double ClockStarted = State.Outside().Seconds();
    int Depth = ByTime ? DeepestByTime : State.SearchDepth;

    // 2. A single move, or one that the book knows, is not thought about.
    const bool FromBook = State.UseBook == 1 && TakeBookMove(State);
    if (Move.Choices == 1 || FromBook) {
        Depth = 1;
    }

    // 3. The search.
    SetMoveLimit(State);
    Move.Found = engine::RootSearch(State, {Depth, ByTime, State.TimeLimit}, ClockStarted, Move.Report);
    State.DrawPending = 0;
    if (State.ShowCalculation == 1) {
        State.Calculated.Seconds = engine::ElapsedSeconds(Move.Started, State.Outside().Seconds());
        view::WriteCalculation(State);
    }

    // 4. The moves that were looked at.
    engine::SortRootMoves(State);
    if (!PlaysItself(State)) {
        view::ShowRootMoves(State);
    }

    // 5. No longer thinking.
    view::SetStatus(State, State.StatusText);
}

// --- The move ------------------------------------------------------------------------------------------------------

void Announce(GameState& State, std::string_view What, int Moves) {
    State.StatusText =
        "Computer is " + std::string(What) + " in" + view::SignedText(Moves) + (Moves > 1 ? " moves! " : " move! ");
    view::SetStatus(State, State.StatusText);
    State.ForcedAnnounced = true;
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

// Plays the first record: the search has put the best one there.
void PlayBest(GameState& State, MoveInProgress& Move) {
    // 1. The move, and its figures.
    game::HalfMove Made = NewHalfMove(State, 0);
    Made.Score = base::Narrow<std::int16_t>(State.BestScore);
    Made.Depth = base::Narrow<std::int16_t>(Move.Found.DepthReached);
    Made.Choices = base::Narrow<std::int16_t>(Move.Choices);
    rules::PlayMove(State, 0);

    // 2. Whether the mover has won is asked from its own side.
    std::int32_t Value = 0;
    {
        const rules::GamePositionScope Scope(State);
        Value = engine::PlayingRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, -State.Side);
    }
    if (std::exchange(State.NoLegalDrawHit, 0) != 0) {
        Move.Drawn = true;
    } else if (Value >= WonAsItStands) {
        Move.ComputerHasWon = true;
    } else {
        AnnounceForced(State);
    }

    // 3. Record, sound and log. "b" marks what the book knows: the move, or the position that it leads to.
    PlayMoveSound(State);
    Made.FromBook = State.BookMoveSource >= 1 || AskBook(State);
    RecordMove(State, std::move(Made), game::MadeBy::Computer);
    LogComputerMove(State, Move.Report.MainLineText, Move.Report.SearchLog);
    view::DrawBoard(State, 0);
}

// --- After the move ------------------------------------------------------------------------------------------------

// The end that the move itself has brought. A draw rule in force goes before a win.
void EndByMove(GameState& State, const MoveInProgress& Move) {
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    DrawRuleCheck(State);
    if (Move.Drawn) {
        EndGame(State, Ending::Drawn);
    } else if (Move.ComputerHasWon) {
        State.Progress.Value = State.Progress.Maximum;
        EndGame(State, DrawRuleEndsGame(State) ? Ending::DrawnByRule : Ending::ComputerWins);
    }
}

// A score that has been the same for a long time.
void CountFlatScore(GameState& State) {
    const int Before = State.Record.Cursor - FlatHalfMoves;
    const std::int16_t Score = State.Record.Last().Score;
    const bool Flat = Before > 0 && State.Record.HalfMoves[Before].Score != 0 &&
                      std::abs(State.Record.HalfMoves[Before].Score - Score) < FlatMargin;
    State.ScoreFlatCount = Flat ? State.ScoreFlatCount + 1 : 0;
}

bool WantsDraw(const GameState& State) {
    const bool FlatLongEnough = State.ScoreFlatCount >= FlatOften;
    return State.AskForDraw == 1 && !State.CloseWanted &&
           State.Record.Cursor - State.LastDrawOffer > HalfMovesBetweenOffers &&
           (State.KingsOnlyEqual == 1 || FlatLongEnough) && !PlaysItself(State) && State.Material[State.Ply] == 0 &&
           !State.ForcedAnnounced && State.BestScore < engine::DecidedScore &&
           (FlatLongEnough || State.Outside().Random() < ChanceOfOffer);
}

// An offer of the computer's own.
void OfferOwnDraw(GameState& State) {
    if (!WantsDraw(State)) {
        return;
    }
    State.LastDrawOffer = State.Record.Cursor;
    State.Outside().Wait(PauseSeconds);
    if (State.Outside().Ask("Question", "How about a draw?")) {
        EndGame(State, Ending::DrawAgreed);
    }
}

// What the position has come to, if the move itself was not the end.
void CheckPositionReached(GameState& State) {
    // 1. The rules of the draw.
    if (DrawRuleEndsGame(State)) {
        EndGame(State, Ending::DrawnByRule);
        return;
    }

    // 2. A side that can't move; in an anti game one that has reached its end by the computer's move, too.
    const bool Anti = State.RuleSet.AntiMode == 1;
    const bool Reached = Anti && engine::EvaluatePosition(State, engine::WindowLow, engine::WindowHigh, State.Side) ==
                                     engine::WindowHigh;
    if (Reached || rules::MoveCountOfPly(State) == 0) {
        EndGame(State, Anti ? PersonWins(State) : Ending::ComputerWins);
    } else if (State.Record.IsFull()) {
        EndGame(State, Ending::Drawn);
    }
}

// The turn is the person's again; while the computer plays itself it stays the computer's.
void GiveBackWindow(GameState& State) {
    State.BookMoveSource = 0;
    if (PlaysItself(State)) {
        return;
    }
    if (!IsOver(State)) {
        EnterTurn(State, TurnState::Resting);
    }
    rules::GenerateGameMoves(State);
    view::RefreshMoveChoices(State);
}

// The computer takes the side to move over.
void TakeOverSide(GameState& State) {
    if (State.PlayMode == view::GameMode::ComputerPlayer) {
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

void ComputerMove(GameState& State, engine::RootObserver* AlsoTold) {
    MoveInProgress Move(State, AlsoTold);
    Prepare(State);
    if (!EndsBeforeTheMove(State)) {
        Think(State, Move);
        if (State.ProgramEnds) {
            return; // a handler that ran in between has ended the program
        }
        PlayBest(State, Move);
        EndByMove(State, Move);
        CountFlatScore(State);
        if (!IsOver(State)) {
            OfferOwnDraw(State);
        }
        if (!IsOver(State)) {
            CheckPositionReached(State);
        }
    }
    GiveBackWindow(State);
}

void ComputeNow(GameState& State, engine::RootObserver* AlsoTold) {
    if (IsOver(State)) {
        return;
    }
    view::SetStatus(State, "");
    State.CancelRequested = rules::StopRequest::None;
    EnterTurn(State, TurnState::Thinking);
    TakeOverSide(State);
    ComputerMove(State, AlsoTold);
}

} // namespace zonterbrook::control
