// The game file as text, both ways; and files that are written whole or not at all.
#include "formats/game_file.h"
#include "formats/text_file.h"
#include "rules/position.h"
#include "support/rows.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace zonterbrook::formats {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Head = "QUAVERMILL Version=0.89\r\n";

struct FaultCase {
    const char* Name;
    std::string Text;
    GameFileFault Fault;
};
const FaultCase FaultRows[] = {
    {"another_file", "[Event \"x\"]\r\nSTART\r\n", GameFileFault::NotAGame},
    {"nothing", "", GameFileFault::NotAGame},
    {"newer", "QUAVERMILL Version=0.90\r\nSTART\r\n", GameFileFault::OtherVersion},
    {"older", "QUAVERMILL Version=0.8\r\nSTART\r\n", GameFileFault::OtherVersion},
    {"same_in_single_precision", "QUAVERMILL Version= 0.8900000001x\nSTART\n", GameFileFault::None},
    {"no_moves_begin", std::string(Head) + "Variant=x\r\n", GameFileFault::Broken},
    {"cut_in_the_directions", std::string(Head) + "Offset=\r\nNW NW\r\nSTART", GameFileFault::Broken},
    {"value_too_large", std::string(Head) + "MaxCapMove=256\r\nSTART\r\n", GameFileFault::Broken},
};

TEST(GameFile, BadFilesGiveNoGame) {
    for (const FaultCase& Row : FaultRows) {
        const GameFileResult Read = ReadGameFile(Row.Text, {});
        EXPECT_EQ(Row.Fault, Read.Fault) << Row.Name;
        EXPECT_EQ(Row.Fault == GameFileFault::None, Read.Document.has_value()) << Row.Name;
    }
}

GameFileDocument Read(const std::string& Keys, const GameFileDocument& Before = {}) {
    return ReadGameFile(std::string(Head) + Keys, Before).Document.value();
}

TEST(GameFile, KeysMeanWhatTheyAlwaysMeant) {
    GameFileDocument Before;
    Before.Rules.NumberFriends = 3;
    Before.Rules.LongKings = 0;
    Before.PlayerName = "Me";
    const std::string Setup(100, '1');
    const GameFileDocument Game = Read("Setup=" + Setup + "\r\nMaxCapMove= 0 men\r\nNumberFriends=7\r\nUnknown=1\r\n" +
                                           "PromoW=0150A1ZZ\r\nPromoB=0246\r\nUseClassic=0\r\nmulJumps=0\r\nSTART\r\n",
                                       Before);
    EXPECT_EQ(Setup, Game.Setup);
    EXPECT_EQ(0, Game.UseClassic);
    EXPECT_EQ(0, Game.Rules.MaxCapMove);
    EXPECT_EQ(1, Game.Rules.MulJumps) << "case counts";
    EXPECT_EQ(0, Game.Rules.LongKings) << "what is not told stays";
    EXPECT_EQ(3, Game.Rules.NumberFriends) << "is never read";
    EXPECT_EQ("Me", Game.PlayerName);
    EXPECT_EQ("A1", rules::PromotionNames(Game.Rules.PromotionSquares, 0)) << "letters";
    EXPECT_EQ("D0A1", rules::PromotionNames(Game.Rules.PromotionSquares, 1)) << "digits alone are numbers";
    EXPECT_EQ("", Read("UseClassic=1\nSetup=" + Setup + "\nSTART\n").Setup) << "comes too late";
    EXPECT_EQ("", Read("Setup=" + Setup + "\nSTART\n").Setup);
    EXPECT_EQ("12" + std::string(98, '0'), Read("Setup=12x\nUseClassic=1\nSTART\n").Setup);
}

