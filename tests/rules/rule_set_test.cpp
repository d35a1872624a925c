// Rules by key, steps by words, the recognised rule sets, the colour of square, men removed by lot. Rows are named by
// the fault they would catch.
#include "base/fault.h"
#include "rules/install.h"
#include "rules/rule_set.h"
#include "support/position_text.h"
#include "support/quiet_world.h"

namespace zonterbrook::rules {
namespace {

using namespace tests;

TEST(RuleKeys, NameEachFieldOnce) {
    RuleSetFields Rules;
    for (const RuleKey& Key : RuleKeys()) {
        const RuleSetFields Before = Rules;
        const std::int32_t Value = Key.Read(Rules) + 1;
        ASSERT_TRUE(WriteRule(Rules, Key.Name, std::to_string(Value))) << Key.Name;
        EXPECT_EQ(std::to_string(Value), RuleText(Rules, Key.Name)) << Key.Name;
        EXPECT_FALSE(Rules == Before) << "not compared: " << Key.Name;
        for (const RuleKey& Other : RuleKeys()) {
            EXPECT_EQ(&Other == &Key, Other.Read(Rules) != Other.Read(Before)) << Key.Name << " shares " << Other.Name;
        }
        const std::int64_t Outside[] = {Key.Highest() + 1, Key.Lowest() - 1};
        for (const std::int64_t Number : Outside) {
            const RuleSetFields Kept = Rules;
            EXPECT_THROW(WriteRule(Rules, Key.Name, std::to_string(Number)), base::Fault) << Key.Name << ' ' << Number;
            EXPECT_TRUE(Kept == Rules) << "stored before it was refused: " << Key.Name;
        }
    }
    EXPECT_EQ(42u, RuleKeys().size());
}

TEST(RuleKeys, TextRulesComeBack) {
    const struct {
        const char *Fault, *Key;
        std::string Value, Text;
    } Rows[] = {
        {"movement_of_127_refused", "WhiteManMovement", std::string(127, 'x'), std::string(127, 'x')},
        {"squares_lost", "PromoB", "A1C1J0", "A1C1J0"},
        {"lower_case_square_taken", "PromoW", "a0C0", "--C0"},
        {"gap_closed", "PromoW", "A0  E0", "A0--E0"},
        {"half_a_square_taken", "PromoW", "A0C", "A0"},
        {"seventeenth_square_kept", "PromoW", "A0B0C0D0E0F0G0H0I0J0A9B9C9D9E9F9G9", "A0B0C0D0E0F0G0H0I0J0A9B9C9D9E9F9"},
        {"number_takes_a_word", "MaxCapMove", "on", "0"},
        {"number_takes_no_rest", "NumberPieces", "-2 men", "-2"},
    };
    for (const auto& R : Rows) {
        RuleSetFields Rules;
        EXPECT_TRUE(WriteRule(Rules, R.Key, R.Value)) << R.Fault;
        EXPECT_EQ(R.Text, RuleText(Rules, R.Key)) << R.Fault;
    }
    RuleSetFields Rules;
    EXPECT_FALSE(WriteRule(Rules, "Maxcapmove", "0"));
    EXPECT_FALSE(RuleText(Rules, "").has_value());
    EXPECT_TRUE(Rules == RuleSetFields{});
}

std::string StepsText(const DirectionColumn& Column) {
    std::vector<std::string> Steps;
    for (const std::int16_t Step : Column) {
        if (Step == DirectionSentinel) {
            return Joined(Steps);
        }
        Steps.push_back(std::to_string(Step));
    }
    return "no sentinel";
}

TEST(Movements, WordsBecomeSteps) {
    const struct {
        const char *Fault, *Text;
        int Index;
        const char *Plain, *Captures;
    } Rows[] = {
        {"black_man_not_turned", "NW;NE NW;NE;SE;SW", 1, "-11 -13", "-11 -13 11 13"},
        {"white_king_turned", "N;E;S;W N;E;S;W", 2, "12 1 -12 -1", "12 1 -12 -1"},
        {"black_king_not_turned", "N;E N;E", 3, "-12 -1", "-12 -1"},
        {"double_steps", "NN;SS;EE;WW NN;SS;EE;WW", 0, "24 -24 2 -2", "24 -24 2 -2"},
        {"order_of_words_lost", "SW;NE SE", 0, "-13 13", "-11"},
        {"no_blank_takes_captures", "NW;NE", 0, "11 13", ""},
        {"empty_plain_list", " NW", 0, "", "11"},
        {"empty_text", "", 0, "", ""},
        {"unknown_word_skipped", "NW;XX;NE NE", 0, "11", "13"},
        {"unknown_word_ends_both_lists", "X NE;NW", 0, "", "13 11"},
        {"second_blank_skipped", "N N  E", 0, "12", ""},
        {"trailing_separator", "N;E; S;", 0, "12 1", "-12"},
        {"eighth_word_lost", "N;S;E;W;NE;NW;SE;SW", 0, "12 -12 1 -1 13 11 -11 -13", ""},
        {"ninth_word_over_the_sentinel", "N;S;E;W;NE;NW;SE;SW;NN N", 0, "12 -12 1 -1 13 11 -11 -13", "12"},
    };
    for (const auto& R : Rows) {
        DirectionTable Table{};
        ParseMovement("N;N;N N;N;N", R.Index, Table); // what was there before must go
        ParseMovement(R.Text, R.Index, Table);
        EXPECT_EQ(R.Plain, StepsText(Table[R.Index])) << R.Fault;
        EXPECT_EQ(R.Captures, StepsText(Table[R.Index + 4])) << R.Fault;
    }
}

TEST(Movements, SidewaysStepsAreNoted) {
    constexpr std::string_view Lanes =
        "WhiteManMovement=E E|BlackManMovement=E E|WhiteKingMovement=W W|BlackKingMovement=W W";
    const struct {
        const char* Fault;
        std::string Rules;
        int PiecesOnBlack, SetCaptures, SidewaysOnly;
    } Rows[] = {
        {"flying_kings_alone_compare_sets", "LongKings=1", 1, 0, 0},
        {"sideways_capture_of_one_piece_missed", "BlackKingMovement=NW NW;E", 2, 1, 0},
        {"step_west_missed", "WhiteManMovement=W;N N", 2, 1, 0},
        {"file_value_wins", "PiecesOnBlack=0|WhiteManMovement=E N", 2, 1, 0},
        {"double_step_taken_for_sideways", "WhiteManMovement=EE;WW EE", 1, 0, 0},
        {"short_kings_compare_sets", "LongKings=0|WhiteManMovement=N;E N;E", 2, 0, 0},
        {"lanes_not_noticed", std::string(Lanes), 2, 1, 1},
        {"one_step_up_is_still_a_lane", std::string(Lanes) + "|BlackKingMovement=W W;N", 2, 1, 0},
        {"two_in_the_file_compares_sets", "PiecesOnBlack=2", 2, 1, 0},
    };
    for (const auto& R : Rows) {
        const auto State = Game(R.Rules);
        EXPECT_EQ(R.PiecesOnBlack, State->RuleSet.PiecesOnBlack) << R.Fault;
        EXPECT_EQ(R.SetCaptures, State->SetCaptures) << R.Fault;
        EXPECT_EQ(R.SidewaysOnly, State->SidewaysOnly) << R.Fault;
    }
    // Once widened, the board stays so when the last sideways step is edited away.
    const auto State = Game("WhiteManMovement=N;E N|NumberFriends=0");
    State->NotationMode = rules::Notation::Numeric;
    InstallRuleSet(*State);
    EXPECT_EQ(rules::Notation::Algebraic, State->NotationMode) << "numbers_for_a_hundred_squares";
    WriteRules(*State, "WhiteManMovement=NW;NE NW;NE;SE;SW");
    InstallRuleSet(*State);
    EXPECT_EQ(2, State->RuleSet.PiecesOnBlack);
}

TEST(Movements, ManyMenOnAWideBoardDropThePattern) {
    const auto State = Game("WhiteManMovement=N;E N");
    const std::string Men21 = std::string(13, '1') + std::string(66, '0') + std::string(21, '2');
    const auto Drops = [&](const std::string& Setup, std::string_view Rules) {
        WriteRules(*State, Rules);
        LaySetup(*State, Setup);
        InstallRuleSet(*State);
        return State->WidenDropsPattern;
    };
    EXPECT_EQ(0, Drops("normal", "")) << "twenty_black_men_are_enough";
    EXPECT_EQ(1, Drops(Men21, "")) << "21_and_13_are_not_enough";
    EXPECT_EQ(1, Drops("normal", "")) << "forgotten_with_fewer_men";
    EXPECT_EQ(0, Drops(Men21, "WhiteManMovement=N N")) << "kept_without_sideways_step";
    EXPECT_EQ(0, Drops("0" + Men21.substr(1), "WhiteManMovement=N;E N")) << "twelve_white_men_are_enough";
}

TEST(RuleSets, FourAreRecognisedAndAnyChangeIsSeen) {
    const struct {
        std::string_view Rules;
        KnownRules Special;
    } Rows[] = {{AmericanRules, KnownRules::American},
                {ItalianRules, KnownRules::Italian},
                {"", KnownRules::German},
                {RussianRules, KnownRules::Russian}};
    for (const auto& R : Rows) {
        const auto State = Game(R.Rules);
        EXPECT_EQ(R.Special, State->SpecialRuleSet);
        const RuleSetFields Whole = State->RuleSet;
        const auto SpecialAfter = [&](std::string_view Change) {
            State->RuleSet = Whole;
            WriteRules(*State, Change);
            InstallRuleSet(*State);
            return State->SpecialRuleSet;
        };
        for (const RuleKey& Key : RuleKeys()) {
            for (const std::int32_t Value : {0, 1, 2, 3}) {
                const std::string Change = std::string(Key.Name) + '=' + std::to_string(Value);
                const KnownRules Expected = Key.Read(Whole) == Value ? R.Special : KnownRules::None;
                EXPECT_EQ(Expected, SpecialAfter(Change)) << R.Rules << ' ' << Change;
            }
        }
        for (const char* Change :
             {"WhiteManMovement=NE;NW NW;NE", "BlackManMovement=NW;NE NE;NW", "WhiteKingMovement=NW;NE;SE NW;NE;SE;SW",
              "BlackKingMovement=NW;NE;SE;SW ", "PromoW=A0", "PromoB=J1H1F1D1B1", "PromoW=B0D0F0H0J0A9"}) {
            EXPECT_EQ(KnownRules::None, SpecialAfter(Change)) << R.Rules << ' ' << Change;
        }
        State->RuleSet = Whole;
        State->StartBoard[25] = Empty;
        InstallRuleSet(*State);
        EXPECT_EQ(KnownRules::None, State->SpecialRuleSet) << "other start position, " << R.Rules;
    }
}

TEST(ColourOfSquare, MenAreFittedToIt) {
    const struct {
        const char *Fault, *Rules, *Before, *After;
    } Rows[] = {
        {"black_men_on_white_squares_stay", "PiecesOnBlack=0", "W:Wa1,j2:Bb8,Kj0", "W:Wb1,i2:Ba8,Ki0"},
        {"men_that_fit_moved", "PiecesOnBlack=0", "W:Wb1,i2:Ba8,Ki0", "W:Wb1,i2:Ba8,Ki0"},
        {"white_men_on_black_squares_stay", "", "W:Wb1,i2:Ba8,Ki0", "W:Wa1,j2:Bb8,Kj0"},
        {"first_man_in_a_row_of_odd_number_misjudged", "PiecesOnBlack=0", "W:Wb2:Bj0", "W:Wa2:Bi0"},
    };
    for (const auto& R : Rows) {
        const auto State = Game(R.Rules, R.Before);
        FitMenToColour(*State);
        EXPECT_EQ(R.After, PositionText(*State)) << R.Fault;
    }
    const auto Empty = Game("PiecesOnBlack=0", "W:W:B");
    EXPECT_THROW(FitMenToColour(*Empty), base::Fault) << "a board without a man has no colour";
    // What stands on both colours: one of each pair is overwritten, as ever.
    const auto Full = Game("", "W:Wa1,b1:Bc1");
    ShiftMenColour(*Full, 1);
    EXPECT_EQ("W:Wa1:B", PositionText(*Full).substr(0, 7)) << PositionText(*Full);
    const auto Italian = Game(ItalianRules);
    EXPECT_EQ(Border, Italian->Board[24]);
    EXPECT_EQ(WhiteMan, Italian->Board[Cell("b1")]) << "start of a game leaves the men on the other colour";
    EXPECT_EQ(DefaultSetup, BuildSetupText(*Italian)) << "start position moved with the board";
}

TEST(MenByLot, AreDrawnAgainWhileTheSquareIsEmpty) {
    const struct {
        const char* Fault;
        int Number;
        const char* Before;
        std::deque<double> Draws;
        const char* After;
    } Rows[] = {
        // The lists run by rows from the bottom, each from the right.
        {"list_runs_from_the_left", 1, "W:Wa1,c1,a3:Bj0,h0,a9", {0.0, 0.0}, "W:Wa1,a3:Bh0,j0"},
        {"last_square_never_drawn", 1, "W:Wa1,c1,a3:Bj0,h0,a9", {0.999, 0.999}, "W:Wa1,c1:Ba9,j0"},
        {"empty_square_counts_as_removed", 2, "W:Wa1,c1,a3:Bj0,h0,a9", {0, 0, 0, 0.4, 0.7, 0.7, 0}, "W:Wa3:Bj0"},
        {"one_man_not_left", 9, "W:Wa1,c1:BKj0", {0.9}, "W:Wc1:BKj0"},
        {"nothing_to_remove", 0, "W:Wa1:Bj0", {}, "W:Wa1:Bj0"},
        {"side_without_pieces", 3, "W:Wa1:B", {}, "W:Wa1:B"},
    };
    for (const auto& R : Rows) {
        const auto State = Game("NumberMen=" + std::to_string(R.Number), R.Before);
        QuietWorld World;
        World.Draws = R.Draws;
        RemoveMen(*State, World);
        EXPECT_EQ(R.After, PositionText(*State)) << R.Fault;
        EXPECT_TRUE(World.Draws.empty()) << R.Fault;
        EXPECT_EQ("", CheckPosition(*State)) << R.Fault;
    }
}

} // namespace
} // namespace zonterbrook::rules
