// Positions and games through the clipboard.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Copy Position: the position on the board as one line, "W:W31-50:B1-20.".
void CopyPosition(GameState& State);

/// Copy Game: the game in hand as a PDN file has it.
void CopyGame(GameState& State);

/// Paste: a position becomes a start position by the rules in force, a game is played to its end. What is neither is
/// said to be so, and changes nothing.
void Paste(GameState& State);

} // namespace zonterbrook::control
