// The text of one half-move, taken apart into squares, and put together.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::formats {

/// What the text of a half-move says. Squares are numbers without leading zeros ("5", "32") or names in capitals with
/// the tenth rank as 0 ("C3", "B0"), all of one kind.
struct PdnMoveParts {
    std::vector<std::string>
        Squares;        ///< from the source to the destination; a single one is an entry from off the board
    char Separator = 0; ///< '-', 'x' or ':'; 0 if there is none; the capture's sign if there are both
    bool Letters = false;

    const std::string& Source() const { return Squares.front(); }
    const std::string& Dest() const { return Squares.back(); }
    bool IsEntry() const { return Squares.size() == 1; }
    /// The text says itself that this is a capture, or that it is none; without a separator it says neither.
    bool SaysCapture() const { return Separator == 'x' || Separator == ':'; }
    bool SaysStep() const { return Separator == '-'; }

    bool operator==(const PdnMoveParts&) const = default;
};

/// Takes a half-move apart: "32-28", "32x23x14x5", "c3:e5", "c3d4", "3228", "d4", "a9-b10". Nothing if the text has not
/// the form of a move. Numbers up to 99 have it; whether a square is on the board is not asked. What follows a complete
/// last square ("28foo") is passed over.
std::optional<PdnMoveParts> SplitPdnMove(std::string_view Text);

/// The text of a half-move from the names of its squares, in lower case, with `Separator` between each two.
std::string JoinPdnMove(const std::vector<std::string>& Squares, char Separator);

/// The four characters by which a move is known in raw form, or two for an entry: " 523", "3228", "C3D4".
std::string RawPdnMove(const PdnMoveParts& Parts);

} // namespace zonterbrook::formats
