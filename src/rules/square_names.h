// A square's name from its cell and back, in the three notations.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zonterbrook::rules {

struct RulesState;
enum class Notation : std::int32_t;

/// How `SquareNotation` fills a numbered name below 10.
enum class Padding { Blank = 0, None = 1, Zero = 2 };

/// "a1" to "j0" for a cell of the board; the tenth rank is written 0.
std::string AlgebraicName(int Cell);

/// The cell that an upper-case letter-and-digit name stands for, or 0. Lower case gives 0: callers that take text from
/// a person convert it first. Does not ask whether the cell is played on.
int AlgebraicCell(std::string_view Name);

/// The cell of a square by number, 1 to 50, on the colour that `PiecesOnBlack` tells; 0 for any other number.
int NumberedCell(int PiecesOnBlack, std::int64_t Number);

/// The name of a cell. Empty for an entry from off the board, "--" for a border cell.
std::string SquareNotation(Notation Names, int Square, Padding Pad);

/// The cell that a name stands for in the notation in force, or 0 if it is no name.
int SquareNumber(const RulesState& State, std::string_view Name);

} // namespace zonterbrook::rules
