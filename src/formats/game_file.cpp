// The game file: keys and values, "START", then the moves with comments among them.
#include "formats/game_file.h"

#include "base/fault.h"
#include "base/text.h"
#include "rules/position.h"
#include "rules/square_names.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zonterbrook::formats {

namespace {

using base::LenientNumber;

constexpr std::string_view Magic = "QUAVERMILL Version=";
constexpr std::string_view Version = "0.89";
constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view MovesBegin = "START";
constexpr std::string_view MovementBegins = "Offset=";
/// A line end inside a comment: two bytes that no UTF-8 text has.
constexpr std::string_view CommentLineEnd = "\xFF\xFF";

/// What is told of the game beside its moves; other programs pass these lines over.
struct DetailKey {
    std::string_view Name;
    std::string game::Details::*Field;
};
constexpr DetailKey DetailKeys[] = {{"Event", &game::Details::Event},
                                    {"Site", &game::Details::Site},
                                    {"Date", &game::Details::Date},
                                    {"BlackName", &game::Details::Black},
                                    {"WhiteName", &game::Details::White}};

// --- Reading -------------------------------------------------------------------------------------------------------

void ReplaceAll(std::string& Text, std::string_view From, std::string_view To) {
    for (std::size_t At = Text.find(From); At != std::string::npos; At = Text.find(From, At + To.size())) {
        Text.replace(At, From.size(), To);
    }
}

/// The number that a text begins with, rounded to single precision: versions are compared that way.
float SingleNumber(std::string_view Text) {
    std::string Digits(Text);
    std::erase_if(Digits, [](char C) { return C == ' ' || C == '\t'; });
    double Value = 0;
    std::from_chars(Digits.data(), Digits.data() + Digits.size(), Value);
    return static_cast<float>(Value);
}

/// The lines of a file whose comments may hold bytes that are no text. Without them the encoding is told from the whole
/// file, as that of every text file.
std::vector<std::string> DecodedLines(std::string_view Bytes) {
    std::string Text(Bytes);
    // A bell stands for the line end of a comment while the text is decoded.
    constexpr std::string_view Placeholder = "\a";
    ReplaceAll(Text, CommentLineEnd, Placeholder);
    return base::SplitLines(base::DecodeText(Text));
}

/// The value behind a key that the line begins with.
std::optional<std::string_view> ValueOf(std::string_view Line, std::string_view Key) {
    if (Line.size() <= Key.size() || !Line.starts_with(Key) || Line[Key.size()] != '=') {
        return std::nullopt;
    }
    return Line.substr(Key.size() + 1);
}

/// Two characters a square: letters, or numbers where there are digits alone.
void ReadPromotion(rules::RuleSetFields& Rules, std::string_view Key, std::string_view Value) {
    const bool Numbers = !Value.empty() && Value.find_first_not_of("0123456789 ") == std::string_view::npos;
    std::string Letters;
    for (std::size_t At = 0; Numbers && At < Value.size(); At += 2) {
        const int Cell = rules::NumberedCell(Rules.PiecesOnBlack, LenientNumber(Value.substr(At, 2)));
        Letters += Cell == 0 ? "--" : rules::AlgebraicName(Cell);
    }
    rules::WriteTextRule(Rules, Key, base::ToUpper(Numbers ? Letters : Value));
}

/// A hundred digits; what is no digit of a piece, or is not there, is an empty square.
std::string ReadSetup(std::string_view Value) {
    std::string Digits(Value.substr(0, rules::SetupLength));
    Digits.resize(rules::SetupLength, '0');
    std::ranges::replace_if(
        Digits, [](char C) { return C < '0' || C > '4'; }, '0');
    return Digits;
}

/// "3:c5e5": the number of the half-move and the squares.
std::optional<GameFileWay> ReadWay(std::string_view Value) {
    const std::size_t Colon = Value.find(':');
    if (Colon == std::string_view::npos) {
        return std::nullopt;
    }
    GameFileWay Way{static_cast<std::int32_t>(std::clamp<std::int64_t>(LenientNumber(Value), 0, rules::MaxGameMoves)),
                    {}};
    const std::string Names = base::ToUpper(Value.substr(Colon + 1));
    for (std::size_t At = 0; At + 1 < Names.size(); At += 2) {
        Way.Captured.push_back(rules::AlgebraicCell(std::string_view(Names).substr(At, 2)));
    }
    return Way;
}

class Reader {
public:
    Reader(std::string_view Bytes, const GameFileDocument& Before) : Lines(DecodedLines(Bytes)), Game(Before) {
        Game.Setup.clear();
        Game.Details = {};
        Game.Ways.clear();
        Game.Moves.clear();
        Game.LastComment.clear();
    }

