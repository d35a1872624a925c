// The position for a reader: as a web page, as a picture, on paper.
#pragma once

#include "control/state.h"
#include "formats/diagram.h"

#include <filesystem>

namespace zonterbrook::control {

/// The page of the position as it is shown, with the comment of the current move.
formats::DiagramDocument DiagramOf(const view::ViewState& State);

/// Writes the page where the program's files go, with its pictures beside it, says so and opens it.
void CreateHtml_Click(GameState& State);

void CopyDiagram(GameState& State);
void SaveDiagram(GameState& State);
void PrintDiagram(GameState& State);

} // namespace zonterbrook::control
