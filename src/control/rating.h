// The player's rating.
#pragma once

#include "control/state.h"

#include <string_view>

namespace zonterbrook::control {

/// Settles the rating after a game: 1 the player won, 0.5 a draw, 0 lost. Writes `RatingSummary`, which is empty when
/// the game doesn't count.
void UpdateRating(GameState& State, double Score);

/// What is said to the winner of a game.
std::string_view GameCompliment(const game::GameRecord& Record);

} // namespace zonterbrook::control
