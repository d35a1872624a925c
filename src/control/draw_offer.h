// The person's own words: the offer of a draw, and resignation.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// The computer accepts a draw when it does not see itself ahead.
void OfferDraw(GameState& State);
void Resign(GameState& State);

} // namespace zonterbrook::control
