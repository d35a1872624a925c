// Reading PDN: lines of tags, which text belongs to which game, the half-moves of a game, the list of a file's games.

#include "base/fault.h"
#include "formats/pdn_index.h"
#include "formats/pdn_move.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <string>
#include <vector>

namespace zonterbrook::formats {
namespace {

namespace fs = std::filesystem;

/// "b: 32-28 {c}19-23 =2-0 {last}" for a game with the event b; "..." where it begins with the second half-move.
std::string Summary(const PdnGame& Game) {
    std::string Text = Game.Tags.Event + ":" + (Game.BeginsWithSecond ? " ..." : "");
    const auto Comment = [](const std::string& C) { return C.empty() ? C : "{" + C + "}"; };
    for (const PdnHalfMove& Move : Game.Moves) {
        Text += " " + Comment(Move.Comment) + Move.Text;
    }
    Text += Game.Result.empty() ? "" : " =" + Game.Result;
    return Text + (Game.LastComment.empty() ? "" : " " + Comment(Game.LastComment));
}

/// The games of a text that is fed in pieces, each read from its own bytes.
std::string SummaryOfAll(std::string_view Text, std::size_t PieceSize) {
    PdnFinder Finder;
    std::string All;
    do {
        while (Finder.Position() < Text.size()) {
            Finder.Feed(Text.substr(Finder.Position(), PieceSize));
        }
    } while (!Finder.Finish());
    for (const PdnPlace& Place : Finder.Take()) {
        const auto Game = ReadPdnGame(Text.substr(Place.Offset, Place.End - Place.Offset));
        EXPECT_TRUE(Game.Document) << Text;
        All += (All.empty() ? "" : " / ") + (Game.Document ? Summary(*Game.Document) : "unread");
    }
    return All;
}

// --- lines of tags ---------------------------------------------------------------------------------------

const struct {
    const char* Name; ///< the fault that the row would catch
    std::string Line;
    std::string PdnTags::*Field;
    std::string Expected;
    std::string Rest; ///< what is no tag
} TagRows[] = {
    {"second_name", R"([Year "1998"])", &PdnTags::Date, "1998", ""},
    {"case_of_names", R"([event "x"])", &PdnTags::Event, "", ""},
    {"name_is_a_prefix", R"([BlackElo "1500"])", &PdnTags::Black, "", ""},
    {"blanks", "\xEF\xBB\xBF\t [ Event  \" x \" ] ", &PdnTags::Event, " x ", ""},
    {"several_on_a_line", R"([Event "x"][Site "y"] [Round "3"])", &PdnTags::Round, "3", ""},
    {"moves_behind", R"([Event "x"] 1. 32-28 {see "this"]})", &PdnTags::Event, "x", R"(1. 32-28 {see "this"]})"},
    {"escaped_quote", R"([Event "a \"b\"] c"])", &PdnTags::Event, R"(a "b"] c)", ""},
    {"bare_quotes", R"([Event "a "b"] c"])", &PdnTags::Event, R"(a "b"] c)", ""},
    {"path", R"([Site "C:\new\"])", &PdnTags::Site, R"(C:\new\)", ""},
    {"doubled_backslash", R"([Site "a\\"])", &PdnTags::Site, R"(a\)", ""},
    {"no_bracket", R"([Event "x")", &PdnTags::Event, "x", ""},
    {"no_quote", R"([Event "x])", &PdnTags::Event, "x", ""},
    {"no_quotes_at_all", R"([Event x])", &PdnTags::Event, "", ""},
    {"result_stands_at_first", "", &PdnTags::Result, "*", ""},
};

TEST(PdnTags, AreReadFromALine) {
    for (const auto& R : TagRows) {
        PdnTags Tags;
        const std::size_t Rest = ReadPdnTags(R.Line, Tags);
        EXPECT_EQ(R.Expected, Tags.*R.Field) << R.Name;
        EXPECT_EQ(R.Rest, R.Line.substr(Rest)) << R.Name;
    }
}

TEST(PdnTags, MakeAPdnFileAsMovesDo) {
    for (const char* Text : {"", "\r\n \n", "[Foo \"x\"]", "\n [ Event \"x", "; made by\n% it\n{some\nthing}[A \"\"]",
                             "1. 32-28", "1.{c} 3-4", "12. ...", "c3-d4", "*", "\xEF\xBB\xBF[Event \"x\"]"}) {
        EXPECT_TRUE(BeginsPdn(Text)) << Text;
    }
    for (const char* Text : {"QUAVERMILL Version=0.89", "[\"json\"]", "[section]\nkey=1", "1. Introduction", "<html>",
                             "; comment\nDear all", "e4"}) {
        EXPECT_FALSE(BeginsPdn(Text)) << Text;
    }
}

