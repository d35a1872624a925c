// Going through the game that has been played.
#include "control/ending.h"
#include "control/navigation.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

constexpr const char* FourMoves = "b4a5 i7j6 d4c5 g7h6";

class Navigation : public PersonsFixture {
protected:
    // There and back again: the start as it was, and then the end as it was.
    void ExpectTheWholeWay() {
        const rules::BoardCellsArray End = State.Board;
        const int Moves = State.GameMoves;
        while (State.GameMoves > 0) {
            const int Before = State.GameMoves;
            Run(Back);
            ASSERT_EQ(Before - 1, State.GameMoves);
            EXPECT_EQ(State.Record.HalfMoves[Before - 1].TotalMaterial, State.TotalMaterial[State.Ply]);
            ExpectConsistent();
        }
        EXPECT_EQ(State.StartBoard, State.Board);
        Run(Last);
        EXPECT_EQ(Moves, State.GameMoves);
        EXPECT_EQ(End, State.Board);
        EXPECT_EQ(State.Record.HalfMoves[Moves].TotalMaterial, State.TotalMaterial[State.Ply]);
        ExpectConsistent();
    }
};

TEST_F(Navigation, FirstAndLastReachTheEndsAndBackAgain) {
    Play(FourMoves);
    Run(First);
    EXPECT_EQ(rules::White, State.Side);
    EXPECT_EQ(-1, State.GameList.Selected);
    ExpectCan(false, {First, Back});
    ExpectCan(true, {Forward, Last});
    EXPECT_EQ(9U, State.ChoiceList.Lines.size());
    EXPECT_FALSE(control::IsOpen(State, view::Control::RootList));
    Run(Last);
    EXPECT_EQ(3, State.GameList.Selected);
    ExpectCan(true, {First, Back});
    ExpectCan(false, {Forward, Last});
    ExpectTheWholeWay();
}

TEST_F(Navigation, StepsShowTheirMove) {
    Play("d4e5 e7d6");
    State.HintSource = Square("f4"); // expected in another position
    Run(Back);
    EXPECT_EQ(0, State.HintSource);
    EXPECT_EQ("", Status());
    Run(Forward);
    EXPECT_EQ("e7-d6", Status());
}

TEST_F(Navigation, AClickGoesBehindItsLine) {
    Play(FourMoves);
    for (const int Line : {0, 3, 3, 0}) {
        State.GameList.Selected = Line;
        control::List1_MouseUp(State);
        EXPECT_EQ(Line + 1, State.GameMoves);
        EXPECT_EQ(Line, State.GameList.Selected);
    }
    State.GameList.Selected = 2;
    control::List1_KeyDown(State, 40);
    EXPECT_EQ(1, State.GameMoves) << "a key that is not Enter";
    control::List1_KeyDown(State, control::EnterKey);
    EXPECT_EQ(3, State.GameMoves);
    State.GameList.Selected = -1;
    control::List1_MouseUp(State);
    EXPECT_EQ(3, State.GameMoves) << "no line is no place";
}

TEST_F(Navigation, AtTheEndsAndWhileTheComputerThinksNothingHappens) {
    control::Last_Click(State);
    control::NavigateMoves(State, 1);
    control::NavigateMoves(State, -1);
    EXPECT_EQ(0, State.GameMoves);
    Play("d4e5");
    control::Last_Click(State);
    control::NavigateMoves(State, -5);
    EXPECT_EQ(1, State.GameMoves);
    control::NavigateMoves(State, 5);
    EXPECT_EQ(0, State.GameMoves);
    Play("d4e5 e7d6");
    PretendTurn(control::TurnState::Thinking);
    Run(First);
    Run(Back);
    State.GameList.Selected = 0;
    control::List1_MouseUp(State);
    EXPECT_EQ(2, State.GameMoves);
}

TEST_F(Navigation, CapturesCrowningsAndMaterialComeBack) {
    Lay("w c3, w a9, b d4, b h8, b j0");
    Play("c3xe5 h8g7 a9b0 g7f6 b0xg5");
    ExpectTheWholeWay();
}

