// The tags of a game in Portable Draughts Notation: `[Event "..."]` and its like.
//
// A line of tags is read here, in the form that the notation asks for and in those that real files have. Which lines of
// a file are tags, and which game they belong to, is for pdn_finder.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zonterbrook::formats {

/// What the tags of one game say. A field is empty where its tag is absent.
struct PdnTags {
    std::string Event;
    std::string Date; ///< from Date or Year
    std::string Site;
    std::string Round;
    std::string Black;
    std::string White;
    std::string BlackElo;
    std::string WhiteElo;
    std::string Result = "*";
    std::string SetUp;
    std::string Fen;
    std::string Eco;
    std::string RuleTag; ///< Quavermill: rules and set-up by position, see rule_tags.h
    std::string RuleSet; ///< rules and set-up by key, see rule_tags.h
    std::string GameType;
    std::string Version; ///< QVersion

    bool operator==(const PdnTags&) const = default;
};

/// One tag as it stands in a line.
struct PdnTag {
    std::string_view Name; ///< as written; case counts
    std::string Value;     ///< without the quotes, escapes resolved
    std::size_t End = 0;   ///< where the rest of the line begins, blanks skipped
};

/// The tag that begins at `At` in `Line`, where a "[" must stand, or nothing if it has no name or no quoted text. A
/// quote inside the value may be escaped by a backslash or not; a missing quote or bracket at the line's end is made up
/// for.
std::optional<PdnTag> ReadPdnTag(std::string_view Line, std::size_t At);

/// Stores one tag. A name that nobody knows is passed over.
void StorePdnTag(std::string_view Name, std::string_view Value, PdnTags& Tags);

/// Stores every tag of a line that begins with one; blanks and a byte-order mark may stand in front. Gives where the
/// first text behind them begins that is no tag: the size of `Line` if there is none, and as well for a line that
/// can't be read as tags.
std::size_t ReadPdnTags(std::string_view Line, PdnTags& Tags);

/// `[Name "Value"]`, with what the value must not hold as it is escaped, and line ends made blanks.
std::string WritePdnTag(std::string_view Name, std::string_view Value);

/// Whether `Text`, the first part of a file, begins a PDN file: with any tag or with a move, behind empty lines, escape
/// lines and comments. A file without any text is one, too, though there is no game in it.
bool BeginsPdn(std::string_view Text);

/// The columns in which a person chooses a game, in their order.
enum class PdnColumn : std::uint8_t { Event, Date, Black, White, Result, Site, Setup, Eco, BlackElo, WhiteElo };
inline constexpr int PdnColumns = 10;

/// The head of a column.
std::string_view PdnColumnTitle(PdnColumn Column);

/// What a column shows of a game. The event is followed by the round, if there is one.
std::string PdnColumnText(const PdnTags& Tags, PdnColumn Column);

} // namespace zonterbrook::formats
