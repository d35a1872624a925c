// The three modes: names, ticks and commands, the computer against itself to the end of its games, and Cancel.
#include "control/computer_move.h"
#include "control/modes.h"
#include "formats/variant_file.h"
#include "support/game_fixture.h"
#include "support/turn_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class Modes : public GameFixture {
protected:
    TurnWorld Nodes{World};

    void SetUp() override {
        GameFixture::SetUp();
        State.World = &Nodes;
        State.Strength = 0;
    }

    void ExpectMode(std::int32_t Mode, CommandId Ticked) {
        EXPECT_EQ(Mode, State.PlayMode);
        for (const CommandId Id : {CommandId::Cplayer, CommandId::Pplayer, CommandId::mnu_Play_Ccomputer}) {
            EXPECT_EQ(Id == Ticked, State.CommandOf(Id).Ticked) << view::RowOf(Id).Name;
        }
    }
};

struct NameCase {
    const char* Name;
    std::uint8_t BlackStarts;
    std::int32_t Side;
    const char* White;
    const char* Black;
};

class Names : public Modes, public testing::WithParamInterface<NameCase> {};

TEST_P(Names, GiveThePersonTheSideToMove) {
    const NameCase& Row = GetParam();
    Lay("w c3, w e3, b d8, b f8", Row.BlackStarts == 1 ? rules::Black : rules::White);
    BetweenPersons();
    EXPECT_EQ("Player", State.WhitePlayerName);
    EXPECT_EQ("Player", State.BlackPlayerName);
    if (State.Side != Row.Side) {
        DoubleClickMove(State.List2.Lines.at(0));
    }
    ASSERT_EQ(Row.Side, State.Side);
    const int Moves = State.GameMoves;
    control::RunCommand(State, CommandId::Cplayer);
    EXPECT_EQ(Row.White, State.WhitePlayerName);
    EXPECT_EQ(Row.Black, State.BlackPlayerName);
    EXPECT_EQ(Row.BlackStarts == 1 ? Row.Black : Row.White, State.Label1.Text);
    EXPECT_EQ(Moves, State.GameMoves) << "the game stays as it is";
}

INSTANTIATE_TEST_SUITE_P(Rows, Names,
                         testing::Values(NameCase{"white_of_white", 0, rules::White, "Player", "Computer"},
                                         NameCase{"black_of_white", 0, rules::Black, "Computer", "Player"},
                                         NameCase{"white_of_black", 1, rules::White, "Player", "Computer"},
                                         NameCase{"black_of_black", 1, rules::Black, "Computer", "Player"}),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Modes, APersonAgainstAPersonNeitherResignsNorOffers) {
    BetweenPersons();
    ExpectMode(view::PlayerPlayer, CommandId::Pplayer);
    EXPECT_FALSE(view::CanRun(State, CommandId::Offerdraw));
    EXPECT_FALSE(view::CanRun(State, CommandId::Resign));
    EXPECT_EQ("Player-Player mode", State.StatusPanels[view::StatusPanel]);
    control::RunCommand(State, CommandId::Cplayer);
    ExpectMode(view::ComputerPlayer, CommandId::Cplayer);
    EXPECT_TRUE(view::CanRun(State, CommandId::Offerdraw));
    EXPECT_TRUE(view::CanRun(State, CommandId::Resign));
    EXPECT_EQ("Computer-Player mode", State.StatusPanels[view::StatusPanel]);
}

TEST_F(Modes, AChangeOfModeDoesNotReopenAGame) {
    BetweenPersons();
    Lay("w c3, b d4");
    World.ExpectMessage("Congratulations", "White wins!");
    Type("c3e5");
    control::RunCommand(State, CommandId::Cplayer);
    EXPECT_FALSE(view::CanRun(State, CommandId::Offerdraw));
    EXPECT_FALSE(view::CanRun(State, CommandId::Resign));
    EXPECT_FALSE(view::CanRun(State, CommandId::Hint));
}

// --- the computer against itself ---------------------------------------------------------------------------------

