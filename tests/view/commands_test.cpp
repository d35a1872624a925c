// The table of commands, and which event gives and takes which.
#include "support/position_text.h"
#include "support/rows.h"
#include "support/view_fixture.h"
#include "view/commands.h"
#include "view/state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace zonterbrook::view {
namespace {

TEST(Commands, EveryCommandHasOneRowAndOneName) {
    std::set<std::string_view> Names;
    std::set<CommandId> Ids;
    for (const CommandRow& Row : CommandRows()) {
        EXPECT_TRUE(Names.insert(Row.Name).second) << Row.Name;
        if (Row.Kind != CommandKind::Separator) {
            EXPECT_TRUE(Ids.insert(Row.Id).second) << Row.Name;
            EXPECT_EQ(Row.Id, FindCommand(Row.Name));
        }
    }
    EXPECT_EQ(static_cast<std::size_t>(CommandCount - 1), Ids.size()) << "a command has no row";
}

TEST(Commands, NoKeyStandsForTwoCommands) {
    std::set<std::string> Keys;
    for (const CommandRow& Row : CommandRows()) {
        for (const std::string& Key : tests::Split(Row.Shortcut, ';')) {
            EXPECT_TRUE(Keys.insert(std::string(base::Trim(Key))).second) << Row.Name << " " << Key;
        }
    }
    EXPECT_GT(Keys.size(), 20U);
}

TEST(Commands, MenusOpenToRowsThatStandBehindThem) {
    std::set<CommandId> Menus = {CommandId::None};
    for (const CommandRow& Row : CommandRows()) {
        EXPECT_EQ(1U, Menus.count(Row.Menu)) << Row.Name << " stands before its menu";
        if (Row.Kind == CommandKind::Menu) {
            Menus.insert(Row.Id);
        }
    }
}

TEST(Commands, ToolbarLeavesItsSeparatorsFree) {
    std::vector<int> Used;
    for (const ToolbarButton& Button : ToolbarButtons()) {
        Used.push_back(Button.Index);
        EXPECT_NE(CommandId::None, RowOf(Button.Command).Menu) << Button.Key << " is in no menu";
    }
    EXPECT_EQ((std::vector{1, 2, 4, 5, 7, 8, 10, 11, 12, 13, 15, 16, 17, 19, 20, 21, 23, 25, 27}), Used);
}

TEST(Commands, UnknownRowsFault) {
    EXPECT_THROW(RowOf(CommandId::None), base::Fault);
    EXPECT_EQ(CommandId::None, FindCommand("compute"));
}

class Enabling : public tests::ViewFixture {
protected:
    void SetUp() override {
        ViewFixture::SetUp();
        ResetCommands(State);
    }
    bool Enabled(CommandId Id) const { return State.CommandOf(Id).Enabled; }
    bool Ticked(CommandId Id) const { return State.CommandOf(Id).Ticked; }
};

struct EventCase {
    const char* Name;
    WindowEvent Event;
    std::int32_t Mode;
    int Made; ///< half-moves behind the cursor
    std::size_t Lines;
    std::string Gives; ///< of the commands that are built; by name
    std::string Takes;
};

using EventRows = tests::RowsOf<Enabling, EventCase>;

TEST_P(EventRows, GiveAndTakeWhatTheyListAndNothingElse) {
    const EventCase& Row = GetParam();
    State.PlayMode = Row.Mode;
    State.GameMoves = Row.Made;
    State.GameList.Lines.assign(Row.Lines, "");
    for (const bool Before : {false, true}) {
        const std::vector<std::string> Changed = tests::Split(Before ? Row.Takes : Row.Gives, ' ');
        for (int Id = 1; Id < CommandCount; ++Id) {
            SetEnabled(State, static_cast<CommandId>(Id), Before);
        }
        ApplyEvent(State, Row.Event);
        for (int Id = 1; Id < CommandCount; ++Id) {
            const CommandRow& Command = RowOf(static_cast<CommandId>(Id));
            const bool Listed = std::ranges::find(Changed, Command.Name) != Changed.end();
            EXPECT_EQ(Command.Built && Listed != Before, Enabled(Command.Id)) << Command.Name << " was " << Before;
        }
    }
}

using E = WindowEvent;
using C = CommandId;
constexpr int CP = ComputerPlayer;
constexpr int PP = PlayerPlayer;
constexpr int CC = ComputerComputer;

const std::string Engine = "Compute Analyze mnu_Play_Ccomputer ";
const std::string AgainstComputer = "Offerdraw Resign ";
const std::string Backward = "First Moveback ";
const std::string Forward = "MoveForward Last ";
// What would pull the game away from under a search.
const std::string Always = Engine + "Hint New1 NewVariant Open1 Save mnuProblem Details Options plyvaluetable "
                                    "mnu_Board1 Cplayer Pplayer ";
const std::string Frozen = Always + AgainstComputer + Backward + Forward;

const EventCase EventTable[] = {
    {"new_game", E::GameBegins, CP, 0, 0, Engine + "Hint " + AgainstComputer, Backward + Forward + "Save"},
    {"new_game_of_persons", E::GameBegins, PP, 0, 0, Engine + "Hint", Backward + Forward + "Save"},
    {"a_move_cuts_what_was_ahead", E::MoveEntered, CP, 1, 1, Backward + "Save", Forward},
    {"forward_in_the_middle", E::SteppedForward, CP, 3, 5, Backward, ""},
    {"forward_to_the_end", E::SteppedForward, CP, 5, 5, Backward, Forward},
    {"back_reopens_the_game", E::SteppedBack, CP, 4, 5, Engine + Forward + "Hint " + AgainstComputer, ""},
    {"back_to_the_start_between_persons", E::SteppedBack, PP, 0, 5, Engine + Forward + "Hint", Backward},
    {"a_result", E::GameEnds, CP, 4, 4, "", Engine + "Hint " + AgainstComputer},
    {"a_search_can_only_be_cancelled", E::SearchBegins, CP, 1, 1, "mnu_Play_Cancel", Frozen},
    {"after_a_search", E::SearchEnds, CP, 1, 2, Frozen, "mnu_Play_Cancel"},
    {"after_a_search_at_the_end", E::SearchEnds, CP, 2, 2, Always + AgainstComputer + Backward, "mnu_Play_Cancel"},
    {"after_a_search_without_moves", E::SearchEnds, CP, 0, 0, Always + AgainstComputer, "mnu_Play_Cancel"},
    {"after_a_search_between_persons", E::SearchEnds, PP, 1, 2, Always + Backward + Forward, "mnu_Play_Cancel"},
    {"the_computer_against_itself_goes_on", E::SearchEnds, CC, 2, 2, "", ""},
    {"cancel_works_once", E::CancelPressed, CP, 1, 1, "", "mnu_Play_Cancel"},
    {"computer_player", E::ComputerPlayerChosen, CP, 1, 1, AgainstComputer + "Hint", ""},
    {"player_player_leaves_hint", E::PlayerPlayerChosen, PP, 1, 1, "Hint", AgainstComputer},
    {"computer_computer", E::ComputerComputerChosen, CC, 1, 1, "", AgainstComputer + "Hint"},
    {"a_tool", E::ToolBegins, CP, 1, 1, "mnu_Play_Cancel", Frozen},
    {"after_a_tool", E::ToolEnds, CP, 1, 2, Frozen, "mnu_Play_Cancel"}};
INSTANTIATE_TEST_SUITE_P(Rows, EventRows, testing::ValuesIn(EventTable), tests::RowName);

TEST_F(Enabling, ModesAreOneOfThree) {
    for (const auto& [Event, Chosen] :
         {std::pair{E::PlayerPlayerChosen, C::Pplayer}, std::pair{E::ComputerComputerChosen, C::mnu_Play_Ccomputer},
          std::pair{E::ComputerPlayerChosen, C::Cplayer}}) {
        ApplyEvent(State, Event);
        for (const CommandId Mode : {C::Cplayer, C::Pplayer, C::mnu_Play_Ccomputer}) {
            EXPECT_EQ(Mode == Chosen, Ticked(Mode)) << RowOf(Mode).Name;
        }
    }
}

TEST_F(Enabling, PopupTicksKeepPiecesAndSidesApart) {
    ChooseRadio(State, C::Whiteking);
    ChooseRadio(State, C::WhiteM);
    ChooseRadio(State, C::empty1);
    EXPECT_TRUE(Ticked(C::empty1));
    EXPECT_FALSE(Ticked(C::Whiteking));
    EXPECT_TRUE(Ticked(C::WhiteM));
    EXPECT_FALSE(Ticked(C::mnu_PopUp_BlackM));
    EXPECT_TRUE(Ticked(C::Cplayer)) << "a group of another menu was touched";
}

TEST_F(Enabling, AShutMenuShutsItsEntriesAtAnyDepth) {
    EXPECT_TRUE(CanRun(State, C::mnu_Board_Notation_Chess));
    SetEnabled(State, C::mnu_Board1, false);
    EXPECT_FALSE(CanRun(State, C::mnu_Board_Notation_Chess));
    EXPECT_FALSE(CanRun(State, C::Turn));
    EXPECT_TRUE(CanRun(State, C::New1));
    EXPECT_FALSE(CanRun(State, C::None));
}

TEST_F(Enabling, FrozenMenusComeBackWhole) {
    const WindowContents Before = State;
    FreezeMenus(State);
    EXPECT_FALSE(CanRun(State, C::New1));
    EXPECT_FALSE(CanRun(State, C::calculation));
    EXPECT_FALSE(State.MoveBox.Enabled);
    EXPECT_FALSE(State.ToolbarEnabled);
    UnfreezeMenus(State);
    EXPECT_TRUE(Before == static_cast<const WindowContents&>(State));
}

TEST_F(Enabling, TypedMovesWaitForTheSearch) {
    ApplyEvent(State, E::SearchBegins);
    EXPECT_FALSE(State.MoveBox.Enabled);
    ApplyEvent(State, E::SearchEnds);
    EXPECT_TRUE(State.MoveBox.Enabled);
}

} // namespace
} // namespace zonterbrook::view
