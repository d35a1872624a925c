// The window's events, each under the trap, and what each command runs.
#include "control/events.h"

#include "control/computer_move.h"
#include "control/input.h"
#include "control/keyboard.h"
#include "control/modes.h"
#include "control/navigation.h"
#include "control/new_game.h"
#include "control/notation.h"
#include "control/rating.h"
#include "control/start.h"
#include "control/trap.h"
#include "view/board_cursor.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::control {

namespace {

using view::CommandId;

void TurnBoard(GameState& State) {
    const std::int32_t Touched = State.TouchedSquare; // stays touched, wherever it is shown
    ClearInput(State);
    State.TouchedSquare = Touched;
    State.BoardTurned = 1 - State.BoardTurned;
    view::DrawBoard(State, 0);
}

void ToggleCalculation(GameState& State) {
    State.ShowCalculation = 1 - State.ShowCalculation;
    State.CommandOf(CommandId::calculation).Ticked = State.ShowCalculation == 1;
    if (State.ShowCalculation == 0) {
        State.Calculation.Text = view::NoCalculation;
    }
}

// A turn that the computer takes over is no longer bound by the piece that the person touched.
template <void (*Routine)(GameState&)>
void HandOver(GameState& State) {
    ClearInput(State);
    Routine(State);
}

struct CommandRoutine {
    CommandId Id;
    void (*Run)(GameState& State);
};

constexpr CommandRoutine Routines[] = {
    {CommandId::New1, [](GameState& State) { StartNewGame(State, false); }},
    {CommandId::Exit, [](GameState& State) { State.Outside->CloseWindow(); }},
    {CommandId::Compute, HandOver<ComputeNow>},
    {CommandId::mnu_Play_Cancel, mnu_Play_Cancel_Click},
    {CommandId::First, First_Click},
    {CommandId::Moveback, Moveback_Click},
    {CommandId::MoveForward, MoveForward_Click},
    {CommandId::Last, Last_Click},
    {CommandId::Offerdraw, OfferDraw},
    {CommandId::Resign, Resign},
    {CommandId::Cplayer, SetComputerPlayerMode},
    {CommandId::Pplayer, SetPlayerPlayerMode},
    {CommandId::mnu_Play_Ccomputer, HandOver<RunComputerComputer>},
    {CommandId::Turn, TurnBoard},
    {CommandId::Nonotation, [](GameState& State) { SetNotation(State, rules::Notation::None); }},
    {CommandId::mnu_Board_Notation_Chess, [](GameState& State) { SetNotation(State, rules::Notation::Algebraic); }},
    {CommandId::mnu_Board_Notation_Checkers, [](GameState& State) { SetNotation(State, rules::Notation::Numeric); }},
    {CommandId::calculation, ToggleCalculation},
    {CommandId::rating, rating_Click},
};

} // namespace

void c_MouseDown(GameState& State, int Index, int Button, int /*X*/, int /*Y*/) {
    RunTrapped(State, [&] {
        MouseTakesOver(State, Index);
        PressCell(State, Index, Button);
    });
}

void c_MouseMove(GameState& State, int Index, int /*Button*/, int X, int Y) {
    RunTrapped(State, [&] { MoveOverCell(State, Index, X, Y); });
}

void c_MouseUp(GameState& State, int Index, int Button, int X, int Y) {
    RunTrapped(State, [&] { ReleaseCell(State, Index, Button, X, Y); });
}

void c_KeyDown(GameState& State, BoardKey Key) {
    RunTrapped(State, [&] { PressBoardKey(State, Key); });
}

void c_KeyUp(GameState& State, BoardKey Key) {
    RunTrapped(State, [&] { ReleaseBoardKey(State, Key); });
}

void c_GotFocus(GameState& State, bool ByKeys) {
    RunTrapped(State, [&] { EnterBoard(State, ByKeys); });
}

void c_LostFocus(GameState& State) {
    RunTrapped(State, [&] { LeaveBoard(State); });
}

void c_Choose(GameState& State, int Index) {
    RunTrapped(State, [&] { ChooseCell(State, Index); });
}

std::string c_Text(const GameState& State, int Index) {
    return view::CellText(State, Index, TakesMoves(State));
}

void PutBackPiece(GameState& State) {
    RunTrapped(State, [&] { EscapeDrag(State); });
}

void Text2_KeyUp(GameState& State, int KeyCode) {
    if (KeyCode == EnterKey) {
        RunTrapped(State, [&] { EnterTypedMove(State); });
    }
}

void Text1_KeyUp(GameState& State) {
    // The comment belongs to the half-move to come. While a search makes moves of its own, the record ends at its root.
    const std::int32_t Made = std::min(State.GameMoves, State.MoveCount);
    if (Made < rules::MaxGameMoves) {
        State.MoveComment[Made + 1] = State.CommentBox.Text;
    }
}

void List2_DblClick(GameState& State) {
    RunTrapped(State, [&] { PlayListedMove(State); });
}

void List3_DblClick(GameState& State) {
    RunTrapped(State, [&] { PlayRootMove(State); });
}

void List1_MouseUp(GameState& State) {
    RunTrapped(State, [&] { GoToSelectedMove(State); });
}

void List1_KeyDown(GameState& State, int KeyCode) {
    if (KeyCode == EnterKey) {
        RunTrapped(State, [&] { GoToSelectedMove(State); });
    }
}

void RunCommand(GameState& State, CommandId Id) {
    if (!view::CanRun(State, Id)) {
        return;
    }
    for (const CommandRoutine& Routine : Routines) {
        if (Routine.Id == Id) {
            RunTrapped(State, [&] {
                EscapeDrag(State);
                Routine.Run(State);
            });
        }
    }
}

void Form_Load(GameState& State) {
    RunTrapped(
        State, [&] { StartProgram(State); }, ErrorFound);
}

void Form_QueryUnload(GameState& State, bool& Cancel) {
    Cancel = !MayClose(State);
}

void Form_Unload(GameState& State) {
    EndProgram(State);
}

} // namespace zonterbrook::control
