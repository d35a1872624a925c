// The two tags by which a game in a PDN file brings its rules with it.
//
// [Quavermill "..."] lists values by their position alone, and is written for programs that look for it. [RuleSet
// "..."] says everything by key, as a variant file does, and is what a game comes back by.
#pragma once

#include "formats/text_file.h"
#include "rules/rule_set.h"

#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// The rules of a game and where it began.
struct RuleTagDocument {
    std::string Variant; ///< the name of its file, without extension
    std::string Setup;   ///< a hundred digits
    rules::RuleSetFields Rules;

    bool operator==(const RuleTagDocument&) const = default;
};

/// Whether a game is written with [Quavermill "..."]: all are, but those by the American rules from their start
/// position.
bool NeedsRuleTag(const RuleTagDocument& Document);

/// The value of [Quavermill "..."].
std::string WriteRuleTag(const RuleTagDocument& Document);

/// The name of the variant in such a value; empty if there is none.
std::string RuleTagVariant(std::string_view Text);

/// What was read, and whether the end was reached.
struct RuleTagReading {
    RuleTagDocument Document;
    bool Failed = false;
};

/// Reads the value of [Quavermill "..."] over the rules `Before`. Fields behind `NumberPieces` come out wrong and the
/// reading fails among the movement strings, also for a value that was written here. Wanted: docs/kept_behaviour.md,
/// "the rule tag". It fails earlier where a value is missing or does not fit; what was read until then is in place.
RuleTagReading ReadRuleTag(std::string_view Text, const rules::RuleSetFields& Before);

/// The value of [RuleSet "..."].
std::string WriteRuleSetTag(const RuleTagDocument& Document);

/// Reads the value of [RuleSet "..."]. A rule that it doesn't name has its default; without a set-up the field is
/// empty.
ReadResult<RuleTagDocument> ReadRuleSetTag(std::string_view Text);

} // namespace zonterbrook::formats
