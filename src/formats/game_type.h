// The tag GameType of a PDN file: which game is played, on which board, and how its squares are named.
#pragma once

#include "rules/rule_set.h"

#include <optional>
#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// The corner in which the first square (1 or a1) lies, as the side sees it that begins.
enum class PdnCorner { BottomLeft, BottomRight, TopLeft, TopRight };

/// "20,W,10,10,N2,0".
struct PdnGameType {
    int Number = 0;
    bool BlackBegins = false;
    int Width = 0; ///< 0: unknown
    int Height = 0;
    bool Letters = false; ///< squares are named by letter and digit
    PdnCorner Corner = PdnCorner::TopLeft;
    bool Inverted = false; ///< played on the other colour of square: the one at the bottom left is not used

    bool IsTenByTen() const { return Width == 10 && Height == 10; }
    bool operator==(const PdnGameType&) const = default;
};

/// Reads the tag's value. What it leaves out is as the number's game has it. Nothing if it does not begin with a
/// number.
std::optional<PdnGameType> ReadGameType(std::string_view Text);

std::string WriteGameType(const PdnGameType& Type);

/// The name of the variant that plays this game on ten by ten squares, or empty if there is none or the board differs.
std::string_view GameTypeVariant(const PdnGameType& Type);

/// The game type of a game by the rules of `Variant`, or nothing where it has no number or `Rules`, those in force, are
/// not `OfVariant`, those of the variant's file. `Letters`: how the moves are written.
std::optional<PdnGameType> GameTypeOf(std::string_view Variant, const rules::RuleSetFields& Rules,
                                      const rules::RuleSetFields& OfVariant, bool Letters);

/// The name by which this program knows a square that `Type` names `Square`, in capitals: numbers count from the top
/// left, letters from the bottom left, as White sees the board. Empty if `Square` is none of a board of ten by ten.
std::string OwnSquare(const PdnGameType& Type, std::string_view Square);

} // namespace zonterbrook::formats
