// The record of a game: the half-moves that have been played, and a cursor in them.
//
// It is data: no text stands in it but the comments. Lists, log and files are written from it in the notation that is
// in force. There is no branching: a new move at an earlier cursor replaces what followed.
#pragma once

#include "rules/moves.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zonterbrook::game {

/// Who made a half-move.
enum class MadeBy : std::uint8_t { Nobody, Computer, Person, File };

/// How a game has ended, by who began it.
enum class Result : std::uint8_t { None, FirstWins, SecondWins, Drawn };

/// "1-0", "0-1", "1/2-1/2", or empty while there is no result.
std::string_view ResultText(Result How);

/// One move of one side.
struct HalfMove {
    rules::PlayedMove Played{};     ///< the move as made, and what stood on its source; source 0 where there is no move
    std::int16_t Material = 0;      ///< after it, as `rules::RulesState::Material`
    std::int32_t TotalMaterial = 0; ///< after it
    std::int16_t Score = 0;         ///< from its mover's side, hundredths of a man
    std::int16_t Depth = 0;         ///< plies that the computer searched for it
    std::int16_t Choices = 0;       ///< legal moves that the position had
    MadeBy By = MadeBy::Nobody;
    std::uint8_t Level = 0; ///< the computer's strength when it was made, 1 to 10
    std::int16_t Way = 0;   ///< captures with the same two ends that the generator lists before it
    bool FromBook = false;  ///< the opening book has it
    std::string Comment;    ///< written before the move, so the one behind the last half-move may have one already
};

/// The half-moves by number, from 1. Entry 0 keeps the material of the start position; the entry behind the last
/// half-move may bear a comment and nothing else.
struct GameRecord {
    base::CheckedArray<HalfMove, rules::MaxGameMoves + 2> HalfMoves{};
    std::int32_t Count = 0;  ///< half-moves recorded, `rules::MaxGameMoves` at most
    std::int32_t Cursor = 0; ///< half-moves made on the board, `Count` at most

    const HalfMove& Last() const { return HalfMoves[Cursor]; }
    HalfMove& Last() { return HalfMoves[Cursor]; }
    bool MovesBehind() const { return Cursor > 0; }
    bool MovesAhead() const { return Cursor < Count; }
    bool IsFull() const { return Cursor >= rules::MaxGameMoves; }
};

/// Records a half-move behind the cursor and moves the cursor there. What followed is gone; the comment that was
/// written for the move stays. `Move` must bear none of its own. Faults when the record is full.
void Append(GameRecord& Record, HalfMove Move);

/// Drops every half-move behind `Kept`, with all that was known of it. The comment to half-move `Kept` + 1 stays: it
/// was written for the move to come.
void Cut(GameRecord& Record, std::int32_t Kept);

/// Half-moves since the last capture or promotion up to the cursor, that one counted, too; all of them and one more if
/// there was none.
std::int32_t QuietHalfMoves(const GameRecord& Record);

} // namespace zonterbrook::game
