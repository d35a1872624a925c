// The commands that judge a rule set rather than play by it.
#include "console.h"
#include "console_text.h"
#include "control/survey.h"
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

std::string Console::SurveyRules(const Words& Arguments) {
    ExpectCount(Arguments, 2, 2);
    const int Games = SmallNumber(Arguments[0], 1, 100000);
    const int Depth = SmallNumber(Arguments[1], 1, rules::MaxPly);
    formats::VariantDocument Variant;
    Variant.Rules = State->RuleSet;
    Variant.Setup = rules::BuildSetupText(*State);
    control::Survey Survey(std::move(Variant), World.Chance, {Games, Depth}, [] { return true; });
    while (Survey.PlayGame()) {
    }
    World.Chance = Survey.Chance();
    return view::SurveyLine(Survey.Report()) + '\n';
}

} // namespace zonterbrook::probe
