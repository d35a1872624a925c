// What the board shows: cells and squares, pictures, numbers, edge labels, counters, names.
#include "rules/moves.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "support/rows.h"
#include "support/view_fixture.h"
#include "view/draw_board.h"
#include "view/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
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
    void Empty() {
        for (int Cell = rules::FirstCell; Cell <= rules::LastCell; ++Cell) {
            if (State.Board[Cell] != rules::Border) {
                rules::SetCell(State, Cell, rules::Empty);
            }
        }
    }
};

struct MappingCase {
    std::string_view Name;
    int Turned;
    int Cell;
};

using Mapping = tests::RowsOf<Board, MappingCase>;

TEST_P(Mapping, SquareAndCellAreEachOthersPlace) {
    State.BoardTurned = GetParam().Turned;
    EXPECT_EQ(GetParam().Cell, CellOfSquare(State, Square(GetParam().Name)));
    EXPECT_EQ(Square(GetParam().Name), SquareOfCell(State, GetParam().Cell));
}

constexpr MappingCase MappingRows[] = {{"A1", 0, 90}, {"J0", 0, 9},  {"A0", 0, 0},  {"D4", 0, 63},
                                       {"A1", 1, 9},  {"J0", 1, 90}, {"A0", 1, 99}, {"D4", 1, 36}};
INSTANTIATE_TEST_SUITE_P(Rows, Mapping, testing::ValuesIn(MappingRows));

TEST_F(Board, EveryCellHasItsOwnSquareEitherWayRound) {
    for (const int Turned : {0, 1}) {
        State.BoardTurned = Turned;
        std::set<int> Squares;
        for (int Cell = 0; Cell < BoardPictures; ++Cell) {
            const int Found = SquareOfCell(State, Cell);
            EXPECT_TRUE(rules::IsOnBoard(Found));
            EXPECT_EQ(Cell, CellOfSquare(State, Found));
            Squares.insert(Found);
        }
        EXPECT_EQ(100U, Squares.size());
    }
}

struct PictureCase {
    const char* Name;
    std::uint8_t PiecesOnBlack;
    std::string_view Square;
    std::int32_t Value;
    Picture Expected;
};

using Pictures = tests::RowsOf<Board, PictureCase>;

TEST_P(Pictures, ShowPieceAndColourOfSquare) {
    State.RuleSet.PiecesOnBlack = GetParam().PiecesOnBlack;
    Empty();
    rules::SetCell(State, Square(GetParam().Square), GetParam().Value);
    DrawBoard(State, 0);
    EXPECT_EQ(GetParam().Expected, On(GetParam().Square).Shows);
}

constexpr PictureCase PictureRows[] = {
    {"dark_corner", 1, "A1", 0, Picture::dark_square},
    {"light_neighbour", 1, "B1", 0, Picture::light_square},
    {"light_corner_of_the_other_colour", 0, "A1", 0, Picture::light_square},
    {"dark_corner_of_both_colours", 2, "A1", 0, Picture::dark_square},
    {"man", 1, "A1", 1, Picture::dark_white_man},
    {"king", 1, "A1", -2, Picture::dark_black_king},
    {"piece_on_the_wrong_colour_is_drawn_dark", 1, "B1", -1, Picture::dark_black_man},
    {"light_piece", 2, "B1", 2, Picture::light_white_king},
    {"dark_piece_among_both", 2, "A1", -1, Picture::dark_black_man}};
INSTANTIATE_TEST_SUITE_P(Rows, Pictures, testing::ValuesIn(PictureRows), tests::RowName);

TEST_F(Board, AJumpedPieceInMidCaptureLeavesItsCellAsItWas) {
    const int Jumped = Square("A1");
    State.Board[Jumped] = -9;
    DrawBoard(State, 0);
    EXPECT_EQ(Picture::dark_white_man, On("A1").Shows);
    State.Board[Jumped] = 1;
}

struct NumberCase {
    std::uint8_t PiecesOnBlack;
    int Turned;
    std::string_view Square;
    int Number;
};

using Numbers = tests::RowsOf<Board, NumberCase>;

