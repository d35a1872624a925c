// What the engine sees of the world: a clock, chance, and the chance for others to have their turn.
//
// The search yields at every node. Nearly all yields are one decrement; every so often the host is given a real turn,
// in which a window may handle its events. A handler that runs in such a turn may only raise flags.
#pragma once

#include <algorithm>
#include <cstdint>

namespace zonterbrook::base {

/// Work that wants to look up at each turn, such as a search that plays by time.
class TurnListener {
public:
    TurnListener() = default;
    TurnListener(const TurnListener&) = delete;
    TurnListener& operator=(const TurnListener&) = delete;
    virtual ~TurnListener() = default;

    virtual void TurnTaken() = 0;
};

/// Implemented by the window, by the console and by tests. The engine holds a pointer to one and owns nothing.
class OutsideWorld {
public:
    /// `InNodesPerTurn`: at least 1. Only a test has a reason to change it.
    explicit OutsideWorld(std::uint32_t InNodesPerTurn = UsualNodesPerTurn)
        : NodesPerTurn(InNodesPerTurn), NodesLeft(InNodesPerTurn) {}
    OutsideWorld(const OutsideWorld&) = delete;
    OutsideWorld& operator=(const OutsideWorld&) = delete;
    virtual ~OutsideWorld() = default;

    /// Seconds since midnight, with fractions. Wraps to 0 at midnight.
    virtual double Seconds() = 0;

    /// A uniform random number, 0 up to but not including 1.
    virtual double Random() = 0;

    /// Called at every node of a search. Nearly free: see `NodesPerTurn`.
    void Yield() {
        if (--NodesLeft == 0) [[unlikely]] {
            NodesLeft = NodesPerTurn;
            TakeTurn();
            if (Listener != nullptr) {
                Listener->TurnTaken();
            }
        }
    }

    /// Called by work inside a node that takes as long as so many nodes.
    void Yield(std::uint32_t Nodes) {
        NodesLeft -= std::min(Nodes, NodesLeft - 1);
        Yield();
    }

    /// Hears of each turn once the host has had it. One listener at a time; null: nobody.
    void SetTurnListener(TurnListener* InListener) { Listener = InListener; }

protected:
    /// Lets the host work: handle the events that are due, no more.
    virtual void TakeTurn() = 0;

private:
    /// A turn costs a look at the clock, some tens of nanoseconds; a node some hundred. With this many nodes between
    /// two turns the looks vanish in the search, and an event waits a millisecond at most.
    static constexpr std::uint32_t UsualNodesPerTurn = 1024;

    std::uint32_t NodesPerTurn;
    std::uint32_t NodesLeft;
    TurnListener* Listener = nullptr;
};

} // namespace zonterbrook::base
