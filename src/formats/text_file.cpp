// Finding and reading files.
#include "formats/text_file.h"

#include "base/text.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <system_error>
#include <vector>

namespace zonterbrook::formats {

namespace fs = std::filesystem;

namespace {

std::vector<std::string> SplitPath(std::string_view Name) {
    std::vector<std::string> Parts;
    for (std::size_t Start = 0; Start <= Name.size();) {
        const std::size_t End = std::min(Name.find_first_of("/\\", Start), Name.size());
        if (End > Start) {
            Parts.emplace_back(Name.substr(Start, End - Start));
        }
        Start = End + 1;
    }
    return Parts;
}

/// The entry of one folder that bears this name.
std::optional<fs::path> FindEntry(const fs::path& Folder, const std::string& Name) {
    std::error_code Error;
    if (const fs::path Exact = Folder / TextPath(Name); fs::exists(Exact, Error)) {
        return Exact;
    }
    const std::string Wanted = base::ToLower(Name);
    std::optional<fs::path> Found;
    for (fs::directory_iterator Entry(Folder, Error), End; !Error && Entry != End; Entry.increment(Error)) {
        // The order of a folder's entries is the system's; the smallest name makes the choice the same on each of them.
        if (base::ToLower(PathText(Entry->path().filename())) == Wanted && (!Found || Entry->path() < *Found)) {
            Found = Entry->path();
        }
    }
    return Found;
}

} // namespace

std::string ReadError::Text() const {
    return Line > 0 ? "line " + std::to_string(Line) + ": " + Sentence : Sentence;
}

std::string PathText(const fs::path& Path) {
    const std::u8string Text = Path.u8string();
    return {Text.begin(), Text.end()};
}

fs::path TextPath(std::string_view Text) {
    return std::u8string(Text.begin(), Text.end());
}

std::optional<fs::path> FindFile(const fs::path& Folder, std::string_view Name) {
    std::optional<fs::path> Found = Folder;
    for (const std::string& Part : SplitPath(Name)) {
        if (Part == "." || Part == "..") {
            return std::nullopt;
        }
        Found = FindEntry(*Found, Part);
        if (!Found) {
            return std::nullopt;
        }
    }
    return Found;
}

ReadResult<std::string> ReadTextFile(const fs::path& File) {
    std::ifstream Stream(File, std::ios::binary);
    std::ostringstream Bytes;
    Bytes << Stream.rdbuf();
    // A folder opens like a file on some systems and fails only when it is read.
    if (!Stream.is_open() || Bytes.bad()) {
        return {std::nullopt, {0, "the file can't be read"}};
    }
    return {base::DecodeText(Bytes.view()), {}};
}

} // namespace zonterbrook::formats
