// A person's move, whichever road it came by: mouse, keys, box or list.
#pragma once

#include "control/turn.h"

#include <optional>

namespace zonterbrook::control {

/// Plays the move between two cells and all that follows from it: record, list, sound, log, end of the game, and the
/// computer's reply. False, and nothing changed, if there is no such move.
bool PlayPersonMove(GameState& State, int Source, int Dest);

/// The same with one of several moves between the same cells, by its index on the stack. It must be one of the ply's.
bool PlayPersonWay(GameState& State, int Move);

/// The same up to the end of the game, and who is next; nothing, and nothing changed, if there is no such move.
std::optional<Follows> MakePersonMove(GameState& State, int Source, int Dest);

} // namespace zonterbrook::control
