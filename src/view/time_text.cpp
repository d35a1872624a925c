// A duration as text.
#include "view/time_text.h"

#include <cmath>
#include <cstdint>

namespace zonterbrook::view {

namespace {

struct Duration {
    std::int64_t Hours;
    std::int64_t Minutes;
    std::int64_t Seconds;
};

// Rounding comes first, so that sixty of anything carries.
Duration SplitDuration(double Seconds) {
    const auto Whole = static_cast<std::int64_t>(std::round(Seconds));
    return {Whole / 3600, Whole % 3600 / 60, Whole % 60};
}

std::string TwoDigits(std::int64_t Number) {
    return (Number < 10 ? "0" : "") + std::to_string(Number);
}

} // namespace

std::string TimeString(double Seconds) {
    const Duration Time = SplitDuration(Seconds);
    return TwoDigits(Time.Hours) + ":" + TwoDigits(Time.Minutes) + "." + TwoDigits(Time.Seconds);
}

} // namespace zonterbrook::view
