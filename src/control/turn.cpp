// What a person's move sets off: the end of the game, the other person's turn, or the computer's.
#include "control/turn.h"

#include "control/book.h"
#include "control/ending.h"
#include "rules/generate.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

Follows FollowMove(GameState& State) {
    DrawRuleCheck(State);
    if (const auto End = FindEnding(State)) {
        EndGame(State, *End);
        return Follows::Nobody;
    }
    if (State.PlayMode != view::GameMode::PlayerPlayer) {
        return Follows::Computer;
    }
    view::SetStatus(State, "Player-Player mode");
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
    return Follows::Person;
}

} // namespace zonterbrook::control
