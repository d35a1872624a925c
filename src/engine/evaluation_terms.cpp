// The two terms of an evaluation that take time, worked out with sets of cells for all pieces at once.
#include "engine/evaluation_terms.h"

#include "engine/evaluate.h"

#include <algorithm>
#include <array>
#include <bit>

namespace zonterbrook::engine {

using namespace rules;

namespace {

/// Weights by cell as a number in binary: bit p of a cell's weight is its membership of plane p. A sum over a set of
/// pieces is then a few counts of bits, whatever their number.
template <std::size_t Planes>
using WeightPlanes = std::array<CellSet, Planes>;

/// The pull of an enemy piece: 19 less the distance, for kings and in the hard-wired evaluators a third of it.
constexpr int MaxPull = 19;
constexpr int PullPlanes = 5;
constexpr int ThirdPlanes = 3;
/// An enemy that is not there is looked for on cell 0, further away than 19. There, the planes hold this much more.
constexpr int NoEnemyCell = 0;
constexpr int NoEnemyBias = 2;

/// By the cell of the enemy piece.
template <std::size_t Planes, typename Weight>
constexpr std::array<WeightPlanes<Planes>, BoardCells> MakePlanes(Weight Of) {
    std::array<WeightPlanes<Planes>, BoardCells> Table{};
    for (std::size_t Target = 0; Target < BoardCells; ++Target) {
        for (CellSet Cells = PlayingCells; Cells.Any();) {
            const int Cell = Cells.TakeFirst();
            const int Value = Of(SquareDistance(Cell, static_cast<int>(Target)), static_cast<int>(Target));
            for (std::size_t Plane = 0; Plane < Planes; ++Plane) {
                if ((static_cast<unsigned>(Value) >> Plane & 1U) != 0) {
                    Table[Target][Plane].Toggle(Cell);
                }
            }
        }
    }
    return Table;
}

// Constants, but more steps of reckoning than every compiler grants a constexpr.
const auto PullTable = MakePlanes<PullPlanes>(
    [](int Distance, int Target) { return MaxPull - Distance + (Target == NoEnemyCell ? NoEnemyBias : 0); });
const auto ThirdTable =
    MakePlanes<ThirdPlanes>([](int Distance, int) { return Distance > MaxPull ? 0 : (MaxPull - Distance) / 3; });

/// The same by the cells of the enemy piece and of a man, for whom it is never divided.
const auto PullWeights = [] {
    base::CheckedArray<base::CheckedArray<std::int8_t, BoardCells>, BoardCells> Table{};
    PlayingCells.ForEach([&](int Target) {
        PlayingCells.ForEach(
            [&](int Cell) { Table[Target][Cell] = static_cast<std::int8_t>(MaxPull - SquareDistance(Cell, Target)); });
    });
    return Table;
}();

/// Where a colour's pieces have own pieces one step behind them. A piece counts once, and twice more for each of those:
/// `Isamulti` for all of them at once.
class Support {
public:
    Support(const EngineState& State, int Colour, const CellSet& Men, const CellSet& Kings) : Own(Men | Kings) {
        AddSteps(Men, State.MoveDirections[Colour]);
        if (Kings.Any()) {
            AddSteps(Kings, State.MoveDirections[Colour + 2]);
        }
    }

    /// The counts of the pieces in `Set`, added up.
    int Sum(const CellSet& Set) const {
        int Total = Own.CountIn(Set);
        for (int Digit = 0; Digit < Used; ++Digit) {
            Total += Digits[Digit].CountIn(Set) << (Digit + 1);
        }
        return Total;
    }

    /// The same, each times its weight.
    template <std::size_t Planes>
    int WeightedSum(const CellSet& Set, const WeightPlanes<Planes>& Weights) const {
        int Total = 0;
        for (std::size_t Plane = 0; Plane < Planes; ++Plane) {
            Total += Sum(Set & Weights[Plane]) << Plane;
        }
        return Total;
    }

    /// Pieces with nothing behind them.
    int Unsupported() const {
        CellSet Alone = Own;
        for (int Digit = 0; Digit < Used; ++Digit) {
            Alone = Alone.Without(Digits[Digit]);
        }
        return Alone.Count();
    }

private:
    void AddSteps(const CellSet& Pieces, const DirectionColumn& Steps) {
        for (const std::int16_t Step : Steps) {
            if (Step == DirectionSentinel) {
                break;
            }
            Add(Pieces.Moved(Step) & Own);
        }
    }

    /// Adds 1 to the number of each cell of `Set`, in binary, one digit of all cells' numbers in each set.
    void Add(CellSet Set) {
        for (int Digit = 0; Set.Any(); ++Digit) {
            Used = std::max(Used, Digit + 1);
            const CellSet Carry = Digits[Digit] & Set;
            Digits[Digit] = Digits[Digit] ^ Set;
            Set = Carry;
        }
    }

