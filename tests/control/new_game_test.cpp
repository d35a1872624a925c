// A new game, and the openings by lot.
#include "control/new_game.h"
#include "control/pdn_game.h"
#include "engine/evaluate.h"
#include "formats/pdn_index.h"
#include "support/game_fixture.h"

#include <set>

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
        Run(NewGame);
    }
};

TEST_F(NewGames, ForgetWhatWasPlayedUnlessTheAnswerIsNo) {
    BetweenPersons();
    State.CommentText = "note";
    control::Text1_KeyUp(State);
    Drag("d4", "e5");
    State.DrawCode = control::DrawRule::MoveLimit;
    State.ThreeKingsStart = State.TwoKingsStart = State.ScoreFlatCount = State.LastDrawOffer = 5;
    State.HintSource = 5;
    State.ForcedAnnounced = true;
    State.BookOpen = false;
    State.Progress.Value = 1;
    State.StatusText = "It's a draw!";
    Begin(false);
    EXPECT_EQ(1, State.GameMoves);
    Press("e7");
    Begin(true);
    EXPECT_EQ(0, State.GameMoves + State.Record.Count);
    EXPECT_EQ("", State.Record.HalfMoves[1].Comment);
    EXPECT_EQ(-1, State.SourceCell);
    EXPECT_EQ(control::DrawRule::None, State.DrawCode);
    EXPECT_EQ(0, State.ThreeKingsStart + State.TwoKingsStart + State.ScoreFlatCount + State.LastDrawOffer);
    EXPECT_EQ(0, State.HintSource + State.Progress.Value);
    EXPECT_FALSE(State.ForcedAnnounced || State.GameChanged || !State.BookOpen);
    EXPECT_EQ("", State.StatusText);
    EXPECT_EQ(State.StartBoard, State.Board);
    EXPECT_EQ(rules::White, State.Side);
    ExpectShown();
    EXPECT_EQ("Player", State.BlackPlayerName) << "two persons stay two persons";
    EXPECT_EQ("", control::CheckRest(State));
}

TEST_F(NewGames, AskNothingBeforeTheFirstMoveAndOpenEverythingAfterAResult) {
    State.UseSound = 1;
    Run(NewGame);
    EXPECT_EQ((std::vector<std::string>{"sounds/roll.wav"}), World.Sounds);
    EXPECT_EQ(2, World.Seeds) << "every game has chances of its own";
    BetweenPersons();
    Lay("w c3, b d4");
    ExpectCongratulation("White wins!");
    Type("c3e5");
    Begin(true);
    EXPECT_FALSE(control::IsOver(State));
    EXPECT_EQ("", game::ResultText(State.Result));
    ExpectMen(20);
}

TEST_F(NewGames, LotsDecideWhoBegins) {
    State.RuleSet.RndColor = 1;
    for (const auto& [Chance, Black] : {std::pair{0.0, false}, {0.99, true}, {0.49, false}, {0.5, true}}) {
        World.Chances = {Chance};
        Run(NewGame);
        EXPECT_EQ(Black ? "Black moves" : "White moves", Status()) << Chance;
        EXPECT_EQ(Black ? "Black" : "White", State.UpperColour.Text);
    }
}

TEST_F(NewGames, RemovalsLeaveOneManAtLeast) {
    for (const auto& [Number, Left] : {std::pair{0, 20}, {3, 17}, {255, 1}}) {
        State.RuleSet.RemoveMen = 1;
        State.RuleSet.NumberMen = static_cast<std::uint8_t>(Number);
        Run(NewGame);
        ExpectMen(Left);
        EXPECT_EQ(State.Board, State.StartBoard);
        EXPECT_FALSE(State.RatingAllowed);
        EXPECT_EQ(200 * Left, State.TotalMaterial[0]);
        ExpectConsistent();
        State.RuleSet.RemoveMen = 0;
        Run(NewGame);
        ExpectMen(20);
        EXPECT_TRUE(State.RatingAllowed);
    }
}

TEST_F(NewGames, AutomaticMovesAreInTheRecordAsIfLoaded) {
    WriteRules(State, "DoMoves=1|NumberMoves=5");
    World.Log.clear();
    Run(NewGame);
    EXPECT_EQ(9U, base::SplitLines(World.Log).size()) << World.Log;
    EXPECT_EQ("Black moves", Status());
    ExpectShown();
    EXPECT_EQ(engine::KeyOfPosition(State), State.PositionHistory[4]) << "repetitions are counted from the start";
    EXPECT_EQ(5, State.GameMoves);
    EXPECT_EQ(game::MadeBy::File, State.Record.HalfMoves[5].By);
    EXPECT_EQ("Player", State.BlackPlayerName) << "the person is to move";
    EXPECT_EQ("Computer", State.WhitePlayerName);
    ExpectCan(true, {Back});
    EXPECT_EQ("", control::CheckRest(State));
    Run(First);
    EXPECT_EQ(State.StartBoard, State.Board);
}

TEST_F(NewGames, AnAutomaticMoveThatEndsTheGameIsLeftOut) {
    Lay("w c3, b d4");
    WriteRules(State, "DoMoves=1|NumberMoves=4");
    control::DrawOpeningByLot(State);
    EXPECT_EQ(0, State.GameMoves);
    EXPECT_EQ(rules::BlackMan, PieceOn("d4"));
    EXPECT_FALSE(control::IsOver(State));
    EXPECT_EQ("", control::CheckRest(State));
}

// The openings that come with the program: each can be chosen and drawn, and is one to play on from.
TEST_F(NewGames, ShippedOpeningsAreOnesToPlayOnFrom) {
    formats::PdnIndex Games(World.Directory / "opening.pdn");
    while (Games.Scan(std::size_t{1} << 20U)) {
    }
    ASSERT_GE(Games.Count(), 60U);
    std::set<std::string> Boards;
    for (std::size_t Game = 0; Game < Games.Count(); ++Game) {
        const std::string Name(Games.Column(Game, formats::PdnColumn::Event));
        World.ExpectChooser(" Choose Opening", control::PdnChoice{Game, {}});
        control::LoadOpening(State);
        EXPECT_EQ(Name, State.Details.Event);
        EXPECT_GE(State.GameMoves, 3) << Name;
        EXPECT_LE(State.GameMoves, 8) << Name;
        EXPECT_FALSE(control::IsOver(State)) << Name;
        EXPECT_TRUE(Boards.insert(rules::SetupText(State.Board)).second) << Name << " is there twice";
    }
    State.RandomOpening = 1;
    World.Chances = {0.999};
    control::LoadOpening(State);
    EXPECT_EQ(Games.Column(Games.Count() - 1, formats::PdnColumn::Event), State.Details.Event);
}

} // namespace
} // namespace zonterbrook::tests
