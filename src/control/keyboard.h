// The board played on with the keys: a cursor in place of the mouse.
//
// These are the handlers' bodies; the window calls those of events.h, which hold the trap.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// What the keys do on the board.
enum class BoardKey { Left, Right, Up, Down, JumpLeft, JumpRight, JumpUp, JumpDown, Pick, Menu };

/// See `c_KeyDown` and its neighbours in events.h.
void PressBoardKey(GameState& State, BoardKey Key);
void ReleaseBoardKey(GameState& State, BoardKey Key);
void EnterBoard(GameState& State, bool ByKeys);
void LeaveBoard(GameState& State, bool ByPerson);
void ChooseCell(GameState& State, int Index);

/// The mouse has been pressed on a cell: the cursor hides, and is there when the keys are used again.
void MouseTakesOver(GameState& State, int Index);

} // namespace zonterbrook::control
