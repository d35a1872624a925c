// The rows of the settings file, each with its type and its field.
#include "formats/settings.h"

#include "base/checked_number.h"
#include "base/fault.h"
#include "base/text.h"
#include "rules/square_names.h"

#include <variant>

namespace zonterbrook::formats {

namespace {

constexpr std::string_view FirstLine = "QUAVERMILL0.89";
constexpr std::int32_t ComputerAlone = 2;
constexpr std::uint8_t LeastDepth = 2;
constexpr std::string_view FileLineEnd = "\r\n";

using S = Settings;

/// A whole line, and a text that ends at a comma.
struct Line {
    std::string S::*Field;
};
struct Word {
    std::string S::*Field;
};
struct Rule {
    std::string_view Key;
};
struct Promotion {
    int Colour;
};
struct Movement {
    int Index;
};
using Row =
    std::variant<std::uint8_t S::*, std::int16_t S::*, std::int32_t S::*, Line, Word, Rule, Promotion, Movement>;

const Row Rows[] = {&S::PlayMode,
                    &S::Strength,
                    &S::SearchDepth,
                    &S::NotationMode,
                    &S::BoardTurned,
                    Rule{"MaxCapMove"},
                    Rule{"MulJumps"},
                    &S::ShowAvailableMoves,
                    Rule{"BlackStarts"},
                    Line{&S::VariantName},
                    Rule{"PiecesOnBlack"},
                    Rule{"AntiMode"},
                    Rule{"WinAtPromo"},
                    &S::TimeLimit,
                    &S::FixedDepth,
                    &S::ChessDrawRules,
                    Rule{"MaxCapMoveKings"},
                    Rule{"ManCapKing"},
                    Rule{"KingCapMove"},
                    Word{&S::PlayerName},
                    &S::CapitalNotation,
                    &S::ConfirmExit,
                    &S::AskForDraw,
                    &S::ExtendedSearch,
                    Rule{"ManContJump"},
                    Rule{"LongKings"},
                    Rule{"ManContJumpCrowned"},
                    Rule{"RemovePieces"},
                    Promotion{0},
                    Promotion{1},
                    Movement{0},
                    Movement{1},
                    Movement{2},
                    Movement{3},
                    &S::UseBook,
                    &S::MoveLimitChoice,
                    &S::ShowCalculation,
                    &S::BookFallback,
                    &S::BruteForce,
                    Rule{"KingFirst"},
                    Rule{"ManCapMoveKing"},
                    &S::ColonCapture,
                    Rule{"KingWin"},
                    Rule{"MaxCapMoveK"},
                    &S::Plys,
                    &S::Balance,
                    Rule{"CapRequired"},
                    &S::ChooseOpening,
                    &S::RandomOpening,
                    &S::UseRating,
                    &S::SizeClass,
                    Rule{"NoLegalDraw"},
                    Rule{"RemoveMen"},
                    Rule{"NumberMen"},
                    Rule{"DoMoves"},
                    Rule{"NumberMoves"},
                    Rule{"LastCap"},
                    Rule{"ManKing"},
                    Rule{"KingMan"},
                    &S::AutoSave,
                    &S::UseSound,
                    Rule{"ChangeSide"},
                    Line{&S::SkinName},
                    &S::KingVersusKing,
                    Rule{"ThreeKings"},
                    Rule{"NumberKings"},
                    &S::SaveAlgebraic,
                    Rule{"CapReverse"},
                    Rule{"RndColor"},
                    &S::PlyValueDepth,
                    &S::UseClassic,
                    &S::TouchMove,
                    Rule{"JumpFriend"},
                    Rule{"NumberFriends"},
                    Rule{"TwoKings"},
                    Rule{"NumberKings2"},
                    Rule{"NumberPieces"},
                    Rule{"canContract"},
                    Rule{"ContractNumber"},
                    Rule{"ContractW1"},
                    Rule{"ContractW2"},
                    Rule{"ContractB1"},
                    Rule{"ContractB2"}};
static_assert(std::size(Rows) == SettingsRows);

// --- Reading -------------------------------------------------------------------------------------------------------

/// A text up to a comma, without blanks in front.
std::string_view UpToComma(std::string_view Text) {
    Text = Text.substr(0, Text.find(','));
    return Text.substr(std::min(Text.find_first_not_of(' '), Text.size()));
}

/// Takes the value of one line into its field.
struct RowReader {
    Settings& Values;
    std::string_view Text;

