// The three lists and the texts of the window that are made from the state: moves to choose from, root moves, strength,
// titles, status.
#pragma once

#include "view/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::view {

/// Lists the moves of the position in `ChoiceList`, generating them anew if the ply has none.
void RefreshMoveChoices(ViewState& State);

/// Lists `RootMoves` in `RootList`, one line for each: squares and score.
void ShowRootMoves(ViewState& State);

/// The line of a half-move in `GameList`: the number of its row before an odd one, six blanks before an even one.
std::string MoveListLine(int HalfMove, std::string_view DisplayText);

/// "Strength:9   Time:2 sec", and the label that shows it.
std::string StrengthText(const ViewState& State);
void ShowStrength(ViewState& State);

/// Caption and variant label, with " (M)" when the rules in force differ from those of the variant's file.
void ShowVariantTitle(ViewState& State);

/// Caption and variant label from `VariantTitle` as it stands.
void ShowTitle(ViewState& State);

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
