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
