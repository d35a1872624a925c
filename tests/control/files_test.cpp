// Games in files: saved, opened, replaced and brought back; settings and the last game between two runs.
#include "control/game_document.h"
#include "control/open_game.h"
#include "control/pdn_game.h"
#include "control/record.h"
#include "control/saved_game.h"
#include "control/settings.h"
#include "control/setup.h"
#include "formats/text_file.h"
#include "rules/input.h"
#include "support/game_fixture.h"

#include <unistd.h>

namespace zonterbrook::tests {
namespace {

namespace fs = std::filesystem;

class Files : public PersonsFixture {
protected:
    void SetUp() override {
        fs::remove_all(Folder);
        fs::create_directories(Folder);
        World.Written = Folder;
        PersonsFixture::SetUp();
    }
    void TearDown() override { fs::remove_all(Folder); }

    fs::path File(const char* Name, std::string_view Text = {}) const {
        if (!Text.empty()) {
            EXPECT_FALSE(formats::WriteFile(Folder / Name, Text));
        }
        return Folder / Name;
    }
    /// Both with what is said at their end: "title|text", or nothing.
    void Save(const fs::path& Name, const std::string& Said = {}) {
        World.ExpectSaveDialog(Name);
        ExpectSaid(Said);
        Run(SaveAs);
    }
    void Load(const fs::path& Name, const std::string& Said = {}, std::optional<control::PdnChoice> Game = {}) {
        State.GameChanged = false;
        World.ExpectOpenDialog(Name);
        if (Game) {
            World.ExpectChooser(" Open PDN game", Game);
        }
        ExpectSaid(Said);
        Run(Open);
    }
    void ExpectSaid(const std::string& Said) {
        if (!Said.empty()) {
            World.ExpectMessage(Split(Said, '|').at(0), Split(Said, '|').at(1));
        }
    }
    /// Everything that a game file must keep.
    std::string Whole() const { return formats::WriteGameFile(control::DocumentOf(State)) + State.Caption; }
    void Start() {
        Owned = std::make_unique<control::GameState>(World);
        control::Form_Load(*Owned);
    }

