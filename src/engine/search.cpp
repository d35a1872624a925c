// The node of the search, once, and the twelve policies that it is made by.
//
// Negamax with a fail-soft best score, extensions, a bounded search of captures beyond the nominal depth, killers and a
// triangular table of main lines. Every node leaves the position as it found it, a stopped one too.
#include "engine/search.h"

#include "engine/evaluate.h"
#include "rules/generate.h"
#include "rules/moves.h"

#include <algorithm>
#include <optional>
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

constexpr EvaluatorKind KindOf(KnownRules Rules) {
    switch (Rules) {
    case KnownRules::American:
        return EvaluatorKind::American;
    case KnownRules::Italian:
        return EvaluatorKind::Italian;
    case KnownRules::German:
    case KnownRules::Russian:
        return EvaluatorKind::German;
    case KnownRules::None:
        break;
    }
    return EvaluatorKind::Generic;
}

constexpr EvaluateFunction EvaluatorOf(KnownRules Rules) {
    switch (KindOf(Rules)) {
    case EvaluatorKind::American:
        return EvaluateAmerican;
    case EvaluatorKind::Italian:
        return EvaluateItalian;
    case EvaluatorKind::German:
        return EvaluateGerman;
    case EvaluatorKind::Generic:
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

/// The world has its turn, and the node counts. False if the search unwinds. The quick family only stops where it would
/// look deeper, but for a tool that has been stopped.
template <SearchPolicy P>
bool EnterNode(EngineState& State) {
    State.World->Yield();
    ++State.NodeCount;
    return (P.Quick ? State.StopQuickSearch : State.StopAutoPlay) == 0;
}

template <SearchPolicy P>
constexpr std::int32_t Horizon = P.Quick ? 0 : CaptureHorizon;

template <SearchPolicy P>
bool KnowsBruteForce(const EngineState& State) {
    return !P.Quick && State.BruteForce != 0;
}

/// A win loses a point for each ply, so that a nearer one is worth more.
std::int32_t ByDistance(std::int32_t Score, std::int32_t Ply) {
    return Score == WindowHigh ? WindowHigh - 1 - Ply : Score;
}

/// The moves of a node as far as they are steps: their positions are evaluated before they are made, from what is known
/// of the node's own. That is made when the first step asks for it, or comes from the node above if a step led here.
template <SearchPolicy P>
class StepsAhead {
public:
    StepsAhead(const StepFrame* InFrame, const StepFacts* InFacts) : Frame(InFrame), Facts(InFacts) {}

    bool Foresees(EngineState& State) {
        if (Frame == nullptr) {
            OwnFrame = FrameForSteps<Kind>(State);
            Frame = &OwnFrame;
        }
        if (Facts == nullptr && Frame->Foresees) {
            OwnFacts = FactsForSteps<Kind>(State, *Frame);
            Facts = &OwnFacts;
        }
        return Frame->Foresees;
    }

    Foreseen Evaluate(EngineState& State, const Step& Move, std::int32_t Alpha, std::int32_t Beta, std::int32_t& Score,
                      StepFacts& There) const {
        return EvaluateStep<Kind>(State, *Frame, *Facts, Move, Alpha, Beta, Score, There);
    }

    const StepFrame* KnownFrame() const { return Frame; }

private:
    static constexpr EvaluatorKind Kind = KindOf(P.Rules);

    const StepFrame* Frame; ///< null: not made yet
    const StepFacts* Facts;
    StepFrame OwnFrame;
    StepFacts OwnFacts;
};

/// The rest of a node, once it has its evaluation. `Frame` and `Facts`: what is known for its steps, or null.
template <SearchPolicy P>
std::int32_t SearchBelow(EngineState& State, std::int32_t& Alpha, std::int32_t Beta, std::int32_t& Depth,
                         std::int32_t Score, const StepFrame* Frame, const StepFacts* Facts);

template <SearchPolicy P>
std::int32_t SearchNode(EngineState& State, std::int32_t& Alpha, std::int32_t Beta, std::int32_t& Depth) {
    // 1. and 2. The world, and unwinding.
    if (!EnterNode<P>(State)) {
        return 0;
    }

    // 3. No line from here yet.
    ClearMainVariant(State, State.Ply);

    // 4. Evaluation.
    const std::int32_t Score = EvaluatorOf(P.Rules)(State, Alpha, Beta, State.Side);
    return SearchBelow<P>(State, Alpha, Beta, Depth, Score, nullptr, nullptr);
}

/// The score of the node behind a step if nothing is to be found there but its evaluation, so that it needn't be made.
/// Such a node is neither irreversible nor lost, and never extended.
template <SearchPolicy P>
std::optional<std::int32_t> ScoreAtOnce(const EngineState& State, const Step& Move, std::int32_t Beta,
                                        std::int32_t Depth, std::int32_t Score) {
    const std::int32_t Ply = State.Ply + 1;
    if (Score == WindowHigh - Ply || Depth < Horizon<P>) {
        return Score;
    }
    if (Score >= Beta && Depth <= 1 && !KnowsBruteForce<P>(State)) {
        return Score;
    }
    if (Depth <= 0 && State.CancelRequested == StopRequest::None &&
        GeneratorOf(P.Rules).ListsNothingAfterStep(State, Depth, Move.Index, Move.From, Move.To)) {
        return ByDistance(Score, Ply);
    }
    return std::nullopt;
}

/// `SearchNode` for the position behind a step.
template <SearchPolicy P>
std::int32_t SearchStep(EngineState& State, int Move, std::int32_t Alpha, std::int32_t Beta, std::int32_t Depth,
                        const StepsAhead<P>& Ahead) {
    if (!EnterNode<P>(State)) {
        return 0;
    }
    ClearMainVariant(State, State.Ply + 1);
    const MoveRecord& Record = State.MoveStack[Move];
    const Step Made{Record.Stepper - 1, Record.Source, Record.Dest};
    std::int32_t Score = 0;
    StepFacts There;
    const Foreseen Known = Ahead.Evaluate(State, Made, Alpha, Beta, Score, There);
    if (Known != Foreseen::Nothing) {
        if (const auto AtOnce = ScoreAtOnce<P>(State, Made, Beta, Depth, Score)) {
            return *AtOnce;
        }
    }
    TriedMove Tried(State, Move);
    if (Known == Foreseen::Nothing) {
        Score = EvaluatorOf(P.Rules)(State, Alpha, Beta, State.Side);
    }
    const std::int32_t Result = SearchBelow<P>(State, Alpha, Beta, Depth, Score, Ahead.KnownFrame(),
                                               Known == Foreseen::ScoreAndFacts ? &There : nullptr);
    Tried.TakeBack();
    return Result;
}

template <SearchPolicy P>
std::int32_t SearchMove(EngineState& State, int Move, std::int32_t Alpha, std::int32_t Beta, std::int32_t Depth,
                        StepsAhead<P>& Ahead) {
    if (State.MoveStack[Move].Stepper != 0 && Ahead.Foresees(State)) [[likely]] {
        return SearchStep<P>(State, Move, Alpha, Beta, Depth, Ahead);
    }
    TriedMove Tried(State, Move);
    const std::int32_t Result = SearchNode<P>(State, Alpha, Beta, Depth);
    Tried.TakeBack();
    return Result;
}

template <SearchPolicy P>
std::int32_t SearchBelow(EngineState& State, std::int32_t& Alpha, std::int32_t Beta, std::int32_t& Depth,
                         std::int32_t Score, const StepFrame* Frame, const StepFacts* Facts) {
    const std::int32_t Ply = State.Ply;

    // 5. Extension.
    if (Extends<P>(State, Score, Alpha, Beta, Depth)) {
        ++Depth;
    }

    // 6. Won, or beyond the horizon of captures.
    if (Score == WindowHigh - Ply || Depth < Horizon<P>) {
        return Score;
    }

    // 7. Standing pat.
    const bool BruteForce = KnowsBruteForce<P>(State);
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
    StepsAhead<P> Ahead(Frame, Facts);
    MovePicker Moves(State);
    for (int Move = Moves.Pick(); Move >= 0; Move = Moves.Pick()) {
        const std::int32_t Reply = -SearchMove<P>(State, Move, -Beta, -Alpha, Depth - 1, Ahead);
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

    // 13. The score.
    return ByDistance(Best, Ply);
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
