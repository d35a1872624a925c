// The trap around every event handler: a fault becomes its message, and the program ends in order.
#pragma once

#include "control/state.h"

#include <functional>

namespace zonterbrook::control {

/// Runs a handler. A fault that leaves it is shown, with the title "Error", and the program ends through `End1`. When
/// the outermost handler returns and the window was asked to close in mid-search, the window closes.
void RunTrapped(GameState& State, const std::function<void()>& Handler);

/// The end of every fatal road: closes what is open, saves nothing, ends the program.
void End1(GameState& State);

} // namespace zonterbrook::control
