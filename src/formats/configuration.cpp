// Keys and values.
#include "formats/configuration.h"

#include "base/text.h"

#include <algorithm>

namespace zonterbrook::formats {

Configuration ReadConfiguration(std::string_view Text) {
    Configuration Values;
    for (const std::string& Line : base::SplitLines(Text)) {
        const std::size_t Equals = Line.find('=');
        if (Equals != std::string::npos && Equals > 0) {
            Values.emplace_back(Line.substr(0, Equals), Line.substr(Equals + 1));
        }
    }
    return Values;
}

std::string WriteConfiguration(const Configuration& Values) {
    std::string Text;
    for (const auto& [Key, Value] : Values) {
        std::string Line = Value;
        std::ranges::replace_if(
            Line, [](char C) { return C == '\r' || C == '\n'; }, ' ');
        Text.append(Key).append("=").append(Line).append("\r\n");
    }
    return Text;
}

std::vector<std::string> ValuesOf(const Configuration& Values, std::string_view Key) {
    std::vector<std::string> Found;
    for (const auto& [Name, Value] : Values) {
        if (Name == Key) {
            Found.push_back(Value);
        }
    }
    return Found;
}

} // namespace zonterbrook::formats
