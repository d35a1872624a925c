// Stepping through the game that has been played.
//
// Reads the record; moves the position and the cursor `GameMoves`, and shows where it stands.
#include "control/navigation.h"

#include "control/book.h"
#include "control/ending.h"
#include "control/input_state.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/moves.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::control {

namespace {

bool SameCaptures(const rules::CapturePath& A, const rules::CapturePath& B) {
    const auto Less = [](const rules::CaptureGroup& Left, const rules::CaptureGroup& Right) {
        return Left.Cell < Right.Cell;
    };
    rules::CapturePath SortedA = A;
    rules::CapturePath SortedB = B;
    std::sort(SortedA.Groups, SortedA.Groups + SortedA.Count, Less);
    std::sort(SortedB.Groups, SortedB.Groups + SortedB.Count, Less);
    return SortedA == SortedB;
}

// The index on the stack of a recorded move, or -1. Two captures may share both ends, and only the one that was played
// leads to the position from which the stored game goes on.
int FindRecorded(const GameState& State, const rules::MoveRecord& Played) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const rules::MoveRecord& Candidate = State.MoveStack[I];
        if (Candidate.Source == Played.Source && Candidate.Dest == Played.Dest && Candidate.Kind == Played.Kind &&
            SameCaptures(Candidate.Captures, Played.Captures)) {
            return I;
        }
    }
    return -1;
}

void RestoreRootMaterial(GameState& State) {
    const game::HalfMove& Before = State.Record.Last();
    rules::InitGameTree(State);
    State.Material[0] = Before.Material;
    State.TotalMaterial[0] = Before.TotalMaterial;
}

// Plays the next recorded half-move; false, with nothing changed, if the rules in force don't allow it.
bool StepOneForward(GameState& State) {
    if (!State.Record.MovesAhead()) {
        return false;
    }
    const game::HalfMove& Next = State.Record.HalfMoves[State.Record.Cursor + 1];
    State.CommentText = Next.Comment;
    RestoreRootMaterial(State);
    rules::GenerateGameMoves(State);
    const int Index = FindRecorded(State, Next.Played.Record);
    if (Index < 0) {
        return false;
    }
    rules::PlayMove(State, Index);
    ++State.Record.Cursor;
    return true;
}

void StepOneBack(GameState& State) {
    const rules::PlayedMove& Last = State.Record.Last().Played;
    const game::HalfMove& Before = State.Record.HalfMoves[--State.Record.Cursor];
    rules::StepBack(State, Last, Before.Material, Before.TotalMaterial);
}

// At the end of the record a game that was over is over again; it has been announced before.
void RenewEnding(GameState& State) {
    if (const auto End = FindEnding(State)) {
        EndGame(State, *End, Announcement::Silent);
    }
}

void GoForward(GameState& State, int Steps) {
    for (int I = 0; I < Steps && StepOneForward(State); ++I) {
        DrawRuleCheck(State);
    }
    view::DrawBoard(State, 0);
    State.GameList.Selected = State.Record.Cursor - 1;
    const bool AtTheEnd = !State.Record.MovesAhead();
    if (AtTheEnd) {
        RenewEnding(State);
    }
    view::SetStatus(State, AtTheEnd ? State.StatusText : std::string());
}

void GoBack(GameState& State, int Steps) {
    for (int I = 0; I < Steps && State.Record.MovesBehind(); ++I) {
        StepOneBack(State);
    }
    ReopenGame(State);
    State.CommentText = State.Record.Last().Comment;
    State.GameList.Selected = State.Record.Cursor - 1;
    view::DrawBoard(State, 0);
    view::SetStatus(State, "");
}

void JumpBy(GameState& State, int Steps) {
    State.RootList = {};
    NavigateMoves(State, Steps);
}

} // namespace

void NavigateMoves(GameState& State, int Steps) {
    if (State.Record.Count < 1 || Steps == 0) {
        return;
    }
    State.DrawPending = 0;
    State.HintSource = 0;
    State.HintDest = 0;
    State.RootMoves.Fill({engine::UnsetScore, 0, engine::UnsetScore});
    State.Calculated = {};
    view::WriteCalculation(State);
    ClearInput(State);
    if (Steps < 0) {
        GoForward(State, -Steps);
    } else {
        GoBack(State, Steps);
    }
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
}

bool StepForTool(GameState& State) {
    if (!StepOneForward(State)) {
        return false;
    }
    DrawRuleCheck(State);
    view::DrawBoard(State, 0);
    State.GameList.Selected = State.Record.Cursor - 1;
    return true;
}

void SettleAfterTool(GameState& State) {
    EnterTurn(State, TurnState::Resting);
    view::SetStatus(State, "");
    if (State.Record.Cursor > 0 && !State.Record.MovesAhead()) {
        RenewEnding(State);
        view::SetStatus(State, State.StatusText);
    }
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
    view::DrawBoard(State, 0);
}

void StepForward(GameState& State) {
    const int Before = State.Record.Cursor;
    NavigateMoves(State, -1);
    if (State.Record.Cursor > Before && State.StatusPanels[view::StatusPanel].empty()) {
        view::SetStatus(State, view::HalfMoveText(State, State.Record.Last()));
    }
}

void First_Click(GameState& State) {
    if (State.Record.MovesBehind()) {
        JumpBy(State, State.Record.Cursor);
    }
}

void Moveback_Click(GameState& State) {
    JumpBy(State, 1);
}

void MoveForward_Click(GameState& State) {
    State.RootList = {};
    StepForward(State);
}

void Last_Click(GameState& State) {
    JumpBy(State, State.Record.Cursor - State.Record.Count);
}

int StepsToTakeBack(const GameState& State) {
    const int Behind = State.Record.Cursor;
    if (State.PlayMode == view::GameMode::PlayerPlayer) {
        return std::min(Behind, 1);
    }
    const int Steps = PersonSide(State) == State.Side ? 2 : 1;
    return Behind < Steps ? 0 : Steps;
}

void TakeBack_Click(GameState& State) {
    const int Steps = StepsToTakeBack(State);
    if (Steps > 0) {
        JumpBy(State, Steps);
        view::SetStatus(State, view::SideMovesText(State.Side));
    }
}

void GoToSelectedMove(GameState& State) {
    if (!IsBusy(State) && State.GameList.Selected >= 0) {
        JumpBy(State, State.Record.Cursor - State.GameList.Selected - 1);
    }
}

} // namespace zonterbrook::control
