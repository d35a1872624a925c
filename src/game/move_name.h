// The one place where a move gets its text: lists, calculation, status bar, log and files all name moves by this.
#pragma once

#include "rules/moves.h"
#include "rules/square_names.h"

#include <string>

namespace zonterbrook::game {

/// What the name of a move tells: its ends, and whether it captures and promotes.
struct NamedMove {
    std::int32_t Source; ///< cell, or `rules::FromHand`
    std::int32_t Dest;   ///< cell
    bool Captures;
    bool Promotes;

    bool operator==(const NamedMove&) const = default;
};

NamedMove NamedMoveOf(const rules::MoveRecord& Move);

/// "c3-d4", "32x23", "d6xb0K"; a piece that enters is named by its square alone.
std::string MoveName(rules::Notation Names, char CaptureChar, const NamedMove& Move);

/// The same by the notation and the capture character in force.
std::string MoveName(const rules::RulesState& State, const NamedMove& Move);

} // namespace zonterbrook::game
