// The node of the search, once, and the twelve policies that it is made by.
//
// Negamax with a fail-soft best score, extensions, a bounded search of captures beyond the nominal depth, killers and a
// triangular table of main lines. Every node leaves the position as it found it, a stopped one too.
#include "engine/search.h"

#include "engine/evaluate.h"
#include "rules/generate.h"
#include "rules/moves.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::engine {

using namespace rules;

namespace {

enum class NoMoves {
    Loses, ///< nobody asks: the score stays at the lower bound
    Wins,
    LosesByPly, ///< the score tells how far away it is
    WinsInAntiMode
};

/// What a search routine differs in.
struct SearchPolicy {
    KnownRules Rules = KnownRules::None; ///< whose generator and evaluator it uses
    bool Quick = false;                  ///< for hints and tools: stops at the horizon, knows no brute force
    NoMoves Blocked = NoMoves::Loses;
    bool ExtendsAtHorizonOnly = false; ///< no extension of irreversible moves below depth 0
};

constexpr std::int32_t CaptureHorizon = -4;

constexpr EvaluateFunction EvaluatorOf(KnownRules Rules) {
    switch (Rules) {
    case KnownRules::American:
        return EvaluateAmerican;
    case KnownRules::Italian:
        return EvaluateItalian;
    case KnownRules::German:
    case KnownRules::Russian:
        return EvaluateGerman;
    case KnownRules::None:
        break;
    }
    return EvaluatePosition;
}

/// Whether the node is searched a ply deeper.
template <SearchPolicy P>
bool Extends(const EngineState& State, std::int32_t Score, std::int32_t Alpha, std::int32_t Beta, std::int32_t Depth) {
    const std::int32_t Reach = Depth + State.Ply;
    if (State.SideToMoveLost != 0 && Reach < State.MaxSearchDepth + 1) {
        return true;
    }
    // With the option off the comparison is with 2, which no ply ever holds.
    return State.PlyIrreversible[State.Ply] == 2 - State.ExtendedSearch && Reach < State.MaxSearchDepth &&
           Score <= Beta + State.Balance && Score >= Alpha - State.Balance && State.Ply >= 2 &&
           (!P.ExtendsAtHorizonOnly || Depth > -1);
}

/// The score of a side without a move where the routine has one for it, else `Best` as it is.
template <SearchPolicy P>
std::int32_t ScoreWithoutMoves(const EngineState& State, std::int32_t Best) {
    constexpr std::int32_t Far = WindowHigh - 1;
    if constexpr (P.Blocked == NoMoves::Wins) {
        return Far - State.Ply;
    } else if constexpr (P.Blocked == NoMoves::LosesByPly) {
        return -(Far - State.Ply);
    } else if constexpr (P.Blocked == NoMoves::WinsInAntiMode) {
        return State.RuleSet.AntiMode != 0 ? Far - State.Ply : Best;
    } else {
        return Best;
    }
}

void StoreKiller(EngineState& State, const MoveRecord& Record) {
    auto& Killers = State.Wanted[State.Ply].Killers;
    Killers[1] = Killers[0];
    Killers[0] = {Record.Source, Record.Dest};
}

template <SearchPolicy P>
std::int32_t SearchNode(EngineState& State, std::int32_t& Alpha, std::int32_t Beta, std::int32_t& Depth) {
    // 1. The world has its turn.
    State.World->Yield();
    ++State.NodeCount;

    // 2. Unwinding. The quick family only stops where it would look deeper, but for a tool that has been stopped.
    if ((P.Quick ? State.StopQuickSearch : State.StopAutoPlay) != 0) {
        return 0;
    }

    // 3. No line from here yet.
    const std::int32_t Ply = State.Ply;
    ClearMainVariant(State, Ply);

    // 4. Evaluation.
    const std::int32_t Score = EvaluatorOf(P.Rules)(State, Alpha, Beta, State.Side);

    // 5. Extension.
    if (Extends<P>(State, Score, Alpha, Beta, Depth)) {
        ++Depth;
    }

    // 6. Won, or beyond the horizon of captures.
    if (Score == WindowHigh - Ply || Depth < (P.Quick ? 0 : CaptureHorizon)) {
        return Score;
    }

    // 7. Standing pat.
    const bool BruteForce = !P.Quick && State.BruteForce != 0;
    std::int32_t StoppedScore = 0;
    if (Score >= Beta && State.SideToMoveLost + Depth <= 1) {
        StoppedScore = Score;
        if (!BruteForce) {
            return Score;
        }
    }

    // 8. Moves. At the horizon the mover may stop at any time and keep the evaluation.
    std::int32_t Best = -WindowHigh;
    const Generator& Generates = GeneratorOf(P.Rules);
    if (Depth > 0) {
        Generates.GenerateBoth(State);
    } else {
        Generates.Generate(State, Depth);
        Best = Score;
    }

    // 9. None.
    if (Depth > 0 && MoveCountOfPly(State) == 0) {
        Best = ScoreWithoutMoves<P>(State, Best);
    }

    // 10. The user's stop, the clock's, or a full stack.
    if (State.CancelRequested != rules::StopRequest::None) {
        State.StopAutoPlay = 1;
        State.CancelRequested = rules::StopRequest::None;
        return StoppedScore;
    }

    // 11. The moves, best first.
    MovePicker Moves(State);
    for (int Move = Moves.Pick(); Move >= 0; Move = Moves.Pick()) {
        TriedMove Tried(State, Move);
        std::int32_t ChildAlpha = -Beta;
        std::int32_t ChildDepth = Depth - 1;
        const std::int32_t Reply = -SearchNode<P>(State, ChildAlpha, -Alpha, ChildDepth);
        Tried.TakeBack();
        if (Reply <= Best) {
            continue;
        }
        Best = Reply;
        if (Best >= Beta) {
            if (Depth > 0) {
                UpdateMainVariant(State, Move);
            }
            if (!BruteForce) {
                // 12. Only a move that cuts is a killer.
                StoreKiller(State, State.MoveStack[Move]);
                break;
            }
        }
        if (Best > Alpha) {
            if (Depth > 0) {
                UpdateMainVariant(State, Move);
            }
            Alpha = Best;
        }
    }

    // 13. A win loses a point for each ply, so that a nearer one is worth more.
    return Best == WindowHigh ? WindowHigh - 1 - Ply : Best;
}

template <SearchPolicy P>
constexpr SearchRoutine Routine(std::string_view Name) {
    return {Name, SearchNode<P>, EvaluatorOf(P.Rules)};
}

constexpr SearchPolicy Plain{};
constexpr SearchPolicy AntiPolicy{.Blocked = NoMoves::Wins, .ExtendsAtHorizonOnly = true};
constexpr SearchPolicy Goal{.Blocked = NoMoves::LosesByPly};
constexpr SearchPolicy AmericanPolicy{.Rules = KnownRules::American};
constexpr SearchPolicy ItalianPolicy{.Rules = KnownRules::Italian};
constexpr SearchPolicy GermanPolicy{.Rules = KnownRules::German};
constexpr SearchPolicy RussianPolicy{.Rules = KnownRules::Russian};
constexpr SearchPolicy QuickPlain{.Quick = true, .Blocked = NoMoves::WinsInAntiMode};
constexpr SearchPolicy QuickAmerican{.Rules = KnownRules::American, .Quick = true};
constexpr SearchPolicy QuickItalian{.Rules = KnownRules::Italian, .Quick = true};
constexpr SearchPolicy QuickGerman{.Rules = KnownRules::German, .Quick = true};
constexpr SearchPolicy QuickRussian{.Rules = KnownRules::Russian, .Quick = true};

/// The rows of the recognised rule sets stand in the order of `SpecialRuleSet`, in both families.
constexpr SearchRoutine Routines[] = {
    Routine<Plain>("SearchPlain"),
    Routine<AmericanPolicy>("SearchAmerican"),
    Routine<ItalianPolicy>("SearchItalian"),
    Routine<GermanPolicy>("SearchGerman"),
    Routine<RussianPolicy>("SearchRussian"),
    Routine<QuickPlain>("QuickSearchPlain"),
    Routine<QuickAmerican>("QuickSearchAmerican"),
    Routine<QuickItalian>("QuickSearchItalian"),
    Routine<QuickGerman>("QuickSearchGerman"),
    Routine<QuickRussian>("QuickSearchRussian"),
    Routine<AntiPolicy>("SearchAnti"),
    Routine<Goal>("SearchGoal"),
};
constexpr std::size_t QuickRow = 5;
constexpr std::size_t AntiRow = 10;
constexpr std::size_t GoalRow = 11;

/// What a pause of a capture walk counts for, in nodes: it comes after some tens of microseconds.
constexpr std::uint32_t NodesPerPause = 256;

template <SearchFamily Family>
bool EndsWalk(RulesState& Rules) {
    auto& State = static_cast<EngineState&>(Rules);
    State.World->Yield(NodesPerPause);
    return Family == SearchFamily::Quick ? State.StopQuickSearch != 0
                                         : State.StopAutoPlay != 0 || State.CancelRequested != StopRequest::None;
}

std::int32_t QuickValue(EngineState& State, std::int32_t& Depth) {
    std::int32_t Alpha = WindowLow;
    return -QuickRoutine(State).Search(State, Alpha, WindowHigh, Depth);
}

} // namespace

