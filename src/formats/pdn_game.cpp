// The reader of one game.
#include "formats/pdn_game.h"

#include "base/text.h"
#include "formats/pdn_characters.h"
#include "formats/pdn_finder.h"
#include "formats/pdn_move.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace zonterbrook::formats {

namespace {

constexpr std::array<std::string_view, 8> Results = {"1-0", "0-1", "1/2-1/2", "2-0", "0-2", "1-1", "0-0", "*"};
constexpr std::string_view Separators = "-xX:";
constexpr std::string_view Ellipsis = "\xE2\x80\xA6";
/// What may be stuck to a move to say how good it was.
constexpr std::string_view Marks = "!?*";
constexpr std::string_view TokenEnds = "\n{}();$";
/// Four digits are two squares, even in front of a dot.
constexpr std::size_t LongestNumber = 3;

bool IsTokenCharacter(char C) {
    return !IsPdnBlank(C) && TokenEnds.find(C) == std::string_view::npos;
}

/// Lines end with "\n" alone, and nothing stands behind a character 0.
std::string NormaliseLines(std::string_view Text) {
    std::string Lines;
    Lines.reserve(Text.size());
    for (std::size_t At = 0; At < Text.size();) {
        const std::size_t End = std::min(Text.find_first_of("\r\n", At), Text.size());
        const std::string_view Line = Text.substr(At, End - At);
        Lines += Line.substr(0, Line.find('\0'));
        if (End < Text.size()) {
            Lines += '\n';
        }
        At = End + (Text.substr(End, 2) == "\r\n" ? 2 : 1);
    }
    return Lines;
}

/// The first game of a text, or nothing.
std::optional<PdnPlace> FindFirst(std::string_view Text) {
    // A pasted text may hold many games; what lies far behind the first is not looked at.
    constexpr std::size_t PieceSize = 64 << 10;
    PdnFinder Finder;
    std::vector<PdnPlace> Found;
    while (Found.empty()) {
        Finder.Feed(Text.substr(Finder.Position(), PieceSize));
        const bool AtEnd = Finder.Position() == Text.size() && Finder.Finish();
        Found = Finder.Take();
        if (AtEnd) {
            break;
        }
    }
    return Found.empty() ? std::nullopt : std::optional(std::move(Found.front()));
}

/// Goes through the text of the moves once, and writes what it finds into the game.
class MoveReader {
public:
    MoveReader(std::string_view InText, PdnGame& InGame)
        : Text(InText), Game(InGame), LastBrace(InText.find_last_of('}')) {}

    void Read() {
        while (At < Text.size() && !Stopped) {
            ReadNext();
        }
        // A game without a known result ends with a word of its own for it, or with a move.
        if (!Over && !Cut && !Game.Moves.empty()) {
            const std::string& Last = Game.Moves.back().Text;
            if (Last == Game.Tags.Result || !SplitPdnMove(Last)) {
                EndWithLast();
            }
        }
        Game.LastComment = std::move(Pending);
    }

private:
    void ReadNext() {
        const char C = Text[At];
        if (C == '\n') {
            StartLine();
        } else if (IsPdnBlank(C) || C == ')' || C == '}') {
            ++At;
        } else if (C == '{') {
            AddComment(Text.substr(At + 1, CommentEnd(At) - At - 1));
            At = BehindComment(At);
        } else if (C == ';') {
            const std::size_t End = LineEnd(At);
            AddComment(base::Trim(Text.substr(At + 1, End - At - 1)));
            At = End;
        } else if (C == '(') {
            SkipVariation();
        } else if (C == '$') {
            At = SkipPdnDigits(Text, At + 1);
        } else if (!SkipNumber()) {
            ReadToken();
        }
    }

    std::size_t LineEnd(std::size_t From) const { return std::min(Text.find('\n', From), Text.size()); }

