// Half-moves as text.
#include "formats/pdn_move.h"

#include "base/text.h"
#include "formats/pdn_characters.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::formats {

namespace {

constexpr char LastColumnLetter = 'J';
constexpr std::size_t RawSquare = 2;

/// Typesetters' hyphens, dashes, minus and times signs stand for the plain characters.
constexpr std::pair<std::string_view, char> WideSigns[] = {
    {"\xE2\x80\x90", '-'}, {"\xE2\x80\x91", '-'}, {"\xE2\x80\x92", '-'}, {"\xE2\x80\x93", '-'},
    {"\xE2\x80\x94", '-'}, {"\xE2\x88\x92", '-'}, {"\xC3\x97", 'x'}};

/// A separator at the start of `Text` and the number of its bytes; 0 for none.
std::pair<char, std::size_t> SeparatorOf(std::string_view Text) {
    if (Text.empty()) {
        return {0, 0};
    }
    switch (Text.front()) {
    case '-':
    case 'x':
    case ':':
        return {Text.front(), 1};
    case 'X':
        return {'x', 1};
    default:
        break;
    }
    for (const auto& [Sign, Plain] : WideSigns) {
        if (Text.starts_with(Sign)) {
            return {Plain, Sign.size()};
        }
    }
    return {0, 0};
}

char Capital(char Letter) {
    return Letter >= 'a' && Letter <= 'z' ? static_cast<char>(Letter - 'a' + 'A') : Letter;
}

/// A letter and a digit at the start of `Text`, and the number of their bytes; 0 if there is no such square.
std::size_t ReadNamedSquare(std::string_view Text, std::string& Square) {
    if (Text.size() < RawSquare || !IsPdnDigit(Text[1]) || !IsPdnLetter(Text[0]) ||
        Capital(Text[0]) > LastColumnLetter) {
        return 0;
    }
    const bool TenthRank = Text.substr(1).starts_with("10");
    Square = {Capital(Text[0]), TenthRank ? '0' : Text[1]};
    return TenthRank ? 3 : 2;
}

/// A number of one or two digits, as a square's name without leading zeros; empty for 0 and for longer numbers.
std::string NumberedSquare(std::string_view Digits) {
    if (Digits.size() == RawSquare && Digits.front() == '0') {
        Digits.remove_prefix(1);
    }
    return Digits.empty() || Digits.size() > RawSquare || Digits == "0" ? std::string() : std::string(Digits);
}

/// Takes the next square off `Text`; empty if there is none. Numbers without separators have two digits each.
std::string TakeSquare(std::string_view& Text, bool Letters) {
    std::string Square;
    std::size_t Length = 0;
    if (Letters) {
        Length = ReadNamedSquare(Text, Square);
    } else {
        Length = SkipPdnDigits(Text, 0);
        if (Length > RawSquare && Length % RawSquare == 0) {
            Length = RawSquare;
        }
        Square = NumberedSquare(Text.substr(0, Length));
    }
    Text.remove_prefix(Length);
    return Square;
}

} // namespace

std::optional<PdnMoveParts> SplitPdnMove(std::string_view Text) {
    PdnMoveParts Parts;
    Parts.Letters = !Text.empty() && IsPdnLetter(Text.front());
    while (true) {
        std::string Square = TakeSquare(Text, Parts.Letters);
        if (Square.empty()) {
            return std::nullopt;
        }
        Parts.Squares.push_back(std::move(Square));
        const auto [Sign, Length] = SeparatorOf(Text);
        if (Length > 0) {
            Text.remove_prefix(Length);
            if (!Parts.SaysCapture()) {
                Parts.Separator = Sign;
            }
            continue;
        }
        std::string Unused;
        const bool Another =
            !Text.empty() && (Parts.Letters ? ReadNamedSquare(Text, Unused) > 0 : IsPdnDigit(Text.front()));
        if (!Another) {
            break;
        }
    }
    // What follows the last square is a remark or the sign of a promotion. A word that begins like a square is neither.
    const bool Remark = !Text.empty() && (IsPdnLetter(Text.front()) || IsPdnDigit(Text.front()));
    const bool Crowned = Text.size() == 1 && Capital(Text.front()) == 'K';
    if (Parts.IsEntry() && Remark && !Crowned) {
        return std::nullopt;
    }
    return std::ranges::none_of(Text,
                                [](char C) {
                                    return SeparatorOf({&C, 1}).second > 0;
                                })
               ? std::optional(std::move(Parts))
               : std::nullopt;
}

std::string JoinPdnMove(const std::vector<std::string>& Squares, char Separator) {
    std::string Text;
    for (const std::string& Square : Squares) {
        if (!Text.empty()) {
            Text += Separator;
        }
        Text += base::ToLower(Square);
    }
    return Text;
}

std::string RawPdnMove(const PdnMoveParts& Parts) {
    const std::string Source = base::PadLeft(Parts.Source(), RawSquare);
    return Parts.IsEntry() ? Source : Source + base::PadLeft(Parts.Dest(), RawSquare);
}

} // namespace zonterbrook::formats
