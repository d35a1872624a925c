// Make and unmake.
//
// Two exact inverses but for the cases told in the header: what a rule takes off the board in mid-move stays off.
#include "rules/moves.h"

#include "base/checked_number.h"

namespace zonterbrook::rules {

namespace {

/// Changes cells in the making of a move, and keeps the sums of weights of the new ply in a local meanwhile.
class MoveMaker {
public:
    MoveMaker(RulesState& InState, int InPly) : State(InState), Ply(InPly), Sums(InState.WeightSums[InPly - 1]) {}

    void Finish() { State.WeightSums[Ply] = Sums; }

    void Remove(int Cell) {
        std::int32_t& Place = State.Board[Cell];
        if (Place != Empty) {
            Count<-1>(Cell, Place);
            Place = Empty;
        }
    }

    void Put(int Cell, std::int32_t Value) {
        Remove(Cell);
        if (Value != Empty) {
            Count<1>(Cell, Value);
            State.Board[Cell] = Value;
        }
    }

    /// From one cell to another, or with both the same off the board.
    void Move(int Source, int Dest) {
        const std::int32_t Value = State.Board[Source];
        Remove(Source);
        if (Dest != Source) {
            Put(Dest, Value);
        }
    }

private:
    template <int Sign>
    void Count(int Cell, std::int32_t Value) {
        const int Index = PieceIndex(Value);
        State.Pieces[Index] ^= SingleCells[Cell];
        if constexpr (Sign > 0) {
            Sums += State.PieceWeights[Cell][Index];
        } else {
            Sums -= State.PieceWeights[Cell][Index];
        }
    }

