// The count of leaves. The moves of the last ply are counted as they are listed: nothing is asked of the positions
// behind them, so that they are not made. What it measures is mostly the generator.
#include "rules/perft.h"

#include "rules/moves.h"

namespace zonterbrook::rules {

namespace {

std::uint64_t CountLeaves(RulesState& State, int Depth, const Generator& Moves) {
    if (Depth == 0) {
        return 1;
    }
    Moves.GenerateBoth(State);
    State.AtGamePosition = 0;
    const int End = State.StackLimit[State.Ply + 1];
    const int First = State.StackLimit[State.Ply];
    if (Depth == 1) {
        return static_cast<std::uint64_t>(End - First);
    }
    std::uint64_t Leaves = 0;
    for (int Move = First; Move < End; ++Move) {
        TriedMove Tried(State, Move);
        Leaves += CountLeaves(State, Depth - 1, Moves);
        Tried.TakeBack();
    }
    return Leaves;
}

} // namespace

std::uint64_t Perft(RulesState& State, int Depth, const Generator& Moves) {
    const GamePositionScope Root(State);
    return CountLeaves(State, Depth, Moves);
}

} // namespace zonterbrook::rules
