// Iterative deepening at the root.
//
// Reads the root moves from the stack, writes their order, `RootMoves`, `BestScore`, the main line and the margins.
// Works on the position through make and unmake alone.
#include "engine/root_search.h"

#include "engine/evaluate.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "rules/moves.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <optional>
#include <utility>

namespace zonterbrook::engine {

using namespace rules;

namespace {

constexpr std::int32_t StartAspirationWidth = 100;
constexpr std::int32_t WidenStep = 10;
constexpr std::int32_t ShortLine = 3;
constexpr std::int32_t VerifyFrom = 3;
/// How far the score must have fallen since the last iteration to be worth half as much time again.
constexpr std::int32_t FallingScore = 50;
constexpr int MenBelowThreshold = 6;
constexpr double SecondsPerDay = 86400;

/// How many of the keys of the game equal the position on the board.
int CountRepetitions(const EngineState& State) {
    const PositionKey Key = KeyOfPosition(State);
    int Count = 0;
    for (int I = 0; I < State.SearchBase; ++I) {
        Count += State.PositionHistory[I] == Key ? 1 : 0;
    }
    return Count;
}

} // namespace

std::int32_t DrawAfterRootMove(const EngineState& State) {
    if (const int Repetitions = CountRepetitions(State); Repetitions != 0) {
        return Repetitions;
    }
    const bool Quiet = State.PlyIrreversible[State.Ply] == 0;
    return State.QuietLimit > 0 && Quiet && State.QuietMoves + 1 > State.QuietLimit ? 1 : 0;
}

namespace {

/// While it lives, a search that plays by time looks at the clock at each turn of the world, so that a single root move
/// can't outstay it.
class ClockWatch final : public base::TurnListener {
public:
    ClockWatch(EngineState& InState, std::function<bool()> InIsLate) : State(InState), IsLate(std::move(InIsLate)) {
        State.World->SetTurnListener(this);
    }
    ~ClockWatch() override { State.World->SetTurnListener(nullptr); }

    void TurnTaken() override {
        if (IsLate()) {
            State.StopAutoPlay = 1;
        }
    }

private:
    EngineState& State;
    const std::function<bool()> IsLate;
};

class RootLoop {
public:
    RootLoop(EngineState& InState, const RootLimits& InLimits, double InStarted, RootObserver& InObserver)
        : State(InState), Limits(InLimits), Started(InStarted), Observer(InObserver), Routine(PlayingRoutine(InState)),
          VerifiesFullWindow(InState.SpecialRuleSet == KnownRules::American ||
                             (InState.SpecialRuleSet == KnownRules::None && InState.RuleSet.AntiMode == 1)) {}

    RootOutcome Run() {
        std::optional<ClockWatch> Watch;
        if (Limits.ByTime) {
            Watch.emplace(State, [this] { return IsLate(); });
        }
        State.RootSide = State.Side;
        Count = State.StackLimit[1];
        for (int I = 0; I < std::min(Count, RootMoveEntries); ++I) {
            const rules::MoveRecord& Move = State.MoveStack[I];
            State.RootMoves[I] = {Move.Source, Move.Dest, State.RootMoves[I].Score, Move.Captures.Count != 0,
                                  Move.Kind != 0};
        }
        for (Iteration = 1; Iteration <= Limits.Depth; ++Iteration) {
            if (!RunIteration()) {
                break;
            }
        }
        // A stop by the clock is not the user's: whoever plays on plays on.
        if (State.CancelRequested == rules::StopRequest::Clock) {
            State.CancelRequested = rules::StopRequest::None;
            State.StopAutoPlay = 0;
        }
        Outcome.Seconds = Elapsed();
        return Outcome;
    }

private:
    double Elapsed() const { return ElapsedSeconds(Started, State.World->Seconds()); }

    void StopByClock() {
        State.CancelRequested = rules::StopRequest::Clock;
        State.StopAutoPlay = 1;
    }

    /// A stop does not break the loop while the score is a forced one: what is left returns at once. The clock's in the
    /// middle of a move does, as nothing is known of the move then.
    bool MustLeave() const { return RanOut || (std::abs(Alpha) <= DecidedScore && State.StopAutoPlay == 1); }

