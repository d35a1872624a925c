// The opening book: which block fits, what it recommends, what the opening is called, what the computer makes of it.
#include "control/book.h"
#include "control/navigation.h"
#include "control/record.h"
#include "formats/book_file.h"
#include "formats/text_file.h"
#include "support/game_fixture.h"

#include <unistd.h>

namespace zonterbrook::tests {
namespace {

namespace fs = std::filesystem;

class Book : public GameFixture {
protected:
    void SetUp() override {
        fs::create_directories(Folder);
        GameFixture::SetUp();
        State.BookFolder = Folder;
        State.PlayMode = view::GameMode::PlayerPlayer;
        State.UseRating = 0;
    }
    void TearDown() override { fs::remove_all(Folder); }

    void Write(std::string_view Text, const char* Name = "International Checkers.bok") {
        std::string Lines(Text);
        std::ranges::replace(Lines, '|', '\n');
        ASSERT_FALSE(formats::WriteFile(Folder / Name, Lines));
        State.Book.reset();
    }
    /// "1: 3228 3127 'Name'": whether the game is in the book, its candidates, the opening's name.
    std::string Asked() {
        const control::BookAnswer Answer = control::AskBook(State);
        std::string Text = Answer.InBook ? "1:" : "0:";
        for (const std::string& Candidate : Answer.Candidates) {
            Text += ' ' + Candidate;
        }
        return Text + " '" + Answer.Name + "'";
    }

