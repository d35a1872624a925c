// Variants, options, skins and diagrams: what the dialogs leave in force, and what follows when they close.
#include "base/text.h"
#include "control/diagram.h"
#include "control/game_document.h"
#include "control/options.h"
#include "control/skin.h"
#include "control/trap.h"
#include "control/variant_editor.h"
#include "control/variant_start.h"
#include "formats/diagram.h"
#include "formats/skin_file.h"
#include "formats/text_file.h"
#include "rules/generate.h"
#include "support/game_fixture.h"

#include <unistd.h>

namespace zonterbrook::tests {
namespace {

namespace fs = std::filesystem;
using control::OptionsEditor;
using control::VariantEditor;

class Dialogs : public GameFixture {
protected:
    void SetUp() override {
        fs::remove_all(Folder);
        fs::create_directories(Folder);
        World.Written = Folder;
        GameFixture::SetUp();
    }
    void TearDown() override { fs::remove_all(Folder); }

    void Choose(std::function<void(VariantEditor&)> What) {
        World.OnVariants = std::move(What);
        Run(NewVariant);
    }
    void SetOptions(std::function<void(OptionsEditor&)> What) {
        World.OnOptions = std::move(What);
        Run(Options);
    }
    fs::path Make(const fs::path& Name, std::string_view Text) const {
        fs::create_directories((Folder / Name).parent_path());
        EXPECT_FALSE(formats::WriteFile(Folder / Name, Text));
        return Folder / Name;
    }

