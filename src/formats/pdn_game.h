// One game of a PDN file as a plain document, and its reader.
//
// Moves are texts here: whether they are legal, and on which squares they are, is found out by whoever replays them;
// pdn_move.h takes one apart. docs/file-formats.md tells what is read and what is passed over.
#pragma once

#include "formats/pdn_tags.h"
#include "formats/text_file.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::formats {

/// A half-move: its text without number, marks and blanks, and the comment in front of it, lines parted by "\n".
struct PdnHalfMove {
    std::string Text;
    std::string Comment;

    bool operator==(const PdnHalfMove&) const = default;
};

struct PdnGame {
    PdnTags Tags;
    std::vector<PdnHalfMove> Moves;
    std::string LastComment;       ///< the one behind the last half-move
    std::string Result;            ///< the text that ended the moves, or empty
    bool BeginsWithSecond = false; ///< "1. ... 19-23": the first half-move of the first row is left out
    std::int32_t Comments = 0;     ///< how many the text has, outside of variations

    bool operator==(const PdnGame&) const = default;
};

/// What is read of a game's half-moves at most. A longer text is cut there; no game of ours is nearly as long.
inline constexpr std::size_t MostPdnMoves = 10000;

/// Reads the first game in `Bytes`: a game of a file, or a pasted text. Bytes that are no UTF-8 are read as Latin-1. An
/// error if there is none. What can't be understood in the moves is no error: it comes as a half-move that no rules
/// know.
ReadResult<PdnGame> ReadPdnGame(std::string_view Bytes);

/// Whether a token is one of the results that end a game: 1-0, 0-1, 1/2-1/2, 2-0, 0-2, 1-1, 0-0 or *.
bool IsPdnResult(std::string_view Token);

} // namespace zonterbrook::formats
