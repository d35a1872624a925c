// Saving: to a game file, or behind the games of a PDN file.
#include "control/saved_game.h"

#include "base/text.h"
#include "control/game_document.h"
#include "control/loaded_game.h"
#include "control/pdn_game.h"
#include "formats/pdn_writer.h"
#include "formats/text_file.h"

#include <algorithm>
#include <fstream>

namespace zonterbrook::control {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view GameExtension = ".qvm";

bool Exists(const fs::path& File) {
    std::error_code Error;
    return fs::exists(File, Error);
}

// What stands between the last game of a file and one that is added.
std::string GapBehind(const fs::path& File) {
    constexpr std::streamoff Looked = 4;
    std::ifstream Stream(File, std::ios::binary | std::ios::ate);
    const std::streamoff Size = Stream.is_open() ? static_cast<std::streamoff>(Stream.tellg()) : 0;
    if (Size <= 0) {
        return {};
    }
    std::string End(static_cast<std::size_t>(std::min(Size, Looked)), '\0');
    Stream.seekg(-static_cast<std::streamoff>(End.size()), std::ios::end);
    Stream.read(End.data(), static_cast<std::streamsize>(End.size()));
    return std::string(formats::PdnGap(End));
}

} // namespace

bool SaveGameTo(GameState& State, const fs::path& File) {
    const bool Pdn = IsPdnName(File);
    if (Pdn && State.Details.Date.empty()) {
        State.Details.Date = State.Outside().Date();
    }
    const auto Failure = Pdn ? formats::AppendToFile(File, GapBehind(File) + PdnText(State))
                             : formats::WriteFile(File, formats::WriteGameFile(DocumentOf(State)));
    if (Failure) {
        State.Outside().Message("Error", Failure->Text(), Icon::Exclamation);
        return false;
    }
    State.GameChanged = false;
    NameFile(State, File);
    return true;
}

void Save_Click(GameState& State) {
    // A PDN file would get the game a second time.
    if (State.File.empty() || IsPdnName(State.File)) {
        SaveAs_Click(State);
    } else {
        SaveGameTo(State, State.File);
    }
}

void SaveAs_Click(GameState& State) {
    auto Chosen = State.Outside().AskFileToSave("Save Game", State.File);
    if (!Chosen) {
        return;
    }
    if (!Chosen->has_extension()) {
        *Chosen += GameExtension;
    }
    const bool Replaces = !IsPdnName(*Chosen) && Exists(*Chosen);
    if (Replaces && !State.Outside().Ask("Confirmation", formats::PathText(*Chosen) + " already exists, overwrite?")) {
        return;
    }
    SaveGameTo(State, *Chosen);
}

} // namespace zonterbrook::control
