// What the mouse has in the hand, and how it is let go: for whatever ends a drag without a drop.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Forgets the piece in the hand, its pointer and the latches of the drag. What is boxed or numbered stays so.
void ClearDrag(GameState& State);

/// Forgets all that the mouse is doing, and which piece was touched.
void ClearInput(GameState& State);

/// Takes the marks of a hint off the board.
void ForgetHintedMove(view::ViewState& State);

} // namespace zonterbrook::control
