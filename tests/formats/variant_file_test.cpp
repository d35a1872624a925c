// The reader of variant files on texts made for it, and the finding and listing of files in a folder made for it.

#include "formats/variant_file.h"
#include "rules/position.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zonterbrook::formats {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view OtherSetup =
    "0000000003000000000000000000000000000000000000000000000000000000000000000000000000000000000000400000";
static_assert(OtherSetup.size() == rules::SetupLength);

// --- texts that are read ---------------------------------------------------------------------------------

struct ReadCase {
    const char* Name; ///< the fault that the row would catch
    std::string Text;
    const char* Key; ///< a rule key, or Setup, HelpText, HelpLink, QuickHelpLink of the document
    std::string Expected;
};

std::string FieldText(const VariantDocument& Document, std::string_view Key) {
    return Key == "Setup"           ? Document.Setup
           : Key == "HelpText"      ? Document.HelpText
           : Key == "HelpLink"      ? Document.HelpLink
           : Key == "QuickHelpLink" ? Document.QuickHelpLink
                                    : rules::RuleText(Document.Rules, Key).value_or("no such key");
}

const std::string Default(rules::DefaultSetup);
const std::string Other(OtherSetup);

const ReadCase ReadRows[] = {
    // Lines and keys
    {"first_line_is_no_key", "LongKings=0\nEND\n", "LongKings", "1"},
    {"first_line_is_no_end", "END\nLongKings=0\nEND\n", "LongKings", "0"},
    {"end_of_line_missing_after_end", "x\nLongKings=0\nEND", "LongKings", "0"},
    {"carriage_returns", "x\r\nLongKings=0\r\nEND\r\n", "LongKings", "0"},
    {"carriage_returns_alone", "x\rLongKings=0\rEND\r", "LongKings", "0"},
    {"blank_lines_count_as_lines", "\nLongKings=0\n\nEND\n", "LongKings", "0"},
    {"read_past_end", "x\nEND\nLongKings=0\n", "LongKings", "1"},
    {"end_with_a_blank_is_no_end", "x\nEND \nLongKings=0\nEND\n", "LongKings", "0"},
    {"unknown_lines", "x\nLongKing=7\nsome words\n=5\nLongKings=0\nEND\n", "LongKings", "0"},
    {"case_of_keys", "x\nlongkings=0\nEND\n", "LongKings", "1"},
    {"blank_before_equals", "x\nLongKings =0\nEND\n", "LongKings", "1"},
    {"shorter_key_is_a_prefix", "x\nMaxCapMoveK=0\nEND\n", "MaxCapMove", "1"},
    {"longer_key", "x\nMaxCapMoveK=0\nEND\n", "MaxCapMoveK", "0"},
    // Numbers
    {"digits_and_more", "x\nNumberMen=12 men\nEND\n", "NumberMen", "12"},
    {"highest_narrow_value", "x\nNumberMen=255\nEND\n", "NumberMen", "255"},
    // Set-up
    {"setup_normal", "x\nSetup=normal\nEND\n", "Setup", ""},
    {"setup_normal_keeps_an_earlier_text", "x\nSetup=" + Other + "\nSetup=normal\nEND\n", "Setup", Other},
    {"setup_with_more_behind", "x\nSetup=" + Other + "  mine\nEND\n", "Setup", Other},
    {"setup_last_of_two", "x\nSetup=" + Default + "\nSetup=" + Other + "\nEND\n", "Setup", Other},
    // Promotion squares
    {"promotion_leaves_the_other_column", "x\nPromoW=A0C0\nEND\n", "PromoB", "A1C1E1G1I1"},
    {"promotion_unknown_square_keeps_its_row", "x\nPromoW=A0K5C0\nEND\n", "PromoW", "A0--C0"},
    // Movements
    {"movement_of_black_kings", "x\nBlackKingMovement=N E\nEND\n", "BlackKingMovement", "N E"},
    // Help
    {"help_lines_join", "x\nHelp=one\nHelp=two\nEND\n", "HelpText", "onetwo"},
    {"help_keeps_blanks", "x\nHelp=one \nHelp= two\nEND\n", "HelpText", "one  two"},
    {"help_line_break", "x\nHelp=one\nHelp=<br>\nHelp=two\nEND\n", "HelpText", "one\ntwo"},
    {"help_break_only_alone", "x\nHelp=one<br>two\nEND\n", "HelpText", "one<br>two"},
    {"help_with_equals", "x\nHelp=a=b\nEND\n", "HelpText", "a=b"},
    {"help_link", "x\nHelpLink=rules.html\nEND\n", "HelpLink", "rules.html"},
    {"quick_help_link", "x\nQuickHelpLink=quick.html\nEND\n", "QuickHelpLink", "quick.html"}};

