// Positions in text.
#include "formats/fen.h"

#include "base/checked_array.h"
#include "base/text.h"
#include "formats/pdn_characters.h"
#include "formats/pdn_tags.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "rules/state.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace zonterbrook::formats {

namespace {

constexpr std::string_view BadSide = "the position must begin with W: or B:";
constexpr std::string_view BadGroup = "a list of pieces must begin with W or B";
constexpr std::string_view BadSquare = "there is no such square: ";
constexpr std::string_view TwoColours = "two pieces stand on one square: ";
constexpr std::string_view EmptyBoard = "there are no pieces";

constexpr int AllSquares = 2; ///< `PiecesOnBlack`
constexpr int HighestNumber = 50;

bool IsPlayedOn(int Cell, int PiecesOnBlack) {
    const bool Odd = (rules::RowOf(Cell) + rules::ColumnOf(Cell)) % 2 != 0;
    return Odd == (PiecesOnBlack != 0);
}

std::size_t SetupPlace(int Cell) {
    constexpr int Columns = rules::LastColumn - rules::FirstColumn + 1;
    return static_cast<std::size_t>((rules::RowOf(Cell) - rules::FirstRow) * Columns + rules::ColumnOf(Cell) -
                                    rules::FirstColumn);
}

std::string NumberOf(int Cell) {
    return rules::SquareNotation(rules::Notation::Numeric, Cell, rules::Padding::None);
}

/// Calls `Do(Cell)` for each cell in the order of numbers: from the top, from the left.
template <typename Visitor>
void ForEachCell(Visitor&& Do) {
    for (int Row = rules::LastRow; Row >= rules::FirstRow; --Row) {
        for (int Column = rules::FirstColumn; Column <= rules::LastColumn; ++Column) {
            Do(rules::CellAt(Row, Column));
        }
    }
}

/// Puts pieces on a board as it reads them.
class FenReader {
public:
    FenReader(int InPiecesOnBlack, const PdnGameType* InNamed)
        : PiecesOnBlack(InPiecesOnBlack), Named(InNamed), Setup(rules::SetupLength, '0') {
        ForEachCell([this](int Cell) {
            if (IsPlayedOn(Cell, PiecesOnBlack)) {
                CellOfNumber[base::LenientNumber(NumberOf(Cell))] = Cell;
            }
        });
    }

    /// What is wrong with the list, or an empty sentence.
    std::string ReadGroup(std::string_view Group) {
        // Counters of moves that newer programs write: they say nothing about the position.
        if (Group.empty() || Group.front() == 'H' || Group.front() == 'F' || Group.front() == '+') {
            return {};
        }
        if (Group.front() != 'W' && Group.front() != 'B') {
            return std::string(BadGroup);
        }
        const bool Black = Group.front() == 'B';
        for (std::size_t Start = 1; Start < Group.size();) {
            const std::size_t End = std::min(Group.find(',', Start), Group.size());
            if (std::string Sentence = ReadItem(Group.substr(Start, End - Start), Black); !Sentence.empty()) {
                return Sentence;
            }
            Start = End + 1;
        }
        return {};
    }

    const std::string& Result() const { return Setup; }

private:
    std::string ReadItem(std::string_view Item, bool Black) {
        if (Item.empty()) {
            return {};
        }
        const bool King = Item.front() == 'K';
        const std::string_view Squares = Item.substr(King ? 1 : 0);
        const char Piece = static_cast<char>('1' + (Black ? 1 : 0) + (King ? 2 : 0));
        const std::size_t Hyphen = Squares.find('-');
        if (Hyphen == std::string_view::npos) {
            return Put(Squares, Piece);
        }
        const int First = ReadNumber(Squares.substr(0, Hyphen));
        const int Last = ReadNumber(Squares.substr(Hyphen + 1));
        if (First == 0 || Last < First) {
            return std::string(BadSquare).append(Squares);
        }
        std::string Sentence;
        for (int Number = First; Number <= Last && Sentence.empty(); ++Number) {
            Sentence = Put(std::to_string(Number), Piece);
        }
        return Sentence;
    }

