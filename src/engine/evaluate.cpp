// The evaluators: census, decided positions, lazy exit, positional sum, repetition, pattern, score.
//
// The generic evaluator and the three hard-wired ones are one routine over a policy, so that what differs between them
// stands in one place. Numbers that hang on the rule set alone come from tables (evaluate_tables.cpp).
#include "engine/evaluate.h"

#include "rules/generate.h"
#include "rules/position.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>

namespace zonterbrook::engine {

using namespace rules;

namespace {

/// What the four evaluators differ in.
struct EvaluatorPolicy {
    EvaluatorKind Kind;
    /// Reads the rules of the variant: goals, draws without a move, anti mode, empty cells, goals' distances.
    bool Generic;
};

using DistanceRow = std::array<std::uint8_t, BoardCells>;

constexpr std::array<DistanceRow, BoardCells> MakeDistances() {
    std::array<DistanceRow, BoardCells> Table{};
    for (std::size_t A = 0; A < BoardCells; ++A) {
        for (std::size_t B = 0; B < BoardCells; ++B) {
            Table[A][B] = static_cast<std::uint8_t>(SquareDistance(static_cast<int>(A), static_cast<int>(B)));
        }
    }
    return Table;
}
constexpr auto Distances = MakeDistances();

int DistanceBetween(int A, int B) {
    return Distances[static_cast<std::size_t>(A)][static_cast<std::size_t>(B)];
}

/// What the census of a position tells.
struct Census {
    int Pieces[2];
    int Men[2];
    bool Early[2]; ///< the colour has more men than its threshold
    bool Goal[2];
};

/// The cell of a colour's strongest piece; cell 0 if it has none. White's is the first of equals, Black's the last, in
/// rows from the bottom and columns from the right. The asymmetry is wanted.
int StrongestOf(const EngineState& State, int Colour) {
    const CellSet Kings = State.Pieces[Colour + 2];
    const CellSet Set = Kings.Any() ? Kings : State.Pieces[Colour];
    if (Set.None()) {
        return 0;
    }
    return Colour == 0 ? (Set & RowCells(RowOf(Set.First()))).Last() : (Set & RowCells(RowOf(Set.Last()))).First();
}

Census Count(const EngineState& State) {
    Census Result;
    for (const int Colour : {0, 1}) {
        Result.Men[Colour] = State.Pieces[Colour].Count();
        Result.Pieces[Colour] = Result.Men[Colour] + State.Pieces[Colour + 2].Count();
        Result.Early[Colour] = Result.Men[Colour] > (Colour == 0 ? State.MenThresholdWhite : State.MenThresholdBlack);
    }
    return Result;
}

/// A king that stands where it wins: on its own promotion square, or, where kings must come back, on the enemy's.
void FindGoals(const EngineState& State, Census& Figures) {
    const RuleSetFields& Rules = State.RuleSet;
    for (const int Colour : {0, 1}) {
        const int Column = Rules.WinAtPromo != 0 ? 1 - Colour : Colour;
        const bool Armed = Rules.WinAtPromo != 0 || Rules.KingWin != 0;
        Figures.Goal[Colour] = Armed && (State.Pieces[Colour + 2] & State.PromotionSet[Column]).Any();
    }
}

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

/// Where a colour's pieces have own pieces one step behind them. A piece counts once, and twice more for each of those:
/// `Isamulti` for all of them at once.
class Support {
public:
    Support(const EngineState& State, int Colour) : Own(State.Pieces[Colour] | State.Pieces[Colour + 2]) {
        for (int Index = Colour; Index < PieceIndices; Index += 2) {
            if (State.Pieces[Index].None()) {
                continue;
            }
            for (const std::int16_t Step : State.MoveDirections[Index]) {
                if (Step == DirectionSentinel) {
                    break;
                }
                Add(State.Pieces[Index].Moved(Step) & Own);
            }
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
[[gnu::noinline]] int PullOfAny(const EngineState& State, int Colour, std::size_t Target, int Bias) {
    const Support Behind(State, Colour);
    if constexpr (!P.Generic) {
        return Behind.WeightedSum(PlayingCells, ThirdTable[Target]) - 10 * Behind.Unsupported();
    } else {
        const CellSet Men = State.Pieces[Colour];
        const CellSet Kings = State.Pieces[Colour + 2];
        const int OfMen = Behind.WeightedSum(Men, PullTable[Target]) - (Bias != 0 ? Bias * Behind.Sum(Men) : 0);
        return OfMen + (Kings.Any() ? Behind.WeightedSum(Kings, ThirdTable[Target]) : 0);
    }
}

template <EvaluatorPolicy P>
int PullOfColour(const EngineState& State, int Colour, int EnemyCell) {
    const auto Target = static_cast<std::size_t>(EnemyCell);
    const int Bias = EnemyCell == NoEnemyCell ? NoEnemyBias : 0;
    if (State.Pieces[Colour + 2].Any() || !HasTwoSteps(State.MoveDirections[Colour])) {
        return PullOfAny<P>(State, Colour, Target, Bias);
    }
    const SupportOfMen Behind(State.Pieces[Colour], State.MoveDirections[Colour]);
    return P.Generic ? Behind.WeightedSum(PullTable[Target]) - (Bias != 0 ? Bias * Behind.Sum() : 0)
                     : Behind.WeightedSum(ThirdTable[Target]) - 10 * Behind.Unsupported();
}

/// The file term of variants whose men never leave their rows: the opponent of the side to move counts columns that it
/// holds alone. The slot is the row's number though it was counted by column. Wanted: docs/kept_behaviour.md, "columns
/// held alone".
int SidewaysTerm(const EngineState& State, int Row) {
    const int Column = 12 - Row;
    CellSet::Word Bits = 0;
    for (int R = FirstRow; R <= LastRow; ++R) {
        Bits |= CellSet::Word{1} << static_cast<unsigned>(CellAt(R, Column) - FirstCell);
    }
    const int Own = State.RootSide == White ? 0 : 1;
    const CellSet Cells(Bits);
    const bool Holds = (State.Pieces[Own] & Cells).Count() > 1 && (State.Pieces[1 - Own] & Cells).Count() < 2;
    return Holds ? State.RootSide : 0;
}

bool HasSidewaysTerm(const EngineState& State, std::int32_t Side) {
    return State.SidewaysOnly != 0 && State.RootSide == -Side;
}

/// The sum for variants that the first king wins. Where the colours have unequal numbers of promotion squares a
/// fraction is rounded at each piece, halves to even, so the order of the cells counts.
int KingWinSum(const EngineState& State, const Census& Figures, int Combination, std::int32_t Side) {
    const PieceValueTable& Values = State.GenericValues[Combination];
    const double Factor = 2.0 - (Figures.Pieces[0] + Figures.Pieces[1]) * 0.01;
    const bool ByRow = HasSidewaysTerm(State, Side);
    const int Strongest[2] = {StrongestOf(State, 0), StrongestOf(State, 1)};
    int FirstRowOf[2] = {0, 0};
    int RowsDone = FirstRow - 1;
    int Sum = 0; // less what the empty cells up to here give
    const auto EnterRows = [&](int Row) {
        while (ByRow && RowsDone < Row) {
            Sum += SidewaysTerm(State, ++RowsDone);
        }
    };
    for (CellSet Pieces = AllPieces(State); Pieces.Any();) {
        const int Cell = Pieces.TakeFirst();
        const int Row = RowOf(Cell);
        const int Index = PieceIndex(State.Board[Cell]);
        const int Colour = Index % 2;
        const int Sign = Colour == 0 ? 1 : -1;
        EnterRows(Row);
        Sum += Values[Index][Cell];
        const int EmptySoFar = State.EmptyPrefix[Combination][Cell];
        for (int Entry = 0; Entry < PromotionRows; ++Entry) {
            const int Square = State.RuleSet.PromotionSquares[Entry][Colour];
            if (Square != NoSquare) {
                Sum += Sign * 2 * (19 - DistanceBetween(Cell, Square));
            } else if (State.PromotionCountEqual == 0 && Entry <= State.PromotionCountMax) {
                const int Distance = DistanceBetween(Cell, Strongest[1 - Colour]);
                const double Exact = (Sum + EmptySoFar) + Sign * Factor * (19 - Distance);
                Sum = static_cast<int>(std::nearbyint(Exact)) - EmptySoFar;
                if (FirstRowOf[Colour] == 0) {
                    FirstRowOf[Colour] = Row - 1;
                }
                Sum -= Sign * 10 * std::abs(FirstRowOf[Colour] + 1 - Row);
            }
        }
    }
    EnterRows(LastRow);
    return Sum + State.EmptyPrefix[Combination][LastCell];
}

/// What the pieces are worth where they stand, seen from White: as make and unmake have summed it up if this is the
/// evaluator by which the rule set is played, else counted here.
int SumOfPlaces(const EngineState& State, const PieceValueTable& Values, bool KeptInLane, int Lane) {
    if (KeptInLane) {
        return State.WeightSums[State.Ply].Lanes[Lane];
    }
    int Sum = 0;
    for (int Index = 0; Index < PieceIndices; ++Index) {
        for (CellSet Pieces = State.Pieces[Index]; Pieces.Any();) {
            Sum += Values[Index][Pieces.TakeFirst()];
        }
    }
    return Sum;
}

/// The positional sum from White's point of view.
template <EvaluatorPolicy P>
int PositionalSum(const EngineState& State, const Census& Figures, std::int32_t Side) {
    const auto Pull = [&] {
        return PullOfColour<P>(State, 0, StrongestOf(State, 1)) - PullOfColour<P>(State, 1, StrongestOf(State, 0));
    };
    if constexpr (!P.Generic) {
        constexpr int Lane = static_cast<int>(P.Kind);
        return SumOfPlaces(State, State.SpecialValues[Lane], State.SpecialRuleSet != rules::KnownRules::None, Lane) +
               Pull();
    } else {
        const int Combination = (Figures.Early[0] ? 1 : 0) + (Figures.Early[1] ? 2 : 0);
        if (State.RuleSet.KingWin == 1) {
            return KingWinSum(State, Figures, Combination, Side);
        }
        int Sum = State.EmptyPrefix[Combination][LastCell] +
                  SumOfPlaces(State, State.GenericValues[Combination], State.SpecialRuleSet == rules::KnownRules::None,
                              Combination);
        if (State.DistanceTermEnabled != 0) {
            Sum += Pull();
        }
        if (HasSidewaysTerm(State, Side)) {
            for (int Row = FirstRow; Row <= LastRow; ++Row) {
                Sum += SidewaysTerm(State, Row);
            }
        }
        return Sum;
    }
}

/// A mix of all the key's bits. Unequal keys may share it; the keys themselves decide then.
std::uint32_t Fingerprint(const PositionKey& Key) {
    constexpr std::uint64_t Factors[] = {0x9E3779B97F4A7C15ULL, 0xBF58476D1CE4E5B9ULL, 0x94D049BB133111EBULL,
                                         0xD6E8FEB86659FD93ULL, 0xA0761D6478BD642FULL, 0xE7037ED1A0B428DBULL,
                                         0x8EBC6AF09C88C6E3ULL, 0x589965CC75374CC3ULL};
    std::uint64_t Mix = 0;
    for (std::size_t Index = 0; Index < PieceIndices; ++Index) {
        Mix += Key.Pieces[Index].Low() * Factors[2 * Index] + Key.Pieces[Index].High() * Factors[2 * Index + 1];
    }
    return static_cast<std::uint32_t>(Mix >> 32U);
}

/// Whether `Value` may be among the first `Count`. Looks at all of them and up to three more, four at once: the answer
/// is only a hint.
bool MayOccurIn(const std::uint32_t* Values, int Count, std::uint32_t Value) {
    std::uint32_t Found[4] = {};
    for (int I = 0; I < Count; I += 4) {
        for (int J = 0; J < 4; ++J) {
            Found[J] |= Values[I + J] == Value ? 1U : 0U;
        }
    }
    return (Found[0] | Found[1] | Found[2] | Found[3]) != 0;
}
static_assert(GameMoveEntries > (MaxGameMoves + MaxPly - 1 + 3) / 4 * 4, "room for what is looked at beyond the last");

/// True if the position stood before in the game or the line, two moves back or more. If not, its key is stored.
bool IsRepetition(EngineState& State) {
    const PositionKey Key = KeyOfPosition(State);
    const std::uint32_t Print = Fingerprint(Key);
    const int Past = std::max(State.GameMoves - 1, 0);
    if (MayOccurIn(State.HistoryFingerprint.begin(), Past, Print)) [[unlikely]] {
        const auto* Keys = State.PositionHistory.begin();
        if (std::find(Keys, Keys + Past, Key) != Keys + Past) {
            return true;
        }
    }
    if (State.GameMoves > 0) {
        State.PositionHistory[State.GameMoves - 1] = Key;
        State.HistoryFingerprint[State.GameMoves - 1] = Print;
    }
    return false;
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
PatternGain DiagonalPattern(const EngineState& State, const PatternList& List) {
    constexpr int Steps[] = {Sign * 11, Sign * 13};
    const auto Window = [&](const CellSet& Set) {
        return List.Window == PatternWindow::Lower ? Set.Low()
                                                   : Set.Low() >> UpperWindowBit | Set.High() << (64 - UpperWindowBit);
    };
    const auto Seen = [](std::uint64_t Bits, int Step) { return Step > 0 ? Bits >> Step : Bits << -Step; };
    const std::uint64_t Free = Window(PlayingCells.Without(AllPieces(State)));
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
        const std::uint64_t Men = Window(State.Pieces[Colour]);
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
PatternGain AnyPattern(const EngineState& State, const PatternList& List) {
    const CellSet Free = PlayingCells.Without(AllPieces(State));
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
            Gain.Lines += 30 * MenInLine(State.Pieces[0], Steps) - 30 * MenInLine(State.Pieces[1], Steps);
        }
    }
    return Gain;
}

/// The gain of a colour from free ground in front of its promotion squares, and of closed lines of men there.
template <EvaluatorPolicy P>
int Pattern(const EngineState& State, int Colour) {
    const PatternList& List = P.Generic ? State.GenericPattern[Colour] : State.SpecialPattern[Colour];
    if (List.Faults != 0) [[unlikely]] {
        base::FailIndex(NoSquare, BoardCells);
    }
    const StepShape Shape = State.StepShapes[1 - Colour];
    const PatternGain Gain = List.Window == PatternWindow::None ? AnyPattern<P>(State, List)
                             : Shape == StepShape::UpDiagonals  ? DiagonalPattern<P, 1>(State, List)
                                                                : DiagonalPattern<P, -1>(State, List);
    return (Colour == 0 ? Gain.Ground : -Gain.Ground) + Gain.Lines;
}

int NoiseTerm(EngineState& State) {
    if (State.Noise == 0) {
        return 0;
    }
    const auto Draw = [&] { return static_cast<int>(std::floor(State.World->Random() * State.Noise)); };
    const int First = Draw();
    return First - Draw();
}

template <EvaluatorPolicy P>
std::int32_t Evaluate(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    // 1. Nothing is known yet.
    State.SideToMoveLost = 0;

    // 2. Census.
    Census Figures = Count(State);
    const bool Anti = P.Generic && State.RuleSet.AntiMode != 0;
    if constexpr (P.Generic) {
        FindGoals(State, Figures);

        // 3. A draw for want of a move.
        if (State.RuleSet.NoLegalDraw != 0) {
            State.NoLegalDrawHit = 0;
            if (!GenerateMoves1(State, 1) && Figures.Pieces[0] > 0 && Figures.Pieces[1] > 0) {
                State.NoLegalDrawHit = 1;
                return 0;
            }
        }
    }

    // 4. Decided positions. In anti mode the colours change their roles.
    const int Mover = (Side == White) != Anti ? 0 : 1;
    const int Other = 1 - Mover;
    const std::int32_t Limit = State.RuleSet.NumberPieces;
    bool Lost = Figures.Pieces[Mover] <= Limit;
    bool Won = Figures.Pieces[Other] <= Limit;
    if constexpr (P.Generic) {
        Lost = Lost || Figures.Goal[Other];
        Won = Won || Figures.Goal[Mover];
    }
    State.SideToMoveLost = Lost ? 1 : 0;
    if (Won) {
        return WindowHigh - State.Ply;
    }

    // 5. Lazy exit.
    const std::int32_t Material = State.Material[State.Ply];
    const bool Outside =
        Material < std::int64_t{Alpha} - State.LazyMargin || Material > std::int64_t{Beta} + State.LazyMargin;
    if (Outside && (!P.Generic || State.TotalMaterial[State.Ply] != 0)) {
        return Anti ? -Material : Material;
    }

    // 6. A draw that waits for this line.
    if (State.DrawPending != 0) {
        return 0;
    }

    // 7. and 8. Positional sum and repetition, which share nothing but their place: a repetition needs no sum.
    if (IsRepetition(State)) {
        return 0;
    }
    int Sum = PositionalSum<P>(State, Figures, Side);

    // 9. Promotion rows.
    if (!P.Generic || State.PatternTermEnabled == 1) {
        for (const int Colour : {0, 1}) {
            if (Figures.Early[Colour]) {
                Sum += Pattern<P>(State, Colour);
            }
        }
    }

    // 10. The score, from the side to move.
    const std::int32_t Score = Material + (Side == Black ? -Sum : Sum) + NoiseTerm(State);
    return P.Generic && State.RuleSet.AntiMode == 1 ? -Score : Score;
}

} // namespace

PositionKey KeyOfPosition(const RulesState& State) {
    return {State.Pieces};
}

void StoreKey(EngineState& State, int Index, const PositionKey& Key) {
    State.PositionHistory[Index] = Key;
    State.HistoryFingerprint[Index] = Fingerprint(Key);
}

std::int32_t EvaluatePosition(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorPolicy{EvaluatorKind::Generic, true}>(State, Alpha, Beta, Side);
}
std::int32_t EvaluateAmerican(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorPolicy{EvaluatorKind::American, false}>(State, Alpha, Beta, Side);
}
std::int32_t EvaluateGerman(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorPolicy{EvaluatorKind::German, false}>(State, Alpha, Beta, Side);
}
std::int32_t EvaluateItalian(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorPolicy{EvaluatorKind::Italian, false}>(State, Alpha, Beta, Side);
}

} // namespace zonterbrook::engine
