// What the view says in words: the squares, for a screen reader, and durations.
#include "rules/generate.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "support/rows.h"
#include "support/view_fixture.h"
#include "view/board_cursor.h"
#include "view/draw_board.h"
#include "view/time_text.h"

#include <gtest/gtest.h>

namespace zonterbrook::view {
namespace {

struct WordsCase {
    const char *Name, *Square, *Words;
    std::int32_t Piece = 1; ///< on c3
    bool Held = false;      ///< the man of d4 is in the hand
    std::int32_t Notation = 0;
    int PiecesOnBlack = 1, Turned = 0;
    bool MovesOpen = true;
    int ShowMoves = 1;
};

using Words = tests::RowsOf<tests::ViewFixture, WordsCase>;

TEST_P(Words, NameSquareAndPieceAndWhatCanBeDone) {
    const WordsCase& Row = GetParam();
    rules::GenerateMoves(State, 1);
    State.MoveStack[State.StackLimit[State.Ply + 1]].Source = rules::AlgebraicCell("C3"); // of another search
    rules::SetCell(State, rules::AlgebraicCell("C3"), Row.Piece);
    State.NotationMode = static_cast<rules::Notation>(Row.Notation);
    State.BoardTurned = Row.Turned;
    State.ShowAvailableMoves = static_cast<std::uint8_t>(Row.ShowMoves);
    DrawBoard(State, 0);
    State.RuleSet.PiecesOnBlack = static_cast<std::uint8_t>(Row.PiecesOnBlack);
    const int Held = rules::AlgebraicCell("D4");
    if (Row.Held) {
        State.Cells[CellOfSquare(State, Held)].Pointer = Picture::white_man_ico;
        PaintEmpty(State, Held);
    }
    EXPECT_EQ(Row.Words, CellText(State, CellOfSquare(State, rules::AlgebraicCell(Row.Square)), Row.MovesOpen));
}

constexpr WordsCase WordsRows[] = {{"man", "C3", "c3, White man"},
                                   {"king", "C3", "c3, White king", 2},
                                   {"black_man", "C3", "c3, Black man", -1},
                                   {"black_king", "C3", "c3, Black king", -2},
                                   {"nothing", "C3", "c3, empty", 0},
                                   {"tenth_row", "B0", "b0, Black man"},
                                   {"light", "D5", "d5, light square"},
                                   {"can_move", "D4", "d4, White man, can move"},
                                   {"in_the_hand", "D4", "d4, White man, in the hand", 1, true},
                                   {"target", "E5", "e5, empty, target", 1, true},
                                   {"another_mans_target", "G5", "g5, empty", 1, true},
                                   {"another_man_meanwhile", "B4", "b4, White man", 1, true},
                                   {"number", "D4", "32, White man, can move", 1, false, 1},
                                   {"number_without_notation", "J0", "5, Black man", 1, false, 2},
                                   {"no_number", "D5", "light square", 1, false, 1},
                                   {"both_colours_have_no_numbers", "D5", "d5, empty", 1, false, 1, 2},
                                   {"turned", "D4", "d4, White man, can move", 1, false, 0, 1, 1},
                                   {"moves_hidden", "D4", "d4, White man", 1, false, 0, 1, 0, true, 0},
                                   {"moves_of_a_search", "D4", "d4, White man", 1, false, 0, 1, 0, false}};
INSTANTIATE_TEST_SUITE_P(Rows, Words, testing::ValuesIn(WordsRows), tests::RowName);

TEST(Durations, AreRoundedToSeconds) {
    constexpr std::pair<double, const char*> Rows[] = {
        {0, "00:00.00"}, {1.4, "00:00.01"}, {59.6, "00:01.00"}, {3599.5, "01:00.00"}, {360060, "100:01.00"}};
    for (const auto& [Seconds, Text] : Rows) {
        EXPECT_EQ(Text, TimeString(Seconds));
    }
}

} // namespace
} // namespace zonterbrook::view
