// The table of ply values: its order and its report.
#include "view/ply_values.h"

#include "base/text.h"

#include <cstdlib>
#include <numeric>
#include <utility>

namespace zonterbrook::view {

namespace {

constexpr int MuchChanged = 100;
constexpr int Decided = 31000;
constexpr std::size_t NumberWidth = 4;
constexpr std::size_t MoveWidth = 8;
constexpr std::size_t ValueWidth = 8;
constexpr std::size_t DiffWidth = 6;
constexpr std::size_t TimeWidth = 7;
constexpr std::size_t RuleLength = 107;

// By what a row is sorted, the largest first.
std::int32_t KeyOf(const PlyRow& Row, int Depth, PlyOrder Order) {
    switch (Order) {
    case PlyOrder::BestDifference:
        return Row.Diff;
    case PlyOrder::BestValue:
        return Row.Values[Depth];
    case PlyOrder::MostTime:
        return Row.Seconds;
    case PlyOrder::BothDifference:
    case PlyOrder::Combinations:
        break;
    }
    return std::abs(static_cast<std::int32_t>(Row.Diff));
}

std::string Padded(std::string Text, std::size_t Width) {
    Text.resize(std::max(Text.size(), Width), ' ');
    return Text;
}

} // namespace

bool IsCombination(const PlyRow& Row, int Deepest, int Captures) {
    return (std::abs(static_cast<std::int32_t>(Row.Diff)) > MuchChanged && Captures > 0) || Captures % 2 == 1 ||
           std::abs(static_cast<std::int32_t>(Row.Values[Deepest])) > Decided;
}

std::vector<std::size_t> SortRows(const std::vector<PlyRow>& Rows, int Depth, PlyOrder Order) {
    std::vector<std::size_t> Places(Rows.size());
    std::iota(Places.begin(), Places.end(), std::size_t{0});
    // Equal rows come in the order that these swaps leave them in.
    for (std::size_t I = 0; I < Places.size(); ++I) {
        for (std::size_t J = I + 1; J < Places.size(); ++J) {
            if (KeyOf(Rows[Places[I]], Depth, Order) < KeyOf(Rows[Places[J]], Depth, Order)) {
                std::swap(Places[I], Places[J]);
            }
        }
    }
    if (Order == PlyOrder::Combinations) {
        std::erase_if(Places, [&](std::size_t Place) { return !Rows[Place].Flagged; });
    }
    return Places;
}

std::string PlyReport(const std::vector<PlyRow>& Rows, int Depth, PlyOrder Order) {
    std::string Report = "  No      MOVE   ";
    for (int Ply = 1; Ply <= Depth; ++Ply) {
        Report += "PLY" + std::to_string(Ply) + "    ";
    }
    Report += " Diff     Time   \n" + std::string(RuleLength, '-') + '\n';
    for (const std::size_t Place : SortRows(Rows, Depth, Order)) {
        const PlyRow& Row = Rows[Place];
        Report +=
            base::PadLeft(std::to_string(Place + 1), NumberWidth) + ".    " + Padded(Row.Move, MoveWidth) + "    ";
        for (int Ply = 1; Ply <= Depth; ++Ply) {
            Report += base::PadLeft(std::to_string(Row.Values[Ply]), ValueWidth);
        }
        Report += ' ' + base::PadLeft(std::to_string(Row.Diff), DiffWidth) + ' ' +
                  base::PadLeft(std::to_string(Row.Seconds), TimeWidth) + ' ' + Row.Line + '\n';
    }
    return Report;
}

} // namespace zonterbrook::view
