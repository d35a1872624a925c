// The end of a drag.
#include "control/input_state.h"

namespace zonterbrook::control {

namespace {

void RemovePointers(view::WindowContents& Contents) {
    for (view::BoardCell& Cell : Contents.Cells) {
        Cell.Pointer = view::Picture::None;
    }
}

} // namespace

void ClearDrag(GameState& State) {
    RemovePointers(State);
    State.SourceCell = -1;
    State.RightCell = -1;
    State.HoverSquare = 0;
    State.HoverCell = -1;
    State.HandSide = 0;
    State.DragIconSet = false;
    State.SetupLatch = false;
    State.PopupLatch = false;
}

void ForgetHintedMove(view::ViewState& State) {
    State.HintedSquares[0] = 0;
    State.HintedSquares[1] = 0;
    for (view::BoardCell& Cell : State.Cells) {
        Cell.Hinted = false;
    }
}

void ClearInput(GameState& State) {
    RemovePointers(State);
    State.PickedSquare = 0;
    State.Ways.clear();
    State.WayMoves.clear();
    ForgetHintedMove(State);
    static_cast<InputFields&>(State) = {};
    State.TouchedSquare = 0;
}

} // namespace zonterbrook::control
