// The small root search of the tools: hint, ply value table and search for problems.
//
// The moves are taken in the order of the stack, a new best one goes to the front, and every reply is searched with the
// full window by the quick family. What differs between the tools is a policy.
#pragma once

#include "engine/state.h"

#include <cstdint>

namespace zonterbrook::engine {

struct QuickPolicy {
    bool OwnDepth; ///< replies are searched as deep as the iteration says, else by a depth that is always the same
    bool Draws;    ///< repetitions and the limit of quiet moves are looked at behind each root move
    bool WindowFromBest;    ///< `BestScore` is kept, and an iteration's window lies round it; else round the last bound
    std::int32_t AboveBest; ///< by how much a score that has been accepted raises the bound
};
inline constexpr QuickPolicy HintPolicy = {false, true, false, 0};
inline constexpr QuickPolicy ToolPolicy = {true, false, true, 1};

/// Hears of the progress. May raise `StopQuickSearch` and must leave the position alone.
class QuickObserver {
public:
    QuickObserver() = default;
    QuickObserver(const QuickObserver&) = delete;
    QuickObserver& operator=(const QuickObserver&) = delete;
    virtual ~QuickObserver() = default;

    /// A root move has become the best. The main line stands in row 0 of
    /// `MainVariantTable` until the next move is searched.
    virtual void MoveAccepted(int /*Iteration*/, int /*Move*/) {}
    virtual void IterationDone(int /*Iteration*/) {}
};

/// Searches the root moves that the stack holds at `Ply` 0, iteration after iteration. Ends early once
/// `StopQuickSearch` is raised; returns the iterations that were completed. There must be a move.
int QuickRootSearch(EngineState& State, const QuickPolicy& Policy, int Depth, QuickObserver& Observer);

} // namespace zonterbrook::engine
