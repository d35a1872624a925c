// Moves from the mouse, from the keyboard and from the lists.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Forgets what the mouse is doing.
void ClearInput(GameState& State);

} // namespace zonterbrook::control
