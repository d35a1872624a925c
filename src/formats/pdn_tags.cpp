// Lines of tags.
#include "formats/pdn_tags.h"

#include "formats/pdn_characters.h"
#include "formats/pdn_game.h"
#include "formats/pdn_move.h"

#include <algorithm>
#include <cstddef>

namespace zonterbrook::formats {

namespace {

using T = PdnTags;
/// Every tag that is stored. Programs write some of them in more than one way.
constexpr struct {
    std::string_view Name;
    std::string T::*Field;
} KnownTags[] = {
    {"Event", &T::Event},
    {"Date", &T::Date},
    {"Year", &T::Date},
    {"Site", &T::Site},
    {"Round", &T::Round},
    {"Black", &T::Black},
    {"White", &T::White},
    {"BlackElo", &T::BlackElo},
    {"WhiteElo", &T::WhiteElo},
    {"Result", &T::Result},
    {"SetUp", &T::SetUp},
    {"Setup", &T::SetUp},
    {"FEN", &T::Fen},
    {"fen", &T::Fen},
    {"ECO", &T::Eco},
    {"eco", &T::Eco},
    {"Quavermill", &T::RuleTag},
    {"RuleSet", &T::RuleSet},
    {"GameType", &T::GameType},
    {"QVersion", &T::Version},
};

struct ColumnRow {
    std::string_view Title;
    std::string T::*Field;
};
constexpr ColumnRow Columns[PdnColumns] = {
    {"Event", &T::Event},       {"Date", &T::Date},        {"Black", &T::Black}, {"White", &T::White},
    {"Result", &T::Result},     {"Site", &T::Site},        {"Setup", &T::SetUp}, {"Eco", &T::Eco},
    {"BlackElo", &T::BlackElo}, {"WhiteElo", &T::WhiteElo}};

const ColumnRow& RowOf(PdnColumn Column) {
    return Columns[static_cast<std::size_t>(Column)];
}

constexpr bool IsNameCharacter(char C) {
    return IsPdnLetter(C) || IsPdnDigit(C) || C == '_';
}

/// Whether a tag may be over where `Rest` follows its bracket: at the line's end, before another tag, before moves. In
/// front of anything else a quote and a bracket are rather part of the value.
bool MayFollowTag(std::string_view Rest) {
    return Rest.empty() || IsPdnDigit(Rest.front()) || std::string_view("[{(;*").find(Rest.front()) != Rest.npos;
}

/// A backslash hides a quote or another backslash; any other one, as in a path, is itself.
std::string Unescape(std::string_view Text) {
    std::string Value;
    Value.reserve(Text.size());
    for (std::size_t At = 0; At < Text.size(); ++At) {
        if (Text[At] == '\\' && At + 1 < Text.size() && (Text[At + 1] == '"' || Text[At + 1] == '\\')) {
            ++At;
        }
        Value += Text[At];
    }
    return Value;
}

struct ValueEnd {
    std::size_t Quote = std::string_view::npos;
    std::size_t Rest = 0;
};

/// Where the value that begins at `Start` ends.
ValueEnd FindValueEnd(std::string_view Line, std::size_t Start) {
    ValueEnd First;
    for (std::size_t At = Start; At < Line.size(); ++At) {
        if (Line[At] == '\\') {
            ++At;
        } else if (Line[At] == '"') {
            const std::size_t Bracket = SkipPdnBlanks(Line, At + 1);
            if (Bracket < Line.size() && Line[Bracket] == ']') {
                const ValueEnd End{At, SkipPdnBlanks(Line, Bracket + 1)};
                if (MayFollowTag(Line.substr(End.Rest))) {
                    return End;
                }
                if (First.Quote == std::string_view::npos) {
                    First = End;
                }
            }
        }
    }
    return First;
}

/// The value of a tag that nothing closes: the rest of the line, without what may be left of the closing.
std::string_view UnclosedValue(std::string_view Rest) {
    const auto TrimEnd = [&Rest] {
        while (!Rest.empty() && IsPdnBlank(Rest.back())) {
            Rest.remove_suffix(1);
        }
    };
    for (const char Closing : {']', '"'}) {
        TrimEnd();
        if (!Rest.empty() && Rest.back() == Closing) {
            Rest.remove_suffix(1);
        }
    }
    return Rest;
}

/// Past everything that may stand in front of the first tag or move: empty lines, escape lines, comments.
std::size_t SkipPreamble(std::string_view Text) {
    std::size_t At = Text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
    while (At < Text.size()) {
        const char C = Text[At];
        if (IsPdnBlank(C) || IsPdnLineEnd(C)) {
            ++At;
        } else if (const std::size_t Close = C == '{' ? Text.find('}', At) : Text.npos; Close != Text.npos) {
            At = Close + 1;
        } else if (C == '%' || C == ';' || C == '{' || C == '\0') {
            At = std::min(Text.find_first_of("\r\n", At), Text.size());
        } else {
            break;
        }
    }
    return At;
}

/// Whether a line begins as moves do: with a move of two squares, with a result, or with a number, a dot and nothing
/// that could not follow them there. A number and prose is no game.
bool BeginsMoves(std::string_view Line) {
    const std::size_t Digits = SkipPdnDigits(Line, 0);
    const std::size_t Dot = SkipPdnBlanks(Line, Digits);
    if (Digits > 0 && Dot < Line.size() && Line[Dot] == '.') {
        const std::size_t Move = std::min(Line.find_first_not_of(". \t", Dot), Line.size());
        Line.remove_prefix(Move);
        if (Line.empty() || std::string_view("{(;").find(Line.front()) != Line.npos) {
            return true;
        }
    }
    const std::string_view Token = Line.substr(0, Line.find_first_of(" \t{(;"));
    const auto Parts = SplitPdnMove(Token);
    return IsPdnResult(Token) || (Parts && (!Parts->IsEntry() || Digits > 0));
}

} // namespace

std::optional<PdnTag> ReadPdnTag(std::string_view Line, std::size_t At) {
    const std::size_t NameStart = SkipPdnBlanks(Line, At + 1);
    std::size_t NameEnd = NameStart;
    while (NameEnd < Line.size() && IsNameCharacter(Line[NameEnd])) {
        ++NameEnd;
    }
    const std::size_t Quote = SkipPdnBlanks(Line, NameEnd);
    if (At >= Line.size() || Line[At] != '[' || NameEnd == NameStart || Quote >= Line.size() || Line[Quote] != '"') {
        return std::nullopt;
    }
    const std::string_view Name = Line.substr(NameStart, NameEnd - NameStart);
    const std::size_t Start = Quote + 1;
    const ValueEnd End = FindValueEnd(Line, Start);
    if (End.Quote == std::string_view::npos) {
        return PdnTag{Name, Unescape(UnclosedValue(Line.substr(Start))), Line.size()};
    }
    return PdnTag{Name, Unescape(Line.substr(Start, End.Quote - Start)), End.Rest};
}

void StorePdnTag(std::string_view Name, std::string_view Value, PdnTags& Tags) {
    for (const auto& Known : KnownTags) {
        if (Known.Name == Name) {
            Tags.*Known.Field = Value;
        }
    }
}

std::size_t ReadPdnTags(std::string_view Line, PdnTags& Tags) {
    std::size_t At = SkipPdnBlanks(Line, Line.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
    while (At < Line.size() && Line[At] == '[') {
        const std::optional<PdnTag> Tag = ReadPdnTag(Line, At);
        if (!Tag) {
            return Line.size();
        }
        StorePdnTag(Tag->Name, Tag->Value, Tags);
        At = Tag->End;
    }
    return At;
}

std::string WritePdnTag(std::string_view Name, std::string_view Value) {
    std::string Text = std::string("[").append(Name).append(" \"");
    for (std::size_t At = 0; At < Value.size(); ++At) {
        const char C = Value[At];
        // A backslash is left alone where it can hide nothing: paths stay as people know them.
        const bool Hides = At + 1 == Value.size() || Value[At + 1] == '\\' || Value[At + 1] == '"';
        if (C == '"' || (C == '\\' && Hides)) {
            Text += '\\';
        }
        Text += IsPdnLineEnd(C) || C == '\0' ? ' ' : C;
    }
    return Text += "\"]";
}

bool BeginsPdn(std::string_view Text) {
    const std::size_t Start = SkipPreamble(Text);
    const std::string_view Line = Text.substr(Start, Text.find_first_of(std::string_view("\r\n\0", 3), Start) - Start);
    return Line.empty() || (Line.front() == '[' ? ReadPdnTag(Line, 0).has_value() : BeginsMoves(Line));
}

std::string_view PdnColumnTitle(PdnColumn Column) {
    return RowOf(Column).Title;
}

std::string PdnColumnText(const PdnTags& Tags, PdnColumn Column) {
    std::string Text = Tags.*RowOf(Column).Field;
    if (Column == PdnColumn::Event && !Tags.Round.empty()) {
        Text += ' ' + Tags.Round;
    }
    return Text;
}

} // namespace zonterbrook::formats
