// The list of games.
#include "formats/pdn_index.h"

#include "base/fault.h"
#include "base/text.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <system_error>
#include <utility>

namespace zonterbrook::formats {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Unreadable = "the file can't be read";
constexpr std::string_view Changed = "the file has changed since its games were listed";
constexpr std::string_view TooLong = "the game is too long to be read";
constexpr std::size_t BlockSize = 256 << 10;
constexpr std::size_t ChunkSize = 1 << 20;
/// Enough of a file to tell what it is, whatever it says before its first game.
constexpr std::size_t SniffedBytes = 64 << 10;

struct Stamp {
    std::uint64_t Size = 0;
    fs::file_time_type Written;

    bool operator==(const Stamp&) const = default;
};

std::optional<Stamp> StampOf(const fs::path& File) {
    std::error_code Errors[3];
    const bool Regular = fs::is_regular_file(File, Errors[0]);
    const Stamp Found{fs::file_size(File, Errors[1]), fs::last_write_time(File, Errors[2])};
    const bool Failed = std::ranges::any_of(Errors, [](const std::error_code& Error) { return bool(Error); });
    return Regular && !Failed ? std::optional(Found) : std::nullopt;
}

/// Exactly `Count` bytes from `Offset` on, or nothing.
std::optional<std::string> ReadBytes(std::ifstream& Stream, std::uint64_t Offset, std::size_t Count) {
    std::string Bytes(Count, '\0');
    Stream.seekg(static_cast<std::streamoff>(Offset));
    Stream.read(Bytes.data(), static_cast<std::streamsize>(Count));
    return Stream.good() ? std::optional(std::move(Bytes)) : std::nullopt;
}

/// At most `Longest` bytes of `Text`, no character broken.
std::string_view Shorten(std::string_view Text, std::size_t Longest) {
    if (Text.size() <= Longest) {
        return Text;
    }
    const auto IsInside = [](char C) { return (static_cast<unsigned char>(C) & 0xC0U) == 0x80U; };
    while (Longest > 0 && IsInside(Text[Longest])) {
        --Longest;
    }
    return Text.substr(0, Longest);
}

/// The texts of all columns, each with its end behind it. Whether they are UTF-8 is decided over all of them.
std::string ColumnTexts(const PdnTags& Tags) {
    std::string Raw;
    for (int Column = 0; Column < PdnColumns; ++Column) {
        std::string Text = PdnColumnText(Tags, static_cast<PdnColumn>(Column));
        std::ranges::replace_if(
            Text, [](char C) { return C >= '\0' && C < ' '; }, ' ');
        Raw += Text;
        Raw += PdnIndex::ColumnEnd;
    }
    const std::string Decoded = base::DecodeText(Raw);
    std::string Texts;
    for (std::size_t Start = 0; Start < Decoded.size();) {
        const std::size_t End = Decoded.find(PdnIndex::ColumnEnd, Start);
        Texts += Shorten(std::string_view(Decoded).substr(Start, End - Start), PdnIndex::LongestColumn);
        Texts += PdnIndex::ColumnEnd;
        Start = End + 1;
    }
    return Texts;
}

} // namespace

ReadResult<bool> IsPdnFile(const fs::path& File) {
    const std::optional<Stamp> Found = StampOf(File);
    std::ifstream Stream(File, std::ios::binary);
    if (!Found || !Stream.is_open()) {
        return {std::nullopt, {0, std::string(Unreadable)}};
    }
    const auto Bytes = ReadBytes(Stream, 0, std::min<std::uint64_t>(Found->Size, SniffedBytes));
    if (!Bytes) {
        return {std::nullopt, {0, std::string(Unreadable)}};
    }
    return {BeginsPdn(*Bytes), {}};
}

