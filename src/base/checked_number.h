// Narrowing that cannot lose a value in silence.
#pragma once

#include "base/fault.h"

#include <concepts>
#include <cstdint>
#include <utility>

namespace zonterbrook::base {

/// `Value` as a `To`; throws a `Fault` when `To` cannot hold it.
template <std::integral To>
constexpr To Narrow(std::integral auto Value) {
    if (!std::in_range<To>(Value)) [[unlikely]] {
        FailWidth(static_cast<std::int64_t>(Value));
    }
    return static_cast<To>(Value);
}

} // namespace zonterbrook::base
