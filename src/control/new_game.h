// The New Game command, and the openings that are drawn by lot.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Whether a new game begins with the choice of a variant.
enum class ChooseVariant : bool { No, Yes };

/// Asks before a running game is given up, begins a new one of the variant by the rules in hand and draws
/// its opening if they say so. Throws a `FileFault` when the variant's file can't be read.
void StartNewGame(GameState& State, ChooseVariant Dialog);

/// The commands New Game and New Variant.
void New1_Click(GameState& State);
void NewVariant_Click(GameState& State);

/// The openings by lot that the rules in force ask for: men taken off, moves played.
void DrawOpeningByLot(GameState& State);

} // namespace zonterbrook::control
