// Going back and forth in the game that has been played.
#pragma once

#include "control/state.h"

namespace zonterbrook::control {

/// Takes back `Steps` half-moves, or plays -`Steps` of the recorded ones again. Not while something is at work.
void NavigateMoves(GameState& State, int Steps);

/// One half-move forward; the status bar shows its text.
void StepForward(GameState& State);

/// The commands.
void First_Click(GameState& State);
void Moveback_Click(GameState& State);
void MoveForward_Click(GameState& State);
void Last_Click(GameState& State);

/// How many half-moves behind the cursor Take Back takes back: one between two persons, else as many as it takes until
/// the person is to move again, whose colour is told by the names. 0: none can be.
int StepsToTakeBack(const GameState& State);

/// The Take Back command: what has been taken back stands ahead of the cursor until another move replaces it, and a
/// game that was over goes on.
void TakeBack_Click(GameState& State);

/// To the position behind the selected line of `GameList`.
void GoToSelectedMove(GameState& State);

/// Plays the next half-move of the record on the board for a tool: nothing is announced, and no reply comes. False if
/// there is none that the rules in force allow.
bool StepForTool(GameState& State);

/// Shows where the cursor has come to, after steps for a tool, and whether the game is over there. The turn must be
/// that of the tool.
void SettleAfterTool(GameState& State);

} // namespace zonterbrook::control