struct StopCase {
    const char* Name;
    int InMove; ///< of the game, from 0
    bool InWait;
    bool ByWindow;
    int Moves; ///< that have been made when it is over
};

class OwnPlayStops : public Modes, public testing::WithParamInterface<StopCase> {};

TEST_P(OwnPlayStops, WhenAsked) {
    const StopCase& Row = GetParam();
    State.SearchDepth = 4;
    State.ConfirmExit = 0;
    int Asked = 0;
    const auto Stop = [&] {
        if (State.GameMoves != Row.InMove || Asked++ > 0) {
            return;
        }
        EXPECT_EQ(1, State.Thinking);
        EXPECT_TRUE(view::CanRun(State, CommandId::mnu_Play_Cancel));
        EXPECT_FALSE(view::CanRun(State, CommandId::New1));
        if (Row.ByWindow) {
            bool Cancel = false;
            control::Form_QueryUnload(State, Cancel);
            EXPECT_TRUE(Cancel) << "closed in the midst of it";
        } else {
            control::RunCommand(State, CommandId::mnu_Play_Cancel);
        }
    };
    if (Row.InWait) {
        World.OnWait = Stop;
    } else {
        // A search is under way: nodes are made at plies below the root, and the root's move counts.
        Nodes.OnNode = [&] {
            if (State.Ply == 2 && State.GameMoves - 2 == Row.InMove && Asked++ == 0) {
                control::RunCommand(State, CommandId::mnu_Play_Cancel);
            }
        };
    }
    control::RunCommand(State, CommandId::mnu_Play_Ccomputer);
    EXPECT_LT(0, Asked);
    EXPECT_EQ(Row.Moves, State.GameMoves);
    ExpectMode(view::ComputerPlayer, CommandId::Cplayer);
    EXPECT_EQ(0, State.Thinking);
    EXPECT_EQ(0, State.SearchActive);
    EXPECT_EQ(0, State.CancelRequested);
    EXPECT_EQ(0, State.RatingAllowed) << "such a game must not be rated";
    const bool WhiteMoves = State.Side == rules::White;
    EXPECT_EQ(WhiteMoves ? "Player" : "Computer", State.WhitePlayerName);
    EXPECT_EQ(WhiteMoves ? "Computer" : "Player", State.BlackPlayerName);
    EXPECT_EQ(Row.ByWindow ? 1 : 0, World.Closings);
    for (const CommandId Id : {CommandId::New1, CommandId::Compute, CommandId::Moveback, CommandId::Offerdraw,
                               CommandId::Resign, CommandId::Pplayer, CommandId::mnu_Play_Ccomputer}) {
        EXPECT_TRUE(view::CanRun(State, Id)) << view::RowOf(Id).Name;
    }
    EXPECT_FALSE(view::CanRun(State, CommandId::mnu_Play_Cancel));
    EXPECT_TRUE(State.Text2.Enabled && State.List2.Enabled && State.List3.Enabled);
    EXPECT_EQ(static_cast<std::size_t>(rules::MoveCountOfPly(State)), State.List2.Lines.size());
    ExpectConsistent();
}

INSTANTIATE_TEST_SUITE_P(Rows, OwnPlayStops,
                         testing::Values(StopCase{"in_the_third_search", 2, false, false, 3},
                                         // In the wait before a search the move is still made.
                                         StopCase{"before_the_first_search", 0, true, false, 1},
                                         StopCase{"between_two_moves", 3, true, false, 3},
                                         StopCase{"by_closing_the_window", 2, true, true, 2}),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Modes, TheClockDoesNotEndOwnPlay) {
    State.FixedDepth = 0;
    State.TimeLimit = 1;
    Nodes.OnNode = [&] { World.Clock += 0.01; };
    World.OnWait = [&] { State.CancelRequested = State.GameMoves == 6 ? 1 : State.CancelRequested; };
    control::RunCommand(State, CommandId::mnu_Play_Ccomputer);
    EXPECT_EQ(6, State.GameMoves);
}

