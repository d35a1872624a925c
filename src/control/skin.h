// The skin: the look of the board and the pieces.
#pragma once

#include "control/state.h"

#include <string>
#include <vector>

namespace zonterbrook::control {

/// The skins to choose from: the two that are built in, then those of the files.
std::vector<std::string> ListSkinNames(const GameState& State);

/// Makes the skin that the settings name the look of the board. One that can't be read looks like "Classic Medium".
void LoadSkin(GameState& State);

/// The colours of the highlights: the person's own, else those of the skin.
void ApplyHighlights(view::ViewState& State);

} // namespace zonterbrook::control
