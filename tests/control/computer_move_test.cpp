// The computer's move: what it plays, records, announces and shows, how it ends games, and what may be pressed
// meanwhile.
#include "control/computer_move.h"
#include "control/modes.h"
#include "engine/root_search.h"
#include "support/game_fixture.h"
#include "support/turn_world.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class ComputerMoves : public GameFixture {
protected:
    TurnWorld Nodes{World};

    void SetUp() override {
        GameFixture::SetUp();
        State.World = &Nodes;
        State.Strength = 0;
        State.UseRating = 0;
    }

    std::string Status() const { return State.StatusPanels[view::StatusPanel]; }
    void Compute() { control::RunCommand(State, CommandId::Compute); }
    void ExpectOver(std::string_view Text, std::string_view Result) {
        EXPECT_EQ(1, State.GameEnded);
        EXPECT_EQ(Text, Status());
        EXPECT_EQ(Result, State.ResultText);
        EXPECT_FALSE(State.List2.Enabled);
        EXPECT_FALSE(view::CanRun(State, CommandId::Compute));
        EXPECT_FALSE(view::CanRun(State, CommandId::mnu_Play_Cancel));
        EXPECT_TRUE(view::CanRun(State, CommandId::New1));
        EXPECT_EQ(0, State.Thinking);
        EXPECT_EQ(0, State.SearchActive);
        ExpectConsistent();
    }
};

// --- one move ----------------------------------------------------------------------------------------------------

TEST_F(ComputerMoves, AMoveIsPlayedAndRecorded) {
    State.SearchDepth = 3;
    State.UseSound = 1;
    Compute();
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ(1, State.MoveCount);
    EXPECT_EQ(0, State.Ply);
    EXPECT_EQ(rules::Black, State.Side);
    EXPECT_EQ(0, State.PlayedMoves[2].Record.Source) << "no end mark";
    EXPECT_EQ(State.BestScore, State.MoveScores[1]);
    EXPECT_EQ(3, State.MoveDepths[1]);
    EXPECT_EQ(9, State.MoveChoices[1]);
    EXPECT_EQ(control::MovedByComputer, State.GameMoveRow[1].FirstSource);
    EXPECT_EQ("10", State.GameMoveRow[1].Level);
    ASSERT_EQ(1U, State.List1.Lines.size());
    const std::string Move = State.List1.Lines[0].substr(6);
    EXPECT_EQ(State.GameMoveRow[1].FirstMove, Move.substr(0, 2) + Move.substr(3, 2) + " " + Move);
    EXPECT_EQ(9U, State.List2.Lines.size());
    EXPECT_EQ(9U, State.List3.Lines.size());
    EXPECT_EQ(Move, State.List3.Lines[0].substr(0, 5)) << "the best move stands first";
    EXPECT_EQ(std::vector<std::string>{"sounds/click.wav"}, World.Sounds);
    EXPECT_EQ(1, State.GameChanged);
    ExpectConsistent();
}

TEST_F(ComputerMoves, TheComputerTakesTheSideToMoveOver) {
    Compute();
    EXPECT_EQ("Computer", State.WhitePlayerName);
    EXPECT_EQ("Player", State.BlackPlayerName);
    Compute();
    EXPECT_EQ("Player", State.WhitePlayerName);
    EXPECT_EQ("Computer", State.BlackPlayerName);
}

TEST_F(ComputerMoves, ASideThatIsTheComputersStaysIt) {
    Drag("d4", "e5");
    control::RunCommand(State, CommandId::Moveback);
    Compute();
    EXPECT_EQ("Player", State.WhitePlayerName);
    EXPECT_EQ("Computer", State.BlackPlayerName);
}

TEST_F(ComputerMoves, WhatLayAheadIsDropped) {
    for (int I = 0; I < 4; ++I) {
        Compute();
    }
    State.MoveComment[4] = "late";
    control::RunCommand(State, CommandId::First);
    Nodes.OnNode = [&] { EXPECT_TRUE(State.List1.Lines.empty()) << "still listed while the computer thinks"; };
    Compute();
    EXPECT_EQ(1, State.MoveCount);
    EXPECT_EQ(1U, State.List1.Lines.size());
    EXPECT_EQ("", State.MoveComment[4]);
    EXPECT_EQ(0, State.MoveScores[3]);
    EXPECT_EQ("", State.GameMoveRow[1].SecondMove);
    EXPECT_FALSE(view::CanRun(State, CommandId::MoveForward));
}

