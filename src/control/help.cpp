// What helps a person.
#include "control/help.h"

#include "base/text.h"

namespace zonterbrook::control {

namespace {

// Wanted: docs/kept_behaviour.md, "A link that is not shown".
constexpr std::string_view UnshownLink = "tfenwick";

void ShowRulesWith(GameState& State, const std::string& Link) {
    RulesPage Page;
    Page.Help = "No help available";
    if (!State.HelpText.empty()) {
        Page.Heading = " Rules for " + State.VariantTitle;
        Page.Help = State.HelpText;
    }
    if (base::ToLower(Link).find(UnshownLink) == std::string::npos) {
        Page.Link = Link;
    }
    State.Outside().ShowRules(Page);
}

} // namespace

void Rules_Click(GameState& State) {
    ShowRulesWith(State, State.HelpLink);
}

void QuickRules_Click(GameState& State) {
    ShowRulesWith(State, State.QuickHelpLink);
}

void Contents_Click(GameState& State) {
    State.Outside().ShowManual("");
}

void About_Click(GameState& State) {
    State.Outside().ShowAbout();
}

} // namespace zonterbrook::control
