// The writer of one game in Portable Draughts Notation. A file of several is made by writing them one behind the other.
#pragma once

#include "formats/pdn_game.h"

#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// The text of a game, with an empty line behind it; lines end with CR LF. Half-moves are written as they are named,
/// but that a "K" for a promotion falls away and ":" becomes "x". Tags without a value are left out, except the date,
/// which `Today` stands in for, and the result, which is `Game.Result`, or "*" if that is empty: the result among the
/// tags and `Comments` are not asked. Behind the moves a result that not every reader knows is written as "*", too.
/// QVersion is written with the private rule tag alone.
std::string WritePdnGame(const PdnGame& Game, std::string_view Today);

/// What must stand between a file that ends with the bytes `End`, four of them or all that it has, and a game that is
/// appended: nothing, or the line ends that make an empty line.
std::string_view PdnGap(std::string_view End);

} // namespace zonterbrook::formats
