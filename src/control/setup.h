// Editing the position: the popup menu on a square, and the new start position that its choice makes.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Opens the popup menu on a square and, if an entry is chosen, starts a game of the same rules from the position that
/// results. Refused in silence on a square that isn't played on.
void EditSquare(GameState& State, int Square);

} // namespace zonterbrook::control
