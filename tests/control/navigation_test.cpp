// Going through the game that has been played.
#include "control/navigation.h"
#include "control/rating.h"
#include "support/game_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class Navigation : public GameFixture {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        BetweenPersons();
    }
    void Play(const std::vector<std::string>& Moves) {
        for (const std::string& Move : Moves) {
            const int Before = State.GameMoves;
            Type(Move);
            ASSERT_EQ(Before + 1, State.GameMoves) << Move;
        }
    }
    bool Enabled(CommandId Id) const { return State.CommandOf(Id).Enabled; }
    void Run(CommandId Id) { control::RunCommand(State, Id); }
};

TEST_F(Navigation, FirstAndLastReachTheEndsAndBackAgain) {
    Play({"b4a5", "i7j6", "d4c5", "g7h6"});
    const rules::BoardCellsArray End = State.Board;
    Run(CommandId::First);
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_EQ(rules::White, State.Side);
    EXPECT_EQ(State.StartBoard, State.Board);
    EXPECT_EQ(-1, State.List1.Selected);
    EXPECT_FALSE(Enabled(CommandId::First));
    EXPECT_FALSE(Enabled(CommandId::Moveback));
    EXPECT_TRUE(Enabled(CommandId::Last));
    EXPECT_EQ(9U, State.List2.Lines.size());
    ExpectConsistent();
    Run(CommandId::Last);
    EXPECT_EQ(4, State.GameMoves);
    EXPECT_EQ(End, State.Board);
    EXPECT_EQ(3, State.List1.Selected);
    EXPECT_FALSE(Enabled(CommandId::Last));
    EXPECT_TRUE(Enabled(CommandId::First));
    ExpectConsistent();
}

TEST_F(Navigation, StepsShowTheirMove) {
    Play({"d4e5", "e7d6"});
    Run(CommandId::Moveback);
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(0, State.List1.Selected);
    EXPECT_EQ("", State.StatusPanels[view::StatusPanel]);
    Run(CommandId::MoveForward);
    EXPECT_EQ(2, State.GameMoves);
    EXPECT_EQ("e7-d6", State.StatusPanels[view::StatusPanel]);
}

struct ClickCase {
    int Line;
    int Cursor;
};

class Clicks : public Navigation, public testing::WithParamInterface<ClickCase> {};

TEST_P(Clicks, GoBehindTheirLine) {
    Play({"b4a5", "i7j6", "d4c5", "g7h6"});
    Run(CommandId::Moveback);
    State.List1.Selected = GetParam().Line;
    control::List1_MouseUp(State);
    EXPECT_EQ(GetParam().Cursor, State.GameMoves);
    EXPECT_EQ(GetParam().Cursor - 1, State.List1.Selected);
}

INSTANTIATE_TEST_SUITE_P(Rows, Clicks,
                         testing::Values(ClickCase{0, 1}, ClickCase{1, 2}, ClickCase{2, 3}, ClickCase{3, 4}));

TEST_F(Navigation, EnterInTheListDoesTheSameAndOtherKeysNothing) {
    Play({"d4e5", "e7d6", "f4g5"});
    State.List1.Selected = 0;
    control::List1_KeyDown(State, 40);
    EXPECT_EQ(3, State.GameMoves);
    control::List1_KeyDown(State, control::EnterKey);
    EXPECT_EQ(1, State.GameMoves);
    State.List1.Selected = -1;
    control::List1_MouseUp(State);
    EXPECT_EQ(1, State.GameMoves) << "no line is no place";
}

TEST_F(Navigation, AtTheEndsNothingHappens) {
    Run(CommandId::First);
    control::Last_Click(State);
    control::NavigateMoves(State, 1, false, false);
    control::NavigateMoves(State, -1, false, false);
    EXPECT_EQ(0, State.GameMoves);
    Play({"d4e5"});
    control::Last_Click(State);
    EXPECT_EQ(1, State.GameMoves);
    control::NavigateMoves(State, -5, false, false);
    EXPECT_EQ(1, State.GameMoves);
    control::NavigateMoves(State, 5, false, false);
    EXPECT_EQ(0, State.GameMoves);
    ExpectConsistent();
}

TEST_F(Navigation, NotWhileTheComputerThinks) {
    Play({"d4e5"});
    State.Thinking = 1;
    control::First_Click(State);
    control::Moveback_Click(State);
    State.List1.Selected = 0;
    control::List1_MouseUp(State);
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Navigation, CapturesCrowningsAndMaterialComeBack) {
    Lay("w c3, w a9, b d4, b h8, b j0");
    const rules::BoardCellsArray Start = State.Board;
    Play({"c3xe5", "h8g7", "a9b0", "g7f6", "b0xg5"});
    const rules::BoardCellsArray End = State.Board;
    for (int Step = 0; Step < 5; ++Step) {
        Run(CommandId::Moveback);
        ExpectConsistent();
    }
    EXPECT_EQ(Start, State.Board);
    EXPECT_EQ(500, State.TotalMaterial[0]);
    Run(CommandId::Last);
    EXPECT_EQ(End, State.Board);
    EXPECT_EQ(State.TotalMaterialAt[5], State.TotalMaterial[State.Ply]);
    ExpectConsistent();
}

