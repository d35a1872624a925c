// Chance that can be had again: a row of random numbers that follows from a seed.
#pragma once

#include <cstdint>

namespace zonterbrook::base {

struct Chance {
    std::uint64_t State = 1;

    /// The next number, uniform, 0 up to but not including 1.
    double Next() {
        State = State * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(State >> 11U) / 9007199254740992.0;
    }
};

} // namespace zonterbrook::base
