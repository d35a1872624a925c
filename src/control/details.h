// What is told of a game beside its moves, as a person edits it.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// The Details command.
void Details_Click(GameState& State);

} // namespace zonterbrook::control
