// Going through the game that has been played.
#include "control/ending.h"
#include "control/navigation.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

constexpr const char* FourMoves = "b4a5 i7j6 d4c5 g7h6";

class Navigation : public PersonsFixture {};

TEST_F(Navigation, FirstAndLastReachTheEndsAndBackAgain) {
    Play(FourMoves);
    Run(First);
    EXPECT_EQ(rules::White, State.Side);
    EXPECT_EQ(-1, State.GameList.Selected);
    EXPECT_EQ(9U, State.ChoiceList.Lines.size());
    Run(Last);
    EXPECT_EQ(3, State.GameList.Selected);
    EXPECT_EQ(rules::BlackMan, PieceOn("h6"));
}

TEST_F(Navigation, WhatTheComputerHasThoughtIsForgotten) {
    for (const CommandId Step : {Back, First}) {
        Run(Compute);
        EXPECT_NE("no calculation", State.Calculation.Text);
        Run(Step);
        EXPECT_EQ("no calculation", State.Calculation.Text);
        EXPECT_TRUE(State.RootList.Lines.empty());
        ExpectShown();
    }
    Run(Compute);
    DoubleClickMove(State.ChoiceList.Lines.at(0));
    EXPECT_EQ("no calculation", State.Calculation.Text);
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

struct TakenBackCase {
    const char* Name;
    view::GameMode Mode;
    const char* Pieces;
    std::int32_t Side;
    const char* Commands; ///< in this order: a move of the person's, or "compute", "back", "resign"
    const char* End;      ///< what a message congratulates to
    int Moves;            ///< that are left; -1: nothing can be taken back
};

using TakenBack = RowsOf<GameFixture, TakenBackCase>;

TEST_P(TakenBack, ThePersonIsToMoveAgain) {
    const TakenBackCase& Row = GetParam();
    State.UseRating = 0;
    Run(Row.Mode == view::GameMode::PlayerPlayer ? PlayerPlayer : ComputerPlayer);
    Lay(Row.Pieces, Row.Side);
    if (*Row.End != '\0') {
        ExpectCongratulation(Row.End);
    }
    for (const std::string& Each : Split(Row.Commands, ' ')) {
        Each == "compute" ? Run(Compute) : Each == "back" ? Run(Back) : Each == "resign" ? Run(Resign) : Type(Each);
    }
    ExpectCan(Row.Moves >= 0, {TakeBack});
    const int Before = State.Record.Count;
    Run(TakeBack);
    if (Row.Moves < 0) {
        EXPECT_EQ(Before, State.Record.Cursor);
        return;
    }
    EXPECT_EQ(Row.Moves, State.GameMoves);
    EXPECT_EQ(view::SideMovesText(State.Side), Status());
    EXPECT_TRUE(control::TakesMoves(State)) << "the game goes on";
    EXPECT_EQ("", control::CheckRest(State));
    EXPECT_EQ(Before, State.Record.Count) << "it can still be stepped through";
    if (std::string_view(Row.End) == "White wins!") {
        ExpectCongratulation(Row.End); // by the same move once more
    }
    DoubleClickMove(State.ChoiceList.Lines.back());
    EXPECT_FALSE(State.Record.MovesAhead()) << "a new move replaces it";
}

constexpr const char* Quiet = "w c1, w g1, w i3, b d0, b h0, b b8";
constexpr auto AgainstComputer = view::GameMode::ComputerPlayer;
constexpr TakenBackCase TakenBackRows[] = {
    {"the_move_and_the_reply", AgainstComputer, Quiet, rules::White, "c1d2 g1f2", "", 2},
    {"black_may_be_the_person", AgainstComputer, Quiet, rules::Black, "d0c9 b8a7", "", 2},
    {"the_reply_was_taken_back_already", AgainstComputer, Quiet, rules::White, "c1d2 g1f2 back", "", 2},
    {"the_computer_has_taken_a_side_over", AgainstComputer, Quiet, rules::White, "c1d2 compute", "", 1},
    {"no_reply_came", AgainstComputer, "w c3, w a1, b d4", rules::White, "c3e5", "White wins!", 0},
    {"given_up", AgainstComputer, Quiet, rules::White, "c1d2 resign", "OK... Computer wins!", 0},
    {"one_between_two_persons", view::GameMode::PlayerPlayer, Quiet, rules::White, "c1d2 d0c9 g1f2", "", 2},
    {"nothing_has_been_played", AgainstComputer, Quiet, rules::White, "", "", -1},
    {"the_person_has_not_moved_yet", AgainstComputer, Quiet, rules::White, "compute", "", -1}};
INSTANTIATE_TEST_SUITE_P(Rows, TakenBack, testing::ValuesIn(TakenBackRows), RowName);

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
    PretendTurn(control::TurnState::Thinking); // the list is open while the computer plays itself
    State.GameList.Selected = 0;
    control::List1_MouseUp(State);
    EXPECT_EQ(3, State.GameMoves);
    PretendTurn(control::TurnState::Resting);
}

