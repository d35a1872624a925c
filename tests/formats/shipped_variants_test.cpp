// Every variant that comes with the program, read as the program reads it: whole, in the usual order, and playable.
// What the moves of each are is held elsewhere; here stands what its text promises.

#include "formats/variant_file.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/rule_check.h"
#include "rules/square_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace zonterbrook::formats {
namespace {

namespace fs = std::filesystem;

const fs::path& Folder() {
    static const fs::path Path = fs::path(ZONTERBROOK_DATA_DIR) / "variants";
    return Path;
}

// The lines of a file, which all end with carriage return and line feed; a stray end of line fails the test.
std::vector<std::string> FileLines(const std::string& Name) {
    std::vector<std::string> Lines;
    std::ifstream Stream(Folder() / (Name + ".ini"), std::ios::binary);
    for (std::string Line; std::getline(Stream, Line);) {
        EXPECT_EQ(Line.size() - 1, Line.find('\r')) << "line " << Lines.size() + 1 << " of " << Name;
        Lines.push_back(Line.substr(0, Line.size() - 1));
    }
    return Lines;
}

std::string KeyOf(const std::string& Line) {
    const std::size_t Equals = Line.find('=');
    return Equals == std::string::npos ? "" : Line.substr(0, Equals);
}

VariantDocument Read(const std::string& Name) {
    auto Result = ReadVariantFile(Folder(), Name, rules::RuleSetFields{});
    EXPECT_TRUE(Result.Document) << Name << ": " << Result.Error.Text();
    return Result.Document.value_or(VariantDocument{});
}

// A game of the variant at its first move.
std::unique_ptr<rules::RulesState> Start(const VariantDocument& Document) {
    auto State = std::make_unique<rules::RulesState>();
    rules::ResetRules(*State);
    State->RuleSet = Document.Rules;
    rules::LaySetup(*State, Document.Setup);
    rules::StartRulesGame(*State);
    return State;
}

TEST(ShippedVariants, NameEveryRuleOnceBehindTheStartPosition) {
    for (const std::string& Name : ListVariants(Folder())) {
        SCOPED_TRACE(Name);
        const std::vector<std::string> Lines = FileLines(Name);
        EXPECT_EQ("Zonterbrook variant: " + Name, Lines.front());
        EXPECT_EQ("END", Lines.back());
        std::vector<std::string> Keys;
        for (std::size_t Index = 1; Index + 1 < Lines.size(); ++Index) {
            if (KeyOf(Lines[Index]) != "Help") {
                Keys.push_back(KeyOf(Lines[Index]));
            }
        }
        ASSERT_EQ("Setup", Keys.front());
        std::ranges::sort(Keys);
        std::vector<std::string> Expected = {"Setup"};
        for (const rules::RuleKey& Key : rules::RuleKeys()) {
            Expected.emplace_back(Key.Name);
        }
        Expected.insert(Expected.end(), std::begin(rules::PromotionKeys), std::end(rules::PromotionKeys));
        Expected.insert(Expected.end(), std::begin(rules::MovementKeys), std::end(rules::MovementKeys));
        std::ranges::sort(Expected);
        EXPECT_EQ(Expected, Keys);
    }
}

// A value that reads back differently was cut, misspelled or not understood.
TEST(ShippedVariants, AreUnderstoodToTheLastLetter) {
    for (const std::string& Name : ListVariants(Folder())) {
        SCOPED_TRACE(Name);
        const VariantDocument Document = Read(Name);
        for (const std::string& Line : FileLines(Name)) {
            const std::string Key = KeyOf(Line);
            if (const auto Value = rules::RuleText(Document.Rules, Key)) {
                EXPECT_EQ(Line, Key + "=" + *Value);
            } else if (Key == "Setup") {
                EXPECT_EQ(Line, "Setup=" + Document.Setup);
            }
        }
    }
}

TEST(ShippedVariants, HaveOnlyFlagsThatAreOnOrOff) {
    for (const std::string& Name : ListVariants(Folder())) {
        const VariantDocument Document = Read(Name);
        for (const rules::RuleKey& Key : rules::RuleKeys()) {
            const bool Counts = Key.Name.starts_with("Number") || Key.Name.starts_with("Contract");
            const int Highest = Counts ? 1000 : Key.Name == "PiecesOnBlack" ? 2 : 1;
            EXPECT_LE(Key.Read(Document.Rules), Highest) << Name << ' ' << Key.Name;
            EXPECT_GE(Key.Read(Document.Rules), Counts ? -1 : 0) << Name << ' ' << Key.Name;
        }
    }
}

// An unknown word ends its list in silence, and a step would be missing from the game.
TEST(ShippedVariants, HaveMovementsOfKnownWordsOnly) {
    for (const std::string& Name : ListVariants(Folder())) {
        SCOPED_TRACE(Name);
        const VariantDocument Document = Read(Name);
        for (int Index = 0; Index < rules::PieceIndices; ++Index) {
            const std::string Text(Document.Rules.MovementStrings[Index].View());
            rules::DirectionTable Directions{};
            rules::ParseMovement(Text, Index, Directions);
            const std::size_t Blank = std::min(Text.find(' '), Text.size());
            const std::string Lists[] = {Text.substr(0, Blank), Text.substr(std::min(Blank + 1, Text.size()))};
            for (int List = 0; List < 2; ++List) {
                const auto Words = Lists[List].empty() ? 0 : 1 + std::ranges::count(Lists[List], ';');
                const auto& Column = Directions[Index + 4 * List];
                const auto End = std::find(Column.begin(), Column.end(), rules::DirectionSentinel);
                EXPECT_EQ(Words, std::ssize(std::set<int>(Column.begin(), End))) << Text;
            }
        }
    }
}

TEST(ShippedVariants, StartWithTheirMenAndPromotionOnPlayingSquares) {
    for (const std::string& Name : ListVariants(Folder())) {
        SCOPED_TRACE(Name);
        const VariantDocument Document = Read(Name);
        const auto State = Start(Document);
        if (State->RuleSet.PiecesOnBlack == 2) {
            continue;
        }
        for (rules::CellSet Cells = rules::AllPieces(*State); Cells.Any();) {
            const int Cell = Cells.TakeFirst();
            EXPECT_TRUE(rules::IsPlayingSquare(*State, Cell)) << rules::AlgebraicName(Cell);
        }
        for (const auto& Row : Document.Rules.PromotionSquares) {
            for (int Column = 0; Column < 2; ++Column) {
                if (Row[Column] != rules::NoSquare) {
                    EXPECT_TRUE(rules::IsPlayingSquare(*State, Row[Column])) << rules::AlgebraicName(Row[Column]);
                }
            }
        }
    }
}

TEST(ShippedVariants, HaveNoRuleThatIsVoid) {
    for (const std::string& Name : ListVariants(Folder())) {
        const VariantDocument Document = Read(Name);
        for (const rules::RuleWarning& Warning : rules::CheckRules(Document.Rules, Document.Setup)) {
            ADD_FAILURE() << Name << ", " << Warning.Key << ": " << Warning.Sentence;
        }
    }
}

TEST(ShippedVariants, GiveBothSidesTheSame) {
    for (const std::string& Name : ListVariants(Folder())) {
        SCOPED_TRACE(Name);
        if (Name == "Fox and Hounds 10x10") {
            continue; // one fox against five hounds
        }
        const VariantDocument Document = Read(Name);
        EXPECT_EQ(std::ranges::count(Document.Setup, '1'), std::ranges::count(Document.Setup, '2'));
        EXPECT_EQ(std::ranges::count(Document.Setup, '3'), std::ranges::count(Document.Setup, '4'));
        const auto& Movements = Document.Rules.MovementStrings;
        EXPECT_EQ(Movements[0].View(), Movements[1].View());
        EXPECT_EQ(Movements[2].View(), Movements[3].View());
        int Balance = 0;
        for (const auto& Row : Document.Rules.PromotionSquares) {
            Balance += (Row[0] != rules::NoSquare ? 1 : 0) - (Row[1] != rules::NoSquare ? 1 : 0);
        }
        EXPECT_EQ(0, Balance) << "promotion squares";
    }
}

// Lines join without a blank between them, which is easily forgotten when a text is edited.
TEST(ShippedVariants, HaveHelpTextsThatReadWell) {
    for (const std::string& Name : ListVariants(Folder())) {
        SCOPED_TRACE(Name);
        const std::string Help = Read(Name).HelpText;
        EXPECT_GE(Help.size(), 100u);
        for (const char* Fault : {"  ", " \n", "\n ", "\n\n\n", "<br>", "..", " ."}) {
            EXPECT_EQ(std::string::npos, Help.find(Fault)) << "'" << Fault << "' in " << Help;
        }
        static const std::regex Forgotten("[a-z][.!?,;:][A-Za-z]+ ");
        EXPECT_FALSE(std::regex_search(Help, Forgotten)) << Help;
        EXPECT_TRUE(Help.ends_with('.')) << Help;
    }
}

// --- what single variants promise ------------------------------------------------------------------------

TEST(ShippedVariants, AreRecognisedWhereTheRulesAreThoseOfAFasterRoutine) {
    const std::map<std::string, rules::KnownRules> Expected = {{"American Checkers 10x10", rules::KnownRules::American},
                                                               {"Italian Checkers 10x10", rules::KnownRules::Italian},
                                                               {"International Checkers", rules::KnownRules::German},
                                                               {"Canadian Checkers 10x10", rules::KnownRules::German},
                                                               {"Russian Checkers 10x10", rules::KnownRules::Russian}};
    std::map<std::string, rules::KnownRules> Recognised;
    for (const std::string& Name : ListVariants(Folder())) {
        if (const auto Special = Start(Read(Name))->SpecialRuleSet; Special != rules::KnownRules::None) {
            Recognised[Name] = Special;
        }
    }
    EXPECT_EQ(Expected, Recognised);
}

TEST(ShippedVariants, BeginWithTheDefaultRulesForTheDefaultVariant) {
    const VariantDocument Document = Read("International Checkers");
    EXPECT_EQ(rules::RuleSetFields{}, Document.Rules);
    EXPECT_EQ(rules::DefaultSetup, Document.Setup);
}

} // namespace
} // namespace zonterbrook::formats
