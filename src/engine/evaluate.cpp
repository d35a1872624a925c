// The evaluators: census, decided positions, lazy exit, positional sum, repetition, pattern, score.
//
// The generic evaluator and the three hard-wired ones are one routine over a policy, so that what differs between them
// stands in one place. Numbers that hang on the rule set alone come from tables (evaluate_tables.cpp).
#include "engine/evaluate.h"

#include "engine/evaluation_terms.h"
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

Census Count(const EngineState& State) {
    Census Result;
    for (const int Colour : {0, 1}) {
        Result.Men[Colour] = State.Pieces[Colour].Count();
        Result.Pieces[Colour] = Result.Men[Colour] + State.Pieces[Colour + 2].Count();
        Result.Early[Colour] = Result.Men[Colour] > (Colour == 0 ? State.MenThresholdWhite : State.MenThresholdBlack);
    }
    return Result;
}

/// The row of the generic evaluator's tables.
int CombinationOf(const Census& Figures) {
    return (Figures.Early[0] ? 1 : 0) + (Figures.Early[1] ? 2 : 0);
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

/// The pull on a colour's pieces as they stand.
template <EvaluatorPolicy P>
int PullOf(EngineState& State, int Colour) {
    return PullOfColour<P>(State, Colour, State.Pieces[Colour], State.Pieces[Colour + 2],
                           StrongestOf(State, 1 - Colour));
}

/// The positional sum from White's point of view.
template <EvaluatorPolicy P>
int PositionalSum(EngineState& State, const Census& Figures, std::int32_t Side) {
    const auto Pull = [&] { return PullOf<P>(State, 0) - PullOf<P>(State, 1); };
    if constexpr (!P.Generic) {
        constexpr int Lane = static_cast<int>(P.Kind);
        return SumOfPlaces(State, State.SpecialValues[Lane], State.SpecialRuleSet != rules::KnownRules::None, Lane) +
               Pull();
    } else {
        const int Combination = CombinationOf(Figures);
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

/// A mix of all the key's bits, a sum over its cells. Unequal keys may share it; the keys themselves decide then.
std::uint64_t MixOf(const PositionKey& Key) {
    constexpr std::uint64_t Factors[] = {0x9E3779B97F4A7C15ULL, 0xBF58476D1CE4E5B9ULL, 0x94D049BB133111EBULL,
                                         0xD6E8FEB86659FD93ULL, 0xA0761D6478BD642FULL, 0xE7037ED1A0B428DBULL,
                                         0x8EBC6AF09C88C6E3ULL, 0x589965CC75374CC3ULL};
    std::uint64_t Mix = 0;
    for (std::size_t Index = 0; Index < PieceIndices; ++Index) {
        Mix += Key.Pieces[Index].Low() * Factors[2 * Index] + Key.Pieces[Index].High() * Factors[2 * Index + 1];
    }
    return Mix;
}

std::uint32_t FingerprintOf(std::uint64_t Mix) {
    return static_cast<std::uint32_t>(Mix >> 32U);
}

/// What a piece of that index on a cell adds to the mix.
const auto CellMixes = [] {
    base::CheckedArray<base::CheckedArray<std::uint64_t, BoardCells>, PieceIndices> Table{};
    for (int Index = 0; Index < PieceIndices; ++Index) {
        PlayingCells.ForEach([&](int Cell) {
            PositionKey Key{};
            Key.Pieces[Index] = CellSet::Of(Cell);
            Table[Index][Cell] = MixOf(Key);
        });
    }
    return Table;
}();

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
    const std::uint32_t Print = FingerprintOf(MixOf(Key));
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

int NoiseTerm(EngineState& State) {
    if (State.Noise == 0) {
        return 0;
    }
    const auto Draw = [&] { return static_cast<int>(std::floor(State.World->Random() * State.Noise)); };
    const int First = Draw();
    return First - Draw();
}

/// Material alone lies so far outside of the window that nothing else can bring it back.
template <EvaluatorPolicy P>
bool IsOutside(const EngineState& State, std::int32_t Material, std::int32_t Alpha, std::int32_t Beta) {
    const bool Outside =
        Material < std::int64_t{Alpha} - State.LazyMargin || Material > std::int64_t{Beta} + State.LazyMargin;
    return Outside && (!P.Generic || State.TotalMaterial[State.Ply] != 0);
}

/// `Sum`: from White's point of view.
template <EvaluatorPolicy P>
std::int32_t ScoreFor(EngineState& State, std::int32_t Side, std::int32_t Material, int Sum) {
    const std::int32_t Score = Material + (Side == Black ? -Sum : Sum) + NoiseTerm(State);
    return P.Generic && State.RuleSet.AntiMode == 1 ? -Score : Score;
}

template <EvaluatorPolicy P>
std::int32_t Evaluate(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    // 1. Nothing is known yet, and nothing remembered by another evaluator.
    State.SideToMoveLost = 0;
    if (State.MemoKind != P.Kind) [[unlikely]] {
        State.Memo = {};
        State.MemoKind = P.Kind;
    }

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
    if (IsOutside<P>(State, Material, Alpha, Beta)) {
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
                Sum += Pattern<P>(State, State.Pieces, Colour);
            }
        }
    }

    // 10. The score, from the side to move.
    return ScoreFor<P>(State, Side, Material, Sum);
}

template <EvaluatorPolicy P>
bool IsForeseeable(const EngineState& State, const Census& Figures) {
    const RuleSetFields& Rules = State.RuleSet;
    // At the limits the move that isn't made would fault; with the extension at 2 a search looks deeper behind any
    // move.
    if (State.DrawPending != 0 || State.ExtendedSearch > 1 || State.Ply >= MaxPly ||
        State.GameMoves >= GameMoveEntries - 1 || State.MemoKind != P.Kind || Figures.Pieces[0] <= Rules.NumberPieces ||
        Figures.Pieces[1] <= Rules.NumberPieces) {
        return false;
    }
    if (PatternOf<P>(State, 0).Faults != 0 || PatternOf<P>(State, 1).Faults != 0) {
        return false;
    }
    if constexpr (P.Generic) {
        return State.SpecialRuleSet == KnownRules::None && Rules.NoLegalDraw == 0 && Rules.KingWin == 0 &&
               Rules.WinAtPromo == 0 && State.SidewaysOnly == 0 && State.DistanceTermEnabled != 0;
    } else {
        return State.SpecialRuleSet != KnownRules::None;
    }
}

} // namespace

