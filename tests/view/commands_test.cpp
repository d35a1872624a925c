// The table of commands, and which event gives and takes which.
#include "support/view_fixture.h"
#include "view/commands.h"
#include "view/state.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

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
        std::string_view Left = Row.Shortcut;
        while (!Left.empty()) {
            const std::size_t End = std::min(Left.find("; "), Left.size());
            EXPECT_TRUE(Keys.insert(std::string(Left.substr(0, End))).second) << Row.Name << " " << Left;
            Left.remove_prefix(std::min(End + 2, Left.size()));
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
    std::set<int> Free;
    for (int Index = 1; Index <= ToolbarLastIndex; ++Index) {
        Free.insert(Index);
    }
    for (const ToolbarButton& Button : ToolbarButtons()) {
        EXPECT_EQ(1U, Free.erase(Button.Index)) << Button.Key;
        EXPECT_NE(CommandId::None, RowOf(Button.Command).Menu) << Button.Key << " is in no menu";
    }
    EXPECT_EQ((std::set<int>{3, 6, 9, 14, 18, 22, 24, 26}), Free);
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
    // A record of `Lines` half-moves with the cursor behind `Made` of them.
    void Record(int Made, int Lines) {
        State.GameMoves = Made;
        State.List1.Lines.assign(static_cast<std::size_t>(Lines), "");
    }
};

struct EventCase {
    const char* Name;
    WindowEvent Event;
    std::int32_t Mode;
    int Made;
    int Lines;
    bool Before; ///< every command of the row is so before the event
    CommandId Command;
    bool After;
};

class EventRows : public Enabling, public testing::WithParamInterface<EventCase> {};

TEST_P(EventRows, GiveAndTake) {
    const EventCase& Row = GetParam();
    State.PlayMode = Row.Mode;
    Record(Row.Made, Row.Lines);
    SetEnabled(State, Row.Command, Row.Before);
    ApplyEvent(State, Row.Event);
    EXPECT_EQ(Row.After, Enabled(Row.Command));
}

using E = WindowEvent;
using C = CommandId;
constexpr int CP = ComputerPlayer;
constexpr int PP = PlayerPlayer;
constexpr int CC = ComputerComputer;

