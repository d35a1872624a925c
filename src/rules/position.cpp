// Laying a position and counting it.
#include "rules/position.h"

#include <algorithm>

namespace zonterbrook::rules {

namespace {

constexpr std::int32_t SetupValues[] = {Empty, WhiteMan, BlackMan, WhiteKing, BlackKing};

CellWeights WeightsOf(const RulesState& State, const base::CheckedArray<CellSet, PieceIndices>& Sets) {
    CellWeights Sums{};
    for (int Index = 0; Index < PieceIndices; ++Index) {
        for (CellSet Cells = Sets[Index]; Cells.Any();) {
            const CellWeights& Weights = State.PieceWeights[Cells.TakeFirst()][Index];
            for (int Lane = 0; Lane < 4; ++Lane) {
                Sums.Lanes[Lane] += Weights.Lanes[Lane];
            }
        }
    }
    return Sums;
}

char SetupDigit(std::int32_t Value) {
    const auto* Found = std::ranges::find(SetupValues, Value);
    return static_cast<char>('0' + (Found - std::begin(SetupValues)));
}

template <typename Visit>
void ForEachCell(Visit&& Do) {
    CellSet Cells = PlayingCells;
    while (Cells.Any()) {
        Do(Cells.TakeFirst());
    }
}

base::CheckedArray<CellSet, PieceIndices> SetsOf(const BoardCellsArray& Board) {
    base::CheckedArray<CellSet, PieceIndices> Sets{};
    ForEachCell([&](int Cell) {
        if (IsPiece(Board[Cell])) {
            Sets[PieceIndex(Board[Cell])] |= CellSet::Of(Cell);
        }
    });
    return Sets;
}

} // namespace

void ResetRules(RulesState& State) {
    State = RulesState{};
    State.RuleSet = RuleSetFields{};
    State.LoadedRuleSet = RuleSetFields{};
    State.Side = White;
    State.CaptureChar = 'x';
    State.BoardTemplate.Fill(Border);
    WriteSetup(State.BoardTemplate, DefaultSetup);
    State.Board = State.BoardTemplate;
    State.StartBoard = State.BoardTemplate;
    CountStartPosition(State);
    RecountPosition(State);
}

bool IsSetupText(std::string_view Text) {
    return Text.size() == SetupLength && std::ranges::all_of(Text, [](char C) { return C >= '0' && C <= '4'; });
}

void WriteSetup(BoardCellsArray& Board, std::string_view Text) {
    std::size_t At = 0;
    ForEachCell([&](int Cell) { Board[Cell] = SetupValues[static_cast<std::size_t>(Text.at(At++) - '0')]; });
}

std::string SetupText(const BoardCellsArray& Board) {
    std::string Text;
    Text.reserve(SetupLength);
    ForEachCell([&](int Cell) { Text += SetupDigit(Board[Cell]); });
    return Text;
}

std::string BuildSetupText(const RulesState& State) {
    return SetupText(State.StartBoard);
}

void RecountMaterial(RulesState& State) {
    const auto Weight = [&](std::int32_t Side) {
        const int Colour = ColourIndex(Side);
        return State.Pieces[Colour].Count() + 2 * State.Pieces[Colour + 2].Count();
    };
    const int WhiteWeight = Weight(White);
    const int BlackWeight = Weight(Black);
    State.Material[0] = 100 * (WhiteWeight - BlackWeight) * State.Side;
    State.TotalMaterial[0] = 100 * (WhiteWeight + BlackWeight);
    State.WeightSums[0] = WeightsOf(State, State.Pieces);
}

void RecountPosition(RulesState& State) {
    State.Pieces = SetsOf(State.Board);
    RecountMaterial(State);
}

void CountStartPosition(RulesState& State) {
    const auto Sets = SetsOf(State.StartBoard);
    State.StartMenWhite = Sets[0].Count();
    State.StartMenBlack = Sets[1].Count();
    State.TotalMen = Sets[0].Count() + Sets[1].Count() + 2 * (Sets[2].Count() + Sets[3].Count());
}

void ResetMoves(RulesState& State) {
    State.Ply = 0;
    State.GameMoves = 0;
    State.StackLimit.Fill(0);
    State.StackTop = 0;
    State.CaptureRow.Count = 0;
    State.PlyIrreversible.Fill(0);
    State.PlyDest.Fill(0);
    State.Wanted.Fill({});
    State.MoveDest.Fill(0);
    State.MoveKingDemoted.Fill(0);
    State.MoveLastManCrowned.Fill(0);
    State.PiecesInHandWhite = State.RuleSet.ContractNumber;
    State.PiecesInHandBlack = State.RuleSet.ContractNumber;
    State.TouchedSquare = 0;
    State.CancelRequested = StopRequest::None;
    State.AtGamePosition = 0;
}

std::string CheckPosition(const RulesState& State) {
    std::string Faults;
    const auto Expect = [&](bool Good, std::string_view What) {
        if (!Good) {
            Faults.append(Faults.empty() ? "" : ", ").append(What);
        }
    };
    // Cell 0 is left out: taking a move back under `ManKing` may write to it.
    bool BordersStand = true;
    bool CellsGood = true;
    for (int Cell = 1; Cell < BoardCells; ++Cell) {
        const std::int32_t Value = State.Board[Cell];
        (IsOnBoard(Cell) ? CellsGood : BordersStand) &=
            IsOnBoard(Cell) ? Value == Empty || IsPiece(Value) : Value == Border;
    }
    Expect(BordersStand, "border overwritten");
    Expect(CellsGood, "a cell holds no piece value");
    Expect(State.Pieces == SetsOf(State.Board), "sets of pieces out of step with the board");
    Expect(State.WeightSums[State.Ply] == WeightsOf(State, State.Pieces), "sums of weights out of step with the board");
    Expect(State.Side == White || State.Side == Black, "side");
    Expect(State.Ply >= 0 && State.Ply <= MaxPly, "ply");
    Expect(State.GameMoves >= 0 && State.GameMoves < GameMoveEntries, "game moves");
    return Faults;
}

} // namespace zonterbrook::rules
