// The longest that one call of a generator takes, over random positions of every variant file of a folder.
//
//     zonterbrook-longest-call <folder> <positions of each variant> [<seed>]
//
// Up to forty pieces, half of them kings: far worse than play brings about. A line a variant, the worst last, with the
// position in the console's digits.
#include "formats/variant_file.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/position.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace zonterbrook;
using rules::RulesState;
using Clock = std::chrono::steady_clock;

constexpr int MostPieces = 40;

struct Call {
    double Milliseconds = 0;
    std::string Variant;
    std::string Position; ///< as the console's `board` takes it
    int Faults = 0;       ///< positions in which a generator comes to its limits
};

/// Random pieces on the squares that are played on, no man where it would be crowned.
void Scatter(RulesState& State, const std::vector<int>& Squares, std::mt19937& Chance) {
    rules::PlayingCells.ForEach([&](int Cell) { rules::SetCell(State, Cell, rules::Empty); });
    const auto Draw = [&](std::size_t Below) {
        return std::uniform_int_distribution<std::size_t>(0, Below - 1)(Chance);
    };
    for (std::size_t Pieces = 1 + Draw(MostPieces); Pieces > 0; --Pieces) {
        const int Cell = Squares[Draw(Squares.size())];
        const int Index = static_cast<int>(Draw(rules::PieceIndices));
        if (Index >= 2 || !State.PromotionSet[Index].Contains(Cell)) {
            rules::SetCell(State, Cell, (Index % 2 == 0 ? 1 : -1) * (Index / 2 + 1));
        }
    }
    State.Side = Draw(2) == 0 ? rules::White : rules::Black;
    rules::ResetMoves(State);
    rules::RecountPosition(State);
}

std::string PositionText(const RulesState& State) {
    return rules::SetupText(State.Board) + (State.Side == rules::White ? " w" : " b");
}

template <typename Routine>
double Milliseconds(Routine&& Work) {
    const auto Start = Clock::now();
    Work();
    return std::chrono::duration<double, std::milli>(Clock::now() - Start).count();
}

Call WorstOf(RulesState& State, const std::string& Variant, int Positions, std::mt19937& Chance) {
    std::vector<int> Squares;
    rules::PlayingCells.ForEach([&](int Cell) {
        if (State.RuleSet.PiecesOnBlack == 2 || rules::IsPlayingSquare(State, Cell)) {
            Squares.push_back(Cell);
        }
    });
    Call Worst;
    Worst.Variant = Variant;
    for (int Position = 0; Position < Positions; ++Position) {
        Scatter(State, Squares, Chance);
        const RulesState Before = State;
        try {
            const double Took =
                std::max({Milliseconds([&] { rules::GenerateLegalMoves(State); }),
                          Milliseconds([&] { rules::GeneratorOf(State.SpecialRuleSet).GenerateBoth(State); }),
                          Milliseconds([&] { rules::GenerateMoves1(State, 1); })});
            if (Took > Worst.Milliseconds) {
                Worst.Milliseconds = Took;
                Worst.Position = PositionText(State);
            }
        } catch (const rules::GeneratorFault&) {
            State = Before;
            ++Worst.Faults;
        }
    }
    return Worst;
}

} // namespace

int main(int Count, char** Words) {
    if (Count < 3) {
        std::fprintf(stderr, "usage: zonterbrook-longest-call <folder of variants> <positions of each> [<seed>]\n");
        return 2;
    }
    const std::filesystem::path Folder = Words[1];
    const int Positions = std::atoi(Words[2]);
    std::mt19937 Chance(Count > 3 ? static_cast<unsigned>(std::atoi(Words[3])) : 1U);
    std::vector<Call> Calls;
    for (const std::string& Variant : formats::ListVariants(Folder)) {
        const auto Read = formats::ReadVariantFile(Folder, Variant, rules::RuleSetFields{});
        if (!Read.Document) {
            continue;
        }
        const auto State = std::make_unique<RulesState>();
        rules::ResetRules(*State);
        State->RuleSet = State->LoadedRuleSet = Read.Document->Rules;
        rules::LaySetup(*State, Read.Document->Setup);
        rules::StartRulesGame(*State);
        Calls.push_back(WorstOf(*State, Variant, Positions, Chance));
    }
    std::ranges::sort(Calls, {}, &Call::Milliseconds);
    for (const Call& One : Calls) {
        std::printf("%9.3f ms  %5d faults  %-32s %s\n", One.Milliseconds, One.Faults, One.Variant.c_str(),
                    One.Position.c_str());
    }
    return 0;
}
