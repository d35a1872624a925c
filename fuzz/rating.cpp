// The characters of the rating's file.
#include "base/text.h"
#include "formats/settings.h"
#include "fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const std::string_view Text = fuzz::TextOf(Bytes, Size);
    const std::string Decoded = formats::DecodeRatingText(formats::RatingDigits, Text);
    fuzz::Expect(Decoded.size() == Text.size(), "a character for each");
    if (Decoded.find('/') == std::string::npos) {
        fuzz::Expect(formats::EncodeRatingText(formats::RatingDigits, Decoded) == Text, "digits come back");
    }
    base::LenientNumber(Text);
    return 0;
}