TEST_P(Numbers, RunOverTheSquaresOfOneColour) {
    State.RuleSet.PiecesOnBlack = GetParam().PiecesOnBlack;
    State.BoardTurned = GetParam().Turned;
    DrawBoard(State, 1);
    EXPECT_EQ(GetParam().Number, On(GetParam().Square).Number);
    DrawBoard(State, 0);
    EXPECT_EQ(0, On(GetParam().Square).Number) << "the numbers outlive the press";
}

constexpr NumberCase NumberRows[] = {{1, 0, "B0", 1},  {1, 0, "J0", 5}, {1, 0, "A9", 6}, {1, 0, "A1", 46},
                                     {1, 0, "I1", 50}, {1, 0, "B1", 0}, {0, 0, "A0", 1}, {0, 0, "B1", 46},
                                     {0, 0, "A1", 0},  {1, 1, "B0", 1}, {2, 0, "A1", 0}, {2, 0, "B1", 0}};
INSTANTIATE_TEST_SUITE_P(Rows, Numbers, testing::ValuesIn(NumberRows));

struct EdgeCase {
    const char* Name;
    std::int32_t SizeClass;
    std::int32_t Twips;
    std::int32_t Notation;
    int Turned;
    std::uint8_t PiecesOnBlack;
    bool Bottom; ///< bottom edge, else left
    int Place;   ///< the how manieth label of that edge, from the left or from below, from 1
    const char* Text;
    std::int32_t X;
    std::int32_t Y;
};

using Edges = tests::RowsOf<Board, EdgeCase>;

TEST_P(Edges, StandWhereTheBoardsSizePutsThem) {
    const EdgeCase& Row = GetParam();
    State.SizeClass = Row.SizeClass;
    State.TwipsPerPixel = Row.Twips;
    State.NotationMode = Row.Notation;
    State.BoardTurned = Row.Turned;
    State.RuleSet.PiecesOnBlack = Row.PiecesOnBlack;
    DrawBoard(State, 0);
    std::int32_t BottomY = 0;
    for (const EdgeLabel& Label : State.EdgeLabels) {
        BottomY = std::max(BottomY, Label.Y);
    }
    std::vector<EdgeLabel> Edge;
    std::ranges::copy_if(State.EdgeLabels, std::back_inserter(Edge),
                         [&](const EdgeLabel& Label) { return (Label.Y == BottomY) == Row.Bottom; });
    ASSERT_GE(Edge.size(), static_cast<std::size_t>(Row.Place));
    const EdgeLabel& Found = Edge[static_cast<std::size_t>(Row.Place - 1)];
    EXPECT_EQ(Row.Text, Found.Text);
    EXPECT_EQ(Row.X, Found.X);
    EXPECT_EQ(Row.Y, Found.Y);
}

constexpr EdgeCase EdgeRows[] = {{"small_letter", 0, 15, 0, 0, 1, true, 1, "a", 607, 6259},
                                 {"small_last_letter", 0, 15, 0, 0, 1, true, 10, "j", 5737, 6259},
                                 {"small_first_rank", 0, 15, 0, 0, 1, false, 1, "1", 164, 5784},
                                 {"the_tenth_rank_is_0", 0, 15, 0, 0, 1, false, 10, "0", 164, 663},
                                 {"turned_letters_run_down", 0, 15, 0, 1, 1, true, 1, "j", 607, 6259},
                                 {"turned_ranks_begin_with_0", 0, 15, 0, 1, 1, false, 1, "0", 164, 5784},
                                 {"turned_second_rank", 0, 15, 0, 1, 1, false, 2, "9", 164, 5215},
                                 {"turned_last_rank", 0, 15, 0, 1, 1, false, 10, "1", 164, 663},
                                 {"small_dense_letter", 0, 12, 0, 0, 1, true, 2, "b", 1009, 5089},
                                 {"small_dense_rank", 0, 12, 0, 0, 1, false, 1, "1", 194, 4715},
                                 {"medium_letter", 2, 15, 0, 0, 1, true, 1, "a", 725, 8648},
                                 {"medium_rank", 2, 15, 0, 0, 1, false, 1, "1", 164, 8067},
                                 {"medium_dense_letter", 2, 12, 0, 0, 1, true, 1, "a", 653, 7023},
                                 {"medium_dense_rank", 2, 12, 0, 0, 1, false, 10, "0", 194, 687},
                                 {"small_number", 0, 15, 1, 0, 1, true, 1, "46", 562, 6259},
                                 {"small_number_turned", 0, 15, 1, 1, 1, true, 1, "5", 607, 6259},
                                 {"small_number_of_the_other_colour", 0, 15, 1, 0, 0, true, 1, "46", 1132, 6259},
                                 {"small_dense_number", 0, 12, 1, 0, 1, true, 2, "47", 1417, 5089},
                                 {"small_dense_other_colour", 0, 12, 1, 0, 0, true, 1, "46", 962, 5089},
                                 {"medium_number", 2, 15, 1, 0, 1, true, 2, "47", 2287, 8648},
                                 {"medium_number_turned", 2, 15, 1, 1, 1, true, 5, "1", 7196, 8648},
                                 {"medium_other_colour", 2, 15, 1, 0, 0, true, 1, "46", 1469, 8648},
                                 {"medium_dense_number", 2, 12, 1, 0, 1, true, 1, "46", 608, 7023},
                                 {"medium_dense_number_turned", 2, 12, 1, 1, 1, true, 1, "5", 653, 7023},
                                 {"medium_dense_other_colour", 2, 12, 1, 0, 0, true, 1, "46", 1253, 7023},
                                 {"left_number_below", 2, 15, 1, 0, 1, false, 1, "46", 30, 8067},
                                 {"left_digit_stands_further_in", 2, 15, 1, 0, 1, false, 9, "6", 120, 1595},
                                 {"left_number_above", 2, 15, 1, 0, 1, false, 10, "1", 120, 786},
                                 {"left_digit_turned", 2, 15, 1, 1, 1, false, 1, "5", 120, 8067},
                                 {"left_number_turned", 2, 15, 1, 1, 1, false, 2, "10", 30, 7258}};
