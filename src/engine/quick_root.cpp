// The small root search of the tools.
#include "engine/quick_root.h"

#include "base/checked_number.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/moves.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::engine {

using namespace rules;

namespace {

constexpr std::int32_t HalfWidth = 100;

class QuickLoop {
public:
    QuickLoop(EngineState& InState, const QuickPolicy& InPolicy, QuickObserver& InObserver)
        : State(InState), Policy(InPolicy), Observer(InObserver), Count(InState.StackLimit[1]) {}

    int Run(int Depth) {
        for (Iteration = 1; Iteration <= Depth; ++Iteration) {
            OpenWindow();
            State.MaxSearchDepth = Iteration + State.Plys;
            for (int Move = 0; Move < Count; ++Move) {
                SearchMove(Move);
                if (State.StopQuickSearch == 1) {
                    return Iteration - 1;
                }
            }
            Observer.IterationDone(Iteration);
        }
        return Depth;
    }

private:
    void OpenWindow() {
        if (Iteration == 1) {
            Alpha = WindowLow;
            Beta = WindowHigh;
            return;
        }
        const std::int32_t Middle = Policy.WindowFromBest ? State.BestScore : Alpha;
        Beta = base::Narrow<std::int16_t>(Middle + HalfWidth);
        Alpha = base::Narrow<std::int16_t>(Middle - HalfWidth);
    }

    void SearchMove(int Move) {
        // 1. The first move: once more where it lies outside of the window.
        std::int32_t Score = TryMove(Move);
        if (Move == 0) {
            if (State.StopQuickSearch != 1 && (Score < Alpha || Score >= Beta)) {
                Score = TryMove(Move);
            }
            if (State.StopQuickSearch != 1) {
                Accept(Move, Score);
            }
            return;
        }

        // 2. Another one has to beat the best twice. The bound stays raised where it fails the second time. Wanted:
        // docs/kept_behaviour.md, "leaves its window behind".
        if (State.StopQuickSearch == 1 || Score <= Alpha) {
            return;
        }
        const std::int32_t Before = std::exchange(Alpha, Score);
        Beta = WindowHigh;
        Score = TryMove(Move);
        if (State.StopQuickSearch != 1 && Score > Before) {
            Accept(Move, Score);
        }
    }

    std::int32_t TryMove(int Move) {
        ClearMainVariant(State, 0);
        TriedMove Tried(State, Move);
        State.DrawPending = Policy.Draws ? DrawAfterRootMove(State) : 0;
        std::int32_t Score = 0;
        if (Policy.OwnDepth) {
            std::int32_t Depth = Iteration - 1;
            QuickScoreDepth(State, Depth, Score);
        } else {
            QuickScore(State, Score);
        }
        Tried.TakeBack();
        return Score;
    }

    void Accept(int Move, std::int32_t Score) {
        Alpha = Score + Policy.AboveBest;
        Beta = Alpha + 1;
        if (Policy.WindowFromBest) {
            State.BestScore = Score;
        }
        UpdateMainVariant(State, Move);
        Observer.MoveAccepted(Iteration, Move);
        auto* Records = State.MoveStack.begin();
        std::rotate(Records, Records + Move, Records + Move + 1);
    }

    EngineState& State;
    const QuickPolicy Policy;
    QuickObserver& Observer;
    const int Count;
    int Iteration = 0;
    std::int32_t Alpha = 0;
    std::int32_t Beta = 0;
};

} // namespace

int QuickRootSearch(EngineState& State, const QuickPolicy& Policy, int Depth, QuickObserver& Observer) {
    QuickLoop Loop(State, Policy, Observer);
    const SearchScope Scope(State, SearchFamily::Quick);
    const int Completed = Loop.Run(Depth);
    State.DrawPending = 0;
    return Completed;
}

} // namespace zonterbrook::engine
