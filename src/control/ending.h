// The end of a game: when it has come, and all that follows from it.
//
// A game ends in one routine, `EndGame`, told how it ended: result, rating, status, message and the state of the turn
// follow there and nowhere else.
#pragma once

#include "control/state.h"

#include <optional>
#include <string>

namespace zonterbrook::control {

/// How a game ends.
enum class Ending : std::uint8_t {
    Drawn,       ///< no move where that is a draw, or a record without room for more
    DrawnByRule, ///< by the rule of `DrawCode`
    WhiteWins,   ///< decided on the board by a person's move
    BlackWins,
    ComputerWins, ///< decided on the board by the computer's move, or on its turn
    PersonWins,
    DrawAgreed,    ///< the person has taken the computer's offer
    OfferAccepted, ///< the computer has taken the person's
    Resigned,      ///< the person has given up
};

/// Whether the end is announced as it comes, or was announced when it came first and is only found again.
enum class Announcement : std::uint8_t { Aloud, Silent };

/// Ends the game: the turn is over. Aloud, the last move is shown for half a second where the end comes with a move,
/// the rating is settled and the end is said.
void EndGame(GameState& State, Ending How, Announcement Voice = Announcement::Aloud);

/// Takes a result back, since a half-move has been taken back: the game goes on.
void ReopenGame(GameState& State);

/// Keeps the counts of the draw rules and sets `DrawCode`. Once for every half-move made or stepped over, when the
/// cursor stands behind it.
void DrawRuleCheck(GameState& State);

/// Whether `DrawCode` ends the game: a rule that is not in force never does. The position's moves must stand on the
/// stack at `Ply`.
bool DrawRuleEndsGame(const GameState& State);

/// The end that the position has come to by evaluator, moves, draw rules and record; `DrawRuleCheck` must have run.
/// Leaves the moves of the position generated, and `Ply` 0.
std::optional<Ending> FindEnding(GameState& State);

/// How far a draw rule in force has counted, such as "Quiet moves: 12 of 50"; empty while none has anything to tell.
std::string DrawCounter(const GameState& State);

/// Tells the engine how far the count of quiet half-moves is: `QuietMoves` and `QuietLimit`.
void SetMoveLimit(GameState& State);

} // namespace zonterbrook::control
