// The board's hundred cells, its edges and counters, and the players' names, from the state.
#include "view/draw_board.h"

#include "rules/cells.h"
#include "view/board_cursor.h"
#include "view/layout.h"

#include <array>
#include <cstdlib>

namespace zonterbrook::view {

namespace {

using rules::CellAt;
using rules::ColumnOf;
using rules::FirstColumn;
using rules::FirstRow;
using rules::LastColumn;
using rules::LastRow;
using rules::RowOf;

constexpr int BoardWidth = 10;

// Places of the texts at the edges, in twips, for the i-th column from the left and the i-th row from below.
struct EdgeTable {
    std::int32_t LetterStep;
    std::int32_t LetterBase;
    std::int32_t NumberStep;
    std::int32_t NumberBase;
    std::int32_t NumberUnturned;    // added on a board that is not turned
    std::int32_t NumberOtherColour; // added when the pieces stand on the other colour of square
    std::int32_t LeftBase;
    std::int32_t LeftStep;
    std::int32_t BottomY;
    std::int32_t LeftX;
    std::int32_t FrameRight;
    std::int32_t FrameBottom;
};

constexpr EdgeTable SmallUsual = {570, 37, 570, 37, -45, 570, 6353, 569, 6259, 164, 6076, 6176};
constexpr EdgeTable SmallDense = {456, 97, 455, 97, -45, 455, 5171, 456, 5089, 194, 4946, 5036};
constexpr EdgeTable MediumUsual = {810, -85, 809, -85, -55, 800, 8876, 809, 8648, 164, 8476, 8576};
constexpr EdgeTable MediumDense = {648, 5, 648, 5, -45, 645, 7167, 648, 7023, 194, 6866, 6956};

constexpr std::int32_t FrameLeft = 366;
constexpr std::int32_t FrameTop = 466;
constexpr std::int32_t LeftXOfNumber = 30;
constexpr std::int32_t LeftXOfDigit = 120;

const EdgeTable& EdgesOf(const ViewState& State) {
    const bool Dense = State.TwipsPerPixel == 12;
    if (IsMedium(State)) {
        return Dense ? MediumDense : MediumUsual;
    }
    return Dense ? SmallDense : SmallUsual;
}

void AddAlgebraicEdges(ViewState& State, const EdgeTable& T) {
    const bool Turned = State.BoardTurned == 1;
    const char First = State.CapitalNotation != 0 ? 'A' : 'a';
    for (int I = 1; I <= BoardWidth; ++I) {
        const int Column = Turned ? BoardWidth - I : I - 1;
        const int Rank = Turned ? BoardWidth + 1 - I : I;
        State.EdgeLabels.push_back(
            {std::string(1, static_cast<char>(First + Column)), T.LetterStep * I + T.LetterBase, T.BottomY});
        // The tenth rank is written 0.
        State.EdgeLabels.push_back({std::to_string(Rank % 10), T.LeftX, T.LeftBase - T.LeftStep * I});
    }
}

void AddNumericEdges(ViewState& State, const EdgeTable& T) {
    const bool Turned = State.BoardTurned == 1;
    for (int I = 1; I <= BoardWidth; ++I) {
        if (I % 2 == 1) {
            const int Unturned = I + 46 - (I + 1) / 2;
            const std::int32_t X = T.NumberStep * I + T.NumberBase + (Turned ? 0 : T.NumberUnturned) +
                                   (State.RuleSet.PiecesOnBlack == 0 ? T.NumberOtherColour : 0);
            State.EdgeLabels.push_back({std::to_string(Turned ? 51 - Unturned : Unturned), X, T.BottomY});
        }
        const int Left = Turned ? 5 * I : 51 - 5 * I;
        State.EdgeLabels.push_back(
            {std::to_string(Left), Left < 10 ? LeftXOfDigit : LeftXOfNumber, T.LeftBase - T.LeftStep * I});
    }
}

// [dark, light][piece index]
constexpr Picture PiecePictures[2][rules::PieceIndices] = {
    {Picture::dark_white_man, Picture::dark_black_man, Picture::dark_white_king, Picture::dark_black_king},
    {Picture::light_white_man, Picture::light_black_man, Picture::light_white_king, Picture::light_black_king}};

// What a square shows; `Before` for a value that is neither empty nor a piece.
Picture PictureOf(const ViewState& State, int Square, Picture Before) {
    const std::int32_t Value = State.Board[Square];
    const bool Dark = IsDarkSquare(State, Square);
    if (Value == rules::Empty) {
        return Dark ? Picture::dark_square : Picture::light_square;
    }
    if (!rules::IsPiece(Value)) {
        return Before;
    }
    return PiecePictures[State.RuleSet.PiecesOnBlack == 2 && !Dark ? 1 : 0][rules::PieceIndex(Value)];
}

BoardCell& CellShowing(ViewState& State, int Square) {
    return State.Cells[CellOfSquare(State, Square)];
}

// Counts the squares of one colour from the upper left corner of White's view, as they are met.
class SquareNumbers {
public:
    explicit SquareNumbers(const ViewState& State) : NumberedToggle(ToggleOf(State.RuleSet.PiecesOnBlack)) {}

    std::int32_t NumberOfNext() {
        const std::int32_t Number = Toggle == NumberedToggle ? Running++ : 0;
        Toggle = 1 - Toggle;
        return Number;
    }
    void RowEnds() { Toggle = 1 - Toggle; }

private:
    static int ToggleOf(std::uint8_t PiecesOnBlack) { return PiecesOnBlack < 2 ? PiecesOnBlack : -1; }