template <EvaluatorKind Kind>
StepFrame FrameForSteps(const EngineState& State) {
    constexpr EvaluatorPolicy P = EvaluatorOfKind(Kind);
    const Census Figures = Count(State);
    StepFrame Frame{};
    Frame.Foresees = IsForeseeable<P>(State, Figures);
    Frame.Lane = P.Generic ? CombinationOf(Figures) : static_cast<int>(Kind);
    Frame.Ground = P.Generic ? State.EmptyPrefix[Frame.Lane][LastCell] : 0;
    for (const int Colour : {0, 1}) {
        const StepShape Shape = State.StepShapes[Colour];
        // A jump over own men counts as a step, and goes further.
        Frame.OnlyMen[Colour] = P.Generic && (Shape == StepShape::UpDiagonals || Shape == StepShape::DownDiagonals) &&
                                !State.Walk.JumpFriend && Figures.Men[Colour] == Figures.Pieces[Colour] &&
                                Figures.Pieces[1 - Colour] > 0;
        if (Figures.Early[Colour] && (!P.Generic || State.PatternTermEnabled == 1)) {
            Frame.Pattern[Colour] = PatternOf<P>(State, Colour).LookedAt;
        }
    }
    return Frame;
}

template <EvaluatorKind Kind>
StepFacts FactsForSteps(EngineState& State, const StepFrame& Frame) {
    constexpr EvaluatorPolicy P = EvaluatorOfKind(Kind);
    StepFacts Facts{};
    for (const int Colour : {0, 1}) {
        Facts.Strongest[Colour] = StrongestOf(State, Colour);
        Facts.Pull[Colour] = PullOf<P>(State, Colour);
        Facts.Pattern[Colour] = Frame.Pattern[Colour].Any() ? Pattern<P>(State, State.Pieces, Colour) : 0;
    }
    Facts.KeyMix = MixOf({State.Pieces});
    return Facts;
}

