// Why a move can't be played: the rule that stands against it.
//
// The generators are asked again with one rule relaxed at a time; the first rule whose relaxing lets the move stand is
// the reason. It costs them nothing, and what is said is always true: with that rule changed the move is there.
#pragma once

#include "rules/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::rules {

/// Why a move is refused.
struct Refusal {
    std::string_view Key; ///< of the rule, a movement's or "TouchMove"; "none" if no single rule is the reason
    std::string Sentence; ///< for a person
};

/// Any square: the question is why the piece can't move at all.
inline constexpr int Anywhere = 0;

/// Why the side to move can't go from cell `Source`, or `FromHand`, to cell `Dest`, or `Anywhere`, in the position of
/// the game. The state is only read.
Refusal WhyRefused(const RulesState& State, int Source, int Dest);

} // namespace zonterbrook::rules
