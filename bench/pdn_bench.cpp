// The list of a file with 100,000 games, and a game from its middle.
#include "pdn_bench.h"

#include "formats/pdn_index.h"
#include "formats/pdn_writer.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

namespace {

using namespace zonterbrook;

/// The file, as long as the program runs.
class LargeFile {
public:
    LargeFile() : File(std::filesystem::temp_directory_path() / "zonterbrook_bench.pdn") {
        std::ofstream Stream(File, std::ios::binary);
        std::mt19937 Random(1);
        for (int Game = 0; Game < Games; ++Game) {
            Stream << GameText(Game, Random);
        }
        Stream.close();
        if (!Stream) {
            throw std::runtime_error("no room for 100 MB beside the temporary files");
        }
    }
    LargeFile(const LargeFile&) = delete;
    LargeFile& operator=(const LargeFile&) = delete;
    ~LargeFile() {
        std::error_code Ignored;
        std::filesystem::remove(File, Ignored);
    }

    static const LargeFile& Shared() {
        static const LargeFile Made;
        return Made;
    }

    const std::filesystem::path File;

private:
    static constexpr int Games = 100'000;

    /// A game of 55 moves a side, here and there with a comment: a thousand bytes.
    static std::string GameText(int Number, std::mt19937& Random) {
        formats::PdnGame Game;
        Game.Tags.Event = "Championship " + std::to_string(Number / 200);
        Game.Tags.Round = std::to_string(Number % 9 + 1);
        Game.Tags.White = "Player, J\xC3\xBCrgen " + std::to_string(Random() % 500);
        Game.Tags.Black = "Player, N. " + std::to_string(Random() % 500);
        Game.Tags.GameType = "20,W,10,10,N2,0";
        Game.Result = "1-1";
        const auto Square = [&] { return std::to_string(Random() % 50 + 1); };
        for (int Move = 0; Move < 110; ++Move) {
            const char* Sign = Random() % 4 == 0 ? "x" : "-";
            Game.Moves.push_back({Square() + Sign + Square(), Random() % 100 == 0 ? "a better move was there" : ""});
        }
        return formats::WritePdnGame(Game, "05/12/1998");
    }
};

/// All of the file, as the chooser goes through it.
void Scan(benchmark::State& Run) {
    constexpr std::size_t Slice = 4 << 20;
    const LargeFile& Large = LargeFile::Shared();
    std::int64_t Bytes = 0;
    for ([[maybe_unused]] const auto _ : Run) {
        formats::PdnIndex Index(Large.File);
        while (Index.Scan(Slice)) {
        }
        Bytes += static_cast<std::int64_t>(Index.Size());
        Run.counters["games"] = static_cast<double>(Index.Count());
    }
    Run.SetBytesProcessed(Bytes);
}

/// A first slice: what a person waits for.
void FirstGames(benchmark::State& Run) {
    const LargeFile& Large = LargeFile::Shared();
    for ([[maybe_unused]] const auto _ : Run) {
        formats::PdnIndex Index(Large.File);
        Index.Scan(1 << 20);
        benchmark::DoNotOptimize(Index.Count());
    }
}

void GameInTheMiddle(benchmark::State& Run) {
    formats::PdnIndex Index(LargeFile::Shared().File);
    while (Index.Scan(64 << 20)) {
    }
    for ([[maybe_unused]] const auto _ : Run) {
        benchmark::DoNotOptimize(Index.Read(Index.Count() / 2));
    }
}

} // namespace

void RegisterPdnBenchmarks() {
    benchmark::RegisterBenchmark("pdn/scan/100MB", Scan)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("pdn/first_games", FirstGames)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("pdn/game_in_the_middle", GameInTheMiddle)->Unit(benchmark::kMicrosecond);
}
