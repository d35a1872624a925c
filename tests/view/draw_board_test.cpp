// What the board shows: cells and squares, pictures, numbers, edge labels, counters, names.
#include "rules/moves.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "support/position_text.h"
#include "support/rows.h"
#include "support/view_fixture.h"
#include "view/draw_board.h"
#include "view/layout.h"

#include <gtest/gtest.h>

#include <string>

namespace zonterbrook::view {
namespace {

class Board : public tests::ViewFixture {
protected:
    void SetUp() override {
        ViewFixture::SetUp();
        LayoutWindow(State);
        DrawBoard(State, 0);
    }
    static int Square(std::string_view Name) { return rules::AlgebraicCell(Name); }
    BoardCell& On(std::string_view Name) { return State.Cells[CellOfSquare(State, Square(Name))]; }
    // A board with nothing on it but one piece, or two.
    void PutAlone(std::string_view Name, std::int32_t Piece, std::string_view Other = "", std::int32_t OtherPiece = 0) {
        for (rules::CellSet Cells = rules::PlayingCells; Cells.Any();) {
            rules::SetCell(State, Cells.TakeFirst(), rules::Empty);
        }
        rules::SetCell(State, Square(Name), Piece);
        if (!Other.empty()) {
            rules::SetCell(State, Square(Other), OtherPiece);
        }
        DrawBoard(State, 0);
    }
};

TEST_F(Board, EveryCellHasItsOwnSquareEitherWayRound) {
    for (const auto& [Turned, LastOfFirstRow] : {std::pair(0, "J0"), std::pair(1, "A1")}) {
        State.BoardTurned = Turned;
        EXPECT_EQ(Square(LastOfFirstRow), SquareOfCell(State, 9));
        EXPECT_EQ(Turned == 0 ? 63 : 36, CellOfSquare(State, Square("D4")));
        for (int Cell = 0; Cell < BoardPictures; ++Cell) {
            EXPECT_TRUE(rules::IsOnBoard(SquareOfCell(State, Cell)));
            EXPECT_EQ(Cell, CellOfSquare(State, SquareOfCell(State, Cell)));
        }
    }
}

TEST_F(Board, PicturesShowPieceAndColourOfSquare) {
    const auto Shown = [&](std::uint8_t PiecesOnBlack, std::string_view Name, std::int32_t Piece) {
        State.RuleSet.PiecesOnBlack = PiecesOnBlack;
        PutAlone(Name, Piece);
        return On(Name).Shows;
    };
    EXPECT_EQ(Picture::dark_square, Shown(1, "A1", 0));
    EXPECT_EQ(Picture::light_square, Shown(1, "B1", 0));
    EXPECT_EQ(Picture::light_square, Shown(0, "A1", 0)) << "the other colour";
    EXPECT_EQ(Picture::dark_square, Shown(2, "A1", 0)) << "both colours";
    EXPECT_EQ(Picture::dark_white_man, Shown(1, "A1", 1));
    EXPECT_EQ(Picture::dark_black_king, Shown(1, "A1", -2));
    EXPECT_EQ(Picture::dark_black_man, Shown(1, "B1", -1)) << "a piece on the wrong colour is drawn dark";
    EXPECT_EQ(Picture::light_white_king, Shown(2, "B1", 2));
    EXPECT_EQ(Picture::dark_black_man, Shown(2, "A1", -1));
    State.Board[Square("A1")] = -9; // jumped, in mid-capture
    DrawBoard(State, 0);
    EXPECT_EQ(Picture::dark_black_man, On("A1").Shows);
    BoxSquare(State, Square("A1"));
    BoxSquare(State, Square("B1"));
    EXPECT_EQ(Highlight::Dark, On("A1").Box);
    EXPECT_EQ(Highlight::Light, On("B1").Box);
    DrawBoard(State, 0);
    EXPECT_EQ(Highlight::None, On("A1").Box);
}

TEST_F(Board, NumbersRunOverTheSquaresOfOneColour) {
    const auto NumbersOn = [&](std::uint8_t PiecesOnBlack, int Turned) {
        State.RuleSet.PiecesOnBlack = PiecesOnBlack;
        State.BoardTurned = Turned;
        DrawBoard(State, 1);
        std::string Numbers;
        for (const char* Name : {"A0", "B0", "J0", "A9", "A1", "B1", "I1"}) {
            Numbers += std::to_string(On(Name).Number) + " ";
        }
        return Numbers;
    };
    EXPECT_EQ("0 1 5 6 46 0 50 ", NumbersOn(1, 0));
    EXPECT_EQ("0 1 5 6 46 0 50 ", NumbersOn(1, 1));
    EXPECT_EQ("1 0 0 0 0 46 0 ", NumbersOn(0, 0));
    EXPECT_EQ("0 0 0 0 0 0 0 ", NumbersOn(2, 0));
    NumbersOn(1, 0);
    DrawBoard(State, 0);
    EXPECT_EQ(0, On("B0").Number) << "the numbers outlive the press";
}

struct EdgeCase {
    const char* Name;
    std::int32_t SizeClass, Twips, Notation;
    int Turned;
    std::uint8_t PiecesOnBlack;
    const char* Labels; ///< some of them, with their places
};

using Edges = tests::RowsOf<Board, EdgeCase>;

TEST_P(Edges, StandWhereTheBoardsSizePutsThem) {
    const EdgeCase& Row = GetParam();
    State.SizeClass = Row.SizeClass;
    State.TwipsPerPixel = Row.Twips;
    State.NotationMode = static_cast<rules::Notation>(Row.Notation);
    State.BoardTurned = Row.Turned;
    State.RuleSet.PiecesOnBlack = Row.PiecesOnBlack;
    DrawBoard(State, 0);
    std::string Found;
    for (const EdgeLabel& Label : State.EdgeLabels) {
        Found += Label.Text + "@" + std::to_string(Label.X) + "," + std::to_string(Label.Y) + " ";
    }
    for (const std::string& Label : tests::Split(Row.Labels, ' ')) {
        EXPECT_NE(std::string::npos, (" " + Found).find(" " + Label + " ")) << Label << " is not among " << Found;
    }
}

constexpr EdgeCase EdgeRows[] = {{"small", 0, 15, 0, 0, 1, "a@607,6259 j@5737,6259 1@164,5784 0@164,663"},
                                 {"small_turned", 0, 15, 0, 1, 1, "j@607,6259 0@164,5784 9@164,5215 1@164,663"},
                                 {"small_dense", 0, 12, 0, 0, 1, "b@1009,5089 1@194,4715"},
                                 {"medium", 2, 15, 0, 0, 1, "a@725,8648 1@164,8067"},
                                 {"medium_dense", 2, 12, 0, 0, 1, "a@653,7023 0@194,687"},
                                 {"numbers_small", 0, 15, 1, 0, 1, "46@562,6259"},
                                 {"numbers_small_turned", 0, 15, 1, 1, 1, "5@607,6259"},
                                 {"numbers_small_other_colour", 0, 15, 1, 0, 0, "46@1132,6259"},
                                 {"numbers_small_dense", 0, 12, 1, 0, 1, "47@1417,5089"},
                                 {"numbers_small_dense_other_colour", 0, 12, 1, 0, 0, "46@962,5089"},
                                 {"numbers_medium", 2, 15, 1, 0, 1, "47@2287,8648 46@30,8067 6@120,1595 1@120,786"},
                                 {"numbers_medium_turned", 2, 15, 1, 1, 1, "1@7196,8648 5@120,8067 10@30,7258"},
                                 {"numbers_medium_other_colour", 2, 15, 1, 0, 0, "46@1469,8648"},
                                 {"numbers_medium_dense", 2, 12, 1, 0, 1, "46@608,7023"},
                                 {"numbers_medium_dense_turned", 2, 12, 1, 1, 1, "5@653,7023"},
                                 {"numbers_medium_dense_other_colour", 2, 12, 1, 0, 0, "46@1253,7023"}};
INSTANTIATE_TEST_SUITE_P(Rows, Edges, testing::ValuesIn(EdgeRows), tests::RowName);

TEST_F(Board, NotationDecidesTheLabels) {
    State.CapitalNotation = 1;
    DrawBoard(State, 0);
    EXPECT_EQ("A", State.EdgeLabels.front().Text);
    EXPECT_EQ("1", State.EdgeLabels[1].Text);
    State.NotationMode = rules::Notation::Numeric;
    DrawBoard(State, 0);
    EXPECT_EQ(15U, State.EdgeLabels.size()) << "numbers stand under every other column";
    State.NotationMode = rules::Notation::None;
    DrawBoard(State, 0);
    EXPECT_TRUE(State.EdgeLabels.empty());
    EXPECT_TRUE(State.FrameShown);
    State.SizeClass = 4; // a skin that tells no size
    State.NotationMode = rules::Notation::Algebraic;
    DrawBoard(State, 0);
    EXPECT_TRUE(State.EdgeLabels.empty());
    EXPECT_FALSE(State.FrameShown);
}

TEST_F(Board, MaterialIsCounted) {
    PutAlone("A1", 2, "B0", -2);
    EXPECT_EQ(1, State.KingsOnlyEqual);
    PutAlone("A1", 1, "B0", -1);
    EXPECT_EQ(0, State.KingsOnlyEqual) << "men are not kings";
    PutAlone("A1", 1, "B0", -2);
    EXPECT_EQ(0, State.KingsOnlyEqual) << "a man and a king";
    EXPECT_EQ("1", State.UpperMaterial.Text);
    EXPECT_EQ("2", State.LowerMaterial.Text);
    State.RuleSet.BlackStarts = 1;
    DrawBoard(State, 0);
    EXPECT_EQ("2", State.UpperMaterial.Text) << "the counters don't stand beside their names";
    EXPECT_EQ("1", State.LowerMaterial.Text);
    State.RuleSet.canContract = 1;
    State.PiecesInHandBlack = 3;
    State.PiecesInHandWhite = 7;
    DrawBoard(State, 0);
    EXPECT_EQ("3 7", State.ExtraBlackCount.Text + " " + State.ExtraWhiteCount.Text);
}

TEST_F(Board, TheSideToMoveIsMarked) {
    State.WhitePlayerName = "Ann";
    State.BlackPlayerName = "Bob";
    for (const bool BlackStarts : {false, true}) {
        State.RuleSet.BlackStarts = BlackStarts ? 1 : 0;
        for (const bool UpperMoves : {false, true}) {
            State.Side = BlackStarts == UpperMoves ? rules::Black : rules::White;
            DrawBoard(State, 0);
            EXPECT_EQ(BlackStarts ? "Black" : "White", State.UpperColour.Text);
            EXPECT_EQ(BlackStarts ? "White" : "Black", State.LowerColour.Text);
            EXPECT_EQ(BlackStarts ? "Bob" : "Ann", State.UpperName.Text);
            EXPECT_EQ(BlackStarts ? "Ann" : "Bob", State.LowerName.Text);
            EXPECT_EQ(UpperMoves ? LabelColours::WhiteOnRed : LabelColours::RedOnWhite, State.UpperName.Colours);
            EXPECT_EQ(UpperMoves ? LabelColours::RedOnWhite : LabelColours::WhiteOnRed, State.LowerName.Colours);
        }
    }
}

} // namespace
} // namespace zonterbrook::view
