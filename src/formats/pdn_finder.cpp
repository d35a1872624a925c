// The finder: an automaton over bytes that goes back a little where only what follows tells what a line is.
#include "formats/pdn_finder.h"

#include "formats/pdn_characters.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zonterbrook::formats {

namespace {

/// What is kept of a line of tags, and of tags in a set; far more than any program writes.
constexpr std::size_t LongestTagLine = 64 << 10;
constexpr std::size_t MostTags = 256;

using CharacterSet = std::array<bool, 256>;

constexpr CharacterSet SetOf(std::string_view Characters) {
    CharacterSet Set{};
    for (const char C : Characters) {
        Set[static_cast<unsigned char>(C)] = true;
    }
    return Set;
}

constexpr CharacterSet LineStops = SetOf("\r\n");
constexpr CharacterSet TextStops = SetOf(std::string_view("\r\n\0{;", 5));
constexpr CharacterSet TagStops = SetOf(std::string_view("\r\n\0", 3));
constexpr CharacterSet CommentStops = SetOf(std::string_view("\r\n\0}", 4));

/// How many bytes of `Text` stand before the first of `Stops`.
std::size_t CountUntil(std::string_view Text, const CharacterSet& Stops) {
    std::size_t At = 0;
    while (At < Text.size() && !Stops[static_cast<unsigned char>(Text[At])]) {
        ++At;
    }
    return At;
}

/// A byte-order mark stands at the start of a file, and in the middle where files were joined. Its bytes begin no line
/// of tags or moves.
bool IsBlankAtLineStart(char C) {
    return IsPdnBlank(C) || ByteOrderMark.find(C) != std::string_view::npos;
}

} // namespace

void PdnFinder::Feed(std::string_view Bytes) {
    const std::uint64_t Base = Next;
    while (Next >= Base && Next - Base < Bytes.size()) {
        Step(Bytes.substr(Next - Base));
    }
}

bool PdnFinder::Finish() {
    if (State == In::Tag) {
        const std::uint64_t End = Next;
        EndTagLine();
        if (Next != End) {
            return false;
        }
    }
    if (State == In::Comment || State == In::CommentTag || State == In::CommentRest) {
        NoCloseBefore = Next;
        if (CommentLineEnd != NoOffset) {
            GoTo(CommentLineEnd, In::LineRest);
            return false;
        }
    }
    if (!InMoves && PendingText != NoOffset && !Set.empty()) {
        BeginGame(PendingText);
    }
    if (InMoves) {
        EndGame(Next);
    }
    return true;
}

std::vector<PdnPlace> PdnFinder::Take() {
    return std::exchange(Found, {});
}

/// Goes on by one byte at least, or into another state.
void PdnFinder::Step(std::string_view Rest) {
    const char C = Rest.front();
    if (IsPdnLineEnd(C)) {
        if (State == In::Tag) {
            return EndTagLine();
        }
        if (State == In::CommentTag) {
            return EndCommentTag();
        }
        if (C != '\n' || !AfterReturn) {
            EndLine();
        }
        AfterReturn = C == '\r';
        ++Next;
        return;
    }
    AfterReturn = false;
    switch (State) {
    case In::LineStart:
        return StartLine(Rest);
    case In::Text:
        return InMoves ? ReadText(Rest) : ReadBetween(Rest);
    case In::Tag:
    case In::CommentTag:
        return ReadTagLine(Rest);
    case In::Comment:
        return ReadComment(Rest);
    case In::LineRest:
    case In::CommentRest:
        Next += CountUntil(Rest, LineStops);
        return;
    }
}

void PdnFinder::EndLine() {
    if (State == In::Comment || State == In::CommentRest) {
        CommentLineEnd = std::min(CommentLineEnd, Next);
        CommentAfterEmpty = std::exchange(CommentLineBlank, true);
        CommentAfterTag = std::exchange(CommentLineTag, false);
        State = In::Comment;
    } else {
        AfterEmptyLine = std::exchange(LineEmpty, true);
        State = In::LineStart;
    }
}

void PdnFinder::StartLine(std::string_view Rest) {
    const char C = Rest.front();
    if (IsBlankAtLineStart(C)) {
        ++Next;
        return;
    }
    if (C == '\0') {
        State = In::LineRest;
        return;
    }
    LineEmpty = false;
    if (C == '[') {
        BeginTagLine(In::Tag);
    } else {
        State = C == '%' ? In::LineRest : In::Text;
    }
}

/// In moves only comments matter: what looks like a tag in one is none.
void PdnFinder::ReadText(std::string_view Rest) {
    const std::size_t Count = CountUntil(Rest, TextStops);
    Next += Count;
    if (Count == Rest.size() || IsPdnLineEnd(Rest[Count])) {
        return;
    }
    if (Rest[Count] == '{') {
        OpenComment();
    } else {
        State = In::LineRest;
    }
}

/// Behind tags, before moves: a comment may belong to the game, but does not begin one as long as more tags may come.
void PdnFinder::ReadBetween(std::string_view Rest) {
    const char C = Rest.front();
    if (IsPdnBlank(C)) {
        ++Next;
    } else if (C == '\0') {
        State = In::LineRest;
    } else if (C == ';' || C == '{') {
        PendingText = std::min(PendingText, Next);
        if (C == '{') {
            OpenComment();
        } else {
            State = In::LineRest;
        }
    } else {
        BeginGame(std::min(PendingText, Next));
    }
}

void PdnFinder::BeginTagLine(In Kind) {
    State = Kind;
    TagOffset = Next;
    TagLine.clear();
}

