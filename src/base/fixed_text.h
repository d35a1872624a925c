// A short text with inline storage, for structs that must stay trivially copyable.
#pragma once

#include "base/fault.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace zonterbrook::base {

/// Up to `N` characters. A longer text throws a `Fault`; nothing is ever cut in silence.
template <std::size_t N>
struct FixedText {
    std::size_t Length;
    char Characters[N];

    constexpr void Clear() { Length = 0; }

    constexpr void Assign(std::string_view Text) {
        if (Text.size() > N) {
            FailWidth(static_cast<std::int64_t>(Text.size()));
        }
        std::copy(Text.begin(), Text.end(), Characters);
        // The unused tail is part of the value when a whole state is compared as memory.
        std::fill(Characters + Text.size(), Characters + N, '\0');
        Length = Text.size();
    }

    constexpr void Append(std::string_view Text) {
        if (Text.size() > N - Length) {
            FailWidth(static_cast<std::int64_t>(Length + Text.size()));
        }
        std::copy(Text.begin(), Text.end(), Characters + Length);
        Length += Text.size();
    }

    constexpr std::string_view View() const { return {Characters, Length}; }
    constexpr bool Empty() const { return Length == 0; }

    friend constexpr bool operator==(const FixedText& A, const FixedText& B) { return A.View() == B.View(); }
    friend constexpr bool operator==(const FixedText& A, std::string_view B) { return A.View() == B; }
};

/// The `FixedText` that holds `Text`.
template <std::size_t N>
constexpr FixedText<N> MakeFixedText(std::string_view Text) {
    FixedText<N> Result{};
    Result.Assign(Text);
    return Result;
}

} // namespace zonterbrook::base
