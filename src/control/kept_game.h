// A game kept whole before another one replaces it.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// The game in hand, whole.
std::shared_ptr<const ReplacedGame> KeepGame(const GameState& State);

} // namespace zonterbrook::control
