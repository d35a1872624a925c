// Keeping a game.
#include "control/kept_game.h"

#include "rules/position.h"

namespace zonterbrook::control {

std::shared_ptr<const ReplacedGame> KeepGame(const GameState& State) {
    auto Kept = std::make_shared<ReplacedGame>();
    Kept->Game = static_cast<const GameFields&>(State);
    Kept->VariantName = State.VariantName;
    Kept->Title = State.VariantTitle;
    Kept->UseClassic = State.UseClassic;
    Kept->Rules = State.RuleSet;
    Kept->RulesOfFile = State.LoadedRuleSet;
    Kept->BlackStartsByRules = State.BlackStartsByRules;
    Kept->Setup = rules::BuildSetupText(State);
    Kept->HelpText = State.HelpText;
    Kept->HelpLink = State.HelpLink;
    Kept->QuickHelpLink = State.QuickHelpLink;
    Kept->WhiteName = State.WhitePlayerName;
    Kept->BlackName = State.BlackPlayerName;
    Kept->RatingAllowed = State.RatingAllowed;
    return Kept;
}

} // namespace zonterbrook::control
