// The reader of skin files.
#include "formats/skin_file.h"

#include "base/checked_number.h"
#include "base/fault.h"
#include "base/text.h"
#include "formats/variant_file.h"

#include <algorithm>
#include <iterator>

namespace zonterbrook::formats {

namespace {

constexpr std::string_view EndLine = "END";

// Gives what is wrong with the value, or an empty sentence. Lines of other keys are passed over.
std::string ReadEntry(SkinDocument& Skin, std::string_view Key, std::string_view Value) {
    try {
        if (Key == "BoardCustomSize") {
            Skin.BoardCustomSize = base::Narrow<std::int32_t>(base::LenientNumber(Value));
        } else if (Key == "dark_highlight") {
            Skin.DarkHighlight = base::Narrow<std::int32_t>(base::LenientNumber(Value));
        } else if (Key == "light_highlight") {
            Skin.LightHighlight = base::Narrow<std::int32_t>(base::LenientNumber(Value));
        }
    } catch (const base::Fault&) {
        return "the value of " + std::string(Key) + "= is out of range";
    }
    const auto* Picture = std::ranges::find(SkinPictureKeys, Key);
    if (Picture == std::end(SkinPictureKeys)) {
        return {};
    }
    if (Value.empty()) {
        return std::string(Key) + "= names no file";
    }
    Skin.Pictures[Picture - std::begin(SkinPictureKeys)] = Value;
    return {};
}

} // namespace

ReadResult<SkinDocument> ReadSkin(std::string_view Text) {
    SkinDocument Skin;
    int Number = 0;
    for (const std::string& Line : base::SplitLines(Text)) {
        ++Number;
        if (Line == EndLine) {
            return {std::move(Skin), {}};
        }
        const std::size_t Equals = Line.find('=');
        if (Equals == std::string::npos) {
            continue;
        }
        std::string Sentence = ReadEntry(Skin, Line.substr(0, Equals), std::string_view(Line).substr(Equals + 1));
        if (!Sentence.empty()) {
            return {std::nullopt, {Number, std::move(Sentence)}};
        }
    }
    return {std::nullopt, {Number, "the file ends without the line END"}};
}

std::vector<std::string> ListSkins(const std::filesystem::path& Folder) {
    return ListVariants(Folder); // their files bear the same extension
}

} // namespace zonterbrook::formats
