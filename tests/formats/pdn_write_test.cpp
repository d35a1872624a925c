// Writing PDN, positions in text, rule tags and game types: what is written, and that it is read again as it was.

#include "formats/fen.h"
#include "formats/pdn_writer.h"
#include "formats/rule_tags.h"
#include "formats/variant_file.h"
#include "rules/known_rules.h"
#include "rules/position.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace zonterbrook::formats {
namespace {

std::string Repeat(const std::string& Text, int Times) {
    std::string All;
    for (; Times > 0; --Times) {
        All += Text;
    }
    return All;
}

// --- games -----------------------------------------------------------------------------------------------

TEST(PdnWriter, WritesAGame) {
    PdnGame Game;
    Game.Tags.Event = "A \"cup\"";
    Game.Tags.White = "C:\\x\\";
    Game.Tags.Result = "not asked";
    Game.Tags.RuleTag = "*x*";
    Game.Tags.GameType = "20";
    Game.Moves = {{"32-28", ""}, {"19-23", "two\r\nlines {in braces}\n"}, {"28:19K", ""}, {"14x23", ""}};
    for (int Row = 3; Row <= 6; ++Row) {
        Game.Moves.push_back({"1-7", ""});
        Game.Moves.push_back({"2-8", ""});
    }
    Game.LastComment = "bye";
    const std::string Expected =
        "[Event \"A \\\"cup\\\"\"]\r\n[Date \"05/12/2024\"]\r\n[White \"C:\\x\\\\\"]\r\n[Result \"*\"]\r\n"
        "[QVersion \"1.00\"]\r\n[Quavermill \"*x*\"]\r\n[GameType \"20\"]\r\n\r\n"
        "1. 32-28 {two  lines (in braces)  } 19-23 2. 28x19 14x23 3. 1-7 2-8 4. 1-7 \r\n"
        "2-8 5. 1-7 2-8 6. 1-7 2-8 {bye} *\r\n\r\n";
    EXPECT_EQ(Expected, WritePdnGame(Game, "05/12/2024"));
}

// Whatever a person has typed into a comment or a detail, the game and the one behind it come back.
TEST(PdnWriter, IsUnderstoodByTheReader) {
    std::mt19937 Random(5);
    const std::string Signs = "{};(%[\"]\\ a1.*-\xC3\xA9";
    const auto AnyText = [&] {
        std::string Text;
        for (auto Length = Random() % 30; Length > 0; --Length) {
            const auto Sign = Random() % (Signs.size() - 1);
            Text += Sign < Signs.size() - 2 ? std::string(1, Signs[Sign]) : "\xC3\xA9";
        }
        return Text;
    };
    for (int Round = 0; Round < 300; ++Round) {
        PdnGame Game;
        for (auto Field : {&PdnTags::Event, &PdnTags::Site, &PdnTags::Round, &PdnTags::White, &PdnTags::Fen}) {
            Game.Tags.*Field = AnyText();
        }
        Game.Tags.Date = "1999";
        Game.Result = Game.Tags.Result = "0-0";
        Game.BeginsWithSecond = Random() % 2 == 0;
        const auto Comment = [&] {
            std::string Text = Random() % 2 == 0 ? AnyText() : "";
            for (char& C : Text) {
                C = C == '{' ? '(' : C == '}' ? ')' : C;
            }
            Game.Comments += Text.empty() ? 0 : 1;
            return Text;
        };
        for (auto Count = Random() % 60; Count > 0; --Count) {
            Game.Moves.push_back({Count % 2 == 0 ? "32x23x14x5" : "d4", Comment()});
        }
        Game.LastComment = Comment();
        const std::string Text = WritePdnGame(Game, "");
        EXPECT_EQ(Game, ReadPdnGame(Text + "[Event \"next\"]\r\n\r\n1. {c} 1-7 {d} *").Document) << Text;
    }
}

TEST(PdnWriter, LeavesAnEmptyLineBetweenGames) {
    for (const char* End : {"", "\r\n", "*\r\n\r\n", "*\n\n", "*\r\r"}) {
        EXPECT_EQ("", PdnGap(End)) << End;
    }
    EXPECT_EQ("\r\n", PdnGap("1 *\n"));
    EXPECT_EQ("\r\n\r\n", PdnGap("1 *"));
}

// --- positions -------------------------------------------------------------------------------------------

const std::string Start(rules::DefaultSetup);

TEST(Fen, IsReadInEveryForm) {
    const std::string Two = "2" + Repeat("0", 98) + "3"; // the corners a1 and j10
    const struct {
        const char *Name, *Text;
        int PiecesOnBlack;
        std::string Expected; ///< who begins and the set-up
    } Rows[] = {
        {"ranges", "W:W31-50:B1-20.", 1, "W" + Start},
        {"no_dot_and_counters", "B:B1-20:W31-50:H0:F12:+1+0", 1, "B" + Start},
        {"lower_case_and_blanks", " b : wk5 ,: b 46 .", 1, "B" + Two},
        {"a_whole_tag", "[FEN \"B:WKj10:Ba1\"]", 1, "B" + Two},
        {"a_dot_behind_each_list", "B:WK5.B46.", 1, "B" + Two},
        {"words_behind", "B:WK05:B46. to move and draw", 1, "B" + Two},
        {"names_on_the_other_colour", "W:Wb1:B", 0, "W0" + ("1" + Repeat("0", 98))},
        {"numbers_on_the_other_colour", "W:W46:B", 0, "W0" + ("1" + Repeat("0", 98))},
        {"names_on_all_squares", "W:Wb1:B", 2, "W0" + ("1" + Repeat("0", 98))},
        {"side_unknown", "?:W31:B1", 1, ""},
        {"nobody_begins", "W31:B1", 1, ""},
        {"empty_board", "w::.", 1, ""},
        {"no_pieces", "W:W:B", 1, ""},
        {"number_too_high", "W:W51:B1", 1, ""},
        {"number_0", "W:W0:B1", 1, ""},
        {"no_letter", "W:31:B1", 1, ""},
        {"square_not_played_on", "W:Wb1:Ba1", 1, ""},
        {"range_turned", "W:W50-31:B1", 1, ""},
        {"range_of_names", "W:Wa1-c3:B1", 1, ""},
        {"two_colours", "W:W1-20:BK20", 1, ""},
        {"word", "W:W31x:B1", 1, ""},
    };
    for (const auto& R : Rows) {
        const auto Read = ReadFen(R.Text, R.PiecesOnBlack);
        const FenPosition Position = Read.Document.value_or(FenPosition{});
        EXPECT_EQ(R.Expected, Read.Document ? (Position.BlackBegins ? "B" : "W") + Position.Setup : "") << R.Name;
        EXPECT_EQ(R.Expected.empty(), !Read.Error.Sentence.empty()) << R.Name;
    }
}

TEST(Fen, IsWrittenAndReadAgain) {
    EXPECT_EQ("B:WK5:B46", WriteFen({true, "2" + Repeat("0", 98) + "3"}, 1));
    EXPECT_EQ("W:WKj0:Ba1", WriteFen({false, "2" + Repeat("0", 98) + "3"}, 2));
    std::mt19937 Random(3);
    for (int Round = 0; Round < 200; ++Round) {
        FenPosition Position{Round % 2 == 0, std::string(100, '0')};
        const int PiecesOnBlack = Round % 3;
        for (std::size_t Cell = 0; Cell < 100; ++Cell) {
            const bool Odd = (Cell / 10 + Cell % 10 + rules::FirstRow + rules::FirstColumn) % 2 != 0;
            if (PiecesOnBlack == 2 || Odd == (PiecesOnBlack == 1)) {
                Position.Setup[Cell] = static_cast<char>('0' + Random() % 5);
            }
        }
        EXPECT_EQ(Position, ReadFen(WriteFen(Position, PiecesOnBlack), PiecesOnBlack).Document);
    }
}

// --- game types ------------------------------------------------------------------------------------------

TEST(GameTypes, AreReadWithWhatTheirGamesAreUsedTo) {
    const struct {
        const char *Text, *Expected, *Variant;
    } Rows[] = {{"20", "20,W,10,10,N2,0", "International Checkers"},
                {" 40 , w ,10,10,N2,0", "40,W,10,10,N2,0", "Frisian Draughts"},
                {"25", "25,W,8,8,A0,0", ""},
                {"25,B,10,10", "25,B,10,10,A0,0", "Russian Checkers 10x10"},
                {"41", "41,W,10,8,A0,0", ""},
                {"21,B,10,10,S3,1,x", "21,B,10,10,A3,1", "American Checkers 10x10"},
                {"20,?,ten,,N9,", "20,W,10,10,N2,0", "International Checkers"},
                {"99,W,10,10", "99,W,10,10,N2,0", ""},
                {"draughts", "", ""},
                {"99999999999", "", ""}};
    for (const auto& R : Rows) {
        const auto Type = ReadGameType(R.Text);
        EXPECT_EQ(R.Expected, Type ? WriteGameType(*Type) : "") << R.Text;
        EXPECT_EQ(R.Variant, Type ? GameTypeVariant(*Type) : "") << R.Text;
    }
}

TEST(GameTypes, NameVariantsThatAreThereAndNoChangedRules) {
    const auto Folder = VariantFolder(ZONTERBROOK_DATA_DIR, false);
    int Named = 0;
    for (int Number = 0; Number < 100; ++Number) {
        const auto Type = ReadGameType(std::to_string(Number) + ",W,10,10");
        const std::string Variant(GameTypeVariant(*Type));
        if (Variant.empty()) {
            continue;
        }
        ++Named;
        const auto File = ReadVariantFile(Folder, Variant, rules::RuleSetFields{});
        ASSERT_TRUE(File.Document) << Variant;
        rules::RuleSetFields Rules = File.Document->Rules;
        EXPECT_EQ(Number, GameTypeOf(Variant, Rules, File.Document->Rules, false)->Number);
        Rules.LastCap = 1;
        EXPECT_FALSE(GameTypeOf(Variant, Rules, File.Document->Rules, false));
    }
    EXPECT_EQ(14, Named);
    const rules::RuleSetFields American = rules::AmericanRuleSet();
    EXPECT_EQ("21,B,10,10,N1,0", WriteGameType(*GameTypeOf("American Checkers 10x10", American, American, false)));
    EXPECT_EQ("21,B,10,10,A3,0", WriteGameType(*GameTypeOf("American Checkers 10x10", American, American, true)));
    EXPECT_FALSE(GameTypeOf("Croda 10x10", American, American, false));
}

TEST(GameTypes, TellWhereTheFirstSquareIs) {
    const struct {
        const char *Type, *Square, *Expected;
    } Rows[] = {{"20", "7", "7"},
                {"21,B,10,10,N1", "7", "7"},
                {"20,W,10,10,N0", "1", "46"},
                {"20,W,10,10,N0", "7", "42"},
                {"20,W,10,10,N1", "7", "44"},
                {"20,W,10,10,N3", "1", "5"},
                {"20,B,10,10,N2", "1", "50"},
                {"25,W,10,10,A0", "A0", "A0"},
                {"25,W,10,10,A1", "A2", "J2"},
                {"25,W,10,10,A2", "A2", "A9"},
                {"25,W,10,10,A3", "B0", "I1"},
                {"25,B,10,10,A0", "A1", "J0"},
                {"20,W,10,10,N1", "A1", "A1"},
                {"20", "51", ""},
                {"25", "K1", ""}};
    for (const auto& R : Rows) {
        EXPECT_EQ(R.Expected, OwnSquare(*ReadGameType(R.Type), R.Square)) << R.Type << ' ' << R.Square;
    }
    const auto Type = ReadGameType("24,W,10,10,N1,1");
    EXPECT_EQ("W:W5:BK50", WriteFen(*ReadFen("W:W46:BK1", 0, &*Type).Document, 0));
}

// --- rule tags -------------------------------------------------------------------------------------------

RuleTagDocument AnyRules() {
    RuleTagDocument Document{"Some Rules", Start, {}};
    Document.Rules.NumberPieces = 3;
    Document.Rules.canContract = 1;
    Document.Rules.ContractW1 = 12;
    Document.Rules.NumberFriends = -1;
    Document.Rules.ManContJumpCrowned = 1;
    Document.Rules.PromotionSquares[1][0] = rules::NoSquare;
    Document.Rules.MovementStrings[0].Assign("N N;S");
    return Document;
}

TEST(RuleTags, ListTheValuesInTheirOrder) {
    EXPECT_EQ("*Some Rules* " + Start +
                  " 0 1 0 B0F0H0J0 A1C1E1G1I1 1 0 0 0 1 0 1 1 1 0 0 0 1 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 -1 0 0 3 "
                  "1 0 12 0 0 0 N N;S  NW;NE NW;NE;SE;SW  NW;NE;SE;SW NW;NE;SE;SW  NW;NE;SE;SW NW;NE;SE;SW  1",
              [] {
                  RuleTagDocument Document = AnyRules();
                  Document.Rules.MulJumps = 0;
                  return WriteRuleTag(Document);
              }());
}

TEST(RuleTags, ByPositionAreReadAsFarAsNumberPieces) {
    const RuleTagDocument Document = AnyRules();
    const std::string Text = WriteRuleTag(Document);
    EXPECT_EQ("Some Rules", RuleTagVariant(Text));
    const RuleTagReading Reading = ReadRuleTag(Text, rules::RuleSetFields{});
    EXPECT_TRUE(Reading.Failed);
    EXPECT_EQ(Start, Reading.Document.Setup);
    EXPECT_EQ(3, Reading.Document.Rules.NumberPieces);
    EXPECT_EQ(-1, Reading.Document.Rules.NumberFriends);
    // From here on the values are those of other fields, and the third movement string is not found.
    EXPECT_EQ(1012000, Reading.Document.Rules.canContract);
    EXPECT_EQ(0, Reading.Document.Rules.ContractW1);
    EXPECT_EQ("NW;NE;SE;SW", Reading.Document.Rules.MovementStrings[0].View());
    EXPECT_EQ("NW;NE;SE;SW NW;NE;SE;SW", Reading.Document.Rules.MovementStrings[1].View());
    EXPECT_EQ(rules::DefaultKingMovement, Reading.Document.Rules.MovementStrings[2].View());
    EXPECT_EQ(0, Reading.Document.Rules.ManContJumpCrowned);
}

TEST(RuleTags, ByPositionFailWhereAValueIsMissingOrDoesNotFit) {
    for (const auto& Text :
         std::vector<std::string>{"", "*x* 1010 1 0", "*x* " + Start + " 0 300 1 ", "*x* " + Start + " 0"}) {
        const RuleTagReading Reading = ReadRuleTag(Text, rules::RuleSetFields{});
        EXPECT_TRUE(Reading.Failed) << Text;
        EXPECT_EQ(1, Reading.Document.Rules.MaxCapMove) << Text;
    }
    EXPECT_EQ("", RuleTagVariant("*x"));
}

TEST(RuleTags, ByKeyComeBackWhole) {
    for (const char* Movement : {"N N;S", "a|b||c| |", "|", " \""}) {
        RuleTagDocument Document = AnyRules();
        Document.Variant = Movement;
        Document.Rules.MovementStrings[3].Assign(Movement);
        PdnTags Tags;
        ReadPdnTags(WritePdnTag("RuleSet", WriteRuleSetTag(Document)), Tags);
        EXPECT_EQ(Document, ReadRuleSetTag(Tags.RuleSet).Document) << Movement;
    }
    EXPECT_TRUE(ReadRuleSetTag("").Document);
    EXPECT_FALSE(ReadRuleSetTag("LongKings=300").Document);
    EXPECT_FALSE(ReadRuleSetTag("Setup=12").Document);
    // No line of the text can end it early.
    EXPECT_EQ(0, ReadRuleSetTag("x|END|LongKings=0").Document->Rules.LongKings);
}

TEST(RuleTags, AreNotNeededForTheAmericanRulesFromTheirStart) {
    RuleTagDocument Document{"", Start, rules::AmericanRuleSet()};
    EXPECT_FALSE(NeedsRuleTag(Document));
    Document.Setup[0] = '0';
    EXPECT_TRUE(NeedsRuleTag(Document));
    EXPECT_TRUE(NeedsRuleTag({"", Start, {}}));
}

} // namespace
} // namespace zonterbrook::formats
