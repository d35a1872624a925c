// Opening books.
#include "formats/book_file.h"

#include "fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const formats::BookDocument Book = formats::ReadBook(fuzz::TextOf(Bytes, Size));
    fuzz::Expect(Book.Fault == formats::BookFault::None || Book.Blocks.empty(), "what is no book has no lines");
    for (const formats::BookBlock& Block : Book.Blocks) {
        fuzz::Expect(Block.Movements.size() <= 4, "as many movements as there are kinds of pieces");
        for (const std::string& Line : Block.Lines) {
            for (const std::string& Move : formats::MovesOfCells(Line)) {
                fuzz::Expect(Move.size() == formats::BookMove, "a move is whole");
            }
        }
    }
    return 0;
}
