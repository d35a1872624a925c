// The capture walk: every capture path of one piece, depth first, on the board itself.
//
// One walk serves the generic generator, the four specialised ones and the legal-move test; they differ in the rules
// provider (walk_rules.h) and in the sink that takes the paths (capture_rows.h). While it runs, jumped pieces stand on
// the board marked by -10 and the mover stands where its path has led it; at the end the board is as it was. The sets
// of pieces beside the board are not touched.
#pragma once

#include "rules/capture_rows.h"
#include "rules/state.h"

namespace zonterbrook::rules {

template <typename Rules, typename Sink>
class CaptureWalk {
public:
    CaptureWalk(RulesState& InState, const Rules& InRule, Sink& InRows)
        : State(InState), Rule(InRule), Rows(InRows), AtRoot(InState.Ply == 0 || InState.AtGamePosition != 0) {}

    /// Walks all paths of the piece on `Cell`.
    void Run(int Cell) {
        Begin(Cell);
        Deepen();
        for (;;) {
            if (!NextDirection()) {
                // All directions are tried from here: the path has met its end at the level above.
                if (--Depth < 0) {
                    return;
                }
                EndPath();
                if (!TriesNextLanding()) {
                    continue;
                }
            }
            Outcome Result = Probe();
            while (Result == Outcome::Stopped && TriesNextLanding()) {
                Result = Probe();
            }
            if (Result == Outcome::Jumped) {
                Deepen();
            }
        }
    }

    /// Pieces in the path that is being walked; for the message of a fault.
    int PathLength() const { return Path.Count; }

private:
    enum class Outcome { Failed, Jumped, Stopped };

    /// One jump of the path and the search for the next one from its start.
    struct Level {
        int Direction; ///< position in the capture column, -1 before the first
        int Reach;     ///< how many squares behind the jumped piece the landing is tried
        int Step;      ///< of the jump made from here
        int Start;
        int Taken;
    };

    void Begin(int Cell) {
        Source = Cell;
        Position = Cell;
        Piece = State.Board[Cell];
        Turn(Piece);
        Flying = (Rule.LongKings && IsKing(Piece)) || (Rule.ManCapMoveKing && IsMan(Piece));
        Depth = -1;
        Touched = -1;
        Path.Count = 0;
        LastSaved.Count = 0;
        PathLongest = 0;
        Undone = false;
        Crowned = false;
    }

    /// The mover becomes `NewCode`: its steps follow.
    void Turn(std::int32_t NewCode) {
        Code = NewCode;
        Steps = &State.MoveDirections[PieceIndex(Code) + 4];
    }

    void Deepen() {
        ++Depth;
        // A level's reach outlives the level: only its first use in this walk begins at 0.
        if (Depth > Touched) {
            Levels[Depth].Direction = -1;
            Levels[Depth].Reach = 0;
            Touched = Depth;
        }
    }

    bool NextDirection() {
        Level& Here = Levels[Depth];
        if ((*Steps)[++Here.Direction] != DirectionSentinel) {
            return true;
        }
        Here.Direction = -1;
        return false;
    }

    /// After a capture has been looked into: a flying piece may land further behind the same piece.
    bool TriesNextLanding() const { return Flying && !Rule.KingFirst; }

    bool CanTake(std::int32_t Value) const {
        if (Code > 0) {
            return Value == BlackMan || (Value == BlackKing && (Code == WhiteKing || Rule.ManCapKing));
        }
        return Value == WhiteMan || (Value == WhiteKing && (Code == BlackKing || Rule.ManCapKing));
    }

    /// Looks for a jump in the current direction and makes it.
    Outcome Probe() {
        Level& Here = Levels[Depth];
        const int Step = (*Steps)[Here.Direction];
        ++Here.Reach;
        return Flying ? ProbeFlying(Here, Step) : ProbeNear(Here, Step);
    }

    Outcome ProbeNear(Level& Here, int Step) {
        // A failure leaves `Reach` raised: a man crowned on its way begins from there when it comes by this depth
        // again as a king. Wanted: it decides which landings such a king is offered.
        const int Taken = Position + Step;
        const int Landing = Taken + Step;
        if (!CanTake(State.Board[Taken]) || Landing < FirstCell || Landing >= BoardCells ||
            State.Board[Landing] != Empty) {
            return Outcome::Failed;
        }
        return Jump(Here, Step, Taken, Landing);
    }

    Outcome ProbeFlying(Level& Here, int Step) {
        const int Taken = FirstPieceOnLine(Step);
        if (Taken == 0 || !CanTake(State.Board[Taken])) {
            if (Taken == 0 || !Rule.KingFirst) {
                Here.Reach = 0;
            }
            return Outcome::Failed;
        }
        if (Rule.KingFirst) {
            const int Landing = Taken + Step;
            if (Landing < FirstCell || Landing >= BoardCells || State.Board[Landing] != Empty) {
                return Outcome::Failed;
            }
            return Jump(Here, Step, Taken, Landing);
        }
        for (;; ++Here.Reach) {
            const int Landing = Taken + Here.Reach * Step;
            const bool InArray = Landing >= 0 && Landing < BoardCells;
            const std::int32_t Value = InArray ? State.Board[Landing] : Border;
            if (Value == Empty && Landing >= FirstCell) {
                return Jump(Here, Step, Taken, Landing);
            }
            // Jumped pieces may be passed over if they do not block.
            if (Rule.RemovePieces || Value >= BlackKing) {
                Here.Reach = 0;
                return Outcome::Failed;
            }
        }
    }

