// Opening books.
#include "formats/book_file.h"

#include "fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const auto Read = formats::ReadBookFile(fuzz::TextOf(Bytes, Size));
    fuzz::Expect(Read.Document.has_value() == (Read.Fault == formats::BookFileFault::None), "a refusal says why");
    if (!Read.Document) {
        return 0;
    }
    for (const formats::BookBlock& Block : Read.Document->Blocks) {
        for (const std::string& Line : Block.Lines) {
            fuzz::Expect(Line.size() % formats::BookCellLength != formats::BookMoveLength, "every move has a mark");
        }
    }
    return 0;
}
