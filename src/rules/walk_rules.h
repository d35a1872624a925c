// Who answers a capture walk's questions about the rules.
//
// There is one provider for the live rule set, with its flags (walk_flags.h), and one for each of the four
// recognised rule sets, where every answer is a constant and the compiler folds the test away. They stand here side by
// side because their differences are the whole difference between the generators.
#pragma once

#include "rules/state.h"

namespace zonterbrook::rules {

/// The live rule set.
struct LiveRules : WalkFlags {
    explicit LiveRules(const RulesState& State) : WalkFlags(State.Walk), Promotion(State.PromotionSet) {}

    const base::CheckedArray<CellSet, 2>& Promotion; ///< the promotion squares by colour
    static constexpr bool RegistersAtOnce = false;
};

/// What the four recognised rule sets share. Five promotion squares a side are all they have.
struct FoldedRules {
    explicit FoldedRules(const RulesState& State) : Promotion(State.ShortPromotionSet) {}

    const base::CheckedArray<CellSet, 2>& Promotion;
    static constexpr bool LongKings = false;
    static constexpr bool KingFirst = false;
    static constexpr bool RemovePieces = false;
    static constexpr bool CapReverse = false;
    static constexpr bool ManCapKing = true;
    static constexpr bool ManCapMoveKing = false;
    static constexpr bool ContinuesOnPromotion = false;
    static constexpr bool CrownsAtEnd = false;
    static constexpr bool CrownsOnTheWay = false;
    static constexpr bool EveryPrefix = false;
    static constexpr bool ComparesSets = false;
    static constexpr bool DropsShorterSets = false;
    static constexpr bool LastCap = false;
    static constexpr bool MaxCapMove = false;
    static constexpr bool MaxCapMoveKings = false;
    static constexpr bool KingsFinish = false;
    static constexpr bool KingsLengthCounts = false;
    static constexpr bool KingFirstOnly = false;
    static constexpr bool CapRequired = true;
    static constexpr bool JumpFriend = false;
    static constexpr bool Entries = false;
    static constexpr bool RegistersAtOnce = false;
};

/// No filter looks at more than one path, so a capture goes straight to the stack and no row is kept.
struct AmericanRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool RegistersAtOnce = true;
};

/// Unlike the generic generator this one never lets a man's capture tie with a king's.
struct ItalianRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool ManCapKing = false;
    static constexpr bool MaxCapMove = true;
    static constexpr bool MaxCapMoveKings = true;
    static constexpr bool KingsLengthCounts = true;
    static constexpr bool KingFirstOnly = true;
};

struct GermanRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool LongKings = true;
    static constexpr bool RemovePieces = true;
    static constexpr bool ContinuesOnPromotion = true;
    static constexpr bool CrownsAtEnd = true;
    static constexpr bool MaxCapMove = true;
    static constexpr bool KingsFinish = true;
};

struct RussianRules : FoldedRules {
    using FoldedRules::FoldedRules;
    static constexpr bool LongKings = true;
    static constexpr bool RemovePieces = true;
    static constexpr bool ContinuesOnPromotion = true;
    static constexpr bool CrownsAtEnd = true;
    static constexpr bool CrownsOnTheWay = true;
    static constexpr bool KingsFinish = true;
};

} // namespace zonterbrook::rules
