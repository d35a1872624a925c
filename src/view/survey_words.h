// What many games of a rule set have shown, in figures and in words that an inventor of variants understands.
#pragma once

#include "base/checked_array.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zonterbrook::view {

/// By what games of a survey are drawn.
enum class SurveyDraw : std::uint8_t { Repetition, Limit, Kings, ThreeKings, TwoKings, Blocked, Length };
inline constexpr int SurveyDraws = 7;

struct SurveyReport {
    std::int32_t Games = 0;
    std::int32_t FirstWins = 0; ///< of the side that begins
    std::int32_t SecondWins = 0;
    base::CheckedArray<std::int32_t, SurveyDraws> DrawsBy{}; ///< by `SurveyDraw`
    std::int64_t HalfMoves = 0;
    std::int64_t Choices = 0;  ///< legal moves, summed over all half-moves
    std::int64_t Captures = 0; ///< half-moves that capture
    std::int64_t Forced = 0;   ///< half-moves without a choice

    bool operator==(const SurveyReport&) const = default;
};

std::int32_t DrawnGames(const SurveyReport& Report);

/// The figures in a line: "games 10 first 4 second 5 draws 1 repetition=1 limit=0 ... length 61.4 moves 8.2 captures
/// 0.31 forced 0.12".
std::string SurveyLine(const SurveyReport& Report);

/// What they mean, a sentence each. Empty before the first game is over.
std::vector<std::string> SurveyWords(const SurveyReport& Report);

} // namespace zonterbrook::view
