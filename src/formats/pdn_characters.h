// The kinds of characters that the PDN readers tell apart. They work on bytes: every byte of a longer UTF-8 sequence is
// neither blank, digit nor letter.
#pragma once

#include <cstddef>
#include <string_view>

namespace zonterbrook::formats {

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

constexpr bool IsPdnLineEnd(char C) {
    return C == '\n' || C == '\r';
}
/// Control characters count as blanks, but for line ends and 0.
constexpr bool IsPdnBlank(char C) {
    return C > '\0' && C <= ' ' && !IsPdnLineEnd(C);
}
constexpr bool IsPdnDigit(char C) {
    return C >= '0' && C <= '9';
}
constexpr bool IsPdnLetter(char C) {
    return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z');
}

/// The first place from `At` on where no blank stands.
constexpr std::size_t SkipPdnBlanks(std::string_view Text, std::size_t At) {
    while (At < Text.size() && IsPdnBlank(Text[At])) {
        ++At;
    }
    return At;
}

/// The first place from `At` on where no digit stands.
constexpr std::size_t SkipPdnDigits(std::string_view Text, std::size_t At) {
    while (At < Text.size() && IsPdnDigit(Text[At])) {
        ++At;
    }
    return At;
}

} // namespace zonterbrook::formats
