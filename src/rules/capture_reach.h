// How many more pieces a flying piece may capture at most, whatever way it goes: enough to know, on a long walk, that a
// capture that is already too short won't become long enough.
//
// Only where jumped pieces stay on the board and block until the capture is over: then what can be jumped from where
// does not change on the way, but that each piece is jumped once.
#pragma once

#include "rules/state.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace zonterbrook::rules {

/// Prey by bits: each enemy piece has one of a number.
using PreySet = std::uint64_t;

class CaptureReach {
public:
    /// `IsFree(Cell)` and `PreyAt(Cell)`: the board as the walk finds it; the latter is empty where there is no prey.
    template <typename Free, typename Prey>
    void Measure(const std::int16_t* Steps, Free&& IsFree, Prey&& PreyAt) {
        Behind.Fill(0);
        CellSet Cells;
        PlayingCells.ForEach([&](int Cell) {
            Seen[Cell] = 0;
            if (IsFree(Cell)) {
                Cells |= SingleCells[Cell];
                VisitJumps(Cell, Steps, IsFree, PreyAt, [&](PreySet Jumped, int) { Seen[Cell] |= Jumped; });
            }
        });
        Cells.ForEach([&](int Cell) {
            VisitJumps(Cell, Steps, IsFree, PreyAt,
                       [&](PreySet Jumped, int Landing) { Behind[std::countr_zero(Jumped)] |= Seen[Landing]; });
        });
    }

    /// Whether `Wanted` more may be captured from there after what has been jumped.
    bool MayCapture(int Wanted, int Cell, PreySet Jumped) const {
        PreySet Found = 0;
        for (PreySet Next = Seen[Cell] & ~Jumped; Next != 0;) {
            Found |= Next;
            if (std::popcount(Found) >= Wanted + Plenty) {
                return true;
            }
            PreySet Beyond = 0;
            for (; Next != 0; Next &= Next - 1) {
                Beyond |= Behind[std::countr_zero(Next)];
            }
            Next = Beyond & ~(Jumped | Found);
        }
        // Where nothing lies behind a piece, it can only be the last one.
        int Ends = 0;
        for (PreySet Next = Found; Next != 0; Next &= Next - 1) {
            Ends += (Behind[std::countr_zero(Next)] & Found & ~(Next & (0 - Next))) == 0 ? 1 : 0;
        }
        return std::popcount(Found) - std::max(Ends - 1, 0) >= Wanted;
    }

private:
    /// With so many more than wanted it isn't worth looking closer.
    static constexpr int Plenty = 3;

    /// Calls `Do(Prey, Landing)` for each landing of each jump.
    template <typename Free, typename Prey, typename Visitor>
    static void VisitJumps(int Cell, const std::int16_t* Steps, Free&& IsFree, Prey&& PreyAt, Visitor&& Do) {
        for (; *Steps != DirectionSentinel; ++Steps) {
            int Taken = Cell + *Steps;
            while (IsFree(Taken)) {
                Taken += *Steps;
            }
            const PreySet Jumped = PreyAt(Taken);
            for (int Landing = Taken + *Steps; Jumped != 0 && IsFree(Landing); Landing += *Steps) {
                Do(Jumped, Landing);
            }
        }
    }

    base::CheckedArray<PreySet, BoardCells> Seen; ///< from each free cell
    base::CheckedArray<PreySet, 64> Behind;       ///< from all landings behind the prey of each number
};

} // namespace zonterbrook::rules