    /// The first piece on the line that may be looked at, 0 if something blocks before it.
    int FirstPieceOnLine(int Step) const {
        const bool Backwards = Depth > 0 && Step == -Levels[Depth - 1].Step;
        for (int Cell = Position + Step;; Cell += Step) {
            const std::int32_t Value = State.Board[Cell];
            if (Value == Empty) {
                continue;
            }
            if (Value == Border) {
                return 0;
            }
            if (Value < BlackKing) {
                if (Rule.RemovePieces) {
                    return 0;
                }
                continue;
            }
            // Straight back no piece counts; the line is walked to its end for nothing.
            if (Backwards && !Rule.CapReverse) {
                continue;
            }
            return Cell;
        }
    }

    Outcome Jump(Level& Here, int Step, int Taken, int Landing) {
        if (Rule.LastCap && Depth == 0 && AtRoot && Taken == State.MoveDest[State.GameMoves]) {
            Rows.NoteLastCap();
        }
        Undone = false;
        Here.Step = Step;
        Here.Start = Position;
        Here.Taken = Taken;
        const std::int32_t Value = State.Board[Taken];
        Path.Groups[Path.Count] = {static_cast<std::uint8_t>(Taken), static_cast<std::uint8_t>(IsKing(Value) ? 2 : 1)};
        ++Path.Count;
        PathLongest = std::max<int>(PathLongest, Path.Count);
        State.Board[Taken] = Value - JumpedMark;
        State.Board[Position] = Empty;
        Position = Landing;
        const bool OnPromotion = IsMan(Code) && IsPromotionSquare(Landing);
        if (OnPromotion && Rule.CrownsOnTheWay && !Crowned) {
            Crowned = true;
            CrownedDepth = Depth;
            FlyingBefore = Flying;
            Turn(2 * Code);
            Flying = true;
        }
        State.Board[Landing] = Code;
        if (Rule.ContinuesOnPromotion || !OnPromotion) {
            return Outcome::Jumped;
        }
        Save(true, Path);
        UndoJump();
        return Outcome::Stopped;
    }

    bool IsPromotionSquare(int Cell) const {
        return Rule.Promotion[ColourIndex(Code > 0 ? White : Black)].Contains(Cell);
    }

    /// The path cannot go on: store it if it is a capture of its own, and take its last jump back.
    void EndPath() {
        if (Rule.EveryPrefix || !IsPrefix(Path, LastSaved) || (Rule.LongKings && !Undone)) {
            const bool Promotes = Crowned || (Rule.CrownsAtEnd && IsMan(Code) && IsPromotionSquare(Position));
            if (!Rule.ComparesSets) {
                Save(Promotes, Path);
            } else if (!Rule.DropsShorterSets || Path.Count >= Rows.Longest()) {
                const CapturePath Sorted = SortedByCell(Path);
                if (Rows.Has(Source, Position, Sorted)) {
                    // Counts as saved, or its own beginnings would be taken for captures left unfinished.
                    LastSaved = Path;
                } else {
                    Save(Promotes, Sorted);
                }
            }
        }
        UndoJump();
    }

    void Save(bool Promotes, const CapturePath& Text) {
        Rows.Store(Source, Position, Promotes, Piece, PathLongest, Text);
        LastSaved = Path;
    }

    void UndoJump() {
        const Level& Here = Levels[Depth];
        --Path.Count;
        State.Board[Position] = Empty;
        if (Crowned && Depth == CrownedDepth) {
            Crowned = false;
            Turn(Piece);
            Flying = FlyingBefore;
        }
        State.Board[Here.Taken] += JumpedMark;
        Position = Here.Start;
        State.Board[Position] = Code;
        Undone = true;
    }

    RulesState& State;
    const Rules& Rule;
    Sink& Rows;
    const bool AtRoot;
    const DirectionColumn* Steps = nullptr;
    int Source = 0;
    int Position = 0;
    std::int32_t Piece = 0; ///< the mover before the capture
    std::int32_t Code = 0;  ///< the mover now
    bool Flying = false;
    bool Undone = false;
    bool Crowned = false;
    bool FlyingBefore = false;
    int CrownedDepth = 0;
    int Depth = -1;
    int Touched = -1;
    int PathLongest = 0;
    CapturePath Path;
    CapturePath LastSaved;
    base::CheckedArray<Level, CaptureLevels> Levels;
};

} // namespace zonterbrook::rules