    /// Whether the search has to stop in the middle of a root move, once there is a move to play.
    bool IsLate() {
        RanOut = RanOut || (Outcome.DepthReached > 0 && State.StopAutoPlay == 0 && IsTimeUp(Elapsed()));
        return RanOut;
    }

    /// Half as much time again may be spent, but only to repair a falling score.
    bool IsTimeUp(double Seconds) const {
        const bool Falling = State.BestScore < LastIterationScore - FallingScore;
        return Seconds >= (Falling ? 1.5 : 1) * Limits.TimeLimit;
    }

    /// Returns false when the iterations are to end.
    bool RunIteration() {
        const double IterationStarted = State.World->Seconds();
        // The verification may widen the lazy margin at once at a fixed depth, later when playing by time.
        if (Limits.ByTime ? Iteration > 2 : Iteration == 1) {
            WidenAllowed = true;
        }
        if (Iteration == 1) {
            Alpha = WindowLow;
            Beta = WindowHigh;
        } else {
            Beta = Alpha + State.AspirationWidth;
            Alpha -= State.AspirationWidth;
        }
        State.MaxSearchDepth = Iteration + State.Plys;
        for (int Move = 0; Move < Count; ++Move) {
            if (!SearchMove(Move)) {
                break;
            }
        }
        if (Limits.ByTime && Elapsed() >= Limits.TimeLimit) {
            StopByClock();
        }
        if (State.StopAutoPlay == 1) {
            return false;
        }
        LastIterationScore = State.BestScore;
        Observer.IterationDone(Iteration, ElapsedSeconds(IterationStarted, State.World->Seconds()));
        return true;
    }

    /// One root move of an iteration. Returns false when the loop over the moves is to end.
    bool SearchMove(int Move) {
        ClearMainVariant(State, 0);
        Observer.MoveStarts(Iteration, Move, false);
        std::int32_t Score = TryMove(Move, Move == 0 ? WindowLow - 1 : WindowHigh);
        if (MustLeave()) {
            return false;
        }
        bool Accepted = false;
        if (Move == 0) {
            if (Score < Alpha || Score >= Beta) {
                const bool Low = Score < Alpha;
                Alpha = Low ? WindowLow : Score;
                Beta = Low ? Score : WindowHigh;
                Score = TryMove(Move, WindowLow - 1);
                if (MustLeave()) {
                    return false;
                }
            }
            Accepted = true;
        } else if (Score > Alpha) {
            // The window of a move that fails here is left as the attempt has set it. Wanted: docs/kept_behaviour.md,
            // "leaves its window behind".
            const std::int32_t OldAlpha = std::exchange(Alpha, Score);
            Beta = WindowHigh;
            Score = TryMove(Move, OldAlpha);
            if (MustLeave()) {
                return false;
            }
            Accepted = Score > OldAlpha;
            Beta = Alpha + 1;
        }
        if (Accepted) {
            Alpha = Score;
            Beta = Alpha + 1;
            Accept(Move, Score);
        }
        CheckClock();
        const int Place = Accepted ? 0 : Move;
        if (Place < RootMoveEntries) {
            State.RootMoves[Place].Score = Verified ? ScoreBeforeVerify : Score;
        }
        return State.StopAutoPlay != 1;
    }

    /// Searches one root move with the window in force. It is verified if it beats `VerifyAbove`.
    std::int32_t TryMove(int Move, std::int32_t VerifyAbove) {
        Verified = false;
        TriedMove Tried(State, Move);
        State.DrawPending = DrawAfterRootMove(State);
        std::int32_t Depth = Iteration - 1;
        std::int32_t Score = SearchReply(Alpha, Beta, Depth);
        if (Limits.Verifies && Score > VerifyAbove) {
            Score = Verify(Move, Score);
        }
        Tried.TakeBack();
        return Score;
    }

    std::int32_t SearchReply(std::int32_t Low, std::int32_t High, std::int32_t& Depth) {
        std::int32_t ReplyAlpha = -High;
        return -Routine.Search(State, ReplyAlpha, -Low, Depth);
    }

