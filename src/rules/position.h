// The position: laying it, changing a cell, and the figures that are kept beside the board.
#pragma once

#include "rules/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::rules {

/// Number of characters of a set-up text, one for each cell of the board.
inline constexpr int SetupLength = 100;

/// The set-up text of the default position: twenty men a side.
inline constexpr std::string_view DefaultSetup =
    "1010101010010101010110101010100101010101000000000000000000002020202020020202020220202020200202020202";

/// Sets a cell and keeps the sets of pieces in step. `Cell` must not be a border cell. The figures by ply are the
/// caller's: whoever is not making a move calls `RecountPosition` when done.
inline void SetCell(RulesState& State, int Cell, std::int32_t Value) {
    std::int32_t& Place = State.Board[Cell];
    if (Place != Empty) {
        State.Pieces[PieceIndex(Place)] ^= SingleCells[Cell];
    }
    if (Value != Empty) {
        State.Pieces[PieceIndex(Value)] ^= SingleCells[Cell];
    }
    Place = Value;
}

inline CellSet PiecesOf(const RulesState& State, std::int32_t Side) {
    const int Colour = ColourIndex(Side);
    return State.Pieces[Colour] | State.Pieces[Colour + 2];
}

inline CellSet AllPieces(const RulesState& State) {
    return PiecesOf(State, White) | PiecesOf(State, Black);
}

/// The whole state as at the first start: default rules, default position, nothing played. Installs nothing.
void ResetRules(RulesState& State);

/// True if `Text` is a set-up text: a hundred digits 0 to 4.
bool IsSetupText(std::string_view Text);

/// Writes a set-up text to the cells of `Board`, cell 25 upward: 0 empty, 1 White man, 2 Black man, 3 White king, 4
/// Black king. `Text` must satisfy `IsSetupText`.
void WriteSetup(BoardCellsArray& Board, std::string_view Text);

/// The set-up text of a board.
std::string SetupText(const BoardCellsArray& Board);

/// The set-up text of `StartBoard`.
std::string BuildSetupText(const RulesState& State);

/// Takes `Board` as it stands for a new position: rebuilds the sets of pieces and the figures of ply 0.
void RecountPosition(RulesState& State);

/// The figures of ply 0 from the sets of pieces and the side to move: material and sums of weights.
void RecountMaterial(RulesState& State);

/// The men and weights of `StartBoard`, which the engine's thresholds and the draw figures are taken from.
void CountStartPosition(RulesState& State);

/// Puts back to a game's first moment whatever belongs to the moves made: plies, counters, wanted moves, pieces in
/// hand. Leaves the board, the side and the rules alone.
void ResetMoves(RulesState& State);

/// Derives every figure that is kept beside the board anew and compares; empty if all agree, else what differs.
std::string CheckPosition(const RulesState& State);

/// In a build that checks moves, throws a `Fault` when `CheckPosition` finds something; else nothing.
inline void CheckMove(const RulesState& State) {
    if constexpr (base::ChecksMoves) {
        if (const std::string Found = CheckPosition(State); !Found.empty()) {
            throw base::Fault(Found);
        }
    }
}

} // namespace zonterbrook::rules
