// The analysis: what the computer thinks of the position on the board, with nothing played.
#pragma once

#include "control/state.h"
#include "engine/root_search.h"

namespace zonterbrook::control {

/// The Analyze command. Does nothing once the game has ended. `AlsoTold` hears when an iteration is done. Clears
/// `CancelRequested`.
void AnalyzeNow(GameState& State, engine::RootObserver* AlsoTold = nullptr);

} // namespace zonterbrook::control
