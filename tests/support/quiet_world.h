// A world in which nothing happens by itself: clock, chance and turns are in the test's hands.
#pragma once

#include "base/outside_world.h"

#include <deque>
#include <functional>

namespace zonterbrook::tests {

/// Has its turn at every node.
class QuietWorld final : public base::OutsideWorld {
public:
    QuietWorld() : OutsideWorld(1) {}

    double Clock = 0;
    std::deque<double> Draws; ///< what chance answers next; 0 when there is none left
    std::function<void()> OnTurn;

    double Seconds() override { return Clock; }
    double Random() override {
        const double Draw = Draws.empty() ? 0 : Draws.front();
        Draws.erase(Draws.begin(), Draws.empty() ? Draws.begin() : Draws.begin() + 1);
        return Draw;
    }

protected:
    void TakeTurn() override {
        if (OnTurn) {
            OnTurn();
        }
    }
};

} // namespace zonterbrook::tests
