// The running log: one line for each start, three for each game, one for each move.
#pragma once

#include "control/state.h"

#include <string_view>

namespace zonterbrook::control {

/// Opens the log and writes the lines of a start. Without a log the rest does nothing.
void OpenLog(GameState& State);
void CloseLog(GameState& State);

/// The lines that stand above the moves of a game.
void WriteLogHeader(GameState& State);

/// The line of a move that a person made; `DisplayText` as the list shows it, without the number.
void LogPersonMove(GameState& State, std::string_view DisplayText);

} // namespace zonterbrook::control
