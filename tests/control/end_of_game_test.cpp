// How a game ends: each rule of the draw with its option on and off, wins by every goal, results and their words.
#include "control/ending.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

// Kings that go back and forth out of each other's reach, with and without men at the edges.
constexpr const char* KingsAndMen = "W e1, w j2, B f0, b a9";
constexpr const char* ThreeToOne = "W e1, W c1, W a1, B f0";
constexpr const char* TwoToOne = "W e1, W c1, B f0";

class EndOfGame : public PersonsFixture {
protected:
    void SetUp() override {
        PersonsFixture::SetUp();
        State.ChessDrawRules = 0;
    }

    int Shuffle(int HalfMoves) {
        GameFixture::Shuffle({"e1d2", "f0g9", "d2e1", "g9f0"}, HalfMoves);
        return State.GameMoves;
    }
};

// --- the rules of the draw ---------------------------------------------------------------------------------------

struct DrawCase {
    const char *Name, *Pieces, *Rules;
    int HalfMoves;          ///< that are made; a rule speaks at the last of them
    control::DrawRule Code; ///< what it says
    const char* Text;
    std::uint8_t ChessDrawRules = 0; ///< in force at the last half-move alone: long games repeat themselves
    std::uint8_t MoveLimitChoice = 1;
    const char* Moves = ""; ///< with which the game begins
};

using enum control::DrawRule;
using DrawRules = RowsOf<EndOfGame, DrawCase>;

TEST_P(DrawRules, EndTheGameOnlyWhenInForce) {
    const DrawCase& Row = GetParam();
    WriteRules(State, Row.Rules);
    State.MoveLimitChoice = Row.MoveLimitChoice;
    Lay(Row.Pieces);
    Play(Row.Moves);
    Shuffle(Row.HalfMoves - 1);
    EXPECT_TRUE(Row.Code == None || State.DrawCode != Row.Code) << "too early";
    State.ChessDrawRules = Row.ChessDrawRules;
    const bool Ends = *Row.Text != '\0';
    if (Ends) {
        ExpectCongratulation(Row.Text);
    }
    EXPECT_EQ(Row.HalfMoves, Shuffle(Row.HalfMoves));
    EXPECT_EQ(Row.Code, State.DrawCode);
    EXPECT_EQ(Ends, control::IsOver(State));
    if (Ends) {
        ExpectOver(Row.Text, "1/2-1/2");
    }
}

constexpr const char* ThreeText = "It's a draw! 3 Kings versus 1 King";
constexpr const char* TwoText = "It's a draw! 2 Kings versus 1 King";
constexpr const char* LimitText = "It's a draw! 50 Moves Rule";

constexpr DrawCase DrawRows[] = {
    // The start position is in nobody's record, so it counts from its first return on.
    {"third_time", KingsAndMen, "", 9, Repetition, "It's a draw! Triple Repetition", 1},
    {"third_time_off", KingsAndMen, "", 9, Repetition, ""},
    {"second_time_is_none", KingsAndMen, "", 8, None, "", 1},
    {"three_kings_at_once", ThreeToOne, "ThreeKings=1|NumberKings=0", 2, ThreeKingsAgainstOne, ThreeText},
    {"three_kings_one_move", ThreeToOne, "ThreeKings=1|NumberKings=1", 2, ThreeKingsAgainstOne, ThreeText},
    {"three_kings_two_moves", ThreeToOne, "ThreeKings=1|NumberKings=2", 4, ThreeKingsAgainstOne, ThreeText},
    {"three_kings_off", ThreeToOne, "ThreeKings=0|NumberKings=1", 7, None, ""},
    {"three_kings_are_not_two", ThreeToOne, "TwoKings=1|NumberKings2=1", 7, None, ""},
    {"two_kings", TwoToOne, "TwoKings=1|NumberKings2=3", 6, TwoKingsAgainstOne, TwoText},
    {"a_man_is_no_king_ending", "W e1, w j2, B f0", "TwoKings=1|NumberKings2=1", 7, None, ""},
    // The repetition, which has long been there, gives way to the limit, and both to the kings.
    {"limit_of_50", KingsAndMen, "", 100, MoveLimit, LimitText, 1, 1},
    {"limit_of_16", KingsAndMen, "", 32, MoveLimit, LimitText, 1, 2},
    {"limit_of_40", KingsAndMen, "", 80, MoveLimit, LimitText, 1, 4},
    {"unknown_limit_is_50", KingsAndMen, "", 100, MoveLimit, LimitText, 1, 5},
    {"limit_off", KingsAndMen, "", 32, MoveLimit, "", 0, 2},
    {"capture", "W e1, w j2, w c3, b d4, B f0, b a9", "", 33, MoveLimit, "", 0, 2, "c3e5 a9b8 e5f6 b8a7"},
    {"promotion", "W e1, w j2, w c9, B f0, b a9", "", 33, MoveLimit, "", 0, 2, "c9b0 a9b8 j2i3 b8a7"},
    {"a_mans_step_does_not", "W e1, w j2, B f0, b a9", "", 32, MoveLimit, "", 0, 2, "j2i3 a9b8 i3h4 b8a7"}};
