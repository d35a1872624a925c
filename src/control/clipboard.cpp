// Copying and pasting.
#include "control/clipboard.h"

#include "base/text.h"
#include "control/book.h"
#include "control/game_document.h"
#include "control/kept_game.h"
#include "control/open_game.h"
#include "control/pdn_game.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "formats/fen.h"
#include "formats/pdn_game.h"
#include "rules/position.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

// A side and a colon: no game begins so.
bool LooksLikePosition(std::string_view Text) {
    constexpr std::string_view Sides = "WwBb?";
    return Text.size() > 1 && Sides.find(Text[0]) != std::string_view::npos && Text[1] == ':';
}

void PastePosition(GameState& State, std::string_view Text) {
    const auto Read = formats::ReadFen(Text, State.RuleSet.PiecesOnBlack);
    if (!Read.Document) {
        State.Outside().Message("Error", "Illegal Setup!", Icon::Exclamation);
        return;
    }
    State.Replaced = KeepGame(State);
    rules::WriteSetup(State.Board, Read.Document->Setup);
    rules::RecountPosition(State);
    State.Side = Read.Document->BlackBegins ? rules::Black : rules::White;
    StartPosition(State);
    view::MarkTitle(State);
}

void PasteGame(GameState& State, const std::string& Text) {
    const auto Read = formats::ReadPdnGame(Text);
    if (!Read.Document || !formats::BeginsPdn(Text)) {
        State.Outside().Message("Error", "The clipboard holds neither a game nor a position", Icon::Exclamation);
        return;
    }
    auto Before = KeepGame(State);
    ClearForLoad(State);
    const LoadReport Report = StartPdnGame(State, *Read.Document, {}, LoadMode::Chosen);
    if (Report.How == LoadResult::BadSetup) {
        RefreshChoices(State);
        view::SetStatus(State, StandingText(State));
        return;
    }
    State.Replaced = std::move(Before);
    State.GameChanged = Report.How == LoadResult::Loaded; // it is in no file
}

} // namespace

void CopyPosition(GameState& State) {
    State.Outside().SetClipboardText(
        formats::WriteFen({State.Side == rules::Black, rules::SetupText(State.Board)}, State.RuleSet.PiecesOnBlack));
}

void CopyGame(GameState& State) {
    State.Outside().SetClipboardText(PdnText(State));
}

void Paste(GameState& State) {
    const std::string Text(base::Trim(State.Outside().ClipboardText()));
    if (!PersonLeavesGame(State)) {
        return;
    }
    LooksLikePosition(Text) ? PastePosition(State, Text) : PasteGame(State, Text);
    SaveByItself(State);
}

} // namespace zonterbrook::control