    static int ReadNumber(std::string_view Text) {
        const bool Number = !Text.empty() && Text.size() <= 2 && SkipPdnDigits(Text, 0) == Text.size();
        const int Value = Number ? static_cast<int>(base::LenientNumber(Text)) : 0;
        return Value <= HighestNumber ? Value : 0;
    }

    int CellOf(std::string_view Square) const {
        if (Square.size() == 3 && Square.ends_with("10")) {
            return CellOf(std::string{Square.front(), '0'});
        }
        if (Square.size() > 2) {
            return 0;
        }
        const std::string Own = Named != nullptr ? OwnSquare(*Named, Square) : std::string(Square);
        if (const int Number = ReadNumber(Own); Number > 0) {
            return CellOfNumber[Number];
        }
        const int Cell = rules::AlgebraicCell(Own);
        return Cell != 0 && (PiecesOnBlack == AllSquares || IsPlayedOn(Cell, PiecesOnBlack)) ? Cell : 0;
    }

    std::string Put(std::string_view Square, char Piece) {
        const int Cell = CellOf(Square);
        if (Cell == 0) {
            return std::string(BadSquare).append(Square);
        }
        char& Place = Setup[SetupPlace(Cell)];
        // Odd digits are White's pieces. The same piece named twice is harmless.
        if (Place != '0' && Place % 2 != Piece % 2) {
            return std::string(TwoColours).append(Square);
        }
        Place = Piece;
        return {};
    }

    int PiecesOnBlack;
    const PdnGameType* Named;
    std::string Setup;
    base::CheckedArray<int, HighestNumber + 1> CellOfNumber{};
};

/// In capitals, without blanks and line ends. A whole tag, as people copy it, stands for its value.
std::string CleanText(std::string_view Text) {
    const std::size_t Start = SkipPdnBlanks(Text, 0);
    const std::optional<PdnTag> Tag = Start < Text.size() ? ReadPdnTag(Text, Start) : std::nullopt;
    std::string Clean = base::ToUpper(Tag ? std::string_view(Tag->Value) : Text);
    std::erase_if(Clean, [](char C) { return IsPdnBlank(C) || IsPdnLineEnd(C); });
    return Clean;
}

} // namespace

ReadResult<FenPosition> ReadFen(std::string_view Text, int PiecesOnBlack, const PdnGameType* Named) {
    const auto Refuse = [](std::string_view Sentence) {
        return ReadResult<FenPosition>{std::nullopt, {0, std::string(Sentence)}};
    };
    const std::string Clean = CleanText(Text);
    if (!Clean.starts_with("W:") && !Clean.starts_with("B:")) {
        return Refuse(BadSide);
    }
    FenReader Reader(PiecesOnBlack, Named);
    for (std::size_t Start = 2; Start < Clean.size();) {
        const std::size_t End = std::min(Clean.find_first_of(":.", Start), Clean.size());
        if (const std::string Sentence = Reader.ReadGroup(std::string_view(Clean).substr(Start, End - Start));
            !Sentence.empty()) {
            return Refuse(Sentence);
        }
        Start = End + 1;
        // A dot ends the position, but that some write one behind each list.
        if (End < Clean.size() && Clean[End] == '.' && Start < Clean.size() && Clean[Start] != 'W' &&
            Clean[Start] != 'B') {
            break;
        }
    }
    if (std::ranges::all_of(Reader.Result(), [](char Digit) { return Digit == '0'; })) {
        return Refuse(EmptyBoard);
    }
    return {FenPosition{Clean.front() == 'B', Reader.Result()}, {}};
}

std::string WriteFen(const FenPosition& Position, int PiecesOnBlack) {
    std::string Lists[2];
    ForEachCell([&](int Cell) {
        const int Digit = Position.Setup[SetupPlace(Cell)] - '0';
        if (Digit == 0) {
            return;
        }
        std::string& List = Lists[(Digit - 1) % 2];
        List += List.empty() ? "" : ",";
        List += Digit > 2 ? "K" : "";
        const bool Numbered = PiecesOnBlack != AllSquares && IsPlayedOn(Cell, PiecesOnBlack);
        List += Numbered ? NumberOf(Cell) : rules::AlgebraicName(Cell);
    });
    return std::string(Position.BlackBegins ? "B" : "W") + ":W" + Lists[0] + ":B" + Lists[1];
}

} // namespace zonterbrook::formats
