// What is to be seen of the move that was played last: its marks on the board, and the piece that slides there.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Marks the last move on the board, and begins its slide if it is new and was not made by hand: a reply of the
/// computer, a move that was typed, a step through the game. Reads the record; nothing of the game changes.
void TraceLastMove(GameState& State);

} // namespace zonterbrook::control
