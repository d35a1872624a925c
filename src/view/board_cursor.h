// The keyboard's cursor on the board, and what a screen reader says of the squares.
//
// The cursor belongs to a square and goes with it when the board is turned. Writes `CursorSquare`, `CursorShown`
// and `CursorCell`; reads cells, settings and the moves of the ply.
#pragma once

#include "view/state.h"

#include <string>

namespace zonterbrook::view {

/// Puts the cursor on a square of the board.
void SetCursor(ViewState& State, int Square);

/// Moves it by cells of the screen, as far as the board goes.
void StepCursor(ViewState& State, int Right, int Down);

/// Shows the cursor, or hides it. A cursor that has no square yet stays hidden.
void ShowCursor(ViewState& State, bool Shown);

/// Shows the cursor where its square stands on the board as it is turned now.
void PlaceCursor(ViewState& State);

/// The cell from which the piece in the hand was taken; -1 if there is none.
int HeldCell(const WindowContents& Contents);

/// What a screen reader says of a cell: "c3, White man, can move", "d6, empty", "e5, empty, target". `MovesOpen`:
/// whether a person may move now; only then are the moves of the ply looked at. As for the eye, nothing is said of
/// moves when available moves are not to be shown.
std::string CellText(const ViewState& State, int Cell, bool MovesOpen);

} // namespace zonterbrook::view
