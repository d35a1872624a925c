// The running log: two lines for each start, four for each game, one for each move, under the computer's its search.
#pragma once

#include "control/state.h"

#include <string_view>

namespace zonterbrook::control {

/// Opens the log and writes the lines of a start. Without a log the rest does nothing.
void OpenLog(GameState& State);
void CloseLog(GameState& State);

/// Adds text as it stands.
void AppendLog(const GameState& State, std::string_view Text);

/// The line of the half-move before the cursor, made by a person or read; the heading of the game above the first one.
void LogMove(const GameState& State);

/// The same for one that the computer made, with the line that it expects and the lines of the iterations, each with
/// its line end.
void LogComputerMove(const GameState& State, std::string_view MainLine, std::string_view SearchLog);

} // namespace zonterbrook::control
