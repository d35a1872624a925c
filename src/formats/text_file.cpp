// Finding and reading files.
#include "formats/text_file.h"

#include "base/text.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
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

constexpr std::string_view Unfinished = ".unfinished";

/// A file under a name of its own, which goes again unless it has taken the place of another.
class NewFile {
public:
    explicit NewFile(fs::path Beside) : Path(std::move(Beside)) {
        Path += "." + std::to_string(::getpid()) + std::string(Unfinished);
        Handle = ::open(Path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (Handle >= 0) {
            ::close(Handle);
        }
        if (!Placed) {
            ::unlink(Path.c_str());
        }
    }

    bool IsOpen() const { return Handle >= 0; }

    bool Add(std::string_view Bytes) {
        while (!Bytes.empty()) {
            const ssize_t Written = ::write(Handle, Bytes.data(), Bytes.size());
            if (Written < 0 && errno != EINTR) {
                return false;
            }
            Bytes.remove_prefix(Written < 0 ? 0 : static_cast<std::size_t>(Written));
        }
        return true;
    }

    /// The bytes of a file that may not be there yet.
    bool AddFile(const fs::path& Old) {
        const int Source = ::open(Old.c_str(), O_RDONLY | O_CLOEXEC);
        if (Source < 0) {
            return errno == ENOENT;
        }
        std::vector<char> Block(std::size_t{1} << 20U);
        ssize_t Got = 0;
        do {
            Got = ::read(Source, Block.data(), Block.size());
        } while ((Got > 0 && Add({Block.data(), static_cast<std::size_t>(Got)})) || (Got < 0 && errno == EINTR));
        const int Why = errno;
        ::close(Source);
        errno = Why;
        return Got == 0;
    }

    /// Takes the place of `Target`, with its rights.
    bool Place(const fs::path& Target) {
        struct stat Old = {};
        if (::stat(Target.c_str(), &Old) == 0) {
            // What can't be given to another owner stays the person's own.
            [[maybe_unused]] const int Kept = ::fchmod(Handle, Old.st_mode & 07777U);
        }
        if (::fsync(Handle) != 0 || ::rename(Path.c_str(), Target.c_str()) != 0) {
            return false;
        }
        Placed = true;
        return true;
    }

private:
    fs::path Path;
    int Handle = -1;
    bool Placed = false;
};

// The new name itself is safe only when the folder has reached the disk.
void FlushFolder(const fs::path& Folder) {
    const int Handle = ::open(Folder.empty() ? "." : Folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (Handle >= 0) {
        ::fsync(Handle);
        ::close(Handle);
    }
}

std::optional<ReadError> Replace(const fs::path& File, bool KeepsOld, std::string_view Bytes) {
    std::error_code Error;
    // What a link points to is written, not the link.
    const fs::path Linked = fs::is_symlink(File, Error) ? fs::weakly_canonical(File, Error) : File;
    const fs::path Target = Error ? File : Linked;
    NewFile New(Target);
    if (!New.IsOpen() || (KeepsOld && !New.AddFile(Target)) || !New.Add(Bytes) || !New.Place(Target)) {
        return ReadError{0, PathText(File) + " can't be written: " + std::generic_category().message(errno)};
    }
    FlushFolder(Target.parent_path());
    return std::nullopt;
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

ReadResult<std::string> ReadFileBytes(const fs::path& File) {
    std::ifstream Stream(File, std::ios::binary);
    std::ostringstream Bytes;
    if (Stream.peek() != std::ifstream::traits_type::eof()) {
        Bytes << Stream.rdbuf();
    }
    // A folder opens like a file on some systems and fails only when it is read.
    std::error_code Error;
    if (!Stream.is_open() || Stream.bad() || Bytes.bad() || fs::is_directory(File, Error)) {
        return {std::nullopt, {0, "the file can't be read"}};
    }
    return {std::move(Bytes).str(), {}};
}

void RemoveUnfinished(const fs::path& Folder) {
    std::error_code Error;
    std::vector<fs::path> Found;
    for (fs::directory_iterator Entry(Folder, Error), End; !Error && Entry != End; Entry.increment(Error)) {
        if (Entry->path().extension() == Unfinished) {
            Found.push_back(Entry->path());
        }
    }
    for (const fs::path& File : Found) {
        fs::remove(File, Error);
    }
}

ReadResult<std::string> ReadTextFile(const fs::path& File) {
    ReadResult<std::string> Bytes = ReadFileBytes(File);
    if (Bytes.Document) {
        Bytes.Document = base::DecodeText(*Bytes.Document);
    }
    return Bytes;
}

std::optional<ReadError> WriteFile(const fs::path& File, std::string_view Bytes) {
    return Replace(File, false, Bytes);
}

std::optional<ReadError> AppendToFile(const fs::path& File, std::string_view Bytes) {
    return Replace(File, true, Bytes);
}

} // namespace zonterbrook::formats