    fs::path Folder = fs::path(testing::TempDir()) / ("zonterbrook_book_" + std::to_string(getpid()));
};

constexpr const char* Head = "QUAVERSET Version=0.89|Variant=International Checkers|MaxCapMove=1|start|";

struct AnswerCase {
    const char* Name;
    const char* Lines;
    const char* Moves;
    const char* Answer;
};
using Answers = RowsOf<Book, AnswerCase>;

TEST_P(Answers, FollowTheGame) {
    const AnswerCase& Row = GetParam();
    Write(std::string(Head) + Row.Lines);
    Play(Row.Moves);
    EXPECT_EQ(Row.Answer, Asked());
}

constexpr AnswerCase AnswerRows[] = {
    {"first_moves", "3228w1823 |3127w|3430 |end|", "", "1: 3228 3127 ''"},
    {"for_the_side_to_move", "3228 1823b|     1924w|     2025b|end|", "d4e5", "1: 1823 2025 ''"},
    {"each_once", "3228w1823 |     1924 |end|", "", "1: 3228 ''"},
    {"indented_by_columns", "3228 1823 3832w|          3732w|     1924 4440w|end|", "d4e5 e7f6", "1: 3832 3732 ''"},
    {"left", "3228w1823 |end|", "b4a5", "0: ''"},
    {"at_its_end", "3228w1823 |end|", "d4e5 e7f6", "1: ''"},
    {"blank_in_a_number", "3228 1823 |     19 4 |end|", "d4e5", "1: ''"},
    {"names_by_whole_moves", "3228w|names|3228 'First'|3228 1823 'Second'|3127 'Third'|end|", "d4e5 e7f6",
     "0: 'Second'"},
    {"name_of_a_beginning", "3228w|names|3228 'First'|3228 1823 'Second'|end|", "d4e5 c7d6", "0: 'First'"},
    {"no_end", "3228w|", "", "0: ''"},
    {"second_block_fits",
     "3228w|end|Variant=International Checkers|LongKings=0|start|3127w|end|Variant=International "
     "Checkers|start|3429w|end|",
     "", "1: 3228 ''"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Answers, testing::ValuesIn(AnswerRows), RowName);

struct BlockCase {
    const char* Name;
    const char* Keys;
    bool Fits;
};
using Blocks = RowsOf<Book, BlockCase>;

TEST_P(Blocks, FitTheRulesInForce) {
    Write("QUAVERSET Version=0.89|" + std::string(GetParam().Keys) + "|start|3228w|end|");
    EXPECT_EQ(GetParam().Fits ? "1: 3228 ''" : "0: ''", Asked());
}

constexpr BlockCase BlockRows[] = {
    {"name_alone", "Variant=International Checkers", true},
    {"no_name", "MaxCapMove=1", false},
    {"another_name", "Variant=Frisian Draughts", false},
    {"rule_in_force", "Variant=International Checkers|LongKings=1", true},
    {"rule_of_others", "Variant=International Checkers|LongKings=0", false},
    {"length_of_jumps", "Variant=International Checkers|NumberFriends=-1", false},
    {"what_is_no_rule", "Variant=International Checkers|Notation=1|Book=0|UseClassic=0|PlayerName=X", true},
    {"promotion", "Variant=International Checkers|PromoW=B0D0F0H0J0", true},
    {"other_promotion", "Variant=International Checkers|PromoW=B0D0F0H0", false},
    {"steps",
     "Variant=International Checkers|Offset=|NW;NE NW;NE;SE;SW|NW;NE NW;NE;SE;SW|NW;NE;SE;SW NW;NE;SE;SW|NW;NE;SE;SW "
     "NW;NE;SE;SW",
     true},
    {"other_steps", "Variant=International Checkers|Offset=|NE;NW NW;NE;SE;SW", false},
    {"other_start", "Variant=International Checkers|Setup=1000000000", false},
};
INSTANTIATE_TEST_SUITE_P(Rows, Blocks, testing::ValuesIn(BlockRows), RowName);

TEST_F(Book, IsMirroredWhereTheOtherSideBegins) {
    Write(std::string(Head) + "3228w1823b|end|");
    State.BookFallback = 1;
    State.VariantName = "Another";
    EXPECT_EQ("1: 3228 ''", Asked());
    WriteRules(State, "BlackStarts=1");
    control::StartVariant(State, {"Another", State.RuleSet, {}, {}, {}, {}}, control::RulesFrom::Hand);
    EXPECT_EQ("1: 3228 ''", Asked());
    ASSERT_TRUE(control::DrawBookMove(State));
    EXPECT_EQ(rules::NumberedCell(1, 19), State.BookMoveSource);
    EXPECT_EQ(rules::NumberedCell(1, 23), State.BookMoveDest);
    Play("g7f6");
    EXPECT_EQ("1: 1823 ''", Asked());
    WriteRules(State, "AntiMode=1");
    State.Book.reset();
    EXPECT_EQ("0: ''", Asked());
}

TEST_F(Book, WhatIsNoBookIsSaidOnceAGame) {
    const std::pair<const char*, std::pair<const char*, const char*>> Rows[] = {
        {"no book", {"Zonterbrook", "International Checkers.BOK is not an Zonterbrook Book file"}},
        {"QUAVERSET Version=0.90|", {"Error", "Incorrect version of International Checkers.BOK\nNeed version 0.89"}},
    };
    for (const auto& [Text, Said] : Rows) {
        Write(Text);
        World.ExpectMessage(Said.first, Said.second);
        EXPECT_EQ("0: ''", Asked());
        EXPECT_EQ("0: ''", Asked());
    }
    fs::remove(Folder / "International Checkers.bok");
    State.Book.reset();
    EXPECT_EQ("0: ''", Asked()) << "and a book that is not there is nothing to speak of";
}

TEST_F(Book, TheComputerPlaysFromItAndTheListMarksIt) {
    Write(std::string(Head) + "3228 1823b|     1822b|names|3228 'Opening'|end|");
    State.UseBook = 1;
    World.Chances = {0.6};
    Play("d4e5");
    EXPECT_EQ("Opening", State.StatusPanels[view::OpeningPanel]);
    EXPECT_EQ(1, std::ranges::count(State.ChoiceList.Lines, "e7-d6b"));
    EXPECT_EQ(1, std::ranges::count(State.ChoiceList.Lines, "e7-f6b"));
    ExpectShown();
    World.Chances = {0.6};
    Run(Compute);
    EXPECT_EQ("      e7-d6b", State.GameList.Lines.at(1));
    EXPECT_TRUE(State.Calculation.Text.find("\nBook") != std::string::npos) << State.Calculation.Text;
    Run(Compute);
    EXPECT_FALSE(State.Record.Last().FromBook);
    control::NavigateMoves(State, 2);
    Run(Compute);
    EXPECT_TRUE(State.Record.Last().FromBook) << "a game that steps back into its book has it again";
    State.UseBook = 0;
    control::RefreshChoices(State);
    EXPECT_EQ("", State.StatusPanels[view::OpeningPanel]) << "the name of a book that is switched off";
    EXPECT_EQ("", control::CheckRest(State));
}

// The books that come with the program: each fits the variant that it is named after, and every line can be played.
TEST_F(Book, ShippedBooksCanBePlayed) {
    State.BookFolder.clear();
    for (const auto& Entry : fs::directory_iterator(World.Directory / "books")) {
        PlayVariant(Entry.path().stem().string());
        EXPECT_FALSE(control::AskBook(State).Candidates.empty()) << Entry.path();
        const bool Letters = State.RuleSet.PiecesOnBlack == 2;
        State.NotationMode = Letters ? rules::Notation::Algebraic : rules::Notation::Numeric;
        const formats::BookDocument Read = formats::ReadBook(*formats::ReadTextFile(Entry.path()).Document);
        for (const formats::BookBlock& Block : Read.Blocks) {
            std::vector<std::string> Rows = Block.Lines;
            for (const auto& [Moves, Name] : Block.Names) {
                Rows.push_back(Moves);
            }
            for (const std::string& Line : Rows) {
                control::RestartGame(State);
                for (const std::string& Move : formats::MovesOfCells(Line)) {
                    const auto Ends = game::ReadRawMove(State, Move);
                    ASSERT_TRUE(control::EnterMove(State, Ends.Source, Ends.Dest)) << Entry.path() << ": " << Line;
                }
            }
        }
    }
}

} // namespace
} // namespace zonterbrook::tests
