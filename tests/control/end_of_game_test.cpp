// How a game ends: each rule of the draw with its option on and off, wins by every goal, results and their words.
#include "control/end_of_game.h"
#include "support/game_fixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

// Kings that go back and forth out of each other's reach, with and without men at the edges.
constexpr const char* KingsAndMen = "W e1, w j2, B f0, b a9";
constexpr const char* ThreeToOne = "W e1, W c1, W a1, B f0";
constexpr const char* TwoToOne = "W e1, W c1, B f0";
constexpr std::string_view BackAndForth[] = {"e1d2", "f0g9", "d2e1", "g9f0"};

using RuleSetter = void (*)(control::GameState&);

class EndOfGame : public GameFixture {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        BetweenPersons();
        State.ChessDrawRules = 0;
    }

    // Plays until the game ends or so many half-moves have been made; returns how many were.
    int Shuffle(int HalfMoves) {
        while (State.GameMoves < HalfMoves && State.GameEnded == 0) {
            const int Before = State.GameMoves;
            Type(BackAndForth[State.GameMoves % 4]);
            if (State.GameMoves == Before) {
                ADD_FAILURE() << "stuck at half-move " << Before;
                break;
            }
        }
        return State.GameMoves;
    }

    void ExpectOver(std::string_view Status, std::string_view Result) {
        EXPECT_EQ(1, State.GameEnded);
        EXPECT_EQ(Result, State.ResultText);
        EXPECT_EQ(Status, State.StatusPanels[view::StatusPanel]);
        EXPECT_FALSE(State.List2.Enabled);
        for (const CommandId Id : {CommandId::Compute, CommandId::Offerdraw, CommandId::Resign, CommandId::Hint,
                                   CommandId::mnu_Play_Ccomputer, CommandId::Analyze}) {
            EXPECT_FALSE(view::CanRun(State, Id)) << view::RowOf(Id).Name;
        }
        EXPECT_TRUE(view::CanRun(State, CommandId::New1));
        ExpectConsistent();
    }
};

// --- the rules of the draw ---------------------------------------------------------------------------------------

struct DrawCase {
    const char* Name;
    const char* Pieces;
    RuleSetter Rules;
    int HalfMoves; ///< after which the game ends, or as many as are played without its ending
    int Code;      ///< what the rule says then
    const char* Text;
};

class DrawRules : public EndOfGame, public testing::WithParamInterface<DrawCase> {};

TEST_P(DrawRules, EndTheGameOnlyWhenInForce) {
    const DrawCase& Row = GetParam();
    Row.Rules(State);
    Lay(Row.Pieces);
    if (*Row.Text != '\0') {
        World.ExpectMessage("Congratulations", Row.Text);
    }
    EXPECT_EQ(Row.HalfMoves, Shuffle(*Row.Text != '\0' ? 200 : Row.HalfMoves));
    EXPECT_EQ(Row.Code, State.DrawCode);
    if (*Row.Text != '\0') {
        ExpectOver(Row.Text, "1/2-1/2");
    } else {
        EXPECT_EQ(0, State.GameEnded);
        EXPECT_EQ("", State.ResultText);
    }
}

void SetThreeKings(control::GameState& State, bool InForce, int Moves) {
    State.RuleSet.ThreeKings = InForce ? 1 : 0;
    State.RuleSet.NumberKings = static_cast<decltype(State.RuleSet.NumberKings)>(Moves);
}
void SetTwoKings(control::GameState& State, bool InForce, int Moves) {
    State.RuleSet.TwoKings = InForce ? 1 : 0;
    State.RuleSet.NumberKings2 = static_cast<decltype(State.RuleSet.NumberKings2)>(Moves);
}

constexpr const char* ThreeText = "It's a draw! 3 Kings versus 1 King";
constexpr const char* TwoText = "It's a draw! 2 Kings versus 1 King";

