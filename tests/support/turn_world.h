// A game in which the test has its turn at every node of a search. Clock and chance are those of the scripted world.
#pragma once

#include "support/game_fixture.h"

#include <cstdint>
#include <functional>

namespace zonterbrook::tests {

class TurnWorld final : public base::OutsideWorld {
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

/// The computer plays without noise.
class ThinkingFixture : public GameFixture {
protected:
    TurnWorld Nodes{World};

    void SetUp() override {
        GameFixture::SetUp();
        State.World = &Nodes;
        State.Strength = 0;
    }
};

} // namespace zonterbrook::tests
