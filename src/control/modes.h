// The three modes of play, Compute and Cancel.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// A person against the computer; the person gets the side to move.
void SetComputerPlayerMode(view::ViewState& State);

/// Two persons on one board.
void SetPlayerPlayerMode(view::ViewState& State);

/// The computer against itself until the game ends or someone cancels; then back to Computer-Player. The turn that it
/// takes over is no longer bound by the piece that the person touched.
void RunComputerComputer(GameState& State);

/// The Compute command: the same for one move.
void ComputeForPerson(GameState& State);

/// Asks the running search to stop; nothing if none runs.
void mnu_Play_Cancel_Click(GameState& State);

} // namespace zonterbrook::control
