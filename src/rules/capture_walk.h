// The capture walk: every capture path of one piece, depth first, on the board itself.
//
// One walk serves the generic generator, the four specialised ones and the legal-move test; they differ in the rules
// provider (walk_rules.h) and in the sink that takes the paths (capture_rows.h). While it runs, jumped pieces stand on
// the board marked by -10 and the mover stands where its path has led it; at the end the board is as it was. The sets
// of pieces beside the board are not touched.
#pragma once

#include "rules/capture_reach.h"
#include "rules/capture_rows.h"
#include "rules/state.h"

#include <algorithm>

namespace zonterbrook::rules {

template <typename Rules, typename Sink>
class CaptureWalk {
public:
    CaptureWalk(RulesState& InState, const Rules& InRule, Sink& InRows)
        : State(InState), Rule(InRule), Rows(InRows), AtRoot(InState.Ply == 0 || InState.AtGamePosition != 0) {
        Path.Clear();
    }

    /// Walks all paths of the piece on `Cell`. Once the walk is no longer wanted, it does nothing.
    void Run(int Cell) {
        if (Interrupted) [[unlikely]] {
            return;
        }
        Begin(Cell);
        // A piece that can't fly and won't learn it on its way needs none of what flying takes.
        if (Flying || (Rule.Is.CrownsOnTheWay && IsMan(Piece))) {
            Walk<true>();
        } else {
            Walk<false>();
        }
    }

    /// Pieces in the path that is being walked; for the message of a fault.
    int PathLength() const { return Path.Count; }

private:
    /// Jumps of one piece before the first pause, and between two pauses: some microseconds, which is next to nothing
    /// beside what a pause costs. Hardly any walk comes to its first.
    static constexpr int FirstPause = 128;
    static constexpr int NextPause = 1024;
    /// Bits of a key beside those of pieces: the last step, whether the mover is a king, its cell.
    static constexpr int MostNumbered = WalkedStates::KeyBits - 6 - 1 - 7;

    enum class Outcome { Failed, Jumped, Stopped };

    /// One jump of the path and the search for the next one from its start.
    struct Level {
        const std::int16_t* Next; ///< the capture steps still to be tried from here
        int Reach;                ///< how many squares behind the jumped piece the landing is tried
        int Step;                 ///< of the jump made from here
        int Start;
        int Taken;
        // Where captures count as sets:
        int Longest;     ///< pieces in the longest path through the state walked from here
        int StopsBefore; ///< what `Stops` was on arrival
        bool Remembers;  ///< the state walked from here may be remembered
    };

    void Begin(int Cell) {
        Source = Cell;
        Position = Cell;
        Piece = State.Board[Cell];
        Turn(Piece);
        Flying = (Rule.Is.LongKings && IsKing(Piece)) || (Rule.Is.ManCapMoveKing && IsMan(Piece));
        Path.Clear();
        LastSaved.Clear();
        PathLongest = 0;
        Undone = false;
        CrownedAt = nullptr;
        Untouched = Levels.begin();
        Stops = 0;
        Remembering = false;
        JumpsToPause = FirstPause;
    }

    template <bool MayFly>
    void Walk() {
        Level* Here = Levels.begin();
        Arrive<MayFly>(*Here);
        for (;;) {
            if (*Here->Next != DirectionSentinel) {
                ++Here->Next;
            } else {
                // All directions are tried from here: the path has met its end at the level above.
                if (Here == Levels.begin()) {
                    return;
                }
                --Here;
                if (Rule.Is.ComparesSets) {
                    LeaveState(*Here, Here[1]);
                }
                EndPath(*Here);
                if (!TriesNextLanding<MayFly>()) {
                    continue;
                }
            }
            Outcome Result = Probe<MayFly>(*Here);
            while (Result == Outcome::Stopped && TriesNextLanding<MayFly>()) {
                Result = Probe<MayFly>(*Here);
            }
            if (Result == Outcome::Jumped) {
                if (Interrupted) [[unlikely]] {
                    for (++Here; Here != Levels.begin();) {
                        UndoJump(*--Here);
                    }
                    return;
                }
                if (++Here == Levels.end()) [[unlikely]] {
                    base::FailIndex(CaptureLevels, CaptureLevels);
                }
                Arrive<MayFly>(*Here);
            }
        }
    }

