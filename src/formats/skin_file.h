// The skin file: a text file that names the pictures of a board and its pieces, and the colours of the highlights.
//
// docs/skins.md describes it for those who draw one.
#pragma once

#include "base/checked_array.h"
#include "formats/text_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::formats {

/// The keys of a skin's pictures.
inline constexpr std::string_view SkinPictureKeys[] = {
    "dark_square",     "light_square",    "dark_white_man",  "dark_black_man",   "dark_white_king",
    "dark_black_king", "light_white_man", "light_black_man", "light_white_king", "light_black_king",
    "white_man_ico",   "black_man_ico",   "white_king_ico",  "black_king_ico"};
inline constexpr int SkinPictures = static_cast<int>(std::size(SkinPictureKeys));

struct SkinDocument {
    std::int32_t BoardCustomSize = -1; ///< 0 small, 2 medium, -1 not told
    /// Colours of the highlights: the lowest byte red, the next one green, then blue. Nothing where the file has none.
    std::optional<std::int32_t> DarkHighlight;
    std::optional<std::int32_t> LightHighlight;
    /// File names, in the order of the keys; nothing where the file names none.
    base::CheckedArray<std::optional<std::string>, SkinPictures> Pictures{};
};

/// Reads the text of a skin file. Refused without a closing line END, with a number that fits no field, and where a
/// picture has an empty name.
ReadResult<SkinDocument> ReadSkin(std::string_view Text);

/// The names of the skins in a folder, in alphabetical order, letter case ignored.
std::vector<std::string> ListSkins(const std::filesystem::path& Folder);

} // namespace zonterbrook::formats
