// A search that looks further than the one that plays.
#include "deep_search.h"

#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "rules/generate.h"
#include "rules/moves.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::tools {

using namespace engine;
using namespace rules;

namespace {

constexpr std::int32_t HashMoveFirst = 31000;

std::uint64_t Mixed(std::uint64_t Value) {
    Value ^= Value >> 31U;
    Value *= 0x9E3779B97F4A7C15U;
    Value ^= Value >> 29U;
    Value *= 0xBF58476D1CE4E5B9U;
    return Value ^ (Value >> 32U);
}

} // namespace

std::uint64_t DeepSearch::KeyOfBoard() const {
    const PositionKey Board = KeyOfPosition(State);
    std::uint64_t Key = State.Side > 0 ? 1 : 2;
    for (const CellSet& Set : Board.Pieces) {
        Key = Mixed(Key + Set.Low());
        Key = Mixed(Key + Set.High());
    }
    return Key;
}

// As the root of the computer's own search, without noise.
void DeepSearch::Begin() {
    std::fill(Table.begin(), Table.end(), Entry{});
    State.LazyMargin = DefaultLazyMargin;
    State.Wanted.Fill({});
    for (auto& Row : State.MainVariantTable) {
        Row.Fill({});
    }
    PrepareSearch(State);
    State.Noise = 0;
    State.CancelRequested = StopRequest::None;
    State.StopAutoPlay = 0;
    State.DrawPending = 0;
    State.QuietLimit = 0;
    State.RootSide = State.Side;
    InitGameTree(State);
}

std::vector<JudgedMove> DeepSearch::RootMoves() {
    GenerateGameMoves(State);
    std::vector<JudgedMove> Moves;
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        const MoveRecord& Record = State.MoveStack[I];
        const bool Known = std::any_of(Moves.begin(), Moves.end(), [&](const JudgedMove& Move) {
            return Move.Source == Record.Source && Move.Dest == Record.Dest;
        });
        if (!Known) {
            Moves.push_back({Record.Source, Record.Dest, 0});
        }
    }
    return Moves;
}

std::int32_t DeepSearch::TryRoot(const JudgedMove& Move, int Depth, std::int32_t Alpha, std::int32_t Beta) {
    int Found = State.StackLimit[State.Ply];
    while (State.MoveStack[Found].Source != Move.Source || State.MoveStack[Found].Dest != Move.Dest) {
        ++Found;
    }
    State.MaxSearchDepth = Depth + State.Plys;
    TriedMove Tried(State, Found);
    const std::int32_t Score = -Node(-Beta, -Alpha, Depth - 1);
    Tried.TakeBack();
    return Score;
}

// Puts the best move in front; the others stay in their order, with the score at which they failed.
void DeepSearch::SearchBest(std::vector<JudgedMove>& Moves, int Depth) {
    std::int32_t Best = UnsetScore;
    std::size_t First = 0;
    for (std::size_t I = 0; I < Moves.size(); ++I) {
        std::int32_t Score =
            I == 0 ? TryRoot(Moves[I], Depth, WindowLow, WindowHigh) : TryRoot(Moves[I], Depth, Best, Best + 1);
        if (I > 0 && Score > Best) {
            Score = TryRoot(Moves[I], Depth, Best, WindowHigh);
        }
        Moves[I].Score = Score;
        if (Score > Best) {
            Best = Score;
            First = I;
        }
    }
    const auto From = Moves.begin();
    std::rotate(From, From + static_cast<std::ptrdiff_t>(First), From + static_cast<std::ptrdiff_t>(First) + 1);
}

std::vector<JudgedMove> DeepSearch::BestMoves(int Depth, std::int32_t Margin, std::size_t Most) {
    Begin();
    const GamePositionScope Scope(State);
    std::vector<JudgedMove> Moves = RootMoves();
    const std::int32_t Game = std::exchange(State.AtGamePosition, 0);
    std::vector<JudgedMove> Good;
    if (!Moves.empty()) {
        for (int Iteration = 2; Iteration <= Depth; ++Iteration) {
            SearchBest(Moves, Iteration);
        }
        Good.push_back(Moves.front());
        const std::int32_t Enough = Moves.front().Score - Margin;
        for (std::size_t I = 1; I < Moves.size() && Good.size() < Most; ++I) {
            if (TryRoot(Moves[I], Depth, Enough - 1, Enough) >= Enough) {
                Good.push_back(Moves[I]);
            }
        }
    }
    State.AtGamePosition = Game;
    return Good;
}

