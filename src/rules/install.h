// Installing a rule set: everything that derives from the rules is derived here, once, and never in a generator.
#pragma once

#include "rules/state.h"

#include <string_view>

namespace zonterbrook::base {
class OutsideWorld;
}

namespace zonterbrook::rules {

/// Derives from `RuleSet` and `StartBoard`: step tables, classes of steps, promotion sets, `SpecialRuleSet`, the
/// figures of the start position and the material of ply 0. May raise `PiecesOnBlack` to 2, and then sets algebraic
/// notation.
void InstallRuleSet(RulesState& State);

/// Fills a column pair of a step table from a movement string: `Index` the plain steps, `Index` + 4 the capture steps.
void ParseMovement(std::string_view Text, int Index, DirectionTable& Directions);

/// Whether a list of direction words can be read whole: known words joined by ";", as many as a column holds. An empty
/// list has none and is whole, too.
bool IsDirectionList(std::string_view List);

/// Notes sideways steps and what follows from them.
void ClassifyDirections(RulesState& State);

/// Sets `SpecialRuleSet` when the live rules equal one of the four sets that have routines of their own.
void RecogniseRuleSet(RulesState& State);

/// True if `Square` has the colour that pieces stand on. Only the parity counts, so 1 and 2 answer alike.
bool IsPlayingSquare(const RulesState& State, int Square);

/// Lays the start position of `LoadedRuleSet`'s file on `Board` and `StartBoard`: `Setup` a set-up text, or empty or
/// "normal" for the default position.
void LaySetup(RulesState& State, std::string_view Setup);

/// Begins a game by `RuleSet` from `StartBoard`: installs, moves the men to the colour they are played on, sets the
/// side to move and the pieces in hand, and forgets all moves.
void StartRulesGame(RulesState& State);

/// Moves the position to the other colour of square: 1 to the odd squares, 0 to the even ones.
void ShiftMenColour(RulesState& State, int Mode);

/// Moves the men to the colour that `PiecesOnBlack` asks for if they stand on the other. Faults on an empty board.
void FitMenToColour(RulesState& State);

/// Takes `NumberMen` men of each colour off the board by lot, leaving one each at least.
void RemoveMen(RulesState& State, base::OutsideWorld& World);

} // namespace zonterbrook::rules
