// The switch between the three notations.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Names squares and moves in notation `Names` from now on, and writes what is shown anew. Only algebraic is taken on a
/// board that uses both colours of square; the others are refused there in silence.
void SetNotation(GameState& State, rules::Notation Names);

/// Writes everything anew that names moves: the lists and the calculation.
void RewriteMoves(GameState& State);

} // namespace zonterbrook::control