TEST_F(ComputerMoves, TheCalculationIsShown) {
    State.SearchDepth = 3;
    Nodes.OnNode = [&] { World.Clock += 1; };
    Compute();
    const std::string Move = State.List1.Lines[0].substr(6);
    const std::string& Label = State.Label9.Text;
    EXPECT_EQ(0U, Label.find("Depth: 3   Best: " + Move + "   Score:")) << Label;
    EXPECT_NE(std::string::npos, Label.find("\nMain: " + Move + " ")) << Label;
    EXPECT_NE(std::string::npos, Label.find("\nTime: 00:0")) << Label;
    EXPECT_EQ(27.0, State.Progress.Maximum);
    EXPECT_EQ(27.0, State.Progress.Value);
    // The reply that is expected is the second move of the line.
    const std::string Reply = rules::AlgebraicName(State.HintSource) + "-" + rules::AlgebraicName(State.HintDest);
    EXPECT_NE(std::string::npos, Label.find("\nMain: " + Move + " " + Reply + " ")) << Label << " " << Reply;
}

TEST_F(ComputerMoves, TheCalculationIsNotShownWhenItIsOff) {
    control::RunCommand(State, CommandId::calculation);
    State.SearchDepth = 3;
    bool Said = false;
    Nodes.OnNode = [&] { Said |= Status() != "Thinking..."; };
    Compute();
    EXPECT_EQ("no calculation", State.Label9.Text);
    EXPECT_FALSE(Said) << "the moves under examination are part of the calculation";
    EXPECT_NE(0, State.HintSource) << "the expected reply is known all the same";
    EXPECT_NE(std::string::npos, World.Log.find("   M:   T: "));
}

TEST_F(ComputerMoves, TheStatusBarNamesTheMoveUnderExamination) {
    State.SearchDepth = 4;
    std::set<std::string> Seen;
    Nodes.OnNode = [&] { Seen.insert(Status()); };
    Compute();
    EXPECT_EQ(1U, Seen.count("Thinking... (1)  d4-e5"));
    EXPECT_EQ(1U, Seen.count("Thinking... (4)  d4-e5"));
    EXPECT_EQ("", Status());
}

TEST_F(ComputerMoves, ASingleMoveIsNotThoughtAbout) {
    State.SearchDepth = 6;
    Lay("w a3, w j2, b b4, b j6");
    Compute();
    EXPECT_EQ(1, State.MoveChoices[1]);
    EXPECT_EQ(1, State.MoveDepths[1]);
    EXPECT_EQ(6, State.SearchDepth);
}

TEST_F(ComputerMoves, ByTimeTheClockStopsTheSearch) {
    State.FixedDepth = 0;
    State.TimeLimit = 2;
    Nodes.OnNode = [&] { World.Clock += 0.001; };
    const double Before = World.Clock;
    Compute();
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(0, State.StopAutoPlay) << "the clock's stop is nobody's wish";
    EXPECT_EQ(0, State.CancelRequested);
    EXPECT_GE(World.Clock - Before, 2.5);
    EXPECT_GT(State.MoveDepths[1], 2);
    EXPECT_EQ(2.0, State.Progress.Maximum);
    EXPECT_EQ(2.0, State.Progress.Value);
    EXPECT_EQ("Strength:10   Time:2 sec", State.Label7.Text);
}

TEST_F(ComputerMoves, TimeRunsThroughMidnight) {
    State.FixedDepth = 0;
    State.TimeLimit = 2;
    World.Clock = 86399;
    Nodes.OnNode = [&] {
        World.Clock += 0.001;
        World.Clock -= World.Clock >= 86400 ? 86400 : 0;
    };
    Compute();
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_LT(World.Clock, 100.0) << "stopped long after its time";
    EXPECT_GT(State.MoveDepths[1], 2);
}

