// What helps a person: the rules of the variant, the manual, and what the program says of itself.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Shows the rules of the variant, with the link to a longer or a shorter account of them.
void Rules_Click(GameState& State);
void QuickRules_Click(GameState& State);

void Contents_Click(GameState& State);
void About_Click(GameState& State);

} // namespace zonterbrook::control