    CellSet Own;
    int Used = 0;
    /// Eight steps of men and eight of kings, if a rule set repeats them, bring up to sixteen supporters.
    base::CheckedArray<CellSet, 5> Digits;
};

/// The same where only men are left and they have two steps, as mostly.
class SupportOfMen {
public:
    /// `Steps` must have two entries.
    SupportOfMen(const CellSet& InMen, const DirectionColumn& Steps)
        : Men(InMen), First(Men.Moved(Steps[0]) & Men), Second(Men.Moved(Steps[1]) & Men) {}

    int Sum() const { return Men.Count() + 2 * (First.Count() + Second.Count()); }

    template <std::size_t Planes>
    int WeightedSum(const WeightPlanes<Planes>& Weights) const {
        int Total = 0;
        for (std::size_t Plane = 0; Plane < Planes; ++Plane) {
            const CellSet& Set = Weights[Plane];
            Total += (Men.CountIn(Set) + 2 * (First.CountIn(Set) + Second.CountIn(Set))) << Plane;
        }
        return Total;
    }

    int Unsupported() const { return Men.Without(First | Second).Count(); }

private:
    CellSet Men;
    CellSet First;
    CellSet Second;
};

bool HasTwoSteps(const DirectionColumn& Steps) {
    return Steps[0] != DirectionSentinel && Steps[1] != DirectionSentinel && Steps[2] == DirectionSentinel;
}

/// What a colour's pieces gain by standing near the enemy's strongest piece with support, from their own view: any
/// pieces, any steps.
template <EvaluatorPolicy P>
[[gnu::noinline]] int PullOfAny(const EngineState& State, int Colour, const CellSet& Men, const CellSet& Kings,
                                std::size_t Target, int Bias) {
    const Support Behind(State, Colour, Men, Kings);
    if constexpr (!P.Generic) {
        return Behind.WeightedSum(PlayingCells, ThirdTable[Target]) - 10 * Behind.Unsupported();
    } else {
        const int OfMen = Behind.WeightedSum(Men, PullTable[Target]) - (Bias != 0 ? Bias * Behind.Sum(Men) : 0);
        return OfMen + (Kings.Any() ? Behind.WeightedSum(Kings, ThirdTable[Target]) : 0);
    }
}

struct PatternGain {
    int Ground = 0; ///< of the colour whose promotion squares they are
    int Lines = 0;  ///< from White's point of view
};

/// What free ground gives where one or both of the cells in front are free. The hard-wired evaluators count it twice
/// where both are. Wanted: docs/kept_behaviour.md, "count free ground".
constexpr int OneFree = 20;
template <EvaluatorPolicy P>
constexpr int BothFree = P.Generic ? 30 : 50;

/// The pattern of men who step along two diagonals, where one end of the board holds all that it looks at.
template <EvaluatorPolicy P, int Sign>
PatternGain DiagonalPattern(const PieceSets& Pieces, const PatternList& List) {
    constexpr int Steps[] = {Sign * 11, Sign * 13};
    const auto Seen = [](std::uint64_t Bits, int Step) { return Step > 0 ? Bits >> Step : Bits << -Step; };
    const std::uint64_t Free = List.SeenOf(FreeCells(Pieces));
    PatternGain Gain;
    for (const int First : {0, 1}) {
        const std::uint64_t Next = Seen(Free, Steps[First]);
        for (const int Second : {0, 1}) {
            const std::uint64_t Beyond = Seen(Free, Steps[First] + Steps[Second]);
            const std::uint64_t Open = List.Diagonals[First][Second] & Free;
            Gain.Ground += OneFree * std::popcount(Open & (Next | Beyond)) +
                           (BothFree<P> - OneFree) * std::popcount(Open & Next & Beyond);
        }
    }
    for (const int Colour : {0, 1}) {
        const std::uint64_t Men = List.SeenOf(Pieces[Colour]);
        int Lines = 0;
        for (const int Way : {0, 1}) {
            Lines += std::popcount(List.Diagonals[Way][Way] & Men & Seen(Men, Steps[Way]) & Seen(Men, 2 * Steps[Way]));
        }
        Gain.Lines += (Colour == 0 ? 30 : -30) * Lines;
    }
    return Gain;
}

/// The pattern of any steps anywhere.
template <EvaluatorPolicy P>
PatternGain AnyPattern(const PieceSets& Pieces, const PatternList& List) {
    const CellSet Free = FreeCells(Pieces);
    const auto MenInLine = [](const CellSet& Men, const PatternSteps& Steps) {
        return (Men & Steps.Squares & Men.Moved(-Steps.First)).CountIn(Men.Moved(-Steps.Both));
    };
    PatternGain Gain;
    for (int Row = 0; Row < List.Count; ++Row) {
        const PatternSteps& Steps = List.Steps[Row];
        const CellSet Open = Steps.Squares & Free;
        if (Open.Any()) {
            const CellSet Next = Free.Moved(-Steps.First);
            const CellSet Beyond = Free.Moved(-Steps.Both);
            Gain.Ground +=
                OneFree * Open.CountIn(Next | Beyond) + (BothFree<P> - OneFree) * Open.CountIn(Next & Beyond);
        }
        if (Steps.Straight != 0) {
            Gain.Lines += 30 * MenInLine(Pieces[0], Steps) - 30 * MenInLine(Pieces[1], Steps);
        }
    }
    return Gain;
}

} // namespace

template <EvaluatorPolicy P>
int PullWorkedOut(const EngineState& State, int Colour, const CellSet& Men, const CellSet& Kings, int EnemyCell) {
    const auto Target = static_cast<std::size_t>(EnemyCell);
    const int Bias = EnemyCell == NoEnemyCell ? NoEnemyBias : 0;
    if (Kings.Any() || !HasTwoSteps(State.MoveDirections[Colour])) {
        return PullOfAny<P>(State, Colour, Men, Kings, Target, Bias);
    }
    const SupportOfMen Behind(Men, State.MoveDirections[Colour]);
    return P.Generic ? Behind.WeightedSum(PullTable[Target]) - (Bias != 0 ? Bias * Behind.Sum() : 0)
                     : Behind.WeightedSum(ThirdTable[Target]) - 10 * Behind.Unsupported();
}

int PullChange(const EngineState& State, int From, int To, int EnemyCell) {
    const auto& Weights = PullWeights[EnemyCell];
    const std::int32_t Man = State.Board[From];
    const auto Stands = [&](int Cell) { return State.Board[Cell] == Man ? 1 : 0; };
    const int Along = To - From;
    const int Across = (Along > 0 ? 24 : -24) - Along; // the other of the two steps
    // What the man has for himself and his support, and what those have from him in front of whom he stands.
    const auto Own = [&](int Cell, int Behind) { return Weights[Cell] * (1 + 2 * Behind); };
    const auto Given = [&](int Cell) { return 2 * Weights[Cell] * Stands(Cell); };
    return Own(To, Stands(To - Across)) + Given(To + Along) + Given(To + Across) -
           Own(From, Stands(From - Along) + Stands(From - Across)) - Given(From + Across);
}

template <EvaluatorPolicy P>
int PatternWorkedOut(const EngineState& State, const PieceSets& Pieces, int Colour) {
    const PatternList& List = PatternOf<P>(State, Colour);
    if (List.Faults != 0) [[unlikely]] {
        base::FailIndex(NoSquare, BoardCells);
    }
    const StepShape Shape = State.StepShapes[1 - Colour];
    const PatternGain Gain = List.Window == PatternWindow::None ? AnyPattern<P>(Pieces, List)
                             : Shape == StepShape::UpDiagonals  ? DiagonalPattern<P, 1>(Pieces, List)
                                                                : DiagonalPattern<P, -1>(Pieces, List);
    return (Colour == 0 ? Gain.Ground : -Gain.Ground) + Gain.Lines;
}

template int PullWorkedOut<EvaluatorOfKind(EvaluatorKind::Generic)>(const EngineState&, int, const CellSet&,
                                                                    const CellSet&, int);
template int PatternWorkedOut<EvaluatorOfKind(EvaluatorKind::Generic)>(const EngineState&, const PieceSets&, int);
template int PullWorkedOut<EvaluatorOfKind(EvaluatorKind::American)>(const EngineState&, int, const CellSet&,
                                                                     const CellSet&, int);
template int PatternWorkedOut<EvaluatorOfKind(EvaluatorKind::American)>(const EngineState&, const PieceSets&, int);
template int PullWorkedOut<EvaluatorOfKind(EvaluatorKind::German)>(const EngineState&, int, const CellSet&,
                                                                   const CellSet&, int);
template int PatternWorkedOut<EvaluatorOfKind(EvaluatorKind::German)>(const EngineState&, const PieceSets&, int);
template int PullWorkedOut<EvaluatorOfKind(EvaluatorKind::Italian)>(const EngineState&, int, const CellSet&,
                                                                    const CellSet&, int);
template int PatternWorkedOut<EvaluatorOfKind(EvaluatorKind::Italian)>(const EngineState&, const PieceSets&, int);

} // namespace zonterbrook::engine
