// How a move enters record, list and log, and how the notation rewrites what has been played.
#include "control/notation.h"
#include "control/record.h"
#include "support/complaint.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

using Texts = std::vector<std::string>;

class Record : public PersonsFixture {
protected:
    void Comment(std::string_view Text) {
        State.CommentBox.Text = Text;
        control::Text1_KeyUp(State);
    }
};

TEST_F(Record, AGameByMouseTypingAndDoubleClick) {
    Drag("d4", "e5");
    EXPECT_EQ(1, State.GameChanged);
    const std::size_t Choices = State.ChoiceList.Lines.size();
    State.UseSound = 1;
    Type("e7-d6");
    EXPECT_EQ(Texts{"sounds/click.wav"}, World.Sounds) << "each move is heard once, and none if sounds are off";
    DoubleClickMove("f4-g5");
    EXPECT_EQ((Texts{"   1. d4-e5", "      e7-d6", "   2. f4-g5"}), State.GameList.Lines);
    EXPECT_EQ(2, State.GameList.Selected);
    EXPECT_EQ("d4e5 d4-e5", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ("e7d6 e7-d6", State.GameMoveRow[1].SecondMove);
    EXPECT_EQ("2", State.GameMoveRow[1].FirstSource);
    EXPECT_EQ("9", State.GameMoveRow[1].Level);
    EXPECT_EQ(Square("d4"), State.PlayedMoves[1].Record.Source);
    EXPECT_EQ(0, State.PlayedMoves[4].Record.Source) << "the end mark";
    EXPECT_EQ(9, State.MoveChoices[1]);
    EXPECT_EQ(static_cast<int>(Choices), State.MoveChoices[2]);
    EXPECT_EQ(4000, State.TotalMaterialAt[3]);
    EXPECT_EQ("Player-Player mode", Status());
    ExpectCan(true, {Moveback, First});
    ExpectCan(false, {MoveForward, Last});
    EXPECT_EQ("", Complaint(State));
}

TEST_F(Record, CapturesAndCrowningsAreWrittenAndWeighed) {
    Lay("w c3, w a9, b d4, b h8, b j0");
    Play("c3e5 h8g7 a9b0");
    EXPECT_EQ((Texts{"   1. c3xe5", "      h8-g7", "   2. a9-b0K"}), State.GameList.Lines);
    EXPECT_EQ(500, State.TotalMaterialAt[0]);
    EXPECT_EQ(400, State.TotalMaterialAt[1]);
    EXPECT_EQ(0, State.MaterialAt[1]) << "two against two, seen by the side to move";
    EXPECT_EQ(500, State.TotalMaterialAt[3]);
}

TEST_F(Record, TheCommentBelongsToTheMoveToCome) {
    Comment("a bold start");
    Drag("d4", "e5");
    EXPECT_EQ("a bold start", State.MoveComment[1]);
    EXPECT_EQ("", State.CommentBox.Text);
    EXPECT_EQ("", State.MoveComment[2]);
}

TEST_F(Record, AMoveInTheMiddleCutsTheTail) {
    for (const char* Move : {"b4a5", "i7j6", "d4c5", "g7h6"}) {
        Comment(Move);
        Type(Move);
    }
    Comment("what now?");
    State.MoveScores[4] = 77;
    Run(Moveback);
    Run(Moveback);
    Type("d4e5");
    EXPECT_EQ((Texts{"   1. b4-a5", "      i7-j6", "   2. d4-e5"}), State.GameList.Lines);
    EXPECT_EQ("", State.GameMoveRow[2].SecondMove);
    EXPECT_EQ("d4c5", State.MoveComment[3]) << "written for the third move, whichever it is";
    EXPECT_EQ("", State.MoveComment[4] + State.MoveComment[5]);
    EXPECT_EQ(0, State.MoveScores[4]);
    Run(First);
    Run(Last);
    EXPECT_EQ(3, State.GameMoves);
    EXPECT_EQ(rules::WhiteMan, PieceOn("e5"));
    EXPECT_EQ("", Complaint(State));
}

TEST_F(Record, TheReplyComesByItself) {
    Run(Cplayer);
    Drag("d4", "e5");
    EXPECT_EQ(2, State.GameMoves);
    EXPECT_TRUE(State.MoveBox.Enabled);
    EXPECT_FALSE(State.ChoiceList.Lines.empty());
    EXPECT_EQ("Player", State.WhitePlayerName) << "the reply changed the sides";
    control::c_MouseMove(State, Cell("d4"), 0, 10, 10);
    EXPECT_EQ(1, State.SourcesShown) << "the pieces are boxed again";
    EXPECT_EQ("", Complaint(State));
}

TEST_F(Record, WhoMovesForTheOtherSideChangesSides) {
    // A new game names the person White, whoever begins.
    Run(Cplayer);
    Lay("w c3, w e3, b d8, b f8", rules::Black);
    ASSERT_EQ("Player", State.WhitePlayerName);
    Drag("d8", "c7");
    EXPECT_EQ("Computer", State.WhitePlayerName);
    EXPECT_EQ("Player", State.BlackPlayerName);
    EXPECT_EQ("Player", State.UpperName.Text) << "Black began and stands above";
}

// --- notation ----------------------------------------------------------------------------------------------------

TEST_F(Record, TheNotationRewritesWhatHasBeenPlayed) {
    Play("d4e5 e7d6");
    State.Calculation.Text = "Depth:2   Best: d4-e5   Score:12\nMain: d4-e5 e7-d6 ";
    State.RootMoves[0] = {Square("e9"), Square("f0"), 7};
    State.RootMoves[1] = {rules::FromHand, Square("a1"), -3};
    view::ShowRootMoves(State);
    State.RootList.Selected = 1;
    const auto ExpectNumbers = [&] {
        EXPECT_EQ((Texts{"   1. 32-28", "      18-22"}), State.GameList.Lines);
        EXPECT_EQ((Texts{"8-3         7", "46         -3"}), State.RootList.Lines);
        EXPECT_EQ("3228 32-28", State.GameMoveRow[1].FirstMove);
        EXPECT_EQ("Depth:2   Best: 32-28   Score:12\nMain: 32-28 18-22 ", State.Calculation.Text);
    };
    Run(mnu_Board_Notation_Checkers);
    ExpectNumbers();
    EXPECT_EQ(1, State.GameList.Selected);
    EXPECT_EQ(1, State.RootList.Selected);
    EXPECT_TRUE(State.CommandOf(mnu_Board_Notation_Checkers).Ticked);
    EXPECT_FALSE(State.CommandOf(mnu_Board_Notation_Chess).Ticked);
    EXPECT_EQ("46", State.EdgeLabels.front().Text);
    // Without notation the numbers stay; only the edges are bare.
    Run(Nonotation);
    ExpectNumbers();
    EXPECT_TRUE(State.EdgeLabels.empty());
    Run(mnu_Board_Notation_Chess);
    EXPECT_EQ((Texts{"   1. d4-e5", "      e7-d6"}), State.GameList.Lines);
    EXPECT_EQ("d4e5 d4-e5", State.GameMoveRow[1].FirstMove);
}

TEST_F(Record, NumbersAreRefusedWhereEverySquareIsPlayedOn) {
    State.RuleSet.PiecesOnBlack = 2;
    Run(mnu_Board_Notation_Checkers);
    Run(Nonotation);
    EXPECT_EQ(rules::Notation::Algebraic, State.NotationMode);
    EXPECT_TRUE(State.CommandOf(mnu_Board_Notation_Chess).Ticked);
}

TEST_F(Record, OnlyMovesAreConverted) {
    constexpr std::pair<const char*, const char*> Rows[] = {
        {"d4-e5", "32-28"},
        {"d4xf6Kb", "32x23Kb"},
        {"  d4-e5\nBest", "  32-28\nBest"},
        {"d4", "d4"},
        {"Depth:2", "Depth:2"},
        {"d4-", "d4-"},
        {"-12", "-12"},
        {"Best: d4   Score: 7\nMain: d4 e5xc7 \nd4", "Best: 32   Score: 7\nMain: 32 28x17 \nd4"},
        {"Player-Player", "Player-Player"},
        {"", ""}};
    for (const auto& [Before, After] : Rows) {
        EXPECT_EQ(After, control::ConvertMoves(State, Before, rules::Notation::Algebraic, rules::Notation::Numeric));
    }
}

TEST_F(Record, TwoDigitsNeverLookLikeOneSquare) {
    Lay("w e9, b j0");
    Run(mnu_Board_Notation_Checkers);
    Drag("e9", "f0");
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("0803 8-3K", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ("0803", control::StoredRaw(State, 1));
    EXPECT_EQ("8-3K", control::StoredDisplay(State, 1));
    // Crown and mark of the book outlive a change of notation.
    State.GameMoveRow[1].FirstMove += 'b';
    Run(mnu_Board_Notation_Chess);
    EXPECT_EQ("e9f0 e9-f0Kb", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ(Texts{"   1. e9-f0Kb"}, State.GameList.Lines);
}

// --- the log -----------------------------------------------------------------------------------------------------

constexpr std::string_view Heading = "      moves    score   depth    main";

class RunningLog : public Record {
protected:
    void SetUp() override {
        Record::SetUp();
        World.Log.clear();
    }
    Texts Lines() const { return base::SplitLines(World.Log); }
};

TEST_F(RunningLog, AGameBeginsWithItsHeading) {
    Play("d4e5 c7d6");
    ASSERT_EQ(6U, Lines().size()) << World.Log;
    EXPECT_EQ((Texts{"", "International Checkers", "White   Black", std::string(Heading)}),
              (Texts{Lines()[0], Lines()[1], Lines()[2], Lines()[3]}));
    EXPECT_EQ("   1. d4-e5   ", Lines()[4].substr(0, 14));
    EXPECT_EQ("      c7-d6   ", Lines()[5].substr(0, 14));
}

TEST_F(RunningLog, MarksKeepTheColumnsAndTheHeadingSaysWhoBegan) {
    Lay("w c1, w e5, b b2, b a9", rules::Black);
    World.Log.clear();
    Play("b2a1");
    EXPECT_EQ("Black   White", Lines().at(2));
    const std::string Line = Lines().at(4);
    const std::string Score = std::to_string(State.MoveScores[1]);
    EXPECT_EQ("   1. b2-a1K", Line.substr(0, 12));
    EXPECT_EQ(20U, Line.size()) << Line;
    EXPECT_EQ(Score, Line.substr(20 - Score.size()));
}

TEST_F(RunningLog, EveryColumnStandsUnderItsHeading) {
    State.SearchDepth = 3;
    Run(Compute);
    const Texts Log = Lines();
    ASSERT_EQ(8U, Log.size()) << World.Log;
    const std::string& Line = Log[4];
    const std::string Score = std::to_string(State.MoveScores[1]);
    EXPECT_EQ(Score, Line.substr(Heading.find("score") + 5 - Score.size(), Score.size())) << Line;
    EXPECT_EQ(" 3    ", Line.substr(Heading.find("depth") + 3, 6)) << Line;
    EXPECT_EQ(State.GameList.Lines[0].substr(6), Line.substr(Heading.find("main"), 5)) << Line;
    for (std::size_t Iteration = 1; Iteration <= 3; ++Iteration) {
        const std::string& Search = Log[4 + Iteration];
        EXPECT_EQ("               D: " + std::to_string(Iteration) + "   B: ", Search.substr(0, 25)) << Search;
        EXPECT_NE(std::string::npos, Search.find("   S: ")) << Search;
        EXPECT_NE(std::string::npos, Search.find("   M: ")) << Search;
        EXPECT_EQ("  T: 00:00.00", Search.substr(Search.size() - 13)) << Search;
    }
}

} // namespace
} // namespace zonterbrook::tests
