// The opening book. None is read so far: every position is out of book.
#include "control/book.h"

namespace zonterbrook::control {

void LookupBook(GameState& State, int /*Mode*/) {
    State.BookMoveSource = 0;
    State.BookMoveDest = 0;
}

} // namespace zonterbrook::control
