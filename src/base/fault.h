// The one kind of failure that is thrown: a broken bound, a number that does not fit, a limit met.
//
// Nothing recovers from a fault half-way. It travels up to the trap that owns it (a generator, start-up, a file
// reader, the window's event dispatch) and becomes the message that belongs there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace zonterbrook::base {

/// A run-time fault. `what()` says what was indexed or what did not fit.
class Fault : public std::runtime_error {
public:
    explicit Fault(const std::string& Text) : std::runtime_error(Text) {}
};

/// Whether this build derives anew, after every move made and taken back, what is kept beside the board: the preset
/// `dev` does.
#ifdef ZONTERBROOK_CHECK_MOVES
inline constexpr bool ChecksMoves = true;
#else
inline constexpr bool ChecksMoves = false;
#endif

/// Throws the fault of an index outside an array of `Size` entries. Kept out of line: the callers' fast path is one
/// comparison.
[[noreturn]] void FailIndex(std::int64_t Index, std::size_t Size);

/// Throws the fault of a value that does not fit the width of its field.
[[noreturn]] void FailWidth(std::int64_t Value);

} // namespace zonterbrook::base