TEST_F(ComputerMoves, NothingCanBePressedButCancel) {
    State.SearchDepth = 4;
    const CommandId Frozen[] = {CommandId::New1,    CommandId::NewVariant, CommandId::Open1,
                                CommandId::Save,    CommandId::mnuProblem, CommandId::Compute,
                                CommandId::Analyze, CommandId::First,      CommandId::Moveback,
                                CommandId::Last,    CommandId::Offerdraw,  CommandId::MoveForward,
                                CommandId::Resign,  CommandId::Hint,       CommandId::mnu_Play_Ccomputer,
                                CommandId::Cplayer, CommandId::Pplayer,    CommandId::Options,
                                CommandId::Turn};
    int Pressed = 0;
    const auto Look = [&] {
        for (const CommandId Id : Frozen) {
            Pressed += view::CanRun(State, Id) ? 1 : 0;
        }
        EXPECT_TRUE(view::CanRun(State, CommandId::mnu_Play_Cancel));
        EXPECT_FALSE(State.Text2.Enabled);
        EXPECT_FALSE(State.List1.Enabled || State.List2.Enabled || State.List3.Enabled);
        EXPECT_EQ(1, State.Thinking);
    };
    Nodes.OnNode = Look;
    World.OnWait = Look;
    Compute();
    EXPECT_EQ(0, Pressed);
    for (const CommandId Id :
         {CommandId::New1, CommandId::Compute, CommandId::First, CommandId::Moveback, CommandId::Offerdraw,
          CommandId::Resign, CommandId::Cplayer, CommandId::Pplayer, CommandId::mnu_Play_Ccomputer, CommandId::Turn}) {
        EXPECT_TRUE(view::CanRun(State, Id)) << view::RowOf(Id).Name;
    }
    EXPECT_FALSE(view::CanRun(State, CommandId::mnu_Play_Cancel));
    EXPECT_FALSE(view::CanRun(State, CommandId::MoveForward));
    EXPECT_TRUE(State.Text2.Enabled && State.List1.Enabled && State.List2.Enabled && State.List3.Enabled);
}

TEST_F(ComputerMoves, BetweenPersonsNobodyCanOfferADrawAfterwards) {
    BetweenPersons();
    Compute();
    EXPECT_FALSE(view::CanRun(State, CommandId::Offerdraw));
    EXPECT_FALSE(view::CanRun(State, CommandId::Resign));
    EXPECT_EQ("Player", State.WhitePlayerName);
}

TEST_F(ComputerMoves, AFaultInMidSearchEndsTheProgramInOrder) {
    Nodes.OnNode = [] { throw base::Fault("broken"); };
    World.ExpectMessage("Error", "broken");
    Compute();
    EXPECT_TRUE(World.Ended);
    EXPECT_FALSE(World.LogIsOpen);
}

TEST_F(ComputerMoves, ACommentTypedInMidSearchBelongsToTheMoveThatIsThoughtAbout) {
    State.SearchDepth = 4;
    State.Text1.Text = "deep";
    Nodes.OnNode = [&] { control::Text1_KeyUp(State); };
    Compute();
    EXPECT_EQ("deep", State.MoveComment[1]);
    EXPECT_EQ("", State.MoveComment[2]) << "the search makes moves of its own";
    EXPECT_EQ("", State.MoveComment[4]);
}

TEST_F(ComputerMoves, ClosingTheWindowInMidSearchWaitsForTheMove) {
    State.SearchDepth = 6;
    State.ConfirmExit = 0;
    bool MayClose = true;
    Nodes.OnNode = [&] {
        if (Nodes.Nodes == 500) {
            bool Cancel = false;
            control::Form_QueryUnload(State, Cancel);
            MayClose = !Cancel;
        }
    };
    Compute();
    EXPECT_FALSE(MayClose);
    EXPECT_EQ(1, World.Closings);
    EXPECT_LT(Nodes.Nodes, 600U) << "searched on";
    EXPECT_EQ(1, State.GameMoves);
    ExpectConsistent();
}

// --- announcements -----------------------------------------------------------------------------------------------

struct ForcedCase {
    const char* Name;
    const char* Pieces;
    std::int32_t Side;
    int Depth;
    int Anti;
    int KingWin;
    const char* Text;
};

