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

/// The whole file as UTF-8 text; bytes that are no UTF-8 are taken for Latin-1.
ReadResult<std::string> ReadTextFile(const std::filesystem::path& File);

} // namespace zonterbrook::formats
