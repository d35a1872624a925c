// The start of a game: of a variant, from its file or by the rules in hand, or of a position.
//
// Program, console and tests begin every game here.
#pragma once

#include "control/state.h"
#include "formats/variant_file.h"

namespace zonterbrook::control {

/// Whose rules a variant is played by: those of its file, or those in force, which may have been edited.
enum class RulesFrom : std::uint8_t { File, Hand };

/// Whether the side that begins is drawn where the rules leave it to the lot, or is the file's.
enum class Lots : std::uint8_t { Drawn, Left };

/// Where variants lie: those of the program, or the person's own.
std::filesystem::path FolderOfVariants(const GameState& State, bool UserVariants);

/// Reads the variant that the settings name. Throws a `FileFault` when it can't be read.
formats::VariantDocument ReadChosenVariant(const GameState& State);

/// Begins a game from the start position of `Variant`.
void StartVariant(GameState& State, const formats::VariantDocument& Variant, RulesFrom From, Lots Side = Lots::Drawn);

/// Begins a game from the position on the board, with the side to move as the one that begins, by the rules in force.
/// The next game of the variant begins as its rules say again.
void StartPosition(GameState& State);

/// Begins the game in hand once more, from its own start position.
void RestartGame(GameState& State);

/// The names beside the board at the start of a game, by the mode: the person, or the first of two, has the colour that
/// has been chosen, else White.
void NamePlayers(view::ViewState& State);

/// The names beside the board where a person and the computer play on: the person gets the side to move.
void NamePersonToMove(view::ViewState& State);

/// The side of the person who plays the computer, as the names tell it. Where they don't, as in a game from a file, it
/// is the side that has moved if a person made the last move, and the one to move otherwise.
std::int32_t PersonSide(const GameState& State);

} // namespace zonterbrook::control
