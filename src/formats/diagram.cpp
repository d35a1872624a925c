// The writer of diagrams.
#include "formats/diagram.h"

#include "base/text.h"

#include <cstdint>

namespace zonterbrook::formats {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr int SquaresInRow = 10;

// A character of UTF-8 text from `At` on, which then stands behind it.
std::uint32_t NextCharacter(std::string_view Text, std::size_t& At) {
    const auto First = static_cast<unsigned char>(Text[At++]);
    const int More = First >= 0xF0 ? 3 : First >= 0xE0 ? 2 : First >= 0xC0 ? 1 : 0;
    std::uint32_t Code = More == 0 ? First : First & (0x3FU >> static_cast<unsigned>(More));
    for (int I = 0; I < More && At < Text.size(); ++I) {
        Code = (Code << 6U) | (static_cast<unsigned char>(Text[At++]) & 0x3FU);
    }
    return Code;
}

std::string PageText(std::string_view Text) {
    std::string Written;
    for (std::size_t At = 0; At < Text.size();) {
        const std::uint32_t Code = NextCharacter(Text, At);
        switch (Code) {
        case '<':
            Written += "&lt;";
            break;
        case '>':
            Written += "&gt;";
            break;
        case '&':
            Written += "&amp;";
            break;
        default:
            Written += Code < 0x80 ? std::string(1, static_cast<char>(Code)) : "&#" + std::to_string(Code) + ';';
        }
    }
    return Written;
}

} // namespace

std::string WriteDiagram(const DiagramDocument& Diagram) {
    std::string Page;
    const auto Add = [&](std::string_view Line) { Page.append(Line).append(LineEnd); };
    Add("<HTML>");
    Add("<HEAD>");
    Add("<TITLE>" + PageText(Diagram.Title) + "</TITLE>");
    Add("</HEAD>");
    Add("");
    Add("<BODY>");
    Add("<TABLE BORDER=\"1\" BORDERCOLOR=\"#000000\">");
    Add("<TR>");
    Add("<TD>");
    for (int Row = 0; Row < DiagramSquares; Row += SquaresInRow) {
        std::string Line;
        for (int Column = 0; Column < SquaresInRow; ++Column) {
            Line += "<IMG SRC=\"pieces/" + std::string(Diagram.Pictures[Row + Column]) + ".bmp\">";
        }
        Add(Line + "<BR>");
    }
    Add("</TD>");
    Add("</TR>");
    Add("</TABLE>");
    if (!Diagram.Comment.empty()) {
        Add("<BR>");
        const std::vector<std::string> Lines = base::SplitLines(Diagram.Comment);
        for (std::size_t Index = 0; Index < Lines.size(); ++Index) {
            Add(PageText(Lines[Index]) + (Index + 1 < Lines.size() ? "<BR>" : ""));
        }
    }
    Add("</BODY>");
    Add("");
    Add("</HTML>");
    return Page;
}

} // namespace zonterbrook::formats