INSTANTIATE_TEST_SUITE_P(Rows, DrawRules, testing::ValuesIn(DrawRows), RowName);

TEST_F(EndOfGame, TheCountOfAnEndingBeginsWhereItArose) {
    WriteRules(State, "TwoKings=1|NumberKings2=2");
    Lay("W e1, W c1, w c3, B f0, b d4");
    Play("c3e5");
    EXPECT_EQ(0, State.TwoKingsStart) << "a man stands";
    Play("f0d8 e1d2 d8f0");
    EXPECT_EQ(None, State.DrawCode);
    State.ThreeKingsStart = State.TwoKingsStart = 3;
    Run(First);
    EXPECT_EQ(0, State.ThreeKingsStart + State.TwoKingsStart) << "it has not begun yet";
}

TEST_F(EndOfGame, ACountStandsStillWhileItsRuleIsOff) {
    Lay(ThreeToOne);
    State.ThreeKingsStart = State.TwoKingsStart = 7;
    control::DrawRuleCheck(State);
    EXPECT_EQ(7, State.ThreeKingsStart);
    EXPECT_EQ(0, State.TwoKingsStart) << "another ending stands";
}

TEST_F(EndOfGame, KingAgainstKingOverwritesLimitAndRepetition) {
    Lay("W e1, B f0");
    Shuffle(101);
    EXPECT_EQ(KingAgainstKing, State.DrawCode);
    EXPECT_FALSE(control::IsOver(State)) << "a rule that is not in force";
}

// --- the end of a game -------------------------------------------------------------------------------------------

struct EndCase {
    const char *Name, *Rules, *Pieces;
    const char* Moves; ///< of persons; empty: the computer moves
    const char *Text, *Result;
    std::uint8_t KingVersusKing = 0;
    int Made = 1;           ///< half-moves that the game has then
    bool Cancelled = false; ///< before the computer has looked at anything
    std::int32_t Side = rules::White;
};

using Ends = RowsOf<EndOfGame, EndCase>;

TEST_P(Ends, AreAnnouncedOnceTheMoveHasBeenSeen) {
    const EndCase& Row = GetParam();
    WriteRules(State, Row.Rules);
    State.KingVersusKing = Row.KingVersusKing;
    State.SearchDepth = 3;
    State.UseRating = 0;
    State.AskForDraw = 1; // which comes too late
    World.Chances.assign(9, 0);
    Run(*Row.Moves != '\0' ? PlayerPlayer : ComputerPlayer);
    Lay(Row.Pieces, Row.Side);
    State.LastDrawOffer = -40;
    ExpectCongratulation(Row.Text);
    int Seen = 0;
    World.OnWait = [&] {
        Seen += State.Turn == control::TurnState::Ending ? 1 : 0;
        if (Row.Cancelled) {
            Run(Cancel);
        }
    };
    World.OnMessage = [&] {
        EXPECT_EQ(1, Seen) << "the last move must be seen first";
        EXPECT_EQ(static_cast<std::size_t>(Row.Made), State.GameList.Lines.size());
        EXPECT_EQ(Row.Result, game::ResultText(State.Result));
        EXPECT_TRUE(Status() != "Computer wins!" || State.Progress.Value == State.Progress.Maximum);
    };
    *Row.Moves != '\0' ? Play(Row.Moves) : Run(Compute);
    EXPECT_EQ(Row.Made, State.GameMoves);
    EXPECT_EQ(0.0, State.Progress.Value) << "empty at rest";
    EXPECT_TRUE(State.HintSource == 0 || std::string_view(Row.Result) != "1-0") << "of a side that can't reply";
    ExpectOver(Row.Text, Row.Result);
    if (Row.Made > 0) { // and said once is enough
        State.GameList.Selected = State.GameMoves - 1;
        control::List1_MouseUp(State);
        ExpectOver(Row.Text, Row.Result);
        Run(Back);
        Run(Forward);
        ExpectOver(Row.Text, Row.Result);
    }
}

