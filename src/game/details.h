// What is told of a game beside its moves: who played it, where and when.
#pragma once

#include <string>

namespace zonterbrook::game {

/// Texts of a person or of a file, empty where nothing is known. Each is one line.
struct Details {
    std::string Event;
    std::string Site;
    std::string Date; ///< "mm/dd/yyyy" where the program fills it in
    std::string Black;
    std::string White;
    std::string Result; ///< as a file has it; it holds where the board does not tell one

    bool operator==(const Details&) const = default;
};

} // namespace zonterbrook::game
