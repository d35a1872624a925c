// Where the bytes of the program's files come in: finding a file whatever the case of its name, and reading it as text.
//
// Every reader of a file format goes through these routines and works on text from then on. Nothing of the game is
// known or touched here.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// What is wrong with a file: the line, counted from 1, or 0 for the file as a whole, and a sentence for a person.
struct ReadError {
    int Line = 0;
    std::string Sentence;

    /// "line 12: ..." or the sentence alone.
    std::string Text() const;
};

/// What a reader gives: the whole document, or none and what was wrong. Nothing half-read ever comes out.
template <typename T>
struct ReadResult {
    std::optional<T> Document;
    ReadError Error;
};

/// A path's text as UTF-8, and back, whatever the system's own encoding of file names is.
std::string PathText(const std::filesystem::path& Path);
std::filesystem::path TextPath(std::string_view Text);

/// The file or folder `Name` under `Folder`, with both kinds of slash as separators and letter case ignored. The exact
/// name wins where several differ in case alone. Nothing when it isn't there, or when the name leads out of the folder.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& Folder, std::string_view Name);

/// The bytes of a whole file.
ReadResult<std::string> ReadFileBytes(const std::filesystem::path& File);

/// Writes a file, or adds to the end of one: to a new file beside it first, which is flushed to the disk and then takes
/// the old one's name, so that there is always a whole file. A failure leaves the old file as it was, nothing beside
/// it, and gives a sentence that names the file and tells why.
std::optional<ReadError> WriteFile(const std::filesystem::path& File, std::string_view Bytes);
std::optional<ReadError> AppendToFile(const std::filesystem::path& File, std::string_view Bytes);

/// Removes what a program that was ended in the middle of `WriteFile` has left of new files in a folder. Nobody may be
/// writing there.
void RemoveUnfinished(const std::filesystem::path& Folder);

/// The whole file as UTF-8 text; bytes that are no UTF-8 are taken for Latin-1.
ReadResult<std::string> ReadTextFile(const std::filesystem::path& File);

} // namespace zonterbrook::formats
