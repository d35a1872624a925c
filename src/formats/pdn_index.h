// The list of the games in a PDN file, made while a person already looks at it.
//
// The file may be of any size: it goes through a block at a time, and what is kept of a game is its place and the texts
// of the columns in which it is chosen. A game is read from its place later, without another pass.
#pragma once

#include "formats/pdn_finder.h"
#include "formats/pdn_game.h"
#include "formats/text_file.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// Whether a file begins as a PDN file does; see `BeginsPdn`. A file that can't be read is an error.
ReadResult<bool> IsPdnFile(const std::filesystem::path& File);

/// The games of one file, in its order, numbered from 0.
///
/// The file is opened and closed within each call. It must stay as it was when the first was made: as soon as its size
/// or its time of writing differ, scanning and reading end with an error.
class PdnIndex {
public:
    explicit PdnIndex(std::filesystem::path InFile) : File(std::move(InFile)) {}

    /// Looks through about `Bytes` more of the file, 1 at least. False if nothing is left to do: all is listed, or
    /// there is an error. 4 MB take some 20 milliseconds.
    bool Scan(std::size_t Bytes);

    bool IsDone() const { return Done; }
    /// What went wrong; an empty sentence while nothing has. The games found before stay listed.
    const ReadError& Error() const { return Failure; }
    /// How far it is, in bytes; never goes back. `Size` is 0 before the first scan.
    std::uint64_t Scanned() const { return Furthest; }
    std::uint64_t Size() const { return FileSize; }

    std::size_t Count() const { return Rows.size(); }
    /// The text of a column, as UTF-8, at most `LongestColumn` bytes of it. Faults if there is no such game.
    std::string_view Column(std::size_t Game, PdnColumn Column) const;
    /// All its columns in their order, each followed by `ColumnEnd`: what a filter looks through.
    std::string_view Texts(std::size_t Game) const;

    static constexpr char ColumnEnd = '\x1F';
    static constexpr std::size_t LongestColumn = 250;
    /// A longer game is refused when it is read.
    static constexpr std::uint64_t LongestGame = 32 << 20;

    /// Reads a game of the list from the file. Faults if there is no such game.
    ReadResult<PdnGame> Read(std::size_t Game) const;

private:
    struct Row {
        std::uint64_t Offset;
        std::uint32_t Length; ///< the highest value stands for it and all above
        std::uint32_t TextLength;
        std::uint32_t TextChunk;
        std::uint32_t TextStart;
    };

    bool Fail(std::string_view Sentence);
    void Append(const PdnPlace& Place);
    const Row& RowOf(std::size_t Game) const;

    std::filesystem::path File;
    std::uint64_t FileSize = 0;
    std::filesystem::file_time_type Written;
    bool Begun = false;
    bool Done = false;
    ReadError Failure;
    std::uint64_t Furthest = 0;
    PdnFinder Finder;
    // Neither moves its contents when it grows: a list of a million games takes no moment twice its size.
    std::deque<Row> Rows;
    std::deque<std::string> Chunks;
};

} // namespace zonterbrook::formats
