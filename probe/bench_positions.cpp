// Positions over several rule sets: openings and middle games, men and flying kings, one colour of square and both.
#include "bench_positions.h"

#include "base/fault.h"
#include "console.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "engine/state.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/rule_set.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::probe {

namespace {

struct BenchPosition {
    /// Rules that differ from the default, each "Key=value".
    std::vector<std::string_view> Rules;
    std::string_view Setup;
    int Depth;
};

constexpr std::string_view MiddleGame =
    "1000101010000101010100101010100101010000001010000000020000020200002020020202020020202020020000020202";
constexpr std::string_view Endgame =
    "0000000000000000010000000030000000000000000000000000000000000000000000000000020000002000000400000000";
constexpr std::string_view Ranks =
    "0000000000111111111111111111110000000000000000000000000000000000000000222222222222222222220000000000";

const std::vector<BenchPosition>& BenchPositions() {
    static const std::vector<std::string_view> American = {"WhiteManMovement=NW;NE NW;NE",
                                                           "BlackManMovement=NW;NE NW;NE",
                                                           "LongKings=0",
                                                           "ManContJump=0",
                                                           "MaxCapMove=0",
                                                           "RemovePieces=0",
                                                           "BlackStarts=1"};
    static const std::vector<std::string_view> Italian = {"WhiteManMovement=NW;NE NW;NE",
                                                          "BlackManMovement=NW;NE NW;NE",
                                                          "LongKings=0",
                                                          "ManContJump=0",
                                                          "ManCapKing=0",
                                                          "KingCapMove=1",
                                                          "MaxCapMoveKings=1",
                                                          "PiecesOnBlack=0",
                                                          "RemovePieces=0",
                                                          "PromoW=A0C0E0G0I0",
                                                          "PromoB=B1D1F1H1J1"};
    static const std::vector<std::string_view> Russian = {"MaxCapMove=0", "ManContJumpCrowned=1", "ThreeKings=1",
                                                          "NumberKings=15"};
    static const std::vector<std::string_view> Orthogonal = {"WhiteManMovement=N;W;E N;W;E",
                                                             "BlackManMovement=N;W;E N;W;E",
                                                             "WhiteKingMovement=N;E;S;W N;E;S;W",
                                                             "BlackKingMovement=N;E;S;W N;E;S;W",
                                                             "RemovePieces=0",
                                                             "PromoW=A0B0C0D0E0F0G0H0I0J0",
                                                             "PromoB=A1B1C1D1E1F1G1H1I1J1"};
    static const std::vector<BenchPosition> Positions = {
        {{}, rules::DefaultSetup, 9},
        {{}, MiddleGame, 9},
        {{}, Endgame, 9},
        {{"TwoKings=1"}, rules::DefaultSetup, 8},
        {American, rules::DefaultSetup, 9},
        {Italian, rules::DefaultSetup, 9},
        {Russian, rules::DefaultSetup, 8},
        {Russian, MiddleGame, 8},
        {Orthogonal, Ranks, 6},
        {{"AntiMode=1"}, rules::DefaultSetup, 7},
        {{"KingWin=1"}, MiddleGame, 7},
        {{"WhiteManMovement=NW;NE NW;NE;SE;SW;N;S;E;W", "BlackManMovement=NW;NE NW;NE;SE;SW;N;S;E;W",
          "WhiteKingMovement=NW;NE;SE;SW NW;NE;SE;SW;N;S;E;W", "BlackKingMovement=NW;NE;SE;SW NW;NE;SE;SW;N;S;E;W",
          "MaxCapMoveKings=1", "RemovePieces=0"},
         rules::DefaultSetup,
         7},
    };
    return Positions;
}

std::uint64_t SearchOne(engine::EngineState& State, base::OutsideWorld& World, const BenchPosition& Position) {
    engine::ResetEngine(State, World);
    for (const std::string_view Rule : Position.Rules) {
        const std::size_t Equals = Rule.find('=');
        if (!rules::WriteRule(State.RuleSet, Rule.substr(0, Equals), Rule.substr(Equals + 1))) {
            throw base::Fault("unknown rule " + std::string(Rule));
        }
    }
    State.LoadedRuleSet = State.RuleSet;
    rules::LaySetup(State, Position.Setup);
    engine::StartEngineGame(State);
    engine::PrepareSearch(State);
    State.Noise = 0;
    rules::GenerateGameMoves(State);
    engine::RootLimits Limits;
    Limits.Depth = Position.Depth;
    engine::RootObserver Silent;
    engine::RootSearch(State, Limits, 0, Silent);
    return State.NodeCount;
}

} // namespace

std::uint64_t SearchBenchPositions() {
    control::StillWorld World;
    const auto State = std::make_unique<engine::EngineState>();
    std::uint64_t Nodes = 0;
    for (const BenchPosition& Position : BenchPositions()) {
        Nodes += SearchOne(*State, World, Position);
    }
    return Nodes;
}

} // namespace zonterbrook::probe