INSTANTIATE_TEST_SUITE_P(Rows, Edges, testing::ValuesIn(EdgeRows), tests::RowName);

TEST_F(Board, CapitalLettersTouchLettersAlone) {
    State.CapitalNotation = 1;
    DrawBoard(State, 0);
    EXPECT_EQ("A", State.EdgeLabels.front().Text);
    EXPECT_EQ("1", State.EdgeLabels[1].Text);
}

TEST_F(Board, NumbersStandUnderEveryOtherColumn) {
    State.NotationMode = 1;
    DrawBoard(State, 0);
    EXPECT_EQ(15U, State.EdgeLabels.size());
}

TEST_F(Board, WithoutNotationOnlyTheFrameIsLeft) {
    State.NotationMode = 2;
    DrawBoard(State, 0);
    EXPECT_TRUE(State.EdgeLabels.empty());
    EXPECT_TRUE(State.FrameShown);
}

TEST_F(Board, ASkinThatTellsNoSizeHasNeitherFrameNorLabels) {
    State.SizeClass = 4;
    DrawBoard(State, 0);
    EXPECT_TRUE(State.EdgeLabels.empty());
    EXPECT_FALSE(State.FrameShown);
}

TEST_F(Board, TheFrameHoldsTheCells) {
    for (const std::int32_t SizeClass : {0, 2}) {
        for (const std::int32_t Twips : {12, 15}) {
            State.SizeClass = SizeClass;
            State.TwipsPerPixel = Twips;
            LayoutWindow(State);
            DrawEdges(State);
            const std::int32_t End = State.Layout.BoardLeft + 9 * State.Layout.Pitch + State.Layout.CellSize;
            EXPECT_LT(State.BoardFrame.Left, State.Layout.BoardLeft);
            // Within half a pixel: twips do not always make whole ones.
            EXPECT_NEAR(End, State.BoardFrame.Left + State.BoardFrame.Width, Twips / 2);
        }
    }
}

struct MaterialCase {
    const char* Name;
    std::string_view White;
    std::int32_t WhiteValue;
    std::string_view Black;
    std::int32_t BlackValue;
    std::int32_t KingsOnlyEqual;
};

using Materials = tests::RowsOf<Board, MaterialCase>;

TEST_P(Materials, KingsAloneAndEqualAreNoticed) {
    Empty();
    rules::SetCell(State, Square(GetParam().White), GetParam().WhiteValue);
    rules::SetCell(State, Square(GetParam().Black), GetParam().BlackValue);
    DrawBoard(State, 0);
    EXPECT_EQ(GetParam().KingsOnlyEqual, State.KingsOnlyEqual);
}

