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
    std::string Says(std::string_view Name) const { return CellText(State, Cell(Name), true); }
    void Put(std::string_view Name, std::int32_t Piece) {
        rules::SetCell(State, Square(Name), Piece);
        DrawBoard(State, 0);
    }
    void TakeInHand(std::string_view Name) {
        State.Cells[Cell(Name)].Pointer = PointerOfPiece(State.Board[Square(Name)]);
        PaintEmpty(State, Square(Name));
    }
};

struct StepCase {
    const char* Fault;
    std::string_view From;
    int Turned;
    int Right;
    int Down;
    std::string_view To;
};

class Steps : public Cursor, public testing::WithParamInterface<StepCase> {};

TEST_P(Steps, GoByCellsOfTheScreen) {
    State.BoardTurned = GetParam().Turned;
    SetCursor(State, Square(GetParam().From));
    ShowCursor(State, true);
    StepCursor(State, GetParam().Right, GetParam().Down);
    EXPECT_EQ(Square(GetParam().To), State.CursorSquare);
    EXPECT_EQ(Cell(GetParam().To), State.CursorCell);
}

INSTANTIATE_TEST_SUITE_P(Rows, Steps,
                         testing::Values(StepCase{"right", "D4", 0, 1, 0, "E4"}, StepCase{"left", "D4", 0, -1, 0, "C4"},
                                         StepCase{"up_is_away_from_white", "D4", 0, 0, -1, "D5"},
                                         StepCase{"down", "D4", 0, 0, 1, "D3"},
                                         StepCase{"turned_right_is_towards_a", "D4", 1, 1, 0, "C4"},
                                         StepCase{"turned_up_is_towards_one", "D4", 1, 0, -1, "D3"},
                                         StepCase{"stops_at_the_left_edge", "A4", 0, -1, 0, "A4"},
                                         StepCase{"stops_at_the_right_edge", "J4", 0, 1, 0, "J4"},
                                         StepCase{"stops_at_the_top", "D0", 0, 0, -1, "D0"},
                                         StepCase{"stops_at_the_bottom", "D1", 0, 0, 1, "D1"},
                                         StepCase{"turned_stops_at_the_top", "D1", 1, 0, -1, "D1"}),
                         [](const auto& Info) { return Info.param.Fault; });

TEST_F(Cursor, GoesWithItsSquareWhenTheBoardIsTurned) {
    SetCursor(State, Square("D4"));
    ShowCursor(State, true);
    State.BoardTurned = 1;
    DrawBoard(State, 0);
    EXPECT_EQ(36, State.CursorCell);
}

TEST_F(Cursor, IsHiddenWithoutASquareAndKeepsItWhileHidden) {
    ShowCursor(State, true);
    EXPECT_EQ(-1, State.CursorCell);
    StepCursor(State, 1, 0);
    EXPECT_EQ(-1, State.CursorCell);
    SetCursor(State, Square("D4"));
    EXPECT_EQ(63, State.CursorCell);
    ShowCursor(State, false);
    EXPECT_EQ(-1, State.CursorCell);
    DrawBoard(State, 0);
    EXPECT_EQ(-1, State.CursorCell);
    ShowCursor(State, true);
    EXPECT_EQ(63, State.CursorCell);
}

struct WordsCase {
    const char* Fault;
    std::string_view Name;
    std::int32_t Piece;
    std::string_view Words;
};

class Words : public Cursor, public testing::WithParamInterface<WordsCase> {};

TEST_P(Words, NameTheSquareAndItsPiece) {
    Put(GetParam().Name, GetParam().Piece);
    EXPECT_EQ(GetParam().Words, CellText(State, Cell(GetParam().Name), false));
}

INSTANTIATE_TEST_SUITE_P(Rows, Words,
                         testing::Values(WordsCase{"empty", "D6", 0, "d6, empty"},
                                         WordsCase{"light", "D5", 0, "d5, light square"},
                                         WordsCase{"tenth_row", "B0", -1, "b0, Black man"},
                                         WordsCase{"white_man", "C3", 1, "c3, White man"},
                                         WordsCase{"white_king", "C3", 2, "c3, White king"},
                                         WordsCase{"black_man", "C3", -1, "c3, Black man"},
                                         WordsCase{"black_king", "C3", -2, "c3, Black king"}),
                         [](const auto& Info) { return Info.param.Fault; });

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
    EXPECT_EQ("b8, Black man", Says("B8"));
    TakeInHand("D4");
    EXPECT_EQ("d4, White man, in the hand", Says("D4"));
    EXPECT_EQ("e5, empty, target", Says("E5"));
    EXPECT_EQ("c5, empty, target", Says("C5"));
    EXPECT_EQ("g5, empty", Says("G5")); // another man's
    EXPECT_EQ("b4, White man", Says("B4"));
}

TEST_F(Cursor, WordsSayNothingOfMovesThatAreNotToBeShown) {
    EXPECT_EQ("d4, White man", CellText(State, Cell("D4"), false));
    State.ShowAvailableMoves = 0;
    EXPECT_EQ("d4, White man", Says("D4"));
}

TEST_F(Cursor, WordsFollowWhatIsShownWhileTheBoardIsAtWork) {
    rules::SetCell(State, Square("D4"), 0); // a search tries moves on the position
    EXPECT_EQ("d4, White man", CellText(State, Cell("D4"), false));
}

TEST_F(Cursor, WordsFollowATurnedBoard) {
    State.BoardTurned = 1;
    DrawBoard(State, 0);
    EXPECT_EQ("a1, White man", CellText(State, 9, true));
    EXPECT_EQ("d4, White man, can move", CellText(State, 36, true));
}

} // namespace
} // namespace zonterbrook::view
