// The cold paths of the checks: building the text of a fault.
#include "base/fault.h"

namespace zonterbrook::base {

void FailIndex(std::int64_t Index, std::size_t Size) {
    throw Fault("index " + std::to_string(Index) + " outside an array of " + std::to_string(Size));
}

void FailWidth(std::int64_t Value) {
    throw Fault("value " + std::to_string(Value) + " does not fit its field");
}

} // namespace zonterbrook::base