    int NumberedToggle;
    int Toggle = 0;
    std::int32_t Running = 1;
};

void ShowCounters(ViewState& State) {
    const bool BlackAbove = State.RuleSet.BlackStarts == 1;
    State.UpperMaterial.Text = std::to_string(BlackAbove ? State.BlackMaterial : State.WhiteMaterial);
    State.LowerMaterial.Text = std::to_string(BlackAbove ? State.WhiteMaterial : State.BlackMaterial);
    if (State.RuleSet.canContract != 0) {
        State.ExtraBlackCount.Text = std::to_string(State.PiecesInHandBlack);
        State.ExtraWhiteCount.Text = std::to_string(State.PiecesInHandWhite);
    }
}

} // namespace

int CellOfSquare(const ViewState& State, int Square) {
    const int Row = RowOf(Square);
    const int Column = ColumnOf(Square);
    return State.BoardTurned == 1 ? (Row - FirstRow) * BoardWidth + (LastColumn - Column)
                                  : (LastRow - Row) * BoardWidth + (Column - FirstColumn);
}

int SquareOfCell(const ViewState& State, int Cell) {
    const int Down = Cell / BoardWidth;
    const int Right = Cell % BoardWidth;
    return State.BoardTurned == 1 ? CellAt(FirstRow + Down, LastColumn - Right)
                                  : CellAt(LastRow - Down, FirstColumn + Right);
}

bool IsDarkSquare(const ViewState& State, int Square) {
    const bool Odd = (RowOf(Square) + ColumnOf(Square)) % 2 != 0;
    return Odd == (State.RuleSet.PiecesOnBlack != 0);
}

void DrawBoard(ViewState& State, int Mode) {
    State.Ways.clear(); // they were those of another position, or of the board the other way round
    State.KingsOnlyEqual = 0;
    State.WhiteMaterial = 0;
    State.BlackMaterial = 0;
    State.AnyMan = 0;
    SquareNumbers Numbers(State);
    for (int Row = LastRow; Row >= FirstRow; --Row) {
        for (int Column = FirstColumn; Column <= LastColumn; ++Column) {
            const int Square = CellAt(Row, Column);
            const std::int32_t Value = State.Board[Square];
            (Value > 0 ? State.WhiteMaterial : State.BlackMaterial) += std::abs(Value);
            State.AnyMan |= rules::IsMan(Value) ? 1 : 0;
            const std::int32_t Number = Numbers.NumberOfNext();
            BoardCell& Cell = CellShowing(State, Square);
            Cell.Shows = PictureOf(State, Square, Cell.Shows);
            Cell.Box = Highlight::None;
            Cell.Number = Mode == 1 ? Number : 0;
            Cell.Hinted = Square == State.HintedSquares[0] || Square == State.HintedSquares[1];
            Cell.Lifted = Square == State.PickedSquare;
        }
        Numbers.RowEnds();
    }
    State.KingsOnlyEqual = State.WhiteMaterial == State.BlackMaterial && State.AnyMan == 0 ? 1 : 0;
    PlaceCursor(State);
    ShowCounters(State);
    DrawEdges(State);
    ShowPlayers(State);
}

void DrawEdges(ViewState& State) {
    const EdgeTable& T = EdgesOf(State);
    State.EdgeLabels.clear();
    State.FrameShown = HasEdges(State);
    State.BoardFrame = {FrameLeft, FrameTop, T.FrameRight - FrameLeft, T.FrameBottom - FrameTop};
    if (!State.FrameShown) {
        return;
    }
    if (State.NotationMode == rules::Notation::Algebraic) {
        AddAlgebraicEdges(State, T);
    } else if (State.NotationMode == rules::Notation::Numeric) {
        AddNumericEdges(State, T);
    }
}

void ShowPlayers(ViewState& State) {
    const bool BlackAbove = State.RuleSet.BlackStarts == 1;
    const bool UpperMoves = (State.Side == rules::Black) == BlackAbove;
    State.UpperColour.Text = BlackAbove ? "Black" : "White";
    State.LowerColour.Text = BlackAbove ? "White" : "Black";
    State.UpperName.Text = BlackAbove ? State.BlackPlayerName : State.WhitePlayerName;
    State.LowerName.Text = BlackAbove ? State.WhitePlayerName : State.BlackPlayerName;
    State.UpperName.Colours = UpperMoves ? LabelColours::WhiteOnRed : LabelColours::RedOnWhite;
    State.LowerName.Colours = UpperMoves ? LabelColours::RedOnWhite : LabelColours::WhiteOnRed;
}

void RepaintSquare(ViewState& State, int Square) {
    BoardCell& Cell = CellShowing(State, Square);
    Cell.Shows = PictureOf(State, Square, Cell.Shows);
    Cell.Box = Highlight::None;
    Cell.Number = 0;
    Cell.Lifted = Square == State.PickedSquare;
}

void PaintEmpty(ViewState& State, int Square) {
    BoardCell& Cell = CellShowing(State, Square);
    Cell.Shows = IsDarkSquare(State, Square) ? Picture::dark_square : Picture::light_square;
    Cell.Box = Highlight::None;
    Cell.Number = 0;
    Cell.Lifted = false;
}

void BoxSquare(ViewState& State, int Square) {
    CellShowing(State, Square).Box = IsDarkSquare(State, Square) ? Highlight::Dark : Highlight::Light;
}

Picture PointerOfPiece(std::int32_t Piece) {
    switch (Piece) {
    case rules::WhiteMan:
        return Picture::white_man_ico;
    case rules::BlackMan:
        return Picture::black_man_ico;
    case rules::WhiteKing:
        return Picture::white_king_ico;
    case rules::BlackKing:
        return Picture::black_king_ico;
    default:
        return Picture::None;
    }
}

} // namespace zonterbrook::view
