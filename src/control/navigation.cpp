// Stepping through the game that has been played.
//
// Reads the record; moves the position and the cursor `GameMoves`, and shows where it stands.
#include "control/navigation.h"

#include "control/end_of_game.h"
#include "control/input.h"
#include "control/new_game.h"
#include "control/record.h"
#include "rules/generate.h"
#include "rules/moves.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::control {

namespace {

using view::WindowEvent;

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

// The stack's record of a stored move, or -1. Two captures may share both ends, and only the one that was played leads
// to the position from which the stored game goes on.
int FindStored(const GameState& State, const rules::MoveRecord& Stored) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const rules::MoveRecord& Candidate = State.MoveStack[I];
        if (Candidate.Source == Stored.Source && Candidate.Dest == Stored.Dest && Candidate.Kind == Stored.Kind &&
            SameCaptures(Candidate.Captures, Stored.Captures)) {
            return I;
        }
    }
    return -1;
}

void RestoreRootMaterial(GameState& State) {
    rules::InitGameTree(State);
    State.Material[0] = State.MaterialAt[State.GameMoves];
    State.TotalMaterial[0] = State.TotalMaterialAt[State.GameMoves];
}

// Plays the next stored half-move; false, with nothing changed, if the rules in force don't allow it.
bool StepOneForward(GameState& State) {
    if (State.GameMoves >= State.MoveCount) {
        return false;
    }
    const int Next = State.GameMoves + 1;
    State.CommentBox.Text = State.MoveComment[Next];
    RestoreRootMaterial(State);
    rules::GenerateGameMoves(State);
    const int Index = FindStored(State, State.PlayedMoves[Next].Record);
    if (Index < 0) {
        return false;
    }
    rules::PerformMove(State, Index);
    return true;
}

void StepOneBack(GameState& State) {
    const int Last = State.GameMoves;
    rules::StepBack(State, State.PlayedMoves[Last], State.MaterialAt[Last - 1], State.TotalMaterialAt[Last - 1]);
}

void ForgetResult(GameState& State) {
    State.GameEnded = 0;
    State.DrawCode = 0;
    State.ResultText.clear();
    // A count that began behind the cursor has not begun yet.
    State.ThreeKingsStart = State.ThreeKingsStart > State.GameMoves ? 0 : State.ThreeKingsStart;
    State.TwoKingsStart = State.TwoKingsStart > State.GameMoves ? 0 : State.TwoKingsStart;
}

// At the end of the record a game that was over is over again; it has been announced before.
void RenewResult(GameState& State) {
    DrawRuleCheck(State);
    const GameOutcome Outcome = FindOutcome(State);
    if (Outcome == GameOutcome::GoesOn) {
        return;
    }
    SetResultText(State, Outcome == GameOutcome::Decided ? DecisiveResult : DrawnResult);
    State.GameEnded = 1;
    State.ChoiceList.Enabled = false;
    view::ApplyEvent(State, WindowEvent::GameEnds);
}

void GoForward(GameState& State, int Steps, bool Quiet, bool KeepEntries) {
    for (int I = 0; I < Steps && StepOneForward(State); ++I) {
        DrawRuleCheck(State);
    }
    State.Calculation.Text = view::NoCalculation;
    if (!KeepEntries) {
        view::DrawBoard(State, 0);
        State.GameList.Selected = State.GameMoves - 1;
    }
    view::SetStatus(State, State.GameMoves == State.MoveCount ? State.StatusText : std::string());
    if (!Quiet) {
        view::ApplyEvent(State, WindowEvent::SteppedForward);
        if (State.GameMoves == State.MoveCount) {
            RenewResult(State);
        }
    }
}

void GoBack(GameState& State, int Steps, bool Quiet, bool KeepEntries) {
    for (int I = 0; I < Steps && State.GameMoves > 0; ++I) {
        StepOneBack(State);
    }
    ForgetResult(State);
    State.CommentBox.Text = State.MoveComment[State.GameMoves];
    if (KeepEntries) {
        return;
    }
    State.GameList.Selected = State.GameMoves - 1;
    State.Calculation.Text = view::NoCalculation;
    view::DrawBoard(State, 0);
    view::SetStatus(State, "");
    if (!Quiet) {
        State.ChoiceList.Enabled = true;
        view::ApplyEvent(State, WindowEvent::SteppedBack);
    }
}

bool MayNavigate(const GameState& State) {
    return State.Thinking == 0;
}

void ClearList3(GameState& State) {
    State.RootList.Lines.clear();
    State.RootList.Selected = -1;
}

void JumpBy(GameState& State, int Steps) {
    ClearList3(State);
    NavigateMoves(State, Steps, false, false);
}

} // namespace

void NavigateMoves(GameState& State, int Steps, bool Quiet, bool KeepEntries) {
    if (State.MoveCount < 1 || Steps == 0) {
        return;
    }
    State.DrawPending = 0;
    State.HintSource = 0;
    State.HintDest = 0;
    if (!Quiet) {
        State.RootMoves.Fill({engine::UnsetScore, 0, engine::UnsetScore});
    }
    State.RootList.Enabled = false;
    ClearInput(State);
    if (Steps < 0) {
        GoForward(State, -Steps, Quiet, KeepEntries);
    } else {
        GoBack(State, Steps, Quiet, KeepEntries);
    }
    GenerateForInput(State);
    view::RefreshMoveChoices(State);
}

void StepForward(GameState& State) {
    const int Before = State.GameMoves;
    NavigateMoves(State, -1, false, false);
    if (State.GameMoves > Before && State.StatusPanels[view::StatusPanel].empty()) {
        view::SetStatus(State, StoredDisplay(State, State.GameMoves));
    }
}

void First_Click(GameState& State) {
    if (MayNavigate(State) && State.GameMoves != 0) {
        JumpBy(State, State.GameMoves);
    }
}

void Moveback_Click(GameState& State) {
    if (MayNavigate(State)) {
        JumpBy(State, 1);
    }
}

void MoveForward_Click(GameState& State) {
    if (MayNavigate(State)) {
        ClearList3(State);
        StepForward(State);
    }
}

void Last_Click(GameState& State) {
    if (MayNavigate(State)) {
        JumpBy(State, State.GameMoves - static_cast<int>(State.GameList.Lines.size()));
    }
}

void GoToSelectedMove(GameState& State) {
    if (MayNavigate(State) && State.GameList.Selected >= 0) {
        JumpBy(State, State.GameMoves - State.GameList.Selected - 1);
    }
}

} // namespace zonterbrook::control
