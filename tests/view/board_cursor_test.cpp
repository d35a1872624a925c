// The keyboard's cursor on the board, and the squares in words.
#include "rules/generate.h"
#include "rules/moves.h"
#include "rules/position.h"
#include "rules/square_names.h"
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

TEST_F(Cursor, StepsGoByCellsOfTheScreen) {
    const auto Step = [&](const char* From, int Right, int Down) {
        SetCursor(State, Square(From));
        ShowCursor(State, true);
        StepCursor(State, Right, Down);
        EXPECT_EQ(CellOfSquare(State, State.CursorSquare), State.CursorCell) << From;
        return rules::AlgebraicName(State.CursorSquare);
    };
    EXPECT_EQ("e4", Step("D4", 1, 0)) << "right";
    EXPECT_EQ("c4", Step("D4", -1, 0)) << "left";
    EXPECT_EQ("d5", Step("D4", 0, -1)) << "up is away from White";
    EXPECT_EQ("d3", Step("D4", 0, 1)) << "down";
    EXPECT_EQ("a4", Step("A4", -1, 0)) << "stops at the left edge";
    EXPECT_EQ("j4", Step("J4", 1, 0)) << "stops at the right edge";
    EXPECT_EQ("d0", Step("D0", 0, -1)) << "stops at the top";
    EXPECT_EQ("d1", Step("D1", 0, 1)) << "stops at the bottom";
    State.BoardTurned = 1;
    EXPECT_EQ("c4", Step("D4", 1, 0)) << "turned, right is towards a";
    EXPECT_EQ("d3", Step("D4", 0, -1)) << "turned, up is towards 1";
}

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

TEST_F(Cursor, WordsNameTheSquareAndItsPiece) {
    const auto SaysWith = [&](std::int32_t Piece) {
        rules::SetCell(State, Square("C3"), Piece);
        DrawBoard(State, 0);
        return Says("C3", false);
    };
    EXPECT_EQ("c3, White man", SaysWith(1));
    EXPECT_EQ("c3, White king", SaysWith(2));
    EXPECT_EQ("c3, Black man", SaysWith(-1));
    EXPECT_EQ("c3, Black king", SaysWith(-2));
    EXPECT_EQ("c3, empty", SaysWith(0));
    EXPECT_EQ("d5, light square", Says("D5", false));
    EXPECT_EQ("b0, Black man", Says("B0", false)) << "the tenth row is written 0";
}

TEST_F(Cursor, WordsFollowTheNotation) {
    for (const int Numeric : {1, 2}) {
        State.NotationMode = static_cast<rules::Notation>(Numeric);
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
