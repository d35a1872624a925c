// The trap around every event handler: a fault becomes its message, and the program ends in order.
#pragma once

#include "base/fault.h"
#include "control/state.h"

#include <functional>
#include <string_view>

namespace zonterbrook::control {

inline constexpr std::string_view ErrorFound = "Error found! Zonterbrook will exit";

/// A failure of a file that the program can't go on without. `what()` says what was wrong, for the log; the person
/// reads `ErrorFound`.
class FileFault : public base::Fault {
public:
    using Fault::Fault;
};

/// Runs a handler. A fault that leaves it is shown, with the title "Error", and the program ends through `End1`;
/// `FaultText`, if there is one, is shown in place of the fault's own words. When the outermost handler returns and the
/// person has agreed to close the window meanwhile, the window closes.
void RunTrapped(GameState& State, const std::function<void()>& Handler, std::string_view FaultText = {});

/// The end of every fatal road: closes what is open, saves nothing, ends the program.
void End1(GameState& State);

} // namespace zonterbrook::control
