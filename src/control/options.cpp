// The options: the settings of a person as a form, and what follows when they change.
#include "control/options.h"

#include "base/text.h"
#include "control/notation.h"
#include "control/settings.h"
#include "control/skin.h"
#include "control/variant_start.h"
#include "view/draw_board.h"
#include "view/layout.h"
#include "view/move_lists.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr std::string_view ComputerName = "Computer";
constexpr int MostPlys = 6;
constexpr int MostBalance = 750;
constexpr int DeepestTable = 20;

/// Every setting that is on or off, beside its box: `Do(setting, box)`.
template <typename Settings, typename Boxes, typename Visit>
void ForEachSwitch(Settings& State, Boxes& Form, Visit&& Do) {
    Do(State.FixedDepth, Form.ByDepth);
    Do(State.ShowAvailableMoves, Form.ShowAvailableMoves);
    Do(State.CapitalNotation, Form.CapitalNotation);
    Do(State.ColonCapture, Form.ColonCapture);
    Do(State.ExtendedSearch, Form.ExtendedSearch);
    Do(State.BruteForce, Form.BruteForce);
    Do(State.ChessDrawRules, Form.ChessDrawRules);
    Do(State.AskForDraw, Form.AskForDraw);
    Do(State.KingVersusKing, Form.KingVersusKing);
    Do(State.UseBook, Form.UseBook);
    Do(State.BookFallback, Form.BookFallback);
    Do(State.ChooseOpening, Form.ChooseOpening);
    Do(State.RandomOpening, Form.RandomOpening);
    Do(State.UseRating, Form.UseRating);
    Do(State.SaveAlgebraic, Form.SaveAlgebraic);
    Do(State.ConfirmExit, Form.ConfirmExit);
    Do(State.AutoSave, Form.AutoSave);
    Do(State.UseSound, Form.UseSound);
    Do(State.TouchMove, Form.TouchMove);
}

view::OptionsForm FillForm(const GameState& State) {
    view::OptionsForm Form;
    ForEachSwitch(State, Form, [](const auto& Setting, bool& Box) { Box = Setting == 1; });
    Form.Strength = view::StrongestSlider - State.Strength;
    Form.Depth = std::clamp<std::int32_t>(State.SearchDepth, 1, view::DeepestSlider);
    Form.Time = std::clamp<std::int32_t>(State.TimeLimit, 1, view::LongestSlider);
    Form.SkinName = State.SkinName;
    Form.DarkHighlight = State.OwnSettings.DarkHighlight;
    Form.LightHighlight = State.OwnSettings.LightHighlight;
    Form.Plys = std::to_string(State.Plys);
    Form.Balance = std::to_string(State.Balance);
    Form.PlyValueDepth = std::to_string(State.PlyValueDepth);
    Form.MoveLimitChoice = State.MoveLimitChoice;
    Form.PlayerName = State.OwnName.value_or(State.PlayerName);
    Form.SecondName = State.OwnSettings.SecondName;
    Form.Volume = State.OwnSettings.Volume;
    return Form;
}

// The person gets the side to move, or the other one. Wanted: docs/kept_behaviour.md, "Names after the options".
void NameAgain(GameState& State) {
    if (State.PlayMode == view::GameMode::PlayerPlayer) {
        NamePlayers(State);
        return;
    }
    std::string White = State.PlayerName;
    std::string Black(ComputerName);
    if (State.RuleSet.BlackStarts != 1) {
        std::swap(White, Black);
    }
    if (State.Side == rules::White) {
        std::swap(White, Black);
    }
    State.WhitePlayerName = White;
    State.BlackPlayerName = Black;
}

} // namespace

OptionsEditor::OptionsEditor(GameState& InState)
    : Form(FillForm(InState)), State(InState), SkinNames(ListSkinNames(InState)) {}

std::string OptionsEditor::RatingCaption() const {
    return "Use Rating (" + std::to_string(State.Rating) + ")";
}

void OptionsEditor::Combo1_Click(std::string_view SkinName) {
    if (State.SkinName == SkinName) {
        return;
    }
    State.SkinName = SkinName;
    Form.SkinName = SkinName;
    LoadSkin(State);
    view::LayoutWindow(State);
    view::DrawBoard(State, 0);
    State.Outside().Refresh();
}

void OptionsEditor::Command1_Click() {
    State.Rating = FirstRating;
}

void OptionsEditor::cmdApply_Click() {
    ForEachSwitch(State, Form, [](auto& Setting, const bool& Box) {
        Setting = static_cast<std::remove_reference_t<decltype(Setting)>>(Box ? 1 : 0);
    });
    State.Strength = static_cast<decltype(State.Strength)>(view::StrongestSlider - Form.Strength);
    State.SearchDepth = static_cast<decltype(State.SearchDepth)>(Form.Depth);
    State.TimeLimit = static_cast<decltype(State.TimeLimit)>(Form.Time);
    State.Plys = static_cast<decltype(State.Plys)>(view::ReadWithin(Form.Plys, 1, MostPlys));
    State.Balance = static_cast<decltype(State.Balance)>(view::ReadWithin(Form.Balance, 1, MostBalance));
    State.PlyValueDepth =
        static_cast<decltype(State.PlyValueDepth)>(view::ReadWithin(Form.PlyValueDepth, 1, DeepestTable));
    State.MoveLimitChoice = static_cast<decltype(State.MoveLimitChoice)>(Form.MoveLimitChoice);
    State.OwnSettings.SecondName = base::Trim(Form.SecondName);
    State.OwnSettings.Volume = Form.Volume;
    State.OwnSettings.DarkHighlight = Form.DarkHighlight;
    State.OwnSettings.LightHighlight = Form.LightHighlight;
    // A name that a file has lent stays beside the board until the person types another one.
    if (Form.PlayerName != State.OwnName.value_or(State.PlayerName)) {
        State.OwnName.reset();
        State.PlayerName = Form.PlayerName;
    }
}

void ShowOptions(GameState& State) {
    const view::OptionsForm Before = FillForm(State);
    OptionsEditor Editor(State);
    State.Outside().ShowOptions(Editor);

    // 1. The board, if its look has changed: a new skin stands there already.
    ApplyHighlights(State);

    // 2. The line of the strength, the sign of a capture, the names.
    view::ShowStrength(State);
    State.CaptureChar = State.ColonCapture == 1 ? ':' : 'x';
    NameAgain(State);

    // 3. The board and every text that names a move.
    view::DrawBoard(State, 0);
    State.SourcesShown = false;
    RewriteMoves(State);
    if (!(FillForm(State) == Before)) {
        SaveSettings(State);
        SaveOwnSettings(State);
    }
}

} // namespace zonterbrook::control