template <EvaluatorKind Kind>
Foreseen EvaluateStep(EngineState& State, const StepFrame& Frame, const StepFacts& Here, const Step& Move,
                      std::int32_t Alpha, std::int32_t Beta, std::int32_t& Score, StepFacts& There) {
    constexpr EvaluatorPolicy P = EvaluatorOfKind(Kind);

    // 1. Lazy exit.
    const std::int32_t Material = -State.Material[State.Ply];
    if (IsOutside<P>(State, Material, Alpha, Beta)) {
        State.SideToMoveLost = 0;
        Score = P.Generic && State.RuleSet.AntiMode != 0 ? -Material : Material;
        return Foreseen::Score;
    }

    // 2. Repetition.
    const int Past = State.GameMoves;
    const std::uint64_t Mix = Here.KeyMix + CellMixes[Move.Index][Move.To] - CellMixes[Move.Index][Move.From];
    const std::uint32_t Print = FingerprintOf(Mix);
    if (MayOccurIn(State.HistoryFingerprint.begin(), Past, Print)) [[unlikely]] {
        return Foreseen::Nothing;
    }
    State.SideToMoveLost = 0;
    const CellSet Ends = SingleCells[Move.From] ^ SingleCells[Move.To];
    PieceSets& Pieces = State.PositionHistory[Past].Pieces;
    Pieces = State.Pieces;
    Pieces[Move.Index] ^= Ends;
    State.HistoryFingerprint[Past] = Print;

    // 3. Weights.
    int Sum = Frame.Ground + State.WeightSums[State.Ply].Lanes[Frame.Lane] +
              State.PieceWeights[Move.To][Move.Index].Lanes[Frame.Lane] -
              State.PieceWeights[Move.From][Move.Index].Lanes[Frame.Lane];

    // 4. Pull. The enemy's pieces only look to another cell, if at all.
    const int Own = Move.Index % 2;
    const int Enemy = 1 - Own;
    There.Strongest[Own] = StrongestOf(Own, Pieces[Own], Pieces[Own + 2]);
    There.Strongest[Enemy] = Here.Strongest[Enemy];
    There.Pull[Own] = P.Generic && Frame.OnlyMen[Own]
                          ? Here.Pull[Own] + PullChange(State, Move.From, Move.To, Here.Strongest[Enemy])
                          : PullOfColour<P>(State, Own, Pieces[Own], Pieces[Own + 2], Here.Strongest[Enemy]);
    There.Pull[Enemy] = There.Strongest[Own] == Here.Strongest[Own]
                            ? Here.Pull[Enemy]
                            : PullOfColour<P>(State, Enemy, Pieces[Enemy], Pieces[Enemy + 2], There.Strongest[Own]);
    Sum += There.Pull[0] - There.Pull[1];

    // 5. Promotion rows.
    for (const int Colour : {0, 1}) {
        There.Pattern[Colour] =
            (Frame.Pattern[Colour] & Ends).Any() ? Pattern<P>(State, Pieces, Colour) : Here.Pattern[Colour];
        Sum += There.Pattern[Colour];
    }

    // 6. The score, from the side to move then.
    There.KeyMix = Mix;
    Score = ScoreFor<P>(State, -State.Side, Material, Sum);
    return Foreseen::ScoreAndFacts;
}

PositionKey KeyOfPosition(const RulesState& State) {
    return {State.Pieces};
}

void StoreKey(EngineState& State, int Index, const PositionKey& Key) {
    State.PositionHistory[Index] = Key;
    State.HistoryFingerprint[Index] = FingerprintOf(MixOf(Key));
}

std::int32_t EvaluatePosition(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorOfKind(EvaluatorKind::Generic)>(State, Alpha, Beta, Side);
}
std::int32_t EvaluateAmerican(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorOfKind(EvaluatorKind::American)>(State, Alpha, Beta, Side);
}
std::int32_t EvaluateGerman(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorOfKind(EvaluatorKind::German)>(State, Alpha, Beta, Side);
}
std::int32_t EvaluateItalian(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side) {
    return Evaluate<EvaluatorOfKind(EvaluatorKind::Italian)>(State, Alpha, Beta, Side);
}

template StepFrame FrameForSteps<EvaluatorKind::Generic>(const EngineState&);
template StepFacts FactsForSteps<EvaluatorKind::Generic>(EngineState&, const StepFrame&);
template Foreseen EvaluateStep<EvaluatorKind::Generic>(EngineState&, const StepFrame&, const StepFacts&, const Step&,
                                                       std::int32_t, std::int32_t, std::int32_t&, StepFacts&);
template StepFrame FrameForSteps<EvaluatorKind::American>(const EngineState&);
template StepFacts FactsForSteps<EvaluatorKind::American>(EngineState&, const StepFrame&);
template Foreseen EvaluateStep<EvaluatorKind::American>(EngineState&, const StepFrame&, const StepFacts&, const Step&,
                                                        std::int32_t, std::int32_t, std::int32_t&, StepFacts&);
template StepFrame FrameForSteps<EvaluatorKind::German>(const EngineState&);
template StepFacts FactsForSteps<EvaluatorKind::German>(EngineState&, const StepFrame&);
template Foreseen EvaluateStep<EvaluatorKind::German>(EngineState&, const StepFrame&, const StepFacts&, const Step&,
                                                      std::int32_t, std::int32_t, std::int32_t&, StepFacts&);
template StepFrame FrameForSteps<EvaluatorKind::Italian>(const EngineState&);
template StepFacts FactsForSteps<EvaluatorKind::Italian>(EngineState&, const StepFrame&);
template Foreseen EvaluateStep<EvaluatorKind::Italian>(EngineState&, const StepFrame&, const StepFacts&, const Step&,
                                                       std::int32_t, std::int32_t, std::int32_t&, StepFacts&);

} // namespace zonterbrook::engine
