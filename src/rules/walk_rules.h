// Who answers a capture walk's questions about the rules, `Is`: the live rule set, whose flags were derived when it was
// installed, or one of the recognised ones, where every answer is a constant and the compiler folds the test away.
#pragma once

#include "rules/known_rules.h"
#include "rules/state.h"

namespace zonterbrook::rules {

/// The live rule set.
struct LiveRules {
    explicit LiveRules(const RulesState& State) : Is(State.Walk), Promotion(State.PromotionSet) {}

    const WalkFlags Is;
    const base::CheckedArray<CellSet, 2>& Promotion; ///< the promotion squares by colour
    static constexpr bool RegistersAtOnce = false;
};

/// A recognised rule set. Five promotion squares a side are all it has.
template <WalkFlags Flags>
struct FoldedRules {
    explicit FoldedRules(const RulesState& State) : Promotion(State.ShortPromotionSet) {}

    static constexpr WalkFlags Is = Flags;
    const base::CheckedArray<CellSet, 2>& Promotion;
    /// Where no filter looks at more than one path, a capture goes straight to the stack and no row is kept.
    static constexpr bool RegistersAtOnce = !Flags.MaxCapMove && !Flags.KingsFinish;
};

} // namespace zonterbrook::rules