TEST_F(Navigation, CapturesAndCrowningsAreWrittenAndWeighed) {
    Lay("w c3, w a9, b d4, b h8, b j0");
    Play("c3xe5 h8g7 a9b0 g7f6 b0xg5");
    EXPECT_EQ((std::vector<std::string>{"   1. c3xe5", "      h8-g7", "   2. a9-b0K", "      g7-f6", "   3. b0xg5"}),
              State.GameList.Lines);
    EXPECT_EQ(500, State.Record.HalfMoves[0].TotalMaterial);
    EXPECT_EQ(400, State.Record.HalfMoves[1].TotalMaterial);
    EXPECT_EQ(0, State.Record.HalfMoves[1].Material) << "two against two, seen by the side to move";
    EXPECT_EQ(500, State.Record.HalfMoves[3].TotalMaterial);
}

TEST_F(Navigation, OfTwoCapturesWithTheSameEndsThePlayedOneIsPlayedAgain) {
    State.RuleSet.MovementStrings[0].Assign("NW;NE NW;NE");
    Lay("w c3, b d4, b d6, b b4, b b6, b j0");
    const rules::CapturePath FirstPath = State.MoveStack[0].Captures;
    Play("c3c7");
    EXPECT_EQ(FirstPath, State.Record.HalfMoves[1].Played.Record.Captures) << "a person plays the first";
    const rules::BoardCellsArray FirstWay = State.Board;
    Run(First);
    // As if the computer had played the second one.
    ASSERT_EQ(2, State.StackLimit[1]);
    State.Record.HalfMoves[1].Played = rules::RememberMove(State, 1);
    Run(Last);
    EXPECT_NE(FirstWay, State.Board);
    EXPECT_EQ(rules::BlackMan, PieceOn(FirstWay[Square("d4")] == rules::Empty ? "d4" : "b4"));
}

TEST_F(Navigation, AKingStaysThatGoesInACircle) {
    Lay("W c3, b d4, b d6, b b6, b b4, w i1, b j0");
    Drag("c3", "c3");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("   1. c3xc3", State.GameList.Lines.at(0));
    EXPECT_EQ(rules::WhiteKing, PieceOn("c3"));
    ExpectConsistent();
    Run(Back);
    EXPECT_EQ(rules::WhiteKing, PieceOn("c3"));
}

TEST_F(Navigation, CommentsBelongToTheMoveToComeAndFollowTheCursor) {
    State.CommentText = "first";
    control::Text1_KeyUp(State);
    Play("d4e5");
    EXPECT_EQ("", State.CommentText + State.Record.HalfMoves[2].Comment);
    Play("e7d6");
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
    // Given up in the middle it is lost at its end, too.
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
    State.SearchDepth = 4;
    Lay("W a1, W c1, w j2, B h0, B j0, b a9");
    Shuffle({"c1d2", "h0g9", "d2c1", "g9h0"}, 998);
    Run(Compute); // the last moves are searched like any other
    EXPECT_FALSE(control::IsOver(State));
    EXPECT_EQ(0, State.DrawPending) << "later evaluations would answer 0";
    for (int Side = 0; Side < 2; ++Side) {
        // There is no room for more, and nobody has won: by a person's move, and by the computer's.
        ExpectCongratulation("It's a draw!");
        Side == 0 ? DoubleClickMove(State.ChoiceList.Lines.at(0)) : Run(Compute);
        ExpectOver("It's a draw!", "1/2-1/2");
        Run(Side == 0 ? Back : First);
    }
    Run(Last);
    EXPECT_EQ(1000, State.GameMoves);
    EXPECT_TRUE(control::IsOver(State));
    EXPECT_EQ(" 499. c1-d2", State.GameList.Lines.at(996));
}

} // namespace
} // namespace zonterbrook::tests