constexpr const char* LastPiece = "w c3, b d4";
constexpr const char* Blocked = "w a1, w c1, b a3";
constexpr const char* NoWayOut = "w a3, b b4, b c5";
constexpr const char* KingsText = "It's a draw! King versus King";

constexpr EndCase EndRows[] = {
    {"last_piece_taken", "", LastPiece, "c3e5", "White wins!", "1-0"},
    {"last_piece_taken_anti", "AntiMode=1", LastPiece, "c3e5", "Black wins!", "0-1"},
    {"blocked", "", Blocked, "a1b2", "White wins!", "1-0"},
    {"blocked_anti", "AntiMode=1", Blocked, "a1b2", "Black wins!", "0-1"},
    {"no_piece_is_no_blocked_side", "NoLegalDraw=1", LastPiece, "c3e5", "White wins!", "1-0"},
    // A goal reached leaves both sides with pieces and moves, and the result is not told by them.
    {"first_king", "KingWin=1", "w c9, b a9", "c9d0", "White wins!", ""},
    {"first_king_loses", "KingWin=1|AntiMode=1", "w c9, b a9", "c9d0", "Black wins!", "1-0"},
    {"king_comes_home", "WinAtPromo=1", "W c3, b a9", "c3a1", "White wins!", ""},
    {"few_pieces", "NumberPieces=2", "w c3, w a1, w i1, b d4, b a9, b c9", "c3e5", "White wins!", ""},
    {"king_against_king", "", "W c1, B h0", "c1d2", KingsText, "1/2-1/2", 1},
    {"a_waiting_capture_is_made_first", "", "W c3, B h0", "c3b4 h0a3", "Black wins!", "0-1", 1, 2},
    {"a_rule_that_is_off_draws_nothing", "KingWin=1", "W c9, B j2", "c9d0", "White wins!", ""},
    {"a_rule_in_force_goes_before_the_goal", "KingWin=1", "W c9, B j2", "c9d0", KingsText, "1/2-1/2", 1},
    {"black_began_and_wins", "", "b d6, w c5", "d6xb4", "Black wins!", "1-0", 0, 1, false, rules::Black},
    {"black_began_and_loses", "", "w c3, b e5", "e5d4 c3xe5", "White wins!", "0-1", 0, 2, false, rules::Black},
    {"black_began_and_is_blocked", "", "b a3, w b2, w c1", "", "Player wins!", "0-1", 0, 0, false, rules::Black},
    {"computer_takes_the_last_piece", "", "w c3, w j2, b d4", "", "Computer wins!", "1-0"},
    {"computer_blocks", "", Blocked, "", "Computer wins!", "1-0"},
    {"computer_blocks_by_its_only_move_anti", "AntiMode=1", "w a1, b a3, b c1", "", "Player wins!", "0-1"},
    {"computer_blocks_into_a_draw", "NoLegalDraw=1", "w a1, b a3, b c1", "", "It's a draw!", "1/2-1/2"},
    {"computer_is_blocked", "", NoWayOut, "", "Player wins!", "0-1", 0, 0},
    {"computer_is_blocked_into_a_draw", "NoLegalDraw=1", NoWayOut, "", "It's a draw!", "1/2-1/2", 0, 0},
    {"computer_reaches_the_goal", "KingWin=1", "w c9, b a9", "", "Computer wins!", ""},
    {"computer_reaches_it_through_a_cancel", "KingWin=1", "w c9, b a9, b a7", "", "Computer wins!", "", 0, 1, true},
    {"computer_reaches_it_by_kings", "KingWin=1", "W c9, B j2", "", "Computer wins!", "", 0, 1, true},
    {"computer_must_make_a_king_that_loses", "KingWin=1|AntiMode=1", "w a9, b j8", "", "Player wins!", "1-0"},
    {"computer_has_lost_the_race", "KingWin=1", "w a3, B a1, b a9", "", "Player wins!", "", 0, 0},
    {"computer_makes_king_against_king", "", "W c1, B b0", "", KingsText, "1/2-1/2", 1}};
INSTANTIATE_TEST_SUITE_P(Rows, Ends, testing::ValuesIn(EndRows), RowName);

} // namespace
} // namespace zonterbrook::tests
