// The keyboard's cursor on the board, and the squares in words.
#include "rules/generate.h"
#include "rules/moves.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "support/rows.h"
#include "support/view_fixture.h"
#include "view/board_cursor.h"
#include "view/draw_board.h"

#include <gtest/gtest.h>

#include <string>

namespace zonterbrook::view {
namespace {

class Cursor : public tests::ViewFixture {
protected:
    void SetUp() override {
        ViewFixture::SetUp();
        rules::GenerateMoves(State, 1);
        DrawBoard(State, 0);
    }
    static int Square(std::string_view Name) { return rules::AlgebraicCell(Name); }
    int Cell(std::string_view Name) const { return CellOfSquare(State, Square(Name)); }
    std::string Says(std::string_view Name, bool MovesOpen = true) const {
        return CellText(State, Cell(Name), MovesOpen);
    }
    void Turn() {
        State.BoardTurned = 1;
        DrawBoard(State, 0);
    }
};

struct StepCase {
    const char* Name;
    const char* From;
    int Turned, Right, Down;
    const char* To;
};

using Steps = tests::RowsOf<Cursor, StepCase>;

TEST_P(Steps, GoByCellsOfTheScreen) {
    const auto& [Name, From, Turned, Right, Down, To] = GetParam();
    State.BoardTurned = Turned;
    SetCursor(State, Square(From));
    ShowCursor(State, true);
    StepCursor(State, Right, Down);
    EXPECT_EQ(Square(To), State.CursorSquare);
    EXPECT_EQ(Cell(To), State.CursorCell);
}

constexpr StepCase StepRows[] = {{"right", "D4", 0, 1, 0, "E4"},
                                 {"left", "D4", 0, -1, 0, "C4"},
                                 {"up_is_away_from_white", "D4", 0, 0, -1, "D5"},
                                 {"down", "D4", 0, 0, 1, "D3"},
                                 {"turned_right_is_towards_a", "D4", 1, 1, 0, "C4"},
                                 {"turned_up_is_towards_one", "D4", 1, 0, -1, "D3"},
                                 {"stops_at_the_left_edge", "A4", 0, -1, 0, "A4"},
                                 {"stops_at_the_right_edge", "J4", 0, 1, 0, "J4"},
                                 {"stops_at_the_top", "D0", 0, 0, -1, "D0"},
                                 {"stops_at_the_bottom", "D1", 0, 0, 1, "D1"}};
INSTANTIATE_TEST_SUITE_P(Rows, Steps, testing::ValuesIn(StepRows), tests::RowName);

TEST_F(Cursor, IsHiddenWithoutASquareAndKeepsItWhileHidden) {
    ShowCursor(State, true);
    StepCursor(State, 1, 0);
    EXPECT_EQ(-1, State.CursorCell);
    SetCursor(State, Square("D4"));
    EXPECT_EQ(63, State.CursorCell);
    ShowCursor(State, false);
    DrawBoard(State, 0);
    EXPECT_EQ(-1, State.CursorCell);
    ShowCursor(State, true);
    EXPECT_EQ(63, State.CursorCell);
    Turn();
    EXPECT_EQ(36, State.CursorCell) << "the square stays behind when the board is turned";
}

struct WordsCase {
    const char* Name;
    const char* Square;
    std::int32_t Piece;
    const char* Words;
};

using Words = tests::RowsOf<Cursor, WordsCase>;

TEST_P(Words, NameTheSquareAndItsPiece) {
    rules::SetCell(State, Square(GetParam().Square), GetParam().Piece);
    DrawBoard(State, 0);
    EXPECT_EQ(GetParam().Words, Says(GetParam().Square, false));
}

constexpr WordsCase WordsRows[] = {
    {"empty", "D6", 0, "d6, empty"},           {"light", "D5", 0, "d5, light square"},
    {"tenth_row", "B0", -1, "b0, Black man"},  {"white_man", "C3", 1, "c3, White man"},
    {"white_king", "C3", 2, "c3, White king"}, {"black_king", "C3", -2, "c3, Black king"}};
INSTANTIATE_TEST_SUITE_P(Rows, Words, testing::ValuesIn(WordsRows), tests::RowName);

TEST_F(Cursor, WordsFollowTheNotation) {
    for (const int Numeric : {1, 2}) {
        State.NotationMode = static_cast<std::uint8_t>(Numeric);
        EXPECT_EQ("32, White man, can move", Says("D4"));
        EXPECT_EQ("5, Black man", Says("J0"));
        EXPECT_EQ("light square", Says("D5"));
    }
    State.RuleSet.PiecesOnBlack = 2; // such squares have no numbers
    EXPECT_EQ("d5, empty", Says("D5"));
}

TEST_F(Cursor, WordsSayWhatCanMoveAndWhere) {
    EXPECT_EQ("d4, White man, can move", Says("D4"));
    EXPECT_EQ("c3, White man", Says("C3"));
    State.Cells[Cell("D4")].Pointer = Picture::white_man_ico;
    PaintEmpty(State, Square("D4"));
    EXPECT_EQ("d4, White man, in the hand", Says("D4"));
    EXPECT_EQ("e5, empty, target", Says("E5"));
    EXPECT_EQ("c5, empty, target", Says("C5"));
    EXPECT_EQ("g5, empty", Says("G5")); // another man's
    EXPECT_EQ("b4, White man", Says("B4"));
}

TEST_F(Cursor, WordsSayNothingOfMovesThatAreNotToBeShown) {
    State.ShowAvailableMoves = 0;
    EXPECT_EQ("d4, White man", Says("D4"));
    State.ShowAvailableMoves = 1;
    rules::SetCell(State, Square("D4"), 0); // a search tries moves on the position
    EXPECT_EQ("d4, White man", Says("D4", false));
}

TEST_F(Cursor, WordsFollowATurnedBoard) {
    Turn();
    EXPECT_EQ("a1, White man", CellText(State, 9, true));
    EXPECT_EQ("d4, White man, can move", CellText(State, 36, true));
}

} // namespace
} // namespace zonterbrook::view