    fs::path Folder = fs::path(testing::TempDir()) / ("zonterbrook_dialogs_" + std::to_string(getpid()));
};

// --- Variants -----------------------------------------------------------------------------------------------------

TEST_F(Dialogs, AVariantIsChosenAndPlayed) {
    State.UseSound = 1;
    Choose([&](VariantEditor& Editor) {
        EXPECT_EQ("International Checkers", Editor.Chosen());
        Editor.Combo1_Click("Italian Checkers 10x10");
        EXPECT_FALSE(Editor.IsEdited());
        EXPECT_TRUE(Editor.Warnings().empty());
        EXPECT_EQ("0101010101", Editor.StartPosition().Squares.substr(0, 10)) << "as a game shows it";
        EXPECT_TRUE(Editor.Variantsapply_Click());
    });
    EXPECT_EQ("Italian Checkers", State.VariantTitle);
    EXPECT_EQ(rules::WhiteMan, PieceOn("b1"));
    EXPECT_EQ("White moves", Status());
    EXPECT_EQ(std::vector<std::string>{"sounds/roll.wav"}, World.Sounds);
    ExpectShown();
    Choose([](VariantEditor& Editor) { Editor.Combo1_Click("Turkish Draughts 10x10"); });
    EXPECT_EQ("Turkish Draughts", State.VariantTitle) << "what is chosen stays, whatever closes the dialog";
    EXPECT_EQ(2, State.RuleSet.PiecesOnBlack);
    EXPECT_EQ(rules::Notation::Algebraic, State.NotationMode);
}

TEST_F(Dialogs, EditedRulesAreMarkedAndPlayed) {
    Choose([](VariantEditor& Editor) {
        Editor.Check_Click(view::TickLongKings, false);
        EXPECT_TRUE(Editor.IsEdited());
    });
    EXPECT_EQ(1, State.RuleSet.LongKings) << "neither applied nor agreed to";
    EXPECT_EQ("International Checkers", State.VariantTitle);
    Choose([&](VariantEditor& Editor) {
        Editor.Check_Click(view::TickLongKings, false);
        Editor.Form.Numbers[10].Text = "3";
        Editor.Check_Click(view::TickOffBoard, true);
        EXPECT_TRUE(Editor.Variantsapply_Click());
        Editor.Form.Movements[0].Text = "NW;XX";
        World.ExpectMessage("Error", "Illegal entry!");
        EXPECT_FALSE(Editor.Variantsapply_Click());
    });
    EXPECT_EQ("International Checkers (M)", State.VariantTitle);
    EXPECT_EQ(3, State.PiecesInHandWhite);
    EXPECT_TRUE(State.ExtraHeading.Visible);
    EXPECT_EQ("3", State.ExtraBlackCount.Text);
    Run(NewGame);
    EXPECT_EQ(0, State.RuleSet.LongKings) << "the rules in hand stay";
    Choose([](VariantEditor& Editor) {
        EXPECT_FALSE(Editor.Form.Ticks[view::TickLongKings].Ticked);
        Editor.Combo1_Click("International Checkers");
    });
    EXPECT_EQ("International Checkers", State.VariantTitle);
    EXPECT_FALSE(State.ExtraHeading.Visible);
}

TEST_F(Dialogs, ColourOfTheCornerIsTakenAtOnce) {
    Choose([&](VariantEditor& Editor) {
        Editor.Check_Click(view::TickColour, false);
        EXPECT_EQ(0, State.RuleSet.PiecesOnBlack);
        EXPECT_EQ(0, State.LoadedRuleSet.PiecesOnBlack);
    });
    EXPECT_EQ(rules::WhiteMan, PieceOn("b1"));
}

TEST_F(Dialogs, ASetDrawnFromASeedComesAgain) {
    rules::RuleSetFields First;
    World.Chances = {0.25};
    Choose([&](VariantEditor& Editor) {
        EXPECT_FALSE(Editor.LastSeed());
        Editor.Random_Click();
        EXPECT_EQ(250000U, Editor.LastSeed());
        First = State.RuleSet;
        Editor.DrawFrom(1);
        EXPECT_FALSE(First == State.RuleSet);
        Editor.DrawFrom(250000);
        EXPECT_TRUE(First == State.RuleSet);
        EXPECT_EQ(First.AntiMode == 1, Editor.Form.Ticks[5].Ticked);
    });
}

TEST_F(Dialogs, EveryShippedVariantIsPlayedSavedAndLoaded) {
    State.PlayMode = view::GameMode::PlayerPlayer;
    State.UseRating = 0;
    for (const std::string& Name : formats::ListVariants(formats::VariantFolder(ZONTERBROOK_DATA_DIR, false))) {
        Choose([&](VariantEditor& Editor) {
            Editor.Combo1_Click(Name);
            EXPECT_TRUE(Editor.Variantsapply_Click()) << Name;
            EXPECT_TRUE(Editor.Warnings().empty() && !Editor.IsEdited()) << Name;
        });
        EXPECT_EQ(formats::VariantDisplayName(Name), State.VariantTitle);
        for (int Move = 0; Move < 2; ++Move) {
            State.ChoiceList.Selected = 0;
            control::List2_DblClick(State);
        }
        const std::string Before = formats::WriteGameFile(control::DocumentOf(State));
        World.ExpectSaveDialog(Folder / "a.qvm");
        Run(SaveAs);
        Run(NewGame);
        World.ExpectOpenDialog(Folder / "a.qvm");
        Run(Open);
        EXPECT_EQ(Before, formats::WriteGameFile(control::DocumentOf(State))) << Name;
        State.GameChanged = false;
        fs::remove(Folder / "a.qvm");
    }
}

// Whatever the lot brings can be installed and played.
TEST_F(Dialogs, DrawnRuleSetsArePlayed) {
    World.TakesAnything = true;
    State.PlayMode = view::GameMode::PlayerPlayer;
    for (std::uint64_t Seed = 1; Seed <= 60; ++Seed) {
        Choose([&](VariantEditor& Editor) {
            const auto& Names = Editor.Variants();
            Editor.Combo1_Click(Names[Seed * 37 % Names.size()].Name);
            Editor.DrawFrom(Seed);
            Editor.Variantsapply_Click();
        });
        ASSERT_FALSE(World.Ended) << Seed << World.LastSaid;
        for (int Move = 0; Move < 40 && !State.ChoiceList.Lines.empty() && control::TakesMoves(State); ++Move) {
            State.ChoiceList.Selected =
                static_cast<std::int32_t>(World.Random() * 0.999 * static_cast<double>(State.ChoiceList.Lines.size()));
            control::List2_DblClick(State);
        }
        ASSERT_FALSE(World.Ended) << Seed << World.LastSaid;
        ASSERT_EQ("", rules::CheckPosition(State)) << Seed;
    }
}

TEST_F(Dialogs, AVariantOfOnesOwnIsKeptChosenAndDeleted) {
    Lay("w c3, b d8", rules::Black);
    Choose([&](VariantEditor& Editor) {
        EXPECT_TRUE(Editor.HasSetUpPosition());
        Editor.Check_Click(5, true);
        EXPECT_NE("", Editor.SaveUserVariant("a/b", "", true));
        EXPECT_EQ("", Editor.SaveUserVariant("Mine", "One.\nTwo.", true));
        EXPECT_TRUE(Editor.ListsUserVariants());
        ASSERT_EQ(1U, Editor.Variants().size());
        EXPECT_FALSE(Editor.IsEdited());
        World.ExpectQuestion("Save as User Variant", "There is a variant \"Mine\" already. Replace it?", false);
        Editor.Check_Click(5, false);
        EXPECT_EQ("", Editor.SaveUserVariant("Mine", "", false));
        Editor.Check_Click(5, true);
    });
    EXPECT_EQ("Mine", State.VariantTitle);
    EXPECT_EQ("One.\nTwo.", State.HelpText);
    EXPECT_EQ(1, State.RuleSet.AntiMode);
    EXPECT_EQ(rules::BlackMan, PieceOn("d8"));
    EXPECT_EQ(rules::Empty, PieceOn("a1"));
    Choose([&](VariantEditor& Editor) {
        World.ExpectQuestion("Delete Variant", "Delete the variant \"Mine\" for good?", true);
        Editor.DeleteUserVariant();
        EXPECT_TRUE(Editor.Variants().empty());
    });
    EXPECT_EQ("International Checkers", State.VariantTitle);
}

TEST_F(Dialogs, AVariantThatCannotBeReadEndsTheProgram) {
    Make("variants/uservariants/Broken.ini", "title\nLongKings=0\n");
    World.ExpectMessage("Error", control::ErrorFound);
    Choose([](VariantEditor& Editor) {
        Editor.Option_Click(true);
        EXPECT_NE("", Editor.Variants().at(0).Complaint);
        Editor.Combo1_Click("Broken");
        EXPECT_TRUE(Editor.ProgramEnds());
    });
    EXPECT_TRUE(World.Ended);
}

// --- Options ------------------------------------------------------------------------------------------------------

TEST_F(Dialogs, OptionsAreHeldWithinTheirLimits) {
    const std::tuple<const char*, const char*, const char*, int, int, int> Rows[] = {{"9", "0", "0", 6, 1, 1},
                                                                                     {"0", "9999", "21", 1, 750, 20},
                                                                                     {"x", "-3", "", 1, 1, 1},
                                                                                     {"4", "200", "7", 4, 200, 7}};
    for (const auto& [Plys, Balance, Table, InPlys, InBalance, InTable] : Rows) {
        SetOptions([&, P = Plys, B = Balance, T = Table](OptionsEditor& Editor) {
            Editor.Form.Plys = P;
            Editor.Form.Balance = B;
            Editor.Form.PlyValueDepth = T;
            Editor.Form.Strength = 10;
            Editor.cmdApply_Click();
        });
        EXPECT_EQ(InPlys, State.Plys);
        EXPECT_EQ(InBalance, State.Balance);
        EXPECT_EQ(InTable, State.PlyValueDepth);
        EXPECT_EQ(0, State.Strength);
    }
}

TEST_F(Dialogs, OptionsShowInTheWindowAndStayForTheNextRun) {
    BetweenPersons();
    Play("d4e5 c7d6 e5c7");
    World.Keeper = control::FileKeeper::ThisProgram;
    SetOptions([](OptionsEditor& Editor) {
        Editor.Form.ByDepth = true;
        Editor.Form.Depth = 7;
        Editor.Form.ColonCapture = true;
        Editor.Form.PlayerName = "Ann";
        Editor.Form.Volume = 30;
        Editor.Form.DarkHighlight = 255;
        Editor.cmdApply_Click();
    });
    EXPECT_EQ("Strength:9   Depth:7 ply", State.StrengthLine.Text);
    EXPECT_EQ("   2. e5:c7", State.GameList.Lines.at(2));
    EXPECT_EQ("Ann", State.UpperName.Text);
    EXPECT_EQ(255, State.Look.DarkHighlight);
    EXPECT_EQ("", control::CheckRest(State));
    ExpectShown();
    const auto Text = formats::ReadTextFile(Folder / "quavermill.ini");
    ASSERT_TRUE(Text.Document);
    EXPECT_NE(std::string::npos, Text.Document->find("Ann"));
    Owned = std::make_unique<control::GameState>(World);
    control::Form_Load(*Owned);
    EXPECT_EQ(30, Owned->OwnSettings.Volume);
    EXPECT_EQ(255, Owned->Look.DarkHighlight);
    World.Keeper = control::FileKeeper::Nobody;
}

TEST_F(Dialogs, NamesFollowTheSideThatBegins) {
    // Rows: who begins, who is to move, the name of White.
    const std::tuple<int, std::int32_t, const char*> Rows[] = {{0, rules::White, "Player"},
                                                               {0, rules::Black, "Computer"},
                                                               {1, rules::White, "Computer"},
                                                               {1, rules::Black, "Player"}};
    for (const auto& [BlackBegins, Side, White] : Rows) {
        State.RuleSet.BlackStarts = static_cast<std::uint8_t>(BlackBegins);
        State.Side = Side;
        SetOptions([](OptionsEditor&) {});
        EXPECT_EQ(White, State.WhitePlayerName) << BlackBegins << Side;
        EXPECT_NE(State.WhitePlayerName, State.BlackPlayerName);
    }
}

TEST_F(Dialogs, CancelTakesNeitherSkinNorRatingBack) {
    State.Rating = 1500;
    SetOptions([](OptionsEditor& Editor) {
        EXPECT_EQ("Use Rating (1500)", Editor.RatingCaption());
        Editor.Command1_Click();
        EXPECT_EQ("Use Rating (1200)", Editor.RatingCaption());
        Editor.Form.UseSound = true;
        Editor.Combo1_Click("Classic Small");
    });
    EXPECT_EQ(1200, State.Rating);
    EXPECT_EQ("Classic Small", State.SkinName);
    EXPECT_FALSE(State.Layout.Medium);
    EXPECT_EQ(0, State.UseSound);
}

// --- Skins --------------------------------------------------------------------------------------------------------

struct SkinCase {
    const char* Name;
    const char* Text; ///< "|" between lines
    std::int32_t SizeClass;
    std::int32_t BoardCustomSize;
};

using Skins = RowsOf<Dialogs, SkinCase>;

TEST_P(Skins, AreTakenWholeOrNotAtAll) {
    const SkinCase& Row = GetParam();
    std::string Text = Row.Text;
    std::ranges::replace(Text, '|', '\n');
    Make("skins/Mine.ini", Text);
    Make("skins/Mine/a.png", "picture");
    World.PicturesCanBeRead = Text.find("unreadable") == std::string::npos;
    SetOptions([](OptionsEditor& Editor) {
        EXPECT_EQ(1, std::ranges::count(Editor.Skins(), "Mine"));
        Editor.Combo1_Click("Mine");
    });
    EXPECT_EQ(Row.SizeClass, State.SizeClass);
    EXPECT_EQ(Row.BoardCustomSize, State.BoardCustomSize);
    EXPECT_EQ(Row.SizeClass == 4, State.Look.OwnPictures);
    EXPECT_EQ("Mine", State.SkinName);
}

constexpr SkinCase SkinRows[] = {
    {"whole", "BoardCustomSize=2|dark_square=a.png|END", 4, 2},
    {"keys_in_any_order_the_last_wins", "dark_square=b.png|dark_square=A.PNG|remark|BoardCustomSize=0|END|x=", 4, 0},
    {"no_size", "dark_square=a.png|END", 4, -1},
    {"no_end", "BoardCustomSize=2|dark_square=a.png|", 2, -1},
    {"end_with_a_blank", "BoardCustomSize=2|END ", 2, -1},
    {"missing_picture", "BoardCustomSize=2|light_square=b.png|END", 2, -1},
    {"empty_name", "BoardCustomSize=2|light_square=|END", 2, -1},
    {"picture_of_elsewhere", "light_square=../../a.png|END", 2, -1},
    {"picture_that_is_none", "light_square=a.png|unreadable|END", 2, -1},
    {"empty_file", " ", 2, -1},
    {"number_out_of_range", "BoardCustomSize=99999999999|END", 2, -1},
};
INSTANTIATE_TEST_SUITE_P(Rows, Skins, testing::ValuesIn(SkinRows), RowName);

TEST_F(Dialogs, EveryShippedSkinIsWhole) {
    const auto Names = control::ListSkinNames(State);
    EXPECT_LE(7U, Names.size());
    for (const std::string& Name : Names) {
        State.SkinName = Name;
        control::LoadSkin(State);
        EXPECT_EQ(Name == "Classic Small" ? 0 : Name == "Classic Medium" ? 2 : 4, State.SizeClass) << Name;
        EXPECT_EQ(0, std::ranges::count(World.PicturesLoaded, fs::path())) << Name << " leaves a picture out";
    }
}

// --- Rules and diagrams -------------------------------------------------------------------------------------------

TEST_F(Dialogs, TheRulesWindowHasHelpAndLink) {
    State.HelpText = "Some help";
    State.HelpLink = "long.html";
    State.QuickHelpLink = "http://TFenwick.example/";
    Run(Rules);
    EXPECT_EQ(" Rules for International Checkers|Some help|long.html",
              World.RulesShown.Heading + '|' + World.RulesShown.Help + '|' + World.RulesShown.Link);
    Run(QuickRules);
    EXPECT_EQ("", World.RulesShown.Link);
    State.HelpText.clear();
    Run(Rules);
    EXPECT_EQ("|No help available", World.RulesShown.Heading + '|' + World.RulesShown.Help);
}

TEST_F(Dialogs, APositionBecomesAPage) {
    Lay("w a1, B j0");
    State.CommentText = "White <wins>\nin \xC3\xA9";
    World.ExpectMessage("Diagram", "DIAGRAM.HTML created");
    Run(CreateDiagram);
    ASSERT_EQ(1U, World.Opened.size());
    const auto Page = formats::ReadTextFile(World.Opened[0]);
    ASSERT_TRUE(Page.Document);
    const std::vector<std::string> Lines = base::SplitLines(*Page.Document);
    ASSERT_EQ(28U, Lines.size());
    EXPECT_EQ("<TABLE BORDER=\"1\" BORDERCOLOR=\"#000000\">", Lines[6]);
    EXPECT_EQ(R"(<IMG SRC="pieces/lsquare.bmp"><IMG SRC="pieces/dsquare.bmp">)", Lines[9].substr(0, 60));
    EXPECT_TRUE(Lines[9].ends_with(R"(<IMG SRC="pieces/dblack_king.bmp"><BR>)"));
    EXPECT_TRUE(Lines[18].starts_with(R"(<IMG SRC="pieces/dwhite_man.bmp">)"));
    EXPECT_EQ("<BR>", Lines[22]);
    EXPECT_EQ("White &lt;wins&gt;<BR>", Lines[23]);
    EXPECT_EQ("in &#233;", Lines[24]);
    EXPECT_TRUE(fs::exists(Folder / "pieces" / "lwhite_king.bmp")) << "the pictures follow the page";
    Run(TurnBoard);
    State.CommentText.clear();
    const auto Turned = base::SplitLines(formats::WriteDiagram(control::DiagramOf(State)));
    EXPECT_EQ(25U, Turned.size());
    EXPECT_TRUE(Turned[9].ends_with(R"(<IMG SRC="pieces/dwhite_man.bmp"><BR>)"));
    World.Written = Folder / "none";
    World.ExpectMessage("Diagram", formats::PathText(Folder / "none/diagram.html") +
                                       " can't be written: No such file or directory");
    Run(CreateDiagram);
    Run(CopyDiagram);
    EXPECT_EQ("W:W46:BK5", World.Diagrams.at(0).second);
}

} // namespace
} // namespace zonterbrook::tests