    /// A best move with a suspiciously short line behind it gets a look a ply deeper.
    std::int32_t Verify(int Move, std::int32_t Score) {
        int Length = 1;
        while (State.MainVariantTable[1][Length].Source != 0) {
            ++Length;
        }
        if (Length >= ShortLine || Iteration < VerifyFrom) {
            return Score;
        }
        Observer.MoveStarts(Iteration, Move, true);
        ScoreBeforeVerify = Score;
        Verified = true;
        // The depth is the iteration itself: an extension in the search lengthens the root's count too. Wanted:
        // docs/kept_behaviour.md, "lengthen the count".
        Score =
            VerifiesFullWindow ? SearchReply(WindowLow, WindowHigh, Iteration) : SearchReply(Alpha, Beta, Iteration);
        if (State.Material[State.Ply] != 0 && WidenAllowed) {
            State.LazyMargin += WidenStep;
            if (State.WidenDropsPattern == 1) {
                State.PatternTermEnabled = 0;
            }
        }
        return Score;
    }

    /// The move is the best of its iteration so far: it goes to the front, and the others keep their order.
    void Accept(int Move, std::int32_t Score) {
        State.BestScore = Score;
        UpdateMainVariant(State, Move);
        Outcome.DepthReached = Iteration;
        Observer.MoveAccepted(Iteration, Move);
        auto* Records = State.MoveStack.begin();
        std::rotate(Records, Records + Move, Records + Move + 1);
        // The list holds the first moves only; one from behind its end pushes the last one out.
        const int Listed = std::min(Move, RootMoveEntries - 1);
        auto* Moves = State.RootMoves.begin();
        std::rotate(Moves, Moves + Listed, Moves + Listed + 1);
        Moves->Source = Records->Source;
        Moves->Dest = Records->Dest;
    }

    void CheckClock() {
        const double Seconds = Limits.ByTime ? Elapsed() : 0;
        Observer.MoveDone(Seconds);
        if (Limits.ByTime && IsTimeUp(Seconds)) {
            StopByClock();
        }
    }

    EngineState& State;
    const RootLimits Limits;
    const double Started;
    RootObserver& Observer;
    const SearchRoutine& Routine;
    const bool VerifiesFullWindow;
    RootOutcome Outcome;
    int Count = 0;
    std::int32_t Iteration = 0;
    std::int32_t Alpha = 0;
    std::int32_t Beta = 0;
    std::int32_t LastIterationScore = 0;
    std::int32_t ScoreBeforeVerify = 0;
    bool Verified = false;
    bool WidenAllowed = false;
    bool RanOut = false; ///< the clock has stopped the search in the middle of a move
};

} // namespace

void InitEngineThresholds(EngineState& State) {
    State.MenThresholdWhite = std::max(State.StartMenWhite - MenBelowThreshold, MenBelowThreshold);
    State.MenThresholdBlack = std::max(State.StartMenBlack - MenBelowThreshold, MenBelowThreshold);
}

void SetNoise(EngineState& State) {
    const int Noise = State.Strength * 70 - 70;
    State.Noise = Noise == 0 ? 5 : std::max(Noise, 0);
}

void PrepareSearch(EngineState& State, Patterns Rows) {
    if (Rows == Patterns::Used) {
        State.PatternTermEnabled = 1;
    }
    State.AspirationWidth = StartAspirationWidth;
    State.RootMoves.Fill({UnsetScore, 0, UnsetScore});
    InitEngineThresholds(State);
    SetNoise(State);
    State.StopAutoPlay = 0;
    State.SearchBase = State.GameMoves;
    State.NodeCount = 0;
}

RootOutcome RootSearch(EngineState& State, const RootLimits& Limits, double Started, RootObserver& Observer) {
    RootLoop Loop(State, Limits, Started, Observer);
    const SearchScope Scope(State, SearchFamily::Playing);
    return Loop.Run();
}

void SortRootMoves(EngineState& State) {
    std::stable_sort(State.RootMoves.begin(), State.RootMoves.end(),
                     [](const RootMove& A, const RootMove& B) { return A.Score > B.Score; });
}

double ElapsedSeconds(double From, double To) {
    return To >= From ? To - From : To - From + SecondsPerDay;
}

} // namespace zonterbrook::engine