TEST_F(Navigation, OfTwoCapturesWithTheSameEndsThePlayedOneIsPlayedAgain) {
    State.RuleSet.MovementStrings[0].Assign("NW;NE NW;NE");
    Lay("w c3, b d4, b d6, b b4, b b6, b j0");
    Play("c3c7");
    const rules::BoardCellsArray FirstWay = State.Board;
    Run(First);
    // As if the computer had played the second one.
    ASSERT_EQ(2, State.StackLimit[1]);
    State.Record.HalfMoves[1].Played = rules::RememberMove(State, 1);
    Run(Last);
    EXPECT_NE(FirstWay, State.Board);
    EXPECT_EQ(rules::BlackMan, PieceOn(FirstWay[Square("d4")] == rules::Empty ? "d4" : "b4"));
    ExpectTheWholeWay();
}

TEST_F(Navigation, AKingTakenOffByItsOwnCircleStandsAgain) {
    Lay("W c3, b d4, b d6, b b6, b b4, w i1, b j0");
    Drag("c3", "c3");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(rules::Empty, PieceOn("c3")) << "a circle takes its king along";
    ExpectTheWholeWay();
    Run(Back);
    EXPECT_EQ(rules::WhiteKing, PieceOn("c3"));
}

TEST_F(Navigation, CommentsFollowTheCursor) {
    State.CommentText = "first";
    control::Text1_KeyUp(State);
    Play("d4e5 e7d6");
    Run(Back);
    EXPECT_EQ("first", State.CommentText);
    Run(Back);
    EXPECT_EQ("", State.CommentText);
    Run(Forward);
    EXPECT_EQ("first", State.CommentText);
}

TEST_F(Navigation, BackFromAResignationTheGameGoesOn) {
    Run(ComputerPlayer);
    Drag("d4", "e5");
    ASSERT_EQ(2, State.GameMoves);
    State.UseRating = 0;
    ExpectCongratulation("OK... Computer wins!");
    Run(Resign);
    ExpectOver("Computer wins!", "");
    Run(Back);
    EXPECT_FALSE(control::IsOver(State));
    ExpectCan(true, {Resign, Compute});
    EXPECT_TRUE(control::IsOpen(State, view::Control::ChoiceList));
}

TEST_F(Navigation, ALostPositionIsLostAgainAtTheEndOfTheRecord) {
    Lay("w c3, b d4");
    ExpectCongratulation("White wins!");
    Type("c3e5");
    ExpectOver("White wins!", "1-0");
    Run(Back);
    EXPECT_FALSE(control::IsOver(State));
    EXPECT_EQ("", game::ResultText(State.Result));
    // Said once is enough.
    Run(Forward);
    ExpectOver("White wins!", "1-0");
}

TEST_F(Navigation, AGameGivenUpInTheMiddleIsLostAtItsEndToo) {
    Lay("w c3, b d4");
    ExpectCongratulation("White wins!");
    Type("c3e5");
    Run(Back);
    control::EndGame(State, control::Ending::Resigned, control::Announcement::Silent);
    Run(Forward);
    ExpectOver("White wins!", "1-0");
}

TEST_F(Navigation, ATouchedPieceDoesNotHoldTheCursor) {
    State.TouchMove = 1;
    Play("d4e5 e7d6");
    Run(First);
    Drag("f4", "f4");
    Run(Forward);
    EXPECT_EQ(1, State.GameMoves);
}

TEST_F(Navigation, ALongGameOfKingsRunsToTheLimitOfTheRecord) {
    State.ChessDrawRules = 0;
    Lay("W a1, W c1, B h0, B j0");
    // There is no room for more, and nobody has won.
    ExpectCongratulation("It's a draw!");
    while (State.GameMoves < rules::MaxGameMoves && !control::IsOver(State)) {
        Play("c1d2 h0g9 d2c1 g9h0");
        ASSERT_FALSE(HasFatalFailure());
    }
    ExpectOver("It's a draw!", "1/2-1/2");
    EXPECT_EQ(1000U, State.GameList.Lines.size());
    EXPECT_EQ(" 500. d2-c1", State.GameList.Lines[998]);
    Run(First);
    Run(Last);
    EXPECT_EQ(1000, State.GameMoves);
    EXPECT_TRUE(control::IsOver(State));
}

} // namespace
} // namespace zonterbrook::tests
