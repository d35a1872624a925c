// The beginning and the end of a run: the bodies of the window's load and close events.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Everything from the fresh state to the first game on the board. Throws a `Fault` when the program can't start.
void StartProgram(GameState& State);

/// Whether the window may close now. In the midst of a search it may not: the search is stopped, and the window is
/// closed once it has unwound. Otherwise the person is asked, if the settings say so.
bool MayClose(GameState& State);

/// The orderly end: closes the log and ends the program.
void EndProgram(GameState& State);

} // namespace zonterbrook::control
