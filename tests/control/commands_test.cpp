// The table of commands, and which of them can be run in each state of the turn.
#include "control/commands.h"
#include "support/game_fixture.h"

#include <map>
#include <set>

namespace zonterbrook::tests {
namespace {

TEST(Commands, EveryCommandHasOneRowBehindItsMenuAndKeysOfItsOwn) {
    std::set<std::string_view> Names;
    std::set<std::string> Keys;
    std::set<CommandId> Ids = {None};
    for (const control::CommandRow& Row : control::CommandRows()) {
        EXPECT_TRUE(Names.insert(Row.Name).second) << Row.Name;
        EXPECT_EQ(1U, Ids.count(Row.Menu)) << Row.Name << " stands before its menu";
        if (Row.Kind != control::CommandKind::Separator) {
            EXPECT_TRUE(Ids.insert(Row.Id).second) << Row.Name;
        }
        for (const std::string& Key : Split(Row.Shortcut, ';')) {
            EXPECT_TRUE(Keys.insert(std::string(base::Trim(Key))).second) << Row.Name << " " << Key;
        }
    }
    EXPECT_EQ(static_cast<std::size_t>(control::CommandCount), Ids.size()) << "a command has no row";
    EXPECT_THROW(control::RowOf(None), base::Fault);
}

struct StateCase {
    const char* Name;
    control::TurnState Turn;
    view::GameMode Mode;
    int Cursor; ///< of two half-moves
    const char* Enabled;
    const char* Open; ///< lists and boxes: G, C, R, T for game, choices, root moves, typed move
};

using Enabled = RowsOf<GameFixture, StateCase>;

TEST_P(Enabled, FollowsFromTheStateAlone) {
    const StateCase& Row = GetParam();
    State.Turn = Row.Turn;
    State.PlayMode = Row.Mode;
    State.Record.Count = 2;
    State.Record.Cursor = Row.Cursor;
    State.RootList.Lines = {"d4-e5"};
    std::string Found;
    for (const control::CommandRow& Command : control::CommandRows()) {
        const bool Shown = Command.Kind != control::CommandKind::Menu && Command.Menu != PopupMenu;
        if (Shown && control::IsEnabled(State, Command.Id)) {
            Found += (Found.empty() ? "" : " ") + std::string(Command.Name);
        }
    }
    EXPECT_EQ(Row.Enabled, Found);
    std::string Open;
    for (const auto& [Letter, Control] : std::map<char, view::Control>{{'C', view::Control::ChoiceList},
                                                                       {'G', view::Control::GameList},
                                                                       {'R', view::Control::RootList},
                                                                       {'T', view::Control::MoveBox}}) {
        Open += control::IsOpen(State, Control) ? std::string(1, Letter) : "";
    }
    EXPECT_EQ(Row.Open, Open);
    State.Turn = control::TurnState::Resting;
}

using enum control::TurnState;
using Mode = view::GameMode;

constexpr StateCase StateRows[] = {
    {"at_the_start", Resting, Mode::ComputerPlayer, 0,
     "New1 NewVariant Open1 Save SaveAs CopyPosition CopyGame Paste mnuProblem Details Exit Compute MoveForward Last "
     "Offerdraw Resign Hint Cplayer Pplayer mnu_Play_Ccomputer PlayWhite PlayBlack Options Analyze Turn Nonotation "
     "mnu_Board_Notation_Chess mnu_Board_Notation_Checkers CreateHtml CopyDiagram SaveDiagram PrintDiagram calculation "
     "MarkLastMove SlideMoves FullScreen rating plyvaluetable Contents QuickRules Rules mnu_Help_About",
     "CGRT"},
    {"between_persons_in_the_middle", Resting, Mode::PlayerPlayer, 1,
     "New1 NewVariant Open1 Save SaveAs CopyPosition CopyGame Paste mnuProblem Details Exit Compute First Moveback "
     "MoveForward Last TakeBack Hint Cplayer Pplayer mnu_Play_Ccomputer PlayWhite PlayBlack Options Analyze Turn "
     "Nonotation "
     "mnu_Board_Notation_Chess mnu_Board_Notation_Checkers CreateHtml CopyDiagram SaveDiagram PrintDiagram calculation "
     "MarkLastMove SlideMoves FullScreen rating plyvaluetable Contents QuickRules Rules mnu_Help_About",
     "CGRT"},
    {"thinking", Thinking, Mode::ComputerPlayer, 2,
     "Exit mnu_Play_Cancel calculation MarkLastMove SlideMoves FullScreen rating Contents QuickRules Rules "
     "mnu_Help_About",
     ""},
    {"playing_itself", Thinking, Mode::ComputerComputer, 2,
     "Exit mnu_Play_Cancel calculation MarkLastMove SlideMoves FullScreen rating Contents QuickRules Rules "
     "mnu_Help_About",
     "G"},
    {"replaying", Replaying, Mode::ComputerPlayer, 1,
     "Exit calculation MarkLastMove SlideMoves FullScreen rating Contents QuickRules Rules mnu_Help_About", "G"},
    {"measuring", Measuring, Mode::PlayerPlayer, 1,
     "Exit mnu_Play_Cancel calculation MarkLastMove SlideMoves FullScreen rating Contents QuickRules Rules "
     "mnu_Help_About",
     "G"},
    {"hinting", Hinting, Mode::PlayerPlayer, 1,
     "Exit calculation MarkLastMove SlideMoves FullScreen rating Contents QuickRules Rules mnu_Help_About", "G"},
    {"message_to_come", Ending, Mode::ComputerPlayer, 2, "Exit", "G"},
    {"over_at_the_end", Over, Mode::ComputerPlayer, 2,
     "New1 NewVariant Open1 Save SaveAs CopyPosition CopyGame Paste Details Exit First Moveback TakeBack Cplayer "
     "Pplayer "
     "PlayWhite PlayBlack Options Turn Nonotation "
     "mnu_Board_Notation_Chess "
     "mnu_Board_Notation_Checkers CreateHtml CopyDiagram SaveDiagram PrintDiagram "
     "calculation MarkLastMove SlideMoves FullScreen rating Contents QuickRules Rules mnu_Help_About",
     "GRT"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Enabled, testing::ValuesIn(StateRows), RowName);

TEST_F(GameFixture, ATurnGoesNoForbiddenWay) {
    EXPECT_THROW((control::EnterTurn(State, Ending), control::EnterTurn(State, Resting)), base::Fault);
    State.Turn = Over;
    EXPECT_THROW(control::EnterTurn(State, Thinking), base::Fault);
    State.Turn = Thinking;
    EXPECT_THROW(control::EnterTurn(State, Replaying), base::Fault);
    State.Turn = Resting;
}

} // namespace
} // namespace zonterbrook::tests