TEST_F(Modes, OwnPlayLeavesTheListsEmptyMeanwhile) {
    int Looked = 0;
    State.CancelRequested = 1; // of an earlier search
    World.OnWait = [&] {
        ++Looked;
        EXPECT_EQ("Computer", State.WhitePlayerName);
        EXPECT_EQ("Computer", State.BlackPlayerName);
        EXPECT_TRUE(State.CommandOf(CommandId::mnu_Play_Ccomputer).Ticked);
        EXPECT_TRUE(State.List2.Lines.empty() && State.List3.Lines.empty());
        EXPECT_FALSE(State.List2.Enabled || State.List3.Enabled);
        State.CancelRequested = State.GameMoves == 3 ? 1 : State.CancelRequested;
    };
    control::RunCommand(State, CommandId::mnu_Play_Ccomputer);
    EXPECT_LT(3, Looked);
}

// Whole games over the shipped variants: each ends by a rule, and what is kept beside the board agrees with it.
class OwnGames : public testing::TestWithParam<std::string> {};

struct AnyEnding : ScriptedPlatform {
    using ScriptedPlatform::ScriptedPlatform;
    std::vector<std::string> Said;

    void Message(std::string_view Title, std::string_view Text, control::Icon) override {
        EXPECT_EQ("Congratulations", Title) << Text;
        Said.emplace_back(Text);
    }
};

TEST_P(OwnGames, EndByARule) {
    static constexpr std::string_view Endings[] = {
        "Computer wins!",
        "It's a draw!",
        "It's a draw! Triple Repetition",
        "It's a draw! 50 Moves Rule",
        "It's a draw! King versus King",
        "It's a draw! 3 Kings versus 1 King",
        "It's a draw! 2 Kings versus 1 King",
    };
    for (const std::uint8_t Depth : {std::uint8_t{1}, std::uint8_t{2}}) {
        AnyEnding World(ZONTERBROOK_DATA_DIR);
        const auto Owned = std::make_unique<control::GameState>();
        control::GameState& State = *Owned;
        State.Outside = &World;
        control::Form_Load(State);
        State.VariantName = GetParam();
        State.FixedDepth = 1;
        State.SearchDepth = Depth;
        control::RunCommand(State, CommandId::New1);
        const rules::BoardCellsArray Start = State.Board;
        int Waits = 0;
        World.OnWait = [&] {
            // Between two moves everything is at rest.
            if (Waits++ % 16 == 0) {
                EXPECT_EQ("", rules::CheckPosition(State));
            }
        };
        control::RunCommand(State, CommandId::mnu_Play_Ccomputer);
        EXPECT_FALSE(World.Ended);
        EXPECT_EQ(1, State.GameEnded) << "stopped at half-move " << State.GameMoves;
        ASSERT_EQ(1U, World.Said.size());
        EXPECT_NE(std::end(Endings), std::find(std::begin(Endings), std::end(Endings), World.Said[0])) << World.Said[0];
        EXPECT_EQ(0, State.Ply);
        EXPECT_EQ(State.GameMoves, State.MoveCount);
        EXPECT_EQ(static_cast<std::size_t>(State.GameMoves), State.List1.Lines.size());
        const bool BlackMoves = (State.GameMoves % 2 == 1) == (State.RuleSet.BlackStarts == 0);
        EXPECT_EQ(BlackMoves ? rules::Black : rules::White, State.Side);
        EXPECT_EQ("", rules::CheckPosition(State));
        // The way back leads to the start.
        control::RunCommand(State, CommandId::First);
        EXPECT_EQ(0, State.GameMoves);
        EXPECT_EQ("", rules::CheckPosition(State));
        EXPECT_TRUE(Start == State.Board);
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, OwnGames,
                         testing::ValuesIn(formats::ListVariants(formats::VariantFolder(ZONTERBROOK_DATA_DIR, false))),
                         [](const auto& Info) {
                             std::string Name = Info.param;
                             std::erase_if(Name, [](char C) { return !(std::isalnum(static_cast<unsigned char>(C))); });
                             return Name;
                         });

} // namespace
} // namespace zonterbrook::tests
