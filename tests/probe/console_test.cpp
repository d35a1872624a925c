// The console line by line: what each command answers, what it refuses, and that a refusal changes nothing. Rows are
// named by the fault that they would catch.
#include "console.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <unistd.h>
#include <vector>

namespace zonterbrook::probe {
namespace {

const std::string Variants = std::string(ZONTERBROOK_DATA_DIR) + "/variants/";
const std::string Start =
    "1010101010010101010110101010100101010101000000000000000000002020202020020202020220202020200202020202";

std::string Zeros(std::size_t Count) {
    return std::string(Count, '0');
}

/// A White king on a1, a Black man on c3 and a White man on d4, either of whom can take the other.
std::string King(char Side) {
    return "board 3" + Zeros(21) + "2" + Zeros(10) + "1" + Zeros(66) + ' ' + Side;
}

/// Gives the commands in turn and returns the last answer.
std::string Ask(Console& Probe, const std::vector<std::string>& Commands) {
    std::string Answer;
    for (const std::string& Command : Commands) {
        Answer = Probe.Execute(Command);
    }
    return Answer;
}

struct TalkRow {
    const char* Fault;
    std::vector<std::string> Commands;
    std::string Answer; ///< to the last of them
};

TEST(Console, Answers) {
    const std::string EmptyBoard = "board " + Zeros(100) + " w";
    const TalkRow Rows[] = {
        {"starts_without_a_game", {"show"}, "board " + Start + " w\nspecial 3\nmaterial 0 4000\nhand 0 0\n"},
        {"variant_not_installed",
         {"variant " + Variants + "Italian Checkers 10x10.ini", "show"},
         "board 0101010101101010101001010101011010101010000000000000000000000202020202202020202002020202022020202020"
         " w\nspecial 2\nmaterial 0 4000\nhand 0 0\n"},
        {"pieces_in_hand_not_dealt",
         {"rule ContractNumber=3", "show"},
         "board " + Start + " w\nspecial 0\nmaterial 0 4000\nhand 3 3\n"},
        {"hands_kept_from_the_board_before",
         {"rule ContractNumber=3", "rule ContractNumber=1", "board " + Start + " w", "show"},
         "board " + Start + " w\nspecial 0\nmaterial 0 4000\nhand 1 1\n"},
        {"side_does_not_follow_the_rule",
         {"rule BlackStarts=1", "show"},
         "board " + Start + " b\nspecial 0\nmaterial 0 4000\nhand 0 0\n"},
        {"men_stay_on_the_other_colour",
         {"rule PiecesOnBlack=0", "rule PiecesOnBlack=1", "show"},
         "board " + Start + " w\nspecial 3\nmaterial 0 4000\nhand 0 0\n"},
        {"setup_starts_no_game",
         {King('b'), "rule Setup=" + Zeros(99) + "1", "show"},
         "board " + Zeros(99) + "1 w\nspecial 0\nmaterial 100 100\nhand 0 0\n"},
        {"material_from_the_wrong_side", {King('b'), "show"}, King('b') + "\nspecial 3\nmaterial -200 400\nhand 0 0\n"},
        {"minus_lost", {"rule NumberFriends=-1", "key NumberFriends"}, "NumberFriends=-1\n"},
        {"movement_cut_at_its_blank",
         {"rule WhiteManMovement=N;E N;E", "key WhiteManMovement"},
         "WhiteManMovement=N;E N;E\n"},
        {"gap_in_promotion_closed", {"rule PromoW=A0??C0", "key PromoW"}, "PromoW=A0--C0\n"},
        {"setup_is_no_key", {"key Setup"}, "Setup=" + Start + "\n"},
        {"capture_line_wrong", {"rule LongKings=0", King('b'), "moves"}, "51 77 0 1064 50\n"},
        {"special_generator_ignored", {King('b'), "moves special"}, "51 77 0 1064 50\n"},
        {"plain_moves_beside_captures", {King('b'), "generate 0"}, "51 77 0 1064 50\n"},
        {"plain_moves_left_out", {King('b'), "generate 1 special"}, "51 40 0 - 0\n51 38 0 - 0\n51 77 0 1064 50\n"},
        {"optional_captures_forgotten",
         {"rule CapRequired=0", EmptyBoard.substr(0, 6) + "1" + Zeros(99) + " w", "generate 0"},
         "25 38 0 - 0\n"},
        {"blocked_side_has_a_move", {EmptyBoard, "exists 1"}, "exists 0\n"},
        {"captures_only_finds_plain_moves", {"exists 0"}, "exists 0\n"},
        {"leaves_of_a_blocked_side", {EmptyBoard, "perft 3"}, "nodes 0\n"},
        {"play_does_not_play",
         {"moves", "play 0", "show"},
         "board 1010101010010101010110101010100001010101100000000000000000002020202020020202020220202020200202020202"
         " b\nspecial 3\nmaterial 0 4000\nhand 0 0\n"},
        {"undo_leaves_the_move",
         {"moves", "play 3", "moves", "play 1", "undo", "undo", "show"},
         "board " + Start + " w\nspecial 3\nmaterial 0 4000\nhand 0 0\n"},
        {"moves_not_asked_again_are_stale", {"moves", "play 0", "undo", "moves", "play 0", "undo"}, ""},
        {"search_lays_other_records_under_play", {"moves", "search SearchGerman 3", "play 0", "undo"}, ""},
        {"evaluation_has_noise", {"eval german"}, "score 10 lost 0 nolegal 0\n"},
        {"lost_side_not_told",
         {EmptyBoard.substr(0, 6) + "2" + Zeros(99) + " w", "eval generic"},
         "score 1914 lost 1 nolegal 0\n"},
        {"window_not_used", {King('w'), "set LazyMargin 0", "eval generic -10 10"}, "score 200 lost 0 nolegal 0\n"},
        {"depth_by_plys_ignored", {"set Plys 1", "search SearchGerman 1"}, "score 29 nodes 10\nline 68-79\n"},
        {"check_reads_other_rules",
         {"rule CapReverse=1", "rule Setup=" + Zeros(100), "check " + Variants + "Fox and Hounds 10x10.ini"},
         ""},
        {"check_reads_another_start",
         {"rule Setup=1" + Zeros(99), "check"},
         "warning Setup|Black has no piece on the board at the start: the game is over before it begins.\n"},
        {"blocked_root_thinks", {EmptyBoard, "think 4"}, ""},
    };
    for (const TalkRow& R : Rows) {
        Console Probe(ZONTERBROOK_DATA_DIR);
        EXPECT_EQ(R.Answer + "ok\n", Ask(Probe, R.Commands)) << R.Fault;
    }
}

TEST(Console, RefusesAndChangesNothing) {
    const TalkRow Rows[] = {
        {"empty_line", {""}, "'' is no command"},
        {"check_of_nothing", {"check nowhere.ini"}, "the file can't be read"},
        {"unknown_word", {"castle"}, "'castle' is no command"},
        {"command_in_capitals", {"SHOW"}, "'SHOW' is no command"},
        {"bytes_that_are_no_text", {"\xFF\x80"}, "'\xFF\x80' is no command"},
        {"show_with_argument", {"show all"}, "too many arguments"},
        {"rule_without_value", {"rule MaxCapMove"}, "a rule is set by <Key>=<value>"},
        {"unknown_key_set", {"rule MaxCap=1"}, "'MaxCap' is no rule"},
        {"key_in_another_case_set", {"rule maxcapmove=0"}, "'maxcapmove' is no rule"},
        {"byte_wraps", {"rule MaxCapMove=256"}, "value 256 does not fit its field"},
        {"byte_takes_negative", {"rule NumberMen=-1"}, "value -1 does not fit its field"},
        {"wide_rule_wraps", {"rule NumberPieces=2147483648"}, "value 2147483648 does not fit its field"},
        {"movement_overflows", {"rule WhiteManMovement=" + std::string(128, 'N')}, "value 128 does not fit its field"},
        {"short_setup", {"rule Setup=12"}, "a start position has a hundred digits, 0 to 4"},
        {"board_without_side", {"board " + Start}, "too few arguments"},
        {"board_of_101", {"board " + Zeros(101) + " w"}, "a position has a hundred digits, 0 to 4"},
        {"third_side", {"board " + Start + " W"}, "the side to move is w or b"},
        {"third_generator", {"moves fast"}, "'fast' is no generator"},
        {"generate_without_number", {"generate"}, "too few arguments"},
        {"number_with_a_tail", {"perft 3x"}, "'3x' is no number"},
        {"number_too_large", {"perft 99999999999999999999"}, "'99999999999999999999' is no number"},
        {"too_deep_perft", {"perft 101"}, "101 is not within 0 to 100"},
        {"play_unasked", {"play 0"}, "ask for the moves of this position first"},
        {"play_after_another_board",
         {"moves", "board " + Start + " w", "play 0"},
         "ask for the moves of this position first"},
        {"play_after_a_play", {"moves", "play 0", "play 0"}, "ask for the moves of this position first"},
        {"play_after_a_rule", {"moves", "rule CapRequired=0", "play 0"}, "ask for the moves of this position first"},
        {"play_beyond_the_list", {"moves", "play 9"}, "9 is not within 0 to 8"},
        {"play_below_the_list", {"moves", "play -1"}, "-1 is not within 0 to 8"},
        {"play_of_nothing", {"board " + Zeros(100) + " w", "moves", "play 0"}, "there is no move"},
        {"undo_at_the_start", {"undo"}, "no move has been played"},
        {"undo_across_a_board", {"moves", "play 0", "board " + Start + " w", "undo"}, "no move has been played"},
        {"unknown_evaluator", {"eval french"}, "'french' is no evaluator"},
        {"half_a_window", {"eval german 5"}, "an evaluator and no window, or both its bounds"},
        {"unknown_setting", {"set Noise 5"}, "'Noise' is no setting"},
        {"setting_wraps", {"set Plys 256"}, "value 256 does not fit its field"},
        {"setting_without_value", {"set Plys"}, "too few arguments"},
        {"unknown_routine", {"search SearchFrench 3"}, "'SearchFrench' is no search routine"},
        {"search_without_depth", {"search SearchPlain"}, "a routine, a depth, and no window or both its bounds"},
        {"search_beyond_the_plies", {"search SearchPlain 101"}, "101 is not within -100 to 100"},
        {"search_window_beyond_its_bounds", {"search SearchPlain 2 -40000 0"}, "-40000 is not within -32000 to 32000"},
        {"think_of_nothing", {"think 0"}, "0 is not within 1 to 100"},
        {"quit_with_argument", {"quit now"}, "too many arguments"},
    };
    for (const TalkRow& R : Rows) {
        Console Probe(ZONTERBROOK_DATA_DIR);
        Ask(Probe, {R.Commands.begin(), R.Commands.end() - 1});
        const auto Kept = [&] { return Ask(Probe, {"show"}) + Ask(Probe, {"key WhiteManMovement"}); };
        const std::string Before = Kept();
        EXPECT_EQ("error: " + R.Answer + "\n", Probe.Execute(R.Commands.back())) << R.Fault;
        EXPECT_EQ(Before, Kept()) << R.Fault;
    }
}

TEST(Console, PlaysAWholeGame) {
    const auto Folder = std::filesystem::path(testing::TempDir()) / ("console_" + std::to_string(getpid()));
    std::filesystem::create_directories(Folder);
    const std::string Game = (Folder / "game.qvm").string();
    Console Probe(ZONTERBROOK_DATA_DIR);
    EXPECT_EQ("message Error|Illegal move\nrefused\nok\n", Probe.Execute("enter a1-a2"));
    EXPECT_EQ("ok\n", Probe.Execute("enter d4-e5"));
    EXPECT_TRUE(Probe.Execute("compute 4").ends_with("\nmove c7d6\nok\n"));
    EXPECT_EQ("ok\n", Probe.Execute("save " + Game));
    EXPECT_EQ("error: /no/where.qvm can't be written: No such file or directory\n",
              Probe.Execute("save /no/where.qvm"));
    EXPECT_EQ("ok\n", Probe.Execute("step 1"));
    EXPECT_TRUE(Probe.Execute("game").ends_with(" w\n1 d4e5 d4-e5\n2 c7d6 c7-d6\nok\n"));
    EXPECT_EQ("game 1 ok plies 2 result * variant International Checkers fen no comments 0\nok\n",
              Probe.Execute("replay " + Game));
    Probe.Execute("moves");
    Probe.Execute("play 0");
    EXPECT_EQ("error: undo what was played first\n", Probe.Execute("game"));
    Probe.Execute("board 1" + std::string(98, '0') + "2 b");
    EXPECT_TRUE(Probe.Execute("game").ends_with("2 b\nok\n")) << "begins from there";
    EXPECT_TRUE(Probe.Execute("settings " + Game).starts_with("default\n 0 \n 1 \n"));
    std::filesystem::remove_all(Folder);
}

TEST(Console, AFaultInAGeneratorPutsEverythingBack) {
    // A Black king behind one of its own that it may jump: that has always been a fault.
    Console Probe(ZONTERBROOK_DATA_DIR);
    const std::string Position = "board 1" + Zeros(43) + "4" + Zeros(10) + "4" + Zeros(44) + " b";
    ASSERT_EQ("ok\n", Ask(Probe, {"rule JumpFriend=1", "rule NumberFriends=1", "rule LongKings=0", Position}));
    const std::string Shown = Probe.Execute("show");
    for (const char* Command : {"moves", "generate 1", "perft 2", "think 2", "search SearchPlain 2"}) {
        EXPECT_EQ("error: fault in GenerateMoves\n", Probe.Execute(Command)) << Command;
        EXPECT_EQ(Shown, Probe.Execute("show")) << Command;
    }
    // A move deeper, with a move made when it comes.
    const std::string Deeper = Position.substr(0, Position.size() - 1) + "w";
    Probe.Execute(Deeper);
    EXPECT_EQ("error: fault in GenerateMoves\n", Probe.Execute("perft 2"));
    EXPECT_TRUE(Probe.Execute("show").starts_with(Deeper)) << "move_left_on_the_board";
    Probe.Execute(Position);
    // The test for a move meets it only if nothing before it is a move: the king can step one way alone.
    EXPECT_EQ("error: fault in GenerateMoves1\n", Ask(Probe, {"rule BlackKingMovement=SW", "exists 1"}));
}

TEST(Console, VariantFilesThatCannotBeRead) {
    namespace fs = std::filesystem;
    const fs::path File = fs::path(testing::TempDir()) / "zonterbrook_console_test.ini";
    constexpr std::tuple<const char*, const char*, bool> Rows[] = {
        {"good_file_refused", "A title\nMaxCapMove=0\nEND\n", true},
        {"byte_of_a_file_wraps", "A title\nMaxCapMove=300\nEND\n", false},
    };
    for (const auto& [Fault, Text, Reads] : Rows) {
        Console Probe(ZONTERBROOK_DATA_DIR);
        std::ofstream(File, std::ios::binary) << Text;
        const std::string Answer = Probe.Execute("variant " + File.string());
        EXPECT_EQ(Reads ? "ok\n" : "error: ", Answer.substr(0, Reads ? 3 : 7)) << Fault << ": " << Answer;
        EXPECT_EQ(Reads ? "MaxCapMove=0\nok\n" : "MaxCapMove=1\nok\n", Probe.Execute("key MaxCapMove")) << Fault;
    }
    fs::remove(File);
    Console Probe(ZONTERBROOK_DATA_DIR);
    EXPECT_TRUE(Probe.Execute("variant " + File.string()).starts_with("error: ")) << "missing_file_read";
    EXPECT_TRUE(Probe.Execute("variant " + Variants).starts_with("error: ")) << "folder_read";
}

TEST(Console, AnnotatesGameByGameAndGoesOnWhereItStopped) {
    namespace fs = std::filesystem;
    const fs::path Folder = fs::path(testing::TempDir()) / "zonterbrook annotate";
    fs::create_directories(Folder);
    const fs::path In = Folder / "my games.pdn";
    const fs::path Out = Folder / "out.pdn";
    const std::string Game = "[Event \"A\"]\n\n1. 32-28 18-23 2. 37-32 {mine} *\n\n";
    const std::string Command = "annotate " + In.string() + " 2 " + Out.string();
    fs::remove(Out);
    std::ofstream(In) << Game;
    Console Probe(ZONTERBROOK_DATA_DIR);
    EXPECT_EQ("game 1\nok\n", Probe.Execute(Command));
    const std::string Other = "[Event \"B\"]\n\n1. d4-e5 e7-f6 *\n\n";
    std::ofstream(In) << Game << Other << Game << Other;
    EXPECT_EQ("game 2\ngame 3\ngame 4\nok\n", Probe.Execute(Command));
    EXPECT_EQ("ok\n", Probe.Execute(Command));
    EXPECT_TRUE(Probe.Execute("replay " + Out.string() + " 2").starts_with("game 2 ok plies 2 result *"));
    EXPECT_TRUE(Probe.Execute("replay " + Out.string() + " 3").starts_with("game 3 ok plies 3 result *"));
    EXPECT_TRUE(std::regex_search(Probe.Execute("game"), std::regex("\n1 d4e5 d4-e5 \\{\\[-?\\d+: .*\\]\\}\n")));
    EXPECT_TRUE(Probe.Execute("annotate x 3").starts_with("error: "));
    std::ofstream(In) << Game << Other << Game << Other << Other
                      << "[Event \"C\"]\n[FEN \"W:Wz1:B1\"]\n\n1. 32-28 *\n\n";
    EXPECT_EQ("error: game 6 can't be laid on the board\n", Probe.Execute(Command));
    EXPECT_TRUE(Probe.Execute("replay " + Out.string() + " 5").starts_with("game 5 ok plies 2 result *"));
    fs::remove_all(Folder);
}

TEST(Console, ThinksDepthByDepth) {
    Console Probe(ZONTERBROOK_DATA_DIR);
    const std::string Once = Probe.Execute("think 5");
    EXPECT_EQ(6, std::count(Once.begin(), Once.end(), '\n'));
    EXPECT_TRUE(std::regex_search(Once, std::regex("^depth 1 score -?\\d+ best \\d+-\\d+ nodes 12\n"))) << Once;
    EXPECT_EQ(Once, Probe.Execute("think 5")) << "killers_or_main_line_left_from_the_search_before";
    EXPECT_EQ("board " + Start + " w\nspecial 3\nmaterial 0 4000\nhand 0 0\nok\n", Probe.Execute("show"));
}

TEST(Console, BenchLeavesTheGameAloneAndQuitEnds) {
    Console Probe(ZONTERBROOK_DATA_DIR);
    Probe.Execute("rule CapRequired=0");
    const std::string Answer = Probe.Execute("bench");
    // The fingerprint of the search: a commit that changes it says so and why.
    EXPECT_TRUE(std::regex_match(Answer, std::regex("bench nodes 3724806 nps \\d+\nok\n"))) << Answer;
    EXPECT_EQ("CapRequired=0\nok\n", Probe.Execute("key CapRequired")) << "bench_touches_the_game";
    EXPECT_EQ("ok\n", Probe.Execute("  quit\t"));
    EXPECT_TRUE(Probe.HasQuit());
}

} // namespace
} // namespace zonterbrook::probe
