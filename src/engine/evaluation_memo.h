// What evaluators remember: answers by all that they hang on, compared whole, so that an answer found is the answer.
//
// Plain data, a part of the engine's state; forgotten when a rule set is installed. All zero is empty: every question
// of nothing but zeros has the answer 0.
#pragma once

#include "base/checked_array.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zonterbrook::engine {

/// Answers to questions of so many words, as many as 2 to the power of `PlaceBits`. A new one takes an old one's place.
template <std::size_t Words, unsigned PlaceBits>
class AnswerTable {
public:
    using Question = std::array<std::uint64_t, Words>;

    /// The answer that is known, or what `WorkOut()` says.
    template <typename Routine>
    [[gnu::always_inline]] std::int32_t Find(const Question& Asked, Routine&& WorkOut) {
        Entry& Place = Entries[PlaceOf(Asked)];
        if (Place.Asked != Asked) [[unlikely]] {
            Place.Answer = WorkOut();
            Place.Asked = Asked;
        }
        return Place.Answer;
    }

private:
    struct Entry {
        Question Asked;
        std::int32_t Answer;
    };

    static std::size_t PlaceOf(const Question& Asked) {
        constexpr std::uint64_t Factors[] = {0x9E3779B97F4A7C15ULL, 0xBF58476D1CE4E5B9ULL, 0x94D049BB133111EBULL,
                                             0xD6E8FEB86659FD93ULL};
        static_assert(Words <= std::size(Factors));
        std::uint64_t Mix = 0;
        for (std::size_t Word = 0; Word < Words; ++Word) {
            Mix += Asked[Word] * Factors[Word];
        }
        return Mix >> (64U - PlaceBits);
    }

    base::CheckedArray<Entry, std::size_t{1} << PlaceBits> Entries;
};

/// By colour each. Most positions of a search share nearly all of these parts with the one before: 85 to 96 questions
/// in a hundred have been asked before.
struct EvaluationMemo {
    base::CheckedArray<AnswerTable<2, 11>, 2> PullOfMen;
    base::CheckedArray<AnswerTable<4, 10>, 2> PullWithKings;
    base::CheckedArray<AnswerTable<3, 9>, 2> Patterns;
};

} // namespace zonterbrook::engine
