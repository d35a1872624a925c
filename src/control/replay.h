// The moves of a file played onto the board, as a file names them.
#pragma once

#include "control/state.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zonterbrook::control {

/// A half-move as a file tells it.
struct FileMove {
    /// What the sign between the squares says of the move.
    enum class Sign : std::uint8_t { None, Step, Capture };

    std::int32_t Source = 0; ///< cell, 0 for none
    std::int32_t Dest = 0;   ///< the same cell for a piece that enters
    Sign Joint = Sign::None;
    std::vector<std::int32_t> Between; ///< squares jumped or landed on; empty where the file does not tell
    std::string Text;                  ///< as it stands in the file, for messages
    std::string Comment;               ///< before the move
    std::int32_t Choice = 0;           ///< which of the moves that fit, from 0
};

/// How far the moves of a file could be played.
struct ReplayReport {
    std::int32_t Played = 0;
    bool Whole = true; ///< false: the half-move behind them is not legal
};

/// Whether the rules in force allow the move in the position at rest.
bool IsLegal(GameState& State, const FileMove& Move);

/// Chooses among captures with the same ends, where the file does not tell them apart, those by which the game goes
/// furthest: sets `Choice`. The position, which must be at rest, is afterwards what it was.
void ChooseCaptures(GameState& State, std::vector<FileMove>& Moves);

/// Plays the moves onto the board, into the record, the list and the log. The draw rules count along; whether the game
/// has ended is for whoever asked. The turn is `Replaying` and stays so. With `ShowsProgress` the window follows.
ReplayReport ReplayMoves(GameState& State, const std::vector<FileMove>& Moves, bool ShowsProgress);

/// The squares between the ends by which a capture is told from others with the same ends: where it lands, or, where
/// that can't be told, what it takes.
std::vector<std::int32_t> SquaresBetween(const rules::MoveRecord& Capture);

} // namespace zonterbrook::control
