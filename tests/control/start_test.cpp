// The beginning and the end of a run, and what a fault does.
#include "control/start.h"
#include "control/trap.h"
#include "support/game_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class Start : public GameFixture {};

TEST_F(Start, TheFirstStartOffersAGame) {
    EXPECT_FALSE(World.Ended);
    EXPECT_EQ(1200, State.Rating);
    EXPECT_EQ("International Checkers", State.Label8.Text);
    EXPECT_EQ(" Zonterbrook 1.20 - International Checkers", State.Caption);
    EXPECT_EQ("White moves", State.StatusPanels[view::StatusPanel]);
    EXPECT_FALSE(State.StatusPanels[view::ProductPanel].empty());
    EXPECT_EQ("Strength:9   Time:2 sec", State.Label7.Text);
    EXPECT_EQ("no calculation", State.Label9.Text);
    EXPECT_EQ("Player", State.Label1.Text);
    EXPECT_EQ("Computer", State.Label2.Text);
    EXPECT_EQ(9U, State.List2.Lines.size());
    EXPECT_FALSE(State.List3.Enabled);
    EXPECT_EQ("20", State.Label5.Text);
    EXPECT_TRUE(State.CommandOf(CommandId::Cplayer).Ticked);
    EXPECT_TRUE(State.CommandOf(CommandId::mnu_Board_Notation_Chess).Ticked);
    EXPECT_TRUE(State.CommandOf(CommandId::calculation).Ticked);
    EXPECT_FALSE(State.CommandOf(CommandId::mnu_Play_Cancel).Enabled);
    EXPECT_FALSE(State.CommandOf(CommandId::First).Enabled);
    EXPECT_FALSE(State.HelpText.empty());
    EXPECT_EQ("\nZonterbrook 1.20   01/02/2003  04:05:06\n", World.Log);
    ExpectConsistent();
}

class Failing : public testing::Test {
protected:
    std::filesystem::path Folder =
        std::filesystem::path(testing::TempDir()) /
        (std::string("zonterbrook_start_") + testing::UnitTest::GetInstance()->current_test_info()->name());
    std::unique_ptr<control::GameState> State = std::make_unique<control::GameState>();

    void SetUp() override { std::filesystem::create_directories(Folder / "variants"); }
    void TearDown() override { std::filesystem::remove_all(Folder); }
};

TEST_F(Failing, WithoutItsVariantTheProgramEnds) {
    ScriptedPlatform World(Folder);
    State->Outside = &World;
    World.ExpectMessage("Error", "Error found! Zonterbrook will exit");
    control::Form_Load(*State);
    EXPECT_TRUE(World.Ended);
    EXPECT_FALSE(World.LogIsOpen);
    // Whatever the window still says goes unheard.
    control::c_MouseDown(*State, 0, control::LeftButton, 0, 0);
    bool Cancel = true;
    control::Form_QueryUnload(*State, Cancel);
    EXPECT_FALSE(Cancel);
}

TEST_F(Failing, AVariantFileWithoutItsEndEndsTheProgram) {
    std::ofstream(Folder / "variants" / "International Checkers.ini") << "title\nMulJumps=1\n";
    ScriptedPlatform World(Folder);
    State->Outside = &World;
    World.ExpectMessage("Error", "Error found! Zonterbrook will exit");
    control::Form_Load(*State);
    EXPECT_TRUE(World.Ended);
}

TEST_F(Start, AFileThatGoesLostEndsTheProgramAtTheNextGame) {
    World.Directory = testing::TempDir();
    World.ExpectMessage("Error", "Error found! Zonterbrook will exit");
    control::RunCommand(State, CommandId::New1);
    EXPECT_TRUE(World.Ended);
}

TEST_F(Start, AFaultInAHandlerIsSaidInItsOwnWords) {
    World.ExpectMessage("Error", "something broke");
    control::RunTrapped(State, [] { throw base::Fault("something broke"); });
    EXPECT_TRUE(World.Ended);
    EXPECT_EQ(1, State.CancelRequested) << "a search below must unwind";
    bool Ran = false;
    control::RunTrapped(State, [&] { Ran = true; });
    EXPECT_FALSE(Ran);
}

