// Game files: what has been read comes back when it is written.
#include "formats/game_file.h"

#include "fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const auto Read = formats::ReadGameFile(fuzz::TextOf(Bytes, Size), {});
    if (!Read.Document) {
        fuzz::Expect(Read.Fault != formats::GameFileFault::None, "a refusal says why");
        return 0;
    }
    const auto Again = formats::ReadGameFile(formats::WriteGameFile(*Read.Document), {});
    fuzz::Expect(Again.Document.has_value(), "what is written can be read");
    // The file may have held more than one comment or name can: a third time nothing is lost any more.
    const std::string Text = formats::WriteGameFile(*Again.Document);
    fuzz::Expect(formats::WriteGameFile(formats::ReadGameFile(Text, {}).Document.value()) == Text, "it comes back");
    return 0;
}
