// A typed, dragged or stored move becomes a move on the board.
#include "rules/input.h"

#include "rules/generate.h"
#include "rules/moves.h"
#include "rules/square_names.h"

namespace zonterbrook::rules {

void InputMove(RulesState& State, std::string_view Move, bool& Found) {
    Found = false;
    State.MoveWasCapture = 0;
    State.MoveWasPromotion = 0;

    const int Source = SquareNumber(State, Move.substr(0, 2));
    if (State.TouchedSquare >= 1 && State.TouchMove == 1 && Source != State.TouchedSquare) {
        return;
    }
    const int Dest = Move.size() >= 3 ? SquareNumber(State, Move.substr(2)) : Source;

    GenerateGameMoves(State);
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const MoveRecord& Record = State.MoveStack[I];
        const bool Matches = Record.Dest == Dest && (Record.Source == Source || Record.Source == FromHand);
        if (!Matches) {
            continue;
        }
        State.MoveWasCapture = Record.Captures.Count != 0 ? 1 : 0;
        State.MoveWasPromotion = Record.Kind == 2 ? 1 : 0;
        InitGameTree(State);
        DisplayMove(State, I);
        PerformMove(State, I);
        State.PlayedIndex = I;
        State.TouchedSquare = 0;
        Found = true;
        return;
    }
}

} // namespace zonterbrook::rules
