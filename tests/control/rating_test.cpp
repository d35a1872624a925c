// The rating: what a game is worth, which games count, and what is said.
#include "control/rating.h"
#include "support/game_fixture.h"

#include <gtest/gtest.h>

#include <string>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class Ratings : public GameFixture {
protected:
    // A game of so many half-moves, White by a person, Black by the computer of this level.
    void Record(int HalfMoves, std::string_view Level) {
        State.GameStarted = 1;
        State.GameMoves = HalfMoves;
        State.MoveCount = HalfMoves;
        for (int HalfMove = 1; HalfMove <= HalfMoves; ++HalfMove) {
            control::GameMoveRowFields& Row = State.GameMoveRow[(HalfMove + 1) / 2];
            (HalfMove % 2 == 1 ? Row.FirstSource : Row.SecondSource) = HalfMove % 2 == 1 ? "2" : "1";
            Row.Level = Level;
        }
    }
};

struct EloCase {
    const char* Name;
    std::int16_t Before;
    const char* Level;
    double Score;
    std::int16_t After;
    const char* ComputerRating;
};

class Elo : public Ratings, public testing::WithParamInterface<EloCase> {};

TEST_P(Elo, FollowsExpectationAndFactor) {
    Record(4, GetParam().Level);
    State.Rating = GetParam().Before;
    control::UpdateRating(State, GetParam().Score);
    EXPECT_EQ(GetParam().After, State.Rating);
    EXPECT_NE(
        State.RatingSummary.find("The computers' rating in this game was " + std::string(GetParam().ComputerRating)),
        std::string::npos)
        << State.RatingSummary;
}

