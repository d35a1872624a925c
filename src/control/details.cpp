// The details of a game.
#include "control/details.h"

namespace zonterbrook::control {

void Details_Click(GameState& State) {
    State.Outside().ShowDetails(State.Details, [&State](const game::Details& Stored) {
        State.GameChanged = State.GameChanged || !(State.Details == Stored);
        State.Details = Stored;
    });
}

} // namespace zonterbrook::control
