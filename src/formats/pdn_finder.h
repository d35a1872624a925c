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
    std::uint64_t Moves = 0;  ///< where the tags end: of the first text that is no tag
    std::uint64_t End = 0;    ///< of the next game's first tag, or the end of the text
    PdnTags Tags;
};

/// Finds the games of one text. A game begins with a set of tags and has a text of moves behind it, if only a comment;
/// a set without one is no game and says nothing about the next. The first game may do without tags.
class PdnFinder {
public:
    /// The offset of the byte that must be fed next. Mostly the end of what was fed; it goes back where a comment turns
    /// out to have no end. Every byte is asked for three times at most.
    std::uint64_t Position() const { return Next; }

    /// Takes the bytes from `Position` on, as many as there are at hand.
    void Feed(std::string_view Block);

    /// Says that the text ends at `Position`. True if that was all; false if there is more to feed, from `Position` on.
    bool Finish();

    /// The games whose end has been found since the last call.
    std::vector<PdnPlace> Take();

private:
    enum class In : std::uint8_t { LineStart, Text, Tag, Rest, Comment, CommentTag, CommentRest };
    /// One tag of the set in hand, and in which of its blocks, parted by empty lines, it stands.
    struct SetTag {
        std::string Name;
        std::string Value;
        std::uint64_t Offset;
        int Block;
    };

    void StepFrom(std::string_view Block, std::size_t& At);
    void EndLine();
    void StartLine(char First);
    void ReadText(std::string_view Block, std::size_t& At);
    void ReadComment(std::string_view Block, std::size_t& At);
    void EndTagLine();
    bool EndsMoves() const;
    void AddTag(const PdnTag& Tag);
    void OpenComment();
    void RefuseComment();
    void BeginGame(std::uint64_t At);
    void EndGame(std::uint64_t At);
    void GoTo(std::uint64_t Offset, In NewState);

    std::uint64_t Next = 0;
    In State = In::LineStart;
    bool AfterReturn = false; ///< the byte before was a CR: a LF belongs to it
    bool InMoves = false;     ///< in the moves of a game, not among tags
    bool AfterEmptyLine = false;
    bool LineIsText = false; ///< the line at `Next` has been found to be no tag
    int Block = 0;
    std::vector<SetTag> Set;
    std::string TagLine;
    std::uint64_t TagOffset = 0;
    std::uint64_t PendingText = NoOffset;    ///< of a comment behind the tags of the set, before any move
    std::uint64_t CommentLineEnd = NoOffset; ///< of the line in which the open comment begins
    std::uint64_t NoCloseBefore = 0;         ///< no "}" stands between here and what has been looked through
    bool CommentLineEmpty = false;
    bool CommentAfterEmpty = false;
    bool CommentAfterTag = false;
    PdnPlace Game;
    std::vector<PdnPlace> Found;

    static constexpr std::uint64_t NoOffset = UINT64_MAX;
};

} // namespace zonterbrook::formats
