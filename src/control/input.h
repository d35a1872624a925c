// Moves from the mouse, from the box of typed moves and from the lists.
//
// These are the handlers' bodies; the window calls those of events.h, which hold the trap.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

inline constexpr int LeftButton = 1;
inline constexpr int RightButton = 2;

/// The mouse on a cell: see events.h for the figures.
void PressCell(GameState& State, int Index, int Button);
void MoveOverCell(GameState& State, int Index);
void ReleaseCell(GameState& State, int Index, int Button, int X, int Y);

/// A piece from off the board is picked up at its counter, and dropped on a cell; -1 for a drop beside the board.
void PickFromCounter(GameState& State, std::int32_t Side);
void DropFromCounter(GameState& State, int Index);

/// Puts the piece back that is in the hand or has been picked by a click, and asks no more which way it is to go.
void EscapeDrag(GameState& State);

/// Plays one of the ways that the person is asked to choose from, by its number from 1; nothing for another number.
void ChooseWay(GameState& State, int Number);

/// Plays the typed move, and empties its box.
void EnterTypedMove(GameState& State);

/// Says that a typed move is not legal, and why: its two cells, 0 for what names none.
void RefuseMove(GameState& State, int Source, int Dest);

/// Plays the selected line of the moves that may be played, of those of the last calculation.
void PlayListedMove(GameState& State);
void PlayRootMove(GameState& State);

} // namespace zonterbrook::control
