// Bringing back a game.
#include "control/restored_game.h"

#include "control/kept_game.h"
#include "control/navigation.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "view/move_lists.h"

#include <utility>

namespace zonterbrook::control {

void RestorePrevious(GameState& State) {
    // 1. The two games change places.
    const std::shared_ptr<const ReplacedGame> Kept = std::exchange(State.Replaced, KeepGame(State));

    // 2. Rules and start position.
    State.VariantName = Kept->VariantName;
    State.UseClassic = Kept->UseClassic;
    State.RuleSet = Kept->Rules;
    State.BlackStartsByRules.reset();
    formats::VariantDocument Variant;
    Variant.Name = Kept->VariantName;
    Variant.Rules = Kept->RulesOfFile;
    Variant.Setup = Kept->Setup;
    Variant.HelpText = Kept->HelpText;
    Variant.HelpLink = Kept->HelpLink;
    Variant.QuickHelpLink = Kept->QuickHelpLink;
    StartVariant(State, Variant, RulesFrom::Hand, Lots::Left);
    State.BlackStartsByRules = Kept->BlackStartsByRules;

    // 3. The record, stepped through to where it stood.
    const std::int32_t Cursor = Kept->Game.Record.Cursor;
    GameFields& Game = State;
    Game = Kept->Game;
    Game.Turn = TurnState::Resting;
    Game.Record.Cursor = 0;
    view::ListGame(State, State.Record);
    NavigateMoves(State, -Cursor);

    // 4. What the board does not tell.
    Game.Result = Kept->Game.Result;
    Game.EndText = Kept->Game.EndText;
    Game.StatusText = Kept->Game.StatusText;
    if (IsOver(Kept->Game)) {
        EnterTurn(State, TurnState::Over);
    }
    State.RatingAllowed = Kept->RatingAllowed;
    State.WhitePlayerName = Kept->WhiteName;
    State.BlackPlayerName = Kept->BlackName;
    State.VariantTitle = Kept->Title;
    view::ShowFileName(State, State.File.empty() ? std::string() : State.File.filename().string());
    view::SetStatus(State, State.EndText.empty() ? std::string(view::SideMovesText(State.Side)) : State.EndText);
}

} // namespace zonterbrook::control
