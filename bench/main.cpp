// What the rules core and the engine cost: leaves and nodes a second, the yield, the evaluators, the start of a game.
// docs/benchmarks.md keeps the figures of a run and says how to make one.
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "formats/variant_file.h"
#include "pdn_bench.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/moves.h"
#include "rules/perft.h"
#include "rules/position.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zonterbrook;

class StillWorld final : public base::OutsideWorld {
public:
    double Seconds() override { return 0; }
    double Random() override { return 0; }

protected:
    void TakeTurn() override {}
};

/// A game of a shipped variant at its first move.
class Game {
public:
    explicit Game(const std::string& Variant) : State(std::make_unique<engine::EngineState>()) {
        engine::ResetEngine(*State, World);
        const std::filesystem::path Folder = std::filesystem::path(ZONTERBROOK_BENCH_DATA_DIR) / "variants";
        const auto Read = formats::ReadVariantFile(Folder, Variant, rules::RuleSetFields{});
        if (!Read.Document) {
            throw std::runtime_error(Variant + ": " + Read.Error.Text());
        }
        State->RuleSet = State->LoadedRuleSet = Read.Document->Rules;
        rules::LaySetup(*State, Read.Document->Setup);
        engine::StartEngineGame(*State);
        engine::InitEngineThresholds(*State);
    }

    engine::EngineState& operator*() { return *State; }
    engine::EngineState* operator->() { return State.get(); }

private:
    StillWorld World;
    std::unique_ptr<engine::EngineState> State;
};

/// The selector at 0: the rule set is played by the generic routines, as if nothing had been recognised.
void ForgetRecognition(engine::EngineState& State) {
    State.RuleSet.TwoKings = 1; // counts for the end of a game alone
    engine::InstallEngineRules(State);
}

void Perft(benchmark::State& Run, const std::string& Variant, int Depth, bool Special) {
    Game Played(Variant);
    const rules::Generator& Moves = rules::GeneratorOf(Special ? Played->SpecialRuleSet : rules::KnownRules::None);
    std::uint64_t Leaves = 0;
    for ([[maybe_unused]] const auto _ : Run) {
        Leaves += rules::Perft(*Played, Depth, Moves);
    }
    Run.counters["leaves"] = benchmark::Counter(static_cast<double>(Leaves), benchmark::Counter::kIsRate);
}

void Search(benchmark::State& Run, const std::string& Variant, int Depth, bool Recognised) {
    Game Played(Variant);
    if (!Recognised) {
        ForgetRecognition(*Played);
    }
    const engine::SearchRoutine& Routine = engine::PlayingRoutine(*Played);
    Run.SetLabel(std::string(Routine.Name));
    Played->NodeCount = 0;
    for ([[maybe_unused]] const auto _ : Run) {
        // Nothing learnt by the search before: every run searches the same tree.
        Played->Wanted.Fill({});
        for (auto& Row : Played->MainVariantTable) {
            Row.Fill({});
        }
        std::int32_t Alpha = engine::WindowLow;
        std::int32_t Left = Depth;
        Played->RootSide = Played->Side;
        Played->MaxSearchDepth = Depth + Played->Plys;
        benchmark::DoNotOptimize(Routine.Search(*Played, Alpha, engine::WindowHigh, Left));
    }
    Run.counters["nodes"] = benchmark::Counter(static_cast<double>(Played->NodeCount), benchmark::Counter::kIsRate);
}

void Evaluate(benchmark::State& Run, engine::EvaluateFunction Evaluator, bool Lazy) {
    Game Played("International Checkers");
    if (Evaluator == &engine::EvaluatePosition) {
        ForgetRecognition(*Played);
    }
    Played->PatternTermEnabled = 1;
    const std::int32_t Alpha = Lazy ? 1000 : engine::WindowLow;
    for ([[maybe_unused]] const auto _ : Run) {
        benchmark::DoNotOptimize(Evaluator(*Played, Alpha, engine::WindowHigh, rules::White));
    }
}

void Yield(benchmark::State& Run) {
    StillWorld World;
    base::OutsideWorld* Seen = &World;
    for ([[maybe_unused]] const auto _ : Run) {
        benchmark::DoNotOptimize(Seen);
        Seen->Yield();
    }
}

/// What a move costs without any search around it.
void MakeAndTakeBack(benchmark::State& Run) {
    Game Played("International Checkers");
    rules::GenerateGameMoves(*Played);
    for ([[maybe_unused]] const auto _ : Run) {
        rules::TriedMove Tried(*Played, 0);
        Tried.TakeBack();
    }
}

void StartGame(benchmark::State& Run, const std::string& Variant) {
    Game Played(Variant);
    for ([[maybe_unused]] const auto _ : Run) {
        engine::StartEngineGame(*Played);
        benchmark::ClobberMemory();
    }
}

void ReadVariant(benchmark::State& Run) {
    for ([[maybe_unused]] const auto _ : Run) {
        Game Played("International Checkers");
        benchmark::DoNotOptimize(Played->Side);
    }
}

void RegisterAll() {
    const auto Add = [](const std::string& Name, auto Routine, auto... Arguments) {
        benchmark::RegisterBenchmark(Name.c_str(), Routine, Arguments...);
    };
    const std::string International = "International Checkers";
    Add("perft/generic/International/7", Perft, International, 7, false);
    Add("perft/special/International/7", Perft, International, 7, true);
    for (const std::string Variant : {"American", "Italian", "Russian"}) {
        Add("perft/generic/" + Variant + "/6", Perft, Variant + " Checkers 10x10", 6, false);
        Add("perft/special/" + Variant + "/6", Perft, Variant + " Checkers 10x10", 6, true);
    }
    Add("search/International/7", Search, International, 7, true);
    Add("search/International/generic/7", Search, International, 7, false);
    Add("search/Frisian/6", Search, std::string("Frisian Draughts"), 6, true);
    Add("search/Turkish/6", Search, std::string("Turkish Draughts 10x10"), 6, true);
    Add("search/Poddavki/7", Search, std::string("Poddavki 10x10"), 7, true);
    Add("evaluate/generic/full", Evaluate, engine::EvaluatePosition, false);
    Add("evaluate/generic/lazy", Evaluate, engine::EvaluatePosition, true);
    Add("evaluate/german/full", Evaluate, engine::EvaluateGerman, false);
    Add("evaluate/german/lazy", Evaluate, engine::EvaluateGerman, true);
    Add("yield", Yield);
    Add("make_and_take_back", MakeAndTakeBack);
    Add("start_game/International", StartGame, International);
    Add("read_variant_and_start_game", ReadVariant);
}

} // namespace

int main(int Count, char** Arguments) {
    benchmark::Initialize(&Count, Arguments);
    if (benchmark::ReportUnrecognizedArguments(Count, Arguments)) {
        return 1;
    }
    RegisterAll();
    RegisterPdnBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
