// Putting moves on the stack: what the generators do with a move once they have found it.
//
// A writer is held for one generator call. It keeps the top of the stack and the moves that a search would like to see
// first at hand, so that a move costs a few stores; `Finish` hands the ply to the state.
#pragma once

#include "rules/state.h"

#include <cstdlib>

namespace zonterbrook::rules {

/// The ordering bonuses of the moves that a search would like to see first.
class MoveOrdering {
public:
    explicit MoveOrdering(const RulesState& State) {
        const WantedMoves& Wanted = State.Wanted[State.Ply];
        MainLine = Ends(Wanted.MainLine.Source, Wanted.MainLine.Dest);
        FirstKiller = Ends(Wanted.Killers[0].Source, Wanted.Killers[0].Dest);
        SecondKiller = Ends(Wanted.Killers[1].Source, Wanted.Killers[1].Dest);
        // The index is the one before the ply's own: the square that the mover's last move but one reached.
        RecaptureDest = State.Ply > 0 ? State.PlyDest[State.Ply - 1] : 0;
        Sources = BitOf(Wanted.MainLine.Source) | BitOf(Wanted.Killers[0].Source) | BitOf(Wanted.Killers[1].Source);
    }

    /// False if no move from there has a bonus of its own.
    bool Concerns(int From) const { return (Sources >> (static_cast<unsigned>(From) & 63U) & 1U) != 0; }

    std::int32_t Bonus(int From, int To) const {
        const std::int32_t Move = Ends(From, To);
        return Move == MainLine ? 500 : Move == FirstKiller ? 250 : Move == SecondKiller ? 150 : 0;
    }

    std::int32_t RecaptureBonus(int To) const { return To == RecaptureDest ? 300 : 0; }

private:
    static constexpr std::int32_t Ends(std::int32_t From, std::int32_t To) { return From * 256 + To; }

    static constexpr std::uint64_t BitOf(std::int32_t Cell) {
        return (Cell != 0 ? std::uint64_t{1} : 0) << (static_cast<unsigned>(Cell) & 63U);
    }

    std::uint64_t Sources; ///< cells with the same last six bits share one
    std::int32_t MainLine;
    std::int32_t FirstKiller;
    std::int32_t SecondKiller;
    std::int32_t RecaptureDest; ///< where the move before the last one landed, 0 if there is none
};

/// Writes the moves of one ply, from `Base` upward.
class MoveWriter {
public:
    MoveWriter(RulesState& InState, int Base) : State(InState), Order(InState) { Restart(Base); }

    /// Whether a move from there may have a bonus.
    bool Concerns(int Source) const { return Order.Concerns(Source); }

    /// The record's `Stepper` for plain moves of a piece of that index. With `ManKing` any move may crown.
    std::uint8_t StepperOf(int Index) const {
        return static_cast<std::uint8_t>(State.RuleSet.ManKing == 1 ? 0 : Index + 1);
    }

    /// A plain move. Its score is its bonus alone. `Concerned`: what `Concerns` says of the source.
    [[gnu::always_inline]] void RegisterStep(std::uint8_t Stepper, int Source, int Dest, bool Concerned) {
        MoveRecord& Record = *Next;
        Record.Source = Source;
        Record.Dest = Dest;
        Record.Kind = 0;
        Record.Score = Concerned ? Order.Bonus(Source, Dest) : 0;
        Record.Stepper = Stepper;
        Record.Captures.Count = 0;
        Advance();
    }

    /// A plain move that is more than a step, such as an entry.
    void RegisterMove(int Source, int Dest) { RegisterStep(0, Source, Dest, true); }

    /// A capture. Its score is what it takes less half of the mover's worth, with the bonuses added. Faults when the
    /// path is longer than a record holds.
    void RegisterCaptureMove(int Source, int Dest, const CapturePath& Path) {
        if (Path.Count > MaxCaptures) [[unlikely]] {
            base::FailIndex(Path.Count, MaxCaptures);
        }
        MoveRecord& Record = *Next;
        Record.Source = Source;
        Record.Dest = Dest;
        Record.Kind = 0;
        Record.Score = 100 * Path.Weight() - 50 * std::abs(State.Board[Source]) + Order.RecaptureBonus(Dest) +
                       Order.Bonus(Source, Dest);
        Record.Stepper = 0;
        Record.Captures = Path;
        Advance();
    }

    /// A promotion: a capture, or with an empty path a plain move.
    void RegisterPromotion(int Source, int Dest, const CapturePath& Path) {
        if (Path.Count != 0) {
            RegisterCaptureMove(Source, Dest, Path);
        } else {
            RegisterMove(Source, Dest);
        }
        // With the stack full this marks the record below the one just written. Nobody plays from a full stack.
        MoveRecord& Written = State.MoveStack[Top() - 1];
        Written.Kind = 2;
        Written.Stepper = 0;
    }

    /// True if nothing has been written above `Base`.
    bool IsAt(int Base) const { return Top() == Base; }

    /// Takes back what has been written so far.
    void Restart(int Base) { Next = &State.MoveStack[Base]; }

    /// Goes on where a copy of this writer stopped.
    void Adopt(const MoveWriter& Copy) { Next = Copy.Next; }

    /// The ply holds what has been written.
    void Finish() {
        State.StackTop = Top();
        State.StackLimit[State.Ply + 1] = State.StackTop;
    }

    /// What has been written is on the stack, and belongs to no ply.
    void FinishLoose() { State.StackTop = Top(); }

private:
    /// A full stack asks the search to stop and keeps overwriting its last record.
    void Advance() {
        if (Next != &State.MoveStack[StackFull]) {
            ++Next;
        } else {
            State.CancelRequested = StopRequest::Person;
        }
    }

    int Top() const { return static_cast<int>(Next - State.MoveStack.begin()); }

    RulesState& State;
    const MoveOrdering Order;
    MoveRecord* Next; ///< never beyond the record at `StackFull`
};

} // namespace zonterbrook::rules
