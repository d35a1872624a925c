// A new game, and the openings by lot.
#include "control/new_game.h"
#include "support/complaint.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

class NewGames : public GameFixture {
protected:
    void ExpectMen(int Each) {
        EXPECT_EQ(Each, rules::PiecesOf(State, rules::White).Count());
        EXPECT_EQ(Each, rules::PiecesOf(State, rules::Black).Count());
    }
    void Begin(bool Yes) {
        World.ExpectQuestion("Confirmation", "Quit current game?", Yes);
        Run(New1);
    }
};

TEST_F(NewGames, ForgetWhatWasPlayedUnlessTheAnswerIsNo) {
    BetweenPersons();
    State.CommentBox.Text = "note";
    control::Text1_KeyUp(State);
    Drag("d4", "e5");
    State.DrawCode = 3;
    State.ThreeKingsStart = 5;
    Begin(false);
    EXPECT_EQ(1, State.GameMoves);
    Press("e7");
    Begin(true);
    EXPECT_EQ(0, State.GameMoves + State.MoveCount + State.GameStarted);
    EXPECT_EQ("", State.MoveComment[1]);
    EXPECT_EQ("", State.GameMoveRow[1].FirstMove);
    EXPECT_EQ(-1, State.SourceCell);
    EXPECT_EQ(0, State.DrawCode + State.ThreeKingsStart);
    EXPECT_EQ(State.StartBoard, State.Board);
    EXPECT_EQ(rules::White, State.Side);
    EXPECT_EQ(view::Picture::dark_white_man, CellOn("d4").Shows);
    ExpectCan(false, {Moveback});
    EXPECT_EQ("Player", State.BlackPlayerName) << "two persons stay two persons";
    EXPECT_EQ("", Complaint(State));
}

TEST_F(NewGames, AskNothingBeforeTheFirstMove) {
    State.UseSound = 1;
    Run(New1);
    EXPECT_EQ((std::vector<std::string>{"sounds/roll.wav"}), World.Sounds);
}

TEST_F(NewGames, AfterAResultEverythingIsOpenAgain) {
    BetweenPersons();
    Lay("w c3, b d4");
    ExpectCongratulation("White wins!");
    Type("c3e5");
    ASSERT_EQ(1, State.GameEnded);
    Begin(true);
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_EQ("", State.ResultText);
    EXPECT_TRUE(State.ChoiceList.Enabled);
    ExpectCan(true, {Compute});
    ExpectMen(20);
}

TEST_F(NewGames, LotsDecideWhoBegins) {
    State.RuleSet.RndColor = 1;
    for (const auto& [Chance, Black] : {std::pair{0.0, false}, {0.99, true}, {0.49, false}, {0.5, true}}) {
        World.Chances = {Chance};
        Run(New1);
        EXPECT_EQ(Black ? "Black moves" : "White moves", Status()) << Chance;
        EXPECT_EQ(Black ? "Black" : "White", State.UpperColour.Text);
    }
}

TEST_F(NewGames, RemovalsLeaveOneManAtLeast) {
    for (const auto& [Number, Left] : {std::pair{0, 20}, {3, 17}, {255, 1}}) {
        State.RuleSet.RemoveMen = 1;
        State.RuleSet.NumberMen = static_cast<std::uint8_t>(Number);
        Run(New1);
        ExpectMen(Left);
        EXPECT_EQ(State.Board, State.StartBoard);
        EXPECT_EQ(0, State.RatingAllowed);
        EXPECT_EQ(200 * Left, State.TotalMaterial[0]);
        ExpectConsistent();
        State.RuleSet.RemoveMen = 0;
        Run(New1);
        ExpectMen(20);
        EXPECT_EQ(1, State.RatingAllowed);
    }
}

TEST_F(NewGames, AutomaticMovesAreInTheRecordAsIfLoaded) {
    WriteRules(State, "DoMoves=1|NumberMoves=5");
    Run(New1);
    EXPECT_EQ(5, State.GameMoves);
    EXPECT_EQ(control::MovedByFile, State.GameMoveRow[3].FirstSource);
    EXPECT_EQ("Player", State.BlackPlayerName) << "the person is to move";
    EXPECT_EQ("Computer", State.WhitePlayerName);
    ExpectCan(true, {Moveback});
    EXPECT_EQ("", Complaint(State));
    Run(First);
    EXPECT_EQ(State.StartBoard, State.Board);
}

TEST_F(NewGames, AnAutomaticMoveThatEndsTheGameIsLeftOut) {
    Lay("w c3, b d4");
    State.RuleSet.NumberMoves = 4;
    control::ApplyAutomaticMoves(State);
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_EQ(rules::BlackMan, PieceOn("d4"));
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_EQ("", Complaint(State));
}

} // namespace
} // namespace zonterbrook::tests
