// The move stack and making and taking back a move.
//
// There is one board. A search does not copy it: it makes a move, looks deeper and takes the move back, strictly
// nested. A generator fills `MoveStack` from `StackLimit[Ply]` up to `StackLimit[Ply + 1]`.
#pragma once

#include "rules/position.h"
#include "rules/state.h"

#include <algorithm>

namespace zonterbrook::rules {

/// The score of a record that has been handed out, and the lowest that a search window knows.
inline constexpr std::int32_t UsedScore = -32000;

/// Hands out the unused record of the ply with the highest score, the first of equals, and marks it; -1 if none is
/// left.
inline int NextBestMove(RulesState& State) {
    std::int32_t BestScore = UsedScore;
    int Best = -1;
    const int End = State.StackLimit[State.Ply + 1];
    for (int I = State.StackLimit[State.Ply]; I < End; ++I) {
        const std::int32_t Score = State.MoveStack[I].Score;
        if (Score > BestScore) {
            BestScore = Score;
            Best = I;
        }
    }
    if (Best >= 0) {
        State.MoveStack[Best].Score = UsedScore;
    }
    return Best;
}

/// Makes the present node the root: the figures of ply 1 become those of ply 0. At ply 0 it does nothing.
void InitGameTree(RulesState& State);

/// The rest of a move that captures, promotes, enters from off the board, or may crown the other side's last man.
/// Counters and side are those after the move already.
void PerformSpecialMove(RulesState& State, const MoveRecord& Record);

/// The same for taking back: counters and side are those before the move already.
void TakeBackSpecialMove(RulesState& State, const MoveRecord& Record);

/// Most moves by far: a piece steps to another cell, and nothing else happens.
inline bool IsPlainStep(const RulesState& State, const MoveRecord& Record) {
    return Record.Captures.Count == 0 && Record.Kind == 0 && Record.Source != FromHand && State.RuleSet.ManKing != 1;
}

/// A piece goes from its cell to an empty one.
inline void StepPiece(RulesState& State, int From, int To) {
    const std::int32_t Value = State.Board[From];
    CellSet& Set = State.Pieces[PieceIndex(Value)];
    Set.Toggle(From);
    Set.Toggle(To);
    State.Board[From] = Empty;
    State.Board[To] = Value;
}

/// Makes the move on record `Move`. Raises `Ply` and `GameMoves`; faults at their limits.
inline void PerformMove(RulesState& State, int Move) {
    const MoveRecord& Record = State.MoveStack[Move];
    const int Dest = Record.Dest;

    // 1. Counters and what is known of the move by ply and by number; the other side is on the move.
    const int GameMove = ++State.GameMoves;
    const int Ply = ++State.Ply;
    State.MoveDest[GameMove] = static_cast<std::int16_t>(Dest);
    State.MoveKingDemoted[GameMove] = 0;
    State.PlyDest[Ply] = Dest;
    State.PlyIrreversible[Ply] = 0;
    State.Side = -State.Side;

    // 2. Material, seen from that side.
    State.Material[Ply] = -State.Material[Ply - 1];
    State.TotalMaterial[Ply] = State.TotalMaterial[Ply - 1];

    if (!IsPlainStep(State, Record)) [[unlikely]] {
        PerformSpecialMove(State, Record);
        return;
    }
    const auto& Weights = State.PieceWeights[PieceIndex(State.Board[Record.Source])];
    const CellWeights& Before = Weights[Record.Source];
    const CellWeights& After = Weights[Dest];
    const CellWeights& Sums = State.WeightSums[Ply - 1];
    CellWeights& NewSums = State.WeightSums[Ply];
    for (int Lane = 0; Lane < 4; ++Lane) {
        NewSums.Lanes[Lane] = Sums.Lanes[Lane] + After.Lanes[Lane] - Before.Lanes[Lane];
    }
    StepPiece(State, Record.Source, Dest);
}

/// Takes back the move on record `Move`, which must be the one made last.
///
/// A piece that ended where it began, and a king that `KingMan` demoted, left the board for good and do not come back
/// here: see `TriedMove` for whoever only tries a move.
inline void TakeBackMove(RulesState& State, int Move) {
    const MoveRecord& Record = State.MoveStack[Move];
    --State.GameMoves;
    --State.Ply;
    State.Side = -State.Side;
    if (IsPlainStep(State, Record)) [[likely]] {
        StepPiece(State, Record.Dest, Record.Source);
    } else {
        TakeBackSpecialMove(State, Record);
    }
}

/// Makes a move to look at what follows, and leaves the board as it was when it goes out of scope or is taken back.
class TriedMove {
public:
    TriedMove(RulesState& InState, int InMove)
        : State(InState), Move(InMove), Source(InState.MoveStack[InMove].Source),
          Mover(Source == FromHand ? Empty : InState.Board[Source]) {
        PerformMove(State, Move);
    }

    void TakeBack() {
        TakeBackMove(State, Move);
        if (Source != FromHand && State.Board[Source] != Mover) [[unlikely]] {
            SetCell(State, Source, Mover);
        }
    }

private:
    RulesState& State;
    int Move;
    int Source;
    std::int32_t Mover;
};

/// A move as the record of a game keeps it, with what stepping back needs beside it.
struct PlayedMove {
    MoveRecord Record;
    std::int32_t Mover; ///< what stood on the source cell before it
};

/// The move on record `Move`, to be kept by the game's record. Must run before the move is made.
PlayedMove RememberMove(const RulesState& State, int Move);

/// Steps back over a played move: the position as it stood before it, `Ply` 0, and the material figures given.
void StepBack(RulesState& State, const PlayedMove& Move, std::int32_t Material, std::int32_t TotalMaterial);

/// The number of own pieces that could step onto `Square`, doubled, plus 1. Anything but Black's -1 counts as White.
int Isamulti(const RulesState& State, int Square, std::int32_t Side);

} // namespace zonterbrook::rules
