// The player's rating, draw offers and resignation.
#pragma once

#include "control/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::control {

/// Settles the rating after a game: 1 the player won, 0.5 a draw, 0 lost. Writes `RatingSummary`, which is empty when
/// the game doesn't count.
void UpdateRating(GameState& State, double Score);

/// 1 if a person plays the colour, "black" or "white", else 0.
int PlayerWon(const GameState& State, std::string_view Colour);

/// What is said to the winner of a game.
std::string GameCompliment(const GameState& State);

/// The person offers a draw, or gives up.
void OfferDraw(GameState& State);
void Resign(GameState& State);

/// Says how the game has ended, and what that did to the rating.
void Congratulate(GameState& State, std::string_view Text);

/// Closes the game: flag, commands, lists, status.
void CloseGame(GameState& State, std::string_view Status);

/// Says the rating.
void rating_Click(GameState& State);

} // namespace zonterbrook::control
