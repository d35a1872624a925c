// The window's events, each under the trap.
#include "control/events.h"

#include "control/colour.h"
#include "control/navigation.h"
#include "control/open_game.h"
#include "control/program.h"
#include "control/trap.h"
#include "control/turn_state.h"
#include "view/board_cursor.h"
#include "view/draw_board.h"
#include "view/layout.h"

namespace zonterbrook::control {

void c_MouseDown(GameState& State, int Index, int Button) {
    RunTrapped(State, [&] {
        MouseTakesOver(State, Index);
        PressCell(State, Index, Button);
    });
}

void c_MouseMove(GameState& State, int Index) {
    RunTrapped(State, [&] { MoveOverCell(State, Index); });
}

void c_MouseUp(GameState& State, int Index, int Button, int X, int Y) {
    RunTrapped(State, [&] { ReleaseCell(State, Index, Button, X, Y); });
}

void ExtraPieces_MouseDown(GameState& State, std::int32_t Side) {
    RunTrapped(State, [&] { PickFromCounter(State, Side); });
}

void ExtraPieces_MouseUp(GameState& State, int Index) {
    RunTrapped(State, [&] { DropFromCounter(State, Index); });
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

void c_LostFocus(GameState& State, bool ByPerson) {
    RunTrapped(State, [&] { LeaveBoard(State, ByPerson); });
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

void c_ChooseWay(GameState& State, int Number) {
    RunTrapped(State, [&] { ChooseWay(State, Number); });
}

void Text2_KeyUp(GameState& State, int KeyCode) {
    if (KeyCode == EnterKey) {
        RunTrapped(State, [&] { EnterTypedMove(State); });
    }
}

void Text1_KeyUp(GameState& State) {
    // The comment belongs to the half-move to come.
    if (!State.Record.IsFull()) {
        std::string& Comment = State.Record.HalfMoves[State.Record.Cursor + 1].Comment;
        State.GameChanged = State.GameChanged || Comment != State.CommentText;
        Comment = State.CommentText;
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

void OpenDropped(GameState& State, const std::filesystem::path& File) {
    if (IsEnabled(State, CommandId::Open)) {
        RunTrapped(State, [&] { OpenNamed(State, File); });
    }
}

void OpenListed(GameState& State, std::size_t Place) {
    if (IsEnabled(State, CommandId::Open)) {
        RunTrapped(State, [&] { OpenRecent(State, Place); });
    }
}

void Form_Load(GameState& State) {
    RunTrapped(
        State, [&] { StartProgram(State); }, ErrorFound);
}

void Form_Activate(GameState& State) {
    // A game of the last run waits for the person.
    if (State.HandlersAtWork == 0 && !State.GameChanged) {
        RunTrapped(State, [&] { BeginByColour(State); });
    }
}

void ChangeDensity(GameState& State, std::int32_t TwipsPerPixel) {
    State.TwipsPerPixel = TwipsPerPixel;
    view::LayoutWindow(State);
    view::DrawEdges(State);
}

void Form_QueryUnload(GameState& State, bool& Cancel) {
    Cancel = !MayClose(State);
}

void Form_Unload(GameState& State) {
    EndProgram(State);
}

} // namespace zonterbrook::control
