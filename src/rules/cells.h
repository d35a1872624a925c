// The board's cells: the mailbox layout, what a cell may hold, and sets of cells.
//
// The playing area is 10 by 10 inside a border of two rows below and above and one column at each side; one column is
// enough, because column 11 of a row and column 0 of the next stand side by side.
#pragma once

#include "base/checked_array.h"

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
    // The sign bit, and from the square of the value, 1 or 4, whether it is a king: no branch.
    return static_cast<int>((static_cast<std::uint32_t>(Value) >> 31U) |
                            (static_cast<std::uint32_t>(Value * Value) >> 1U & 2U));
}
inline constexpr int PieceIndices = 4;

/// 0 for White, 1 for Black: the column of tables that have one for each colour.
constexpr int ColourIndex(std::int32_t Side) {
    return Side == White ? 0 : 1;
}

/// A set of cells of the playing rows, one bit for each of the cells 25 to 142. Moving all members by one step is a
/// shift; what a shift carries into the border columns is masked away with `PlayingCells`.
class alignas(16) CellSet {
public:
    __extension__ using Word = unsigned __int128;

    constexpr CellSet() = default;
    constexpr explicit CellSet(Word Content)
        : Halves{static_cast<std::uint64_t>(Content), static_cast<std::uint64_t>(Content >> 64U)} {}

    static constexpr CellSet Of(int Cell) {
        CellSet Set;
        Set.Toggle(Cell);
        return Set;
    }

    constexpr void Toggle(int Cell) { Halves[Half(Cell)] ^= Bit(Cell); }
    constexpr bool Contains(int Cell) const { return (Halves[Half(Cell)] & Bit(Cell)) != 0; }
    constexpr bool Any() const { return (Halves[0] | Halves[1]) != 0; }
    constexpr bool None() const { return !Any(); }
    constexpr int Count() const { return std::popcount(Halves[0]) + std::popcount(Halves[1]); }
    /// The members that `Other` has too, counted.
    constexpr int CountIn(const CellSet& Other) const {
        return std::popcount(Halves[0] & Other.Halves[0]) + std::popcount(Halves[1] & Other.Halves[1]);
    }

    /// The lowest and the highest member. The set must not be empty.
    constexpr int First() const {
        return FirstCell + (Halves[0] != 0 ? std::countr_zero(Halves[0]) : 64 + std::countr_zero(Halves[1]));
    }
    constexpr int Last() const {
        return FirstCell + (Halves[1] != 0 ? 127 - std::countl_zero(Halves[1]) : 63 - std::countl_zero(Halves[0]));
    }

    /// Takes the lowest member out and returns it. The set must not be empty.
    constexpr int TakeFirst() {
        const int Cell = First();
        std::uint64_t& Lowest = Halves[Halves[0] != 0 ? 0 : 1];
        Lowest &= Lowest - 1;
        return Cell;
    }

    /// Calls `Do(Cell)` for every member, the lowest first.
    template <typename Visitor>
    constexpr void ForEach(Visitor&& Do) const {
        for (int Half = 0; Half < 2; ++Half) {
            for (std::uint64_t Bits = Halves[Half]; Bits != 0; Bits &= Bits - 1) {
                Do(FirstCell + 64 * Half + std::countr_zero(Bits));
            }
        }
    }

    /// Calls `Do(Cell, InA, InB)` for every cell that is in `A` or `B`, the lowest first.
    template <typename Visitor>
    static constexpr void ForEachOf(const CellSet& A, const CellSet& B, Visitor&& Do) {
        for (int Half = 0; Half < 2; ++Half) {
            const std::uint64_t InA = A.Halves[Half];
            const std::uint64_t InB = B.Halves[Half];
            for (std::uint64_t Bits = InA | InB; Bits != 0; Bits &= Bits - 1) {
                const std::uint64_t Lowest = Bits & (0 - Bits);
                Do(FirstCell + 64 * Half + std::countr_zero(Bits), (InA & Lowest) != 0, (InB & Lowest) != 0);
            }
        }
    }

    /// Every member moved by `Step` cells, which must be fewer than 64.
    constexpr CellSet Moved(int Step) const {
        const Word Bits = Word{Halves[1]} << 64U | Halves[0];
        // The mask tells the compiler what the steps are anyway: less than a word.
        return CellSet(Step >= 0 ? Bits << (static_cast<unsigned>(Step) & 63U)
                                 : Bits >> (static_cast<unsigned>(-Step) & 63U));
    }

    constexpr std::uint64_t Low() const { return Halves[0]; }
    constexpr std::uint64_t High() const { return Halves[1]; }

    constexpr CellSet operator|(const CellSet& Other) const {
        return {Halves[0] | Other.Halves[0], Halves[1] | Other.Halves[1]};
    }
    constexpr CellSet operator&(const CellSet& Other) const {
        return {Halves[0] & Other.Halves[0], Halves[1] & Other.Halves[1]};
    }
    constexpr CellSet Without(const CellSet& Other) const {
        return {Halves[0] & ~Other.Halves[0], Halves[1] & ~Other.Halves[1]};
    }
    constexpr CellSet operator^(const CellSet& Other) const {
        return {Halves[0] ^ Other.Halves[0], Halves[1] ^ Other.Halves[1]};
    }
    constexpr CellSet& operator|=(const CellSet& Other) { return *this = *this | Other; }
    constexpr CellSet& operator^=(const CellSet& Other) { return *this = *this ^ Other; }
    bool operator==(const CellSet&) const = default;

private:
    constexpr CellSet(std::uint64_t InLow, std::uint64_t InHigh) : Halves{InLow, InHigh} {}

    static constexpr unsigned Index(int Cell) { return static_cast<unsigned>(Cell - FirstCell); }
    static constexpr unsigned Half(int Cell) { return Index(Cell) / 64U % 2U; }
    static constexpr std::uint64_t Bit(int Cell) { return std::uint64_t{1} << Index(Cell) % 64U; }

    std::uint64_t Halves[2] = {0, 0};
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

/// Each cell of the playing rows as a set of its own; nothing for a cell below or above them.
inline constexpr base::CheckedArray<CellSet, BoardCells> SingleCells = [] {
    base::CheckedArray<CellSet, BoardCells> Sets{};
    for (int Cell = FirstCell; Cell <= LastCell; ++Cell) {
        Sets[Cell] = CellSet::Of(Cell);
    }
    return Sets;
}();

namespace detail {
inline constexpr base::CheckedArray<CellSet, LastRow + 1> Rows = [] {
    base::CheckedArray<CellSet, LastRow + 1> Sets{};
    for (int Row = FirstRow; Row <= LastRow; ++Row) {
        Sets[Row] = CellSet(CellSet::Word{0x3FF} << static_cast<unsigned>(CellAt(Row, FirstColumn) - FirstCell));
    }
    return Sets;
}();
} // namespace detail

/// One row of the board, by mailbox row 2 to 11.
constexpr CellSet RowCells(int Row) {
    return detail::Rows[Row];
}

} // namespace zonterbrook::rules
