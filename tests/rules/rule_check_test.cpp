// The check of a rule set: a row for each thing that it tells, named by the fault that it would catch.
#include "rules/rule_check.h"
#include "support/position_text.h"

#include <algorithm>
#include <set>

namespace zonterbrook::rules {
namespace {

using namespace tests;

std::string SetupOf(std::string_view Position) {
    return Position.empty() ? std::string() : SetupText(Game("", Position)->Board);
}

std::string KeysTold(std::string_view Changes, std::string_view Position) {
    RulesState State{};
    WriteRules(State, Changes);
    std::set<std::string> Keys;
    for (const RuleWarning& Warning : CheckRules(State.RuleSet, SetupOf(Position))) {
        EXPECT_TRUE(Warning.Key == "Setup" || RuleText(State.RuleSet, Warning.Key)) << Warning.Key;
        EXPECT_TRUE(Warning.Sentence.ends_with('.')) << Warning.Sentence;
        Keys.insert(Warning.Key);
    }
    return Joined({Keys.begin(), Keys.end()});
}

constexpr const char* OneEach = "W:Wc3:Bf8";
constexpr const char* Lanes =
    "WhiteManMovement=E E|BlackManMovement=E E|WhiteKingMovement=W W|BlackKingMovement=W W|PiecesOnBlack=2|";

TEST(RuleCheck, TellsWhatIsVoidOrContradictory) {
    const struct {
        const char* Fault;
        std::string Rules;
        const char *Position, *Keys;
    } Rows[] = {
        {"default_rules_blamed", "", "", ""},
        {"recognised_rules_blamed", ItalianRules, "", ""},
        // The start position
        {"missing_side_not_seen", "", "W:Wc3:B", "Setup"},
        {"empty_board_faults", "PiecesOnBlack=0", "W:W:B", "Setup"},
        {"men_on_both_colours_not_seen", "", "W:Wc3,d3:Bf8", "Setup"},
        {"men_on_the_other_colour_blamed", "", "W:Wd3,e2:Bf7", ""},
        {"shift_to_the_other_colour_forgotten", "PiecesOnBlack=0|PromoW=A0|PromoB=B1", "", ""},
        {"blocked_starter_not_seen", "", "W:Wa1:Bb2,c3", "Setup"},
        {"blocked_second_player_blamed", "", "W:Wc3:Ba1", ""},
        {"lot_for_the_start_forgotten", "RndColor=1", "W:Wc3:Ba1", "Setup"},
        // Promotion
        {"missing_squares_not_seen", "PromoW=", "", "PromoW"},
        {"game_without_kings_blamed", "PromoW=|PromoB=", "", ""},
        {"kings_without_squares_blamed", "PromoW=", "W:WKc3:Bf8", ""},
        {"squares_of_the_wrong_colour_not_seen", "PromoB=A1B1", "", "PromoB"},
        {"squares_behind_the_men_not_seen", "PromoW=A1C1|WhiteManMovement=NW;NE NW;NE", OneEach, "PromoW"},
        {"way_by_captures_forgotten", "PromoW=A1C1", OneEach, ""},
        {"flying_capture_forgotten", std::string(Lanes) + "ManCapMoveKing=1|PromoW=J3|PromoB=A3", "W:Wa3:Bf3", ""},
        {"far_corner_reached_from_everywhere", "PromoW=A9|WhiteManMovement=NW;NE NW;NE", "W:Wb2,j2,j4:Bf8", "PromoW"},
        // Movements
        {"piece_without_steps_not_seen", "BlackManMovement=", "", "BlackManMovement PromoB"},
        {"missing_captures_not_seen", "WhiteKingMovement=NW;NE", "", "WhiteKingMovement"},
        {"game_without_captures_blamed",
         "WhiteManMovement=NW;NE|BlackManMovement=NW;NE|WhiteKingMovement=NW|BlackKingMovement=NW", "", ""},
        {"direction_without_prey_not_seen", "WhiteManMovement=NW;NE NW;N;NE", "", "WhiteManMovement"},
        {"unknown_word_not_seen", "BlackKingMovement=NW;NE NW;XX;NE", "", "BlackKingMovement"},
        {"ninth_word_not_seen", "WhiteManMovement=NW;NE NW;NE;SE;SW;NN;SS;EE;WW;NW", "", "WhiteManMovement"},
        {"closing_separator_blamed", "WhiteManMovement=NW;NE; NW;NE;", "", ""},
        {"double_word_not_seen", "WhiteManMovement=NW;NW;NE NW;NE", "", "WhiteManMovement"},
        {"second_blank_not_seen", "WhiteManMovement=NW;NE  NW;NE", "", "WhiteManMovement"},
        {"walk_off_the_colour_not_seen", "WhiteManMovement=NW;NE;N NW;NE;SE;SW", "", "PiecesOnBlack"},
        {"choice_of_colour_for_all_squares_not_seen", std::string(Lanes) + "PiecesOnBlack=0|PromoW=J3|PromoB=A3",
         "W:Wa3:Bj3", "PiecesOnBlack"},
        // Rules together
        {"kings_counted_in_vain", "MaxCapMove=0|MaxCapMoveKings=1", "", "MaxCapMoveKings"},
        {"lifted_duty_not_seen", "MaxCapMove=0|MaxCapMoveKings=1|KingCapMove=1", "", "KingCapMove MaxCapMoveKings"},
        {"capture_broken_off_in_vain", "MulJumps=0", "", "MulJumps"},
        {"optional_capture_of_the_most_blamed", "CapRequired=0", "", ""},
        {"unfinished_king_not_seen", "MaxCapMoveK=0", "", "MaxCapMoveK"},
        {"unfinished_king_blamed", "MaxCapMoveK=0|MaxCapMove=0", "", ""},
        {"void_default_blamed", "MulJumps=0|MaxCapMove=0|LongKings=0", "", ""},
        {"duties_of_kings_without_kings",
         "PromoW=|PromoB=|KingCapMove=1|MaxCapMoveKings=1|ManCapKing=0|KingMan=1|KingWin=1|ThreeKings=1|NumberKings=9|"
         "ChangeSide=1|KingFirst=1|ManContJumpCrowned=1",
         "",
         "ChangeSide KingCapMove KingFirst KingMan KingWin ManCapKing ManContJumpCrowned MaxCapMoveKings ThreeKings"},
        {"last_man_makes_no_king", "PromoW=|PromoB=|ManKing=1|ManCapKing=0|KingFirst=1", "", ""},
        {"crowned_on_the_way_in_vain", "ManContJump=0|ManContJumpCrowned=1", "", "ManContJumpCrowned"},
        {"short_landing_of_short_kings", "LongKings=0|KingFirst=1", "", "KingFirst"},
        {"flying_men_forgotten", "LongKings=0|KingFirst=1|ManCapMoveKing=1", "", ""},
        {"way_back_barred", "CapReverse=1", "", "CapReverse"},
        {"way_back_blamed", "CapReverse=1|RemovePieces=0", "", ""},
        {"rules_for_men_without_men", "ManKing=1|ManCapMoveKing=1|KingCapMove=1", "W:WKc3:BKf8",
         "KingCapMove ManCapMoveKing ManKing"},
        {"fatal_jump_of_black_kings", "JumpFriend=1|NumberFriends=-1|LongKings=0", "", "JumpFriend"},
        {"no_line_of_friends_fits", "JumpFriend=1", "", "NumberFriends"},
        {"goals_in_each_others_way", "KingWin=1|WinAtPromo=1", "", "KingWin"},
        {"goal_reached_at_the_start", "WinAtPromo=1", "W:WKa1,c3:Bf8", "WinAtPromo"},
        {"goals_without_squares", "KingWin=1|PromoW=|PromoB=", "W:WKc3:BKf8", "KingWin"},
        {"turncoat_does_not_win", "KingWin=1|ChangeSide=1", "", "KingWin"},
        {"counts_of_zero",
         "RemoveMen=1|DoMoves=1|ThreeKings=1|TwoKings=1|canContract=1|ContractW1=2|ContractW2=2|"
         "ContractB1=11|ContractB2=11",
         "", "ContractNumber NumberKings NumberKings2 NumberMen NumberMoves"},
        {"counts_without_their_rule",
         "NumberMen=1|NumberMoves=1|NumberKings=1|NumberKings2=1|ContractNumber=1|NumberFriends=1", "",
         "ContractNumber NumberFriends NumberKings NumberKings2 NumberMen NumberMoves"},
        {"starter_told_twice", "BlackStarts=1|RndColor=1", "", "BlackStarts"},
        {"lost_from_the_start", "NumberPieces=20", "", "NumberPieces"},
        {"lost_after_the_lot", "NumberPieces=2|RemoveMen=1|NumberMen=18", "", "NumberPieces"},
        {"lot_larger_than_the_side", "RemoveMen=1|NumberMen=20", "", "NumberMen"},
        {"flag_that_is_no_flag", "LastCap=2|AntiMode=-1", "", "AntiMode LastCap"},
        // Entries
        {"rows_off_the_board", "canContract=1|ContractNumber=3|ContractW1=1|ContractW2=12|ContractB1=11|ContractB2=11",
         "", "ContractW1 ContractW2"},
        {"free_row_on_the_wrong_side",
         "canContract=1|ContractNumber=3|ContractW1=11|ContractW2=4|ContractB1=11|ContractB2=10", OneEach,
         "ContractW2 Setup"},
        {"man_in_hand_cannot_be_crowned",
         "canContract=1|ContractNumber=3|ContractW1=2|ContractW2=2|ContractB1=11|"
         "ContractB2=11|PromoB=",
         "W:Wc3:BKf8", "PromoB"},
    };
    for (const auto& R : Rows) {
        EXPECT_EQ(R.Keys, KeysTold(R.Rules, R.Position)) << R.Fault;
    }
    EXPECT_THROW(CheckRules({}, "123"), base::Fault);
}

} // namespace
} // namespace zonterbrook::rules
