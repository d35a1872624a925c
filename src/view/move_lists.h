// The three lists and the texts of the window that are made from the state: the game, moves to choose from, root moves,
// calculation, strength, titles, status.
#pragma once

#include "game/game_record.h"
#include "view/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::view {

/// Lists the moves of the position in `ChoiceList`, generating them anew if the ply has none.
void RefreshMoveChoices(ViewState& State);

/// Lists `RootMoves` in `RootList`, one line for each: squares and score.
void ShowRootMoves(ViewState& State);

/// A half-move as lists and log name it, with "b" behind it if the book knows it.
std::string HalfMoveText(const rules::RulesState& State, const game::HalfMove& Made);

/// The line of half-move `Number` in `GameList`: the number of its pair before an odd one, six blanks before an even
/// one.
std::string GameLine(const rules::RulesState& State, const game::GameRecord& Record, int Number);

/// Lists the game's half-moves in `GameList`, from `First` on, and selects the one before the cursor. The lines before
/// `First` must stand.
void ListGame(ViewState& State, const game::GameRecord& Record, int First = 1);

/// The calculation's label from `Calculated`, in the notation in force.
void WriteCalculation(ViewState& State);

/// The same, with the moves of a line in words of their own: "d4-e5 c7xe5 ", a blank behind each.
std::string LineText(const rules::RulesState& State, const CalculationFields& Found);

/// "Strength:9   Time:2 sec", and the label that shows it.
std::string StrengthText(const ViewState& State);
void ShowStrength(ViewState& State);

/// Caption and variant label, with " (M)" when the rules in force differ from those of the variant's file.
void ShowVariantTitle(ViewState& State);

/// The name of the game's file behind it in the caption; empty: none.
void ShowFileName(ViewState& State, std::string_view Name);

/// The same mark for a game that does not begin as the variant does, whatever its rules.
void MarkTitle(ViewState& State);

/// What the panel in the middle of the status bar says.
void SetStatus(ViewState& State, std::string_view Text);

/// "White moves" or "Black moves".
std::string_view SideMovesText(std::int32_t Side);

/// The calculation's label as it is when there is none.
inline constexpr std::string_view NoCalculation = "no calculation";

/// " 12" and "-12": a number as texts of the program are written with it, a blank standing for the plus sign.
std::string SignedText(std::int64_t Value);

/// The name and version of the program as caption, log and the first panel say it.
inline constexpr std::string_view ProductName = "Zonterbrook 1.20";
inline constexpr std::string_view ProductLine = "Zonterbrook 1.20 - draughts in a hundred variants";

} // namespace zonterbrook::view
