// The opening book: lines of play for one or more rule sets, as a text file.
//
// docs/book-files.md describes it for those who write one.
#pragma once

#include "formats/text_file.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zonterbrook::formats {

/// What a book says for one rule set.
struct BookBlock {
    std::vector<std::pair<std::string, std::string>> Keys; ///< as in a game file, in their order
    std::vector<std::string> Movements;                    ///< the four strings behind "Offset=", as many as there are
    std::vector<std::string> Lines; ///< expanded: cells of five characters, a move and its mark, from the first move on
    std::vector<std::pair<std::string, std::string>> Names; ///< moves in such cells, and what the opening is called
};

/// Why a text is no book.
enum class BookFault : std::uint8_t { None, NoBook, OtherVersion };

struct BookDocument {
    BookFault Fault = BookFault::None;
    std::vector<BookBlock> Blocks; ///< those that are closed by a line "end"
};

BookDocument ReadBook(std::string_view Text);

/// The characters of a cell, and those of its move alone.
inline constexpr std::size_t BookCell = 5;
inline constexpr std::size_t BookMove = 4;

/// The moves of a line of cells, blanks in them as zeros, without the marks.
std::vector<std::string> MovesOfCells(std::string_view Cells);

} // namespace zonterbrook::formats
