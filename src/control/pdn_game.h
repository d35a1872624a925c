// A game as a PDN file has it, and the games of such a file on the board.
#pragma once

#include "control/loaded_game.h"
#include "formats/pdn_game.h"

#include <filesystem>
#include <string>

namespace zonterbrook::control {

/// Whether the name of a file is that of a PDN file, by its extension in any case.
bool IsPdnName(const std::filesystem::path& File);

/// The game in hand as it is added to a PDN file.
std::string PdnText(const GameState& State);

/// Opens a PDN file: the person chooses a game, or, of openings, a lot may; it is played to its end.
LoadReport LoadPdnFile(GameState& State, const std::filesystem::path& File, LoadMode Mode);

/// Begins a game that has been read and plays its moves. `AsVariant`: the variant to play it under, empty for the one
/// that the game names.
LoadReport StartPdnGame(GameState& State, const formats::PdnGame& Game, std::string_view AsVariant, LoadMode Mode);

/// The openings that Choose Opening offers, where there are some.
void LoadOpening(GameState& State);

} // namespace zonterbrook::control
