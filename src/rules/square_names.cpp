// Square names.
#include "rules/square_names.h"

#include "base/text.h"
#include "rules/state.h"

namespace zonterbrook::rules {

namespace {

constexpr int NumberedSquares = 50;

std::string NumberedName(int Square, Padding Pad) {
    const int Number = (LastRow - RowOf(Square)) * 5 + (ColumnOf(Square) + 1) / 2;
    std::string Name = std::to_string(Number);
    if (Number < 10 && Pad != Padding::None) {
        Name.insert(Name.begin(), Pad == Padding::Blank ? ' ' : '0');
    }
    return Name;
}

} // namespace

int NumberedCell(int PiecesOnBlack, std::int64_t Number) {
    if (Number < 1 || Number > NumberedSquares) {
        return 0;
    }
    const int Row = (static_cast<int>(Number) - 1) / 5;
    const int Column = Number % 5 == 0 ? 5 : static_cast<int>(Number % 5);
    int Cell = 132 - RowWidth * Row + 2 * Column - Row % 2;
    if (PiecesOnBlack == 0) {
        Cell += RowOf(Cell) % 2 == 0 ? 1 : -1;
    }
    return Cell;
}

std::string AlgebraicName(int Cell) {
    const int Row = RowOf(Cell);
    return {static_cast<char>('a' - 1 + ColumnOf(Cell)), static_cast<char>(Row == LastRow ? '0' : '1' - 2 + Row)};
}

int AlgebraicCell(std::string_view Name) {
    if (Name.size() < 2 || Name[0] < 'A' || Name[0] > 'J' || Name[1] < '0' || Name[1] > '9') {
        return 0;
    }
    const int Row = Name[1] == '0' ? LastRow : Name[1] - '1' + FirstRow;
    return CellAt(Row, Name[0] - 'A' + 1);
}

std::string SquareNotation(Notation Names, int Square, Padding Pad) {
    if (Square == FromHand) {
        return {};
    }
    if (!IsOnBoard(Square)) {
        return "--";
    }
    return Names != Notation::Algebraic ? NumberedName(Square, Pad) : AlgebraicName(Square);
}

int SquareNumber(const RulesState& State, std::string_view Name) {
    return State.NotationMode != Notation::Algebraic
               ? NumberedCell(State.RuleSet.PiecesOnBlack, base::LenientNumber(Name))
               : AlgebraicCell(Name);
}

} // namespace zonterbrook::rules
