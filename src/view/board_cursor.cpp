// Where the keyboard's cursor stands, and the squares in words.
//
// A search works on the one position, so the words come from the cells as they are shown; the moves of the ply are
// asked only while they stand still.
#include "view/board_cursor.h"

#include "rules/cells.h"
#include "rules/square_names.h"
#include "view/draw_board.h"

#include <algorithm>
#include <string_view>

namespace zonterbrook::view {

namespace {

constexpr int CellsInRow = 10;
constexpr std::uint8_t BothColours = 2; // of `PiecesOnBlack`

// What stands on a cell, or for a drag pointer what is in the hand; empty for a square without a piece.
std::string_view PieceText(Picture Shows) {
    switch (Shows) {
    case Picture::dark_white_man:
    case Picture::light_white_man:
    case Picture::white_man_ico:
        return "White man";
    case Picture::dark_black_man:
    case Picture::light_black_man:
    case Picture::black_man_ico:
        return "Black man";
    case Picture::dark_white_king:
    case Picture::light_white_king:
    case Picture::white_king_ico:
        return "White king";
    case Picture::dark_black_king:
    case Picture::light_black_king:
    case Picture::black_king_ico:
        return "Black king";
    default:
        return {};
    }
}

// A square has the name that the lists of moves use. One that is not played on has no number.
std::string NameText(const ViewState& State, int Square, bool PlayedOn) {
    if (State.NotationMode == rules::Notation::Algebraic || State.RuleSet.PiecesOnBlack == BothColours) {
        return rules::AlgebraicName(Square);
    }
    return PlayedOn ? rules::SquareNotation(State.NotationMode, Square, rules::Padding::None) : std::string();
}

template <typename Test>
bool AnyMove(const ViewState& State, Test&& Fits) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        if (Fits(State.MoveStack[I])) {
            return true;
        }
    }
    return false;
}

std::string_view MoveText(const ViewState& State, int Square, int Held) {
    if (Held < 0) {
        const bool Moves = AnyMove(State, [Square](const rules::MoveRecord& Move) { return Move.Source == Square; });
        return Moves ? "can move" : "";
    }
    const int Source = SquareOfCell(State, Held);
    const bool Target =
        AnyMove(State, [=](const rules::MoveRecord& Move) { return Move.Source == Source && Move.Dest == Square; });
    return Target ? "target" : "";
}

void Append(std::string& Text, std::string_view Part) {
    if (!Part.empty()) {
        Text += Text.empty() ? "" : ", ";
        Text += Part;
    }
}

} // namespace

void SetCursor(ViewState& State, int Square) {
    State.CursorSquare = Square;
    PlaceCursor(State);
}

void StepCursor(ViewState& State, int Right, int Down) {
    if (State.CursorSquare == 0) {
        return;
    }
    const int Cell = CellOfSquare(State, State.CursorSquare);
    const int Column = std::clamp(Cell % CellsInRow + Right, 0, CellsInRow - 1);
    const int Row = std::clamp(Cell / CellsInRow + Down, 0, CellsInRow - 1);
    SetCursor(State, SquareOfCell(State, Row * CellsInRow + Column));
}

void ShowCursor(ViewState& State, bool Shown) {
    State.CursorShown = Shown;
    PlaceCursor(State);
}

void PlaceCursor(ViewState& State) {
    State.CursorCell = State.CursorShown && State.CursorSquare != 0 ? CellOfSquare(State, State.CursorSquare) : -1;
}

int HeldCell(const WindowContents& Contents) {
    for (int Cell = 0; Cell < BoardPictures; ++Cell) {
        if (Contents.Cells[Cell].Pointer != Picture::None) {
            return Cell;
        }
    }
    return -1;
}

std::string CellText(const ViewState& State, int Cell, bool MovesOpen) {
    const int Square = SquareOfCell(State, Cell);
    const bool PlayedOn = State.RuleSet.PiecesOnBlack == BothColours || IsDarkSquare(State, Square);
    const BoardCell& Shown = State.Cells[Cell];
    const int Held = HeldCell(State);
    std::string Text = NameText(State, Square, PlayedOn);
    if (Cell == Held) {
        Append(Text, PieceText(Shown.Pointer));
        Append(Text, "in the hand");
    } else if (!PieceText(Shown.Shows).empty()) {
        Append(Text, PieceText(Shown.Shows));
    } else {
        Append(Text, PlayedOn ? "empty" : "light square");
    }
    if (MovesOpen && State.ShowAvailableMoves != 0) {
        Append(Text, MoveText(State, Square, Held));
    }
    return Text;
}

} // namespace zonterbrook::view