class Forced : public ComputerMoves, public testing::WithParamInterface<ForcedCase> {};

TEST_P(Forced, ResultsAreAnnounced) {
    const ForcedCase& Row = GetParam();
    State.RuleSet.AntiMode = Row.Anti;
    State.RuleSet.KingWin = static_cast<std::uint8_t>(Row.KingWin);
    Lay(Row.Pieces, Row.Side);
    State.SearchDepth = static_cast<std::uint8_t>(Row.Depth);
    Compute();
    EXPECT_EQ(Row.Text, Status());
    EXPECT_EQ(*Row.Text != '\0' ? 1 : 0, State.ForcedAnnounced);
    EXPECT_EQ(0, State.GameEnded);
    // It comes back with the last position, and not before.
    control::RunCommand(State, CommandId::Moveback);
    EXPECT_EQ("", Status());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Forced,
    testing::Values(
        ForcedCase{"not_seen_yet", "w c3, b d6", rules::White, 2, 0, 0, ""},
        ForcedCase{"win_in_two", "w c3, b d6", rules::White, 3, 0, 0, "Computer is winning in 2 moves! "},
        ForcedCase{"win_in_three", "w e5, b a9, b g9", rules::Black, 5, 0, 0, "Computer is winning in 3 moves! "},
        ForcedCase{"win_in_four", "W a1, w c3, b f6", rules::White, 7, 0, 0, "Computer is winning in 4 moves! "},
        ForcedCase{"race_won_in_four", "w c5, b g5", rules::Black, 7, 0, 1, "Computer is winning in 4 moves! "},
        ForcedCase{"race_lost_in_four", "w c5, b g5", rules::White, 8, 0, 1, "Computer is losing in 4 moves! "},
        ForcedCase{"loss_in_one", "w c3, b c5", rules::White, 2, 0, 0, "Computer is losing in 1 move! "},
        ForcedCase{"anti_loss_in_two", "w c3, w e3, b d6", rules::White, 3, 1, 0, "Computer is losing in 2 moves! "}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(ComputerMoves, AnAnnouncementDoesNotOutliveTheNextMove) {
    Lay("w c3, w a1, b d6, b j8");
    State.StatusText = "Computer is winning in 2 moves! ";
    State.SearchDepth = 1;
    Compute();
    EXPECT_EQ("", Status());
}

// --- the end of the game -----------------------------------------------------------------------------------------

struct EndCase {
    const char* Name;
    void (*Rules)(control::GameState&);
    const char* Pieces;
    std::int32_t Side;
    int Moves; ///< that the computer still makes
    const char* Text;
    const char* Result;
};

class Ends : public ComputerMoves, public testing::WithParamInterface<EndCase> {};

TEST_P(Ends, AreAnnouncedOnceAfterTheMoveIsSeen) {
    const EndCase& Row = GetParam();
    State.ChessDrawRules = 0;
    Row.Rules(State);
    Lay(Row.Pieces, Row.Side);
    World.ExpectMessage("Congratulations", Row.Text);
    World.OnMessage = [&] { EXPECT_EQ(static_cast<std::size_t>(Row.Moves), State.List1.Lines.size()); };
    Compute();
    EXPECT_EQ(Row.Moves, State.GameMoves);
    ExpectOver(Row.Text, Row.Result);
}

void Plain(control::GameState&) {}
void Anti(control::GameState& State) {
    State.RuleSet.AntiMode = 1;
}
void BlockedIsDraw(control::GameState& State) {
    State.RuleSet.NoLegalDraw = 1;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Ends,
    testing::Values(
        EndCase{"takes_the_last_piece", Plain, "w c3, b d4", rules::White, 1, "Computer wins!", "1-0"},
        EndCase{"takes_the_last_piece_anti", Anti, "w c3, b d4", rules::White, 1, "Player wins!", "0-1"},
        EndCase{"blocks", Plain, "w a1, w c1, b a3", rules::White, 1, "Computer wins!", "1-0"},
        EndCase{"blocks_by_its_only_move_anti", Anti, "w a1, b a3, b c1", rules::White, 1, "Player wins!", "0-1"},
        EndCase{"blocks_into_a_draw", BlockedIsDraw, "w a1, b a3, b c1", rules::White, 1, "It's a draw!", "1/2-1/2"},
        EndCase{"is_blocked", Plain, "w a3, b b4, b c5", rules::White, 0, "Player wins!", "0-1"},
        EndCase{"is_blocked_anti", Anti, "w a3, b b4, b c5", rules::White, 0, "Computer wins!", "1-0"},
        EndCase{"is_blocked_into_a_draw", BlockedIsDraw, "w a3, b b4, b c5", rules::White, 0, "It's a draw!",
                "1/2-1/2"},
        EndCase{"has_no_piece", Plain, "b b4", rules::White, 0, "Player wins!", "0-1"},
        EndCase{"reaches_the_goal", [](control::GameState& S) { S.RuleSet.KingWin = 1; }, "w c9, b a9", rules::White, 1,
                "Computer wins!", ""},
        EndCase{"must_make_a_king_that_loses",
                [](control::GameState& S) {
                    S.RuleSet.KingWin = 1;
                    S.RuleSet.AntiMode = 1;
                },
                "w a9, b j8", rules::White, 1, "Player wins!", "1-0"},
        EndCase{"has_lost_the_race", [](control::GameState& S) { S.RuleSet.KingWin = 1; }, "w a3, B a1, b a9",
                rules::White, 0, "Player wins!", ""},
        EndCase{"king_against_king", [](control::GameState& S) { S.KingVersusKing = 1; }, "W c1, B b0", rules::White, 1,
                "It's a draw! King versus King", "1/2-1/2"}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(ComputerMoves, AWinIsSeenThroughACancel) {
    // The search is stopped before it has looked at anything, and the goal is reached all the same.
    State.RuleSet.KingWin = 1;
    Lay("w c9, b a9, b a7");
    World.OnWait = [&] { State.CancelRequested = State.GameMoves == 0 ? 1 : 0; };
    World.ExpectMessage("Congratulations", "Computer wins!");
    State.SearchDepth = 5;
    Compute();
    ExpectOver("Computer wins!", "");
}

TEST_F(ComputerMoves, TheLastMovesOfTheLongestGameAreSearchedLikeAnyOther) {
    State.ChessDrawRules = 0;
    State.SearchDepth = 4;
    Lay("W c1, W e1, w j2, B b0, B h0, b a9");
    BetweenPersons();
    static constexpr std::string_view Moves[] = {"c1d2", "b0c9", "d2c1", "c9b0"};
    while (State.GameMoves < 998) {
        const int Before = State.GameMoves;
        Type(Moves[State.GameMoves % 4]);
        ASSERT_GT(State.GameMoves, Before);
    }
    Compute();
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_EQ(0, State.DrawPending) << "later evaluations would answer 0";
    World.ExpectMessage("Congratulations", "It's a draw!");
    Compute();
    EXPECT_EQ(1000, State.GameMoves);
    ExpectOver("It's a draw!", "1/2-1/2");
}

TEST_F(ComputerMoves, AWinAgainstTheComputerIsRated) {
    State.UseRating = 1;
    Lay("w c3, w a1, b d6");
    Drag("c3", "d4");
    ASSERT_EQ(2, State.GameMoves);
    World.ExpectMessage("Congratulations", "White wins!  Great game\n\nYour previous rating was 1200\n"
                                           "The computers' rating in this game was 1700\nYour new rating is 1228\n");
    DoubleClickMove(State.List2.Lines.at(0));
    EXPECT_EQ(1228, State.Rating);
}

TEST_F(ComputerMoves, ALossAgainstTheComputerIsRated) {
    State.UseRating = 1;
    Lay("w c3, b d4");
    World.ExpectMessage("Congratulations", "Computer wins!\n\nYour previous rating was 1200\n"
                                           "The computers' rating in this game was 1700\nYour new rating is 1198\n");
    Compute();
    EXPECT_EQ(1198, State.Rating);
}

TEST_F(ComputerMoves, NoReplyIsExpectedOfASideWithoutPieces) {
    Lay("w c3, w j2, b d4");
    State.SearchDepth = 3;
    World.ExpectMessage("Congratulations", "Computer wins!");
    Compute();
    EXPECT_EQ(0, State.HintSource);
    EXPECT_EQ(0, State.HintDest);
}

// --- offers ------------------------------------------------------------------------------------------------------

struct OfferCase {
    const char* Name;
    void (*Change)(control::GameState&);
    double Chance;
    bool Offers;
};

class Offers : public ComputerMoves, public testing::WithParamInterface<OfferCase> {
protected:
    // A position that is as drawn as can be, and a game that has been going on for long.
    void LayDrawn() {
        State.ChessDrawRules = 0;
        Lay("W c1, W g1, B b0, B h0");
        State.AskForDraw = 1;
        State.LastDrawOffer = -40;
        State.SearchDepth = 1;
    }
};

TEST_P(Offers, AreMadeWhenEverythingAgrees) {
    const OfferCase& Row = GetParam();
    LayDrawn();
    Row.Change(State);
    World.Chances = {Row.Chance};
    if (Row.Offers) {
        World.ExpectQuestion("Question", "How about a draw?", false);
    }
    Compute();
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ(0, State.GameEnded);
    EXPECT_EQ(Row.Offers, State.LastDrawOffer == 1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Offers,
    testing::Values(OfferCase{"all_agrees", [](control::GameState&) {}, 0.09, true},
                    OfferCase{"chance_is_against_it", [](control::GameState&) {}, 0.1, false},
                    OfferCase{"not_asked_for", [](control::GameState& S) { S.AskForDraw = 0; }, 0.0, false},
                    OfferCase{"offered_lately", [](control::GameState& S) { S.LastDrawOffer = -39; }, 0.0, false},
                    OfferCase{"a_result_was_announced", [](control::GameState& S) { S.ForcedAnnounced = 1; }, 0.0,
                              false}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(ComputerMoves, AnOfferTakenEndsTheGame) {
    Lay("W c1, W g1, B b0, B h0");
    State.AskForDraw = 1;
    State.LastDrawOffer = -40;
    World.Chances = {0.0};
    World.ExpectQuestion("Question", "How about a draw?", true);
    World.ExpectMessage("Congratulations", "It's a draw!");
    Compute();
    ExpectOver("It's a draw!", "1/2-1/2");
}

struct FlatCase {
    const char* Name;
    std::int16_t Before; ///< the score 78 half-moves ago, less the one now
    bool HasScore;
    int Count;
};

class FlatScores : public ComputerMoves, public testing::WithParamInterface<FlatCase> {};

TEST_P(FlatScores, AreCounted) {
    const FlatCase& Row = GetParam();
    State.ChessDrawRules = 0;
    Lay("W c1, W g1, B b0, B h0, w j2, b a9");
    // Half-moves of a long game, made with the kings alone.
    static constexpr std::string_view Moves[] = {"c1d2", "b0c9", "d2c1", "c9b0"};
    BetweenPersons();
    while (State.GameMoves < 80) {
        const int Before = State.GameMoves;
        Type(Moves[State.GameMoves % 4]);
        ASSERT_GT(State.GameMoves, Before);
    }
    State.ScoreFlatCount = 1;
    State.MoveScores[3] = 0;
    Compute();
    const int Score = State.MoveScores[81];
    EXPECT_EQ(0, State.ScoreFlatCount) << "no score is no flat one";
    control::RunCommand(State, CommandId::Moveback);
    State.ScoreFlatCount = 1;
    State.MoveScores[3] = static_cast<std::int16_t>(Row.HasScore ? Score + Row.Before : 0);
    Compute();
    ASSERT_EQ(81, State.GameMoves);
    EXPECT_EQ(Row.Count, State.ScoreFlatCount);
}

INSTANTIATE_TEST_SUITE_P(Rows, FlatScores,
                         testing::Values(FlatCase{"hardly_moved", 99, true, 2}, FlatCase{"moved", 100, true, 0},
                                         FlatCase{"moved_down", -100, true, 0}, FlatCase{"none", 0, false, 0}),
                         [](const auto& Info) { return Info.param.Name; });

// --- Cancel ------------------------------------------------------------------------------------------------------

TEST_F(ComputerMoves, CancelPlaysTheBestMoveSoFar) {
    State.SearchDepth = 12;
    Nodes.OnNode = [&] {
        if (Nodes.Nodes == 3000) {
            control::RunCommand(State, CommandId::mnu_Play_Cancel);
            EXPECT_FALSE(view::CanRun(State, CommandId::mnu_Play_Cancel)) << "once is enough";
        }
    };
    Compute();
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_LT(Nodes.Nodes, 3100U);
    EXPECT_GT(State.MoveDepths[1], 1);
    EXPECT_LT(State.MoveDepths[1], 12);
    EXPECT_EQ(0, State.CancelRequested);
    ExpectConsistent();
}

TEST_F(ComputerMoves, CancelBeforeAnythingIsKnownPlaysTheFirstMove) {
    const std::string First = State.List2.Lines.at(0);
    State.SearchDepth = 5;
    State.BestScore = 17;
    World.OnWait = [&] { control::RunCommand(State, CommandId::mnu_Play_Cancel); };
    Compute();
    ASSERT_EQ(1, State.GameMoves);
    EXPECT_EQ("   1. " + First, State.List1.Lines[0]);
    EXPECT_EQ(0, State.MoveScores[1]) << "what an unwinding search says of it";
    EXPECT_EQ(1, State.StopAutoPlay);
    EXPECT_EQ(0, State.CancelRequested);
}

TEST_F(ComputerMoves, WithoutABookTheGameGoesOn) {
    State.UseBook = 1;
    State.SearchDepth = 2;
    Compute();
    EXPECT_EQ(2, State.MoveDepths[1]);
    EXPECT_EQ(0, State.BookOpen) << "asked again at every move";
    EXPECT_NE('b', State.List1.Lines[0].back());
}

TEST_F(ComputerMoves, CancelWithoutASearchDoesNothing) {
    control::mnu_Play_Cancel_Click(State);
    EXPECT_EQ(0, State.CancelRequested);
}

TEST_F(ComputerMoves, AnOldCancelDoesNotStopTheNextSearch) {
    State.CancelRequested = 1;
    State.SearchDepth = 3;
    Compute();
    EXPECT_EQ(3, State.MoveDepths[1]);
}

class Stopped : public ComputerMoves, public testing::WithParamInterface<const char*> {};

// Some hundred searches, each stopped at another node, over positions of a game.
TEST_P(Stopped, SearchesLeaveTheRootExactly) {
    State.VariantName = GetParam();
    control::NewGame(State);
    State.MoveLimitChoice = 1;
    engine::RootObserver Nobody;
    const auto Before = std::make_unique<control::GameState>();
    std::uint64_t StopAt = 1;
    for (int Position = 0; Position < 8 && State.GameEnded == 0; ++Position) {
        for (int I = 0; I < 40; ++I, StopAt = StopAt % 1900 + 37) {
            rules::GenerateGameMoves(State);
            if (rules::MoveCountOfPly(State) < 2) {
                break;
            }
            *Before = State;
            engine::PrepareSearch(State);
            Nodes.Nodes = 0;
            Nodes.OnNode = [&] { State.CancelRequested = Nodes.Nodes == StopAt ? 1 : State.CancelRequested; };
            engine::RootSearch(State, {6, false, 0}, 0, Nobody);
            Nodes.OnNode = nullptr;
            State.CancelRequested = 0;
            ASSERT_TRUE(engine::SameRoot(*Before, State)) << "stopped at node " << StopAt;
            ASSERT_EQ("", rules::CheckPosition(State)) << "stopped at node " << StopAt;
        }
        State.SearchDepth = 1;
        Compute();
    }
}

INSTANTIATE_TEST_SUITE_P(Variants, Stopped,
                         testing::Values("International Checkers", "Frisian Draughts", "American Checkers 10x10",
                                         "Italian Checkers 10x10", "Russian Checkers 10x10", "Giveaway Checkers 10x10",
                                         "Breakthrough Draughts", "Dameo 10x10", "Turncoats", "Reserves"),
                         [](const auto& Info) {
                             std::string Name = Info.param;
                             std::erase(Name, ' ');
                             return Name;
                         });

} // namespace
} // namespace zonterbrook::tests
