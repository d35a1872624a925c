// The count of leaves, without any shortcut: what it measures is the generator together with make and unmake.
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
    std::uint64_t Leaves = 0;
    const int End = State.StackLimit[State.Ply + 1];
    const int First = State.StackLimit[State.Ply];
    if (Depth == 1) {
        for (int Move = First; Move < End; ++Move) {
            TriedMove Tried(State, Move);
            ++Leaves;
            Tried.TakeBack();
        }
        return Leaves;
    }
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
