// A move named by its two squares, looked up among the legal moves.
#pragma once

#include "rules/state.h"

namespace zonterbrook::rules {

/// Generates the game's moves and gives the index of the first one in stack order from `Source` to `Dest`, cells both;
/// -1 if there is none, or the touched piece must move and stands elsewhere. A piece that enters from off the board is
/// found by `Dest` alone.
int FindMove(RulesState& State, int Source, int Dest);

/// Plays the move on record `Move` of the ply as a move of the game: the ply becomes the root first. A piece whose
/// capture ends where it began, or that its capture has made a man, stays on the board; `Material` knows nothing of
/// that.
void PlayMove(RulesState& State, int Move);

} // namespace zonterbrook::rules
