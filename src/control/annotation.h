// A game with what the engine thinks of each of its moves, as comments.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Searches the position before each half-move of the game so deep, and adds value and best line to the half-move's
/// comment: "[12: d4-e5 e7-f6]", the value in hundredths of a man from the side to move. The board stands at the end of
/// the game afterwards.
void AnnotateGame(GameState& State, int Depth);

} // namespace zonterbrook::control
