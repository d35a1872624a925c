// Lines of PDN tags, and what the tags for rules and for the kind of game hold.
#include "formats/pdn_tags.h"

#include "formats/game_type.h"
#include "formats/rule_tags.h"
#include "fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const std::string_view Text = fuzz::TextOf(Bytes, Size);
    formats::PdnTags Tags;
    fuzz::Expect(formats::ReadPdnTags(Text, Tags) <= Text.size(), "the rest lies within the line");
    formats::BeginsPdn(Text);
    for (int Column = 0; Column < formats::PdnColumns; ++Column) {
        formats::PdnColumnText(Tags, static_cast<formats::PdnColumn>(Column));
    }
    for (const std::string_view Value : {Text, std::string_view(Tags.RuleTag), std::string_view(Tags.RuleSet)}) {
        formats::ReadRuleTag(Value, {});
        if (const auto Rules = formats::ReadRuleSetTag(Value); Rules.Document) {
            const auto Again = formats::ReadRuleSetTag(formats::WriteRuleSetTag(*Rules.Document));
            fuzz::Expect(Again.Document && Again.Document->Rules == Rules.Document->Rules, "rules come back");
        }
    }
    if (const auto Type = formats::ReadGameType(Text)) {
        formats::OwnSquare(*Type, "12");
        formats::OwnSquare(*Type, "C3");
        fuzz::Expect(formats::ReadGameType(formats::WriteGameType(*Type)) == Type, "a game type comes back");
    }
    return 0;
}