SearchScope::SearchScope(EngineState& InState, SearchFamily Family)
    : State(InState), AtGamePositionBefore(std::exchange(InState.AtGamePosition, 0)),
      InterruptsBefore(std::exchange(InState.Interrupts, Family == SearchFamily::Quick
                                                             ? EndsWalk<SearchFamily::Quick>
                                                             : EndsWalk<SearchFamily::Playing>)) {}

SearchScope::~SearchScope() {
    State.AtGamePosition = AtGamePositionBefore;
    State.Interrupts = InterruptsBefore;
}

std::span<const SearchRoutine> SearchRoutines() {
    return Routines;
}

const SearchRoutine* FindSearchRoutine(std::string_view Name) {
    const auto* Found = std::ranges::find(Routines, Name, &SearchRoutine::Name);
    return Found == std::end(Routines) ? nullptr : Found;
}

const SearchRoutine& PlayingRoutine(const EngineState& State) {
    if (State.SpecialRuleSet == KnownRules::None) {
        if (State.RuleSet.AntiMode == 1) {
            return Routines[AntiRow];
        }
        if (State.RuleSet.WinAtPromo == 1 || State.RuleSet.KingWin == 1) {
            return Routines[GoalRow];
        }
    }
    return Routines[static_cast<std::size_t>(State.SpecialRuleSet)];
}

