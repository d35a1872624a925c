// Rule sets by lot.
#pragma once

#include "rules/rule_set.h"

#include <functional>

namespace zonterbrook::rules {

/// Draws the rules of a set by numbers of `Random`, each from 0 to below 1, one for each rule. Promotion squares,
/// movements, `NumberFriends`, two kings against one, the fewest pieces and everything off the board stay, so that the
/// set can be played on the board as it is. `WithColour`: the colour of the squares is drawn, too.
void DrawRules(RuleSetFields& Rules, bool WithColour, const std::function<double()>& Random);

} // namespace zonterbrook::rules
