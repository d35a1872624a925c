// Square names in both notations, and a move named by its squares. Rows are named by the fault they would catch.
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/square_names.h"
#include "support/position_text.h"

namespace zonterbrook::rules {
namespace {

using namespace tests;

TEST(SquareNames, GoBothWays) {
    for (const int Colour : {0, 1}) {
        const auto State = Game("PiecesOnBlack=" + std::to_string(Colour));
        for (CellSet Cells = PlayingCells; Cells.Any();) {
            const int Square = Cells.TakeFirst();
            State->NotationMode = rules::Notation::Algebraic;
            EXPECT_EQ(Square,
                      SquareNumber(*State, base::ToUpper(SquareNotation(State->NotationMode, Square, Padding::None))));
            State->NotationMode = rules::Notation::Numeric;
            const bool Plays = (RowOf(Square) + ColumnOf(Square)) % 2 == Colour;
            for (const Padding Pad : {Padding::Blank, Padding::None, Padding::Zero}) {
                EXPECT_EQ(Plays, Square == SquareNumber(*State, SquareNotation(State->NotationMode, Square, Pad)))
                    << Square;
            }
        }
    }
}

TEST(SquareNames, AreTheUsualOnes) {
    const struct {
        const char* Fault;
        int Mode, Colour, Square;
        const char* Padded[3]; ///< with a blank, without, with a zero
        const char* Typed;     ///< what names it; nullptr: nothing does
    } Rows[] = {
        {"corner_a1", 0, 1, 25, {"a1", "a1", "a1"}, "A1"},
        {"tenth_rank_not_0", 0, 1, 142, {"j0", "j0", "j0"}, "J0"},
        {"ninth_rank_shifted", 0, 1, 121, {"a9", "a9", "a9"}, "A9"},
        {"first_number", 1, 1, 134, {" 1", "1", "01"}, "1"},
        {"padded_number_not_read", 1, 1, 134, {" 1", "1", "01"}, "01"},
        {"second_row_not_shifted", 1, 1, 121, {" 6", "6", "06"}, "6"},
        {"ten_padded", 1, 1, 129, {"10", "10", "10"}, "10"},
        {"last_number", 1, 1, 33, {"50", "50", "50"}, "50"},
        {"other_colour_first", 1, 0, 133, {" 1", "1", "01"}, "1"},
        {"other_colour_last_row", 1, 0, 26, {"46", "46", "46"}, "46"},
        {"border_below_named", 0, 1, 24, {"--", "--", "--"}, nullptr},
        {"border_above_named", 1, 1, 145, {"--", "--", "--"}, nullptr},
        {"outside_of_the_board_read", 0, 1, -1, {"--", "--", "--"}, nullptr},
        {"hand_has_a_square", 0, 1, FromHand, {"", "", ""}, nullptr},
    };
    for (const auto& R : Rows) {
        const auto State = Game("PiecesOnBlack=" + std::to_string(R.Colour));
        State->NotationMode = static_cast<rules::Notation>(R.Mode);
        for (const Padding Pad : {Padding::Blank, Padding::None, Padding::Zero}) {
            EXPECT_EQ(R.Padded[static_cast<int>(Pad)], SquareNotation(State->NotationMode, R.Square, Pad)) << R.Fault;
        }
        if (R.Typed != nullptr) {
            EXPECT_EQ(R.Square, SquareNumber(*State, R.Typed)) << R.Fault;
        }
    }
}

TEST(SquareNames, NonsenseIsNoSquare) {
    const auto State = Game("");
    for (const char* Text : {"", "A", "a1", "K1", "@1", "A/", "A:", "1A", "--", "  "}) {
        EXPECT_EQ(0, SquareNumber(*State, Text)) << '"' << Text << '"';
    }
    State->NotationMode = rules::Notation::Numeric;
    for (const char* Text : {"", "0", "51", "-1", "A1", "99"}) {
        EXPECT_EQ(0, SquareNumber(*State, Text)) << '"' << Text << '"';
    }
}

TEST(InputMove, PlaysWhatItsEndsName) {
    constexpr const char* Entry = "canContract=1|ContractNumber=1|ContractW1=2|ContractW2=2";
    const struct {
        const char *Fault, *Rules, *Position, *Source, *Dest;
        const char* Touched; ///< under the option that the piece first touched must move
        const char* After;   ///< nullptr: refused
    } Rows[] = {
        {"legal_move_refused", "", "W:Wc3:Bj0", "c3", "d4", "", "B:Wd4:Bj0"},
        {"illegal_end_taken", "", "W:Wc3:Bj0", "c3", "c4", "", nullptr},
        {"one_end_moves_a_piece", "", "W:Wc3:Bj0", "c3", "c3", "", nullptr},
        {"plain_move_beside_a_capture", "", "W:Wc3:Bd4", "c3", "b4", "", nullptr},
        {"capture_not_told", "", "W:Wc3:Bd4", "c3", "e5", "", "B:We5:B"},
        {"promotion_not_told", "", "W:Wa9:Bj8", "a9", "b0", "", "B:WKb0:Bj8"},
        {"both_not_told", "", "W:Wb8:Bc9", "b8", "d0", "", "B:WKd0:B"},
        {"second_of_equal_ends_played", "MulJumps=0|MaxCapMove=0", "W:Wc3:Bd2,f2,d4,f4", "c3", "g3", "",
         "B:Wg3:Bd2,f2"},
        {"other_piece_than_touched", "", "W:Wc3,g3:Bj0", "c3", "d4", "g3", nullptr},
        {"touched_piece_refused", "", "W:Wc3,g3:Bj0", "g3", "h4", "g3", "B:Wc3,h4:Bj0"},
        {"entry_by_one_square_refused", Entry, "W:Wc3:Bj0", "e1", "e1", "", "B:We1,c3:Bj0"},
        {"entry_off_its_row", Entry, "W:Wc3:Bj0", "e3", "e3", "", nullptr},
    };
    for (const auto& R : Rows) {
        const auto State = Game(R.Rules, R.Position);
        State->TouchMove = 1;
        State->TouchedSquare = *R.Touched == '\0' ? 0 : Cell(R.Touched);
        const int Move = FindMove(*State, Cell(R.Source), Cell(R.Dest));
        EXPECT_EQ(R.After != nullptr, Move >= 0) << R.Fault;
        if (Move >= 0) {
            PlayMove(*State, Move);
            EXPECT_EQ(0, State->TouchedSquare) << R.Fault;
        }
        EXPECT_EQ(R.After != nullptr ? R.After : R.Position, PositionText(*State)) << R.Fault;
    }
    const auto State = Game("", "W:Wc3,g3:Bj0");
    State->TouchedSquare = Cell("g3");
    EXPECT_GE(FindMove(*State, Cell("c3"), Cell("d4")), 0) << "touch_rule_in_force_without_its_option";
}

} // namespace
} // namespace zonterbrook::rules
