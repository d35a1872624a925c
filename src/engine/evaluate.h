// The four evaluators: one score for the position, from the side to move, in hundredths of a man.
//
// They are also where the engine notices that a node is decided or drawn. Each reads the position, the tables of the
// rule set and the history of keys; each writes `SideToMoveLost` and the history, the generic one `NoLegalDrawHit` too.
#pragma once

#include "engine/state.h"

namespace zonterbrook::engine {

/// Evaluates the position. `Alpha` and `Beta` serve the lazy exit alone. `Side` is the colour from whose point of view
/// the positional sum is turned: the side to move, but for the test after a move has been played, which passes its
/// opponent. A side that has already won scores 32000 less `Ply`; repetitions and pending draws score 0.
std::int32_t EvaluatePosition(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side);
std::int32_t EvaluateAmerican(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side);
std::int32_t EvaluateGerman(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side);
std::int32_t EvaluateItalian(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side);

/// What an evaluation hangs on and stays the same as long as pieces only step.
struct StepFrame {
    /// False if something else decides, such as a goal to be reached or a draw that waits: then positions have to be
    /// evaluated whole.
    bool Foresees;
    int Lane;   ///< of the sums of weights
    int Ground; ///< what the empty cells give
    /// By colour: all its pieces are men that step along two diagonals, so that a step changes little of the pull. The
    /// hard-wired evaluators don't ask.
    bool OnlyMen[2];
    /// By colour: the cells on which the pattern in front of its promotion squares hangs, none if that doesn't count.
    CellSet Pattern[2];
};

/// What the evaluation of a position is made of, as far as a step changes little of it.
struct StepFacts {
    int Strongest[2]; ///< cell of a colour's strongest piece
    int Pull[2];      ///< on a colour's pieces
    int Pattern[2];
    std::uint64_t KeyMix; ///< of the position's key, before it is cut to a fingerprint
};

/// A plain move that is nothing but a step of a piece of that index.
struct Step {
    int Index;
    int From;
    int To;
};

/// What the evaluator of that kind needs for the steps of the position on the board, which it must have evaluated.
template <EvaluatorKind Kind>
StepFrame FrameForSteps(const EngineState& State);
template <EvaluatorKind Kind>
StepFacts FactsForSteps(EngineState& State, const StepFrame& Frame);

/// What is known of the position after a step.
enum class Foreseen {
    Nothing, ///< it may have stood before: the step has to be made, and the position evaluated
    Score,   ///< it was left at the lazy exit
    ScoreAndFacts
};

/// Evaluates the position after a step that has not been made: the same score, the same writing of the history and of
/// `SideToMoveLost`, the same draws of chance as making it and evaluating. If nothing is foreseen, nothing has been
/// written either. The frame must foresee.
template <EvaluatorKind Kind>
Foreseen EvaluateStep(EngineState& State, const StepFrame& Frame, const StepFacts& Here, const Step& Move,
                      std::int32_t Alpha, std::int32_t Beta, std::int32_t& Score, StepFacts& There);

/// The tables that an installed rule set gives the evaluators.
void InitSquareValues(EngineState& State);
void InitSpecialSquareValues(EngineState& State);
void InitManReachable(EngineState& State);
void InitPromotionCounts(EngineState& State);

/// Rows plus columns between two cells.
constexpr int SquareDistance(int A, int B) {
    const int Rows = A / rules::RowWidth - B / rules::RowWidth;
    const int Columns = A % rules::RowWidth - B % rules::RowWidth;
    return (Rows < 0 ? -Rows : Rows) + (Columns < 0 ? -Columns : Columns);
}

/// The key of the position on the board.
PositionKey KeyOfPosition(const rules::RulesState& State);

/// Writes a key to the history of the game.
void StoreKey(EngineState& State, int Index, const PositionKey& Key);

} // namespace zonterbrook::engine
