// The end of a game: draw rules, lack of moves, won positions, results and their announcement.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

inline constexpr int DecisiveResult = 0;
inline constexpr int DrawnResult = 2;

/// Sets `DrawCode` and the start counters. Once for every move played, after it stands in the record.
void DrawRuleCheck(GameState& State);

/// Ends the game and says so if the position is decided, without moves or drawn; else nothing that can be seen.
/// `GameEnded` tells. Leaves the moves of the position generated.
void GameEndCheck(GameState& State);

/// Whether `GameEndCheck` would end the game; says and closes nothing.
bool GameWouldEnd(GameState& State);

/// Turns the outcome into `ResultText`.
void SetResultText(GameState& State, int Kind);

/// Shows the message of `DrawCode`.
void AnnounceDrawRule(GameState& State);

} // namespace zonterbrook::control
