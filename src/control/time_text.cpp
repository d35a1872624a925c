// A duration as text.
#include "control/time_text.h"

#include <cmath>
#include <cstdint>

namespace zonterbrook::control {

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

std::string Counted(std::int64_t Count, const char* Word) {
    return std::to_string(Count) + Word + (Count == 1 ? "" : "s");
}

std::string TimeInWords(const Duration& Time) {
    std::string Words;
    if (Time.Hours > 0) {
        Words = Counted(Time.Hours, " hour") + ", " + Counted(Time.Minutes, " minute") + ", and ";
    } else if (Time.Minutes > 0) {
        Words = Counted(Time.Minutes, " minute") + " and ";
    }
    return Words + Counted(Time.Seconds, " second");
}

} // namespace

std::string TimeString(double Seconds, bool Verbose) {
    const Duration Time = SplitDuration(Seconds);
    if (Verbose) {
        return TimeInWords(Time);
    }
    return TwoDigits(Time.Hours) + ":" + TwoDigits(Time.Minutes) + "." + TwoDigits(Time.Seconds);
}

} // namespace zonterbrook::control