bool PdnIndex::Scan(std::size_t Bytes) {
    if (Done || !Failure.Sentence.empty()) {
        return false;
    }
    // 1. Is it still the same file?
    const std::optional<Stamp> Found = StampOf(File);
    if (Found && !Begun) {
        FileSize = Found->Size;
        Written = Found->Written;
        Begun = true;
    }
    std::ifstream Stream(File, std::ios::binary);
    if (!Found || !Stream.is_open()) {
        return Fail(Unreadable);
    }
    if (*Found != Stamp{FileSize, Written}) {
        return Fail(Changed);
    }
    // 2. Block by block.
    std::string Block(BlockSize, '\0');
    while (Bytes > 0) {
        const std::uint64_t At = Finder.Position();
        if (At == FileSize) {
            if (Finder.Finish()) {
                Done = true;
                break;
            }
            continue;
        }
        const auto Count = static_cast<std::size_t>(std::min<std::uint64_t>({FileSize - At, BlockSize, Bytes}));
        Stream.seekg(static_cast<std::streamoff>(At));
        Stream.read(Block.data(), static_cast<std::streamsize>(Count));
        if (!Stream.good()) {
            return Fail(Changed);
        }
        Finder.Feed(std::string_view(Block).substr(0, Count));
        Furthest = std::max(Furthest, At + Count);
        Bytes -= Count;
    }
    // 3. What has been found.
    for (const PdnPlace& Place : Finder.Take()) {
        Append(Place);
    }
    return !Done;
}

bool PdnIndex::Fail(std::string_view Sentence) {
    Failure = {0, std::string(Sentence)};
    return false;
}

void PdnIndex::Append(const PdnPlace& Place) {
    const std::string Texts = ColumnTexts(Place.Tags);
    if (Chunks.empty() || Chunks.back().size() + Texts.size() > ChunkSize) {
        Chunks.emplace_back().reserve(ChunkSize);
    }
    constexpr std::uint64_t Most = std::numeric_limits<std::uint32_t>::max();
    Rows.push_back({Place.Offset, static_cast<std::uint32_t>(std::min(Place.End - Place.Offset, Most)),
                    static_cast<std::uint32_t>(Texts.size()), static_cast<std::uint32_t>(Chunks.size() - 1),
                    static_cast<std::uint32_t>(Chunks.back().size())});
    Chunks.back() += Texts;
}

const PdnIndex::Row& PdnIndex::RowOf(std::size_t Game) const {
    if (Game >= Rows.size()) {
        base::FailIndex(static_cast<std::int64_t>(Game), Rows.size());
    }
    return Rows[Game];
}

std::string_view PdnIndex::Texts(std::size_t Game) const {
    const Row& Listed = RowOf(Game);
    return std::string_view(Chunks[Listed.TextChunk]).substr(Listed.TextStart, Listed.TextLength);
}

std::string_view PdnIndex::Column(std::size_t Game, PdnColumn Column) const {
    std::string_view Rest = Texts(Game);
    for (int Before = static_cast<int>(Column); Before > 0; --Before) {
        Rest.remove_prefix(Rest.find(ColumnEnd) + 1);
    }
    return Rest.substr(0, Rest.find(ColumnEnd));
}

ReadResult<PdnGame> PdnIndex::Read(std::size_t Game) const {
    const Row& Listed = RowOf(Game);
    const auto Refuse = [](std::string_view Sentence) {
        return ReadResult<PdnGame>{std::nullopt, {0, std::string(Sentence)}};
    };
    if (Listed.Length > LongestGame) {
        return Refuse(TooLong);
    }
    const std::optional<Stamp> Found = StampOf(File);
    std::ifstream Stream(File, std::ios::binary);
    if (!Found || !Stream.is_open()) {
        return Refuse(Unreadable);
    }
    const auto Bytes = ReadBytes(Stream, Listed.Offset, Listed.Length);
    // It may have changed while it was being read, too.
    if (!Bytes || *Found != Stamp{FileSize, Written} || StampOf(File) != Found) {
        return Refuse(Changed);
    }
    return ReadPdnGame(*Bytes);
}

} // namespace zonterbrook::formats