    GameFileResult Read() {
        if (SingleNumber(std::string_view(Lines.front()).substr(Magic.size())) != SingleNumber(Version)) {
            return {std::nullopt, GameFileFault::OtherVersion};
        }
        if (!ReadKeys()) {
            return {std::nullopt, GameFileFault::Broken};
        }
        ReadMoves();
        return {std::move(Game), GameFileFault::None};
    }

private:
    bool AtEnd() const { return Next == Lines.size(); }

    /// False if the file ends before its moves begin.
    bool ReadKeys() {
        for (Next = 1; !AtEnd();) {
            const std::string& Line = Lines[Next++];
            if (Line == MovesBegin) {
                return true;
            }
            if (Line.starts_with(MovementBegins)) {
                for (const std::string_view Key : rules::MovementKeys) {
                    if (AtEnd()) {
                        return false;
                    }
                    rules::WriteTextRule(Game.Rules, Key, Lines[Next++]);
                }
            } else {
                ReadKey(Line);
            }
        }
        return false;
    }

    void ReadKey(std::string_view Line) {
        if (const auto Value = ValueOf(Line, "Variant")) {
            Game.VariantName = *Value;
        } else if (const auto Digits = ValueOf(Line, "Setup")) {
            KeptSetup = ReadSetup(*Digits);
        } else if (const auto Open = ValueOf(Line, "Book")) {
            Game.BookOpen = LenientNumber(*Open) != 0;
        } else if (const auto Names = ValueOf(Line, "Notation")) {
            Game.Names = static_cast<rules::Notation>(std::clamp<std::int64_t>(LenientNumber(*Names), 0, 2));
        } else if (const auto Classic = ValueOf(Line, "UseClassic")) {
            // The start position is laid when this line comes: one that stands behind it comes too late. Wanted:
            // docs/kept_behaviour.md, "behind `UseClassic=`".
            Game.UseClassic = static_cast<std::int32_t>(std::clamp<std::int64_t>(LenientNumber(*Classic), 0, 1));
            Game.Setup = KeptSetup;
        } else if (const auto Name = ValueOf(Line, "PlayerName")) {
            Game.PlayerName = *Name;
        } else if (const auto Way = ValueOf(Line, "Ways")) {
            if (auto Read = ReadWay(*Way)) {
                Game.Ways.push_back(*std::move(Read));
            }
        } else {
            ReadDetail(Line);
            ReadRule(Line);
        }
    }

    void ReadDetail(std::string_view Line) {
        for (const DetailKey& Key : DetailKeys) {
            if (const auto Value = ValueOf(Line, Key.Name)) {
                Game.Details.*Key.Field = *Value;
            }
        }
    }

    void ReadRule(std::string_view Line) {
        for (const std::string_view Key : rules::PromotionKeys) {
            if (const auto Value = ValueOf(Line, Key)) {
                ReadPromotion(Game.Rules, Key, *Value);
                return;
            }
        }
        for (const rules::RuleKey& Key : rules::RuleKeys()) {
            // `NumberFriends` is written and never read. Wanted: docs/kept_behaviour.md, "`NumberFriends`".
            if (const auto Value = ValueOf(Line, Key.Name); Value && Key.Name != "NumberFriends") {
                Key.Write(Game.Rules, LenientNumber(*Value));
                return;
            }
        }
    }

    void ReadMoves() {
        std::string Comment;
        for (; !AtEnd() && !base::Trim(Lines[Next]).empty(); ++Next) {
            std::string& Line = Lines[Next];
            if (!Line.starts_with('{')) {
                Game.Moves.push_back({std::move(Line), std::exchange(Comment, {})});
                continue;
            }
            Comment = Line.substr(1, Line.size() - (Line.ends_with('}') ? 2 : 1));
            ReplaceAll(Comment, "\a", "\n");
        }
        Game.LastComment = std::move(Comment);
    }

