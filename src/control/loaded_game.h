// Opening: the game of a file on the board, and the messages where that fails.
#pragma once

#include "control/replay.h"
#include "formats/game_file.h"

#include <filesystem>
#include <string_view>

namespace zonterbrook::control {

/// What a game is loaded for: the person has chosen its file; it is an opening to play on from, one that a lot has
/// drawn, or the game of the last run.
enum class LoadMode : std::uint8_t { Chosen, Opening, DrawnMoves, Autosave };

/// How a load has gone.
enum class LoadResult : std::uint8_t {
    Loaded,
    IllegalMove,   ///< the moves before it were played, and were taken off again
    BadSetup,      ///< the start position can't be understood, or is none of ours; nothing was loaded
    RuleTagFailed, ///< the rules of the game can't be read: an empty board of what was read is left
    Failed         ///< nothing was loaded
};

struct LoadReport {
    LoadResult How = LoadResult::Failed;
    std::int32_t Played = 0; ///< half-moves
    std::string Refused;     ///< the move that is not legal
    std::int32_t Comments = 0;
    bool OwnStart = false; ///< the file lays a start position of its own
};

/// Opens a game file and plays it to its end. Whatever goes wrong is said here.
LoadReport LoadGameFile(GameState& State, const std::filesystem::path& File, LoadMode Mode);

/// Begins the game of a document and plays its moves, the same way.
LoadReport StartGameOf(GameState& State, const formats::GameFileDocument& Game, LoadMode Mode);

/// The last step of every load that has begun a game: plays the moves and ends the game if they have.
LoadReport PlayLoadedMoves(GameState& State, const std::vector<FileMove>& Moves, std::string_view LastComment,
                           LoadMode Mode);

/// Ends a load that can't go on: nothing of the game stays but its rules.
void AbandonGame(GameState& State, LoadMode Mode);

/// Fits the men of a start position that was loaded to the colour that they are played on, and the window to the rules.
void SettleLoadedBoard(GameState& State);

/// The lists and texts that are emptied before a file is read.
void ClearForLoad(GameState& State);

/// The game in hand is the one of this file; empty: of none.
void NameFile(GameState& State, const std::filesystem::path& File);

} // namespace zonterbrook::control