constexpr MaterialCase MaterialRows[] = {
    {"kings", "A1", 2, "B0", -2, 1}, {"men", "A1", 1, "B0", -1, 0}, {"king_and_man", "A1", 2, "B0", -1, 0}};
INSTANTIATE_TEST_SUITE_P(Rows, Materials, testing::ValuesIn(MaterialRows), tests::RowName);

TEST_F(Board, CountersStandBesideTheirNames) {
    Empty();
    rules::SetCell(State, Square("A1"), 1);
    rules::SetCell(State, Square("B0"), -2);
    DrawBoard(State, 0);
    EXPECT_EQ("1", State.Label5.Text);
    EXPECT_EQ("2", State.Label6.Text);
    State.RuleSet.BlackStarts = 1;
    DrawBoard(State, 0);
    EXPECT_EQ("2", State.Label5.Text);
    EXPECT_EQ("1", State.Label6.Text);
}

TEST_F(Board, PiecesInHandAreCounted) {
    State.RuleSet.canContract = 1;
    State.PiecesInHandBlack = 3;
    State.PiecesInHandWhite = 7;
    DrawBoard(State, 0);
    EXPECT_EQ("3", State.Label12.Text);
    EXPECT_EQ("7", State.Label14.Text);
}

struct PlayersCase {
    std::uint8_t BlackStarts;
    std::int32_t Side;
    const char* Upper;
    bool UpperMoves;
};

using Players = tests::RowsOf<Board, PlayersCase>;

TEST_P(Players, TheSideToMoveIsMarked) {
    State.WhitePlayerName = "Ann";
    State.BlackPlayerName = "Bob";
    State.RuleSet.BlackStarts = GetParam().BlackStarts;
    State.Side = GetParam().Side;
    DrawBoard(State, 0);
    EXPECT_EQ(GetParam().Upper, State.Label3.Text);
    EXPECT_EQ(std::string_view(GetParam().Upper) == "White" ? "Ann" : "Bob", State.Label1.Text);
    EXPECT_EQ(std::string_view(GetParam().Upper) == "White" ? "Bob" : "Ann", State.Label2.Text);
    EXPECT_EQ(GetParam().UpperMoves ? LabelColours::WhiteOnRed : LabelColours::RedOnWhite, State.Label1.Colours);
    EXPECT_EQ(GetParam().UpperMoves ? LabelColours::RedOnWhite : LabelColours::WhiteOnRed, State.Label2.Colours);
}

constexpr PlayersCase PlayersRows[] = {{0, rules::White, "White", true},
                                       {0, rules::Black, "White", false},
                                       {1, rules::Black, "Black", true},
                                       {1, rules::White, "Black", false}};
INSTANTIATE_TEST_SUITE_P(Rows, Players, testing::ValuesIn(PlayersRows));

TEST_F(Board, BoxesTakeTheColourOfTheirSquare) {
    State.RuleSet.PiecesOnBlack = 2;
    BoxSquare(State, Square("A1"));
    BoxSquare(State, Square("B1"));
    EXPECT_EQ(Highlight::Dark, On("A1").Box);
    EXPECT_EQ(Highlight::Light, On("B1").Box);
    DrawBoard(State, 0);
    EXPECT_EQ(Highlight::None, On("A1").Box);
}

TEST_F(Board, RepaintingTheSourcesLeavesOtherBoxes) {
    State.StackLimit[0] = 0;
    State.StackLimit[1] = 2;
    State.MoveStack[0] = {};
    State.MoveStack[0].Source = Square("C3");
    State.MoveStack[1] = {};
    State.MoveStack[1].Source = rules::FromHand;
    BoxSquare(State, Square("C3"));
    BoxSquare(State, Square("D4"));
    RepaintMoveSources(State);
    EXPECT_EQ(Highlight::None, On("C3").Box);
    EXPECT_EQ(Highlight::Dark, On("D4").Box);
}

TEST_F(Board, WhatDidNotChangeComparesEqual) {
    const WindowContents Before = State;
    DrawBoard(State, 0);
    EXPECT_TRUE(Before == static_cast<const WindowContents&>(State));
    BoxSquare(State, Square("C3"));
    EXPECT_FALSE(Before == static_cast<const WindowContents&>(State));
}

} // namespace
} // namespace zonterbrook::view
