// A game for the engine's tests: a state under given rules at a given position, in a world that the test holds.
#pragma once

#include "engine/root_search.h"
#include "support/position_text.h"
#include "support/quiet_world.h"

namespace zonterbrook::tests {

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

    QuietWorld World;

private:
    std::unique_ptr<engine::EngineState> State;
};

} // namespace zonterbrook::tests
