// The opening book: the moves that it recommends, and what the opening is called.
//
// The block that fits the game is looked for once a game; from then on a lookup reads no file.
#pragma once

#include "control/state.h"

#include <string>
#include <vector>

namespace zonterbrook::control {

/// What the book knows of the position on the board.
struct BookAnswer {
    bool InBook = false;                 ///< some line leads here
    std::vector<std::string> Candidates; ///< recommended moves, four characters as in the book, eleven at most
    std::string Name;                    ///< of the opening; empty if it has none
};

/// Asks without drawing. A book that can't be read is complained about, once a game.
BookAnswer AskBook(GameState& State);

/// Asks, draws one of the candidates into `BookMoveSource` and `BookMoveDest`, which are 0 where there is none, and
/// notes the opening's name. True if there is a move.
bool DrawBookMove(GameState& State);

/// Shows what the opening of the game so far is called, nothing while no book is asked for.
void ShowOpening(GameState& State);

/// Lists the moves that may be played, with a mark behind those that the book recommends, and shows the opening's name.
void RefreshChoices(GameState& State);

} // namespace zonterbrook::control
