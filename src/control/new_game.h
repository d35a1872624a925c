// A new game: what it resets, and the openings that are drawn by lot.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Everything of a game back to its beginning. Lays the variant's start position unless `KeepBoard` is 1. Asks nothing.
/// Throws a `Fault` when the variant's file can't be read.
void NewGame(GameState& State);

/// The command: asks before a running game is given up, begins a new one and draws its opening if the rules say so.
void StartNewGame(GameState& State, bool WithVariantDialog);

/// Takes men off by lot, and makes what is left the start position.
void ApplyRemoveMen(GameState& State);
void RecountAfterRemoval(GameState& State);

/// Plays moves by lot as the opening of the game.
void ApplyAutomaticMoves(GameState& State);

/// The openings by lot that the rules in force ask for.
void DrawOpeningByLot(GameState& State);

/// The names beside the board, by the mode, for a new game.
void NamePlayers(GameState& State);

/// The same where a person and the computer play on: the person gets the side to move.
void NamePersonToMove(GameState& State);

/// Moves that may be played now: captures first, and only if there are none, the others.
void GenerateForInput(GameState& State);

} // namespace zonterbrook::control
