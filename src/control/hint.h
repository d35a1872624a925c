// The hint: a move to try.
#pragma once

#include "control/state.h"

#include <cstdint>

namespace zonterbrook::control {

/// How uncertain the search of a hint is, in hundredths of a man.
inline constexpr std::int32_t HintNoise = 5;

/// Tells a move to try, and marks it on the board: the reply that the computer expects, or what a small search finds.
void ShowHint(GameState& State, std::int32_t Noise = HintNoise);

/// Tells the reply that the computer expects, and forgets it; false, and nothing said, if it expects none.
bool TellExpectedReply(GameState& State);

} // namespace zonterbrook::control
