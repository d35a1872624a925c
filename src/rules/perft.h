// Counting the move tree: the generators' own yardstick.
#pragma once

#include "rules/generate.h"

#include <cstdint>

namespace zonterbrook::rules {

/// The leaves of the move tree `Depth` plies below the position, by the two-step form of the generator given. No draw
/// rules; a side without moves has no leaf. Leaves the position as it was.
std::uint64_t Perft(RulesState& State, int Depth, const Generator& Moves);

} // namespace zonterbrook::rules