std::vector<JudgedMove> DeepSearch::RankMoves(int Depth) {
    Begin();
    const GamePositionScope Scope(State);
    std::vector<JudgedMove> Moves = RootMoves();
    const std::int32_t Game = std::exchange(State.AtGamePosition, 0);
    for (JudgedMove& Move : Moves) {
        Move.Score = TryRoot(Move, Depth, WindowLow, WindowHigh);
    }
    State.AtGamePosition = Game;
    std::stable_sort(Moves.begin(), Moves.end(),
                     [](const JudgedMove& A, const JudgedMove& B) { return A.Score > B.Score; });
    return Moves;
}

// The engine's node, but for the table and the null windows; positions without moves are the engine's business.
std::int32_t DeepSearch::Node(std::int32_t Alpha, std::int32_t Beta, int Depth) {
    const SearchRoutine& Engine = PlayingRoutine(State);
    if (Depth <= EngineDepth) {
        std::int32_t EngineAlpha = Alpha;
        std::int32_t Left = Depth;
        return Engine.Search(State, EngineAlpha, Beta, Left);
    }
    const std::uint64_t Key = KeyOfBoard();
    Entry& Known = Table[Key % Entries];
    const bool Hit = Known.Key == Key;
    if (Hit && Known.Depth >= Depth) {
        const bool Cuts = Known.Bound == 0 || (Known.Bound > 0 ? Known.Score >= Beta : Known.Score <= Alpha);
        if (Cuts) {
            return Known.Score;
        }
    }
    const Entry Before = Hit ? Known : Entry{};
    const std::int32_t Score = Engine.Evaluate(State, Alpha, Beta, State.Side);
    if (Score == WindowHigh - State.Ply) {
        return Score;
    }
    const int Nominal = Depth;
    const bool Extends = State.PlyIrreversible[State.Ply] == 2 - State.ExtendedSearch &&
                         Depth + State.Ply < State.MaxSearchDepth && Score <= Beta + State.Balance &&
                         Score >= Alpha - State.Balance && State.Ply >= 2;
    Depth += Extends ? 1 : 0;
    GeneratorOf(State.SpecialRuleSet).GenerateBoth(State);
    if (MoveCountOfPly(State) == 0) {
        std::int32_t EngineAlpha = Alpha;
        std::int32_t Left = 1;
        return Engine.Search(State, EngineAlpha, Beta, Left);
    }
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        MoveRecord& Record = State.MoveStack[I];
        if (Record.Source == Before.Source && Record.Dest == Before.Dest && Before.Depth >= 0) {
            Record.Score = HashMoveFirst;
            break;
        }
    }

    const std::int32_t Floor = Alpha;
    std::int32_t Best = -WindowHigh;
    MainLineMove BestMove{};
    bool First = true;
    MovePicker Moves(State);
    for (int Move = Moves.Pick(); Move >= 0; Move = Moves.Pick()) {
        TriedMove Tried(State, Move);
        std::int32_t Reply = 0;
        if (!First) {
            Reply = -Node(-Alpha - 1, -Alpha, Depth - 1);
        }
        if (First || (Reply > Alpha && Reply < Beta)) {
            Reply = -Node(-Beta, -Alpha, Depth - 1);
        }
        Tried.TakeBack();
        First = false;
        if (Reply > Best) {
            Best = Reply;
            BestMove = {State.MoveStack[Move].Source, State.MoveStack[Move].Dest, 0};
        }
        if (Best >= Beta) {
            auto& Killers = State.Wanted[State.Ply].Killers;
            Killers[1] = Killers[0];
            Killers[0] = {BestMove.Source, BestMove.Dest};
            break;
        }
        Alpha = std::max(Alpha, Best);
    }
    Table[Key % Entries] = {Key,
                            static_cast<std::int16_t>(Best),
                            static_cast<std::int16_t>(Nominal),
                            static_cast<std::int8_t>(Best >= Beta    ? 1
                                                     : Best <= Floor ? -1
                                                                     : 0),
                            static_cast<std::uint8_t>(BestMove.Source == FromHand ? 0 : BestMove.Source),
                            static_cast<std::uint8_t>(BestMove.Dest)};
    return Best;
}

} // namespace zonterbrook::tools