// --- games and their half-moves --------------------------------------------------------------------------

const struct {
    const char* Name;
    std::string Text, Expected;
} GameRows[] = {
    // Which text belongs to which game
    {"nothing", "", ""},
    {"tags_alone", "[Event \"a\"]\n\n", ""},
    {"two_games", "[Event \"a\"]\n\n1. 1-7 *\n\n[Event \"b\"]\n\n1. 2-8 *\n", "a: 1-7 =* / b: 2-8 =*"},
    {"no_empty_lines", "[Event \"a\"]\n1-7 *\n[Event \"b\"]\n2-8 *", "a: 1-7 =* / b: 2-8 =*"},
    {"no_tags", "\n1. 1-7 7-12 1-0\n", ": 1-7 7-12 =1-0"},
    {"tags_leak", "[Event \"a\"]\n\n[White \"x\"]\n[Event \"\"]\n\n1-7 *\n", ": 1-7 =*"},
    {"tags_in_two_blocks", "[Event \"a\"]\n\n[White \"x\"]\n\n1-7 *\n", "a: 1-7 =*"},
    {"tags_and_moves_in_a_line", "[Event \"a\"] [Site \"\"] {c} 1-7 {\n} *\n", "a: {c}1-7 =* {\n}"},
    {"broken_tag_is_no_move", "[Event \"a\"]\n[Site x]\n1-7 *\n\n[Site x]\n[Event \"b\"]\n2-8 *",
     "a: 1-7 =* / b: 2-8 =*"},
    {"bracket_is_no_tag", "[Event \"a\"]\n\n1-7\n[+] 2-8 *\n", "a: 1-7 [+] 2-8 =*"},
    {"remark_behind", "[Event \"a\"]\n\n1-7 *\n\nsome words\n\n[Event \"b\"]\n\n2-8", "a: 1-7 =* / b: 2-8"},
    {"comments_in_front", "; by hand\n{x}\n[Event \"a\"]\n; c\n[Site \"\"]\n\n1-7", "a: 1-7"},
    {"comment_is_all", "[Event \"a\"]\n\n{not played}\n\n[Event \"b\"]\n\n; lost\n", "a: {not played} / b: {lost}"},
    {"escape_lines", "%x\n[Event \"a\"]\n% [Event \"b\"]\n\n1-7\n% {2-8\n3-9", "a: 1-7 3-9"},
    {"character_0", std::string("[Event \"a\"]\0\"]\n\0\n1-7\0 2-8 {\n3-9", 32), "a: 1-7 3-9"},
    {"mark_in_the_middle", "1-7 *\n\xEF\xBB\xBF[Event \"b\"]\n2-8", ": 1-7 =* / b: 2-8"},
    // Comments
    {"comment_hides_all", "1. {a;b (\n%c\n[d \"e\"]\n\n} 1-7 ;x {\n2-8", ": {a;b (\n%c\n[d \"e\"]\n\n}1-7 {x {}2-8"},
    {"comments_in_a_run", "1. {a}{b}\n;c\n1-7{d}2-8{}", ": {a\nb\nc}1-7 {d}2-8"},
    {"unclosed_brace", "1-7 {a 2-8\n3-9\n\n[Event \"b\"]\n\n{c} 1-7", ": 1-7 {a 2-8}3-9 / b: {c}1-7"},
    {"unclosed_without_empty_line", "1-7 {a\n[Event \"b\"]\n[Site \"\"]\n{c} 1-7", ": 1-7 {a} / b: {c}1-7"},
    {"unclosed_at_the_end", "1-7 {a\n2-8 {b\n3-9 {c", ": 1-7 {a}2-8 {b}3-9 {c}"},
    {"latin_1", "{Fri\xEBs} 1-7", ": {Fri\xC3\xABs}1-7"},
    // Half-moves
    {"numbers", "1.1-7 2-8 2 . 3-9\n3-10 5-11 4... 6-12 1234", ": 1-7 2-8 3-9 3-10 5-11 6-12 1234"},
    {"second_begins", "{c} 1. ... 1-7 2. 2-8 2... 3-9", ": ... {c}1-7 2-8 3-9"},
    {"second_begins_at_once", "12...1-7", ": ... 1-7"},
    {"variations", "1-7 (1. 2-8 {)} (3-9 ;)\n) $2) 4-10 ((5-11) 6-12 7-13", ": 1-7 4-10 6-12 7-13"},
    {"escape_line_in_a_variation", "1-7 (2-8\n% {\n) 2-8 (\n%)\n3-9", ": 1-7 2-8 3-9"},
    {"marks", "1-7! 2-8 ?! $12 3-9$1!? 4-10* !", ": 1-7 2-8 3-9 4-10"},
    {"closed_up", "32- 28 19 -23 28 x\n19 14x 23 x 32", ": 32-28 19-23 28x19 14x23x32"},
    {"empty_line_ends", "1-7\n \n2-8", ": 1-7"},
    {"empty_line_before_moves", "{c}\n\n1. 1-7\n\n2. 2-8\n\n1-0\n\n3. 3-9", ": {c}1-7 2-8 =1-0"},
    {"no_tags_and_a_new_game", "1. 1-7\n\n1. 2-8", ": 1-7"},
    // Results
    {"results", "1-7 1/2-1/2 {c}\n3-9", ": 1-7 =1/2-1/2 {c}"},
    {"result_with_blanks", "1-7 {c} 2 - 0", ": 1-7 =2-0 {c}"},
    {"last_is_a_move", "1-7 {c} 2-8", ": 1-7 {c}2-8"},
    {"last_is_the_result_tag", "[Result \"2-3\"]\n1-7 2-3", ": 1-7 =2-3"},
    {"last_is_no_move", "1-7 {c} resigns {d}", ": 1-7 =resigns {c\nd}"},
    {"off_the_board", "1-7 61-56", ": 1-7 61-56"},
};

