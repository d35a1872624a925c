// Thinking at the root: order of the moves, draws that wait, verification, the clock and the user's stop. Rows are
// named by the fault they would catch.
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "support/engine_game.h"

#include <algorithm>

namespace zonterbrook::engine {
namespace {

using namespace tests;

/// Writes down what it hears, and may do something at each call.
class Listener final : public RootObserver {
public:
    explicit Listener(EngineState& InState) : State(InState) {}

    std::function<void(int Iteration)> OnDone; ///< a root move is done
    std::function<void(int Iteration)> OnStart;
    std::vector<std::string> Accepted;
    std::vector<int> Done;
    int Verified = 0, Current = 0;

    void MoveStarts(int Iteration, int, bool Verifying) override {
        Current = Iteration;
        Verified += Verifying ? 1 : 0;
        if (OnStart && !Verifying) {
            OnStart(Iteration);
        }
    }
    void MoveAccepted(int, int Move) override { Accepted.push_back(MoveText(State.MoveStack[Move])); }
    void MoveDone(double) override {
        if (OnDone) {
            OnDone(Current);
        }
    }
    void IterationDone(int Iteration, double) override { Done.push_back(Iteration); }

private:
    EngineState& State;
};

/// A root search from the position that stands, as the computer's move starts it.
RootOutcome Think(EngineGame& Game, Listener& Heard, const RootLimits& Limits) {
    PrepareSearch(*Game);
    Game->Noise = 0;
    rules::GenerateGameMoves(*Game);
    return RootSearch(*Game, Limits, Game.World.Clock, Heard);
}

RootLimits ToDepth(int Depth) {
    return {Depth, false, 0};
}

TEST(RootSearch, TheBestMoveComesToTheFrontAndTheOthersKeepTheirOrder) {
    EngineGame Game("");
    Listener Heard(*Game);
    PrepareSearch(*Game);
    Game->Noise = 0;
    rules::GenerateGameMoves(*Game);
    std::vector<std::string> Order = MovesOfPly(*Game);
    const auto Root = std::make_unique<EngineState>(*Game);
    const RootOutcome Outcome = RootSearch(*Game, ToDepth(5), 0, Heard);
    EXPECT_EQ(5, Outcome.DepthReached);
    EXPECT_EQ((std::vector<int>{1, 2, 3, 4, 5}), Heard.Done);
    // Replaying what was accepted gives the order that stands.
    Game->Ply = 0;
    const std::vector<std::string> Now = MovesOfPly(*Game);
    class Mover final : public RootObserver {
    public:
        explicit Mover(std::vector<std::string>& InOrder) : Order(InOrder) {}
        void MoveAccepted(int, int Move) override {
            std::rotate(Order.begin(), Order.begin() + Move, Order.begin() + Move + 1);
        }
        std::vector<std::string>& Order;
    };
    Mover Replay(Order);
    RootSearch(*Root, ToDepth(5), 0, Replay);
    EXPECT_EQ(Order, Now);
    EXPECT_EQ(16, Game->BestScore);
    for (int I = 0; I < static_cast<int>(Now.size()); ++I) {
        EXPECT_EQ(Game->MoveStack[I].Source, Game->RootMoves[I].Source) << "list and stack apart at " << I;
        EXPECT_EQ(Game->MoveStack[I].Dest, Game->RootMoves[I].Dest) << "list and stack apart at " << I;
    }
    EXPECT_EQ(UnsetScore, Game->RootMoves[static_cast<int>(Now.size())].Score) << "more moves than there are";
    EXPECT_EQ(Game->BestScore, Game->RootMoves[0].Score);
    EXPECT_EQ("", rules::CheckPosition(*Game));
    SortRootMoves(*Game);
    for (int I = 1; I < RootMoveEntries; ++I) {
        EXPECT_GE(Game->RootMoves[I - 1].Score, Game->RootMoves[I].Score);
    }
}

TEST(RootSearch, FindsWhatWins) {
    const struct {
        const char *Fault, *Rules, *Position;
        int Depth;
        const char* Best;
        int Score; ///< 1: any
    } Rows[] = {
        {"only_move_not_searched", "", "W:Wa1:Bj0", 1, "a1-b2", 1},
        {"capture_that_wins", "TwoKings=1", "W:Wa1,e3:Bf4", 3, "e3xg5(f4)", 32000},
        {"last_of_many_moves_wins", "KingWin=1", "W:Wa1,c3,e5,a9:Bj6,h6", 3, "a9-b0K", 31998},
        {"blunder_in_front_stays", "TwoKings=1", "W:Wc3,a1:Be5,j8", 3, "c3-b4", 1},
        {"gives_all_away_in_anti_mode", "AntiMode=1", "W:Wc3:Be5", 3, "c3-d4", 31998},
    };
    for (const auto& R : Rows) {
        EngineGame Game(R.Rules, R.Position);
        Listener Heard(*Game);
        Think(Game, Heard, ToDepth(R.Depth));
        EXPECT_EQ(R.Best, MoveText(Game->MoveStack[0])) << R.Fault;
        if (R.Score != 1) {
            EXPECT_EQ(R.Score, Game->BestScore) << R.Fault;
        }
    }
}

TEST(RootSearch, DrawsWaitAtTheRoot) {
    // A king that can go back to where the game has been, and quiet moves near their limit.
    const struct {
        const char* Fault;
        int Repeated; ///< how many of the history's keys are the position after a1-b2
        int QuietMoves, QuietLimit;
        bool Drawn; ///< a1-b2 scores 0
    } Rows[] = {
        {"drawn_unasked", 0, 0, 0, false},           {"repetition_not_seen", 1, 0, 0, true},
        {"limit_not_seen", 0, 49, 49, true},         {"limit_one_too_early", 0, 48, 49, false},
        {"no_limit_taken_for_one", 0, 99, 0, false},
    };
    for (const auto& R : Rows) {
        EngineGame Game("LongKings=0|TwoKings=1", "W:WKa1:Bj0,j8,h8");
        Game->GameMoves = 10;
        if (R.Repeated > 0) {
            EngineGame After("LongKings=0|TwoKings=1", "B:WKb2:Bj0,j8,h8");
            StoreKey(*Game, 4, KeyOfPosition(*After));
        }
        Game->QuietMoves = R.QuietMoves;
        Game->QuietLimit = R.QuietLimit;
        Listener Heard(*Game);
        Think(Game, Heard, ToDepth(1));
        EXPECT_EQ(R.Drawn, Game->BestScore == 0) << R.Fault << ' ' << Game->BestScore;
        EXPECT_EQ(R.Drawn ? 1 : 0, Game->DrawPending) << R.Fault;
    }
    // A key from the moves before the root counts, one from behind it does not.
    EngineGame Game("LongKings=0|TwoKings=1", "W:WKa1:Bj0,j8,h8");
    EngineGame After("LongKings=0|TwoKings=1", "B:WKb2:Bj0,j8,h8");
    Game->GameMoves = 4;
    StoreKey(*Game, 4, KeyOfPosition(*After));
    Listener Heard(*Game);
    Think(Game, Heard, ToDepth(1));
    EXPECT_EQ(0, Game->DrawPending) << "keys behind the root are no repetition";
}

TEST(RootSearch, AShortLineIsVerifiedAndWidensTheMargin) {
    for (const auto& [Position, Depth] : {std::pair{"W:Wa1,e3:Bf4", 2}, {"W:Wa1,e3:Bf4,h6", 3}}) {
        EngineGame Game("TwoKings=1", Position);
        Listener Heard(*Game);
        Think(Game, Heard, ToDepth(Depth));
        EXPECT_EQ(Depth == 3, Heard.Verified > 0) << "from the third iteration on";
        EXPECT_EQ(10 * Heard.Verified, Game->LazyMargin - DefaultLazyMargin);
        EXPECT_EQ(1, Game->PatternTermEnabled);
    }
    EngineGame Wide("TwoKings=1", "W:Wa1,e3:Bf4,h6");
    Wide->WidenDropsPattern = 1;
    Listener Heard(*Wide);
    Think(Wide, Heard, ToDepth(3));
    EXPECT_EQ(0, Wide->PatternTermEnabled) << "kept its pattern though the rule set drops it";
}

TEST(RootSearch, TheClockEndsIt) {
    const struct {
        const char* Fault;
        double Start; ///< the clock when it begins
        double Step;  ///< what each root move takes from the third iteration on
        int Falls;    ///< by how much the score lies below that of the iteration before
        double Takes; ///< seconds, of the four that it has
    } Rows[] = {
        {"runs_over_its_time", 100, 1, 0, 4},
        {"midnight_stops_it_at_once", 86398, 1, 0, 4},
        {"falling_score_gets_no_more_time", 100, 1, 51, 6},
        {"fall_of_fifty_gets_more_time", 100, 1, 50, 4},
        {"more_time_goes_into_another_iteration", 100, 0.5, 9999, 4.5},
    };
    for (const auto& R : Rows) {
        EngineGame Game("");
        Game.World.Clock = R.Start;
        Listener Heard(*Game);
        std::size_t Iterations = 0;
        int Last = 0;
        Heard.OnStart = [&](int Iteration) {
            Game.World.Clock += Iteration >= 3 ? R.Step : 0;
            Game.World.Clock -= Game.World.Clock >= 86400 ? 86400 : 0;
            Last = Heard.Done.size() != Iterations ? Game->BestScore : Last;
            Iterations = Heard.Done.size();
        };
        Heard.OnDone = [&](int Iteration) {
            Game->BestScore = Iteration >= 3 && R.Falls > 0 ? Last - R.Falls : Game->BestScore;
        };
        const RootOutcome Outcome = Think(Game, Heard, {20, true, 4});
        EXPECT_EQ(R.Takes, Outcome.Seconds) << R.Fault;
        EXPECT_EQ(rules::StopRequest::None, Game->CancelRequested)
            << "the clock's stop is taken for the user's: " << R.Fault;
        EXPECT_EQ(0, Game->StopAutoPlay) << R.Fault;
        EXPECT_EQ("", rules::CheckPosition(*Game)) << R.Fault;
    }
    EXPECT_EQ(2, ElapsedSeconds(10, 12));
    EXPECT_EQ(3, ElapsedSeconds(86399, 2)) << "midnight";
    EXPECT_EQ(0, ElapsedSeconds(5, 5));
}

TEST(RootSearch, TheClockEndsItInTheMiddleOfAMove) {
    EngineGame Game("");
    Listener Heard(*Game);
    double LongestMove = 0;
    double Before = Game.World.Clock;
    Heard.OnStart = [&](int) { Before = Game.World.Clock; };
    Heard.OnDone = [&](int) { LongestMove = std::max(LongestMove, Game.World.Clock - Before); };
    Game.World.OnTurn = [&] { Game.World.Clock += 0.0001; };
    const RootOutcome Outcome = Think(Game, Heard, {20, true, 3});
    EXPECT_GT(LongestMove, 0.2) << "the moves are too short to tell";
    EXPECT_NEAR(3, Outcome.Seconds, 0.05);
    EXPECT_EQ(0, Game->StopAutoPlay) << "the clock's stop is taken for the user's";
    EXPECT_EQ(Heard.Accepted.back(), MoveText(Game->MoveStack[0])) << "a move that is not done has come to the front";
    EXPECT_EQ("", rules::CheckPosition(*Game));
}

TEST(RootSearch, TheUserEndsItAtAnyNode) {
    for (int Stop = 1; Stop <= 300; ++Stop) {
        EngineGame Game(Stop % 2 == 0 ? "" : "TwoKings=1");
        const auto Root = std::make_unique<EngineState>(*Game);
        Listener Heard(*Game);
        int Nodes = 0;
        Game.World.OnTurn = [&] {
            Game->CancelRequested = ++Nodes == Stop * 31 ? rules::StopRequest::Person : Game->CancelRequested;
        };
        Think(Game, Heard, ToDepth(6));
        ASSERT_TRUE(SameRoot(*Root, *Game)) << "stopped at node " << Stop * 31;
        ASSERT_EQ("", rules::CheckPosition(*Game)) << "stopped at node " << Stop * 31;
        ASSERT_EQ(9, rules::MoveCountOfPly(*Game)) << "root moves lost, stopped at node " << Stop * 31;
        ASSERT_EQ(Heard.Done.size() < 6 ? 1 : 0, Game->StopAutoPlay) << "the user's stop is taken for the clock's";
        if (!Heard.Done.empty()) {
            ASSERT_EQ(Heard.Accepted.back(), MoveText(Game->MoveStack[0])) << "not the best of what was found";
        }
    }
}

} // namespace
} // namespace zonterbrook::engine
