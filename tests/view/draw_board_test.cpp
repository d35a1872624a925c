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
    PutAlone(GetParam().Square, GetParam().Value);
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
    State.Board[Square("A1")] = -9;
    DrawBoard(State, 0);
    EXPECT_EQ(Picture::dark_white_man, On("A1").Shows);
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
    std::int32_t SizeClass, Twips, Notation;
    int Turned;
    std::uint8_t PiecesOnBlack;
    bool Bottom; ///< bottom edge, else left
    int Place;   ///< the how manieth label of that edge, from the left or from below, from 1
    const char* Text;
    std::int32_t X, Y;
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
    const std::int32_t BottomY = std::ranges::max(State.EdgeLabels, {}, &EdgeLabel::Y).Y;
    std::erase_if(State.EdgeLabels, [&](const EdgeLabel& Label) { return (Label.Y == BottomY) != Row.Bottom; });
    ASSERT_GE(State.EdgeLabels.size(), static_cast<std::size_t>(Row.Place));
    const EdgeLabel& Found = State.EdgeLabels[static_cast<std::size_t>(Row.Place - 1)];
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

TEST_F(Board, NotationDecidesTheLabels) {
    State.CapitalNotation = 1;
    DrawBoard(State, 0);
    EXPECT_EQ("A", State.EdgeLabels.front().Text);
    EXPECT_EQ("1", State.EdgeLabels[1].Text);
    State.NotationMode = 1;
    DrawBoard(State, 0);
    EXPECT_EQ(15U, State.EdgeLabels.size()) << "numbers stand under every other column";
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

TEST_F(Board, KingsAloneAndEqualAreNoticed) {
    PutAlone("A1", 2, "B0", -2);
    EXPECT_EQ(1, State.KingsOnlyEqual);
    PutAlone("A1", 1, "B0", -1);
    EXPECT_EQ(0, State.KingsOnlyEqual) << "men";
    PutAlone("A1", 2, "B0", -1);
    EXPECT_EQ(0, State.KingsOnlyEqual) << "a king and a man";
}

TEST_F(Board, CountersStandBesideTheirNames) {
    PutAlone("A1", 1, "B0", -2);
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

TEST_F(Board, TheSideToMoveIsMarked) {
    State.WhitePlayerName = "Ann";
    State.BlackPlayerName = "Bob";
    for (const bool BlackStarts : {false, true}) {
        State.RuleSet.BlackStarts = BlackStarts ? 1 : 0;
        for (const bool UpperMoves : {false, true}) {
            State.Side = BlackStarts == UpperMoves ? rules::Black : rules::White;
            DrawBoard(State, 0);
            EXPECT_EQ(BlackStarts ? "Black" : "White", State.Label3.Text);
            EXPECT_EQ(BlackStarts ? "White" : "Black", State.Label4.Text);
            EXPECT_EQ(BlackStarts ? "Bob" : "Ann", State.Label1.Text);
            EXPECT_EQ(BlackStarts ? "Ann" : "Bob", State.Label2.Text);
            EXPECT_EQ(UpperMoves ? LabelColours::WhiteOnRed : LabelColours::RedOnWhite, State.Label1.Colours);
            EXPECT_EQ(UpperMoves ? LabelColours::RedOnWhite : LabelColours::WhiteOnRed, State.Label2.Colours);
        }
    }
}

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
    State.MoveStack[0].Source = Square("C3");
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
