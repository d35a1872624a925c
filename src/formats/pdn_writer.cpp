// The writer of games.
#include "formats/pdn_writer.h"

#include "base/text.h"
#include "formats/pdn_characters.h"

#include <algorithm>

namespace zonterbrook::formats {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view EmptyLineEnd = "\r\n\r\n";
constexpr std::string_view NoResult = "*";
constexpr std::string_view TagVersion = "1.00";
/// A line that is longer is ended; so no line is longer by more than a half-move and its comment.
constexpr std::size_t LineLength = 70;

/// Two blanks stand for a line end. Braces would end the comment, or seem to begin another.
std::string CommentText(std::string_view Comment) {
    std::string Text;
    Text.reserve(Comment.size());
    for (std::size_t At = 0; At < Comment.size(); ++At) {
        const char C = Comment[At];
        if (IsPdnLineEnd(C)) {
            Text += "  ";
            At += Comment.substr(At, 2) == LineEnd ? 1 : 0;
        } else if (C != '\0') {
            Text += C == '{' ? '(' : C == '}' ? ')' : C;
        }
    }
    return Text;
}

std::string MoveText(std::string_view Move) {
    std::string Text(Move);
    if (Text.ends_with('K')) {
        Text.pop_back();
    }
    std::erase(Text, ' ');
    std::ranges::replace(Text, ':', 'x');
    return Text;
}

class Writer {
public:
    void Tag(std::string_view Name, std::string_view Value) {
        Text += WritePdnTag(Name, Value);
        Text += LineEnd;
    }

    void TagIfAny(std::string_view Name, std::string_view Value) {
        if (!Value.empty()) {
            Tag(Name, Value);
        }
    }

    void Comment(std::string_view Comment) {
        if (!Comment.empty()) {
            Line.append("{").append(CommentText(Comment)).append("} ");
        }
    }

    void Moves(const PdnGame& Game) {
        // A game that begins with the second half-move of its first row is numbered as if the first had been made.
        std::size_t Number = Game.BeginsWithSecond ? 1 : 0;
        if (Game.BeginsWithSecond) {
            Line += "1. ... ";
        }
        for (const PdnHalfMove& Move : Game.Moves) {
            if (Number % 2 == 0) {
                Line.append(std::to_string(Number / 2 + 1)).append(". ");
            }
            Comment(Move.Comment);
            Line.append(MoveText(Move.Text)).append(" ");
            if (Line.size() > LineLength) {
                EndLine();
            }
            ++Number;
        }
        Comment(Game.LastComment);
    }

    void Word(std::string_view Word) { Line += Word; }

    void EndLine() {
        Text.append(Line).append(LineEnd);
        Line.clear();
    }

    std::string Text;

private:
    std::string Line;
};

} // namespace

std::string WritePdnGame(const PdnGame& Game, std::string_view Today) {
    const PdnTags& Tags = Game.Tags;
    const std::string_view Result = Game.Result.empty() ? NoResult : std::string_view(Game.Result);
    Writer Out;
    // 1. What every reader knows.
    Out.TagIfAny("Event", Tags.Event);
    Out.Tag("Date", Tags.Date.empty() ? Today : std::string_view(Tags.Date));
    Out.TagIfAny("Black", Tags.Black);
    Out.TagIfAny("White", Tags.White);
    Out.TagIfAny("Site", Tags.Site);
    Out.Tag("Result", Result);
    if (!Tags.RuleTag.empty()) {
        Out.Tag("QVersion", TagVersion);
        Out.Tag("Quavermill", Tags.RuleTag);
    }
    // 2. What only some games have.
    Out.TagIfAny("Round", Tags.Round);
    Out.TagIfAny("BlackElo", Tags.BlackElo);
    Out.TagIfAny("WhiteElo", Tags.WhiteElo);
    Out.TagIfAny("ECO", Tags.Eco);
    Out.TagIfAny("SetUp", Tags.SetUp);
    Out.TagIfAny("FEN", Tags.Fen);
    Out.TagIfAny("GameType", Tags.GameType);
    Out.TagIfAny("RuleSet", Tags.RuleSet);
    Out.EndLine();
    // 3. The moves.
    Out.Moves(Game);
    // A word of someone's own for the result stands in the tag alone.
    Out.Word(IsPdnResult(Result) ? Result : NoResult);
    Out.EndLine();
    Out.EndLine();
    return std::move(Out.Text);
}

std::string_view PdnGap(std::string_view End) {
    const auto EndsLine = [](std::string_view Text) { return !Text.empty() && IsPdnLineEnd(Text.back()); };
    if (!EndsLine(End)) {
        return End.empty() ? std::string_view() : EmptyLineEnd;
    }
    End.remove_suffix(End.ends_with(LineEnd) ? LineEnd.size() : 1);
    return End.empty() || EndsLine(End) ? std::string_view() : LineEnd;
}

} // namespace zonterbrook::formats
