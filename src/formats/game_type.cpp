// Game types.
#include "formats/game_type.h"

#include "base/text.h"
#include "formats/pdn_characters.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zonterbrook::formats {

namespace {

constexpr int RowsAndColumns = 10;
constexpr int NumbersInRow = 5;
constexpr int HighestNumber = RowsAndColumns * NumbersInRow;
constexpr std::int64_t HighestField = 999;

/// The games that have a number, as their own boards have them, and the variants here that play them on ten by ten
/// squares.
constexpr struct {
    PdnGameType Type;
    std::string_view Variant;
} GameTypes[] = {
    {{20, false, 10, 10, false, PdnCorner::TopLeft, false}, "International Checkers"},
    {{21, true, 8, 8, false, PdnCorner::BottomRight, false}, "American Checkers 10x10"},
    {{22, false, 8, 8, false, PdnCorner::TopLeft, true}, "Italian Checkers 10x10"},
    {{23, true, 8, 8, false, PdnCorner::BottomRight, false}, "Pool Checkers 10x10"},
    {{24, false, 8, 8, false, PdnCorner::BottomRight, true}, "Spanish Checkers 10x10"},
    {{25, false, 8, 8, true, PdnCorner::BottomLeft, false}, "Russian Checkers 10x10"},
    {{26, false, 8, 8, true, PdnCorner::BottomLeft, false}, "Brazilian Checkers 10x10"},
    {{27, false, 12, 12, false, PdnCorner::TopLeft, false}, "Canadian Checkers 10x10"},
    {{28, false, 8, 8, false, PdnCorner::BottomRight, true}, "Portuguese Checkers 10x10"},
    {{29, false, 8, 8, true, PdnCorner::BottomLeft, false}, "Czech Checkers 10x10"},
    {{30, false, 8, 8, true, PdnCorner::BottomLeft, false}, "Turkish Draughts 10x10"},
    {{31, true, 8, 8, false, PdnCorner::TopLeft, false}, "Thai Checkers 10x10"},
    {{40, false, 10, 10, false, PdnCorner::TopLeft, false}, "Frisian Draughts"},
    {{41, false, 10, 8, true, PdnCorner::BottomLeft, false}, "Spantsireti 10x10"},
};

/// A number at the start of a field, blanks apart; nothing if there is none or it is out of all proportion.
std::optional<int> FieldNumber(std::string_view Field) {
    Field = base::Trim(Field);
    const std::int64_t Value = base::LenientNumber(Field);
    if (Field.empty() || !IsPdnDigit(Field.front()) || Value > HighestField) {
        return std::nullopt;
    }
    return static_cast<int>(Value);
}

/// The same corner, seen from the other side of the board.
PdnCorner Opposite(PdnCorner Corner) {
    return static_cast<PdnCorner>(static_cast<int>(PdnCorner::TopRight) - static_cast<int>(Corner));
}

bool IsAtTop(PdnCorner Corner) {
    return Corner == PdnCorner::TopLeft || Corner == PdnCorner::TopRight;
}
bool IsAtRight(PdnCorner Corner) {
    return Corner == PdnCorner::BottomRight || Corner == PdnCorner::TopRight;
}

/// Letter and corner: "N2".
void ReadNotation(std::string_view Field, PdnGameType& Type) {
    Field = base::Trim(Field);
    if (Field.empty() || !IsPdnLetter(Field.front())) {
        return;
    }
    // "S" is for letters without the source square, which no program of draughts writes.
    Type.Letters = Field.front() != 'N' && Field.front() != 'n';
    if (Field.size() > 1 && Field[1] >= '0' && Field[1] <= '3') {
        Type.Corner = static_cast<PdnCorner>(Field[1] - '0');
    }
}

} // namespace

