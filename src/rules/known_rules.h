// The rule sets that have routines of their own, each stated once: recognition compares with these, and the hard-wired
// generators fold the flags that derive from them.
#pragma once

#include "rules/rule_set.h"
#include "rules/walk_flags.h"

#include <cstdint>
#include <string_view>

namespace zonterbrook::rules {

/// Which of them a rule set is: none of them, or one. The values are those of `SpecialRuleSet`.
enum class KnownRules : std::int32_t { None, American, Italian, German, Russian };

/// What the four have in common, and apart from International Checkers: men of the usual start position, captures as
/// they come, no draw by few kings.
constexpr RuleSetFields PlainRules(int FirstWhitePromotion, int FirstBlackPromotion) {
    RuleSetFields Rules;
    Rules.LongKings = 0;
    Rules.ManContJump = 0;
    Rules.MaxCapMove = 0;
    Rules.RemovePieces = 0;
    for (int Row = 0; Row < 5; ++Row) {
        Rules.PromotionSquares[Row][0] = FirstWhitePromotion + 2 * Row;
        Rules.PromotionSquares[Row][1] = FirstBlackPromotion + 2 * Row;
    }
    return Rules;
}

constexpr RuleSetFields AmericanRuleSet() {
    RuleSetFields Rules = PlainRules(134, 25);
    Rules.MovementStrings[0].Assign("NW;NE NW;NE");
    Rules.MovementStrings[1].Assign("NW;NE NW;NE");
    Rules.BlackStarts = 1;
    return Rules;
}

constexpr RuleSetFields ItalianRuleSet() {
    RuleSetFields Rules = PlainRules(133, 26);
    Rules.MovementStrings[0].Assign("NW;NE NW;NE");
    Rules.MovementStrings[1].Assign("NW;NE NW;NE");
    Rules.MaxCapMove = 1;
    Rules.ManCapKing = 0;
    Rules.KingCapMove = 1;
    Rules.MaxCapMoveKings = 1;
    Rules.PiecesOnBlack = 0;
    return Rules;
}

constexpr RuleSetFields GermanRuleSet() {
    RuleSetFields Rules = PlainRules(134, 25);
    Rules.LongKings = 1;
    Rules.ManContJump = 1;
    Rules.MaxCapMove = 1;
    Rules.RemovePieces = 1;
    return Rules;
}

constexpr RuleSetFields RussianRuleSet() {
    RuleSetFields Rules = PlainRules(134, 25);
    Rules.LongKings = 1;
    Rules.ManContJump = 1;
    Rules.ManContJumpCrowned = 1;
    Rules.RemovePieces = 1;
    Rules.ThreeKings = 1;
    Rules.NumberKings = 15;
    return Rules;
}

/// One of them.
struct KnownRuleSet {
    KnownRules Id;
    std::string_view Generator; ///< the name of its generator
    RuleSetFields Rules;
};

inline constexpr KnownRuleSet KnownRuleSets[] = {
    {KnownRules::American, "GenerateMovesAmerican", AmericanRuleSet()},
    {KnownRules::Italian, "GenerateMovesItalian", ItalianRuleSet()},
    {KnownRules::German, "GenerateMovesGerman", GermanRuleSet()},
    {KnownRules::Russian, "GenerateMovesRussian", RussianRuleSet()},
};

constexpr const KnownRuleSet& KnownRuleSetOf(KnownRules Id) {
    return KnownRuleSets[static_cast<std::size_t>(Id) - 1];
}

/// The flags of its hard-wired generator: those that derive from its rules, but that a man's capture never ties with a
/// king's there. Wanted: docs/kept_behaviour.md, "a man's capture ties with a king's".
constexpr WalkFlags FoldedFlags(KnownRules Id) {
    const RuleSetFields& Rules = KnownRuleSetOf(Id).Rules;
    WalkFlags Flags = DeriveWalkFlags(Rules, false);
    Flags.KingFirstOnly = Rules.KingCapMove != 0;
    return Flags;
}

} // namespace zonterbrook::rules