TEST_F(Navigation, OfTwoCapturesWithTheSameEndsThePlayedOneIsPlayedAgain) {
    State.RuleSet.MovementStrings[0].Assign("NW;NE NW;NE");
    Lay("w c3, b d4, b d6, b b4, b b6, b j0");
    Type("c3c7");
    ASSERT_EQ(1, State.GameMoves);
    const rules::BoardCellsArray FirstWay = State.Board;
    Run(CommandId::First);
    // As if the computer had played the second one.
    ASSERT_EQ(2, State.StackLimit[1]);
    State.PlayedMoves[1] = rules::RememberMove(State, 1);
    Run(CommandId::Last);
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_NE(FirstWay, State.Board);
    EXPECT_EQ(rules::BlackMan, PieceOn(FirstWay[Square("d4")] == rules::Empty ? "d4" : "b4"));
    Run(CommandId::First);
    EXPECT_EQ(State.StartBoard, State.Board);
    ExpectConsistent();
}

TEST_F(Navigation, AKingTakenOffByItsOwnCircleStandsAgain) {
    Lay("W c3, b d4, b d6, b b6, b b4, w i1, b j0");
    Drag("c3", "c3");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(rules::Empty, PieceOn("c3")) << "a circle takes its king along";
    Run(CommandId::Moveback);
    EXPECT_EQ(rules::WhiteKing, PieceOn("c3"));
    EXPECT_EQ(State.StartBoard, State.Board);
    ExpectConsistent();
}

TEST_F(Navigation, CommentsFollowTheCursor) {
    State.Text1.Text = "first";
    control::Text1_KeyUp(State);
    Play({"d4e5", "e7d6"});
    Run(CommandId::Moveback);
    EXPECT_EQ("first", State.Text1.Text);
    Run(CommandId::Moveback);
    EXPECT_EQ("", State.Text1.Text);
    Run(CommandId::MoveForward);
    EXPECT_EQ("first", State.Text1.Text);
}

TEST_F(Navigation, BackFromAResignationTheGameGoesOn) {
    control::RunCommand(State, CommandId::Cplayer);
    Drag("d4", "e5");
    ASSERT_EQ(2, State.GameMoves);
    State.UseRating = 0;
    World.ExpectMessage("Congratulations", "OK... Computer wins!");
    Run(CommandId::Resign);
    EXPECT_EQ(1, State.GameEnded);
    EXPECT_FALSE(Enabled(CommandId::Resign));
    EXPECT_FALSE(State.List2.Enabled);
    Run(CommandId::Moveback);
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_TRUE(Enabled(CommandId::Resign));
    EXPECT_TRUE(Enabled(CommandId::Compute));
    EXPECT_TRUE(State.List2.Enabled);
    EXPECT_EQ("", State.ResultText);
}

TEST_F(Navigation, ALostPositionIsLostAgainAtTheEndOfTheRecord) {
    Lay("w c3, b d4");
    World.ExpectMessage("Congratulations", "White wins!");
    Type("c3e5");
    ASSERT_EQ(1, State.GameEnded);
    EXPECT_EQ("1-0", State.ResultText);
    Run(CommandId::Moveback);
    EXPECT_EQ(0, State.GameEnded);
    // Said once is enough.
    Run(CommandId::MoveForward);
    EXPECT_EQ(1, State.GameEnded);
    EXPECT_EQ("1-0", State.ResultText);
    EXPECT_FALSE(Enabled(CommandId::Compute));
}

TEST_F(Navigation, ATouchedPieceDoesNotHoldTheCursor) {
    State.TouchMove = 1;
    Play({"d4e5", "e7d6"});
    Run(CommandId::First);
    Drag("f4", "f4");
    Run(CommandId::MoveForward);
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Navigation, ALongGameOfKingsRunsToTheLimitOfTheRecord) {
    State.ChessDrawRules = 0;
    Lay("W a1, W c1, B h0, B j0");
    // Four moves that lead back to where they began.
    const std::vector<std::string> Round = {"c1d2", "h0g9", "d2c1", "g9h0"};
    // There is no room for more, and nobody has won.
    World.ExpectMessage("Congratulations", "It's a draw!");
    while (State.GameMoves < rules::MaxGameMoves && State.GameEnded == 0) {
        const int Before = State.GameMoves;
        Type(Round[static_cast<std::size_t>(Before % 4)]);
        ASSERT_EQ(Before + 1, State.GameMoves);
    }
    EXPECT_EQ("1/2-1/2", State.ResultText);
    EXPECT_EQ(1000U, State.List1.Lines.size());
    EXPECT_EQ(" 500. d2-c1", State.List1.Lines[998]);
    Run(CommandId::First);
    EXPECT_EQ(0, State.GameMoves);
    Run(CommandId::Last);
    EXPECT_EQ(1000, State.GameMoves);
    EXPECT_EQ(1, State.GameEnded);
    ExpectConsistent();
}

} // namespace
} // namespace zonterbrook::tests