TEST(PdnGames, AreFoundAndReadWhateverTheirLineEndsAndBlocks) {
    for (const auto& R : GameRows) {
        for (const char* LineEnd : {"\n", "\r", "\r\n"}) {
            const std::string Text = std::regex_replace(R.Text, std::regex("\n"), LineEnd);
            EXPECT_EQ(R.Expected, SummaryOfAll(Text, Text.size() + 1)) << R.Name;
            EXPECT_EQ(R.Expected, SummaryOfAll(Text, 1)) << R.Name << ", byte by byte";
        }
    }
    EXPECT_EQ(5, ReadPdnGame("{a}1-7{b}{c}2-8;d\n(2-8{e}) {f}").Document->Comments);
    EXPECT_FALSE(ReadPdnGame("[Event \"a\"]").Document);
}

// Each of these takes hours if any part of it is looked through again for each sign.
TEST(PdnGames, AreReadInOnePassHoweverTheyAreMade) {
    for (const char* Piece : {"(", "{\n", "[", "[a \"", "[a \"b\"]\n", "(\n", "{[a \"b\"]\n", "\\\"", "1.", "x ", ")",
                              "{;(", "- \n", "1\n\n", "\" ", "[a \"b\"] {\n\n", "2."}) {
        std::string Text = "1. 1-7 ";
        while (Text.size() < 1'000'000) {
            Text += Piece;
        }
        SCOPED_TRACE(Piece);
        SummaryOfAll(Text, 1 << 16);
        SummaryOfAll("[A \"" + Text, 1 << 16);
        BeginsPdn(Text);
    }
}

TEST(PdnGames, OfAnyBytesAreReadOrRefused) {
    std::mt19937 Random(9);
    const std::string Signs = std::string("\0\r\n\n[]\"\"\\{}{}();%. -x:*$!?KaB1234567890\xEB\xC3", 41);
    for (int Round = 0; Round < 3000; ++Round) {
        std::string Text = GameRows[Random() % std::size(GameRows)].Text + "\n\n[Event \"b\"]\n1-7 {c} 2-8 *\n";
        for (int Changes = static_cast<int>(Random() % 8); Changes >= 0; --Changes) {
            const std::size_t At = Random() % Text.size();
            Text.replace(At, Random() % 3, std::string(Random() % 3, Signs[Random() % Signs.size()]));
        }
        // What is found does not depend on how the text was cut.
        EXPECT_EQ(SummaryOfAll(Text, Text.size() + 1), SummaryOfAll(Text, 1 + Random() % 7)) << Text;
    }
}

TEST(PdnMoves, AreTakenApart) {
    const struct {
        const char *Text, *Expected;
        char Separator;
    } Rows[] = {{"32-28", "32 28", '-'},
                {"5-14-23", "5 14 23", '-'},
                {"32:23X14x5", "32 23 14 5", ':'},
                {"05-10K", "5 10", '-'},
                {"a9-b10", "A9 B0", '-'},
                {"c3d4", "C3 D4", 0},
                {"c3e5g7", "C3 E5 G7", 0},
                {"3228", "32 28", 0},
                {"D4", "D4", 0},
                {"d4k", "D4", 0},
                {"32\xE2\x80\x93"
                 "28",
                 "32 28", '-'},
                {"32\xC3\x97"
                 "28",
                 "32 28", 'x'},
                {"32-28foo", "32 28", '-'},
                {"1x1", "1 1", 'x'},
                {"", nullptr, 0},
                {"1-0", nullptr, 0},
                {"k3-d4", nullptr, 0},
                {"c3-28", nullptr, 0},
                {"32-28-foo", nullptr, 0},
                {"320-28", nullptr, 0},
                {"328", nullptr, 0},
                {"b4ready", nullptr, 0},
                {"...", nullptr, 0}};
    for (const auto& R : Rows) {
        const auto Parts = SplitPdnMove(R.Text);
        ASSERT_EQ(R.Expected != nullptr, Parts.has_value()) << R.Text;
        if (Parts) {
            std::string Squares;
            for (const std::string& Square : Parts->Squares) {
                Squares += (Squares.empty() ? "" : " ") + Square;
            }
            EXPECT_EQ(R.Expected, Squares) << R.Text;
            EXPECT_EQ(R.Separator, Parts->Separator) << R.Text;
        }
    }
    EXPECT_EQ(" 523", RawPdnMove(*SplitPdnMove("5x14x23")));
    EXPECT_EQ("D4", RawPdnMove(*SplitPdnMove("d4")));
    EXPECT_EQ("32x23x14", JoinPdnMove({"32", "23", "14"}, 'x'));
}

