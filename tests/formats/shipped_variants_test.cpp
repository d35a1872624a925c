// Every variant that comes with the program, read as the program reads it: whole, in the usual order, and playable.
// What the moves of each are is held elsewhere; here stands what its text promises.

#include "formats/variant_file.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/square_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace zonterbrook::formats {
namespace {

namespace fs = std::filesystem;

const fs::path& Folder() {
    static const fs::path Path = fs::path(ZONTERBROOK_DATA_DIR) / "variants";
    return Path;
}

std::string FileBytes(const std::string& Name) {
    std::ifstream Stream(Folder() / (Name + ".ini"), std::ios::binary);
    return {std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>()};
}

// The lines of a file, which all end with carriage return and line feed; a stray end of line fails the test.
std::vector<std::string> FileLines(const std::string& Name) {
    const std::string Bytes = FileBytes(Name);
    std::vector<std::string> Lines;
    std::istringstream Stream(Bytes);
    for (std::string Line; std::getline(Stream, Line);) {
        EXPECT_TRUE(Line.ends_with('\r')) << "line " << Lines.size() + 1 << " of " << Name;
        Line.resize(Line.size() - std::min<std::size_t>(Line.size(), 1));
        EXPECT_EQ(std::string::npos, Line.find('\r')) << Name;
        Lines.push_back(Line);
    }
    EXPECT_TRUE(Bytes.ends_with('\n')) << Name;
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

std::vector<std::string> ShippedNames() {
    return ListVariants(Folder());
}

TEST(ShippedVariants, AreAHundredAndFour) {
    EXPECT_EQ(104u, ListVariants(Folder()).size());
}

TEST(ShippedVariants, NameEveryRuleOnceAndInTheUsualOrder) {
    for (const std::string& Name : ShippedNames()) {
        SCOPED_TRACE(Name);
        const std::vector<std::string> Lines = FileLines(Name);
        ASSERT_GE(Lines.size(), 2U);
        EXPECT_EQ("Zonterbrook variant: " + Name, Lines.front());
        EXPECT_EQ("END", Lines.back());
        EXPECT_EQ(1, std::ranges::count(Lines, "END"));

        std::vector<std::string> Keys;
        for (std::size_t Index = 1; Index + 1 < Lines.size(); ++Index) {
            if (KeyOf(Lines[Index]) != "Help") {
                Keys.push_back(KeyOf(Lines[Index]));
            }
        }
        std::vector<std::string> Expected = {"Setup"};
        for (const rules::RuleKey& Key : rules::RuleKeys()) {
            Expected.emplace_back(Key.Name);
        }
        Expected.insert(Expected.end(), std::begin(rules::PromotionKeys), std::end(rules::PromotionKeys));
        Expected.insert(Expected.end(), std::begin(rules::MovementKeys), std::end(rules::MovementKeys));
        EXPECT_EQ(Expected, Keys);
    }
}

// A value that reads back differently was cut, misspelled or not understood.
TEST(ShippedVariants, AreUnderstoodToTheLastLetter) {
    for (const std::string& Name : ShippedNames()) {
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
    for (const std::string& Name : ShippedNames()) {
        SCOPED_TRACE(Name);
        const VariantDocument Document = Read(Name);
        const std::set<std::string_view> Counts = {"NumberMen",      "NumberMoves",   "NumberKings", "NumberKings2",
                                                   "NumberPieces",   "NumberFriends", "ContractW1",  "ContractW2",
                                                   "ContractNumber", "ContractB1",    "ContractB2",  "PiecesOnBlack"};
        for (const rules::RuleKey& Key : rules::RuleKeys()) {
            if (Counts.count(Key.Name) == 0) {
                EXPECT_LE(Key.Read(Document.Rules), 1) << Key.Name;
                EXPECT_GE(Key.Read(Document.Rules), 0) << Key.Name;
            }
        }
        EXPECT_LE(Document.Rules.PiecesOnBlack, 2);
    }
}

// An unknown word ends its list in silence, and a step would be missing from the game.
TEST(ShippedVariants, HaveMovementsOfKnownWordsOnly) {
    for (const std::string& Name : ShippedNames()) {
        SCOPED_TRACE(Name);
        const VariantDocument Document = Read(Name);
        for (int Index = 0; Index < rules::PieceIndices; ++Index) {
            const std::string Text(Document.Rules.MovementStrings[Index].View());
            rules::DirectionTable Directions{};
            rules::ParseMovement(Text, Index, Directions);
            const std::size_t Blank = Text.find(' ');
            const std::string Lists[] = {Text.substr(0, Blank),
                                         Blank == std::string::npos ? "" : Text.substr(Blank + 1)};
            for (int List = 0; List < 2; ++List) {
                const auto Words = Lists[List].empty() ? 0 : 1 + std::ranges::count(Lists[List], ';');
                std::set<int> Steps;
                for (const std::int16_t Step : Directions[Index + 4 * List]) {
                    if (Step == rules::DirectionSentinel) {
                        break;
                    }
                    Steps.insert(Step);
                }
                EXPECT_EQ(Words, static_cast<std::ptrdiff_t>(Steps.size())) << Text;
            }
        }
    }
}

TEST(ShippedVariants, StartWithTheirMenAndPromotionOnPlayingSquares) {
    for (const std::string& Name : ShippedNames()) {
        SCOPED_TRACE(Name);
        const VariantDocument Document = Read(Name);
        const auto State = Start(Document);
        if (State->RuleSet.PiecesOnBlack == 2) {
            continue;
        }
        for (int Cell = rules::FirstCell; Cell <= rules::LastCell; ++Cell) {
            if (rules::IsOnBoard(Cell) && State->Board[Cell] != rules::Empty) {
                EXPECT_TRUE(rules::IsPlayingSquare(*State, Cell)) << rules::AlgebraicName(Cell);
            }
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

TEST(ShippedVariants, GiveBothSidesTheSame) {
    for (const std::string& Name : ShippedNames()) {
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
        int White = 0;
        int Black = 0;
        for (const auto& Row : Document.Rules.PromotionSquares) {
            White += Row[0] != rules::NoSquare ? 1 : 0;
            Black += Row[1] != rules::NoSquare ? 1 : 0;
        }
        EXPECT_EQ(White, Black);
    }
}

// Lines join without a blank between them, which is easily forgotten when a text is edited.
TEST(ShippedVariants, HaveHelpTextsThatReadWell) {
    for (const std::string& Name : ShippedNames()) {
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
    const std::map<std::string, int> Expected = {{"American Checkers 10x10", 1},
                                                 {"Italian Checkers 10x10", 2},
                                                 {"International Checkers", 3},
                                                 {"Canadian Checkers 10x10", 3},
                                                 {"Russian Checkers 10x10", 4}};
    std::map<std::string, int> Recognised;
    for (const std::string& Name : ShippedNames()) {
        if (const int Special = Start(Read(Name))->SpecialRuleSet; Special != 0) {
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

struct StartCase {
    const char* Name;
    int Men;   ///< of both sides
    int Kings; ///< of both sides
    int Side;
    int PiecesOnBlack; ///< once installed
};

class ShippedStart : public testing::TestWithParam<StartCase> {};

TEST_P(ShippedStart, HasThesePiecesAndThisSideToMove) {
    const auto State = Start(Read(GetParam().Name));
    int Men = 0;
    int Kings = 0;
    for (int Cell = rules::FirstCell; Cell <= rules::LastCell; ++Cell) {
        if (rules::IsOnBoard(Cell)) {
            Men += rules::IsMan(State->Board[Cell]) ? 1 : 0;
            Kings += rules::IsKing(State->Board[Cell]) ? 1 : 0;
        }
    }
    EXPECT_EQ(GetParam().Men, Men);
    EXPECT_EQ(GetParam().Kings, Kings);
    EXPECT_EQ(GetParam().Side, State->Side);
    EXPECT_EQ(GetParam().PiecesOnBlack, State->RuleSet.PiecesOnBlack);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ShippedStart,
    testing::Values(StartCase{"International Checkers", 40, 0, 1, 1},
                    StartCase{"American Checkers 10x10", 40, 0, -1, 1},
                    StartCase{"Italian Checkers 10x10", 40, 0, 1, 0},
                    StartCase{"Brazilian Checkers 10x10", 30, 0, 1, 1}, StartCase{"Thai Checkers 10x10", 20, 0, -1, 1},
                    StartCase{"Frysk!", 10, 0, 1, 1}, StartCase{"Dutch Draughts of 1805", 30, 10, 1, 1},
                    StartCase{"Kings Only", 0, 20, 1, 1}, StartCase{"Fox and Hounds 10x10", 5, 1, 1, 1},
                    StartCase{"Both Colours", 80, 0, 1, 2}, StartCase{"Turkish Draughts 10x10", 40, 0, 1, 2},
                    StartCase{"Dameo 10x10", 48, 0, 1, 2}, StartCase{"Harzdame 10x10", 72, 0, 1, 2},
                    // Straight captures over two squares are no sideways step.
                    StartCase{"Frisian Draughts", 40, 0, 1, 1}, StartCase{"The Babylonian", 40, 0, 1, 0}),
    [](const auto& Info) {
        std::string Name = Info.param.Name;
        std::erase_if(Name, [](char C) { return !std::isalnum(static_cast<unsigned char>(C)); });
        return Name;
    });

TEST(ShippedVariants, HoldTheReservesInHand) {
    const auto State = Start(Read("Reserves"));
    EXPECT_EQ(5, State->PiecesInHandWhite);
    EXPECT_EQ(5, State->PiecesInHandBlack);
}

} // namespace
} // namespace zonterbrook::formats
