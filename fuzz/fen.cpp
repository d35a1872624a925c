// Positions in text: what has been read comes back when it is written.
#include "formats/fen.h"

#include "fuzzing.h"
#include "rules/position.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const std::string_view Text = fuzz::TextOf(Bytes, Size);
    for (int Colour = 0; Colour <= 2; ++Colour) {
        const auto Read = formats::ReadFen(Text, Colour);
        if (!Read.Document) {
            fuzz::Expect(!Read.Error.Sentence.empty(), "a refusal says why");
            continue;
        }
        fuzz::Expect(rules::IsSetupText(Read.Document->Setup), "a position has a hundred digits");
        const auto Again = formats::ReadFen(formats::WriteFen(*Read.Document, Colour), Colour);
        fuzz::Expect(Again.Document == Read.Document, "a position comes back");
    }
    return 0;
}
