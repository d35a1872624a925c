// A duration as text, for the calculation's label and the log.
#pragma once

#include <string>

namespace zonterbrook::control {

/// A duration in seconds, rounded to whole ones: "00:01.05" (hours, minutes, seconds), or with `Verbose` in words,
/// "1 minute and 5 seconds". `Seconds` must not be negative.
std::string TimeString(double Seconds, bool Verbose);

} // namespace zonterbrook::control
