// The rating: what a game is worth, which games count, and what is said; draw offers and resignation.
#include "control/ending.h"
#include "control/rating.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

class Ratings : public GameFixture {
protected:
    // A game of so many half-moves, White by a person, Black by the computer of this level.
    void Record(int HalfMoves, int Level) {
        State.Record.Cursor = State.Record.Count = HalfMoves;
        for (int Number = 1; Number <= HalfMoves; ++Number) {
            State.Record.HalfMoves[Number].By = Number % 2 == 1 ? game::MadeBy::Person : game::MadeBy::Computer;
            State.Record.HalfMoves[Number].Level = static_cast<std::uint8_t>(Level);
        }
    }
    void ExpectComputerRating(std::string_view Rating) const {
        const std::string Line = "\nThe computers' rating in this game was " + std::string(Rating) + "\n";
        EXPECT_NE(std::string::npos, State.RatingSummary.find(Line)) << State.RatingSummary;
    }
};

TEST_F(Ratings, FollowExpectationAndFactor) {
    const struct {
        const char* Fault;
        std::int16_t Before;
        int Level;
        double Score;
        std::int16_t After;
        const char* ComputerRating;
    } Rows[] = {{"win_over_an_equal", 1200, 5, 1, 1215, "1200"},
                {"loss_to_an_equal", 1200, 5, 0, 1185, "1200"},
                {"below_2000_thirty", 1999, 10, 0, 1974, "1700"},
                // 400 points ahead: expected 10/11 of a point.
                {"at_2000_thirty", 2000, 9, 0, 1973, "1600"},
                {"at_2100_twenty_five", 2100, 10, 0, 2077, "1700"},
                {"at_2400_ten", 2400, 10, 0, 2390, "1700"}};
    for (const auto& Row : Rows) {
        Record(4, Row.Level);
        State.Rating = Row.Before;
        control::UpdateRating(State, Row.Score);
        EXPECT_EQ(Row.After, State.Rating) << Row.Fault;
        ExpectComputerRating(Row.ComputerRating);
    }
}

struct CountCase {
    const char* Name;
    const char* Columns; ///< who made the half-moves of each column, a digit for each of three rows
    const char* Levels;  ///< of the rows
    const char* Rating;  ///< of the computer; empty: the game does not count
    int HalfMoves = 6;
    std::uint8_t UseRating = 1;
    bool Allowed = true;
};

using Counted = RowsOf<Ratings, CountCase>;

TEST_P(Counted, IsWhatTheComputerPlayedHere) {
    const CountCase& Row = GetParam();
    Record(6, 0);
    State.Record.Cursor = Row.HalfMoves;
    for (int I = 0; I < 6; ++I) {
        game::HalfMove& Made = State.Record.HalfMoves[I + 1];
        Made.By = static_cast<game::MadeBy>(Row.Columns[I / 2 + 4 * (I % 2)] - '0');
        Made.Level = static_cast<std::uint8_t>(Row.Levels[I / 2] - '0');
    }
    State.UseRating = Row.UseRating;
    State.RatingAllowed = Row.Allowed;
    control::UpdateRating(State, 1);
    if (*Row.Rating != '\0') {
        ExpectComputerRating(Row.Rating);
    } else {
        EXPECT_EQ(1200, State.Rating);
        EXPECT_EQ("", State.RatingSummary);
    }
}

constexpr CountCase CountRows[] = {
    {"average_of_levels", "222 111", "345", "1100"},
    // The person's half-moves of the first two rows come from a file, the computer's were made here.
    {"levels_before_a_load_are_asked_in_the_first_column", "332 111", "119", "1600"},
    {"taken_back_by_half", "222 121", "599", "1200", 3},
    {"not_wanted", "222 111", "555", "", 6, 0},
    {"not_allowed", "222 111", "555", "", 6, 1, false},
    {"between_persons", "222 222", "555", ""},
    {"all_from_a_file", "333 333", "555", ""},
    {"sides_changed_hands", "221 111", "555", ""},
    {"computer_gave_its_side_away", "222 112", "555", ""}};
INSTANTIATE_TEST_SUITE_P(Rows, Counted, testing::ValuesIn(CountRows), RowName);

TEST_F(Ratings, AGameIsGreatUnlessTheComputerWasOnceAhead) {
    const struct {
        const char* Fault;
        int HalfMoves, Half;
        std::int16_t Depth, Score;
        const char* Text;
    } Rows[] = {{"less_than_two_men", 5, 2, 3, 199, "  Great game"},
                {"two_men_overlooked", 5, 2, 3, 200, "  Good game"},
                {"the_winners_own_move", 5, 3, 3, 500, "  Great game"},
                {"looked_one_ply_only", 5, 2, 1, 500, "  Great game"},
                {"last_mover_won_as_the_second", 4, 1, 2, 500, "  Good game"}};
    for (const auto& Row : Rows) {
        State.Record = {};
        State.Record.Cursor = Row.HalfMoves;
        State.Record.HalfMoves[Row.Half].Depth = Row.Depth;
        State.Record.HalfMoves[Row.Half].Score = Row.Score;
        EXPECT_EQ(Row.Text, control::GameCompliment(State.Record)) << Row.Fault;
    }
}

TEST_F(Ratings, ADrawIsTakenByWhoIsNotAhead) {
    const auto Offer = [&](std::int32_t Score) {
        State.BestScore = Score;
        World.ExpectMessage("Draw Offer", "Offer rejected... Play on!");
        Run(OfferDraw);
        EXPECT_FALSE(control::IsOver(State));
    };
    Offer(0); // before the first move
    Drag("d4", "e5");
    Offer(1);
    State.BestScore = 0;
    State.UseRating = 0;
    ExpectCongratulation("OK... It's a draw!");
    Run(OfferDraw);
    ExpectOver("It's a draw!", "1/2-1/2");
}

TEST_F(Ratings, AWonGameIsRated) {
    State.Strength = 0;
    Lay("w c3, w a1, b d6");
    Drag("c3", "d4");
    ASSERT_EQ(2, State.GameMoves);
    ExpectCongratulation("White wins!  Great game\n\nYour previous rating was 1200\n"
                         "The computers' rating in this game was 1700\nYour new rating is 1228\n");
    DoubleClickMove(State.ChoiceList.Lines.at(0));
    EXPECT_EQ(1228, State.Rating);
}

TEST_F(Ratings, EachEndHasItsScore) {
    using enum control::Ending;
    constexpr std::tuple<control::Ending, bool, int> Rows[] = {
        {WhiteWins, true, 1215},  {WhiteWins, false, 1185},   {BlackWins, true, 1185},    {BlackWins, false, 1215},
        {PersonWins, true, 1215}, {ComputerWins, true, 1185}, {Resigned, true, 1185},     {Drawn, true, 1200},
        {DrawAgreed, true, 1200}, {DrawnByRule, true, 1200},  {OfferAccepted, true, 1200}};
    World.TakesAnything = true;
    for (const auto& [How, PersonIsWhite, After] : Rows) {
        Record(4, 5);
        State.Rating = 1200;
        State.WhitePlayerName = PersonIsWhite ? "Player" : "Computer";
        State.BlackPlayerName = PersonIsWhite ? "Computer" : "Player";
        State.Turn = control::TurnState::Resting;
        control::EndGame(State, How);
        EXPECT_EQ(After, State.Rating) << static_cast<int>(How) << PersonIsWhite;
        EXPECT_NE("", State.RatingSummary) << "a game that does not count";
    }
}

} // namespace
} // namespace zonterbrook::tests
