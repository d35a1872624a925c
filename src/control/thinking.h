// What the computer's move and the analysis share: the frozen window, the question whether the game is over, the book,
// the search with its report, and the announcement of a forced result.
#pragma once

#include "control/calculation.h"
#include "control/ending.h"
#include "control/state.h"
#include "engine/root_search.h"

#include <cstdint>

namespace zonterbrook::control {

/// What the thinking is for.
enum class Purpose : std::uint8_t { Move, Analysis };

/// What an evaluation says of a game that is won as it stands, at any ply that a root move can lead to.
inline constexpr std::int32_t WonAsItStands = engine::ForcedScore + 2;

/// What thinking carries from step to step.
struct ThinkingInProgress {
    Purpose For;
    double Started; ///< the clock when it began
    int Choices = 0;
    CalculationReport Report;
    engine::RootOutcome Found{};

    ThinkingInProgress(GameState& State, Purpose InFor, engine::RootObserver* AlsoTold);
};

/// Whether the computer plays both sides.
bool PlaysItself(const GameState& State);

/// The side that is not the computer's wins; against itself the computer does all the winning.
Ending PersonWins(const GameState& State);

/// Makes engine and window ready. For a move what lies ahead of the cursor is given up.
void PrepareThinking(GameState& State, Purpose For);

/// Whether the game is over as it stands; then it has been ended. The moves stand on the stack if it goes on.
bool EndsBeforeThinking(GameState& State, Purpose For);

/// The search, from the moment to see the last move to the list of the moves that were looked at.
void Think(GameState& State, ThinkingInProgress& Move);

/// Says in the status bar that the side to move, as the search has it, wins or loses in so many moves.
void AnnounceWin(GameState& State, int Moves);
void AnnounceLoss(GameState& State);

/// The turn is the person's again; while the computer plays itself it stays the computer's.
void GiveBackWindow(GameState& State);

} // namespace zonterbrook::control