const SearchRoutine& QuickRoutine(const EngineState& State) {
    return Routines[QuickRow + static_cast<std::size_t>(State.SpecialRuleSet)];
}

void QuickScore(EngineState& State, std::int32_t& Value) {
    std::int32_t Depth = State.SpecialRuleSet != KnownRules::None ? 1 : State.RuleSet.PiecesOnBlack == 2 ? 2 : 3;
    Value = QuickValue(State, Depth);
}

void QuickScoreDepth(EngineState& State, std::int32_t& Depth, std::int32_t& Value) {
    if (State.SpecialRuleSet != KnownRules::None) {
        Value = QuickValue(State, Depth);
    } else {
        std::int32_t Own = Depth - (State.RuleSet.PiecesOnBlack == 2 ? 1 : 0);
        Value = QuickValue(State, Own);
    }
}

void UpdateMainVariant(EngineState& State, int Move) {
    const int Ply = State.Ply;
    const MoveRecord& Record = State.MoveStack[Move];
    auto& Line = State.MainVariantTable[Ply];
    State.Wanted[Ply].MainLine = {Record.Source, Record.Dest};
    Line[Ply] = {Record.Source, Record.Dest, (Record.Captures.Count != 0 ? 1 : 0) + (Record.Kind != 0 ? 10 : 0)};
    if (Ply == MaxPly) {
        return;
    }
    const auto& Below = State.MainVariantTable[Ply + 1];
    for (int Column = Ply + 1; Column <= MaxPly; ++Column) {
        Line[Column] = Below[Column];
        if (Below[Column].Source == 0) {
            return;
        }
    }
}

} // namespace zonterbrook::engine
