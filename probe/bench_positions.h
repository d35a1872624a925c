// The fixed positions whose search is the fingerprint of the engine: equal node counts, equal search.
#pragma once

#include <cstdint>

namespace zonterbrook::probe {

/// Searches every position to its fixed depth from a fresh state; the nodes of all of them.
std::uint64_t SearchBenchPositions();

} // namespace zonterbrook::probe
