// The end of a game: draw rules, lack of moves, won positions, results and their announcement.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

inline constexpr int DecisiveResult = 0;
inline constexpr int DrawnResult = 2;

inline constexpr std::string_view DrawText = "It's a draw!";

/// Sets `DrawCode` and the start counters. Once for every move played, after it stands in the record.
void DrawRuleCheck(GameState& State);

/// Whether `DrawCode` ends the game: a rule that is not in force never does. The position's moves must stand on the
/// stack at `Ply`.
bool DrawRuleEndsGame(const GameState& State);

/// How a position stands: it goes on, is drawn (without a move where that is a draw, or with the record full), drawn by
/// the rule of `DrawCode`, or decided against or for the side to move.
enum class GameOutcome { GoesOn, Drawn, DrawnByRule, Decided };

/// Asks evaluator, generator, draw rules and record; `DrawRuleCheck` must have run. Says and closes nothing. Leaves the
/// moves of the position generated, and `Ply` 0.
GameOutcome FindOutcome(GameState& State);

/// Whether the record has no room for a further half-move.
bool RecordIsFull(const GameState& State);

/// Ends the game and says so if the position is decided, without moves or drawn; else nothing that can be seen.
/// `GameEnded` tells. Leaves the moves of the position generated, and `Ply` 0.
void GameEndCheck(GameState& State);

/// Whether `GameEndCheck` would end the game; says and closes nothing.
bool GameWouldEnd(GameState& State);

/// Turns the outcome into `ResultText`.
void SetResultText(GameState& State, int Kind);

/// Shows the message of `DrawCode`.
void AnnounceDrawRule(GameState& State);

/// Tells the engine how far the count of quiet half-moves is: `QuietMoves` and `QuietLimit`.
void SetMoveLimit(GameState& State);

/// Shows the board for half a second, so that the last move has been seen before a message covers it. Nobody can
/// change the game meanwhile.
void PauseOnLastMove(GameState& State);

} // namespace zonterbrook::control
