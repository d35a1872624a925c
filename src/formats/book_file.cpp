// The reader of opening books.
#include "formats/book_file.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>

namespace zonterbrook::formats {

namespace {

constexpr std::string_view Head = "QUAVERSET Version=";
constexpr float Version = 0.89F;
constexpr std::size_t MovementsOfBlock = 4;

// A version is compared as a number of single precision; a newer one is another one.
bool IsOurVersion(std::string_view Rest) {
    Rest = base::Trim(Rest);
    float Value = 0;
    const auto Read = std::from_chars(Rest.data(), Rest.data() + Rest.size(), Value);
    return Read.ec == std::errc{} && Value == Version;
}

/// Reads lines one after the other.
class Lines {
public:
    explicit Lines(const std::vector<std::string>& InAll) : All(InAll) {}

    bool HasMore() const { return At < All.size(); }
    const std::string& Next() { return All[At++]; }

private:
    const std::vector<std::string>& All;
    std::size_t At = 1;
};

// The keys of a block up to "start"; false at the end of the file.
bool ReadKeys(Lines& Text, BookBlock& Block) {
    while (Text.HasMore()) {
        const std::string& Line = Text.Next();
        if (Line == "start") {
            return true;
        }
        const std::size_t Equals = Line.find('=');
        if (Equals == std::string::npos) {
            continue;
        }
        const std::string Key = Line.substr(0, Equals);
        if (Key != "Offset") {
            Block.Keys.emplace_back(Key, Line.substr(Equals + 1));
            continue;
        }
        while (Block.Movements.size() < MovementsOfBlock && Text.HasMore()) {
            Block.Movements.push_back(Text.Next());
        }
    }
    return false;
}

// Blanks in front of a line stand for the columns of the line before.
std::string Expanded(std::string_view Line, const std::string& Before) {
    const std::size_t First = std::min(Line.find_first_not_of(' '), Line.size());
    std::string Whole = Before.substr(0, First);
    Whole.resize(First, ' ');
    return Whole.append(Line.substr(First));
}

// The lines of a block, and the names behind them; false if the file ends before the block does.
bool ReadLines(Lines& Text, BookBlock& Block) {
    bool InNames = false;
    std::string Before;
    while (Text.HasMore()) {
        const std::string& Line = Text.Next();
        if (Line == "end") {
            return true;
        }
        if (Line == "names") {
            InNames = true;
        } else if (InNames) {
            const std::size_t Quote = Line.find('\'');
            if (Quote != std::string::npos) {
                // A name may have an apostrophe in it; the closing quote may be missing.
                const std::size_t End = Line.rfind('\'');
                const std::size_t Length = End > Quote ? End - Quote - 1 : std::string::npos;
                Block.Names.emplace_back(Line.substr(0, Quote), Line.substr(Quote + 1, Length));
            }
        } else if (!base::Trim(Line).empty()) {
            Before = Expanded(Line, Before);
            Block.Lines.push_back(Before);
        }
    }
    return false;
}

} // namespace

std::vector<std::string> MovesOfCells(std::string_view Cells) {
    std::vector<std::string> Moves;
    while (Cells.size() >= BookMove) {
        Moves.emplace_back(Cells.substr(0, BookMove));
        std::ranges::replace(Moves.back(), ' ', '0');
        Cells.remove_prefix(std::min(BookCell, Cells.size()));
    }
    return Moves;
}

BookDocument ReadBook(std::string_view Text) {
    BookDocument Book;
    const std::vector<std::string> All = base::SplitLines(Text);
    if (All.empty() || !All.front().starts_with(Head)) {
        Book.Fault = BookFault::NoBook;
        return Book;
    }
    if (!IsOurVersion(std::string_view(All.front()).substr(Head.size()))) {
        Book.Fault = BookFault::OtherVersion;
        return Book;
    }
    Lines Rest(All);
    for (BookBlock Block; ReadKeys(Rest, Block) && ReadLines(Rest, Block); Block = {}) {
        Book.Blocks.push_back(Block);
    }
    return Book;
}

} // namespace zonterbrook::formats
