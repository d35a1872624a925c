// What a capture walk remembers of itself where captures count as sets: the states from which it has been on before.
//
// A piece that captures in many directions takes the same pieces in many orders, and walks everything behind each of
// them again. Where equal sets count once, nothing new can come of a state - where the mover stands, what it has
// jumped, what it is, and where it came from if it must not turn back - from which all has been walked already.
#pragma once

#include "rules/cells.h"

#include <cstddef>
#include <cstdint>

namespace zonterbrook::rules {

/// A table of states by their keys. It forgets a state when another one needs its place: the walk then goes that way
/// again.
class WalkedStates {
public:
    /// Bits of a key.
    static constexpr unsigned KeyBits = 52;
    /// Pieces in a path at most.
    static constexpr int MostPieces = 31;

    /// Forgets everything: a new walk begins.
    void Restart() {
        if (++Walk > LastWalk) {
            Pairs.Fill({});
            Walk = 1;
        }
    }

    /// How many pieces the longest path through the state takes, 0 if it is not known.
    int LongestThrough(std::uint64_t Key) const {
        const Pair& Place = Pairs[PlaceOf(Key)];
        for (const std::uint64_t Entry : {Place.Deep, Place.Last}) {
            if (Entry >> LongestBits == Tagged(Key)) {
                return static_cast<int>(Entry & MostPieces);
            }
        }
        return 0;
    }

    /// `Behind`: how many pieces the longest path takes from the state on. Of the two states of a place one is the last
    /// and the other one that saves much.
    void Remember(std::uint64_t Key, int Longest, int Behind) {
        Pair& Place = Pairs[PlaceOf(Key)];
        const std::uint64_t Entry = Tagged(Key) << LongestBits | static_cast<unsigned>(Longest);
        if (Behind >= Place.Behind || Place.Walk != Walk) {
            Place.Deep = Entry;
            Place.Behind = static_cast<std::uint16_t>(Behind);
            Place.Walk = Walk;
        } else {
            Place.Last = Entry;
        }
    }

private:
    static constexpr unsigned PlaceBits = 15;
    static constexpr unsigned LongestBits = 5;
    static constexpr unsigned WalkBits = 64 - KeyBits - LongestBits;
    static constexpr std::uint16_t LastWalk = (1U << WalkBits) - 1;

    struct Pair {
        std::uint64_t Deep;
        std::uint64_t Last;
        std::uint16_t Behind;
        std::uint16_t Walk;
    };

    std::uint64_t Tagged(std::uint64_t Key) const { return Key << WalkBits | Walk; }

    static std::size_t PlaceOf(std::uint64_t Key) { return Key * 0x9E3779B97F4A7C15ULL >> (64U - PlaceBits); }

    std::uint16_t Walk = 0;
    base::CheckedArray<Pair, std::size_t{1} << PlaceBits> Pairs{};
};

} // namespace zonterbrook::rules