TEST_F(Start, WithoutALogTheProgramRuns) {
    ScriptedPlatform Mute(ZONTERBROOK_DATA_DIR);
    Mute.LogCanBeOpened = false;
    const auto Other = std::make_unique<control::GameState>();
    Other->Outside = &Mute;
    control::Form_Load(*Other);
    Other->PlayMode = view::PlayerPlayer;
    Other->Text2.Text = "d4e5";
    control::Text2_KeyUp(*Other, control::EnterKey);
    EXPECT_EQ(1, Other->GameMoves);
}

struct CloseCase {
    const char* Name;
    int ConfirmExit;
    bool Yes;
    bool Stays;
};

class Closing : public Start, public testing::WithParamInterface<CloseCase> {};

TEST_P(Closing, AsksIfItIsToAsk) {
    State.ConfirmExit = GetParam().ConfirmExit;
    if (GetParam().ConfirmExit != 0) {
        World.ExpectQuestion("Confirmation", "Are you sure you want to exit?", GetParam().Yes);
    }
    bool Cancel = false;
    control::Form_QueryUnload(State, Cancel);
    EXPECT_EQ(GetParam().Stays, Cancel);
    EXPECT_FALSE(World.Ended);
}

INSTANTIATE_TEST_SUITE_P(Rows, Closing,
                         testing::Values(CloseCase{"yes", 1, true, false}, CloseCase{"no", 1, false, true},
                                         CloseCase{"unasked", 0, false, false}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(Start, ExitClosesTheWindowOnce) {
    // The window, told to close, asks whether it may, and only then goes.
    World.OnClose = [&] {
        bool Cancel = false;
        control::Form_QueryUnload(State, Cancel);
        if (!Cancel) {
            control::Form_Unload(State);
        }
    };
    World.ExpectQuestion("Confirmation", "Are you sure you want to exit?", true);
    control::RunCommand(State, CommandId::Exit);
    EXPECT_TRUE(World.Ended);
    EXPECT_FALSE(World.LogIsOpen);
}

TEST_F(Start, ClosingInMidSearchStopsItFirst) {
    State.ConfirmExit = 0;
    State.SearchDepth = 12;
    int Turns = 0;
    bool Stayed = false;
    World.OnTurn = [&] {
        if (++Turns == 1) {
            control::Form_QueryUnload(State, Stayed);
        }
    };
    control::RunCommand(State, CommandId::Compute);
    EXPECT_TRUE(Stayed) << "the window went in mid-search";
    EXPECT_EQ(1, World.Closings) << "and is not told to close afterwards";
    EXPECT_EQ(0, State.Thinking);
    ExpectConsistent();
}

TEST_F(Start, CalculationIsToggled) {
    State.Label9.Text = "Depth:1";
    control::RunCommand(State, CommandId::calculation);
    EXPECT_EQ(0, State.ShowCalculation);
    EXPECT_FALSE(State.CommandOf(CommandId::calculation).Ticked);
    EXPECT_EQ("no calculation", State.Label9.Text);
    control::RunCommand(State, CommandId::calculation);
    EXPECT_TRUE(State.CommandOf(CommandId::calculation).Ticked);
}

TEST_F(Start, TheRatingIsSaid) {
    World.ExpectMessage("Rating", "Your currrent rating is 1200");
    control::RunCommand(State, CommandId::rating);
}

TEST_F(Start, DisabledCommandsDoNothing) {
    control::RunCommand(State, CommandId::Analyze);
    control::RunCommand(State, CommandId::NewVariant);
    control::RunCommand(State, CommandId::mnu_Play_Cancel);
    control::RunCommand(State, CommandId::None);
    EXPECT_EQ(0, State.CancelRequested);
}

} // namespace
} // namespace zonterbrook::tests
