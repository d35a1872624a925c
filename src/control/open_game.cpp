// Opening a game.
#include "control/open_game.h"

#include "control/book.h"
#include "control/game_document.h"
#include "control/kept_game.h"
#include "control/pdn_game.h"
#include "control/settings.h"
#include "control/turn_state.h"
#include "formats/text_file.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

void OpenFile(GameState& State, const std::filesystem::path& File) {
    std::error_code Error;
    if (!std::filesystem::exists(File, Error)) {
        State.Outside().Message("Zonterbrook", formats::PathText(File) + " does not exist", Icon::Exclamation);
        return;
    }
    ClearForLoad(State);
    std::shared_ptr<const ReplacedGame> Before = KeepGame(State);
    const LoadReport Report =
        IsPdnName(File) ? LoadPdnFile(State, File, LoadMode::Chosen) : LoadGameFile(State, File, LoadMode::Chosen);
    if (Report.How == LoadResult::Failed || Report.How == LoadResult::BadSetup) {
        RefreshChoices(State);
        view::SetStatus(State, StandingText(State));
        return;
    }
    State.Replaced = std::move(Before);
    if (Report.How == LoadResult::Loaded) {
        NameFile(State, File);
    }
    SaveByItself(State);
}

} // namespace

bool WouldLoseMoves(const GameState& State) {
    return State.Record.Count > 0 && State.GameChanged;
}

bool PersonLeavesGame(const GameState& State) {
    return !WouldLoseMoves(State) || State.Outside().Ask("Confirmation", "Quit current game?");
}

void Open_Click(GameState& State) {
    if (!PersonLeavesGame(State)) {
        return;
    }
    if (const auto File = State.Outside().AskFileToOpen("Load Game")) {
        OpenFile(State, *File);
    }
}

void OpenNamed(GameState& State, const std::filesystem::path& File) {
    if (PersonLeavesGame(State)) {
        OpenFile(State, File);
    }
}

void OpenRecent(GameState& State, std::size_t Place) {
    if (Place >= State.RecentFiles.size()) {
        return;
    }
    const std::filesystem::path File = formats::TextPath(State.RecentFiles[Place]);
    std::error_code Error;
    if (!std::filesystem::exists(File, Error)) {
        State.RecentFiles.erase(State.RecentFiles.begin() + static_cast<std::ptrdiff_t>(Place));
        SaveOwnSettings(State);
    }
    OpenNamed(State, File);
}

} // namespace zonterbrook::control
