// A typed, dragged or stored move becomes a move on the board.
#include "rules/input.h"

#include "rules/generate.h"
#include "rules/moves.h"

namespace zonterbrook::rules {

int FindMove(RulesState& State, int Source, int Dest) {
    if (State.TouchedSquare >= 1 && State.TouchMove == 1 && Source != State.TouchedSquare) {
        return -1;
    }
    GenerateGameMoves(State);
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const MoveRecord& Record = State.MoveStack[I];
        if (Record.Dest == Dest && (Record.Source == Source || Record.Source == FromHand)) {
            return I;
        }
    }
    return -1;
}

void PlayMove(RulesState& State, int Move) {
    InitGameTree(State);
    PerformMove(State, Move);
    CheckMove(State);
    State.TouchedSquare = 0;
}

} // namespace zonterbrook::rules