INSTANTIATE_TEST_SUITE_P(Rows, Elo,
                         testing::Values(EloCase{"win_over_an_equal", 1200, "5", 1, 1215, "1200"},
                                         EloCase{"loss_to_an_equal", 1200, "5", 0, 1185, "1200"},
                                         EloCase{"draw_with_an_equal", 1200, "5", 0.5, 1200, "1200"},
                                         EloCase{"level_three_is_worth_1000", 1000, "3", 1, 1015, "1000"},
                                         EloCase{"a_weaker_one_is_worth_less", 1600, "5", 1, 1603, "1200"},
                                         EloCase{"below_2000_thirty", 1999, "10", 0, 1974, "1700"},
                                         // 400 points ahead: expected 10/11 of a point.
                                         EloCase{"at_2000_thirty", 2000, "9", 0, 1973, "1600"},
                                         EloCase{"at_2100_twenty_five", 2100, "10", 0, 2077, "1700"},
                                         EloCase{"at_2400_ten", 2400, "10", 0, 2390, "1700"},
                                         EloCase{"above_2400_ten", 2500, "10", 0, 2490, "1700"}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(Ratings, SayWhatTheyWereAndAre) {
    Record(4, "5");
    control::UpdateRating(State, 1);
    EXPECT_EQ("  Great game\n\nYour previous rating was 1200\nThe computers' rating in this game was 1200\n"
              "Your new rating is 1215\n",
              State.RatingSummary);
}

TEST_F(Ratings, AnAverageOfLevelsCounts) {
    Record(4, "3");
    State.GameMoveRow[2].Level = "4";
    control::UpdateRating(State, 0.5);
    EXPECT_NE(State.RatingSummary.find("in this game was 1050"), std::string::npos) << State.RatingSummary;
}

TEST_F(Ratings, TheComputersMovesBeforeALoadAreAskedInTheFirstColumn) {
    // The person's half-moves of the first two rows come from a file, the computer's were made here: its levels there
    // don't count, and only the third row's does.
    Record(6, "1");
    State.GameMoveRow[1].FirstSource = "3";
    State.GameMoveRow[2].FirstSource = "3";
    State.GameMoveRow[3].Level = "9";
    control::UpdateRating(State, 0.5);
    EXPECT_NE(State.RatingSummary.find("in this game was 1600"), std::string::npos) << State.RatingSummary;
}

TEST_F(Ratings, WhatLiesBehindTheCursorDoesNotCount) {
    Record(6, "5");
    State.GameMoves = 3;
    State.GameMoveRow[2].SecondSource = "2";
    State.GameMoveRow[3].Level = "9";
    control::UpdateRating(State, 0.5);
    EXPECT_EQ(1, State.RatingAllowed) << "the sides changed hands after the cursor";
    State.GameMoveRow[2].Level = "9";
    control::UpdateRating(State, 0.5);
    EXPECT_NE(State.RatingSummary.find("in this game was 1200"), std::string::npos) << State.RatingSummary;
}

struct CountCase {
    const char* Name;
    void (*Change)(control::GameState& State);
};

class Uncounted : public Ratings, public testing::WithParamInterface<CountCase> {};

TEST_P(Uncounted, ChangeNothing) {
    Record(6, "5");
    GetParam().Change(State);
    control::UpdateRating(State, 1);
    EXPECT_EQ(1200, State.Rating);
    EXPECT_EQ("", State.RatingSummary);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Uncounted,
    testing::Values(CountCase{"not_wanted", [](control::GameState& State) { State.UseRating = 0; }},
                    CountCase{"not_allowed", [](control::GameState& State) { State.RatingAllowed = 0; }},
                    CountCase{"between_persons",
                              [](control::GameState& State) {
                                  for (int Row = 1; Row <= 3; ++Row) {
                                      State.GameMoveRow[Row].SecondSource = "2";
                                  }
                              }},
                    CountCase{"all_from_a_file",
                              [](control::GameState& State) {
                                  for (int Row = 1; Row <= 3; ++Row) {
                                      State.GameMoveRow[Row].FirstSource = "3";
                                      State.GameMoveRow[Row].SecondSource = "3";
                                  }
                              }},
                    CountCase{"sides_changed_hands",
                              [](control::GameState& State) { State.GameMoveRow[3].FirstSource = "1"; }}),
    [](const auto& Info) { return std::string(Info.param.Name); });

struct ComplimentCase {
    const char* Name;
    int HalfMoves;
    int Half;
    std::int16_t Depth;
    std::int16_t Score;
    const char* Text;
};

class Compliments : public Ratings, public testing::WithParamInterface<ComplimentCase> {};

TEST_P(Compliments, AreGreatUnlessTheComputerWasOnceAhead) {
    Record(GetParam().HalfMoves, "5");
    State.MoveDepths[GetParam().Half] = GetParam().Depth;
    State.MoveScores[GetParam().Half] = GetParam().Score;
    EXPECT_EQ(GetParam().Text, control::GameCompliment(State));
}

INSTANTIATE_TEST_SUITE_P(Rows, Compliments,
                         testing::Values(ComplimentCase{"never_ahead", 5, 2, 3, 199, "  Great game"},
                                         ComplimentCase{"two_men_ahead", 5, 2, 3, 200, "  Good game"},
                                         ComplimentCase{"the_winners_own_move", 5, 3, 3, 500, "  Great game"},
                                         ComplimentCase{"looked_one_ply_only", 5, 2, 1, 500, "  Great game"},
                                         ComplimentCase{"last_mover_won_as_second", 4, 1, 2, 500, "  Good game"}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(Ratings, ADrawIsTakenByWhoIsNotAhead) {
    Drag("d4", "e5");
    ASSERT_EQ(2, State.GameMoves);
    State.BestScore = 0;
    State.UseRating = 0;
    World.ExpectMessage("Congratulations", "OK... It's a draw!");
    control::RunCommand(State, CommandId::Offerdraw);
    EXPECT_EQ(1, State.GameEnded);
    EXPECT_EQ("1/2-1/2", State.ResultText);
    EXPECT_EQ("It's a draw!", State.StatusPanels[view::StatusPanel]);
    for (const CommandId Shut :
         {CommandId::Compute, CommandId::Offerdraw, CommandId::Resign, CommandId::mnu_Play_Ccomputer}) {
        EXPECT_FALSE(State.CommandOf(Shut).Enabled) << view::RowOf(Shut).Name;
    }
    EXPECT_FALSE(State.List2.Enabled);
}

TEST_F(Ratings, ADrawIsRefusedByWhoIs) {
    Drag("d4", "e5");
    State.BestScore = 1;
    World.ExpectMessage("Draw Offer", "Offer rejected... Play on!");
    control::RunCommand(State, CommandId::Offerdraw);
    EXPECT_EQ(0, State.GameEnded);
}

TEST_F(Ratings, ADrawBeforeTheFirstMoveIsRefused) {
    World.ExpectMessage("Draw Offer", "Offer rejected... Play on!");
    control::RunCommand(State, CommandId::Offerdraw);
    EXPECT_EQ(0, State.GameEnded);
}

TEST_F(Ratings, ResigningCostsPoints) {
    Drag("d4", "e5");
    World.ExpectMessage("Congratulations",
                        "OK... Computer wins!\n\nYour previous rating was 1200\nThe computers' rating "
                        "in this game was 1600\nYour new rating is 1197\n");
    control::RunCommand(State, CommandId::Resign);
    EXPECT_EQ(1197, State.Rating);
    EXPECT_EQ("Computer wins!", State.StatusPanels[view::StatusPanel]);
}

TEST_F(Ratings, TheWinnerIsKnownByName) {
    EXPECT_EQ(1, control::PlayerWon(State, "white"));
    EXPECT_EQ(0, control::PlayerWon(State, "black"));
}

} // namespace
} // namespace zonterbrook::tests
