// A duration as text, for the calculation's label and the log.
#pragma once

#include <string>

namespace zonterbrook::view {

/// A duration in seconds, rounded to whole ones: "00:01.05" (hours, minutes, seconds); must not be
/// negative.
std::string TimeString(double Seconds);

} // namespace zonterbrook::view
