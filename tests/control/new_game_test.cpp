// A new game, and the openings by lot.
#include "control/new_game.h"
#include "support/game_fixture.h"

#include <gtest/gtest.h>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class NewGames : public GameFixture {};

TEST_F(NewGames, ForgetWhatWasPlayed) {
    BetweenPersons();
    State.Text1.Text = "note";
    control::Text1_KeyUp(State);
    Drag("d4", "e5");
    Press("e7");
    State.DrawCode = 3;
    State.ThreeKingsStart = 5;
    World.ExpectQuestion("Confirmation", "Quit current game?", true);
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_EQ(0, State.MoveCount);
    EXPECT_EQ(0, State.GameStarted);
    EXPECT_EQ("", State.MoveComment[1]);
    EXPECT_EQ("", State.GameMoveRow[1].FirstMove);
    EXPECT_TRUE(State.List1.Lines.empty());
    EXPECT_EQ(-1, State.SourceCell);
    EXPECT_EQ(0, State.DrawCode);
    EXPECT_EQ(0, State.ThreeKingsStart);
    EXPECT_EQ(State.StartBoard, State.Board);
    EXPECT_EQ(rules::White, State.Side);
    EXPECT_EQ(view::Picture::dark_white_man, CellOn("d4").Shows);
    EXPECT_FALSE(State.CommandOf(CommandId::Moveback).Enabled);
    EXPECT_EQ("Player", State.BlackPlayerName) << "two persons stay two persons";
    ExpectConsistent();
}

TEST_F(NewGames, AreNotBegunOnANo) {
    BetweenPersons();
    Drag("d4", "e5");
    World.ExpectQuestion("Confirmation", "Quit current game?", false);
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(1U, State.List1.Lines.size());
}

TEST_F(NewGames, AskNothingBeforeTheFirstMove) {
    State.UseSound = 1;
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ((std::vector<std::string>{"sounds/roll.wav"}), World.Sounds);
}

TEST_F(NewGames, AfterAResultEverythingIsOpenAgain) {
    BetweenPersons();
    control::RunCommand(State, CommandId::Cplayer);
    Lay("w c3, b d4");
    BetweenPersons();
    World.ExpectMessage("Congratulations", "White wins!");
    Type("c3e5");
    ASSERT_EQ(1, State.GameEnded);
    World.ExpectQuestion("Confirmation", "Quit current game?", true);
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_EQ("", State.ResultText);
    EXPECT_TRUE(State.List2.Enabled);
    EXPECT_TRUE(State.CommandOf(CommandId::Compute).Enabled);
    EXPECT_EQ(20, rules::PiecesOf(State, rules::White).Count()) << "the laid position is gone";
}

struct LotCase {
    double Chance;
    std::int32_t Side;
};

class Lots : public NewGames, public testing::WithParamInterface<LotCase> {};

TEST_P(Lots, DecideWhoBegins) {
    State.RuleSet.RndColor = 1;
    World.Chances = {GetParam().Chance};
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(GetParam().Side, State.Side);
    EXPECT_EQ(GetParam().Side == rules::Black ? "Black moves" : "White moves", State.StatusPanels[view::StatusPanel]);
    EXPECT_EQ(GetParam().Side == rules::Black ? "Black" : "White", State.Label3.Text);
}

INSTANTIATE_TEST_SUITE_P(Rows, Lots,
                         testing::Values(LotCase{0.0, rules::White}, LotCase{0.49, rules::White},
                                         LotCase{0.5, rules::Black}, LotCase{0.99, rules::Black}));

struct RemovalCase {
    std::uint8_t Number;
    int Left;
};

class Removals : public NewGames, public testing::WithParamInterface<RemovalCase> {};

TEST_P(Removals, LeaveOneManAtLeast) {
    State.RuleSet.RemoveMen = 1;
    State.RuleSet.NumberMen = GetParam().Number;
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(GetParam().Left, rules::PiecesOf(State, rules::White).Count());
    EXPECT_EQ(GetParam().Left, rules::PiecesOf(State, rules::Black).Count());
    EXPECT_EQ(State.Board, State.StartBoard);
    EXPECT_EQ(0, State.RatingAllowed);
    EXPECT_EQ(200 * GetParam().Left, State.TotalMaterial[0]);
    EXPECT_EQ(rules::White, State.Side);
    ExpectConsistent();
}

INSTANTIATE_TEST_SUITE_P(Rows, Removals,
                         testing::Values(RemovalCase{0, 20}, RemovalCase{3, 17}, RemovalCase{19, 1}, RemovalCase{20, 1},
                                         RemovalCase{255, 1}));

TEST_F(NewGames, AfterARemovalTheNextGameHasAllItsMen) {
    State.RuleSet.RemoveMen = 1;
    State.RuleSet.NumberMen = 5;
    control::RunCommand(State, CommandId::New1);
    State.RuleSet.RemoveMen = 0;
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(20, rules::PiecesOf(State, rules::White).Count());
    EXPECT_EQ(1, State.RatingAllowed);
}

TEST_F(NewGames, AutomaticMovesAreInTheRecordAsIfLoaded) {
    State.RuleSet.DoMoves = 1;
    State.RuleSet.NumberMoves = 5;
    control::RunCommand(State, CommandId::New1);
    EXPECT_EQ(5, State.GameMoves);
    EXPECT_EQ(5U, State.List1.Lines.size());
    EXPECT_EQ("3", State.GameMoveRow[3].FirstSource);
    EXPECT_EQ(rules::Black, State.Side);
    EXPECT_EQ("Player", State.BlackPlayerName) << "the person is to move";
    EXPECT_EQ("Computer", State.WhitePlayerName);
    EXPECT_TRUE(State.CommandOf(CommandId::Moveback).Enabled);
    control::RunCommand(State, CommandId::First);
    EXPECT_EQ(State.StartBoard, State.Board);
    ExpectConsistent();
}

TEST_F(NewGames, AnAutomaticMoveThatEndsTheGameIsLeftOut) {
    Lay("w c3, b d4");
    State.RuleSet.NumberMoves = 4;
    control::ApplyAutomaticMoves(State);
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_EQ(rules::BlackMan, PieceOn("d4"));
    EXPECT_EQ(0, State.GameEnded);
    ExpectConsistent();
}

} // namespace
} // namespace zonterbrook::tests
