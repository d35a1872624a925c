// The options: the settings of a person as a form, and what follows when they change.
#pragma once

#include "control/state.h"
#include "view/options_form.h"

#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::control {

/// What the options dialog works on.
class OptionsEditor {
public:
    explicit OptionsEditor(GameState& InState);

    /// What the boxes hold; the dialog writes into it what the person changes.
    view::OptionsForm Form;

    const std::vector<std::string>& Skins() const { return SkinNames; }
    /// The caption of the box for the rating.
    std::string RatingCaption() const;

    /// The skin is changed at once, for the board to be looked at; nothing takes it back.
    void Combo1_Click(std::string_view SkinName);
    /// The rating is the one of a player who has not played yet.
    void Command1_Click();
    /// Takes the boxes over into the settings, held within their limits.
    void cmdApply_Click();

private:
    GameState& State;
    std::vector<std::string> SkinNames;
};

/// Shows the options, and afterwards brings the window in line with them.
void ShowOptions(GameState& State);

} // namespace zonterbrook::control
