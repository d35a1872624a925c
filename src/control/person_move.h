// A person's move, whichever road it came by: mouse, keys, box or list.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Plays the move between two cells and all that follows from it: record, list, sound, log, end of the game, and the
/// computer's reply. False, and nothing changed, if there is no such move.
bool PlayPersonMove(GameState& State, int Source, int Dest);

} // namespace zonterbrook::control