    std::vector<std::string> Lines;
    std::size_t Next = 0;
    GameFileDocument Game;
    std::string KeptSetup;
};

// --- Writing -------------------------------------------------------------------------------------------------------

void AddLine(std::string& Text, std::string_view Line) {
    Text.append(Line).append(LineEnd);
}

void AddKey(std::string& Text, std::string_view Key, std::string_view Value) {
    Text.append(Key).append("=");
    AddLine(Text, Value);
}

/// A text of one line: what would end the line becomes a blank.
std::string OneLine(std::string Text) {
    std::ranges::replace_if(
        Text, [](char C) { return C == '\r' || C == '\n'; }, ' ');
    return Text;
}

void AddPromotion(std::string& Text, const rules::RuleSetFields& Rules) {
    for (int Colour = 0; Colour < 2; ++Colour) {
        AddKey(Text, rules::PromotionKeys[Colour], rules::PromotionNames(Rules.PromotionSquares, Colour));
    }
}

/// The rules in the order that the format has; the promotion squares and `UseClassic` stand among the numbers, the
/// directions before the last of them.
void AddRules(std::string& Text, const GameFileDocument& Game) {
    for (const rules::RuleKey& Key : rules::RuleKeys()) {
        if (Key.Name == "PiecesOnBlack") {
            AddPromotion(Text, Game.Rules);
        } else if (Key.Name == "JumpFriend") {
            AddKey(Text, "UseClassic", std::to_string(Game.UseClassic.value_or(1)));
        } else if (Key.Name == "ManContJumpCrowned") {
            AddLine(Text, MovementBegins);
            for (const rules::MovementText& Movement : Game.Rules.MovementStrings) {
                AddLine(Text, Movement.View());
            }
        }
        AddKey(Text, Key.Name, std::to_string(Key.Read(Game.Rules)));
    }
}

void AddComment(std::string& Text, std::string_view Comment) {
    if (Comment.empty()) {
        return;
    }
    std::string Written(Comment);
    ReplaceAll(Written, LineEnd, CommentLineEnd);
    ReplaceAll(Written, "\n", CommentLineEnd);
    ReplaceAll(Written, "\r", CommentLineEnd);
    AddLine(Text, "{" + Written + "}");
}

} // namespace

GameFileResult ReadGameFile(std::string_view Bytes, const GameFileDocument& Before) {
    if (!Bytes.starts_with(Magic)) {
        return {std::nullopt, GameFileFault::NotAGame};
    }
    try {
        return Reader(Bytes, Before).Read();
    } catch (const base::Fault&) {
        return {std::nullopt, GameFileFault::Broken};
    }
}

std::string WriteGameFile(const GameFileDocument& Game) {
    std::string Text(Magic);
    AddLine(Text, Version);
    AddKey(Text, "Variant", OneLine(Game.VariantName));
    AddKey(Text, "Setup", Game.Setup);
    AddKey(Text, "Book", Game.BookOpen ? "1" : "0");
    AddKey(Text, "Notation", std::to_string(static_cast<int>(Game.Names)));
    AddRules(Text, Game);
    AddKey(Text, "PlayerName", OneLine(Game.PlayerName.value_or("")));
    for (const DetailKey& Key : DetailKeys) {
        if (const std::string& Value = Game.Details.*Key.Field; !Value.empty()) {
            AddKey(Text, Key.Name, OneLine(Value));
        }
    }
    for (const GameFileWay& Way : Game.Ways) {
        std::string Squares;
        for (const std::int32_t Cell : Way.Captured) {
            Squares += rules::AlgebraicName(Cell);
        }
        AddKey(Text, "Ways", std::to_string(Way.HalfMove) + ":" + Squares);
    }
    AddLine(Text, MovesBegin);
    for (const GameFileMove& Move : Game.Moves) {
        AddComment(Text, Move.Comment);
        AddLine(Text, Move.Raw);
    }
    AddComment(Text, Game.LastComment);
    return Text;
}

} // namespace zonterbrook::formats