INSTANTIATE_TEST_SUITE_P(
    Rows, DrawRules,
    testing::Values(
        // The start position is in nobody's record, so it counts from its first return on.
        DrawCase{"third_time", KingsAndMen, [](control::GameState& S) { S.ChessDrawRules = 1; }, 9, 1,
                 "It's a draw! Triple Repetition"},
        DrawCase{"third_time_off", KingsAndMen, [](control::GameState&) {}, 9, 1, ""},
        DrawCase{"second_time_is_none", KingsAndMen, [](control::GameState& S) { S.ChessDrawRules = 1; }, 8, 0, ""},
        DrawCase{"three_kings_at_once", ThreeToOne, [](control::GameState& S) { SetThreeKings(S, true, 0); }, 2, 4,
                 ThreeText},
        DrawCase{"three_kings_one_move", ThreeToOne, [](control::GameState& S) { SetThreeKings(S, true, 1); }, 2, 4,
                 ThreeText},
        DrawCase{"three_kings_two_moves", ThreeToOne, [](control::GameState& S) { SetThreeKings(S, true, 2); }, 4, 4,
                 ThreeText},
        DrawCase{"three_kings_five_moves", ThreeToOne, [](control::GameState& S) { SetThreeKings(S, true, 5); }, 10, 4,
                 ThreeText},
        DrawCase{"three_kings_off", ThreeToOne, [](control::GameState& S) { SetThreeKings(S, false, 1); }, 7, 0, ""},
        DrawCase{"three_kings_are_not_two", ThreeToOne, [](control::GameState& S) { SetTwoKings(S, true, 1); }, 7, 0,
                 ""},
        DrawCase{"two_kings", TwoToOne, [](control::GameState& S) { SetTwoKings(S, true, 3); }, 6, 5, TwoText},
        DrawCase{"two_kings_off", TwoToOne, [](control::GameState& S) { SetTwoKings(S, false, 3); }, 7, 0, ""},
        DrawCase{"a_man_is_no_king_ending", "W e1, w j2, B f0", [](control::GameState& S) { SetTwoKings(S, true, 1); },
                 7, 0, ""}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(EndOfGame, TheCountOfAnEndingBeginsWhereItArose) {
    SetTwoKings(State, true, 2);
    Lay("W e1, W c1, w c3, B f0, b d4");
    Type("c3e5");
    EXPECT_EQ(0, State.TwoKingsStart) << "a man stands";
    Type("f0d8");
    Type("e1d2");
    Type("d8f0");
    EXPECT_EQ(0, State.DrawCode);
}

TEST_F(EndOfGame, ACountStandsStillWhileItsRuleIsOff) {
    Lay(ThreeToOne);
    State.ThreeKingsStart = 7;
    State.TwoKingsStart = 7;
    control::DrawRuleCheck(State);
    EXPECT_EQ(7, State.ThreeKingsStart);
    EXPECT_EQ(0, State.TwoKingsStart) << "another ending stands";
}

struct LimitCase {
    std::uint8_t Choice;
    int HalfMoves;
};

class MoveLimits : public EndOfGame, public testing::WithParamInterface<LimitCase> {};

TEST_P(MoveLimits, CountHalfMovesWithoutCaptureOrPromotion) {
    const LimitCase& Row = GetParam();
    State.MoveLimitChoice = Row.Choice;
    Lay(KingsAndMen);
    Shuffle(Row.HalfMoves - 1);
    EXPECT_EQ(1, State.DrawCode) << "reached too early";
    // In force only now: the repetition, which has long been there, gives way to the limit.
    State.ChessDrawRules = 1;
    World.ExpectMessage("Congratulations", "It's a draw! 50 Moves Rule");
    Shuffle(Row.HalfMoves);
    ExpectOver("It's a draw! 50 Moves Rule", "1/2-1/2");
}

INSTANTIATE_TEST_SUITE_P(Rows, MoveLimits,
                         testing::Values(LimitCase{0, 64}, LimitCase{1, 100}, LimitCase{2, 32}, LimitCase{3, 40},
                                         LimitCase{4, 80}, LimitCase{5, 100}),
                         [](const auto& Info) { return "choice_" + std::to_string(Info.param.Choice); });

struct IrreversibleCase {
    const char* Name;
    const char* Pieces;
    std::vector<std::string_view> Moves;
    int Limit; ///< the half-move at which the limit of 32 is reached
};

class Irreversible : public EndOfGame, public testing::WithParamInterface<IrreversibleCase> {};

TEST_P(Irreversible, MovesBeginTheCountAnew) {
    const IrreversibleCase& Row = GetParam();
    State.MoveLimitChoice = 2;
    Lay(Row.Pieces);
    for (const std::string_view Move : Row.Moves) {
        Type(Move);
    }
    ASSERT_EQ(static_cast<int>(Row.Moves.size()), State.GameMoves);
    Shuffle(Row.Limit - 1);
    EXPECT_NE(2, State.DrawCode);
    Shuffle(Row.Limit);
    EXPECT_EQ(2, State.DrawCode);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Irreversible,
    testing::Values(
        IrreversibleCase{"capture", "W e1, w j2, w c3, b d4, B f0, b a9", {"c3e5", "a9b8", "e5f6", "b8a7"}, 33},
        IrreversibleCase{"promotion", "W e1, w j2, w c9, B f0, b a9", {"c9b0", "a9b8", "j2i3", "b8a7"}, 33},
        IrreversibleCase{"a_mans_step_does_not", "W e1, w j2, B f0, b a9", {"j2i3", "a9b8", "i3h4", "b8a7"}, 32}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(EndOfGame, KingAgainstKing) {
    State.KingVersusKing = 1;
    Lay("W c1, B h0");
    World.ExpectMessage("Congratulations", "It's a draw! King versus King");
    Type("c1d2");
    ExpectOver("It's a draw! King versus King", "1/2-1/2");
}

TEST_F(EndOfGame, KingAgainstKingIsPlayedOnWhenTheRuleIsOff) {
    Lay("W c1, B h0");
    Type("c1d2");
    EXPECT_EQ(3, State.DrawCode);
    EXPECT_EQ(0, State.GameEnded);
}

TEST_F(EndOfGame, ACaptureThatWaitsIsMadeBeforeKingAgainstKingIsDrawn) {
    State.KingVersusKing = 1;
    Lay("W c3, B h0");
    Type("c3b4");
    EXPECT_EQ(3, State.DrawCode);
    EXPECT_EQ(0, State.GameEnded);
    World.ExpectMessage("Congratulations", "Black wins!");
    Type("h0a3");
    ExpectOver("Black wins!", "0-1");
}

TEST_F(EndOfGame, KingAgainstKingOverwritesLimitAndRepetition) {
    Lay("W e1, B f0");
    Shuffle(101);
    EXPECT_EQ(3, State.DrawCode);
}

// --- wins --------------------------------------------------------------------------------------------------------

struct WinCase {
    const char* Name;
    RuleSetter Rules;
    const char* Pieces;
    const char* Move; ///< White's
    const char* Text;
    const char* Result;
};

class Wins : public EndOfGame, public testing::WithParamInterface<WinCase> {};

TEST_P(Wins, AreAnnounced) {
    const WinCase& Row = GetParam();
    Row.Rules(State);
    Lay(Row.Pieces);
    World.ExpectMessage("Congratulations", Row.Text);
    const double Before = World.Waited;
    World.OnMessage = [&] {
        EXPECT_EQ(0.5, World.Waited - Before) << "the last move must be seen first";
        EXPECT_EQ(Row.Result, State.ResultText);
    };
    Type(Row.Move);
    ExpectOver(Row.Text, Row.Result);
}

constexpr const char* LastPiece = "w c3, b d4";
constexpr const char* Blocked = "w a1, w c1, b a3";

void Plain(control::GameState&) {}
void Anti(control::GameState& State) {
    State.RuleSet.AntiMode = 1;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Wins,
    testing::Values(WinCase{"last_piece_taken", Plain, LastPiece, "c3e5", "White wins!", "1-0"},
                    WinCase{"last_piece_taken_anti", Anti, LastPiece, "c3e5", "Black wins!", "0-1"},
                    WinCase{"blocked", Plain, Blocked, "a1b2", "White wins!", "1-0"},
                    WinCase{"blocked_anti", Anti, Blocked, "a1b2", "Black wins!", "0-1"},
                    WinCase{"blocked_is_a_draw", [](control::GameState& S) { S.RuleSet.NoLegalDraw = 1; }, Blocked,
                            "a1b2", "It's a draw!", "1/2-1/2"},
                    WinCase{"no_piece_is_no_blocked_side", [](control::GameState& S) { S.RuleSet.NoLegalDraw = 1; },
                            LastPiece, "c3e5", "White wins!", "1-0"},
                    // A goal reached leaves both sides with pieces and moves, and the result is not told by them.
                    WinCase{"first_king", [](control::GameState& S) { S.RuleSet.KingWin = 1; }, "w c9, b a9", "c9d0",
                            "White wins!", ""},
                    WinCase{"first_king_loses",
                            [](control::GameState& S) {
                                S.RuleSet.KingWin = 1;
                                S.RuleSet.AntiMode = 1;
                            },
                            "w c9, b a9", "c9d0", "Black wins!", "1-0"},
                    WinCase{"king_comes_home", [](control::GameState& S) { S.RuleSet.WinAtPromo = 1; }, "W c3, b a9",
                            "c3a1", "White wins!", ""},
                    WinCase{"few_pieces", [](control::GameState& S) { S.RuleSet.NumberPieces = 2; },
                            "w c3, w a1, w i1, b d4, b a9, b c9", "c3e5", "White wins!", ""},
                    WinCase{"a_rule_that_is_off_draws_nothing", [](control::GameState& S) { S.RuleSet.KingWin = 1; },
                            "W c9, B j2", "c9d0", "White wins!", ""},
                    WinCase{"a_rule_in_force_goes_before_the_goal",
                            [](control::GameState& S) {
                                S.RuleSet.KingWin = 1;
                                S.KingVersusKing = 1;
                            },
                            "W c9, B j2", "c9d0", "It's a draw! King versus King", "1/2-1/2"}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(EndOfGame, NothingCanBePressedWhileTheLastMoveIsShown) {
    Lay(LastPiece);
    bool Looked = false;
    World.OnWait = [&] {
        Looked = true;
        EXPECT_FALSE(view::CanRun(State, CommandId::New1));
        EXPECT_FALSE(view::CanRun(State, CommandId::Moveback));
        EXPECT_FALSE(State.Text2.Enabled);
        EXPECT_NE(0, State.Thinking);
    };
    World.ExpectMessage("Congratulations", "White wins!");
    Type("c3e5");
    EXPECT_TRUE(Looked);
    EXPECT_EQ(0, State.Thinking);
    EXPECT_TRUE(State.Text2.Enabled);
}

TEST_F(EndOfGame, APositionThatGoesOnIsLeftAlone) {
    const auto Before = std::make_unique<control::GameState>(State);
    control::DrawRuleCheck(State);
    control::GameEndCheck(State);
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_EQ(0.0, World.Waited);
    EXPECT_TRUE(engine::SameRoot(*Before, State));
    EXPECT_EQ(9, rules::MoveCountOfPly(State));
    EXPECT_TRUE(static_cast<const view::WindowContents&>(*Before) == static_cast<const view::WindowContents&>(State));
}

// --- results -----------------------------------------------------------------------------------------------------

struct ResultCase {
    const char* Name;
    const char* Pieces;
    std::int32_t Side;
    std::uint8_t BlackStarts;
    int Anti;
    const char* Result;
};

class Results : public EndOfGame, public testing::WithParamInterface<ResultCase> {};

TEST_P(Results, FollowPiecesMovesAndWhoBegan) {
    const ResultCase& Row = GetParam();
    Lay(Row.Pieces, Row.Side);
    State.RuleSet.BlackStarts = Row.BlackStarts;
    State.RuleSet.AntiMode = Row.Anti;
    control::SetResultText(State, control::DecisiveResult);
    EXPECT_EQ(Row.Result, State.ResultText);
    control::SetResultText(State, control::DrawnResult);
    EXPECT_EQ("1/2-1/2", State.ResultText);
}

constexpr const char* WhiteBlocked = "w a3, b b4, b c5";
constexpr const char* BlackBlocked = "b a3, w b2, w c1";
constexpr const char* Undecided = "w a3, b a9";

INSTANTIATE_TEST_SUITE_P(
    Rows, Results,
    testing::Values(ResultCase{"no_white", "b d4", rules::White, 0, 0, "0-1"},
                    ResultCase{"no_white_black_began", "b d4", rules::White, 1, 0, "1-0"},
                    ResultCase{"no_white_anti", "b d4", rules::White, 0, 1, "1-0"},
                    ResultCase{"no_black", "w d4", rules::Black, 0, 0, "1-0"},
                    ResultCase{"no_black_black_began", "w d4", rules::Black, 1, 0, "0-1"},
                    ResultCase{"no_black_black_began_anti", "w d4", rules::Black, 1, 1, "1-0"},
                    ResultCase{"white_blocked", WhiteBlocked, rules::White, 0, 0, "0-1"},
                    ResultCase{"white_blocked_black_began", WhiteBlocked, rules::White, 1, 0, "1-0"},
                    ResultCase{"white_blocked_anti", WhiteBlocked, rules::White, 0, 1, "1-0"},
                    ResultCase{"black_blocked", BlackBlocked, rules::Black, 0, 0, "1-0"},
                    ResultCase{"black_blocked_black_began", BlackBlocked, rules::Black, 1, 0, "0-1"},
                    ResultCase{"black_blocked_anti", BlackBlocked, rules::Black, 0, 1, "0-1"},
                    ResultCase{"undecided", Undecided, rules::White, 0, 0, ""},
                    ResultCase{"undecided_anti", Undecided, rules::White, 0, 1, "1-0"},
                    ResultCase{"undecided_anti_black_began", Undecided, rules::Black, 1, 1, "1-0"}),
    [](const auto& Info) { return Info.param.Name; });

} // namespace
} // namespace zonterbrook::tests
