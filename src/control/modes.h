// The three modes of play, and Cancel.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// A person against the computer; the person gets the side to move.
void SetComputerPlayerMode(GameState& State);

/// Two persons on one board.
void SetPlayerPlayerMode(GameState& State);

/// The computer against itself until the game ends or someone cancels; then back to Computer-Player.
void RunComputerComputer(GameState& State);

/// Asks the running search to stop; nothing if none runs.
void mnu_Play_Cancel_Click(GameState& State);

} // namespace zonterbrook::control
