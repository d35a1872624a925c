// What the window shows, at its first start, in a world that never disturbs it.
#pragma once

#include "support/quiet_world.h"
#include "view/state.h"

#include <gtest/gtest.h>

#include <memory>

namespace zonterbrook::tests {

class ViewFixture : public testing::Test {
protected:
    QuietWorld World;
    std::unique_ptr<view::ViewState> Owned = std::make_unique<view::ViewState>();
    view::ViewState& State = *Owned;

    void SetUp() override {
        engine::ResetEngine(State, World);
        engine::InstallEngineRules(State);
    }
};

} // namespace zonterbrook::tests
