// The computer's move: from the frozen window over book and search to the recorded move and its announcements.
#pragma once

#include "control/state.h"

#include <string>

namespace zonterbrook::control {

/// Plays one move for the side to move, or ends the game, and gives the window back. `Thinking` is the caller's.
/// Does not clear `CancelRequested` at its start: whoever starts it does.
void ComputerMove(GameState& State);

/// The Compute command, and the reply to a person's move: the computer takes over the side to move and moves. Does
/// nothing once the game has ended. Clears `CancelRequested`, sets and clears `Thinking`.
void ComputeNow(GameState& State);

/// A duration as text: "00:00.05", hours, minutes and seconds, or with `Verbose` in words.
std::string TimeString(double Seconds, bool Verbose);

} // namespace zonterbrook::control