    template <bool MayFly>
    void Arrive(Level& Here) {
        Here.Next = Steps;
        // A level's reach outlives the level: only its first use in this walk begins at 0.
        if (MayFly && &Here == Untouched) {
            Here.Reach = 0;
            ++Untouched;
        }
        if (Rule.Is.ComparesSets) {
            Here.Longest = Path.Count;
            Here.StopsBefore = Stops;
            Here.Remembers = Remembering && DependsOnStateAlone(Here);
        }
    }

    /// The mover becomes `NewCode`: its steps follow, and what it may take.
    void Turn(std::int32_t NewCode) {
        Code = NewCode;
        Steps = State.MoveDirections[PieceIndex(Code) + 4].begin();
        PreyMan = Code > 0 ? BlackMan : WhiteMan;
        PreyKing = IsKing(Code) || Rule.Is.ManCapKing ? 2 * PreyMan : PreyMan;
    }

    /// After a capture has been looked into: a flying piece may land further behind the same piece.
    template <bool MayFly>
    bool TriesNextLanding() const {
        return MayFly && Flying && !Rule.Is.KingFirst;
    }

    bool CanTake(std::int32_t Value) const { return Value == PreyMan || Value == PreyKing; }

    bool CanLand(int Cell) const { return Cell >= FirstCell && Cell < BoardCells && State.Board[Cell] == Empty; }

    /// Looks for a jump by the step taken last and makes it.
    template <bool MayFly>
    Outcome Probe(Level& Here) {
        const int Step = Here.Next[-1];
        if constexpr (MayFly) {
            // A failure leaves `Reach` raised: a man crowned on its way begins from there when it comes by this depth
            // again as a king, which decides which landings it is offered. Wanted: docs/kept_behaviour.md, "man crowned
            // on its way".
            ++Here.Reach;
            if (Flying) {
                return ProbeFlying(Here, Step);
            }
        }
        const int Taken = Position + Step;
        if (!CanTake(State.Board[Taken]) || !CanLand(Taken + Step)) {
            return Outcome::Failed;
        }
        return Jump(Here, Step, Taken, Taken + Step);
    }

    Outcome ProbeFlying(Level& Here, int Step) {
        const int Taken = FirstPieceOnLine(Here, Step);
        if (Taken == 0 || !CanTake(State.Board[Taken])) {
            if (Taken == 0 || !Rule.Is.KingFirst) {
                Here.Reach = 0;
            }
            return Outcome::Failed;
        }
        if (Rule.Is.KingFirst) {
            return CanLand(Taken + Step) ? Jump(Here, Step, Taken, Taken + Step) : Outcome::Failed;
        }
        for (;; ++Here.Reach) {
            const int Landing = Taken + Here.Reach * Step;
            const bool InArray = Landing >= 0 && Landing < BoardCells;
            const std::int32_t Value = InArray ? State.Board[Landing] : Border;
            if (Value == Empty && Landing >= FirstCell) {
                return Jump(Here, Step, Taken, Landing);
            }
            // Jumped pieces may be passed over if they do not block.
            if (Rule.Is.RemovePieces || Value >= BlackKing) {
                Here.Reach = 0;
                return Outcome::Failed;
            }
        }
    }

    /// The first piece on the line that may be looked at, 0 if something blocks before it.
    int FirstPieceOnLine(const Level& Here, int Step) const {
        const bool Backwards = &Here != Levels.begin() && Step == -(&Here)[-1].Step;
        for (int Cell = Position + Step;; Cell += Step) {
            const std::int32_t Value = State.Board[Cell];
            if (Value == Empty) {
                continue;
            }
            if (Value == Border) {
                return 0;
            }
            if (Value < BlackKing) {
                if (Rule.Is.RemovePieces) {
                    return 0;
                }
                continue;
            }
            // Straight back no piece counts; the line is walked to its end for nothing.
            if (Backwards && !Rule.Is.CapReverse) {
                continue;
            }
            return Cell;
        }
    }

