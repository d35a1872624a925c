// The record of the game: how a move that has been played enters it, and the list `GameList` that shows it.
#pragma once

#include "control/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::control {

/// Looks up and plays a move named by its squares, in capitals; remembers what `StoreHalfMove` needs. False, and
/// nothing changed, if there is no such move.
bool EnterMove(GameState& State, std::string_view Move);

/// What follows a move that a person has entered: record, list, sound, log, end of the game, and the computer's reply.
/// Must follow an `EnterMove` that found its move.
void RecordHumanMove(GameState& State);

/// Drops every half-move behind `Kept`: list lines, rows, scores, and the comments but the one to half-move
/// `Kept` + 1, which was written for the move to come.
void CutRecord(GameState& State, int Kept);

/// Stores the half-move just made, number `GameMoves`, with the material after it and the end mark behind it, and cuts
/// what stood there and behind. `Played` was taken by `rules::RememberMove` before the move was made.
void StoreHalfMove(GameState& State, const rules::PlayedMove& Played);

/// Fills the row of half-move `GameMoves` and adds its line to `GameList`, which it selects; clears the comment box.
/// `Raw`: the squares, four characters or two. `Display`: as the list shows it, with "b" for a move of the book.
/// Beyond the last row it does nothing.
void AddMoveRow(GameState& State, std::string_view Raw, std::string_view Display, std::string_view Source);

/// The squares of a record as four characters in small letters, in the notation in force; two for a piece that enters.
/// A number below 10 is written with a zero, since a blank in third place marks the text of a single square.
std::string RawTextOf(const GameState& State, const rules::MoveRecord& Record);

/// The stored text of half-move `HalfMove`: squares alone, and as the list shows it; empty where no row holds it.
std::string StoredRaw(const GameState& State, int HalfMove);
std::string StoredDisplay(const GameState& State, int HalfMove);

/// Stores and lists the move just entered as one that a file or a lot has given: no sound, no reply, no announcement.
void RecordLoadedMove(GameState& State);

/// The sound of a move, if sounds are on.
void PlayMoveSound(GameState& State);

} // namespace zonterbrook::control
