// Where a turn stands: one word, `GameFields::Turn`. Whoever wants to know who may do what asks it.
//
//   Resting    A person may move, step through the game, edit, choose.     all others
//   Thinking   The computer looks for its move, or plays itself.           Resting, Ending, Over
//   Replaying  Moves that a lot has drawn are played.                      Resting, Ending, Over
//   Ending     The last move is seen before its message comes.             Over
//   Over       A result stands; the game can be gone through.              Resting, Replaying
//   Hinting    A move to try is looked for, too short a time for a stop.   Resting
//   Measuring  A tool looks through positions of the game or behind it.    Resting, Over
//
// The last column tells what may follow. A new game begins in Resting, from Resting, Replaying and Over. At rest, which
// is Resting and Over, no search is under way: the cursor of the record is the number of moves made on the board, and
// every half-move has its line. In all others no event of the window may change the
// game: it may ask for a stop.
#pragma once

#include "control/state.h"

#include <string>

namespace zonterbrook::control {

/// Changes the state of the turn. Throws a `Fault` when `Next` may not follow; to stay is always allowed.
void EnterTurn(GameFields& Game, TurnState Next);

/// Whether something is at work that the person's events must not disturb.
bool IsBusy(const GameFields& Game);

/// Whether a result stands.
bool IsOver(const GameFields& Game);

/// Whether a person may move now: nothing is at work, and the game is not over.
bool TakesMoves(const GameFields& Game);

/// Whether a search runs that Cancel can stop and that has not been told to stop yet.
bool CanCancel(const GameState& State);

/// Asks whatever is at work to stop.
void AskForStop(GameState& State);

/// What the status bar says at rest: how the game ended, what the computer announced last, or whose turn it is.
std::string StandingText(const GameState& State);

/// What does not hold of a state at rest; empty if all is well.
std::string CheckRest(const GameState& State);

} // namespace zonterbrook::control