TEST(GameFile, MovesEndAtAnEmptyLineAndHaveTheCommentsBeforeThem) {
    const std::string End = "\xFF\xFF";
    const GameFileDocument Game =
        Read("START\r\n{one" + End + "two}\r\nc3d4\r\n{lost}\r\n{\xE4}\r\nd4\r\n{last\r\n\r\ne5f4\r\n");
    ASSERT_EQ(2u, Game.Moves.size());
    EXPECT_EQ("one\ntwo", Game.Moves[0].Comment);
    EXPECT_EQ("c3d4", Game.Moves[0].Raw);
    EXPECT_EQ("\xC3\xA4", Game.Moves[1].Comment) << "no UTF-8, so Latin-1";
    EXPECT_EQ("last", Game.LastComment);
}

TEST(GameFile, ComesBackWhole) {
    GameFileDocument Game;
    Game.VariantName = "Two\nlines";
    Game.Setup = rules::DefaultSetup;
    Game.BookOpen = false;
    Game.Names = rules::Notation::Numeric;
    Game.Rules.AntiMode = -5;
    Game.Rules.ContractB2 = 70000;
    Game.Rules.ManContJumpCrowned = 1;
    rules::WriteTextRule(Game.Rules, "BlackKingMovement", "N S");
    Game.UseClassic = 0;
    Game.PlayerName = "Zo\xC3\xAB";
    Game.Details = {"Cup", "Here", "01/02/2003", "B", "W", ""};
    Game.Ways = {{2, {77, 79}}};
    Game.Moves = {{"3228", "\xC3\xA9\r\nb}"}, {"1722", ""}};
    Game.LastComment = "end";
    const std::string Text = WriteGameFile(Game);
    const GameFileDocument Back = ReadGameFile(Text, {}).Document.value();
    EXPECT_EQ("Two lines", Back.VariantName);
    EXPECT_EQ(Text, WriteGameFile(Back));
    EXPECT_TRUE(Game.Rules == Back.Rules);
    EXPECT_TRUE(Game.Details == Back.Details);
    EXPECT_EQ(Game.Ways[0].Captured, Back.Ways.at(0).Captured);
    EXPECT_EQ("\xC3\xA9\nb}", Back.Moves.at(0).Comment);
    EXPECT_NE(std::string::npos, Text.find("RndColor=0\r\nUseClassic=0\r\nJumpFriend=0\r\n"));
    EXPECT_NE(std::string::npos, Text.find("\r\nBlackStarts=0\r\nPromoW=B0D0F0H0J0\r\n"));
    EXPECT_NE(std::string::npos, Text.find("N S\r\nManContJumpCrowned=1\r\nPlayerName="));
}

TEST(WriteFile, ReplacesAFileWholeOrLeavesItAsItWas) {
    const fs::path Folder = fs::path(testing::TempDir()) / ("zonterbrook_write_" + std::to_string(getpid()));
    fs::remove_all(Folder);
    fs::create_directories(Folder / "folder");
    const fs::path File = Folder / "\xC3\xA9.txt";
    EXPECT_FALSE(WriteFile(File, "one"));
    EXPECT_FALSE(AppendToFile(File, "two"));
    EXPECT_EQ("onetwo", ReadFileBytes(File).Document);
    fs::create_symlink(File, Folder / "link");
    EXPECT_FALSE(WriteFile(Folder / "link", "three"));
    EXPECT_EQ("three", ReadFileBytes(File).Document) << "the file behind the link";
    for (const fs::path& Bad : {Folder / "folder", Folder / "nowhere" / "x", File / "x"}) {
        const auto Failure = WriteFile(Bad, "x");
        ASSERT_TRUE(Failure) << Bad;
        EXPECT_TRUE(Failure->Text().starts_with(PathText(Bad) + " can't be written: ")) << Failure->Text();
    }
    EXPECT_FALSE(ReadFileBytes(Folder / "folder").Document);
    EXPECT_EQ(3, std::distance(fs::directory_iterator(Folder), fs::directory_iterator())) << "nothing is left behind";
    fs::remove_all(Folder);
}

} // namespace
} // namespace zonterbrook::formats
