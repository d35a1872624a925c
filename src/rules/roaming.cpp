// Where pieces may get.
#include "rules/roaming.h"

#include "rules/install.h"

#include <algorithm>

namespace zonterbrook::rules {

namespace {

constexpr int PlainStep = -1;

} // namespace

EntryRows EntryRowsOf(const RuleSetFields& Rules, int Colour) {
    const std::int64_t First = Colour == 0 ? Rules.ContractW1 : Rules.ContractB1;
    const std::int64_t Last = Colour == 0 ? Rules.ContractW2 : Rules.ContractB2;
    const std::int64_t Distance = First > Last ? First - Last : Last - First;
    return {First, Colour == 0 ? First + Distance : First - Distance};
}

bool IsBoardRow(std::int64_t Row) {
    return Row >= FirstRow && Row <= LastRow;
}

CellSet PlayedCells(const RulesState& State) {
    CellSet Played;
    PlayingCells.ForEach([&](int Cell) {
        if (State.RuleSet.PiecesOnBlack == 2 || IsPlayingSquare(State, Cell)) {
            Played |= CellSet::Of(Cell);
        }
    });
    return Played;
}

int StepCount(const DirectionColumn& Column) {
    return static_cast<int>(std::ranges::find(Column, DirectionSentinel) - Column.begin());
}

Roaming::Roaming(const RulesState& InState) : State(InState) {
    const RuleSetFields& Rules = State.RuleSet;
    for (int Index = 0; Index < PieceIndices; ++Index) {
        Stands[Index] = State.Pieces[Index];
    }
    for (const int Colour : {0, 1}) {
        const EntryRows Rows = EntryRowsOf(Rules, Colour);
        if (Rules.canContract == 1 && Rules.ContractNumber > 0 && IsBoardRow(Rows.Enters) && IsBoardRow(Rows.Free)) {
            Stands[Colour] |= RowCells(static_cast<int>(Rows.Enters)) & PlayedCells(State);
        }
    }
    Spread();
}

bool Roaming::MayFly() const {
    return (State.RuleSet.LongKings == 1 && MayHaveKings()) || (State.RuleSet.ManCapMoveKing == 1 && MayHaveMen()) ||
           (CrownsOnTheWay() && Crowns);
}

CellSet Roaming::MayBeCrownedFrom(int Colour) const {
    CellSet Good;
    for (CellSet Before = PlayingCells; Before != Good;) {
        Before = Good;
        PlayingCells.ForEach([&](int Cell) {
            VisitMoves(Colour, Cell, [&](int Dest, int) {
                if ((State.PromotionSet[Colour] | Before).Contains(Dest)) {
                    Good |= CellSet::Of(Cell);
                }
            });
        });
    }
    return Good;
}

bool Roaming::CrownsOnTheWay() const {
    return State.RuleSet.ManContJumpCrowned == 1 && State.RuleSet.ManContJump != 0;
}

bool Roaming::FliesCapturing(int Index) const {
    return Index < 2 ? State.RuleSet.ManCapMoveKing == 1 : State.RuleSet.LongKings == 1 || CrownsOnTheWay();
}

/// `Land` gets each cell that a move of the piece may lead to, and the capture step by which, or `PlainStep`.
void Roaming::VisitMoves(int Index, int Cell, const std::function<void(int Dest, int CaptureEntry)>& Land) const {
    const RuleSetFields& Rules = State.RuleSet;
    const bool King = Index >= 2;
    const bool StepsFar = (King && Rules.LongKings == 1) || Rules.JumpFriend == 1;
    const DirectionColumn& Steps = State.MoveDirections[Index];
    for (int Entry = 0; Entry < StepCount(Steps); ++Entry) {
        for (int Dest = Cell + Steps[Entry]; IsOnBoard(Dest); Dest += Steps[Entry]) {
            Land(Dest, PlainStep);
            if (!StepsFar) {
                break;
            }
        }
    }
    const int Enemy = 1 - Index % 2;
    CellSet Prey = Stands[Enemy];
    if (King || Rules.ManCapKing == 1) {
        Prey |= Stands[Enemy + 2];
    }
    const bool Flies = FliesCapturing(Index);
    const bool LandsFar = Flies && Rules.KingFirst != 1;
    const DirectionColumn& Captures = State.MoveDirections[Index + 4];
    for (int Entry = 0; Entry < StepCount(Captures); ++Entry) {
        const int Step = Captures[Entry];
        for (int Taken = Cell + Step; IsOnBoard(Taken); Taken += Step) {
            for (int Dest = Taken + Step; Prey.Contains(Taken) && IsOnBoard(Dest); Dest += Step) {
                Land(Dest, Entry);
                if (!LandsFar) {
                    break;
                }
            }
            if (!Flies) {
                break;
            }
        }
    }
}

void Roaming::Spread() {
    for (auto Before = Stands;; Before = Stands) {
        for (int Index = 0; Index < PieceIndices; ++Index) {
            Before[Index].ForEach([&](int Cell) {
                VisitMoves(Index, Cell, [&](int Dest, int CaptureEntry) {
                    Arrive(Index, Dest);
                    if (CaptureEntry != PlainStep) {
                        Takes[Index][CaptureEntry] = true;
                    }
                });
            });
        }
        for (const int Colour : {0, 1}) {
            if (State.RuleSet.ManKing == 1) {
                Stands[Colour + 2] |= Stands[Colour];
            }
            if (State.RuleSet.KingMan == 1) {
                Stands[Colour] |= Stands[Colour + 2];
            }
            if (CrownsOnTheWay() && State.RuleSet.ChangeSide == 1) {
                Stands[3 - Colour] |= Stands[Colour + 2];
            }
        }
        if (Before == Stands) {
            return;
        }
    }
}

void Roaming::Arrive(int Index, int Cell) {
    Stands[Index] |= CellSet::Of(Cell);
    if (Index >= 2 || !State.PromotionSet[Index].Contains(Cell)) {
        return;
    }
    Crowns = true;
    const bool ChangesSide = State.RuleSet.ChangeSide == 1;
    if (ChangesSide) {
        Stands[3 - Index] |= CellSet::Of(Cell);
    }
    if (!ChangesSide || CrownsOnTheWay()) {
        Stands[Index + 2] |= CellSet::Of(Cell);
    }
}

} // namespace zonterbrook::rules
