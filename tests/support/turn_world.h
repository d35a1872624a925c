// A world that has its turn at every node of a search. Clock and chance are those of the scripted one.
#pragma once

#include "base/outside_world.h"

#include <cstdint>
#include <functional>

namespace zonterbrook::tests {

class TurnWorld : public base::OutsideWorld {
public:
    std::function<void()> OnNode;
    std::uint64_t Nodes = 0;

    explicit TurnWorld(base::OutsideWorld& InOuter) : OutsideWorld(1), Outer(InOuter) {}

    double Seconds() override { return Outer.Seconds(); }
    double Random() override { return 0.5; }

protected:
    void TakeTurn() override {
        ++Nodes;
        if (OnNode) {
            OnNode();
        }
    }

private:
    base::OutsideWorld& Outer;
};

} // namespace zonterbrook::tests
