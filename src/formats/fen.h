// A position as one line of text, in Portable Draughts Notation's form: "W:W31-50:B1-20".
#pragma once

#include "formats/game_type.h"
#include "formats/text_file.h"

#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// A position and who is to move.
struct FenPosition {
    bool BlackBegins = false;
    std::string Setup; ///< a hundred digits, as in a variant file

    bool operator==(const FenPosition&) const = default;
};

/// Reads a position. Numbers are those of the squares that `PiecesOnBlack` says are played on; names are read beside
/// them, and must be of such squares unless it is 2. Case and blanks don't matter; the closing dot may be missing;
/// ranges
/// ("31-50"), and what newer programs add about the number of moves, are understood. Refused are another side than W
/// and B, squares that are not there, two colours on one square and an empty board. With `Named`, squares are
/// named as that game type has them.
ReadResult<FenPosition> ReadFen(std::string_view Text, int PiecesOnBlack, const PdnGameType* Named = nullptr);

/// Writes a position: numbers, or names under `PiecesOnBlack` 2. `Position.Setup` must be a set-up text; pieces on
/// squares that are not played on are written by name.
std::string WriteFen(const FenPosition& Position, int PiecesOnBlack);

} // namespace zonterbrook::formats