    /// Where the comment in braces that begins at `From` ends: its brace, or the end of its line if there is none.
    std::size_t CommentEnd(std::size_t From) const {
        const bool Closed = LastBrace != std::string_view::npos && From < LastBrace;
        return Closed ? Text.find('}', From) : LineEnd(From);
    }

    std::size_t BehindComment(std::size_t From) const {
        const std::size_t End = CommentEnd(From);
        return End < Text.size() && Text[End] == '}' ? End + 1 : End;
    }

    /// At a line end: passes over escape lines; an empty line ends the moves.
    void StartLine() {
        bool Empty = false;
        while (At < Text.size() && Text[At] == '\n') {
            At = SkipPdnBlanks(Text, At + 1);
            if (At < Text.size() && Text[At] == '%') {
                At = LineEnd(At);
            } else {
                Empty = Empty || At == Text.size() || Text[At] == '\n';
            }
        }
        Stopped = Empty && At < Text.size() && !GoesOn();
    }

    /// Whether the text behind an empty line still belongs to the game. A game has moves, and one that has begun goes
    /// on with a number or its result; everything else is a remark that someone left there, or a game of its own.
    bool GoesOn() const {
        if (Over) {
            return false;
        }
        if (Game.Moves.empty()) {
            return true;
        }
        const std::size_t Dot = SkipPdnBlanks(Text, SkipPdnDigits(Text, At));
        const bool Numbered = IsPdnDigit(Text[At]) && Dot < Text.size() && Text[Dot] == '.';
        const std::string_view Rest = Text.substr(At, LineEnd(At) - At);
        return Numbered ? base::LenientNumber(Rest) > 1 : IsPdnResult(Rest.substr(0, Rest.find_first_of(" \t{;")));
    }

    void AddComment(std::string_view Comment) {
        CanGlue = false;
        if (Comment.empty()) {
            return;
        }
        ++Game.Comments;
        if (!Pending.empty()) {
            Pending += '\n';
        }
        Pending += Comment;
    }

    /// "12.", "12. ...", "12...", and dots alone. False, and nothing is passed over, where no number stands.
    bool SkipNumber() {
        const std::size_t Digits = SkipPdnDigits(Text, At);
        if (Digits - At > LongestNumber) {
            return false;
        }
        std::size_t Next = SkipPdnBlanks(Text, Digits);
        int Dots = 0;
        while (Next < Text.size()) {
            if (Text[Next] == '.') {
                ++Dots;
                ++Next;
            } else if (Text.substr(Next).starts_with(Ellipsis)) {
                Dots += 3;
                Next += Ellipsis.size();
            } else if (Dots > 0 && IsPdnBlank(Text[Next])) {
                ++Next;
            } else {
                break;
            }
        }
        if (Dots == 0) {
            return false;
        }
        if (Dots > 1 && Game.Moves.empty()) {
            Game.BeginsWithSecond = true;
        }
        At = Next;
        CanGlue = false;
        return true;
    }

    std::string TakeToken() {
        const std::size_t Start = At;
        while (At < Text.size() && IsTokenCharacter(Text[At])) {
            ++At;
        }
        return std::string(Text.substr(Start, At - Start));
    }

    /// A token, with what belongs to it behind a separator and a blank or a line end.
    void ReadToken() {
        std::string Token = TakeToken();
        while (Separators.find(Token.back()) != std::string_view::npos) {
            std::size_t Next = SkipPdnBlanks(Text, At);
            if (Next < Text.size() && Text[Next] == '\n') {
                Next = SkipPdnBlanks(Text, Next + 1);
            }
            if (Next == Text.size() || !IsTokenCharacter(Text[Next])) {
                break;
            }
            At = Next;
            Token += TakeToken();
        }
        if (Token != "*") {
            Token.erase(Token.find_last_not_of(Marks) + 1);
        }
        if (Token.empty()) {
            return;
        }
        if (Over || Game.Moves.size() == MostPdnMoves) {
            Stopped = true;
            Cut = !Over;
        } else if (CanGlue && Separators.find(Token.front()) != std::string_view::npos) {
            Game.Moves.back().Text += Token;
            if (IsPdnResult(Game.Moves.back().Text)) {
                EndWithLast();
            }
        } else if (IsPdnResult(Token)) {
            Game.Result = Token;
            Over = true;
        } else {
            CanGlue = SplitPdnMove(Token).has_value();
            Game.Moves.push_back({std::move(Token), std::exchange(Pending, {})});
        }
    }

