// The switch between the three notations, and the texts that change with it.
#pragma once

#include "control/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::control {

/// One of the three notation entries: 0 algebraic, 1 numeric, 2 none. Only algebraic is taken on a board
/// that uses both colours of square; the others are refused there in silence.
void SetNotation(GameState& State, rules::Notation Mode);

/// `Text` with every move in it written in notation `To` instead of `From`; the words between stay.
std::string ConvertMoves(GameState& State, std::string_view Text, rules::Notation From, rules::Notation To);

} // namespace zonterbrook::control
