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

/// Hands out the unused records of the present ply, the highest score first, of equals the first, and marks them. No
/// record is scored below 0: once the best that is left is at 0, the rest follow in their order, and nothing is
/// compared any more.
class MovePicker {
public:
    explicit MovePicker(RulesState& State)
        : Next(&State.MoveStack[State.StackLimit[State.Ply]]),
          End(Next + (State.StackLimit[State.Ply + 1] - State.StackLimit[State.Ply])), Stack(State.MoveStack.begin()) {}

    /// The index of a record, or -1 if none is left.
    int Pick() {
        MoveRecord* Best = InOrder ? nullptr : BestAboveZero();
        if (Best == nullptr) {
            InOrder = true;
            while (Next != End && Next->Score == UsedScore) {
                ++Next;
            }
            if (Next == End) {
                return -1;
            }
            Best = Next++;
        }
        Best->Score = UsedScore;
        return static_cast<int>(Best - Stack);
    }

private:
    MoveRecord* BestAboveZero() const {
        MoveRecord* Best = nullptr;
        std::int32_t BestScore = 0;
        for (MoveRecord* Record = Next; Record != End; ++Record) {
            if (Record->Score > BestScore) {
                BestScore = Record->Score;
                Best = Record;
            }
        }
        return Best;
    }

    MoveRecord* Next;
    MoveRecord* const End;
    MoveRecord* const Stack;
    bool InOrder = false;
};

/// Makes the present node the root: the figures of ply 1 become those of ply 0. At ply 0 it does nothing.
void InitGameTree(RulesState& State);

/// The rest of a move that captures, promotes, enters from off the board, or may crown the other side's last man.
/// Counters and side are those after the move already.
void PerformSpecialMove(RulesState& State, const MoveRecord& Record);

/// The same for taking back: counters and side are those before the move already.
void TakeBackSpecialMove(RulesState& State, const MoveRecord& Record);

/// The piece goes from its cell to an empty one.
inline void StepPiece(RulesState& State, int Index, int From, int To) {
    State.Pieces[Index] ^= SingleCells[From] ^ SingleCells[To];
    State.Board[To] = State.Board[From];
    State.Board[From] = Empty;
}

/// The counters after a move to `Dest`, what is known of it by ply and by number, and the other side on the move.
inline void BeginMove(RulesState& State, int Dest) {
    const int GameMove = ++State.GameMoves;
    const int Ply = ++State.Ply;
    State.MoveDest[GameMove] = static_cast<std::int16_t>(Dest);
    State.PlyDest[Ply] = Dest;
    State.PlyIrreversible[Ply] = 0;
    State.Side = -State.Side;
    State.Material[Ply] = -State.Material[Ply - 1];
    State.TotalMaterial[Ply] = State.TotalMaterial[Ply - 1];
}

/// Makes a move in which a piece of that index steps.
inline void PerformStep(RulesState& State, int Index, int Source, int Dest) {
    BeginMove(State, Dest);
    CellWeights Sums = State.WeightSums[State.Ply - 1];
    Sums += State.PieceWeights[Dest][Index];
    Sums -= State.PieceWeights[Source][Index];
    State.WeightSums[State.Ply] = Sums;
    StepPiece(State, Index, Source, Dest);
}

inline void TakeBackStep(RulesState& State, int Index, int Source, int Dest) {
    --State.GameMoves;
    --State.Ply;
    State.Side = -State.Side;
    StepPiece(State, Index, Dest, Source);
}

/// Makes the move on record `Move`. Raises `Ply` and `GameMoves`; faults at their limits.
inline void PerformMove(RulesState& State, int Move) {
    const MoveRecord& Record = State.MoveStack[Move];
    if (Record.Stepper != 0) [[likely]] {
        PerformStep(State, Record.Stepper - 1, Record.Source, Record.Dest);
    } else {
        BeginMove(State, Record.Dest);
        PerformSpecialMove(State, Record);
    }
}

/// Takes back the move on record `Move`, which must be the one made last.
///
/// A piece that ended where it began, and a king that `KingMan` demoted, left the board for good and do not come back
/// here: see `TriedMove` for whoever only tries a move.
inline void TakeBackMove(RulesState& State, int Move) {
    const MoveRecord& Record = State.MoveStack[Move];
    if (Record.Stepper != 0) [[likely]] {
        TakeBackStep(State, Record.Stepper - 1, Record.Source, Record.Dest);
    } else {
        --State.GameMoves;
        --State.Ply;
        State.Side = -State.Side;
        TakeBackSpecialMove(State, Record);
    }
}

/// Makes a move to look at what follows, and leaves the board as it was when it is taken back.
class TriedMove {
public:
    TriedMove(RulesState& InState, int InMove)
        : State(InState), Move(InMove), Stepper(InState.MoveStack[InMove].Stepper - 1),
          Source(InState.MoveStack[InMove].Source), Dest(InState.MoveStack[InMove].Dest) {
        if (Stepper >= 0) [[likely]] {
            PerformStep(State, Stepper, Source, Dest);
        } else {
            Mover = Source == FromHand ? Empty : State.Board[Source];
            PerformMove(State, Move);
        }
        CheckMove(State);
    }

    void TakeBack() {
        if (Stepper >= 0) [[likely]] {
            TakeBackStep(State, Stepper, Source, Dest);
        } else {
            TakeBackMove(State, Move);
            if (Source != FromHand && State.Board[Source] != Mover) {
                SetCell(State, Source, Mover);
            }
        }
        CheckMove(State);
    }

private:
    RulesState& State;
    int Move;
    int Stepper;
    int Source;
    int Dest;
    std::int32_t Mover = Empty; ///< asked of special moves only
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
