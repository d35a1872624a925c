// A game for the engine's tests: a state under given rules at a given position, and a world whose clock and chance the
// test holds in its hands.
#pragma once

#include "base/outside_world.h"
#include "engine/root_search.h"
#include "engine/state.h"
#include "support/position_text.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string_view>

namespace zonterbrook::tests {

/// Has its turn at every node.
class HeldWorld final : public base::OutsideWorld {
public:
    HeldWorld() : OutsideWorld(1) {}

    double Clock = 0;
    std::deque<double> Draws; ///< what chance answers next; 0 when there is none left
    std::function<void()> OnTurn;

    double Seconds() override { return Clock; }
    double Random() override {
        const double Draw = Draws.empty() ? 0 : Draws.front();
        if (!Draws.empty()) {
            Draws.pop_front();
        }
        return Draw;
    }

protected:
    void TakeTurn() override {
        if (OnTurn) {
            OnTurn();
        }
    }
};

/// Default rules changed by `Rules`, the start position or `Position`; ready to be evaluated, without noise and without
/// the promotion-row pattern.
class EngineGame {
public:
    explicit EngineGame(std::string_view Rules, std::string_view Position = "")
        : State(std::make_unique<engine::EngineState>()) {
        engine::ResetEngine(*State, World);
        WriteRules(*State, Rules);
        engine::StartEngineGame(*State);
        engine::InitEngineThresholds(*State);
        if (!Position.empty()) {
            Lay(*State, Position);
        }
    }

    engine::EngineState& operator*() { return *State; }
    engine::EngineState* operator->() { return State.get(); }

    HeldWorld World;

private:
    std::unique_ptr<engine::EngineState> State;
};

} // namespace zonterbrook::tests
