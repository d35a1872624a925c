// The computer's move: what it plays, records, announces and shows, how it ends games, and what may be pressed
// meanwhile.
#include "control/computer_move.h"
#include "control/modes.h"
#include "control/record.h"
#include "support/game_fixture.h"

#include <set>

namespace zonterbrook::tests {
namespace {

class ComputerMoves : public ThinkingFixture {
protected:
    void SetUp() override {
        ThinkingFixture::SetUp();
        State.UseRating = 0;
    }

    void Think() { Run(Compute); }
    void ExpectNames(std::string_view White, std::string_view Black) {
        EXPECT_EQ(White, State.WhitePlayerName);
        EXPECT_EQ(Black, State.BlackPlayerName);
    }
};

// --- one move ----------------------------------------------------------------------------------------------------

TEST_F(ComputerMoves, AMoveIsPlayedAndRecorded) {
    State.SearchDepth = 3;
    State.UseSound = 1;
    State.RootList.Lines = {"d4-e5"}; // of the search before
    World.OnNode = [&] {
        EXPECT_EQ(control::TurnState::Thinking, State.Turn);
        EXPECT_TRUE(State.ChoiceList.Lines.empty() && State.RootList.Lines.empty());
    };
    World.OnWait = World.OnNode;
    Think();
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("Strength:10   Depth:3 ply", State.StrengthLine.Text);
    EXPECT_EQ(rules::Black, State.Side);
    EXPECT_EQ(0, State.Record.HalfMoves[2].Played.Record.Source) << "no end mark";
    EXPECT_EQ(State.BestScore, State.Record.HalfMoves[1].Score);
    EXPECT_EQ(3, State.Record.HalfMoves[1].Depth);
    EXPECT_EQ(9, State.Record.HalfMoves[1].Choices);
    EXPECT_EQ(game::MadeBy::Computer, State.Record.HalfMoves[1].By);
    EXPECT_EQ(10, State.Record.HalfMoves[1].Level);
    const std::string Move = State.GameList.Lines.at(0).substr(6);
    EXPECT_EQ(9U, State.ChoiceList.Lines.size());
    EXPECT_EQ(9U, State.RootList.Lines.size());
    EXPECT_EQ(Move, State.RootList.Lines[0].substr(0, 5)) << "the best move stands first";
    EXPECT_EQ(std::vector<std::string>{"sounds/click.wav"}, World.Sounds);
    EXPECT_TRUE(State.GameChanged);
    EXPECT_EQ("", control::CheckRest(State));
}

TEST_F(ComputerMoves, TheComputerTakesTheSideToMoveOver) {
    World.OnWait = [&] { ExpectShown(); };
    Think();
    ExpectNames("Computer", "Player");
    Think();
    ExpectNames("Player", "Computer");
    // A side that is the computer's stays it.
    Run(Back);
    Think();
    ExpectNames("Player", "Computer");
    BetweenPersons();
    Think();
    ExpectNames("Player", "Player");
    ExpectCan(false, {OfferDraw, Resign});
}

TEST_F(ComputerMoves, WhatLayAheadIsDropped) {
    for (int I = 0; I < 4; ++I) {
        Think();
    }
    State.Record.HalfMoves[4].Comment = "late";
    Run(First);
    World.OnNode = [&] { EXPECT_TRUE(State.GameList.Lines.empty()) << "still listed while the computer thinks"; };
    Think();
    EXPECT_EQ(1, State.Record.Count);
    EXPECT_EQ("", State.Record.HalfMoves[4].Comment);
    EXPECT_EQ(0, State.Record.HalfMoves[3].Score);
    ExpectCan(false, {Forward});
}

TEST_F(ComputerMoves, TheCalculationIsShown) {
    State.SearchDepth = 4;
    std::set<std::string> Seen;
    double Progress = 0;
    double Furthest = 0;
    World.OnWait = [&] { EXPECT_EQ("", State.Calculation.Text); };
    World.OnNode = [&] {
        World.Clock += 1;
        EXPECT_LE(State.Progress.Value - std::exchange(Progress, State.Progress.Value), 1) << "a move is one step";
        Furthest = std::max(Furthest, State.Progress.Value);
        Seen.insert(Status());
    };
    Think();
    EXPECT_EQ(1U, Seen.count("Thinking... (4)  d4-e5"));
    EXPECT_EQ("Black moves", Status()) << "whose turn it is after the reply";
    const std::string Move = State.GameList.Lines[0].substr(6);
    const std::string& Label = State.Calculation.Text;
    EXPECT_EQ(0U, Label.find("Depth: 4   Best: " + Move + "   Score:")) << Label;
    EXPECT_NE(std::string::npos, Label.find("\nTime: 00:")) << Label;
    EXPECT_EQ(36.0, State.Progress.Maximum);
    EXPECT_EQ(35.0, Furthest) << "all but the last move of the last round";
    EXPECT_EQ(0.0, State.Progress.Value) << "empty at rest";
    // The reply that is expected is the second move of the line.
    const std::string Reply = rules::AlgebraicName(State.HintSource) + "-" + rules::AlgebraicName(State.HintDest);
    EXPECT_NE(std::string::npos, Label.find("\nMain: " + Move + " " + Reply + " ")) << Label << " " << Reply;
}

TEST_F(ComputerMoves, TheCalculationIsNotShownWhenItIsOff) {
    Run(Calculation);
    State.SearchDepth = 3;
    bool Said = false;
    World.OnNode = [&] { Said |= Status() != "Thinking..."; };
    Think();
    EXPECT_EQ("no calculation", State.Calculation.Text);
    EXPECT_FALSE(Said) << "the moves under examination are part of the calculation";
    EXPECT_NE(0, State.HintSource) << "the expected reply is known all the same";
    EXPECT_NE(std::string::npos, World.Log.find("   M:   T: "));
}

TEST_F(ComputerMoves, ASingleMoveIsNotThoughtAbout) {
    State.SearchDepth = 6;
    Lay("w a3, w j2, b b4, b j6");
    Think();
    EXPECT_EQ(1, State.Record.HalfMoves[1].Choices);
    EXPECT_EQ(1, State.Record.HalfMoves[1].Depth);
    EXPECT_EQ(6, State.SearchDepth);
}

TEST_F(ComputerMoves, ByTimeTheClockStopsTheSearch) {
    State.FixedDepth = 0;
    State.TimeLimit = 2;
    double Furthest = 0;
    World.OnNode = [&] {
        World.Clock += 0.001;
        Furthest = std::max(Furthest, State.Progress.Value);
    };
    const double Begun = World.Clock;
    Think();
    EXPECT_GE(World.Clock - Begun, 2.5) << "the pause is not thinking";
    EXPECT_LT(World.Clock - Begun, 10.0);
    EXPECT_EQ(0, State.StopAutoPlay) << "the clock's stop is nobody's wish";
    EXPECT_EQ(rules::StopRequest::None, State.CancelRequested);
    EXPECT_GT(State.Record.HalfMoves[1].Depth, 2);
    EXPECT_GT(Furthest, 0);
    EXPECT_LE(Furthest, 2.0);
    EXPECT_EQ(0.0, State.Progress.Value);
    EXPECT_EQ("Strength:10   Time:2 sec", State.StrengthLine.Text);
}

TEST_F(ComputerMoves, ACommentTypedInMidSearchBelongsToTheMoveThatIsThoughtAbout) {
    State.SearchDepth = 4;
    State.CommentText = "deep";
    World.OnNode = [&] { control::Text1_KeyUp(State); };
    Think();
    EXPECT_EQ("deep", State.Record.HalfMoves[1].Comment);
    EXPECT_EQ("", State.Record.HalfMoves[2].Comment) << "the search makes moves of its own";
}

struct CloseCase {
    const char* Name;
    bool ByCommand;
    int ConfirmExit;
    bool Closes;
};

using ClosedInMidSearch = RowsOf<ComputerMoves, CloseCase>;

TEST_P(ClosedInMidSearch, AsksFirstAndStopsOnlyAfterAYes) {
    const CloseCase& Row = GetParam();
    State.SearchDepth = 6;
    Lay("W c1, W g1, B b0, B h0");
    State.AskForDraw = 1;
    State.LastDrawOffer = -40;
    State.ConfirmExit = Row.ConfirmExit;
    if (Row.ConfirmExit != 0) {
        World.ExpectQuestion("Confirmation", "Are you sure you want to exit?", Row.Closes);
    }
    if (!Row.Closes) { // who goes is not asked for a draw
        World.ExpectQuestion("Question", "How about a draw?", false);
    }
    World.Chances.assign(9, 0);
    World.OnNode = [&] {
        if (World.Nodes < 500 || World.Nodes > 501) {
            return;
        }
        bool Cancel = true;
        if (Row.ByCommand && World.Nodes == 500) {
            Run(Exit);
        } else if (World.Nodes == 500 || Row.Closes) { // a second click asks nothing
            control::Form_QueryUnload(State, Cancel);
        }
        EXPECT_TRUE(Cancel) << "the window went in mid-search";
    };
    Think();
    EXPECT_EQ(Row.Closes ? 1 : 0, World.Closings);
    EXPECT_EQ(Row.Closes, World.Nodes < 600U) << "No stops nothing, Yes at once";
    EXPECT_EQ(1, State.GameMoves);
    bool Cancel = true;
    if (Row.Closes) {
        control::Form_QueryUnload(State, Cancel);
        EXPECT_FALSE(Cancel) << "what has been agreed is not asked again";
        control::Form_Unload(State);
    }
    EXPECT_EQ(Row.Closes, World.Ended);
    EXPECT_EQ(!Row.Closes, World.LogIsOpen);
}

constexpr CloseCase CloseRows[] = {{"window_asked_and_agreed", false, 1, true},
                                   {"window_asked_and_refused", false, 1, false},
                                   {"window_unasked", false, 0, true},
                                   {"command_asked_and_agreed", true, 1, true},
                                   {"command_asked_and_refused", true, 1, false}};
INSTANTIATE_TEST_SUITE_P(Rows, ClosedInMidSearch, testing::ValuesIn(CloseRows), RowName);

// --- announcements -----------------------------------------------------------------------------------------------

struct ForcedCase {
    const char *Name, *Rules, *Pieces;
    std::int32_t Side;
    std::uint8_t Depth;
    const char* Text;
};

using Forced = RowsOf<ComputerMoves, ForcedCase>;

TEST_P(Forced, ResultsAreAnnounced) {
    const ForcedCase& Row = GetParam();
    WriteRules(State, Row.Rules);
    Lay(Row.Pieces, Row.Side);
    State.StatusText = "Computer is winning in 9 moves! "; // of the move before
    State.SearchDepth = Row.Depth;
    Think();
    EXPECT_EQ(*Row.Text != '\0' ? Row.Text : view::SideMovesText(State.Side), Status());
    EXPECT_EQ(*Row.Text != '\0', State.ForcedAnnounced);
    EXPECT_FALSE(control::IsOver(State));
    // It comes back with the last position, and not before.
    Run(Back);
    EXPECT_EQ("", Status());
    Run(Forward);
    EXPECT_EQ(*Row.Text != '\0' ? Row.Text : view::HalfMoveText(State, State.Record.HalfMoves[1]), Status());
}

using rules::Black;
using rules::White;

constexpr ForcedCase ForcedRows[] = {
    {"not_seen_yet", "", "w c3, b d6", White, 2, ""},
    {"win_in_two", "", "w c3, b d6", White, 3, "Computer is winning in 2 moves! "},
    {"win_in_three", "", "w e5, b a9, b g9", Black, 5, "Computer is winning in 3 moves! "},
    {"race_won_in_four", "KingWin=1", "w c5, b g5", Black, 7, "Computer is winning in 4 moves! "},
    {"race_lost_in_four", "KingWin=1", "w c5, b g5", White, 8, "Computer is losing in 4 moves! "},
    {"loss_in_one", "", "w c3, b c5", White, 2, "Computer is losing in 1 move! "},
    {"anti_loss_in_two", "AntiMode=1", "w c3, w e3, b d6", White, 3, "Computer is losing in 2 moves! "}};
INSTANTIATE_TEST_SUITE_P(Rows, Forced, testing::ValuesIn(ForcedRows), RowName);

// --- offers ------------------------------------------------------------------------------------------------------

enum class Answer { NotAsked, No, Yes };

struct OfferCase {
    const char* Name;
    double Chance;
    Answer Asked;
    std::int32_t AskForDraw = 1, LastOffer = -40, Announced = 0;
    const char* Pieces = "W c1, W g1, B b0, B h0"; ///< as drawn as can be
};

using Offers = RowsOf<ComputerMoves, OfferCase>;

TEST_P(Offers, AreMadeWhenEverythingAgrees) {
    const OfferCase& Row = GetParam();
    State.ChessDrawRules = 0;
    Lay(Row.Pieces);
    State.AskForDraw = Row.AskForDraw;
    State.LastDrawOffer = Row.LastOffer;
    State.ForcedAnnounced = Row.Announced;
    World.Chances = {Row.Chance};
    int Pauses = 0;
    World.OnWait = [&] { Pauses += State.GameMoves; };
    if (Row.Asked != Answer::NotAsked) {
        World.ExpectQuestion("Question", "How about a draw?", Row.Asked == Answer::Yes);
    }
    if (Row.Asked == Answer::Yes) {
        ExpectCongratulation("It's a draw!");
    }
    Think();
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(Row.Asked != Answer::NotAsked, State.LastDrawOffer == 1);
    EXPECT_EQ(Row.Asked != Answer::NotAsked ? 1 : 0, Pauses) << "the move must be seen first";
    if (Row.Asked == Answer::Yes) {
        ExpectOver("It's a draw!", "1/2-1/2");
    } else {
        EXPECT_FALSE(control::IsOver(State));
    }
}

constexpr OfferCase OfferRows[] = {{"all_agrees", 0.09, Answer::No},
                                   {"taken", 0.0, Answer::Yes},
                                   {"chance_is_against_it", 0.1, Answer::NotAsked},
                                   {"not_asked_for", 0.0, Answer::NotAsked, 0},
                                   {"offered_lately", 0.0, Answer::NotAsked, 1, -39},
                                   {"a_result_was_announced", 0.0, Answer::NotAsked, 1, -40, 1},
                                   {"men_are_left", 0.0, Answer::NotAsked, 1, -40, 0, "W c1, w g1, B b0, b h0"}};
INSTANTIATE_TEST_SUITE_P(Rows, Offers, testing::ValuesIn(OfferRows), RowName);

TEST_F(ComputerMoves, FlatScoresAreCountedAndOfferADraw) {
    State.ChessDrawRules = 0;
    State.MoveLimitChoice = 2;
    for (const char* Lone : {"", ", w i1"}) { // material that differs is no draw
        BetweenPersons();
        Lay("W c1, W g1, w j2, B b0, B h0, b a9" + std::string(Lone));
        Shuffle({"c1d2", "b0c9", "d2c1", "c9b0"}, 80);
        Run(ComputerPlayer);
        World.OnNode = [&] {
            EXPECT_EQ("81 of 32", std::to_string(State.QuietMoves) + " of " + std::to_string(State.QuietLimit));
        };
        State.AskForDraw = 0;
        Think();
        const int Score = State.Record.HalfMoves[81].Score;
        State.AskForDraw = 1;
        // How much higher the score was 78 half-moves ago, or that there was none, how often it has been flat before,
        // and how often then.
        for (const auto& [Before, Often, Then] :
             {std::array{99, 1, 2}, {99, 0, 1}, {100, 2, 0}, {-99, 1, 2}, {-100, 1, 0}, {-Score, 1, 0}}) {
            Run(Back);
            State.ScoreFlatCount = Often;
            State.LastDrawOffer = 0;
            State.Record.HalfMoves[3].Score = static_cast<std::int16_t>(Score + Before);
            World.Chances = {0.99, 0.99};
            if (Then == 2 && *Lone == '\0') {
                World.ExpectQuestion("Question", "How about a draw?", false);
            }
            Think();
            ASSERT_EQ(81, State.GameMoves);
            ASSERT_EQ(Score, State.Record.HalfMoves[81].Score);
            EXPECT_EQ(Then, State.ScoreFlatCount) << Before;
            EXPECT_TRUE(World.ScriptIsDone());
        }
    }
}

// --- Cancel ------------------------------------------------------------------------------------------------------

TEST_F(ComputerMoves, CancelPlaysTheBestMoveSoFar) {
    State.SearchDepth = 12;
    World.OnNode = [&] {
        ExpectCan(World.Nodes < 3000, {Cancel}); // once, also when a node has seen it and the search unwinds
        if (World.Nodes == 2999) {
            Run(Cancel);
            ExpectCan(false, {Cancel});
        }
    };
    Think();
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_LT(World.Nodes, 3100U);
    EXPECT_GT(State.Record.HalfMoves[1].Depth, 1);
    EXPECT_LT(State.Record.HalfMoves[1].Depth, 12);
    EXPECT_EQ(rules::StopRequest::None, State.CancelRequested);
    ExpectConsistent();
}

TEST_F(ComputerMoves, CancelBeforeAnythingIsKnownPlaysTheFirstMove) {
    const std::string First = State.ChoiceList.Lines.at(0);
    State.SearchDepth = 5;
    State.BestScore = 17;
    World.OnWait = [&] { Run(Cancel); };
    Think();
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("   1. " + First, State.GameList.Lines[0]);
    EXPECT_EQ(0, State.Record.HalfMoves[1].Score) << "what an unwinding search says of it";
    EXPECT_EQ(1, State.StopAutoPlay);
    EXPECT_EQ(rules::StopRequest::None, State.CancelRequested);
}

TEST_F(ComputerMoves, AnOldCancelDoesNotStopTheNextSearchAndNoneIsAskedForWithoutOne) {
    control::mnu_Play_Cancel_Click(State);
    EXPECT_EQ(rules::StopRequest::None, State.CancelRequested);
    State.CancelRequested = rules::StopRequest::Person;
    State.SearchDepth = 3;
    Think();
    EXPECT_EQ(3, State.Record.HalfMoves[1].Depth);
    EXPECT_NE('b', State.GameList.Lines[0].back());
}

} // namespace
} // namespace zonterbrook::tests
