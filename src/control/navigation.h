// Going back and forth in the game that has been played.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Takes back `Steps` half-moves, or plays -`Steps` of the stored ones again. `Quiet` leaves results of the last search
/// and the commands alone, `KeepEntries` the list's selection and the display too. Not while the computer thinks.
void NavigateMoves(GameState& State, int Steps, bool Quiet, bool KeepEntries);

/// One half-move forward; the status bar shows its text.
void StepForward(GameState& State);

void First_Click(GameState& State);
void Moveback_Click(GameState& State);
void MoveForward_Click(GameState& State);
void Last_Click(GameState& State);

/// To the position behind the selected line of `GameList`.
void GoToSelectedMove(GameState& State);

} // namespace zonterbrook::control
