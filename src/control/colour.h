// The colour of the person who plays the computer.
//
// As long as none has been chosen, whoever makes the first move by hand plays its side.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// The commands: the person plays White, or Black, from now on and in the games to come. That side stands at the
/// bottom, and the computer moves if it is its turn.
void PlayWhite(GameState& State);
void PlayBlack(GameState& State);

/// At the start of a game: the names beside the board by the colour that has been chosen, and the computer's move if it
/// begins. Nothing if none has been chosen, or the computer does not play a person.
void BeginByColour(GameState& State);

} // namespace zonterbrook::control
