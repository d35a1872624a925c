// A fixed array whose every access is checked, in what ships too.
//
// The storage is inline and trivial, so that a struct made of these is copied and compared as a block of memory. The
// check is one unsigned comparison; its failure is a cold call that throws.
#pragma once

#include "base/fault.h"

#include <concepts>
#include <cstddef>

namespace zonterbrook::base {

/// `N` values of `T`, indexed 0 to `N` - 1. Any other index, negative ones included, throws a `Fault`.
template <typename T, std::size_t N>
struct CheckedArray {
    T Items[N];

    constexpr T& operator[](std::integral auto Index) {
        Check(Index);
        return Items[static_cast<std::size_t>(Index)];
    }

    constexpr const T& operator[](std::integral auto Index) const {
        Check(Index);
        return Items[static_cast<std::size_t>(Index)];
    }

    constexpr void Fill(const T& Value) {
        for (T& Item : Items) {
            Item = Value;
        }
    }

    static constexpr std::size_t Size() { return N; }
    constexpr T* begin() { return Items; }
    constexpr T* end() { return Items + N; }
    constexpr const T* begin() const { return Items; }
    constexpr const T* end() const { return Items + N; }

    bool operator==(const CheckedArray&) const = default;

private:
    static constexpr void Check(std::integral auto Index) {
        // A negative index turns into a huge one, so one comparison covers both ends.
        if (static_cast<std::size_t>(Index) >= N) [[unlikely]] {
            FailIndex(static_cast<std::int64_t>(Index), N);
        }
    }
};

} // namespace zonterbrook::base