void PdnFinder::ReadTagLine(std::string_view Rest) {
    const bool InComment = State == In::CommentTag;
    const std::size_t Room = LongestTagLine - TagLine.size();
    const std::size_t Count = CountUntil(Rest.substr(0, Room), InComment ? CommentStops : TagStops);
    TagLine += Rest.substr(0, Count);
    Next += Count;
    if (TagLine.size() == LongestTagLine) {
        if (InComment) {
            State = In::Comment;
        } else {
            EndTagLine();
        }
    } else if (Count < Rest.size() && Rest[Count] == '}') {
        State = In::Comment;
    } else if (Count < Rest.size() && Rest[Count] == '\0') {
        if (InComment) {
            EndCommentTag();
        } else {
            EndTagLine();
        }
    }
}

void PdnFinder::EndTagLine() {
    // 1. A line of moves that happens to begin with a bracket.
    if (InMoves && !EndsMoves()) {
        GoTo(TagOffset, In::Text);
        return;
    }
    if (InMoves) {
        EndGame(TagOffset);
    }
    // 2. The tags of the line.
    std::vector<PdnTag> Tags;
    std::size_t At = 0;
    while (At < TagLine.size() && TagLine[At] == '[') {
        std::optional<PdnTag> Tag = ReadPdnTag(TagLine, At);
        At = Tag ? Tag->End : TagLine.size();
        if (Tag) {
            Tags.push_back(std::move(*Tag));
        }
    }
    // 3. A comment stood behind the tags before: all there is of a game whose tags now come again, or a remark.
    if (PendingText != NoOffset) {
        const auto InSet = [this](const PdnTag& Tag) { return Repeats(Tag.Name, Block + 1); };
        if (std::ranges::any_of(Tags, InSet)) {
            BeginGame(PendingText);
            EndGame(TagOffset);
        }
        PendingText = NoOffset;
    }
    // 4. Into the set, and on to what follows in the line.
    if (AfterEmptyLine) {
        ++Block;
        AfterEmptyLine = false;
    }
    for (const PdnTag& Tag : Tags) {
        AddTag(Tag);
    }
    if (At < TagLine.size()) {
        GoTo(TagOffset + At, In::Text);
    } else {
        State = In::LineRest;
    }
}

/// In the middle of moves it takes a whole tag to end them; behind an empty line a broken one will do.
bool PdnFinder::EndsMoves() const {
    const std::size_t Name = SkipPdnBlanks(TagLine, 1);
    return (AfterEmptyLine && Name < TagLine.size() && IsPdnLetter(TagLine[Name])) ||
           ReadPdnTag(TagLine, 0).has_value();
}

bool PdnFinder::Repeats(std::string_view Name, int BeforeBlock) const {
    return std::ranges::any_of(Set, [&](const SetTag& Tag) { return Tag.Block < BeforeBlock && Tag.Name == Name; });
}

void PdnFinder::AddTag(const PdnTag& Tag) {
    if (Repeats(Tag.Name, Block)) {
        // The blocks before were a set of their own, without moves.
        std::erase_if(Set, [this](const SetTag& Before) { return Before.Block < Block; });
    }
    if (Set.size() < MostTags) {
        Set.push_back({std::string(Tag.Name), Tag.Value, TagOffset, Block});
    }
}

void PdnFinder::OpenComment() {
    State = Next < NoCloseBefore ? In::LineRest : In::Comment;
    CommentLineEnd = NoOffset;
    CommentLineBlank = CommentLineTag = CommentAfterEmpty = CommentAfterTag = false;
    ++Next;
}

void PdnFinder::ReadComment(std::string_view Rest) {
    if (CommentLineBlank) {
        if (IsPdnBlank(Rest.front())) {
            ++Next;
            return;
        }
        CommentLineBlank = false;
        if (Rest.front() == '[') {
            return BeginTagLine(In::CommentTag);
        }
    }
    const std::size_t Count = CountUntil(Rest, CommentStops);
    Next += Count;
    if (Count == Rest.size() || IsPdnLineEnd(Rest[Count])) {
        return;
    }
    ++Next;
    State = Rest[Count] == '}' ? In::Text : In::CommentRest;
}

/// One tag alone may be quoted in a comment. Behind an empty line, or with another one, it begins the next game, and
/// the comment had no end.
void PdnFinder::EndCommentTag() {
    const std::size_t Last = TagLine.find_last_not_of(" \t");
    CommentLineTag = TagLine[Last] == ']' && ReadPdnTag(TagLine, 0).has_value();
    if (CommentLineTag && (CommentAfterEmpty || CommentAfterTag)) {
        NoCloseBefore = TagOffset;
        GoTo(CommentLineEnd, In::LineRest);
    } else {
        State = In::CommentRest;
    }
}

void PdnFinder::BeginGame(std::uint64_t At) {
    Game.Offset = Set.empty() ? At : Set.front().Offset;
    Game.Moves = At;
    for (const SetTag& Tag : Set) {
        StorePdnTag(Tag.Name, Tag.Value, Game.Tags);
    }
    Set.clear();
    Block = 0;
    PendingText = NoOffset;
    InMoves = true;
}

void PdnFinder::EndGame(std::uint64_t At) {
    Game.End = At;
    Found.push_back(std::exchange(Game, {}));
    InMoves = false;
}

void PdnFinder::GoTo(std::uint64_t Offset, In NewState) {
    Next = Offset;
    State = NewState;
    AfterReturn = false;
}

} // namespace zonterbrook::formats
