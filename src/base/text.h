// Reading of lines and numbers, shared by every file reader, the settings, the dialogs and the console.
//
// All files of the program are plain text with one value a line. Their numbers go through one lenient reader.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::base {

/// The number that `Text` begins with: blanks, a sign, digits, which may have blanks between them. Anything else, an
/// empty text included, is 0; what follows the digits is ignored. A number too large for 64 bits stays at the limit.
std::int64_t LenientNumber(std::string_view Text);

/// The lines of `Text`, without their ends: CR LF, LF or CR. A last line without an end counts; the empty rest behind
/// a last end does not.
std::vector<std::string> SplitLines(std::string_view Text);

/// `Bytes` as UTF-8: unchanged if they are valid, else read as Latin-1. A byte-order mark is dropped.
std::string DecodeText(std::string_view Bytes);

/// Whether a text has digits alone, and at least one.
bool IsDigits(std::string_view Text);

/// ASCII letters turned to lower or upper case; every other byte stays.
std::string ToLower(std::string_view Text);
std::string ToUpper(std::string_view Text);

/// `Text` without blanks and tabs at its ends.
std::string_view Trim(std::string_view Text);

/// Right-aligns `Text` in `Width` columns with blanks; a longer text stays as it is.
std::string PadLeft(std::string_view Text, std::size_t Width);

} // namespace zonterbrook::base
