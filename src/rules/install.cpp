// Installing a rule set and laying start positions.
#include "rules/install.h"

#include "base/outside_world.h"
#include "rules/known_rules.h"
#include "rules/position.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <set>
#include <vector>

namespace zonterbrook::rules {

namespace {

struct DirectionWord {
    std::string_view Word;
    std::int16_t Step;
};

/// From the owner's side of the board; a Black piece's steps are negated. The double steps look at nothing on their
/// way.
constexpr DirectionWord DirectionWords[] = {{"NW", 11}, {"NE", 13}, {"SE", -11}, {"SW", -13}, {"N", 12}, {"S", -12},
                                            {"E", 1},   {"W", -1},  {"NN", 24},  {"SS", -24}, {"EE", 2}, {"WW", -2}};

/// Reads words up to one that is none, or one too many; true if there was none of either.
bool ParseDirections(std::string_view List, bool Negated, DirectionColumn& Column) {
    for (int Entry = 0; Entry < DirectionEntries - 1; ++Entry) {
        const std::size_t End = List.find(';');
        const std::string_view Word = List.substr(0, End);
        const auto* Found = std::ranges::find(DirectionWords, Word, &DirectionWord::Word);
        if (Found == std::end(DirectionWords)) {
            return false;
        }
        Column[Entry] = static_cast<std::int16_t>(Negated ? -Found->Step : Found->Step);
        if (End == std::string_view::npos) {
            return true;
        }
        List.remove_prefix(End + 1);
    }
    return false;
}

StepShape ShapeOf(const DirectionColumn& Column) {
    // A step that is listed twice is made twice: such a column has no usual shape.
    const std::multiset<std::int16_t> Steps(Column.begin(), std::ranges::find(Column, DirectionSentinel));
    return Steps == std::multiset<std::int16_t>{-13, -11, 11, 13} ? StepShape::FourDiagonals
           : Steps == std::multiset<std::int16_t>{11, 13}         ? StepShape::UpDiagonals
           : Steps == std::multiset<std::int16_t>{-13, -11}       ? StepShape::DownDiagonals
                                                                  : StepShape::Other;
}

CellSet PromotionCells(const PromotionTable& Table, int Column, int Rows) {
    CellSet Cells;
    for (int Row = 0; Row < Rows; ++Row) {
        const int Cell = Table[Row][Column];
        if (Cell >= FirstCell && Cell <= LastCell) {
            Cells |= CellSet::Of(Cell);
        }
    }
    return Cells;
}

/// Takes up to `Number` pieces of the list off the board, drawing again while the cell drawn is empty already.
void RemoveByLot(RulesState& State, const std::vector<int>& Cells, int Number, base::OutsideWorld& World) {
    const int Last = static_cast<int>(Cells.size()) - 1;
    for (int Left = std::min(Number, Last); Left > 0; --Left) {
        int Cell = 0;
        do {
            const auto Drawn = static_cast<std::size_t>(World.Random() * static_cast<double>(Cells.size()));
            Cell = Cells[std::min(Drawn, Cells.size() - 1)];
        } while (State.Board[Cell] == Empty);
        SetCell(State, Cell, Empty);
    }
}

} // namespace

void ParseMovement(std::string_view Text, int Index, DirectionTable& Directions) {
    const bool Negated = Index == 1 || Index == 3;
    Directions[Index].Fill(DirectionSentinel);
    Directions[Index + 4].Fill(DirectionSentinel);
    const std::size_t Blank = Text.find(' ');
    ParseDirections(Text.substr(0, Blank), Negated, Directions[Index]);
    if (Blank != std::string_view::npos) {
        ParseDirections(Text.substr(Blank + 1), Negated, Directions[Index + 4]);
    }
}

bool IsDirectionList(std::string_view List) {
    DirectionColumn Column{};
    return List.empty() || ParseDirections(List, false, Column);
}

void ClassifyDirections(RulesState& State) {
    bool Sideways = false;
    State.SetCaptures = 0;
    State.SidewaysOnly = 1;
    for (const DirectionColumn& Column : State.MoveDirections) {
        for (const std::int16_t Step : Column) {
            if (std::abs(Step) == 1) {
                Sideways = true;
            } else if (Step != DirectionSentinel) {
                State.SidewaysOnly = 0;
            }
        }
    }
    if (Sideways) {
        State.RuleSet.PiecesOnBlack = 2;
    }
    if (State.RuleSet.LongKings == 1 && State.RuleSet.PiecesOnBlack == 2) {
        State.SetCaptures = 1;
    }
    if (!Sideways) {
        State.WidenDropsPattern = 0;
    } else if (State.StartMenBlack > 20 && State.StartMenWhite > 12) {
        State.WidenDropsPattern = 1;
    }
}

void RecogniseRuleSet(RulesState& State) {
    State.SpecialRuleSet = KnownRules::None;
    if (BuildSetupText(State) != DefaultSetup) {
        return;
    }
    const auto* Found = std::ranges::find(KnownRuleSets, State.RuleSet, &KnownRuleSet::Rules);
    if (Found != std::end(KnownRuleSets)) {
        State.SpecialRuleSet = Found->Id;
    }
}

void InstallRuleSet(RulesState& State) {
    CountStartPosition(State);
    for (int Index = 0; Index < 4; ++Index) {
        ParseMovement(State.RuleSet.MovementStrings[Index].View(), Index, State.MoveDirections);
        ParseMovement(State.LoadedRuleSet.MovementStrings[Index].View(), Index, State.LoadedMoveDirections);
    }
    for (std::size_t Column = 0; Column < State.StepShapes.Size(); ++Column) {
        State.StepShapes[Column] = ShapeOf(State.MoveDirections[Column]);
    }
    ClassifyDirections(State);
    State.Walk = DeriveWalkFlags(State.RuleSet, State.SetCaptures == 1);
    for (int Column = 0; Column < 2; ++Column) {
        State.PromotionSet[Column] = PromotionCells(State.RuleSet.PromotionSquares, Column, PromotionRows);
        // Wanted: docs/kept_behaviour.md, "A jump over own men".
        State.JumpPromotionSet[Column] = PromotionCells(State.RuleSet.PromotionSquares, Column, 12);
        State.ShortPromotionSet[Column] = PromotionCells(State.RuleSet.PromotionSquares, Column, 5);
        State.BeforePromotion[Column] = {};
        for (const std::int16_t Step : State.MoveDirections[Column]) {
            if (Step == DirectionSentinel) {
                break;
            }
            State.BeforePromotion[Column] |= State.PromotionSet[Column].Moved(-Step) & PlayingCells;
        }
    }
    if (State.RuleSet.PiecesOnBlack == 2) {
        State.NotationMode = Notation::Algebraic; // numbers exist for fifty squares only
    }
    RecogniseRuleSet(State);
    RecountMaterial(State);
}

bool IsPlayingSquare(const RulesState& State, int Square) {
    const bool Odd = (RowOf(Square) + ColumnOf(Square)) % 2 != 0;
    return State.RuleSet.PiecesOnBlack != 0 ? Odd : !Odd;
}

void LaySetup(RulesState& State, std::string_view Setup) {
    State.Board = State.BoardTemplate;
    if (!Setup.empty() && Setup != "normal") {
        WriteSetup(State.Board, Setup);
    }
    State.StartBoard = State.Board;
    RecountPosition(State);
}

void StartRulesGame(RulesState& State) {
    State.Board = State.StartBoard;
    State.Side = State.RuleSet.BlackStarts == 1 ? Black : White;
    ResetMoves(State);
    RecountPosition(State);
    InstallRuleSet(State);
    if (State.RuleSet.PiecesOnBlack == 0 && AllPieces(State).Any()) {
        FitMenToColour(State);
    }
}

void ShiftMenColour(RulesState& State, int Mode) {
    for (int Row = FirstRow; Row <= LastRow; ++Row) {
        const bool ToTheRight = (Mode == 1) == (Row % 2 != 0);
        for (int Column = FirstColumn; Column < LastColumn; Column += 2) {
            const int Left = CellAt(Row, Column);
            const int From = ToTheRight ? Left : Left + 1;
            const int To = ToTheRight ? Left + 1 : Left;
            const std::int32_t Value = State.Board[From];
            SetCell(State, From, Empty);
            SetCell(State, To, Value);
        }
    }
    RecountMaterial(State);
}

void FitMenToColour(RulesState& State) {
    const CellSet All = AllPieces(State);
    const int Found = All.Any() ? All.First() : 0;
    const int Row = RowOf(Found);
    const int Column = ColumnOf(Found);
    const bool BothEven = Row % 2 == 0 && Column % 2 == 0;
    const bool BothOdd = Row % 2 != 0 && Column % 2 != 0;
    const int Test = BothEven ? Found - 1 : BothOdd ? Found + 1 : Found;
    const bool IsEmpty = State.Board[Test] == Empty;
    if (State.RuleSet.PiecesOnBlack == 0 && !IsEmpty) {
        ShiftMenColour(State, 0);
    } else if (State.RuleSet.PiecesOnBlack != 0 && IsEmpty) {
        ShiftMenColour(State, 1);
    }
}

void RemoveMen(RulesState& State, base::OutsideWorld& World) {
    std::vector<int> Cells[2];
    for (int Row = FirstRow; Row <= LastRow; ++Row) {
        for (int Column = LastColumn; Column >= FirstColumn; --Column) {
            const int Cell = CellAt(Row, Column);
            if (State.Board[Cell] != Empty) {
                Cells[State.Board[Cell] > 0 ? 0 : 1].push_back(Cell);
            }
        }
    }
    for (const std::vector<int>& Own : Cells) {
        RemoveByLot(State, Own, State.RuleSet.NumberMen, World);
    }
    RecountMaterial(State);
}

} // namespace zonterbrook::rules