TEST(VariantReader, TextGivesValue) {
    for (const ReadCase& R : ReadRows) {
        const auto Result = ReadVariant(R.Text, rules::RuleSetFields{});
        ASSERT_TRUE(Result.Document) << R.Name << ": " << Result.Error.Text();
        EXPECT_EQ(R.Expected, FieldText(*Result.Document, R.Key)) << R.Name;
    }
}

TEST(VariantReader, KeepsTheRulesBeforeForKeysThatAreAbsent) {
    rules::RuleSetFields Before;
    Before.LongKings = 0;
    Before.NumberFriends = -1;
    Before.PromotionSquares[0][1] = 99;
    Before.MovementStrings[3].Assign("S S");
    rules::RuleSetFields Expected = Before;
    Expected.MaxCapMove = 0;
    const auto Result = ReadVariant("x\nMaxCapMove=0\nEND\n", Before);
    ASSERT_TRUE(Result.Document);
    EXPECT_EQ(Expected, Result.Document->Rules);
}

// --- texts that are refused ------------------------------------------------------------------------------

const std::string NoEnd = "the file ends without the line END";
const std::string BadSetup = "line 2: Setup= needs a hundred digits from 0 to 4, or the word normal";

const struct {
    const char* Name;
    std::string Text, Error;
} RefusedRows[] = {
    {"empty", "", NoEnd},
    {"end_in_first_line_alone", "END\n", "line 1: " + NoEnd},
    {"no_end", "x\r\nLongKings=0\r\n", "line 2: " + NoEnd},
    {"narrow_too_high", "x\nLongKings=0\nNumberMen=256\nEND\n", "line 3: the value of NumberMen= is out of range"},
    {"narrow_below_zero", "x\nLongKings=-1\nEND\n", "line 2: the value of LongKings= is out of range"},
    {"wide_too_low", "x\nTwoKings=-2147483649\nEND\n", "line 2: the value of TwoKings= is out of range"},
    {"beyond_any_number", "x\nTwoKings=99999999999999999999\nEND\n", "line 2: the value of TwoKings= is out of range"},
    {"movement_too_long", "x\nWhiteManMovement=" + std::string(128, 'N') + "\nEND\n",
     "line 2: the value of WhiteManMovement= is out of range"},
    {"setup_short", "x\nSetup=1010\nEND\n", BadSetup},
    {"setup_with_a_five", "x\nSetup=5" + Default.substr(1) + "\nEND\n", BadSetup},
    {"setup_normal_in_capitals", "x\nSetup=Normal\nEND\n", BadSetup}};

TEST(VariantReader, RefusalsNameLineAndFault) {
    for (const auto& R : RefusedRows) {
        const auto Result = ReadVariant(R.Text, rules::RuleSetFields{});
        EXPECT_FALSE(Result.Document) << R.Name;
        EXPECT_EQ(R.Error, Result.Error.Text()) << R.Name;
    }
}

// --- files -----------------------------------------------------------------------------------------------

class VariantFiles : public testing::Test {
protected:
    void SetUp() override {
        const auto* Info = testing::UnitTest::GetInstance()->current_test_info();
        Folder = fs::path(testing::TempDir()) / (std::string("zonterbrook_variants_") + Info->name());
        fs::remove_all(Folder);
        fs::create_directories(Folder);
    }
    void TearDown() override { fs::remove_all(Folder); }

    void Write(const fs::path& Name, std::string_view Content) const {
        fs::create_directories((Folder / Name).parent_path());
        std::ofstream(Folder / Name, std::ios::binary) << Content;
    }

