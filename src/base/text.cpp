// Lines, numbers and letter case.
#include "base/text.h"

#include <algorithm>
#include <limits>

namespace zonterbrook::base {

namespace {

constexpr bool IsContinuation(unsigned char Byte) {
    return (Byte & 0xC0U) == 0x80U;
}

/// The length of the UTF-8 sequence at `At`, or 0 if there is none. Overlong forms and surrogates are no UTF-8.
std::size_t SequenceLength(std::string_view Bytes, std::size_t At) {
    const auto Byte = [&](std::size_t I) { return static_cast<unsigned char>(Bytes[I]); };
    const unsigned char First = Byte(At);
    const std::size_t Length = First < 0x80U   ? 1
                               : First < 0xC2U ? 0
                               : First < 0xE0U ? 2
                               : First < 0xF0U ? 3
                               : First < 0xF5U ? 4
                                               : 0;
    if (Length == 0 || At + Length > Bytes.size()) {
        return 0;
    }
    for (std::size_t I = 1; I < Length; ++I) {
        if (!IsContinuation(Byte(At + I))) {
            return 0;
        }
    }
    if (Length >= 3) {
        const unsigned char Second = Byte(At + 1);
        if ((First == 0xE0U && Second < 0xA0U) || (First == 0xEDU && Second > 0x9FU) ||
            (First == 0xF0U && Second < 0x90U) || (First == 0xF4U && Second > 0x8FU)) {
            return 0;
        }
    }
    return Length;
}

bool IsUtf8(std::string_view Bytes) {
    for (std::size_t At = 0; At < Bytes.size();) {
        const std::size_t Length = SequenceLength(Bytes, At);
        if (Length == 0) {
            return false;
        }
        At += Length;
    }
    return true;
}

} // namespace

std::int64_t LenientNumber(std::string_view Text) {
    constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();
    const auto IsBlank = [](char C) { return C == ' ' || C == '\t'; };
    std::size_t At = 0;
    while (At < Text.size() && IsBlank(Text[At])) {
        ++At;
    }
    const bool Negative = At < Text.size() && Text[At] == '-';
    if (At < Text.size() && (Text[At] == '-' || Text[At] == '+')) {
        ++At;
    }
    std::int64_t Value = 0;
    int Digits = 0;
    for (; At < Text.size(); ++At) {
        if (Digits > 0 && IsBlank(Text[At])) {
            continue; // digits in groups are one number
        }
        if (Text[At] < '0' || Text[At] > '9') {
            break;
        }
        const int Digit = Text[At] - '0';
        ++Digits;
        Value = Value > (Largest - Digit) / 10 ? Largest : Value * 10 + Digit;
    }
    return Negative ? -Value : Value;
}

std::vector<std::string> SplitLines(std::string_view Text) {
    std::vector<std::string> Lines;
    std::size_t Start = 0;
    while (Start < Text.size()) {
        const std::size_t End = Text.find_first_of("\r\n", Start);
        if (End == std::string_view::npos) {
            Lines.emplace_back(Text.substr(Start));
            break;
        }
        Lines.emplace_back(Text.substr(Start, End - Start));
        Start = End + (Text.substr(End, 2) == "\r\n" ? 2 : 1);
    }
    return Lines;
}

std::string DecodeText(std::string_view Bytes) {
    if (IsUtf8(Bytes)) {
        return std::string(Bytes.starts_with("\xEF\xBB\xBF") ? Bytes.substr(3) : Bytes);
    }
    std::string Text;
    Text.reserve(Bytes.size() * 2);
    for (const char Character : Bytes) {
        const auto Byte = static_cast<unsigned char>(Character);
        if (Byte < 0x80U) {
            Text += Character;
        } else {
            Text += static_cast<char>(0xC0U | (Byte >> 6U));
            Text += static_cast<char>(0x80U | (Byte & 0x3FU));
        }
    }
    return Text;
}

bool IsDigits(std::string_view Text) {
    return !Text.empty() && Text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string ToLower(std::string_view Text) {
    std::string Result(Text);
    std::ranges::transform(Result, Result.begin(),
                           [](char C) { return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C; });
    return Result;
}

std::string ToUpper(std::string_view Text) {
    std::string Result(Text);
    std::ranges::transform(Result, Result.begin(),
                           [](char C) { return C >= 'a' && C <= 'z' ? static_cast<char>(C - 'a' + 'A') : C; });
    return Result;
}

std::string_view Trim(std::string_view Text) {
    const std::size_t First = Text.find_first_not_of(" \t");
    if (First == std::string_view::npos) {
        return {};
    }
    return Text.substr(First, Text.find_last_not_of(" \t") - First + 1);
}

std::string PadLeft(std::string_view Text, std::size_t Width) {
    return std::string(Width > Text.size() ? Width - Text.size() : 0, ' ').append(Text);
}

} // namespace zonterbrook::base
