// The program's own game file: a game with the whole rule set that it is played by, so that it comes back even where
// its variant has changed or has never been one.
//
// Reading and writing go through one plain document. Nothing of the game in hand is known here: replaying the moves is
// for whoever asked. docs/file-formats.md describes the format for those who write programs.
#pragma once

#include "game/details.h"
#include "rules/rule_set.h"
#include "rules/state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::formats {

/// A half-move of a file, and the comment that stands before it.
struct GameFileMove {
    std::string Raw; ///< as `game::RawMove` writes it
    std::string Comment;
};

/// Which of several captures with the same two ends a half-move is.
struct GameFileWay {
    std::int32_t HalfMove = 0;          ///< from 1
    std::vector<std::int32_t> Captured; ///< cells, in any order
};

/// What a game file says.
struct GameFileDocument {
    std::string VariantName;
    std::string Setup;    ///< the start position, as `rules::SetupText`; empty where the file lays none
    bool BookOpen = true; ///< the game may be played by the opening book
    rules::Notation Names = rules::Notation::Algebraic; ///< of the raw moves
    rules::RuleSetFields Rules;
    std::optional<std::int32_t> UseClassic; ///< as the settings have it; nothing where the file does not tell
    std::optional<std::string> PlayerName;
    game::Details Details; ///< its `Result` is not written
    std::vector<GameFileWay> Ways;
    std::vector<GameFileMove> Moves;
    std::string LastComment; ///< behind the last half-move
};

/// Why a game file gives no document.
enum class GameFileFault : std::uint8_t {
    None,
    NotAGame,     ///< it does not begin as a game file does
    OtherVersion, ///< of the program
    Broken        ///< it ends before its moves begin, or holds a value that no field can take
};

struct GameFileResult {
    std::optional<GameFileDocument> Document;
    GameFileFault Fault = GameFileFault::None;
};

/// Reads the bytes of a game file. What the file does not name keeps its value in `Before`, whose moves are ignored.
GameFileResult ReadGameFile(std::string_view Bytes, const GameFileDocument& Before);

/// The whole file, line ends as the program's files have them.
std::string WriteGameFile(const GameFileDocument& Game);

} // namespace zonterbrook::formats