INSTANTIATE_TEST_SUITE_P(
    Rows, EventRows,
    testing::Values(
        EventCase{"new_game_gives_resign", E::GameBegins, CP, 0, 0, false, C::Resign, true},
        EventCase{"new_game_of_persons_has_no_draw_offer", E::GameBegins, PP, 0, 0, false, C::Offerdraw, false},
        EventCase{"new_game_has_nothing_behind", E::GameBegins, CP, 0, 0, true, C::Moveback, false},
        EventCase{"new_game_has_nothing_ahead", E::GameBegins, CP, 0, 0, true, C::Last, false},
        EventCase{"new_game_gives_compute_after_a_result", E::GameBegins, CP, 0, 0, false, C::Compute, true},
        EventCase{"a_move_can_be_taken_back", E::MoveEntered, CP, 1, 1, false, C::First, true},
        EventCase{"a_move_cuts_what_was_ahead", E::MoveEntered, CP, 1, 1, true, C::MoveForward, false},
        EventCase{"forward_in_the_middle_keeps_forward", E::SteppedForward, CP, 3, 5, true, C::MoveForward, true},
        EventCase{"forward_to_the_end_takes_forward", E::SteppedForward, CP, 5, 5, true, C::Last, false},
        EventCase{"forward_gives_back", E::SteppedForward, CP, 1, 5, false, C::Moveback, true},
        EventCase{"back_gives_forward", E::SteppedBack, CP, 4, 5, false, C::MoveForward, true},
        EventCase{"back_keeps_back", E::SteppedBack, CP, 4, 5, true, C::Moveback, true},
        EventCase{"back_to_the_start_takes_back", E::SteppedBack, CP, 0, 5, true, C::First, false},
        EventCase{"back_reopens_the_game", E::SteppedBack, CP, 4, 5, false, C::Compute, true},
        EventCase{"back_reopens_resigning", E::SteppedBack, CP, 4, 5, false, C::Resign, true},
        EventCase{"back_between_persons_does_not", E::SteppedBack, PP, 4, 5, false, C::Resign, false},
        EventCase{"a_result_takes_compute", E::GameEnds, CP, 4, 4, true, C::Compute, false},
        EventCase{"a_result_takes_draw_offers", E::GameEnds, CP, 4, 4, true, C::Offerdraw, false},
        EventCase{"a_result_leaves_new_game", E::GameEnds, CP, 4, 4, true, C::New1, true},
        EventCase{"a_result_leaves_back", E::GameEnds, CP, 4, 4, true, C::Moveback, true},
        EventCase{"a_search_can_be_cancelled", E::SearchBegins, CP, 1, 1, false, C::mnu_Play_Cancel, true},
        EventCase{"a_search_shuts_the_board_menu", E::SearchBegins, CP, 1, 1, true, C::mnu_Board1, false},
        EventCase{"a_search_shuts_new_game", E::SearchBegins, CP, 1, 1, true, C::New1, false},
        EventCase{"a_search_shuts_back", E::SearchBegins, CP, 1, 1, true, C::Moveback, false},
        EventCase{"a_search_leaves_exit", E::SearchBegins, CP, 1, 1, true, C::Exit, true},
        EventCase{"after_a_search_nothing_to_cancel", E::SearchEnds, CP, 1, 1, true, C::mnu_Play_Cancel, false},
        EventCase{"after_a_search_back_returns", E::SearchEnds, CP, 1, 1, false, C::Moveback, true},
        EventCase{"but_not_without_moves", E::SearchEnds, CP, 0, 0, false, C::Moveback, false},
        EventCase{"forward_returns_if_moves_lie_ahead", E::SearchEnds, CP, 1, 2, false, C::Last, true},
        EventCase{"and_not_otherwise", E::SearchEnds, CP, 2, 2, false, C::Last, false},
        EventCase{"after_a_search_persons_have_no_resigning", E::SearchEnds, PP, 2, 2, false, C::Resign, false},
        EventCase{"the_computer_against_itself_keeps_cancel", E::SearchEnds, CC, 2, 2, true, C::mnu_Play_Cancel, true},
        EventCase{"and_gives_no_new_game_between_moves", E::SearchEnds, CC, 2, 2, false, C::New1, false},
        EventCase{"cancel_works_once", E::CancelPressed, CP, 1, 1, true, C::mnu_Play_Cancel, false},
        EventCase{"persons_keep_no_draw_offer", E::PlayerPlayerChosen, PP, 1, 1, true, C::Offerdraw, false},
        EventCase{"the_computer_takes_draw_offers", E::ComputerPlayerChosen, CP, 1, 1, false, C::Offerdraw, true},
        EventCase{"a_tool_shuts_compute", E::ToolBegins, CP, 1, 1, true, C::Compute, false},
        EventCase{"a_tool_shuts_the_modes", E::ToolBegins, CP, 1, 1, true, C::Pplayer, false},
        EventCase{"a_tool_gives_them_back", E::ToolEnds, CP, 1, 1, false, C::Pplayer, true},
        EventCase{"what_is_not_built_stays_shut", E::GameBegins, CP, 0, 0, false, C::Analyze, false}),
    [](const auto& Info) { return std::string(Info.param.Name); });

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
    EXPECT_FALSE(State.Text2.Enabled);
    EXPECT_FALSE(State.ToolbarEnabled);
    UnfreezeMenus(State);
    EXPECT_TRUE(Before == static_cast<const WindowContents&>(State));
}

TEST_F(Enabling, TypedMovesWaitForTheSearch) {
    ApplyEvent(State, E::SearchBegins);
    EXPECT_FALSE(State.Text2.Enabled);
    ApplyEvent(State, E::SearchEnds);
    EXPECT_TRUE(State.Text2.Enabled);
}

} // namespace
} // namespace zonterbrook::view
