// The settings file, and the file of keys and values beside it.
#include "formats/settings.h"

#include "base/fault.h"
#include "formats/configuration.h"
#include "fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    using namespace zonterbrook;
    const std::string_view Text = fuzz::TextOf(Bytes, Size);
    const formats::Configuration Values = formats::ReadConfiguration(Text);
    fuzz::Expect(formats::ReadConfiguration(formats::WriteConfiguration(Values)) == Values, "values come back");
    try {
        if (const auto Read = formats::ReadSettings(Text)) {
            const auto Again = formats::ReadSettings(formats::WriteSettings(*Read));
            fuzz::Expect(Again.has_value(), "settings that are written can be read");
        }
    } catch (const base::Fault&) {
        // A number that fits no field ends a start, in words.
    }
    return 0;
}
