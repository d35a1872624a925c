// The commands that judge a rule set rather than play by it.
#include "console.h"
#include "rules/position.h"
#include "rules/rule_check.h"

namespace zonterbrook::probe {

std::string Console::Check(std::string_view File) const {
    std::vector<rules::RuleWarning> Warnings;
    if (File.empty()) {
        Warnings = rules::CheckRules(State->RuleSet, rules::BuildSetupText(*State));
    } else {
        const formats::VariantDocument Document = ReadDocument(File);
        Warnings = rules::CheckRules(Document.Rules, Document.Setup);
    }
    std::string Answer;
    for (const rules::RuleWarning& Warning : Warnings) {
        Answer += "warning " + Warning.Key + '|' + Warning.Sentence + '\n';
    }
    return Answer;
}

} // namespace zonterbrook::probe