    Outcome Jump(Level& Here, int Step, int Taken, int Landing) {
        if (Rule.Is.LastCap && &Here == Levels.begin() && AtRoot && Taken == State.MoveDest[State.GameMoves]) {
            Rows.NoteLastCap();
        }
        Undone = false;
        Here.Step = Step;
        Here.Start = Position;
        Here.Taken = Taken;
        const std::int32_t Value = State.Board[Taken];
        Path.Append(Taken, IsKing(Value));
        PathLongest = std::max<int>(PathLongest, Path.Count);
        if (Remembering) {
            Jumped |= PreyBits[Taken];
        }
        State.Board[Taken] = Value - JumpedMark;
        State.Board[Position] = Empty;
        Position = Landing;
        const bool OnPromotion = IsMan(Code) && IsPromotionSquare(Landing);
        if (OnPromotion && Rule.Is.CrownsOnTheWay && CrownedAt == nullptr) {
            CrownedAt = &Here;
            FlyingBefore = Flying;
            Turn(2 * Code);
            Flying = true;
        }
        State.Board[Landing] = Code;
        if (--JumpsToPause == 0) [[unlikely]] {
            Pause();
        }
        if (Rule.Is.ContinuesOnPromotion || !OnPromotion) {
            if (Remembering && (StaysTooShort() || KnowsState(Here))) {
                UndoJump(Here);
                return Outcome::Stopped;
            }
            return Outcome::Jumped;
        }
        Save(true, Path);
        ++Stops;
        UndoJump(Here);
        return Outcome::Stopped;
    }

    /// A long walk lets others have their turn, and begins to remember where it has been.
    void Pause() {
        JumpsToPause = NextPause;
        if (Rule.Is.ComparesSets && !Remembering && NumberPrey()) {
            Remembering = true;
            State.Walked.Restart();
            MeasureReach();
        }
        Interrupted = State.Interrupts != nullptr && State.Interrupts(State);
    }

    /// Gives each enemy piece a bit of its own in the keys of states; false if there are too many.
    bool NumberPrey() {
        const int Enemy = 1 - ColourIndex(Piece > 0 ? White : Black);
        const CellSet Prey = State.Pieces[Enemy] | State.Pieces[Enemy + 2];
        int Number = 0;
        PreyBits.Fill(0);
        Prey.ForEach([&](int Cell) { PreyBits[Cell] = PreySet{1} << (static_cast<unsigned>(Number++) & 63U); });
        Jumped = 0;
        for (int I = 0; I < Path.Count; ++I) {
            Jumped |= PreyBits[Path.Groups[I].Cell];
        }
        return Number <= MostNumbered;
    }

    /// Where a path that is too short is not stored, and nothing that is stored on the way hangs on its length.
    void MeasureReach() {
        HasReach = Rule.Is.DropsShorterSets && Rule.Is.RemovePieces && Flying && IsKing(Piece);
        if (HasReach) {
            Reach.Measure(
                Steps, [&](int Cell) { return Cell == Position || State.Board[Cell] == Empty; },
                [&](int Cell) {
                    const std::int32_t Value = State.Board[Cell];
                    return CanTake(Value) || CanTake(Value + JumpedMark) ? PreyBits[Cell] : PreySet{0};
                });
        }
    }

    /// True if no path from here can be as long as one that is stored already.
    bool StaysTooShort() const {
        return HasReach && Path.Count < Rows.Longest() &&
               !Reach.MayCapture(Rows.Longest() - Path.Count, Position, Jumped);
    }

    /// The state to which the jump `Last` has led.
    std::uint64_t KeyAfter(const Level& Last) const {
        // The last step matters to whom flies and must not turn straight back, unless the piece just jumped blocks that
        // way anyway.
        const bool MayTurnBack = !Flying || Rule.Is.CapReverse || Rule.Is.RemovePieces;
        const auto Step = static_cast<unsigned>(MayTurnBack ? 0 : Last.Step + 32);
        return ((Jumped << 6U | Step) << 1U | (IsKing(Code) ? 1U : 0U)) << 7U |
               static_cast<unsigned>(Position - FirstCell);
    }

    /// What is walked from here hangs on the state alone. That isn't so as long as a man may be crowned on its way: the
    /// reaches that it leaves behind decide where it may land as a king.
    bool DependsOnStateAlone(const Level& Here) const {
        if (!Rule.Is.CrownsOnTheWay || IsKing(Piece) || Rule.Is.ManCapMoveKing || Rule.Is.KingFirst) {
            return true;
        }
        return IsKing(Code) && std::all_of(&Here, static_cast<const Level*>(Untouched),
                                           [](const Level& Deeper) { return Deeper.Reach == 0; });
    }