    fs::path Folder = fs::path(testing::TempDir()) / ("zonterbrook_files_" + std::to_string(getpid()));
};

TEST_F(Files, AGameComesBackFromBothFormats) {
    Play("d4e5 c7d6 e5c7");
    State.CommentText = "what next?\nwell";
    State.GameChanged = false;
    control::Text1_KeyUp(State);
    EXPECT_TRUE(State.GameChanged) << "a comment would be lost";
    State.GameChanged = false;
    control::Text1_KeyUp(State);
    EXPECT_FALSE(State.GameChanged);
    State.Details.Event = "Cup";
    Run(Back);
    const std::string Before = Whole();
    for (const char* Name : {"a.qvm", "a.pdn"}) {
        Save(File(Name));
        EXPECT_FALSE(State.GameChanged);
        EXPECT_TRUE(State.Caption.ends_with(Name));
        Run(NewGame);
        EXPECT_FALSE(State.Caption.ends_with(Name));
        const bool Pdn = control::IsPdnName(Name);
        Load(File(Name), "", Pdn ? std::optional(control::PdnChoice{}) : std::nullopt);
        EXPECT_EQ(3, State.Record.Cursor) << "at the end, wherever it was saved";
        EXPECT_EQ("Cup", State.Details.Event);
        EXPECT_EQ(Pdn ? "what next?  well" : "what next?\nwell", State.Record.HalfMoves[4].Comment);
        EXPECT_EQ("   2. e5xc7", State.GameList.Lines.at(2));
        ExpectConsistent();
    }
}

TEST_F(Files, SavingAsksBeforeItReplacesAndNeverBeforeItAdds) {
    Play("d4e5");
    Save(File("a.pdn"));
    Save(File("a.pdn"));
    const std::string Twice = *formats::ReadFileBytes(File("a.pdn")).Document;
    EXPECT_NE(Twice.find("1. 32-28 *\r\n\r\n[Date "), std::string::npos) << Twice;
    const fs::path Game = File("a.qvm", "old");
    World.ExpectSaveDialog(Game);
    World.ExpectQuestion("Confirmation", Game.string() + " already exists, overwrite?", false);
    Run(SaveAs);
    EXPECT_EQ("old", formats::ReadFileBytes(Game).Document);
    World.ExpectSaveDialog(Folder / "b"); // without an extension
    Run(SaveAs);
    Play("c7d6");
    Run(CommandId::Save); // again to the same file, without a word
    EXPECT_TRUE(formats::ReadFileBytes(File("b.qvm")).Document->ends_with("d4e5\r\nc7d6\r\n"));
    Save(Folder / "no" / "c.qvm",
         "Error|" + (Folder / "no" / "c.qvm").string() + " can't be written: No such file or directory");
    EXPECT_TRUE(State.Caption.ends_with("b.qvm"));
}

TEST_F(Files, WhatIsNoGameLeavesTheGameAlone) {
    Play("d4e5");
    const std::string Before = Whole();
    const auto Refused = [&](const fs::path& Name, const std::string& Said) {
        Load(Name, Said);
        EXPECT_EQ(Before, Whole()) << Name;
        EXPECT_EQ(9U, State.ChoiceList.Lines.size()) << Name;
    };
    const fs::path Other = File("x.qvm", "hello\n");
    Refused(Other, "Zonterbrook|" + Other.string() + " is not an Zonterbrook file");
    Refused(File("new.qvm", "QUAVERMILL Version=0.90\nSTART\n"), "Error|Incorrect game file!\nNeed version 0.89");
    Refused(Folder / "gone.qvm", "Zonterbrook|" + (Folder / "gone.qvm").string() + " does not exist");
    const fs::path NoPdn = File("x.pdn", "hello, this is a letter\n");
    Refused(NoPdn, "Zonterbrook|" + NoPdn.string() + " is not a PDN file");
    Refused(File("empty.pdn", "[Event \"x\"]\n"), "Zonterbrook|No games found!");
    Load(File("cut.qvm", "QUAVERMILL Version=0.89\nVariant=x\n"));
    EXPECT_EQ(Before, Whole());
    World.ExpectOpenDialog(std::nullopt);
    Run(Open);
    Play("e7d6");
    World.ExpectQuestion("Confirmation", "Quit current game?", false);
    Run(Open);
    EXPECT_EQ(2, State.Record.Count);
}

TEST_F(Files, AnIllegalMoveLeavesAnEmptyBoardAndTheGameBeforeCanComeBack) {
    Play("d4e5 c7d6");
    Run(Back);
    const std::string Before = Whole();
    Load(File("bad.qvm", "QUAVERMILL Version=0.89\nBlackStarts=0\nSTART\nd4e5\na1a2\n"), "Error|a1a2: Illegal move!");
    EXPECT_EQ(0, State.Record.Count);
    EXPECT_EQ("Black moves", Status()) << "whoever begins elsewhere";
    Run(RestorePrevious);
    EXPECT_EQ(Before, Whole());
    EXPECT_EQ(1, State.Record.Cursor);
    ExpectConsistent();
    Run(RestorePrevious);
    EXPECT_EQ(0, State.Record.Count);
    Load(File("bad.pdn", "[Event \"a\"]\n\n1. 32-28 1-50 *\n"), "Error|1-50: Illegal move!", control::PdnChoice{});
    EXPECT_EQ(control::TurnState::Resting, State.Turn);
}

TEST_F(Files, WhatIsReplacedComesBack) {
    Play("d4e5 c7d6 e5c7");
    const std::string Game = Whole();
    Run(First);
    Play("f4g5"); // another way
    Run(RestorePrevious);
    EXPECT_EQ(0, State.Record.Cursor) << "where it was left";
    EXPECT_EQ(Game, Whole());
    Run(Last);
    State.GameChanged = false;
    Run(NewGame);
    EXPECT_EQ(0, State.Record.Count);
    Run(RestorePrevious);
    EXPECT_EQ(Game, Whole());
    World.ExpectPopup(ClearBoard);
    control::EditSquare(State, Square("d4"));
    EXPECT_EQ(rules::Empty, PieceOn("d4"));
    Run(RestorePrevious);
    World.ExpectPopup(BlackMoves);
    control::EditSquare(State, Square("d4"));
    Run(RestorePrevious);
    EXPECT_EQ(Game, Whole());
    EXPECT_EQ(3, State.Record.Cursor);
}

TEST_F(Files, APositionFromElsewhereIsKeptBeforeTheFirstEdit) {
    World.Clipboard = "W:W31,32:B20";
    Run(Paste);
    const std::string Pasted = rules::SetupText(State.Board);
    for (const CommandId Piece : {WhiteMan, BlackKing}) {
        World.ExpectPopup(Piece);
        control::EditSquare(State, Square("d4"));
    }
    Run(RestorePrevious);
    EXPECT_EQ(Pasted, rules::SetupText(State.Board));
}

TEST_F(Files, ThroughTheClipboard) {
    Play("d4e5 c7d6");
    Run(CopyGame);
    const std::string Game = World.Clipboard;
    EXPECT_NE(std::string::npos, Game.find("1. 32-28 17-22 *\r\n"));
    EXPECT_NE(std::string::npos, Game.find("[GameType \"20,W,10,10,N2,0\"]"));
    Run(CopyPosition);
    EXPECT_TRUE(World.Clipboard.starts_with("W:W")) << World.Clipboard;
    State.GameChanged = false;
    Run(CommandId::Paste);
    EXPECT_EQ(0, State.Record.Count);
    EXPECT_EQ(rules::BlackMan, PieceOn("d6"));
    World.Clipboard = Game;
    Run(CommandId::Paste);
    EXPECT_EQ(2, State.Record.Count);
    EXPECT_TRUE(State.GameChanged) << "it stands in no file";
    for (const auto& [Text, Said] : {std::pair{"W:W99:B1", "Illegal Setup!"},
                                     {"milk, bread", "The clipboard holds neither a game nor a position"}}) {
        World.Clipboard = Text;
        World.ExpectQuestion("Confirmation", "Quit current game?", true);
        World.ExpectMessage("Error", Said);
        Run(CommandId::Paste);
        EXPECT_EQ(2, State.Record.Count) << Text;
    }
    World.EditedDetails.White = "Ann";
    Run(CommandId::Details);
    EXPECT_EQ("Ann", State.Details.White);
}

TEST_F(Files, ThoseOpenedLatelyAreKnownInTheNextRun) {
    World.Keeper = control::FileKeeper::ThisProgram;
    Play("d4e5");
    for (int I = 0; I < 9; ++I) {
        Save(File(("game" + std::to_string(I) + ".qvm").c_str()));
    }
    control::OpenListed(State, 1);
    Start();
    ASSERT_EQ(8U, Owned->RecentFiles.size());
    EXPECT_EQ(File("game7.qvm").string(), Owned->RecentFiles.front());
    fs::remove(File("game8.qvm"));
    World.ExpectMessage("Zonterbrook", File("game8.qvm").string() + " does not exist");
    control::OpenListed(*Owned, 1);
    EXPECT_EQ(7U, Owned->RecentFiles.size());
}

struct PdnCase {
    const char* Name;
    const char* Text;
    const char* Variant; ///< to open it as
    const char* Message; ///< "title|text", or empty
    int Played;
    const char* Lists; ///< the last line of the list, or the variant
};
using Pdn = RowsOf<Files, PdnCase>;

TEST_P(Pdn, IsPlayed) {
    const PdnCase& Row = GetParam();
    Play("f4g5");
    State.VariantName = "Russian";
    Load(File("game.pdn", Row.Text), Row.Message, control::PdnChoice{0, Row.Variant});
    EXPECT_EQ(Row.Played, State.Record.Count);
    const std::string Last = State.GameList.Lines.empty() ? "" : State.GameList.Lines.back();
    EXPECT_EQ(Row.Lists, State.VariantName + Last);
    if (*Row.Message == '\0') {
        const bool OwnStart = std::string_view(Row.Text).find("FEN") != std::string_view::npos;
        EXPECT_EQ(OwnStart, State.VariantTitle.ends_with(" (M)"));
    }
    ExpectConsistent();
}

constexpr PdnCase PdnRows[] = {
    {"by_the_default_rules", "[White \"A\"]\n\n1. 32-28 17-22 2. 28x17 *", "", "", 3,
     "International Checkers   2. e5xc7"},
    {"as_a_variant_in_its_notation", "[White \"A\"]\n\n1. 32-28 *", "Frisian", "", 1, "Frisian   1. 32-28"},
    {"as_its_game_type", "[GameType \"40\"]\n\n1. 32-28 *", "", "", 1, "Frisian Draughts   1. d4-e5"},
    {"of_another_board", "[GameType \"25,W,8,8,A0,0\"]\n\n1. c3-d4 *", "",
     "Error|Game is played on a board of 8 by 8 squares", 1, "Russian   1. f4-g5"},
    {"squares_of_its_type_if_they_fit", "[GameType \"20,W,10,10,N0,0\"]\n\n1. 17-23 *", "", "", 1,
     "International Checkers   1. d4-e5"},
    {"private_tag_fails", "[Event \"x\"]\n[Quavermill \"*Frisian* 1\"]\n\n1. 32-28 *", "",
     "Error|Error in loading PDN file!", 0, "Frisian"},
    {"set_up", "[SetUp \"1\"]\n[FEN \"B:W31,K50:B20.\"]\n\n1... 20-25 *", "", "", 1,
     "International Checkers   1. i7-j6"},
    {"bad_set_up", "[FEN \"?:W31:B20\"]\n\n1. 31-26 *", "", "Error|Illegal Setup!", 1, "Russian   1. f4-g5"},
    {"set_up_without_position", "[SetUp \"1\"]\n\n1. 31-26 *", "", "Error|Illegal Setup!", 1, "Russian   1. f4-g5"},
    {"circle", "[FEN \"W:WK37:B31,32,21,22,5\"]\n\n1. 37x37 *", "Brazilian", "", 1, "Brazilian   1. 37x37"},
    {"way_that_goes_on", "[FEN \"W:WK46:B41,37,14,K5\"]\n\n1. 46x28 *", "", "Error|46x28: Illegal move!", 0,
     "International Checkers"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Pdn, testing::ValuesIn(PdnRows), RowName);

TEST_F(Files, ACaptureIsTheOneThatWasPlayed) {
    // Two ways from e1 to e5, over two men each.
    rules::WriteTextRule(State.RuleSet, "WhiteManMovement", "NW;NE NW;NE");
    Lay("w e1, b d2, b d4, b f2, b f4, b j0");
    int Second = -1;
    for (int I = State.StackLimit[0]; I < State.StackLimit[1]; ++I) {
        Second = State.MoveStack[I].Dest == State.MoveStack[0].Dest && I > 0 ? I : Second;
    }
    ASSERT_GT(Second, 0);
    game::HalfMove Made = control::NewHalfMove(State, Second);
    const rules::CapturePath Played = Made.Played.Record.Captures;
    rules::PlayMove(State, Second);
    control::RecordMove(State, std::move(Made), game::MadeBy::Person);
    for (const char* Name : {"way.qvm", "way.pdn"}) {
        Save(File(Name));
        Load(File(Name), "", control::IsPdnName(Name) ? std::optional(control::PdnChoice{}) : std::nullopt);
        ASSERT_EQ(1, State.Record.Count) << Name;
        EXPECT_TRUE(Played == State.Record.HalfMoves[1].Played.Record.Captures) << Name;
    }
}

TEST_F(Files, TheProgramComesBackAsItWasLeft) {
    World.Keeper = control::FileKeeper::ThisProgram;
    State.AutoSave = 1;
    State.RuleSet.ManCapKing = 0;
    State.Strength = 4;
    State.Rating = 1234;
    State.PlayerName = "Jo";
    control::RestartGame(State);
    Run(TurnBoard);
    Run(Numeric);
    Play("32-28");
    EXPECT_TRUE(formats::ReadFileBytes(Folder / control::AutosaveName).Document->ends_with("3228\r\n"))
        << "before the program ends";
    Play("17-22");
    World.Written = Folder / "nowhere";
    World.ExpectMessage("Error", (Folder / "nowhere" / control::AutosaveName).string() +
                                     " can't be written: No such file or directory");
    Play("28x17 11x22");
    World.Written = Folder;
    const formats::Settings Before = control::SettingsOf(State);
    control::Form_Unload(State);
    EXPECT_EQ("QZ4T\r\n", formats::ReadFileBytes(Folder / "quavermill.rtg").Document);
    Start();
    EXPECT_TRUE(Before == control::SettingsOf(*Owned));
    EXPECT_EQ(1234, Owned->Rating);
    EXPECT_EQ(4, Owned->Record.Count);
    EXPECT_TRUE(Owned->VariantTitle.ends_with(" (M)"));
    EXPECT_EQ("Jo", Owned->WhitePlayerName);
    EXPECT_TRUE(Owned->GameChanged);
    // A game that is over is over without a word.
    File("quavermill.sav", "QUAVERMILL Version=0.89\nSetup=1" + std::string(10, '0') + "2" + std::string(88, '0') +
                               "\nUseClassic=1\nNotation=0\nSTART\na1c3\n");
    Start();
    EXPECT_TRUE(control::IsOver(*Owned));
    EXPECT_EQ("White wins!", Owned->StatusPanels[view::StatusPanel]);
}

TEST_F(Files, ABadStartIsStillAStart) {
    World.Keeper = control::FileKeeper::ThisProgram;
    File("quavermill.ini", "QUAVERMILL0.88\n");
    File("quavermill.rtg", "QxCC\n");
    File("quavermill.sav.77.unfinished", "QUAV");
    Start();
    EXPECT_EQ(1, Owned->Rating);
    EXPECT_TRUE(formats::Settings{} == control::SettingsOf(*Owned));
    EXPECT_EQ(formats::WriteSettings({}), formats::ReadFileBytes(Folder / "quavermill.ini").Document);
    EXPECT_FALSE(fs::exists(Folder / "quavermill.sav.77.unfinished"));
    World.Keeper = control::FileKeeper::AnotherProgram;
    Start();
    EXPECT_NE(std::string::npos, Owned->StatusPanels[view::StatusPanel].find("Another"));
    fs::remove(Folder / "quavermill.ini");
    control::Form_Unload(*Owned);
    EXPECT_FALSE(fs::exists(Folder / "quavermill.ini")) << "left to the other";
}

TEST_F(Files, DrawnMovesComeFromAFileThatGoesAgain) {
    State.RuleSet.DoMoves = 1;
    State.RuleSet.NumberMoves = 4;
    Run(NewGame);
    EXPECT_EQ(4, State.Record.Count);
    EXPECT_TRUE(fs::is_empty(Folder));
    World.Written = Folder / "nowhere";
    Run(NewGame);
    EXPECT_EQ(4, State.Record.Count);
}

} // namespace
} // namespace zonterbrook::tests
