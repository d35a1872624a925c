// A text pasted into the running program: whatever it is, the game is in order afterwards.
#include "console.h"
#include "control/clipboard.h"
#include "control/trap.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "engine/state.h"
#include "fuzzing.h"
#include "rules/position.h"

namespace {

using namespace zonterbrook;

class PastingWorld final : public probe::StillWorld {
public:
    std::string Text;

    std::string ClipboardText() override { return Text; }
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    static PastingWorld World;
    static control::GameState State(World);
    static const bool Ready = [] {
        World.Program = ZONTERBROOK_DATA_DIR;
        engine::ResetEngine(State, World);
        control::RestartGame(State);
        return true;
    }();
    fuzz::Expect(Ready, "the program has started");
    World.Text = fuzz::TextOf(Bytes, Size);
    World.Said.clear();
    control::RunTrapped(State, [] { control::Paste(State); });
    fuzz::Expect(!State.ProgramEnds, "no fault leaves the road");
    fuzz::Expect(control::CheckRest(State).empty(), "the turn is at rest");
    fuzz::Expect(rules::CheckPosition(State).empty(), "the position is in order");
    return 0;
}
