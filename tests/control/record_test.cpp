// How a move enters record, list and log, and how the notation rewrites what has been played.
#include "control/notation.h"
#include "control/record.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

using Texts = std::vector<std::string>;

class Record : public PersonsFixture {
protected:
    void Comment(std::string_view Text) {
        State.CommentText = Text;
        control::Text1_KeyUp(State);
    }
};

TEST_F(Record, AGameByMouseTypingAndDoubleClick) {
    Drag("d4", "e5");
    EXPECT_TRUE(State.GameChanged);
    const std::size_t Choices = State.ChoiceList.Lines.size();
    State.UseSound = 1;
    Type("e7-d6");
    EXPECT_EQ(Texts{"sounds/click.wav"}, World.Sounds) << "each move is heard once, and none if sounds are off";
    DoubleClickMove("f4-g5");
    EXPECT_EQ((Texts{"   1. d4-e5", "      e7-d6", "   2. f4-g5"}), State.GameList.Lines);
    EXPECT_EQ(2, State.GameList.Selected);
    EXPECT_EQ(game::MadeBy::Person, State.Record.HalfMoves[1].By);
    EXPECT_EQ(9, State.Record.HalfMoves[1].Level);
    EXPECT_EQ(Square("d4"), State.Record.HalfMoves[1].Played.Record.Source);
    EXPECT_EQ(0, State.Record.HalfMoves[4].Played.Record.Source) << "the end mark";
    EXPECT_EQ(9, State.Record.HalfMoves[1].Choices);
    EXPECT_EQ(static_cast<int>(Choices), State.Record.HalfMoves[2].Choices);
    EXPECT_EQ(4000, State.Record.HalfMoves[3].TotalMaterial);
    EXPECT_EQ("Player-Player mode", Status());
    EXPECT_EQ("", control::CheckRest(State));
}

TEST_F(Record, AMoveInTheMiddleCutsTheTail) {
    for (const char* Move : {"b4a5", "i7j6", "d4c5", "g7h6"}) {
        Comment(Move);
        Type(Move);
    }
    Comment("what now?");
    State.Record.HalfMoves[4].Score = 77;
    Run(Back);
    Run(Back);
    Type("d4e5");
    EXPECT_EQ((Texts{"   1. b4-a5", "      i7-j6", "   2. d4-e5"}), State.GameList.Lines);
    EXPECT_EQ("d4c5", State.Record.HalfMoves[3].Comment) << "written for the third move, whichever it is";
    EXPECT_EQ("", State.Record.HalfMoves[4].Comment + State.Record.HalfMoves[5].Comment);
    EXPECT_EQ(0, State.Record.HalfMoves[4].Score);
    Run(First);
    Run(Last);
    EXPECT_EQ(3, State.GameMoves);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_EQ("", control::CheckRest(State));
}

TEST_F(Record, WhoMovesForTheOtherSideChangesSides) {
    Run(ComputerPlayer);
    Drag("d4", "e5");
    EXPECT_EQ(2, State.GameMoves);
    EXPECT_EQ("Player", State.WhitePlayerName) << "the reply changed the sides";
    // A new game names the person White, whoever begins.
    Lay("w c3, w e3, b d8, b f8", rules::Black);
    ASSERT_EQ("Player", State.WhitePlayerName);
    Drag("d8", "c7");
    EXPECT_EQ("Computer", State.WhitePlayerName);
    EXPECT_EQ("Player", State.UpperName.Text) << "Black began and stands above";
    ExpectShown();
}

// --- notation ----------------------------------------------------------------------------------------------------

TEST_F(Record, TheNotationRewritesWhatHasBeenPlayed) {
    Play("d4e5 e7d6");
    State.Record.HalfMoves[2].FromBook = true;
    view::ListGame(State, State.Record);
    const game::NamedMove Best = {Square("d4"), Square("e5"), false, false};
    State.Calculated = {view::CalculationFields::Stage::Found, 2, Best, 12, false, 2};
    State.Calculated.Line[0] = Best;
    State.Calculated.Line[1] = {rules::FromHand, Square("e7"), true, true};
    State.RootMoves[0] = {Square("e9"), Square("f0"), 7};
    State.RootMoves[1] = {rules::FromHand, Square("a1"), -3};
    view::ShowRootMoves(State);
    State.RootList.Selected = 1;
    const auto ExpectNumbers = [&] {
        EXPECT_EQ((Texts{"   1. 32-28", "      18-22b"}), State.GameList.Lines);
        EXPECT_EQ((Texts{"8-3         7", "46         -3"}), State.RootList.Lines);
        EXPECT_EQ("Depth: 2   Best: 32-28   Score: 12\nMain: 32-28 18K ", State.Calculation.Text);
    };
    control::c_MouseMove(State, Cell("d4"));
    Run(Numeric);
    control::c_MouseMove(State, Cell("d4"));
    ExpectNumbers();
    ExpectShown();
    EXPECT_EQ(1, State.GameList.Selected);
    EXPECT_EQ(1, State.RootList.Selected);
    EXPECT_TRUE(control::IsTicked(State, Numeric));
    EXPECT_FALSE(control::IsTicked(State, Algebraic));
    EXPECT_EQ("46", State.EdgeLabels.front().Text);
    EXPECT_EQ(1, std::ranges::count(State.ChoiceList.Lines, "31-26"));
    // Without notation the numbers stay; only the edges are bare.
    Run(NoNotation);
    ExpectNumbers();
    EXPECT_TRUE(State.EdgeLabels.empty());
    Run(Algebraic);
    State.RuleSet.PiecesOnBlack = 2;
    Run(Numeric);
    Run(NoNotation);
    EXPECT_TRUE(control::IsTicked(State, Algebraic)) << "squares of both colours have no numbers";
    EXPECT_EQ((Texts{"   1. d4-e5", "      e7-d6b"}), State.GameList.Lines);
    EXPECT_EQ((Texts{"e9-f0       7", "a1         -3"}), State.RootList.Lines);
}

// --- the log -----------------------------------------------------------------------------------------------------

TEST_F(Record, TheLogHasHeadingColumnsAndSearches) {
    World.Log.clear();
    Play("d4e5");
    EXPECT_TRUE(World.Log.starts_with("\nInternational Checkers\nWhite   Black\n      moves ")) << World.Log;
    World.Log.clear();
    Lay("w c1, w e5, b b2, b a9", rules::Black);
    Play("b2a1");
    State.Strength = 0;
    State.SearchDepth = 2;
    Run(Compute);
    EXPECT_EQ("\nInternational Checkers (M)\nBlack   White\n"
              "      moves    score   depth    main\n"
              "   1. b2-a1K     181\n"
              "      e5-d6     -193       2    e5-d6 a1-j0 \n"
              "               D: 1   B: e5-d6   S:-181   M: e5-d6   T: 00:00.00\n"
              "               D: 2   B: e5-d6   S:-193   M: e5-d6 a1-j0   T: 00:00.00\n",
              World.Log);
}

} // namespace
} // namespace zonterbrook::tests
