// The position as the window shows it: pictures, numbers and boxes of the cells, counters, edge labels, player names.
//
// Reads the position, the rules and the settings; writes the window's contents.
#pragma once

#include "view/state.h"

namespace zonterbrook::view {

/// The cell of a square on the board as it is turned now, 0 at the upper left; and the square of a cell. `Square` must
/// be one of the hundred of the playing area, `Cell` 0 to 99.
int CellOfSquare(const ViewState& State, int Square);
int SquareOfCell(const ViewState& State, int Cell);

/// True if a square is drawn dark.
bool IsDarkSquare(const ViewState& State, int Square);

/// Shows the position anew and takes all boxes and numbers off. Mode 1 prints the running numbers of the squares.
void DrawBoard(ViewState& State, int Mode);

/// The edge labels and the frame alone.
void DrawEdges(ViewState& State);

/// The players' names and colours, the side to move marked.
void ShowPlayers(ViewState& State);

/// Shows one square plainly, without a box.
void RepaintSquare(ViewState& State, int Square);

/// Shows a square as if it were empty: its piece is in the hand.
void PaintEmpty(ViewState& State, int Square);

/// Puts the highlight on a square.
void BoxSquare(ViewState& State, int Square);

/// The drag pointer of a piece; `Picture::None` for anything else.
Picture PointerOfPiece(std::int32_t Piece);

} // namespace zonterbrook::view