std::optional<PdnGameType> ReadGameType(std::string_view Text) {
    std::array<std::string_view, 6> Fields;
    for (std::string_view& Field : Fields) {
        const std::size_t Comma = std::min(Text.find(','), Text.size());
        Field = Text.substr(0, Comma);
        Text.remove_prefix(std::min(Comma + 1, Text.size()));
    }
    const std::optional<int> Number = FieldNumber(Fields[0]);
    if (!Number) {
        return std::nullopt;
    }
    PdnGameType Type;
    const auto* Known = std::ranges::find_if(GameTypes, [&](const auto& Row) { return Row.Type.Number == *Number; });
    if (Known != std::end(GameTypes)) {
        Type = Known->Type;
    }
    Type.Number = *Number;
    const std::string Side = base::ToUpper(base::Trim(Fields[1]));
    if (Side == "W" || Side == "B") {
        Type.BlackBegins = Side == "B";
    }
    Type.Width = FieldNumber(Fields[2]).value_or(Type.Width);
    Type.Height = FieldNumber(Fields[3]).value_or(Type.Height);
    ReadNotation(Fields[4], Type);
    Type.Inverted = FieldNumber(Fields[5]).value_or(Type.Inverted ? 1 : 0) != 0;
    return Type;
}

std::string WriteGameType(const PdnGameType& Type) {
    const std::string Comma = ",";
    return std::to_string(Type.Number) + Comma + (Type.BlackBegins ? "B" : "W") + Comma + std::to_string(Type.Width) +
           Comma + std::to_string(Type.Height) + Comma + (Type.Letters ? "A" : "N") +
           std::to_string(static_cast<int>(Type.Corner)) + Comma + (Type.Inverted ? "1" : "0");
}

std::string_view GameTypeVariant(const PdnGameType& Type) {
    const auto* Known =
        std::ranges::find_if(GameTypes, [&](const auto& Row) { return Row.Type.Number == Type.Number; });
    return Known != std::end(GameTypes) && Type.IsTenByTen() ? Known->Variant : std::string_view();
}

std::optional<PdnGameType> GameTypeOf(std::string_view Variant, const rules::RuleSetFields& Rules,
                                      const rules::RuleSetFields& OfVariant, bool Letters) {
    const auto* Known = std::ranges::find_if(GameTypes, [&](const auto& Row) { return Row.Variant == Variant; });
    if (Known == std::end(GameTypes) || Rules != OfVariant) {
        return std::nullopt;
    }
    // The corner is the one that our own names count from, whatever the game is used to.
    const PdnCorner Corner = Letters ? PdnCorner::BottomLeft : PdnCorner::TopLeft;
    const bool BlackBegins = Rules.BlackStarts == 1;
    return PdnGameType{Known->Type.Number,      BlackBegins, RowsAndColumns,
                       RowsAndColumns,          Letters,     BlackBegins ? Opposite(Corner) : Corner,
                       Rules.PiecesOnBlack == 0};
}

std::string OwnSquare(const PdnGameType& Type, std::string_view Square) {
    const PdnCorner Corner = Type.BlackBegins ? Opposite(Type.Corner) : Type.Corner;
    if (!Square.empty() && IsPdnLetter(Square.front())) {
        const char Column = base::ToUpper(Square.substr(0, 1)).front();
        if (Square.size() != 2 || Column > 'J' || !IsPdnDigit(Square[1])) {
            return {};
        }
        // Names in a game of numbers, and numbers in one of names, are ours.
        const bool Mirrored = Type.Letters && IsAtRight(Corner);
        const bool Turned = Type.Letters && IsAtTop(Corner);
        const int Rank = (Square[1] - '0' + RowsAndColumns - 1) % RowsAndColumns + 1;
        const int OwnRank = Turned ? RowsAndColumns + 1 - Rank : Rank;
        return {Mirrored ? static_cast<char>('A' + 'J' - Column) : Column,
                static_cast<char>('0' + OwnRank % RowsAndColumns)};
    }
    const std::optional<int> Number = FieldNumber(Square);
    if (!Number || *Number < 1 || *Number > HighestNumber) {
        return {};
    }
    const int Row = (*Number - 1) / NumbersInRow;
    const int Place = (*Number - 1) % NumbersInRow;
    const bool Mirrored = !Type.Letters && IsAtRight(Corner);
    const bool Turned = !Type.Letters && !IsAtTop(Corner);
    const int OwnRow = Turned ? RowsAndColumns - 1 - Row : Row;
    const int OwnPlace = Mirrored ? NumbersInRow - 1 - Place : Place;
    return std::to_string(OwnRow * NumbersInRow + OwnPlace + 1);
}

} // namespace zonterbrook::formats
