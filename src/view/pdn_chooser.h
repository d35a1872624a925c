// The list of the games in a PDN file, as a person looks for one of them: sorted by a column, narrowed by words.
//
// The file is still being looked through while the list is shown. What is typed and clicked goes through here; the
// window shows the lines and asks for more of the file when it has time.
#pragma once

#include "formats/pdn_index.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::view {

class PdnChooser {
public:
    /// The variants to play the game under follow the entry for its own. `Games` must live as long as this.
    PdnChooser(formats::PdnIndex& InGames, const std::vector<std::string>& InVariants);

    /// Looks through about so many bytes more; false once the whole file has been. New games that the words fit come to
    /// the end of the list until the whole file is known, and then to their places.
    bool GoOn(std::size_t Bytes);

    /// How far that is, 0 to 1.
    double Progress() const;
    /// "1,234 of 5,678 games", with " so far" while the file is still being looked through.
    std::string CountText() const;

    /// Lists the games in which all these words stand, in any column and letter case. No words: all games.
    void Filter(std::string_view Words);

    /// Sorts by a column, upward the first time and the other way round the next.
    void SortBy(formats::PdnColumn Column);
    /// The column it is sorted by, if any, and whether downward.
    std::optional<formats::PdnColumn> SortColumn() const { return SortedBy; }
    bool SortsDownward() const { return Downward; }

    /// The lines that are listed.
    std::size_t Lines() const { return Shown.size(); }
    /// The text of a line in a column, and the game's number in the file, from 0.
    std::string_view Text(std::size_t Line, formats::PdnColumn Column) const;
    std::size_t GameOf(std::size_t Line) const { return Shown.at(Line); }
    /// The line of a game, if it is listed.
    std::optional<std::size_t> LineOf(std::size_t Game) const;

    /// "DEFAULT", then the variants.
    const std::vector<std::string>& OpenAs() const { return Variants; }

private:
    bool Fits(std::size_t Game) const;
    void Sort();

    formats::PdnIndex& Games;
    std::vector<std::string> Variants;
    std::vector<std::string> Words; ///< in lower case
    std::vector<std::uint32_t> Shown;
    std::size_t Listed = 0; ///< games that have been asked whether they fit
    std::optional<formats::PdnColumn> SortedBy;
    bool Downward = false;
};

} // namespace zonterbrook::view
