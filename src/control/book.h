// The opening book as the game asks it.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Looks the position up. Mode 1 also draws a move, `BookMoveSource` and `BookMoveDest`, 0 when the book has none.
void LookupBook(GameState& State, int Mode);

} // namespace zonterbrook::control
