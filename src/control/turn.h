// What a person's move sets off.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Who is next after a move that has been recorded.
enum class Follows : std::uint8_t { Nobody, Person, Computer };

/// Counts for the draw rules, ends the game if it has come to its end, and otherwise says who is next. A second person
/// finds the list of moves ready.
Follows FollowMove(GameState& State);

} // namespace zonterbrook::control
