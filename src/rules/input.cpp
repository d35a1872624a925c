// A typed, dragged or stored move becomes a move on the board.
#include "rules/input.h"

#include "rules/generate.h"
#include "rules/moves.h"
#include "rules/position.h"

namespace zonterbrook::rules {

namespace {

// Making a move takes a piece off the board whose capture ends where it began, and a king that becomes a man by it.
// Searches count on that; a game must not lose a piece.
void PutMoverBack(RulesState& State, const PlayedMove& Played) {
    const int Dest = Played.Record.Dest;
    if (State.Board[Dest] != Empty) {
        return;
    }
    const bool Demoted = State.RuleSet.KingMan == 1 && State.MoveKingDemoted[State.GameMoves] == 1;
    SetCell(State, Dest, Demoted ? Played.Mover / 2 : Played.Mover);
    State.WeightSums[State.Ply] += State.PieceWeights[Dest][PieceIndex(State.Board[Dest])];
}

} // namespace

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
    const PlayedMove Played = RememberMove(State, Move);
    PerformMove(State, Move);
    PutMoverBack(State, Played);
    CheckMove(State);
    State.TouchedSquare = 0;
}

} // namespace zonterbrook::rules
