// The computer's move: from the frozen window over book and search to the recorded move and its announcements.
#pragma once

#include "control/state.h"
#include "engine/root_search.h"

namespace zonterbrook::control {

/// Plays one move for the side to move, or ends the game, and gives the window back unless the computer plays itself.
/// The turn must be `Thinking`. `AlsoTold` hears when an iteration of the search is done. Does not clear
/// `CancelRequested`: whoever starts it does.
void ComputerMove(GameState& State, engine::RootObserver* AlsoTold = nullptr);

/// The Compute command, and the reply to a person's move: the computer takes the side to move over from the person, if
/// it was the person's, and moves. Does nothing once the game has ended. Clears `CancelRequested`.
void ComputeNow(GameState& State, engine::RootObserver* AlsoTold = nullptr);

} // namespace zonterbrook::control