    /// The last half-move was none, but the result.
    void EndWithLast() {
        Game.Result = std::move(Game.Moves.back().Text);
        std::string Comment = std::move(Game.Moves.back().Comment);
        Game.Moves.pop_back();
        Over = true;
        if (!Comment.empty() && !Pending.empty()) {
            Comment += '\n';
        }
        Pending.insert(0, Comment);
    }

    /// Passes over a variation, with all that it holds. A parenthesis without its other half is passed over alone.
    void SkipVariation() {
        if (At >= MatchedUntil) {
            MatchParentheses();
        }
        int Depth = std::ranges::binary_search(Unmatched, static_cast<std::uint32_t>(At)) ? 0 : 1;
        for (++At; Depth > 0 && At < Text.size(); At = NextInVariation(At)) {
            Depth += Text[At] == '(' ? 1 : Text[At] == ')' ? -1 : 0;
        }
        CanGlue = false;
    }

    /// The place behind what stands at `From`, a comment or an escape line counted whole.
    std::size_t NextInVariation(std::size_t From) const {
        if (Text[From] == '\n') {
            const std::size_t First = SkipPdnBlanks(Text, From + 1);
            return First < Text.size() && Text[First] == '%' ? LineEnd(First) : From + 1;
        }
        return Text[From] == '{' ? BehindComment(From) : Text[From] == ';' ? LineEnd(From) : From + 1;
    }

    /// Finds the parentheses that nothing closes from here to the next empty line, in one pass for all of them.
    void MatchParentheses() {
        Unmatched.clear();
        std::size_t Place = At;
        bool Empty = false; // nothing but blanks in the line so far
        while (Place < Text.size() && !(Empty && Text[Place] == '\n')) {
            const char C = Text[Place];
            if (C == '(') {
                Unmatched.push_back(static_cast<std::uint32_t>(Place));
            } else if (C == ')' && !Unmatched.empty()) {
                Unmatched.pop_back();
            }
            const std::size_t Next = NextInVariation(Place);
            Empty = C == '\n' ? Next == Place + 1 : Empty && IsPdnBlank(C);
            Place = Next;
        }
        MatchedUntil = Place;
    }

    std::string_view Text;
    PdnGame& Game;
    std::size_t LastBrace;
    std::size_t At = 0;
    std::string Pending;  ///< comments for the half-move to come
    bool CanGlue = false; ///< squares stood in the token before, and nothing between
    bool Over = false;    ///< the result has been read
    bool Cut = false;     ///< there are more half-moves than are read
    bool Stopped = false; ///< nothing more is read
    std::vector<std::uint32_t> Unmatched;
    std::size_t MatchedUntil = 0;
};

} // namespace

bool IsPdnResult(std::string_view Token) {
    return std::ranges::find(Results, Token) != Results.end();
}

ReadResult<PdnGame> ReadPdnGame(std::string_view Bytes) {
    const std::string Text = NormaliseLines(base::DecodeText(Bytes));
    std::optional<PdnPlace> Place = FindFirst(Text);
    if (!Place) {
        return {std::nullopt, {0, "there is no game in the text"}};
    }
    PdnGame Game;
    Game.Tags = std::move(Place->Tags);
    MoveReader(std::string_view(Text).substr(Place->Moves, Place->End - Place->Moves), Game).Read();
    return {std::move(Game), {}};
}

} // namespace zonterbrook::formats
