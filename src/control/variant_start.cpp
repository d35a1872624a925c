// The start of a game.
//
// Writes everything that belongs to a game: the position, what the engine keeps of a game, the record and its flags,
// and the window.
#include "control/variant_start.h"

#include "base/checked_number.h"
#include "control/book.h"
#include "control/input_state.h"
#include "control/trap.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "view/draw_board.h"
#include "view/layout.h"
#include "view/move_lists.h"

#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr std::string_view ComputerName = "Computer";

void DrawColourByLot(GameState& State) {
    if (State.RuleSet.RndColor == 1) {
        State.RuleSet.BlackStarts = State.Outside().Random() < 0.5 ? 0 : 1;
        State.LoadedRuleSet.BlackStarts = State.RuleSet.BlackStarts;
    }
}

void ClearWindow(GameState& State) {
    view::SetStatus(State, view::SideMovesText(State.Side));
    State.StatusPanels[view::OpeningPanel].clear();
    State.Calculated = {};
    view::WriteCalculation(State);
    State.CommentText.clear();
    State.TypedText.clear();
    State.Progress.Value = 0;
    for (view::ListFields* List : {&State.GameList, &State.ChoiceList, &State.RootList}) {
        *List = {};
    }
}

} // namespace

std::filesystem::path FolderOfVariants(const GameState& State, bool UserVariants) {
    const std::filesystem::path Written = State.Outside().WritableDirectory();
    if (UserVariants && !Written.empty()) {
        std::filesystem::path Own = formats::VariantFolder(Written, true);
        std::error_code Error;
        if (std::filesystem::is_directory(Own, Error)) {
            return Own;
        }
    }
    return formats::VariantFolder(State.Outside().ApplicationDirectory(), UserVariants);
}

formats::VariantDocument ReadChosenVariant(const GameState& State) {
    const auto Folder = FolderOfVariants(State, State.UseClassic == 0);
    auto Read = formats::ReadVariantFile(Folder, State.VariantName, rules::RuleSetFields{});
    if (!Read.Document) {
        throw FileFault(State.VariantName + ".ini: " + Read.Error.Text());
    }
    return *std::move(Read.Document);
}

void StartVariant(GameState& State, const formats::VariantDocument& Variant, RulesFrom From, Lots Side) {
    // 1. The rules.
    State.LoadedRuleSet = Variant.Rules;
    if (From == RulesFrom::File) {
        State.RuleSet = Variant.Rules;
    } else {
        State.RuleSet.BlackStarts = State.BlackStartsByRules.value_or(State.RuleSet.BlackStarts);
    }
    State.BlackStartsByRules.reset();
    State.HelpText = Variant.HelpText;
    State.HelpLink = Variant.HelpLink;
    State.QuickHelpLink = Variant.QuickHelpLink;

    // 2. The start position, and who begins.
    State.RatingAllowed = true;
    rules::LaySetup(State, Variant.Setup);
    if (Side == Lots::Drawn) {
        DrawColourByLot(State);
    }
    RestartGame(State);
}

void StartPosition(GameState& State) {
    if (!State.BlackStartsByRules) {
        State.BlackStartsByRules = State.RuleSet.BlackStarts;
    }
    State.StartBoard = State.Board;
    State.RuleSet.BlackStarts = State.Side == rules::Black ? 1 : 0;
    RestartGame(State);
}

void RestartGame(GameState& State) {
    // 1. The position and what the engine keeps of a game.
    State.Outside().SeedRandom();
    engine::StartEngineGame(State);
    State.RootMoves.Fill({engine::UnsetScore, 0, engine::UnsetScore});

    // 2. The record and the flags.
    static_cast<GameFields&>(State) = {};
    State.Record.HalfMoves[0].Material = base::Narrow<std::int16_t>(State.Material[0]);
    State.Record.HalfMoves[0].TotalMaterial = State.TotalMaterial[0];
    ClearInput(State);

    // 3. The window.
    State.FileName.clear();
    view::ShowVariantTitle(State);
    ClearWindow(State);
    State.CaptureChar = State.ColonCapture == 1 ? ':' : 'x';
    NamePlayers(State);
    view::LayoutWindow(State);
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
    view::DrawBoard(State, 0);
}

std::int32_t PersonSide(const GameState& State) {
    const bool White = State.WhitePlayerName == State.PlayerName;
    const bool Black = State.BlackPlayerName == State.PlayerName;
    if (White != Black) {
        return White ? rules::White : rules::Black;
    }
    return State.Record.Last().By == game::MadeBy::Person ? -State.Side : State.Side;
}

void NamePlayers(view::ViewState& State) {
    const std::string Computer(ComputerName);
    const std::string& Second = State.OwnSettings.SecondName.empty() ? State.PlayerName : State.OwnSettings.SecondName;
    State.WhitePlayerName = State.PlayMode == view::GameMode::ComputerComputer ? Computer : State.PlayerName;
    State.BlackPlayerName = State.PlayMode == view::GameMode::PlayerPlayer ? Second : Computer;
    if (State.OwnSettings.PlayColour == static_cast<std::int32_t>(view::PersonColour::Black)) {
        std::swap(State.WhitePlayerName, State.BlackPlayerName);
    }
}

void NamePersonToMove(view::ViewState& State) {
    const bool WhiteMoves = State.Side == rules::White;
    State.WhitePlayerName = WhiteMoves ? State.PlayerName : std::string(ComputerName);
    State.BlackPlayerName = WhiteMoves ? std::string(ComputerName) : State.PlayerName;
}

} // namespace zonterbrook::control
