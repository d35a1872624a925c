// The table of ply values: how the assessment of each position of a game changes with the depth of the search.
#pragma once

#include "base/checked_array.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zonterbrook::view {

inline constexpr int DeepestPly = 20;

/// The position behind one half-move.
struct PlyRow {
    std::int32_t HalfMove = 0;                                 ///< its number in the game
    std::string Move;                                          ///< as the list of the game names it
    base::CheckedArray<std::int16_t, DeepestPly + 1> Values{}; ///< by ply, from 1
    std::int16_t Diff = 0;                                     ///< the deepest value less the one at ply 2
    std::int16_t Seconds = 0;
    std::string Line;     ///< the main line of the deepest search, a blank behind each move
    bool Flagged = false; ///< a combination or a problem
};

enum class PlyOrder : std::uint8_t { BestDifference, BothDifference, BestValue, MostTime, Combinations };
inline constexpr int PlyOrders = 5;
inline constexpr const char* PlyOrderCaptions[PlyOrders] = {"Best difference", "Both difference", "Best value",
                                                            "Most time", "Combinations/Problems"};

/// Whether the row of a search that came so deep is a combination or a problem: much has changed by a capture, one side
/// takes once more than the other, or the game is decided. `Captures`: capturing moves in the line.
bool IsCombination(const PlyRow& Row, int Deepest, int Captures);

/// The places of the rows, in the order in which the report has them; for `Combinations` of the flagged ones alone.
std::vector<std::size_t> SortRows(const std::vector<PlyRow>& Rows, int Depth, PlyOrder Order);

/// The report: a head, a rule, a line for each row, by its number from 1.
std::string PlyReport(const std::vector<PlyRow>& Rows, int Depth, PlyOrder Order);

} // namespace zonterbrook::view
