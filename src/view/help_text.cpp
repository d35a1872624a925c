// A variant's help as blocks.
#include "view/help_text.h"

#include "base/text.h"

#include <algorithm>

namespace zonterbrook::view {

namespace {

using Kind = HelpBlock::Kind;

constexpr std::size_t LongestHeading = 40;
constexpr std::size_t SentencesOfList = 3;
constexpr std::string_view ItemMark = "- ";

bool IsUpper(char C) {
    return C >= 'A' && C <= 'Z';
}

// A full stop ends a sentence if a capital follows it and no single letter stands before it: that is a name's.
std::vector<std::string> Sentences(std::string_view Line) {
    std::vector<std::string> Found;
    std::size_t Start = 0;
    for (std::size_t At = 1; At + 2 < Line.size(); ++At) {
        const bool Ends = Line[At] == '.' && Line[At + 1] == ' ' && IsUpper(Line[At + 2]);
        const bool Initial = IsUpper(Line[At - 1]) && (At == 1 || Line[At - 2] == ' ');
        if (Ends && !Initial) {
            Found.emplace_back(base::Trim(Line.substr(Start, At + 1 - Start)));
            Start = At + 2;
        }
    }
    Found.emplace_back(base::Trim(Line.substr(Start)));
    return Found;
}

// The words in front of a colon, if they are few enough for a heading and a sentence of its own follows.
std::string_view HeadingOf(std::string_view Line) {
    const std::size_t Colon = Line.find(": ");
    const bool Is = Colon != std::string_view::npos && Colon > 0 && Colon <= LongestHeading &&
                    Line.substr(0, Colon).find('.') == std::string_view::npos && IsUpper(Line.front()) &&
                    Colon + 2 < Line.size() && IsUpper(Line[Colon + 2]);
    return Is ? Line.substr(0, Colon) : std::string_view();
}

void AddLine(std::vector<HelpBlock>& Blocks, std::string_view Line) {
    if (Line.starts_with(ItemMark)) {
        Blocks.push_back({Kind::Item, std::string(base::Trim(Line.substr(ItemMark.size())))});
        return;
    }
    if (const std::string_view Heading = HeadingOf(Line); !Heading.empty()) {
        Blocks.push_back({Kind::Heading, std::string(Heading)});
        Line = base::Trim(Line.substr(Heading.size() + 1));
        // References are full of full stops that end no sentence.
        if (Heading.starts_with("Source")) {
            Blocks.push_back({Kind::Paragraph, std::string(Line)});
            return;
        }
    }
    std::vector<std::string> Each = Sentences(Line);
    if (Each.size() < SentencesOfList) {
        Blocks.push_back({Kind::Paragraph, std::string(Line)});
        return;
    }
    for (std::string& Sentence : Each) {
        Blocks.push_back({Kind::Item, std::move(Sentence)});
    }
}

} // namespace

std::vector<HelpBlock> SetHelp(std::string_view Help) {
    std::vector<HelpBlock> Blocks;
    for (const std::string& Line : base::SplitLines(Help)) {
        if (const std::string_view Text = base::Trim(Line); !Text.empty()) {
            AddLine(Blocks, Text);
        }
    }
    return Blocks;
}

} // namespace zonterbrook::view
