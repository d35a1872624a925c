// What the computer's move and the analysis share.
//
// Reads the settings of the engine and the position; writes the window and what the engine finds. Searching is
// engine/root_search.h's business, the rules of the end are ending.h's.
#include "control/thinking.h"

#include "control/book.h"
#include "control/record.h"
#include "control/turn_state.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr int DeepestByTime = 20;

constexpr std::string_view StatusOf(Purpose For) {
    return For == Purpose::Move ? "Thinking..." : "Analyzing...";
}

void ClearList(view::ListFields& List) {
    List = {};
}

// Leaves the book's move as the only one; false if the book has none that can be played.
bool TakeBookMove(GameState& State) {
    State.BookMoveSource = 0;
    if (!State.BookOpen || !DrawBookMove(State)) {
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

void Announce(GameState& State, std::string_view What, int Moves) {
    State.StatusText =
        "Computer is " + std::string(What) + " in" + view::SignedText(Moves) + (Moves > 1 ? " moves! " : " move! ");
    view::SetStatus(State, State.StatusText);
}

} // namespace

ThinkingInProgress::ThinkingInProgress(GameState& State, Purpose InFor, engine::RootObserver* AlsoTold)
    : For(InFor), Started(State.Outside().Seconds()), Report(State, StatusOf(InFor), AlsoTold) {}

bool PlaysItself(const GameState& State) {
    return State.PlayMode == view::GameMode::ComputerComputer;
}

Ending PersonWins(const GameState& State) {
    return PlaysItself(State) ? Ending::ComputerWins : Ending::PersonWins;
}

void PrepareThinking(GameState& State, Purpose For) {
    // 1. The engine, and what the last move left behind.
    engine::PrepareSearch(State, For == Purpose::Move ? engine::Patterns::Used : engine::Patterns::AsTheyStand);
    State.HintSource = 0;
    State.HintDest = 0;
    State.StatusText.clear();
    NoteCalculated(State);

    // 2. The lists.
    if (!PlaysItself(State)) {
        ClearList(State.RootList);
        if (For == Purpose::Move) {
            ClearList(State.ChoiceList);
        }
    }

    // 3. How strong, and how long.
    view::ShowStrength(State);

    // 4. For a move, what lies ahead of the cursor is given up.
    if (For == Purpose::Move) {
        CutAhead(State);
    }
    view::SetStatus(State, StatusOf(For));
    State.Calculated = {};
    if (State.ShowCalculation == 1) {
        State.Calculated.Stands = view::CalculationFields::Stage::Begun;
        view::WriteCalculation(State);
    }
}

// --- Is the game over already? -------------------------------------------------------------------------------------

bool EndsBeforeThinking(GameState& State, Purpose For) {
    // 1. The root, seen by the evaluator that the search will use.
    rules::InitGameTree(State);
    std::int32_t Score = 0;
    {
        const rules::GamePositionScope Scope(State);
        Score = engine::PlayingRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, State.Side);
    }
    const bool Lost = State.SideToMoveLost != 0 || Score == engine::WindowHigh;

    // 2. A side with pieces and no move, where that is a draw; an analysis leaves that to the move.
    if (std::exchange(State.NoLegalDrawHit, 0) != 0 && For == Purpose::Move) {
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

void Think(GameState& State, ThinkingInProgress& Move) {
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
    Move.Found = engine::RootSearch(State, {Depth, ByTime, State.TimeLimit, Move.For == Purpose::Move}, ClockStarted,
                                    Move.Report);
    State.DrawPending = 0;
    if (State.ShowCalculation == 1) {
        State.Calculated.Seconds = engine::ElapsedSeconds(Move.Started, State.Outside().Seconds());
        view::WriteCalculation(State);
    }

    // 4. The moves that were looked at.
    engine::SortRootMoves(State);
    if (!PlaysItself(State) || Move.For == Purpose::Analysis) {
        view::ShowRootMoves(State);
    }

    // 5. No longer thinking.
    view::SetStatus(State, State.StatusText);
}

// --- What the search has seen coming -------------------------------------------------------------------------------

void AnnounceWin(GameState& State, int Moves) {
    Announce(State, "winning", Moves);
}

void AnnounceLoss(GameState& State) {
    const int Odd = State.RuleSet.AntiMode == 1 ? 1 : 0;
    Announce(State, "losing", (State.BestScore + engine::WindowHigh + Odd) / 2);
}

void GiveBackWindow(GameState& State) {
    State.BookMoveSource = 0;
    State.Progress.Value = 0;
    if (PlaysItself(State)) {
        return;
    }
    if (!IsOver(State)) {
        EnterTurn(State, TurnState::Resting);
    }
    view::SetStatus(State, StandingText(State));
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
}

} // namespace zonterbrook::control
