// Variant files.
#include "formats/variant_file.h"

#include "fuzzing.h"
#include "rules/position.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const auto Read = formats::ReadVariant(fuzz::TextOf(Bytes, Size), rules::RuleSetFields{});
    if (Read.Document) {
        const std::string& Setup = Read.Document->Setup;
        fuzz::Expect(Setup.empty() || rules::IsSetupText(Setup), "a start position has a hundred digits");
    } else {
        fuzz::Expect(!Read.Error.Sentence.empty(), "a refusal says why");
    }
    return 0;
}
