// How a move enters the record and the list, and how the notation rewrites both.
#include "control/notation.h"
#include "control/record.h"
#include "support/game_fixture.h"

#include <gtest/gtest.h>

#include <string>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class Record : public GameFixture {
protected:
    void SetUp() override {
        GameFixture::SetUp();
        BetweenPersons();
    }
};

TEST_F(Record, AGameByMouseTypingAndDoubleClick) {
    Drag("d4", "e5");
    Type("e7-d6");
    DoubleClickMove("f4-g5");
    ASSERT_EQ(3, State.GameMoves);
    EXPECT_EQ(3, State.MoveCount);
    EXPECT_EQ((std::vector<std::string>{"   1. d4-e5", "      e7-d6", "   2. f4-g5"}), State.List1.Lines);
    EXPECT_EQ(2, State.List1.Selected);
    EXPECT_EQ("d4e5 d4-e5", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ("e7d6 e7-d6", State.GameMoveRow[1].SecondMove);
    EXPECT_EQ("2", State.GameMoveRow[1].FirstSource);
    EXPECT_EQ("9", State.GameMoveRow[1].Level);
    EXPECT_EQ(Square("d4"), State.PlayedMoves[1].Record.Source);
    EXPECT_EQ(0, State.PlayedMoves[4].Record.Source) << "the end mark";
    EXPECT_EQ(9, State.MoveChoices[1]);
    EXPECT_EQ(4000, State.TotalMaterialAt[3]);
    EXPECT_EQ("Player-Player mode", State.StatusPanels[view::StatusPanel]);
    EXPECT_TRUE(State.CommandOf(view::CommandId::Moveback).Enabled);
    EXPECT_FALSE(State.CommandOf(view::CommandId::MoveForward).Enabled);
    ExpectConsistent();
}

TEST_F(Record, CapturesAndCrowningsAreWrittenAndWeighed) {
    Lay("w c3, w a9, b d4, b h8, b j0");
    Drag("c3", "e5");
    EXPECT_EQ("   1. c3xe5", State.List1.Lines[0]);
    EXPECT_EQ(400, State.TotalMaterialAt[1]);
    EXPECT_EQ(500, State.TotalMaterialAt[0]);
    // Two against two, seen by the side to move.
    EXPECT_EQ(0, State.MaterialAt[1]);
    Type("h8g7");
    Type("a9b0");
    EXPECT_EQ("   2. a9-b0K", State.List1.Lines[2]);
    EXPECT_EQ(rules::WhiteKing, PieceOn("b0"));
    EXPECT_EQ(500, State.TotalMaterialAt[3]);
}

TEST_F(Record, TheColonStandsForACaptureIfSoChosen) {
    State.ColonCapture = 1;
    Lay("w c3, b d4, b j0");
    Type("c3:e5");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("   1. c3:e5", State.List1.Lines[0]);
}

TEST_F(Record, TheCommentBelongsToTheMoveToCome) {
    State.Text1.Text = "a bold start";
    control::Text1_KeyUp(State);
    Drag("d4", "e5");
    EXPECT_EQ("a bold start", State.MoveComment[1]);
    EXPECT_EQ("", State.Text1.Text);
    EXPECT_EQ("", State.MoveComment[2]);
}

TEST_F(Record, SoundsAreHeardIfWanted) {
    Drag("d4", "e5");
    EXPECT_TRUE(World.Sounds.empty());
    State.UseSound = 1;
    Type("e7d6");
    EXPECT_EQ((std::vector<std::string>{"sounds/click.wav"}), World.Sounds);
}

TEST_F(Record, AMoveInTheMiddleCutsTheTail) {
    for (const char* Move : {"b4a5", "i7j6", "d4c5", "g7h6"}) {
        State.Text1.Text = Move;
        control::Text1_KeyUp(State);
        Type(Move);
    }
    State.MoveScores[4] = 77;
    control::RunCommand(State, view::CommandId::Moveback);
    control::RunCommand(State, view::CommandId::Moveback);
    Type("d4e5");
    ASSERT_EQ(3, State.GameMoves);
    EXPECT_EQ(3, State.MoveCount);
    EXPECT_EQ((std::vector<std::string>{"   1. b4-a5", "      i7-j6", "   2. d4-e5"}), State.List1.Lines);
    EXPECT_EQ("", State.GameMoveRow[2].SecondMove);
    EXPECT_EQ("d4c5", State.MoveComment[3]) << "written for the third move, whichever it is";
    EXPECT_EQ("", State.MoveComment[4]);
    EXPECT_EQ(0, State.MoveScores[4]);
    control::RunCommand(State, view::CommandId::First);
    control::RunCommand(State, view::CommandId::Last);
    EXPECT_EQ(3, State.GameMoves);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_EQ(rules::Empty, PieceOn("c5"));
    ExpectConsistent();
}

TEST_F(Record, TheNotationRewritesWhatHasBeenPlayed) {
    Drag("d4", "e5");
    Type("e7-d6");
    State.Label9.Text = "Depth:2   Best: d4-e5   Score:12\nMain: d4-e5 e7-d6 ";
    control::RunCommand(State, view::CommandId::mnu_Board_Notation_Checkers);
    EXPECT_EQ((std::vector<std::string>{"   1. 32-28", "      18-22"}), State.List1.Lines);
    EXPECT_EQ("3228 32-28", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ("Depth:2   Best: 32-28   Score:12\nMain: 32-28 18-22 ", State.Label9.Text);
    EXPECT_TRUE(State.CommandOf(view::CommandId::mnu_Board_Notation_Checkers).Ticked);
    EXPECT_FALSE(State.CommandOf(view::CommandId::mnu_Board_Notation_Chess).Ticked);
    EXPECT_EQ("46", State.EdgeLabels.front().Text);
    // Without notation the numbers stay; only the edges are bare.
    control::RunCommand(State, view::CommandId::Nonotation);
    EXPECT_EQ("   1. 32-28", State.List1.Lines[0]);
    EXPECT_TRUE(State.EdgeLabels.empty());
    control::RunCommand(State, view::CommandId::mnu_Board_Notation_Chess);
    EXPECT_EQ((std::vector<std::string>{"   1. d4-e5", "      e7-d6"}), State.List1.Lines);
    EXPECT_EQ("d4e5 d4-e5", State.GameMoveRow[1].FirstMove);
}

TEST_F(Record, NumbersAreRefusedWhereEverySquareIsPlayedOn) {
    State.RuleSet.PiecesOnBlack = 2;
    control::RunCommand(State, view::CommandId::mnu_Board_Notation_Checkers);
    control::RunCommand(State, view::CommandId::Nonotation);
    EXPECT_EQ(0, State.NotationMode);
    EXPECT_TRUE(State.CommandOf(view::CommandId::mnu_Board_Notation_Chess).Ticked);
}

struct WordCase {
    const char* From;
    const char* To;
};

class Words : public Record, public testing::WithParamInterface<WordCase> {};

TEST_P(Words, OnlyMovesAreConverted) {
    EXPECT_EQ(GetParam().To, control::ConvertMoves(State, GetParam().From, 0, 1));
}

INSTANTIATE_TEST_SUITE_P(Rows, Words,
                         testing::Values(WordCase{"d4-e5", "32-28"}, WordCase{"d4xf6Kb", "32x23Kb"},
                                         WordCase{"  d4-e5\nBest", "  32-28\nBest"}, WordCase{"d4", "d4"},
                                         WordCase{"Depth:2", "Depth:2"}, WordCase{"d4-", "d4-"}, WordCase{"-12", "-12"},
                                         WordCase{"Player-Player", "Player-Player"}, WordCase{"", ""}));

TEST_F(Record, TwoDigitsNeverLookLikeOneSquare) {
    Lay("w e9, b j0");
    control::RunCommand(State, view::CommandId::mnu_Board_Notation_Checkers);
    Drag("e9", "f0");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("0803 8-3K", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ("0803", control::StoredRaw(State, 1));
    EXPECT_EQ("8-3K", control::StoredDisplay(State, 1));
}

TEST_F(Record, TheReplyComesByItself) {
    control::RunCommand(State, view::CommandId::Cplayer);
    ASSERT_EQ("Player", State.WhitePlayerName);
    Drag("d4", "e5");
    EXPECT_EQ(2, State.GameMoves);
    EXPECT_EQ(2U, State.List1.Lines.size());
    EXPECT_EQ(rules::White, State.Side);
    EXPECT_EQ(0, State.Thinking);
    EXPECT_TRUE(State.Text2.Enabled);
    EXPECT_FALSE(State.List2.Lines.empty());
    EXPECT_EQ("Player", State.WhitePlayerName) << "the reply changed the sides";
    control::c_MouseMove(State, Cell("d4"), 0, 10, 10);
    EXPECT_EQ(1, State.SourcesShown) << "the pieces are boxed again";
    ExpectConsistent();
}

TEST_F(Record, WhoMovesForTheOtherSideChangesSides) {
    // A new game names the person White, whoever begins.
    control::RunCommand(State, CommandId::Cplayer);
    Lay("w c3, w e3, b d8, b f8", rules::Black);
    ASSERT_EQ("Player", State.WhitePlayerName);
    Drag("d8", "c7");
    ASSERT_EQ(2, State.GameMoves);
    EXPECT_EQ("Computer", State.WhitePlayerName);
    EXPECT_EQ("Player", State.BlackPlayerName);
    EXPECT_EQ("Player", State.Label1.Text) << "Black began and stands above";
}

TEST_F(Record, TheRootMovesAreRewrittenWithoutTheirSquaresChanging) {
    State.RootMoves[0] = {Square("e9"), Square("f0"), 7};
    State.RootMoves[1] = {rules::FromHand, Square("a1"), -3};
    view::ShowRootMoves(State);
    State.List3.Selected = 1;
    control::RunCommand(State, CommandId::mnu_Board_Notation_Checkers);
    EXPECT_EQ((std::vector<std::string>{"8-3         7", "46         -3"}), State.List3.Lines);
    EXPECT_EQ(1, State.List3.Selected);
}

} // namespace
} // namespace zonterbrook::tests
