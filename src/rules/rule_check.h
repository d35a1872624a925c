// The check of a rule set: what in it is contradictory or has no effect, told to whoever invents a variant.
//
// It warns and never forbids: any rule set can be played. Nothing is read but the arguments. What is told is certain;
// where pieces can get is reckoned with more freedom than they have in play, so that a doubt never becomes a warning.
#pragma once

#include "rules/rule_set.h"

#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::rules {

/// A warning and the rule that it stands beside.
struct RuleWarning {
    std::string Key;      ///< a numeric rule's, a movement's or a promotion column's, or "Setup"
    std::string Sentence; ///< one or two sentences for a person
};

/// What is wrong with `Rules` played from `Setup`, a set-up text, or empty for the usual start position; empty if
/// nothing is. Of one key several things may be told. Throws a `base::Fault` if `Setup` is neither.
std::vector<RuleWarning> CheckRules(const RuleSetFields& Rules, std::string_view Setup);

} // namespace zonterbrook::rules
