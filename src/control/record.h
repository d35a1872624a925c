// How a move enters the game: made on the board, put into the record, listed. What it sets off is turn.h's business.
#pragma once

#include "control/state.h"

#include <optional>

namespace zonterbrook::control {

/// The half-move that record `Move` of the ply would make, with how many there were to choose from; to be asked before
/// the move is made.
game::HalfMove NewHalfMove(const GameState& State, int Move);

/// Plays the first move in stack order between two cells. Nothing, and nothing changed, if there is none. A piece that
/// enters is named by its square twice.
std::optional<game::HalfMove> EnterMove(GameState& State, int Source, int Dest);

/// Records the half-move just made on the board: with the material after it, the strength in force and `By` as who made
/// it. What stood at that place of the record and behind is gone. Lists it, selects its line and empties the comment
/// box.
void RecordMove(GameState& State, game::HalfMove Made, game::MadeBy By);

/// Drops what lies ahead of the cursor, lines included.
void CutAhead(GameState& State);

/// The sound of a move, if sounds are on.
void PlayMoveSound(const GameState& State);

} // namespace zonterbrook::control
