// Saving a game.
#pragma once

#include "control/state.h"

#include <filesystem>

namespace zonterbrook::control {

/// Saves the game in hand in the format that the extension tells: a game file is replaced, a PDN file added to. False,
/// after a message, if that failed; the file is then as it was.
bool SaveGameTo(GameState& State, const std::filesystem::path& File);

/// The Save command: again to the game file that holds the game, else as Save As.
void Save_Click(GameState& State);

/// Save As: asks for the file, and whether a game file that is there may be replaced.
void SaveAs_Click(GameState& State);

} // namespace zonterbrook::control
