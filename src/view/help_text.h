// A variant's help as blocks that a window can set in type: headings, paragraphs, lists.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::view {

struct HelpBlock {
    enum class Kind : std::uint8_t { Heading, Paragraph, Item };

    Kind Is = Kind::Paragraph;
    std::string Text;

    bool operator==(const HelpBlock&) const = default;
};

/// The blocks of a help text, "\n" between its lines. A line that begins with a few words, a colon and a capital gets
/// the words as its heading; a line that begins with "- " is an item; of a line of three sentences and more each is
/// one.
std::vector<HelpBlock> SetHelp(std::string_view Help);

} // namespace zonterbrook::view
