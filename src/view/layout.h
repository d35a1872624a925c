// Where everything stands in the window, for both sizes of the board and both text densities.
//
// Reads the size class and the twips per pixel; writes `Layout`.
#pragma once

#include "view/state.h"

namespace zonterbrook::view {

/// True if the window is laid out for the medium pictures; any other layout is that of the small ones.
bool IsMedium(const ViewState& State);

/// True if the layout is one of the two that have a frame and edge labels: a skin that tells no size has none.
bool HasEdges(const ViewState& State);

/// Places every control, and shows or hides the labels of the pieces off the board.
void LayoutWindow(ViewState& State);

} // namespace zonterbrook::view
