// What has to hold whenever no handler is at work: position, record, lists and flags agree with each other.
#pragma once

#include "control/record.h"
#include "control/state.h"
#include "rules/position.h"
#include "view/move_lists.h"

#include <string>

namespace zonterbrook::tests {

/// What is out of order in a state at rest; empty if nothing is.
inline std::string Complaint(const control::GameState& State) {
    std::string Found = rules::CheckPosition(State);
    if (State.MoveCount < State.GameMoves) {
        Found += " the cursor is behind the record";
    }
    if (State.GameList.Lines.size() != static_cast<std::size_t>(State.MoveCount)) {
        Found += " lines and half-moves differ";
    }
    for (int HalfMove = 1; HalfMove <= State.MoveCount; ++HalfMove) {
        if (State.GameList.Lines[static_cast<std::size_t>(HalfMove - 1)] !=
            view::MoveListLine(HalfMove, control::StoredDisplay(State, HalfMove))) {
            Found += " a line and its row differ";
        }
    }
    if (State.Thinking != 0 || State.SearchActive != 0 || State.HandlerDepth != 0) {
        Found += " something is left at work";
    }
    return Found;
}

} // namespace zonterbrook::tests
