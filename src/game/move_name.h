// The one place where a move gets its text: lists, calculation, status bar, log and files all name moves by this.
#pragma once

#include "rules/moves.h"
#include "rules/square_names.h"

#include <string>
#include <string_view>

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

/// A move as files name it: both squares without anything between them, two characters each ("c3d4", "0510"); the
/// square alone of a piece that enters.
std::string RawMove(rules::Notation Names, const NamedMove& Move);

/// The two cells that a text names, 0 for what names none; a piece that enters has its square twice.
struct MoveEnds {
    int Source = 0;
    int Dest = 0;
};

/// A raw move in the notation in force; one of two characters names a piece that enters. Letters in either case.
MoveEnds ReadRawMove(const rules::RulesState& State, std::string_view Raw);

/// A move as a person types it: hyphen, capture signs and blanks split the squares; where nothing does, the first has
/// two characters.
MoveEnds ReadTypedMove(const rules::RulesState& State, std::string_view Text);

} // namespace zonterbrook::game
