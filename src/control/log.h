// The running log: two lines for each start, four for each game, one for each move, under the computer's its search.
#pragma once

#include "control/state.h"

#include <string_view>

namespace zonterbrook::control {

/// Opens the log and writes the lines of a start. Without a log the rest does nothing.
void OpenLog(GameState& State);
void CloseLog(GameState& State);

/// The lines that stand above the moves of a game.
void WriteLogHeader(GameState& State);

/// The line of half-move `GameMoves`, made by a person; `DisplayText` as the list shows it, without the number.
void LogPersonMove(GameState& State, std::string_view DisplayText);

/// The same for one that the computer made: how deep it looked, the line that it expects, and the lines of the
/// iterations, each with its line end.
void LogComputerMove(GameState& State, std::string_view DisplayText, int Depth, std::string_view MainLine,
                     std::string_view SearchLog);

} // namespace zonterbrook::control
