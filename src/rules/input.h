// A move named by its two squares, looked up among the legal moves and played.
#pragma once

#include "rules/state.h"

#include <string_view>

namespace zonterbrook::rules {

/// Plays the legal move that `Move` names: one or two square names of two characters, in capitals. A single name is a
/// piece that enters there. The first match in stack order is played; `Found` says whether there was one. Sets
/// `MoveWasCapture`, `MoveWasPromotion`, `PlayedIndex` and the move texts.
void InputMove(RulesState& State, std::string_view Move, bool& Found);

} // namespace zonterbrook::rules
