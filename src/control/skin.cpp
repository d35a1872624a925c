// The skin: from its file to the pictures of the board.
#include "control/skin.h"

#include "formats/skin_file.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace zonterbrook::control {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view SmallName = "Classic Small";
constexpr std::string_view MediumName = "Classic Medium";
constexpr std::int32_t SmallPictures = 0;
constexpr std::int32_t MediumPictures = 2;
constexpr std::int32_t PicturesOfFiles = 4;
constexpr std::string_view SkinFolder = "skins";

static_assert(formats::SkinPictures == view::PictureCount);

// A person's own skins lie where the program can write; those that come with it, beside it.
std::vector<fs::path> SkinFolders(const GameState& State) {
    std::vector<fs::path> Folders;
    for (const fs::path& Place : {State.Outside().WritableDirectory(), State.Outside().ApplicationDirectory()}) {
        if (const auto Found = Place.empty() ? std::nullopt : formats::FindFile(Place, SkinFolder)) {
            if (std::ranges::find(Folders, *Found) == Folders.end()) {
                Folders.push_back(*Found);
            }
        }
    }
    return Folders;
}

std::optional<formats::SkinDocument> ReadSkinFile(const fs::path& Folder, const std::string& Name) {
    const auto File = formats::FindFile(Folder, Name + ".ini");
    const auto Text = File ? formats::ReadTextFile(*File).Document : std::nullopt;
    return Text ? formats::ReadSkin(*Text).Document : std::nullopt;
}

// The files of the pictures; empty paths for those that the skin leaves to the program. Nothing if one isn't there.
std::optional<std::vector<fs::path>> PictureFiles(const fs::path& Folder, const std::string& Name,
                                                  const formats::SkinDocument& Skin) {
    std::vector<fs::path> Files;
    for (const auto& Picture : Skin.Pictures) {
        const auto File = Picture ? formats::FindFile(Folder, Name + '/' + *Picture) : fs::path();
        if (!File) {
            return std::nullopt;
        }
        Files.push_back(*File);
    }
    return Files;
}

bool LoadOwnSkin(GameState& State) {
    for (const fs::path& Folder : SkinFolders(State)) {
        const auto Skin = ReadSkinFile(Folder, State.SkinName);
        const auto Files = Skin ? PictureFiles(Folder, State.SkinName, *Skin) : std::nullopt;
        if (Files && State.Outside().LoadPictures(*Files)) {
            State.BoardCustomSize = Skin->BoardCustomSize;
            State.SkinDarkHighlight = Skin->DarkHighlight.value_or(view::UsualDarkHighlight);
            State.SkinLightHighlight = Skin->LightHighlight.value_or(view::UsualLightHighlight);
            return true;
        }
    }
    return false;
}

} // namespace

std::vector<std::string> ListSkinNames(const GameState& State) {
    std::vector<std::string> Names = {std::string(SmallName), std::string(MediumName)};
    for (const fs::path& Folder : SkinFolders(State)) {
        for (std::string& Name : formats::ListSkins(Folder)) {
            if (std::ranges::find(Names, Name) == Names.end()) {
                Names.push_back(std::move(Name));
            }
        }
    }
    return Names;
}

void LoadSkin(GameState& State) {
    State.BoardCustomSize = -1;
    if (State.SkinName == SmallName) {
        State.SizeClass = SmallPictures;
    } else if (State.SkinName == MediumName || !LoadOwnSkin(State)) {
        State.SizeClass = MediumPictures;
    } else {
        State.SizeClass = PicturesOfFiles;
    }
    State.Look.OwnPictures = State.SizeClass == PicturesOfFiles;
    ++State.Look.Loads;
    ApplyHighlights(State);
}

void ApplyHighlights(view::ViewState& State) {
    const auto Colour = [&](std::int32_t Own, std::int32_t OfSkin, std::int32_t Usual) {
        return Own >= 0 ? Own : State.Look.OwnPictures ? OfSkin : Usual;
    };
    State.Look.DarkHighlight =
        Colour(State.OwnSettings.DarkHighlight, State.SkinDarkHighlight, view::UsualDarkHighlight);
    State.Look.LightHighlight =
        Colour(State.OwnSettings.LightHighlight, State.SkinLightHighlight, view::UsualLightHighlight);
}

} // namespace zonterbrook::control