    /// True if all has been walked before from where the jump just made has led. The rows hold whatever may come of it
    /// then, so that it is left as if they had been compared one by one.
    bool KnowsState(Level& Here) {
        const int Longest = DependsOnStateAlone((&Here)[1]) ? State.Walked.LongestThrough(KeyAfter(Here)) : 0;
        if (Longest == 0) {
            return false;
        }
        Here.Longest = std::max(Here.Longest, Longest);
        if (!Rule.Is.DropsShorterSets || Longest >= Rows.Longest()) {
            LastSaved = Path;
        }
        return true;
    }

    /// All has been walked from where the jump `Last` has led. What stops on a promotion square is stored in every
    /// order of the pieces, and so has to be walked in every order.
    void LeaveState(Level& Last, const Level& Left) {
        Last.Longest = std::max(Last.Longest, Left.Longest);
        if (Left.Remembers && Left.StopsBefore == Stops) {
            State.Walked.Remember(KeyAfter(Last), Left.Longest, Left.Longest - Path.Count);
        }
    }

    bool IsPromotionSquare(int Cell) const {
        return Rule.Promotion[ColourIndex(Code > 0 ? White : Black)].Contains(Cell);
    }

    /// The path cannot go on: store it if it is a capture of its own, and take its last jump back.
    void EndPath(const Level& Here) {
        if (Rule.Is.EveryPrefix || !IsPrefix(Path, LastSaved) || (Rule.Is.LongKings && !Undone)) {
            const bool Promotes =
                CrownedAt != nullptr || (Rule.Is.CrownsAtEnd && IsMan(Code) && IsPromotionSquare(Position));
            if (!Rule.Is.ComparesSets) {
                Save(Promotes, Path);
            } else if (!Rule.Is.DropsShorterSets || Path.Count >= Rows.Longest()) {
                const CapturePath Sorted = SortedByCell(Path);
                if (Rows.Has(Source, Position, Sorted)) {
                    // Counts as saved, or its own beginnings would be taken for captures left unfinished.
                    LastSaved = Path;
                } else {
                    Save(Promotes, Sorted);
                }
            }
        }
        UndoJump(Here);
    }

    void Save(bool Promotes, const CapturePath& Text) {
        Rows.Store(Rule, Source, Position, Promotes, Piece, PathLongest, Text);
        LastSaved = Path;
    }

    void UndoJump(const Level& Here) {
        Path.RemoveLast();
        State.Board[Position] = Empty;
        if (CrownedAt == &Here) {
            CrownedAt = nullptr;
            Turn(Piece);
            Flying = FlyingBefore;
        }
        State.Board[Here.Taken] += JumpedMark;
        if (Remembering) {
            Jumped &= ~PreyBits[Here.Taken];
        }
        Position = Here.Start;
        State.Board[Position] = Code;
        Undone = true;
    }

    RulesState& State;
    const Rules& Rule;
    Sink& Rows;
    const bool AtRoot;
    const std::int16_t* Steps; ///< the mover's capture column
    int Source;
    int Position;
    std::int32_t Piece; ///< the mover before the capture
    std::int32_t Code;  ///< the mover now
    std::int32_t PreyMan;
    std::int32_t PreyKing; ///< again the man's value if kings can't be taken
    bool Flying;
    bool Undone;
    bool FlyingBefore = false;
    const Level* CrownedAt; ///< from which the mover was crowned on its way
    int PathLongest;
    CapturePath Path;
    CapturePath LastSaved;
    int JumpsToPause;
    bool Interrupted = false;
    bool Remembering;
    int Stops; ///< paths that have ended on a promotion square
    // Once the walk remembers:
    base::CheckedArray<PreySet, BoardCells> PreyBits; ///< by the cell of an enemy piece
    PreySet Jumped;
    bool HasReach;
    CaptureReach Reach;
    Level* Untouched; ///< no level from this one on has been used by the piece
    base::CheckedArray<Level, CaptureLevels> Levels;
};

} // namespace zonterbrook::rules