    fs::path Folder;
};

TEST_F(VariantFiles, AreReadUnderTheGivenNameWhateverItsCase) {
    Write("Two Rows.INI", "x\r\nLongKings=0\r\nEND\r\n");
    const auto Result = ReadVariantFile(Folder, "two rows", rules::RuleSetFields{});
    ASSERT_TRUE(Result.Document) << Result.Error.Text();
    EXPECT_EQ("two rows", Result.Document->Name);
    EXPECT_EQ(0, Result.Document->Rules.LongKings);
}

TEST_F(VariantFiles, WithTheExactNameGoBeforeOthers) {
    Write("lanes.ini", "x\nLongKings=2\nEND\n");
    Write("LANES.ini", "x\nLongKings=3\nEND\n");
    Write("Lanes.ini", "x\nLongKings=4\nEND\n");
    const auto Result = ReadVariantFile(Folder, "Lanes", rules::RuleSetFields{});
    ASSERT_TRUE(Result.Document);
    EXPECT_EQ(4, Result.Document->Rules.LongKings);
}

TEST_F(VariantFiles, AreReadAsUtf8AndElseAsLatin1) {
    Write("utf8.ini", "\xEF\xBB\xBFx\nHelp=Fri\xC3\xABs\nEND\n");
    Write("latin1.ini", "x\nHelp=Fri\xEBs\nEND\n");
    for (const char* Name : {"utf8", "latin1"}) {
        const auto Result = ReadVariantFile(Folder, Name, rules::RuleSetFields{});
        ASSERT_TRUE(Result.Document) << Name;
        EXPECT_EQ("Fri\xC3\xABs", Result.Document->HelpText) << Name;
    }
}

TEST_F(VariantFiles, ThatAreNotThereOrNoFilesAreRefused) {
    Write("inner/secret.ini", "x\nEND\n");
    fs::create_directories(Folder / "folder.ini");
    for (const char* Name : {"missing", "folder", "inner/secret", "inner\\secret", "..", ""}) {
        const auto Result = ReadVariantFile(Folder, Name, rules::RuleSetFields{});
        EXPECT_FALSE(Result.Document) << Name;
        EXPECT_FALSE(Result.Error.Sentence.empty()) << Name;
        EXPECT_EQ(0, Result.Error.Line) << Name;
    }
}

TEST_F(VariantFiles, AreListedByNameWithoutTheirExtension) {
    for (const char* Name : {"beta.ini", "Alpha.ini", "Gamma 10x10.INI", "notes.txt", "ini", "alphabet.ini"}) {
        Write(Name, "");
    }
    fs::create_directories(Folder / "folder.ini");
    EXPECT_EQ((std::vector<std::string>{"Alpha", "alphabet", "beta", "Gamma 10x10"}), ListVariants(Folder));
    EXPECT_TRUE(ListVariants(Folder / "none").empty());
}

TEST_F(VariantFiles, StandInTwoFoldersFoundWhateverTheirCase) {
    Write("Variants/UserVariants/mine.ini", "");
    Write("Variants/theirs.ini", "");
    EXPECT_EQ((std::vector<std::string>{"theirs"}), ListVariants(VariantFolder(Folder, false)));
    EXPECT_EQ((std::vector<std::string>{"mine"}), ListVariants(VariantFolder(Folder, true)));
}

TEST_F(VariantFiles, AreNotFoundOutsideTheFolder) {
    Write("inner/near.ini", "");
    EXPECT_TRUE(FindFile(Folder, "INNER\\near.ini"));
    EXPECT_FALSE(FindFile(Folder / "inner", "../inner/near.ini"));
}

TEST(VariantDisplayName, LeavesTheBoardSizeAway) {
    EXPECT_EQ("Dameo", VariantDisplayName("Dameo 10x10"));
    EXPECT_EQ("Dameo", VariantDisplayName("Dameo 10X10"));
    EXPECT_EQ("Dameo 10x10 ", VariantDisplayName("Dameo 10x10 "));
    EXPECT_EQ("", VariantDisplayName(" 10x10"));
}

} // namespace
} // namespace zonterbrook::formats
