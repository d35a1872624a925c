// A survey of a rule set: the engine plays it against itself, over and over, and counts what happens.
//
// It plays in a world and on a state of its own; the game in hand knows nothing of it.
#pragma once

#include "base/chance.h"
#include "control/ending.h"
#include "control/state.h"
#include "control/still_world.h"
#include "formats/variant_file.h"
#include "view/survey_words.h"

#include <functional>
#include <memory>

namespace zonterbrook::control {

class Survey {
public:
    /// The games of one seed are always the same. `GoOn` is asked every so often while the engine thinks: it may let a
    /// window work, and stops the survey by answering no.
    Survey(formats::VariantDocument InVariant, base::Chance Seed, std::function<bool()> InGoOn);

    /// Plays one more game at a depth of so many half-moves, behind four half-moves drawn by lot; false if it was
    /// stopped, and then the game does not count. Throws a `base::Fault` where the rules lead beyond what a generator
    /// has room for.
    bool PlayGame(int Depth);

    const view::SurveyReport& Report() const { return Found; }
    /// Where chance stands.
    base::Chance Chance() const { return World.Chance; }

private:
    void Begin();
    bool MakeMove(int Depth);
    void Count(Ending How);

    formats::VariantDocument Variant;
    std::function<bool()> GoOn;
    bool Stopped = false;
    StillWorld World;
    std::unique_ptr<GameState> State;
    view::SurveyReport Found;
    view::SurveyReport Game; ///< sums of the game that is being played
    std::int32_t Begins = 0; ///< the side that began it
    int Drawn = 0;           ///< half-moves that are still to be drawn
};

} // namespace zonterbrook::control
