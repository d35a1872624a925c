// Where the games of a PDN text begin and end.
//
// The finder is fed with a text piece by piece and keeps no more of it than the tags of the game in hand, so that a
// file of any size goes through it. It knows lines, tags, and the comments in which neither means anything; moves it
// passes over. Line ends may be CR, LF or CR LF, in any mixture; what follows a character 0 in its line is not there.
#pragma once

#include "formats/pdn_tags.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::formats {

/// One game: where it stands in the text, in bytes, and its tags.
struct PdnPlace {
    std::uint64_t Offset = 0; ///< of its first tag, or of its moves if it has no tags
    std::uint64_t Moves = 0;  ///< of the first text behind its tags
    std::uint64_t End = 0;    ///< of the next game's first tag, or the end of the text
    PdnTags Tags;
};

/// Finds the games of one text. A game begins with a set of tags and has a text of moves behind it, if only a comment;
/// a set without one is no game and says nothing about the next. The first game may do without tags.
class PdnFinder {
public:
    /// The offset of the byte that must be fed next. Mostly the end of what was fed; it goes back where a line turns
    /// out to be no tag or a comment to have no end. Every byte is asked for three times at most.
    std::uint64_t Position() const { return Next; }

    /// Takes the bytes from `Position` on, as many as there are at hand.
    void Feed(std::string_view Bytes);

    /// Says that the text ends at `Position`. True if that was all; false if there is more to feed, from `Position` on.
    bool Finish();

    /// The games whose end has been found since the last call.
    std::vector<PdnPlace> Take();

private:
    enum class In : std::uint8_t {
        LineStart,   ///< nothing but blanks so far
        Text,        ///< moves, or what stands between tags and moves
        Tag,         ///< a line that begins with "["
        LineRest,    ///< what nobody reads, up to the end of the line
        Comment,     ///< in braces
        CommentTag,  ///< a line in braces that begins with "["
        CommentRest, ///< in braces, behind a character 0
    };
    /// One tag of the set in hand, and in which of its blocks, parted by empty lines, it stands.
    struct SetTag {
        std::string Name;
        std::string Value;
        std::uint64_t Offset;
        int Block;
    };

    void Step(std::string_view Rest);
    void EndLine();
    void StartLine(std::string_view Rest);
    void ReadText(std::string_view Rest);
    void ReadBetween(std::string_view Rest);
    void ReadTagLine(std::string_view Rest);
    void ReadComment(std::string_view Rest);
    void BeginTagLine(In Kind);
    void EndTagLine();
    void EndCommentTag();
    bool EndsMoves() const;
    bool Repeats(std::string_view Name, int BeforeBlock) const;
    void AddTag(const PdnTag& Tag);
    void OpenComment();
    void BeginGame(std::uint64_t At);
    void EndGame(std::uint64_t At);
    void GoTo(std::uint64_t Offset, In NewState);

    static constexpr std::uint64_t NoOffset = UINT64_MAX;

    std::uint64_t Next = 0;
    In State = In::LineStart;
    bool AfterReturn = false; ///< the byte before was a CR: a LF belongs to it
    bool LineEmpty = true;    ///< outside of comments
    bool AfterEmptyLine = false;
    std::string TagLine;
    std::uint64_t TagOffset = 0;

    // The set of tags in hand
    std::vector<SetTag> Set;
    int Block = 0;
    std::uint64_t PendingText = NoOffset; ///< of a comment behind the tags, before any move

    // The comment in hand
    std::uint64_t CommentLineEnd = NoOffset; ///< of the line in which it begins
    std::uint64_t NoCloseBefore = 0;         ///< no "}" stands between here and a place that was looked from
    bool CommentLineBlank = false;
    bool CommentLineTag = false;
    bool CommentAfterEmpty = false;
    bool CommentAfterTag = false;

    // The game in hand
    bool InMoves = false;
    PdnPlace Game;
    std::vector<PdnPlace> Found;
};

} // namespace zonterbrook::formats
