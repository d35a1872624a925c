// Defaults of the engine's slice, and what a new game forgets.
#include "engine/state.h"

#include "rules/install.h"
#include "rules/position.h"

#include <algorithm>

namespace zonterbrook::engine {

void ResetEngine(EngineState& State, base::OutsideWorld& World) {
    State = EngineState{};
    rules::ResetRules(State);
    State.World = &World;
    State.Strength = 1;
    State.SearchDepth = 2;
    State.TimeLimit = 2;
    State.ExtendedSearch = 1;
    State.Balance = 150;
    State.Plys = 3;
    ResetEngineGame(State);
}

void ResetEngineGame(EngineState& State) {
    State.LazyMargin = DefaultLazyMargin;
    State.Wanted.Fill({});
    for (auto& Line : State.MainVariantTable) {
        Line.Fill({});
    }
    State.PositionHistory.Fill({});
    State.HistoryFingerprint.Fill(0);
    State.DrawPending = 0;
    State.StopAutoPlay = 0;
    State.NoLegalDrawHit = 0;
    State.BestScore = 0;
}

void StartEngineGame(EngineState& State) {
    rules::StartRulesGame(State);
    InstallEngineRules(State);
    ResetEngineGame(State);
}

bool SameRoot(const EngineState& A, const EngineState& B) {
    // Cell 0 is no playing cell, and taking back under `ManKing` may write to it.
    const bool SameBoard = std::equal(A.Board.begin() + 1, A.Board.end(), B.Board.begin() + 1);
    return SameBoard && A.Pieces == B.Pieces && A.Side == B.Side && A.Ply == B.Ply && A.GameMoves == B.GameMoves &&
           A.PiecesInHandWhite == B.PiecesInHandWhite && A.PiecesInHandBlack == B.PiecesInHandBlack &&
           A.Material[0] == B.Material[0] && A.TotalMaterial[0] == B.TotalMaterial[0];
}

} // namespace zonterbrook::engine
