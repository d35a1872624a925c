// What every fuzzed reader shares.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace zonterbrook::fuzz {

inline std::string_view TextOf(const std::uint8_t* Bytes, std::size_t Size) {
    return {reinterpret_cast<const char*>(Bytes), Size};
}

/// Ends the run with what does not hold.
inline void Expect(bool Holds, const char* What) {
    if (!Holds) {
        std::fprintf(stderr, "does not hold: %s\n", What);
        std::abort();
    }
}

} // namespace zonterbrook::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size);