    RulesState& State;
    const int Ply;
    CellWeights Sums;
};

/// True for most captures: the piece goes on to another cell, stays what it is, and nothing happens but that what it
/// jumped is gone.
bool JustCaptures(const RulesState& State, const MoveRecord& Record) {
    return Record.Kind == 0 && Record.Source != FromHand && Record.Source != Record.Dest &&
           State.RuleSet.KingMan != 1 && State.RuleSet.ManKing != 1;
}

/// The index of a captured piece of that colour.
int PreyIndex(int Colour, const CaptureGroup& Group) {
    return Group.Weight == 1 ? Colour : Colour + 2;
}

void PerformCapture(RulesState& State, const MoveRecord& Record) {
    const int Ply = State.Ply;
    const int Enemy = ColourIndex(State.Side);
    State.PlyIrreversible[Ply] = 1;
    CellWeights Sums = State.WeightSums[Ply - 1];
    for (int I = 0; I < Record.Captures.Count; ++I) {
        const CaptureGroup& Group = Record.Captures.Groups[I];
        const int Index = PreyIndex(Enemy, Group);
        State.Pieces[Index] ^= SingleCells[Group.Cell];
        Sums -= State.PieceWeights[Group.Cell][Index];
        State.Board[Group.Cell] = Empty;
    }
    State.Material[Ply] -= 100 * Record.Captures.Weight();
    State.TotalMaterial[Ply] -= 100 * Record.Captures.Weight();
    const int Index = PieceIndex(State.Board[Record.Source]);
    Sums += State.PieceWeights[Record.Dest][Index];
    Sums -= State.PieceWeights[Record.Source][Index];
    State.WeightSums[Ply] = Sums;
    StepPiece(State, Index, Record.Source, Record.Dest);
}

void TakeBackCapture(RulesState& State, const MoveRecord& Record) {
    StepPiece(State, PieceIndex(State.Board[Record.Dest]), Record.Dest, Record.Source);
    const int Enemy = ColourIndex(-State.Side);
    for (int I = 0; I < Record.Captures.Count; ++I) {
        const CaptureGroup& Group = Record.Captures.Groups[I];
        State.Pieces[PreyIndex(Enemy, Group)] ^= SingleCells[Group.Cell];
        State.Board[Group.Cell] = -State.Side * Group.Weight;
    }
}

/// A side that is down to one man gets a king for it; returns the cell, or 0.
int CrownLastMan(RulesState& State, MoveMaker& Maker) {
    const int Colour = ColourIndex(State.Side);
    if (State.Pieces[Colour + 2].Any() || State.Pieces[Colour].Count() != 1) {
        return 0;
    }
    const int Cell = State.Pieces[Colour].First();
    Maker.Put(Cell, 2 * State.Side);
    State.Material[State.Ply] += 100;
    State.TotalMaterial[State.Ply] += 100;
    return Cell;
}

std::int32_t& InHand(RulesState& State, std::int32_t Side) {
    return Side == White ? State.PiecesInHandWhite : State.PiecesInHandBlack;
}

} // namespace

void InitGameTree(RulesState& State) {
    if (State.Ply != 0) {
        State.Material[0] = State.Material[1];
        State.WeightSums[0] = State.WeightSums[1];
        State.TotalMaterial[0] = State.TotalMaterial[1];
        State.Ply = 0;
    }
}

void PerformSpecialMove(RulesState& State, const MoveRecord& Record) {
    if (JustCaptures(State, Record)) {
        PerformCapture(State, Record);
        return;
    }
    // 1. The ply below, which begins as this one stands.
    const std::int32_t Side = -State.Side;
    const int Ply = State.Ply;
    const int GameMove = State.GameMoves;
    const int Dest = Record.Dest;
    int Source = Record.Source;
    std::int32_t& Material = State.Material[Ply];
    std::int32_t& TotalMaterial = State.TotalMaterial[Ply];
    MoveMaker Maker(State, Ply);
    State.MoveKingDemoted[GameMove] = 0;

    // 2. Captures.
    if (Record.Captures.Count != 0) {
        State.PlyIrreversible[Ply] = 1;
        for (int I = 0; I < Record.Captures.Count; ++I) {
            const CaptureGroup& Group = Record.Captures.Groups[I];
            Maker.Remove(Group.Cell);
        }
        Material -= 100 * Record.Captures.Weight();
        TotalMaterial -= 100 * Record.Captures.Weight();
        if (State.RuleSet.KingMan == 1 && Dest != Source && IsKing(State.Board[Source])) {
            State.MoveKingDemoted[GameMove] = 1;
            Material -= 100;
            TotalMaterial -= 100;
            Maker.Put(Dest, State.Board[Source] / 2);
            Maker.Remove(Source);
            Source = Dest;
        }
    }

    // 3. The piece. One that ends where it began is taken off the board, and so is a king just demoted; `TakeBackMove`
    // is written against it. Wanted: docs/kept_behaviour.md, "A king whose capture ends where it began".
    if (Source == FromHand) {
        Maker.Put(Dest, Side);
        --InHand(State, Side);
    } else {
        Maker.Move(Source, Dest);
    }

    // 4. Promotion.
    if (Record.Kind != 0) {
        State.PlyIrreversible[Ply] = 1;
        Material -= 100;
        TotalMaterial += 100;
        const bool Turncoat = State.RuleSet.ChangeSide == 1;
        Maker.Put(Dest, (Turncoat ? -1 : 1) * Record.Kind * Side);
        Material += Turncoat ? 200 : 0;
    }

    // 5. The last man of the side now to move may be crowned.
    if (State.RuleSet.ManKing == 1) {
        State.MoveLastManCrowned[GameMove] = static_cast<std::int16_t>(CrownLastMan(State, Maker));
    }
    Maker.Finish();
}

void TakeBackSpecialMove(RulesState& State, const MoveRecord& Record) {
    if (JustCaptures(State, Record)) {
        TakeBackCapture(State, Record);
        return;
    }
    const int Source = Record.Source;
    const int Dest = Record.Dest;
    const int GameMove = State.GameMoves + 1;
    const std::int32_t Side = State.Side;
    if (Source == FromHand) {
        SetCell(State, Dest, Empty);
        ++InHand(State, Side);
    } else if (Dest != Source) {
        const std::int32_t Value = State.Board[Dest];
        SetCell(State, Dest, Empty);
        SetCell(State, Source, Value);
    }
    for (int I = 0; I < Record.Captures.Count; ++I) {
        const CaptureGroup& Group = Record.Captures.Groups[I];
        SetCell(State, Group.Cell, -Side * Group.Weight);
    }
    if (Record.Kind != 0 && Source != FromHand) {
        SetCell(State, Source, Side);
    }
    if (State.RuleSet.ManKing == 1) {
        const int Cell = State.MoveLastManCrowned[GameMove];
        if (Cell != 0) {
            SetCell(State, Cell, -Side);
        } else {
            // Nobody was crowned. Wanted: docs/kept_behaviour.md, "writes to cell 0".
            State.Board[0] = -Side;
        }
    }
    if (State.RuleSet.KingMan == 1 && State.MoveKingDemoted[GameMove] == 1) {
        SetCell(State, Source, 2 * State.Board[Source]);
    }
}

PlayedMove RememberMove(const RulesState& State, int Move) {
    const MoveRecord& Record = State.MoveStack[Move];
    return {Record, Record.Source == FromHand ? Empty : State.Board[Record.Source]};
}

void StepBack(RulesState& State, const PlayedMove& Move, std::int32_t Material, std::int32_t TotalMaterial) {
    State.MoveStack[0] = Move.Record;
    TakeBackMove(State, 0);
    if (Move.Record.Source != FromHand) {
        SetCell(State, Move.Record.Source, Move.Mover);
    }
    State.Ply = 0;
    RecountMaterial(State);
    State.Material[0] = Material;
    State.TotalMaterial[0] = TotalMaterial;
}

int Isamulti(const RulesState& State, int Square, std::int32_t Side) {
    int Count = 1;
    const int Colour = Side == Black ? 1 : 0;
    for (int Index = Colour; Index < PieceIndices; Index += 2) {
        const CellSet Kind = State.Pieces[Index];
        for (const std::int16_t Step : State.MoveDirections[Index]) {
            if (Step == DirectionSentinel) {
                break;
            }
            const int From = Square - Step;
            Count += IsOnBoard(From) && Kind.Contains(From) ? 2 : 0;
        }
    }
    return Count;
}

} // namespace zonterbrook::rules
