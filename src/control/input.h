// Moves from the mouse, from the keyboard and from the lists.
//
// These are the handlers' bodies; the window calls those of events.h, which hold the trap.
#pragma once

#include "control/events.h"
#include "control/state.h"

namespace zonterbrook::control {

/// Forgets what the mouse is doing and which piece was touched.
void ClearInput(GameState& State);

/// The mouse on a cell: see events.h for the figures.
void PressCell(GameState& State, int Index, int Button);
void MoveOverCell(GameState& State, int Index, int X, int Y);
void ReleaseCell(GameState& State, int Index, int Button, int X, int Y);

/// Whether a person may move now: the computer rests, and the game is not over.
bool TakesMoves(const GameState& State);

/// Puts the piece in the hand back.
void EscapeDrag(GameState& State);

/// Plays the text of `MoveBox`, which is emptied.
void EnterTypedMove(GameState& State);

/// Plays the selected line of `ChoiceList`, of `RootList`.
void PlayListedMove(GameState& State);
void PlayRootMove(GameState& State);

} // namespace zonterbrook::control
