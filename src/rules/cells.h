// The board's cells: the mailbox layout, what a cell may hold, and sets of cells.
//
// The playing area is 10 by 10 inside a border of two rows below and above and one column at each side; one column is
// enough, because column 11 of a row and column 0 of the next stand side by side.
#pragma once

#include <bit>
#include <cstdint>
#include <cstdlib>

namespace zonterbrook::rules {

inline constexpr int BoardCells = 168;
inline constexpr int RowWidth = 12;
inline constexpr int FirstCell = 25;
inline constexpr int LastCell = 142;
inline constexpr int FirstRow = 2;
inline constexpr int LastRow = 11;
inline constexpr int FirstColumn = 1;
inline constexpr int LastColumn = 10;

/// The `Source` of a piece that enters from off the board.
inline constexpr int FromHand = 999;

inline constexpr std::int32_t Empty = 0;
inline constexpr std::int32_t WhiteMan = 1;
inline constexpr std::int32_t BlackMan = -1;
inline constexpr std::int32_t WhiteKing = 2;
inline constexpr std::int32_t BlackKing = -2;
inline constexpr std::int32_t Border = 100;

/// What a jumped piece's cell loses while its capture is being searched.
inline constexpr std::int32_t JumpedMark = 10;

inline constexpr std::int32_t White = 1;
inline constexpr std::int32_t Black = -1;

constexpr int RowOf(int Cell) {
    return Cell / RowWidth;
}
constexpr int ColumnOf(int Cell) {
    return Cell % RowWidth;
}
constexpr int CellAt(int Row, int Column) {
    return Row * RowWidth + Column;
}
constexpr bool IsOnBoard(int Cell) {
    return Cell >= FirstCell && Cell <= LastCell && ColumnOf(Cell) >= FirstColumn && ColumnOf(Cell) <= LastColumn;
}
constexpr bool IsPiece(std::int32_t Value) {
    return Value != Empty && Value >= BlackKing && Value <= WhiteKing;
}
constexpr bool IsMan(std::int32_t Value) {
    return Value == WhiteMan || Value == BlackMan;
}
constexpr bool IsKing(std::int32_t Value) {
    return Value == WhiteKing || Value == BlackKing;
}

/// A piece's row in the tables: 0 White man, 1 Black man, 2 White king, 3 Black king. `Value` must be a piece.
constexpr int PieceIndex(std::int32_t Value) {
    return (Value < 0 ? 1 : 0) + (IsKing(Value) ? 2 : 0);
}
inline constexpr int PieceIndices = 4;

/// 0 for White, 1 for Black: the column of tables that have one for each colour.
constexpr int ColourIndex(std::int32_t Side) {
    return Side == White ? 0 : 1;
}

/// A set of cells of the playing rows, one bit for each of the cells 25 to 142. Moving all members by one step is a
/// shift; what a shift carries into the border columns is masked away with `PlayingCells`.
class CellSet {
public:
    __extension__ using Word = unsigned __int128;

    constexpr CellSet() = default;
    constexpr explicit CellSet(Word Content) : Bits(Content) {}

    static constexpr CellSet Of(int Cell) { return CellSet(Word{1} << (Cell - FirstCell)); }

    constexpr bool Contains(int Cell) const { return ((Bits >> (Cell - FirstCell)) & 1U) != 0; }
    constexpr bool Any() const { return Bits != 0; }
    constexpr bool None() const { return Bits == 0; }
    constexpr int Count() const { return std::popcount(Low()) + std::popcount(High()); }

    /// The lowest and the highest member. The set must not be empty.
    constexpr int First() const {
        return FirstCell + (Low() != 0 ? std::countr_zero(Low()) : 64 + std::countr_zero(High()));
    }
    constexpr int Last() const {
        return FirstCell + (High() != 0 ? 127 - std::countl_zero(High()) : 63 - std::countl_zero(Low()));
    }

    /// Takes the lowest member out and returns it. The set must not be empty.
    constexpr int TakeFirst() {
        const int Cell = First();
        Bits &= Bits - 1;
        return Cell;
    }

    /// Every member moved by `Step` cells.
    constexpr CellSet Moved(int Step) const {
        return CellSet(Step >= 0 ? Bits << static_cast<unsigned>(Step) : Bits >> static_cast<unsigned>(-Step));
    }

    constexpr std::uint64_t Low() const { return static_cast<std::uint64_t>(Bits); }
    constexpr std::uint64_t High() const { return static_cast<std::uint64_t>(Bits >> 64U); }

    constexpr CellSet operator|(CellSet Other) const { return CellSet(Bits | Other.Bits); }
    constexpr CellSet operator&(CellSet Other) const { return CellSet(Bits & Other.Bits); }
    constexpr CellSet operator^(CellSet Other) const { return CellSet(Bits ^ Other.Bits); }
    constexpr CellSet Without(CellSet Other) const { return CellSet(Bits & ~Other.Bits); }
    constexpr CellSet& operator|=(CellSet Other) {
        Bits |= Other.Bits;
        return *this;
    }
    constexpr CellSet& operator^=(CellSet Other) {
        Bits ^= Other.Bits;
        return *this;
    }
    bool operator==(const CellSet&) const = default;

private:
    Word Bits = 0;
};

namespace detail {
constexpr CellSet MakePlayingCells() {
    CellSet Result;
    for (int Cell = FirstCell; Cell <= LastCell; ++Cell) {
        if (IsOnBoard(Cell)) {
            Result |= CellSet::Of(Cell);
        }
    }
    return Result;
}
} // namespace detail

/// The 100 cells of the board.
inline constexpr CellSet PlayingCells = detail::MakePlayingCells();

/// One row of the board, by mailbox row 2 to 11.
constexpr CellSet RowCells(int Row) {
    return CellSet(CellSet::Word{0x3FF} << static_cast<unsigned>(CellAt(Row, FirstColumn) - FirstCell));
}

} // namespace zonterbrook::rules