    template <typename Number>
    void operator()(Number S::*Field) const {
        Values.*Field = base::Narrow<Number>(base::LenientNumber(Text));
    }
    void operator()(const Line& Of) const { Values.*Of.Field = Text; }
    void operator()(const Word& Of) const { Values.*Of.Field = UpToComma(Text); }
    void operator()(const Rule& Of) const {
        rules::FindRuleKey(Of.Key)->Write(Values.Rules, base::LenientNumber(Text));
    }
    void operator()(const Promotion& Of) const {
        rules::WriteTextRule(Values.Rules, rules::PromotionKeys[Of.Colour], UpToComma(Text));
    }
    void operator()(const Movement& Of) const {
        rules::WriteTextRule(Values.Rules, rules::MovementKeys[Of.Index], UpToComma(Text));
    }
};

// --- Writing -------------------------------------------------------------------------------------------------------

/// A number with its column for the sign, and a blank behind it.
std::string SignedNumber(std::int64_t Value) {
    return (Value < 0 ? "" : " ") + std::to_string(Value) + ' ';
}

struct RowWriter {
    const Settings& Values;

    template <typename Number>
    std::string operator()(Number S::*Field) const {
        return SignedNumber(Values.*Field);
    }
    std::string operator()(const Line& Of) const { return Values.*Of.Field; }
    std::string operator()(const Word& Of) const { return Values.*Of.Field; }
    std::string operator()(const Rule& Of) const {
        return SignedNumber(rules::FindRuleKey(Of.Key)->Read(Values.Rules));
    }
    std::string operator()(const Promotion& Of) const {
        return rules::PromotionNames(Values.Rules.PromotionSquares, Of.Colour);
    }
    std::string operator()(const Movement& Of) const {
        return std::string(Values.Rules.MovementStrings[Of.Index].View());
    }
};

} // namespace

std::optional<Settings> ReadSettings(std::string_view Text) {
    const std::vector<std::string> Lines = base::SplitLines(Text);
    if (Lines.size() < SettingsRows + 1 || Lines.front() != FirstLine) {
        return std::nullopt;
    }
    Settings Values;
    for (std::size_t Index = 0; Index < SettingsRows; ++Index) {
        std::visit(RowReader{Values, Lines[Index + 1]}, Rows[Index]);
    }
    // A run never begins with the computer playing itself, and never at no depth.
    Values.PlayMode = Values.PlayMode == ComputerAlone ? 0 : Values.PlayMode;
    Values.SearchDepth = Values.SearchDepth == 0 ? LeastDepth : Values.SearchDepth;
    return Values;
}

std::string WriteSettingValues(const Settings& Values, std::string_view LineEnd) {
    std::string Text;
    for (const Row& Of : Rows) {
        Text.append(std::visit(RowWriter{Values}, Of)).append(LineEnd);
    }
    return Text;
}

std::string WriteSettings(const Settings& Values) {
    return std::string(FirstLine) + std::string(FileLineEnd) + WriteSettingValues(Values, FileLineEnd);
}

std::string EncodeRatingText(std::string_view Table, std::string_view Text) {
    std::string Encoded;
    for (const char C : Text) {
        const auto Place = static_cast<std::size_t>(static_cast<unsigned char>(C) - '0');
        Encoded += Place < Table.size() ? Table[Place] : C;
    }
    return Encoded;
}

std::string DecodeRatingText(std::string_view Table, std::string_view Text) {
    std::string Decoded;
    for (const char C : Text) {
        const std::size_t Place = Table.find(C);
        Decoded += Place == std::string_view::npos ? '/' : static_cast<char>('0' + Place);
    }
    return Decoded;
}

} // namespace zonterbrook::formats
