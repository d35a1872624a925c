// The return of a game that another one has replaced.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Restore Previous Game: the game that was replaced last comes back with its rules, its record and where it stood, and
/// the one in hand takes its place, so that a second time undoes the first. There must be one.
void RestorePrevious(GameState& State);

} // namespace zonterbrook::control
