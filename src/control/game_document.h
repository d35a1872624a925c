// The game in hand as a document that files are written from, and the file that it is saved to by itself.
#pragma once

#include "control/state.h"
#include "formats/game_file.h"

namespace zonterbrook::control {

/// The details that a file of the game gets: where the second of two persons has a name, those beside the board stand
/// for players that have not been entered.
game::Details DetailsToSave(const GameState& State);

/// The names of the program's own files of games.
inline constexpr std::string_view AutosaveName = "quavermill.sav";
inline constexpr std::string_view DrawnMovesName = "domoves.qvm";

/// The whole game: rules, start position and every half-move of the record, whatever position is on show.
formats::GameFileDocument DocumentOf(const GameState& State);

/// Saves the game in hand for the next start. A failure is said once in a run. Nothing if another program keeps the
/// file.
void SaveByItself(GameState& State);

} // namespace zonterbrook::control