// --- the list of a file ----------------------------------------------------------------------------------

class PdnFile : public testing::Test {
protected:
    void SetUp() override {
        const auto* Info = testing::UnitTest::GetInstance()->current_test_info();
        File = fs::path(testing::TempDir()) / (std::string("zonterbrook_") + Info->name() + ".pdn");
        fs::remove_all(File);
    }
    void TearDown() override { fs::remove_all(File); }

    void Write(const std::string& Text) const { std::ofstream(File, std::ios::binary) << Text; }
    static void ScanAll(PdnIndex& Index, std::size_t Slice) {
        while (Index.Scan(Slice)) {
        }
    }

    fs::path File;
};

TEST_F(PdnFile, IsListedInSlicesAndReadFromTheList) {
    std::string Text = "\xEF\xBB\xBF";
    for (int Game = 0; Game < 40; ++Game) {
        const std::string Number = std::to_string(Game);
        Text += "[Event \"Cup\"]\r\n[Round \"" + Number + "\"]\r\n[White \"J\xFCrgen\"]\r\n[Black \"" +
                std::string(300, 'b') + "\"]\r\n\r\n1. 1-7 {" + std::string(1000, 'x') + "\r\n2-8 {" + Number +
                "} 3-9 *\r\n\r\n";
    }
    Write(Text);
    EXPECT_TRUE(*IsPdnFile(File).Document);
    PdnIndex Index(File);
    EXPECT_TRUE(Index.Scan(2000));
    EXPECT_EQ(1u, Index.Count());
    EXPECT_LT(Index.Scanned(), Index.Size());
    ScanAll(Index, 777);
    ASSERT_TRUE(Index.IsDone()) << Index.Error().Text();
    ASSERT_EQ(40u, Index.Count());
    EXPECT_EQ("Cup 39", Index.Column(39, PdnColumn::Event));
    EXPECT_EQ("J\xC3\xBCrgen", Index.Column(39, PdnColumn::White));
    EXPECT_EQ(std::string(PdnIndex::LongestColumn, 'b'), Index.Column(39, PdnColumn::Black));
    EXPECT_EQ("", Index.Column(39, PdnColumn::WhiteElo));
    const PdnGame Game = *Index.Read(17).Document;
    EXPECT_EQ("17", Game.Tags.Round);
    EXPECT_EQ(2u, Game.Moves.size());
    EXPECT_THROW(static_cast<void>(Index.Read(40)), base::Fault);
}

TEST_F(PdnFile, ThatChangesIsNoLongerRead) {
    const std::string Text = "[Event \"a\"]\n\n1-7 *\n\n[Event \"b\"]\n\n2-8 *\n";
    const struct {
        const char* Name;
        std::string NewText;
        const char* Error;
    } Rows[] = {{"grown", Text + "\n", "the file has changed since its games were listed"},
                {"shrunk", "[Ev", "the file has changed since its games were listed"},
                {"gone", "", "the file can't be read"}};
    for (const auto& R : Rows) {
        Write(Text);
        PdnIndex Listed(File);
        PdnIndex Begun(File);
        ScanAll(Listed, 1000);
        Begun.Scan(5);
        ASSERT_EQ("b", Listed.Read(1).Document->Tags.Event);
        if (R.NewText.empty()) {
            fs::remove(File);
        } else {
            Write(R.NewText);
        }
        EXPECT_EQ(R.Error, Listed.Read(1).Error.Text()) << R.Name;
        EXPECT_FALSE(Begun.Scan(1000)) << R.Name;
        EXPECT_EQ(R.Error, Begun.Error().Text()) << R.Name;
    }
    fs::create_directory(File);
    EXPECT_FALSE(IsPdnFile(File).Document);
}

} // namespace
} // namespace zonterbrook::formats
