// The terms of an evaluation that hang on a part of the position alone: what a colour's pieces gain by standing near
// the enemy's strongest piece, and what lies in front of its promotion row.
//
// They are asked for the pieces as they stand, and for pieces as they would stand after a step. From one node to the
// next most of them repeat, so that each is looked up first by all that it hangs on.
#pragma once

#include "engine/state.h"

namespace zonterbrook::engine {

/// What the four evaluators differ in.
struct EvaluatorPolicy {
    EvaluatorKind Kind;
    /// Reads the rules of the variant: goals, draws without a move, anti mode, empty cells, goals' distances.
    bool Generic;
};

constexpr EvaluatorPolicy EvaluatorOfKind(EvaluatorKind Kind) {
    return {Kind, Kind == EvaluatorKind::Generic};
}

using PieceSets = base::CheckedArray<CellSet, rules::PieceIndices>;

inline CellSet FreeCells(const PieceSets& Pieces) {
    return rules::PlayingCells.Without(Pieces[0] | Pieces[1] | Pieces[2] | Pieces[3]);
}

/// The cell of a colour's strongest piece; cell 0 if it has none. White's is the first of equals, Black's the last, in
/// rows from the bottom and columns from the right. The asymmetry is wanted.
inline int StrongestOf(int Colour, const CellSet& Men, const CellSet& Kings) {
    const CellSet Set = Kings.Any() ? Kings : Men;
    if (Set.None()) {
        return 0;
    }
    return Colour == 0 ? (Set & rules::RowCells(rules::RowOf(Set.First()))).Last()
                       : (Set & rules::RowCells(rules::RowOf(Set.Last()))).First();
}

inline int StrongestOf(const EngineState& State, int Colour) {
    return StrongestOf(Colour, State.Pieces[Colour], State.Pieces[Colour + 2]);
}

template <EvaluatorPolicy P>
int PullWorkedOut(const EngineState& State, int Colour, const CellSet& Men, const CellSet& Kings, int EnemyCell);

/// What a colour's pieces gain by standing near the enemy's strongest piece, on `EnemyCell`, with support; from their
/// own view.
template <EvaluatorPolicy P>
[[gnu::always_inline]] inline int PullOfColour(EngineState& State, int Colour, const CellSet& Men, const CellSet& Kings,
                                               int EnemyCell) {
    const auto WorkOut = [&] { return PullWorkedOut<P>(State, Colour, Men, Kings, EnemyCell); };
    // A set leaves the last bits of its second half free.
    const std::uint64_t MenAndEnemy = Men.High() | static_cast<std::uint64_t>(EnemyCell) << 56U;
    if (Kings.None()) [[likely]] {
        return State.Memo.PullOfMen[Colour].Find({Men.Low(), MenAndEnemy}, WorkOut);
    }
    return State.Memo.PullWithKings[Colour].Find({Men.Low(), MenAndEnemy, Kings.Low(), Kings.High()}, WorkOut);
}

/// What a man's step will change in the pull on its colour as the generic evaluator sees it. All pieces of the colour
/// must be men that step along two diagonals, and the enemy must have pieces.
int PullChange(const EngineState& State, int From, int To, int EnemyCell);

template <EvaluatorPolicy P>
const PatternList& PatternOf(const EngineState& State, int Colour) {
    return P.Generic ? State.GenericPattern[Colour] : State.SpecialPattern[Colour];
}

template <EvaluatorPolicy P>
int PatternWorkedOut(const EngineState& State, const PieceSets& Pieces, int Colour);

/// The gain of a colour from free ground in front of its promotion squares, and of closed lines of men there; seen from
/// White. Faults where the pattern needs a square that is not there.
template <EvaluatorPolicy P>
int Pattern(EngineState& State, const PieceSets& Pieces, int Colour) {
    const auto WorkOut = [&] { return PatternWorkedOut<P>(State, Pieces, Colour); };
    const PatternList& List = PatternOf<P>(State, Colour);
    if (List.Window == PatternWindow::None || List.Faults != 0) {
        return WorkOut();
    }
    const auto Seen = [&](const CellSet& Set) { return List.SeenOf(Set & List.LookedAt); };
    return State.Memo.Patterns[Colour].Find({Seen(FreeCells(Pieces)), Seen(Pieces[0]), Seen(Pieces[1])}, WorkOut);
}

} // namespace zonterbrook::engine
