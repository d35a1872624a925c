// The board for screen readers and other helpers of the desktop: a table of ten by ten cells.
//
// It reads the widget, whose owner puts the squares into words, and presses a cell for whoever can't press it himself.
#pragma once

#include <QAccessible>

namespace zonterbrook::ui {

class BoardWidget;

/// Makes the board's cells known to the desktop's helpers; once, before the first of them asks. Again does no harm.
void RegisterBoardAccess();

/// Tells the helpers that a cell now reads otherwise, that the cursor has come to it.
void TellCellChanged(BoardWidget& Board, int Cell);
void TellCellFocused(BoardWidget& Board, int Cell);

} // namespace zonterbrook::ui
