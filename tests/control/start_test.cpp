// The beginning and the end of a run, what a fault does, and the small commands.
#include "control/trap.h"
#include "support/game_fixture.h"

#include <filesystem>
#include <fstream>

namespace zonterbrook::tests {
namespace {

constexpr const char* FileFailure = "Error found! Zonterbrook will exit";

class Start : public GameFixture {};

TEST_F(Start, TheFirstStartOffersAGame) {
    EXPECT_FALSE(World.Ended);
    EXPECT_EQ(" Zonterbrook 1.20 - International Checkers", State.Caption);
    EXPECT_EQ("White moves", Status());
    EXPECT_FALSE(State.StatusPanels[view::ProductPanel].empty());
    EXPECT_EQ("Strength:9   Time:2 sec", State.StrengthLine.Text);
    EXPECT_EQ("no calculation", State.Calculation.Text);
    EXPECT_EQ("Player", State.UpperName.Text);
    EXPECT_EQ("Computer", State.LowerName.Text);
    EXPECT_EQ(9U, State.ChoiceList.Lines.size());
    EXPECT_EQ("20", State.UpperMaterial.Text);
    for (const CommandId Id : {ComputerPlayer, Algebraic, Calculation}) {
        EXPECT_TRUE(control::IsTicked(State, Id)) << control::RowOf(Id).Name;
    }
    EXPECT_FALSE(State.HelpText.empty());
    EXPECT_EQ("\nZonterbrook 1.20   01/02/2003  04:05:06\n", World.Log);
    ExpectConsistent();
}

TEST(BadFiles, EndTheProgram) {
    const auto Folder = std::filesystem::path(testing::TempDir()) / "zonterbrook_start";
    std::filesystem::create_directories(Folder / "variants");
    for (const char* Text : {"", "title\nMulJumps=1\n"}) {
        if (*Text != '\0') { // else there is no file at all
            std::ofstream(Folder / "variants" / "International Checkers.ini") << Text;
        }
        ScriptedPlatform World(Folder);
        const auto State = std::make_unique<control::GameState>(World);
        World.ExpectMessage("Error", FileFailure);
        control::Form_Load(*State);
        EXPECT_TRUE(World.Ended);
        EXPECT_FALSE(World.LogIsOpen);
        EXPECT_NE(std::string::npos, World.Log.find("International Checkers.ini: ")) << World.Log;
        // Whatever the window still says goes unheard.
        control::c_MouseDown(*State, 0, control::LeftButton);
        bool Cancel = true;
        control::Form_QueryUnload(*State, Cancel);
        EXPECT_FALSE(Cancel);
    }
    std::filesystem::remove_all(Folder);
}

TEST_F(Start, AFileThatGoesLostEndsTheProgramAtTheNextGame) {
    World.Directory = testing::TempDir();
    World.ExpectMessage("Error", FileFailure);
    Run(NewGame);
    EXPECT_TRUE(World.Ended);
}

TEST_F(Start, AFaultInAHandlerIsSaidInItsOwnWordsAndEndsTheProgramInOrder) {
    State.SearchDepth = 20;
    World.ExpectMessage("Error", "something broke");
    World.OnNode = [&] { control::RunTrapped(State, [] { throw base::Fault("something broke"); }); };
    Run(Compute);
    EXPECT_TRUE(World.Ended);
    EXPECT_FALSE(World.LogIsOpen);
    EXPECT_GT(3000U, World.Nodes) << "the search below goes on";
    EXPECT_EQ(0, State.GameMoves);
}

TEST_F(Start, WithoutALogTheProgramRuns) {
    World.LogCanBeOpened = false;
    State = *std::make_unique<control::GameState>(World);
    SetUp();
    Drag("d4", "e5");
    EXPECT_EQ(2, State.GameMoves);
}

TEST_F(Start, CalculationIsToggled) {
    State.Calculation.Text = "Depth:1";
    for (const bool On : {false, true}) {
        Run(Calculation);
        EXPECT_EQ(On ? 1 : 0, State.ShowCalculation);
        EXPECT_EQ(On, control::IsTicked(State, Calculation));
        EXPECT_EQ("no calculation", State.Calculation.Text);
    }
}

TEST_F(Start, TheRatingIsSaid) {
    World.ExpectMessage("Rating", "Your currrent rating is 1200");
    Run(Rating);
}

} // namespace
} // namespace zonterbrook::tests
