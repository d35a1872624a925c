// A file of keys and values, for what the settings file has no line for.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zonterbrook::formats {

/// Keys with their values, in the order of the file; a key may stand there several times.
using Configuration = std::vector<std::pair<std::string, std::string>>;

/// Reads "key=value" lines; a line without a key is passed over, so that a damaged file costs no more than what is
/// damaged.
Configuration ReadConfiguration(std::string_view Text);

/// The text of the file. Line ends inside a value become blanks.
std::string WriteConfiguration(const Configuration& Values);

/// The values of a key, in their order.
std::vector<std::string> ValuesOf(const Configuration& Values, std::string_view Key);

} // namespace zonterbrook::formats
