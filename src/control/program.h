// The beginning and the end of a run: the bodies of the window's load and close events.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Everything from the fresh state to the first game on the board. Throws a `Fault` when the program can't start.
void StartProgram(GameState& State);

/// The window is about to close: whether it may now. The person is asked, if the settings say so, once. While something
/// is at work it stands still for the question and goes on as if nothing had happened after a No; after a Yes it is
/// told to stop, and the window is closed once it has unwound.
bool MayClose(GameState& State);

/// The Exit command: the same question; the window closes once the command has returned.
void Exit_Click(GameState& State);

/// The orderly end: closes the log and ends the program.
void EndProgram(GameState& State);

} // namespace zonterbrook::control
