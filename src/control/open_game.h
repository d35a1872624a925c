// Opening a file that holds a game, whatever its format.
#pragma once

#include "control/loaded_game.h"

namespace zonterbrook::control {

/// Whether something would be lost by leaving the game in hand.
bool WouldLoseMoves(const GameState& State);

/// Asks whether the game in hand may go, if anything would be lost by that.
bool PersonLeavesGame(const GameState& State);

/// The Open command: asks for a file.
void Open_Click(GameState& State);

/// Opens a file that has been named: dropped on the window, given at the start, or opened lately.
void OpenNamed(GameState& State, const std::filesystem::path& File);

/// Opens the file that stands at this place, from 0, among those opened or saved lately. One that is gone leaves the
/// list.
void OpenRecent(GameState& State, std::size_t Place);

} // namespace zonterbrook::control
