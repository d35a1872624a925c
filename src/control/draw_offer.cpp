// The offer of a draw, and resignation.
#include "control/draw_offer.h"

#include "control/ending.h"

namespace zonterbrook::control {

void OfferDraw(GameState& State) {
    if (State.Record.Count > 0 && State.BestScore < 1) {
        EndGame(State, Ending::OfferAccepted);
    } else {
        State.Outside().Message("Draw Offer", "Offer rejected... Play on!", Icon::Exclamation);
    }
}

void Resign(GameState& State) {
    EndGame(State, Ending::Resigned);
}

} // namespace zonterbrook::control
