// The search for problems: moves behind which a quiet reply leads to a capture that changes the game.
#pragma once

#include "control/state.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zonterbrook::control {

/// A shot that has been found: the move that allows it, and the line by which it is made.
struct Finding {
    std::int32_t Source = 0; ///< of the move
    std::int32_t Dest = 0;
    std::vector<game::NamedMove> Line; ///< behind it
    std::string Text;                  ///< the line with depth and scores, as the window has it
};

/// Looks at the position behind each legal move. Everything of the game is as it was afterwards. An expected reply is
/// told in place of the search, and then nothing is found.
std::vector<Finding> SearchProblems(GameState& State);

/// Plays a finding behind the present position, to be stepped through; the game before comes back by Restore Previous
/// Game.
void PlayFinding(GameState& State, const Finding& Found);

/// The command: searches, and shows what has been found.
void mnuProblem_Click(GameState& State);

} // namespace zonterbrook::control
