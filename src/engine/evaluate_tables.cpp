// The tables that an installed rule set gives the evaluators.
//
// All that a piece is worth for where it stands, whatever else is on the board, is summed up here once, so that a node
// adds one number a piece. Reads the rules, the promotion squares and the step tables; writes the tables of
// EngineState.
#include "engine/evaluate.h"
#include "rules/install.h"
#include "rules/position.h"

#include <algorithm>
#include <initializer_list>

namespace zonterbrook::engine {

using namespace rules;

namespace {

constexpr int LongDiagonalStart = 25;
constexpr int LongDiagonalStep = 13;

bool IsOneOf(int Cell, std::initializer_list<int> Cells) {
    return std::ranges::find(Cells, Cell) != Cells.end();
}

bool IsCentre(int PiecesOnBlack, int Cell) {
    if (PiecesOnBlack == 0) {
        return IsOneOf(Cell, {76, 78, 80, 87, 89, 91});
    }
    if (PiecesOnBlack == 1) {
        return IsOneOf(Cell, {75, 77, 79, 88, 90, 92});
    }
    const auto Between = [Cell](int First, int Last) { return Cell >= First && Cell <= Last; };
    return Between(73, 76) || Between(79, 82) || Between(85, 88) || Between(91, 94);
}

bool IsLongDiagonal(int Cell) {
    return Cell >= LongDiagonalStart && (Cell - LongDiagonalStart) % LongDiagonalStep == 0;
}

bool IsFarCorner(int Cell) {
    return IsOneOf(Cell, {30, 82, 85, 137});
}

int EdgePenalty(int Cell) {
    const int Row = RowOf(Cell);
    const int Column = ColumnOf(Cell);
    return (Column == FirstColumn || Column == LastColumn ? 10 : 0) + (Row == FirstRow || Row == LastRow ? 10 : 0);
}

/// The worth of a man that guards his own back rank, by which of the enemy's promotion squares he stands on.
int BackRank(const PromotionTable& Table, int EnemyColumn, int Cell, std::initializer_list<int> Better,
             std::initializer_list<int> Lesser) {
    const auto Stands = [&](int Entry) { return Table[Entry][EnemyColumn] == Cell; };
    if (std::ranges::any_of(Better, Stands)) {
        return 20;
    }
    return std::ranges::any_of(Lesser, Stands) ? 10 : 0;
}

/// With men on one colour of square the two sides' sets are not each other's mirror. Wanted: docs/kept_behaviour.md,
/// "The back rank".
int HalfBoardBackRank(const PromotionTable& Table, int Colour, int Cell) {
    return Colour == 0 ? BackRank(Table, 1, Cell, {1, 2, 4}, {0, 3}) : BackRank(Table, 0, Cell, {0, 3}, {1, 2, 4});
}

int GenericBackRank(const RuleSetFields& Rules, int Colour, int Cell) {
    return Rules.PiecesOnBlack >= 2
               ? BackRank(Rules.PromotionSquares, 1 - Colour, Cell, {1, 3, 5, 7, 9}, {0, 2, 4, 6, 8})
               : HalfBoardBackRank(Rules.PromotionSquares, Colour, Cell);
}

int GenericKing(const RuleSetFields& Rules, int Cell) {
    const int Worth = Rules.ManCapKing == 0 ? 50 : 25;
    if (Rules.LongKings == 1) {
        return Worth + 50 + (IsLongDiagonal(Cell) ? 50 : IsFarCorner(Cell) ? -25 : 0);
    }
    return Worth - EdgePenalty(Cell);
}

/// The way to the squares that win, for variants that are won there: a king runs home, a man runs to promote.
int ReturnTerm(const PromotionTable& Table, int Column, int Cell, bool King) {
    int Sum = 0;
    for (const auto& Row : Table) {
        if (Row[Column] != NoSquare) {
            const int Distance = SquareDistance(Cell, Row[Column]);
            Sum += King ? 2 * (38 - Distance) : 19 - Distance;
        }
    }
    return Sum;
}

/// What the generic evaluator gives a piece for its cell, from its owner's view, but for the square values.
int GenericPiece(const EngineState& State, int Index, int Cell) {
    const RuleSetFields& Rules = State.RuleSet;
    const int Colour = Index % 2;
    const bool King = Index >= 2;
    int Sum = IsCentre(Rules.PiecesOnBlack, Cell) ? 20 : 0;
    Sum += King ? GenericKing(Rules, Cell) : GenericBackRank(Rules, Colour, Cell);
    if (!King && State.HasDeadSquares == 1 && State.ManReachable[Cell][Colour] == 0) {
        Sum -= 75;
    }
    if (Rules.WinAtPromo == 1) {
        Sum += ReturnTerm(Rules.PromotionSquares, King ? 1 - Colour : Colour, Cell, King);
    }
    return Sum;
}

int SpecialPiece(const EngineState& State, EvaluatorKind Kind, int Index, int Cell) {
    const int Colour = Index % 2;
    const int Centre = IsCentre(Kind == EvaluatorKind::Italian ? 0 : 1, Cell) ? 20 : 0;
    if (Index < 2) {
        return Centre + State.SquareValues[Cell][Colour] +
               HalfBoardBackRank(State.RuleSet.PromotionSquares, Colour, Cell);
    }
    if (Kind == EvaluatorKind::German) {
        return Centre + 75 + (IsLongDiagonal(Cell) ? 50 : IsFarCorner(Cell) ? -25 : 0);
    }
    return Centre + 25 - EdgePenalty(Cell);
}

template <typename Visit>
void ForEachPlayingCell(Visit&& Do) {
    CellSet Cells = PlayingCells;
    while (Cells.Any()) {
        Do(Cells.TakeFirst());
    }
}

void InitGenericValues(EngineState& State) {
    for (int Combination = 0; Combination < 4; ++Combination) {
        const bool Early[2] = {(Combination & 1) != 0, (Combination & 2) != 0};
        int Sum = 0;
        ForEachPlayingCell([&](int Cell) {
            int EmptyValue = 0;
            for (const int Colour : {0, 1}) {
                const int Value = State.SquareValues[Cell][Colour];
                EmptyValue += Early[Colour] ? Value : Value / 2;
            }
            Sum += EmptyValue;
            State.EmptyPrefix[Combination][Cell] = Sum;
            for (int Index = 0; Index < PieceIndices; ++Index) {
                const int Colour = Index % 2;
                // The square values of this evaluator carry the sign of their colour already.
                const int Square = State.SquareValues[Cell][Colour] * (Early[Colour] ? 2 : 1);
                const int Own = GenericPiece(State, Index, Cell);
                State.GenericValues[Combination][Index][Cell] = Square + (Colour == 0 ? Own : -Own) - EmptyValue;
            }
        });
    }
}

void InitSpecialValues(EngineState& State) {
    for (const EvaluatorKind Kind : {EvaluatorKind::American, EvaluatorKind::German, EvaluatorKind::Italian}) {
        for (int Index = 0; Index < PieceIndices; ++Index) {
            ForEachPlayingCell([&](int Cell) {
                const int Own = SpecialPiece(State, Kind, Index, Cell);
                State.SpecialValues[static_cast<int>(Kind)][Index][Cell] = Index % 2 == 0 ? Own : -Own;
            });
        }
    }
}

/// The weights that make and unmake sum up: those of the evaluator by which the rule set is played.
void InitPieceWeights(EngineState& State) {
    for (int Index = 0; Index < PieceIndices; ++Index) {
        ForEachPlayingCell([&](int Cell) {
            auto& Lanes = State.PieceWeights[Cell][Index].Lanes;
            for (int Lane = 0; Lane < 4; ++Lane) {
                Lanes[Lane] = State.SpecialRuleSet != rules::KnownRules::None ? State.SpecialValues[Lane][Index][Cell]
                                                                              : State.GenericValues[Lane][Index][Cell];
            }
        });
    }
    RecountPosition(State);
}

/// Adds a square to the steps that it is not in yet, or to new ones.
void AddPatternSquare(PatternList& List, int Square, std::int16_t First, std::int16_t Second) {
    const auto Both = static_cast<std::int16_t>(First + Second);
    int Row = 0;
    while (Row < List.Count && (List.Steps[Row].First != First || List.Steps[Row].Both != Both ||
                                List.Steps[Row].Squares.Contains(Square))) {
        ++Row;
    }
    if (Row == List.Count) {
        List.Steps[List.Count++] = {CellSet(), First, Both, First == Second ? 1 : 0};
    }
    List.Steps[Row].Squares.Toggle(Square);
}

/// What the pattern looks at in front of one promotion square: two steps of the men that defend it.
void AddPatternSquares(PatternList& List, int Square, const DirectionColumn& Steps, bool StopsAtSideways) {
    for (const std::int16_t First : Steps) {
        if (First == DirectionSentinel || (StopsAtSideways && std::abs(First) == 1) || !IsOnBoard(Square + First)) {
            return;
        }
        for (const std::int16_t Second : Steps) {
            if (Second == DirectionSentinel) {
                break;
            }
            if (First + Second != 0) {
                AddPatternSquare(List, Square, First, Second);
            }
        }
    }
}

CellSet CellsLookedAt(const PatternList& List) {
    CellSet Cells;
    for (int Row = 0; Row < List.Count; ++Row) {
        const PatternSteps& Steps = List.Steps[Row];
        Cells |= Steps.Squares | Steps.Squares.Moved(Steps.First) | Steps.Squares.Moved(Steps.Both);
    }
    return Cells & PlayingCells;
}

/// True if a window holds the squares of a list and whatever of the board is looked at from there.
bool Holds(int FirstBit, const PatternList& List) {
    const auto InWindow = [&](int Cell) { return Cell >= FirstCell + FirstBit && Cell < FirstCell + FirstBit + 64; };
    for (int Row = 0; Row < List.Count; ++Row) {
        for (CellSet Squares = List.Steps[Row].Squares; Squares.Any();) {
            const int Square = Squares.TakeFirst();
            for (const int Cell : {Square, Square + List.Steps[Row].First, Square + List.Steps[Row].Both}) {
                if (IsOnBoard(Cell) && !InWindow(Cell)) {
                    return false;
                }
            }
        }
    }
    return true;
}

/// Finds the list's window, and writes down the squares as it sees them.
void OpenWindow(PatternList& List, StepShape Shape) {
    List.Window = PatternWindow::None;
    if (Shape != StepShape::UpDiagonals && Shape != StepShape::DownDiagonals) {
        return;
    }
    const int FirstBit = Holds(0, List) ? 0 : UpperWindowBit;
    if (!Holds(FirstBit, List)) {
        return;
    }
    std::fill_n(&List.Diagonals[0][0], 4, 0);
    for (int Row = 0; Row < List.Count; ++Row) {
        const PatternSteps& Steps = List.Steps[Row];
        std::uint64_t& Seen =
            List.Diagonals[std::abs(Steps.First) == 11 ? 0 : 1][std::abs(Steps.Both - Steps.First) == 11 ? 0 : 1];
        if (Seen != 0) {
            return; // a square that is listed twice has two rows with the same steps, one too many for a window
        }
        Seen = Steps.Squares.Moved(-FirstBit).Low();
    }
    List.Window = FirstBit == 0 ? PatternWindow::Lower : PatternWindow::Upper;
}

void InitPatterns(EngineState& State) {
    for (const int Colour : {0, 1}) {
        const DirectionColumn& Steps = State.MoveDirections[1 - Colour];
        PatternList& Generic = State.GenericPattern[Colour];
        PatternList& Special = State.SpecialPattern[Colour];
        Generic.Count = Generic.Faults = Special.Count = Special.Faults = 0;
        for (int Row = 0; Row < PromotionRows; ++Row) {
            const int Square = State.RuleSet.PromotionSquares[Row][Colour];
            if (Square != NoSquare) {
                AddPatternSquares(Generic, Square, Steps, true);
            }
            if (Row < 5) {
                if (Square != NoSquare) {
                    AddPatternSquares(Special, Square, Steps, false);
                } else {
                    Special.Faults = 1; // these evaluators look at five squares unasked
                }
            }
        }
        for (PatternList* List : {&Generic, &Special}) {
            List->LookedAt = CellsLookedAt(*List);
        }
        OpenWindow(Generic, State.StepShapes[1 - Colour]);
        OpenWindow(Special, State.StepShapes[1 - Colour]);
    }
}

/// Marks what lies between two rays that leave a promotion square towards the own side, a row at a time.
void MarkReachable(EngineState& State, int Square, int Colour) {
    const int Forward = Colour == 0 ? -RowWidth : RowWidth;
    const auto Gone = [Colour](int Cell) { return Colour == 0 ? Cell < FirstCell : Cell > LastCell; };
    int Left = Square;
    int Right = Square;
    int LeftStep = Forward - 1;
    int RightStep = Forward + 1;
    while (!Gone(Left) || !Gone(Right)) {
        for (int Cell = Left; Cell <= Right; ++Cell) {
            if (IsOnBoard(Cell)) {
                State.ManReachable[Cell][Colour] = 1;
            }
        }
        // A ray that meets the edge goes on straight along it.
        Left += LeftStep;
        if (!IsOnBoard(Left)) {
            ++Left;
            LeftStep = Forward;
        }
        Right += RightStep;
        if (!IsOnBoard(Right)) {
            --Right;
            RightStep = Forward;
        }
    }
}

} // namespace

void InitSquareValues(EngineState& State) {
    State.SquareValues.Fill({});
    for (const int Colour : {0, 1}) {
        const int Sign = Colour == 0 ? 1 : -1;
        const DirectionColumn& Steps = State.MoveDirections[1 - Colour];
        const auto Offer = [&](int Cell, int Value) {
            std::int32_t& Place = State.SquareValues[Cell][Colour];
            Place = Place == 0 ? Sign * Value : Place;
        };
        for (int Pass = 1; Pass <= 3; ++Pass) {
            for (const auto& Row : State.RuleSet.PromotionSquares) {
                const int Square = Row[Colour];
                if (Square == NoSquare) {
                    continue;
                }
                bool CutShort = false;
                for (int I = 0; Pass > 1 && !CutShort && Steps[I] != DirectionSentinel; ++I) {
                    const int Next = Square + Steps[I];
                    CutShort = !IsOnBoard(Next);
                    if (CutShort) {
                        break;
                    }
                    if (Pass == 2) {
                        Offer(Next, 20);
                        continue;
                    }
                    for (int J = 0; Steps[J] != DirectionSentinel; ++J) {
                        if (Steps[I] + Steps[J] != 0) {
                            Offer(Next + Steps[J], 10);
                        }
                    }
                }
                if (!CutShort) {
                    State.SquareValues[Square][Colour] = Sign * 30;
                }
            }
        }
    }
}

void InitSpecialSquareValues(EngineState& State) {
    for (int Cell = FirstCell; Cell <= LastCell; ++Cell) {
        for (const int Colour : {0, 1}) {
            int Nearest = 999;
            for (const auto& Row : State.RuleSet.PromotionSquares) {
                if (Row[Colour] != NoSquare) {
                    Nearest = std::min(Nearest, SquareDistance(Cell, Row[Colour]));
                }
            }
            State.SquareValues[Cell][Colour] = 50 - 6 * Nearest;
        }
    }
}

void InitManReachable(EngineState& State) {
    State.ManReachable.Fill({});
    for (const int Colour : {0, 1}) {
        for (const auto& Row : State.RuleSet.PromotionSquares) {
            if (Row[Colour] != NoSquare) {
                MarkReachable(State, Row[Colour], Colour);
            }
        }
    }
    State.HasDeadSquares = 0;
    ForEachPlayingCell([&](int Cell) {
        const bool Plays = State.RuleSet.PiecesOnBlack == 2 || IsPlayingSquare(State, Cell);
        if (Plays && (State.ManReachable[Cell][0] == 0 || State.ManReachable[Cell][1] == 0)) {
            State.HasDeadSquares = 1;
        }
    });
}

void InitPromotionCounts(EngineState& State) {
    int Counts[2] = {0, 0};
    for (const auto& Row : State.RuleSet.PromotionSquares) {
        for (const int Colour : {0, 1}) {
            Counts[Colour] += Row[Colour] != NoSquare ? 1 : 0;
        }
    }
    State.PromotionCountEqual = Counts[0] == Counts[1] ? 1 : 0;
    State.PromotionCountMax = std::max(Counts[0], Counts[1]) - 1;
    if (State.PromotionCountEqual == 0) {
        State.HasDeadSquares = 0;
    }
}

void InstallEngineRules(EngineState& State) {
    InstallRuleSet(State);
    InitSquareValues(State);
    if (State.SpecialRuleSet != rules::KnownRules::None) {
        InitSpecialSquareValues(State);
    }
    InitManReachable(State);
    InitPromotionCounts(State);
    State.DistanceTermEnabled = State.RuleSet.KingWin == 0 && State.RuleSet.WinAtPromo == 0 ? 1 : 0;
    InitGenericValues(State);
    InitSpecialValues(State);
    InitPatterns(State);
    InitPieceWeights(State);
    State.Memo = {};
}

} // namespace zonterbrook::engine
