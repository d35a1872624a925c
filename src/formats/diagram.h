// The diagram: a position as a web page of small pictures, with a comment.
#pragma once

#include "base/checked_array.h"

#include <string>
#include <string_view>

namespace zonterbrook::formats {

inline constexpr int DiagramSquares = 100;

struct DiagramDocument {
    std::string Title;
    base::CheckedArray<std::string_view, DiagramSquares> Pictures{}; ///< names without folder, from the upper left
    std::string Comment;                                             ///< "\n" between its lines; empty for none
};

/// The page, lines ended as in all files of the program. Characters that a page can't hold as they are, and those
/// outside of ASCII, are written as a browser reads them whatever it takes the page's encoding for.
std::string WriteDiagram(const DiagramDocument& Diagram);

} // namespace zonterbrook::formats
