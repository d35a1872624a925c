// The computer's move, step by step.
//
// Reads the settings of the engine and the position; writes the record, the window and, when the game is over, its
// result. Thinking is engine/root_search.h's business, the rules of the end are ending.h's, and who may press what
// meanwhile follows from the state of the turn.
#include "control/computer_move.h"

#include "base/checked_number.h"
#include "control/book.h"
#include "control/log.h"
#include "control/record.h"
#include "control/thinking.h"
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

// A score that has not moved over this many half-moves by this much is flat.
constexpr int FlatHalfMoves = 78;
constexpr int FlatMargin = 100;
constexpr int FlatOften = 2;
constexpr int HalfMovesBetweenOffers = 40;
constexpr double ChanceOfOffer = 0.1;

// What one move carries from step to step.
struct MoveInProgress : ThinkingInProgress {
    bool ComputerHasWon = false;
    bool Drawn = false;

    MoveInProgress(GameState& State, engine::RootObserver* AlsoTold)
        : ThinkingInProgress(State, Purpose::Move, AlsoTold) {}
};

// Says what the search has seen coming.
void AnnounceForced(GameState& State) {
    if (State.BestScore < -engine::ForcedScore) {
        AnnounceLoss(State);
    } else if (State.BestScore > engine::ForcedScore) {
        AnnounceWin(State, (engine::WindowHigh + 1 - State.BestScore) / 2);
    } else {
        return;
    }
    State.ForcedAnnounced = true;
}

// The line of the move in the list of what has been looked at.
void MarkPlayed(GameState& State, const rules::MoveRecord& Played) {
    const int Lines = static_cast<int>(State.RootList.Lines.size());
    for (int I = 0; I < Lines; ++I) {
        if (State.RootMoves[I].Source == Played.Source && State.RootMoves[I].Dest == Played.Dest) {
            State.RootList.Marked = I;
            return;
        }
    }
}

// --- The move ------------------------------------------------------------------------------------------------------

// Plays the first record: the search has put the best one there.
void PlayBest(GameState& State, MoveInProgress& Move) {
    // 1. The move, and its figures.
    game::HalfMove Made = NewHalfMove(State, 0);
    Made.Score = base::Narrow<std::int16_t>(State.BestScore);
    Made.Depth = base::Narrow<std::int16_t>(Move.Found.DepthReached);
    Made.Choices = base::Narrow<std::int16_t>(Move.Choices);
    MarkPlayed(State, Made.Played.Record);
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

    // 3. Record, sound and log; "b" marks a move of the book. The name of the opening that the game has come to.
    PlayMoveSound(State);
    Made.FromBook = State.BookMoveSource >= 1;
    RecordMove(State, std::move(Made), game::MadeBy::Computer);
    ShowOpening(State);
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
    PrepareThinking(State, Purpose::Move);
    if (!EndsBeforeThinking(State, Purpose::Move)) {
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
