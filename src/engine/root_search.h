// The computer's thinking at the root: iterations, aspiration window, verification, move to front, time.
//
// One routine serves the computer's move and the analysis. It plays nothing and records nothing; whoever started it
// hears of its progress through an observer and finds the results in the state: the root moves on the stack with the
// best in front, `RootMoves` and `BestScore`. The main line stands in row 0 of `MainVariantTable` when a move is
// accepted; its first entry is cleared again as the next move's search begins.
#pragma once

#include "engine/state.h"

#include <cstdint>

namespace zonterbrook::engine {

/// What a root search may be told from outside.
struct RootLimits {
    int Depth = 1;        ///< iterations at most
    bool ByTime = false;  ///< stop by the clock, else by depth alone
    int TimeLimit = 0;    ///< seconds
    bool Verifies = true; ///< a best move with a short line behind it is searched once more, a ply deeper
};

/// Hears of the progress of a root search. Every call comes from inside the search: an observer may show things and
/// raise `CancelRequested`, and must leave the position alone. Moves are records of the stack.
class RootObserver {
public:
    RootObserver() = default;
    RootObserver(const RootObserver&) = delete;
    RootObserver& operator=(const RootObserver&) = delete;
    virtual ~RootObserver() = default;

    /// A root move is about to be searched to `Iteration`; `Verifying`: once more, a ply deeper.
    virtual void MoveStarts(int /*Iteration*/, int /*Move*/, bool /*Verifying*/) {}
    /// A root move has become the best of its iteration, with `BestScore` as its score.
    virtual void MoveAccepted(int /*Iteration*/, int /*Move*/) {}
    /// A root move is done. `Elapsed`: seconds since the search began.
    virtual void MoveDone(double /*Elapsed*/) {}
    /// An iteration is complete. `Seconds`: what it took.
    virtual void IterationDone(int /*Iteration*/, double /*Seconds*/) {}
};

/// What became of a root search.
struct RootOutcome {
    int DepthReached = 0; ///< the last iteration in which a move was accepted
    double Seconds = 0;
};

/// Whether the promotion-row pattern is switched on again, where a verification has switched it off.
enum class Patterns : bool { AsTheyStand, Used };

/// Makes the thresholds, the noise and the flags ready for a search from the position on the board, and leaves
/// `CancelRequested` alone.
void PrepareSearch(EngineState& State, Patterns Rows = Patterns::Used);

/// The thresholds of the evaluation, from the start position.
void InitEngineThresholds(EngineState& State);

/// The amplitude of the random term, from `Strength`.
void SetNoise(EngineState& State);

/// What `DrawPending` is behind the root move that has just been made: how often its position has stood before, or 1
/// where the limit of quiet moves is passed by it.
std::int32_t DrawAfterRootMove(const EngineState& State);

/// Searches the root moves that the stack holds at `Ply` 0. `Started`: the clock when the thinking began.
RootOutcome RootSearch(EngineState& State, const RootLimits& Limits, double Started, RootObserver& Observer);

/// Sorts `RootMoves` by score, highest first, as the list shows them.
void SortRootMoves(EngineState& State);

/// Seconds from one reading of the clock to a later one, across midnight too.
double ElapsedSeconds(double From, double To);

} // namespace zonterbrook::engine
