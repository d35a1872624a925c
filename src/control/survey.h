// A survey of a rule set: the engine plays it against itself, over and over, and counts what happens.
//
// The games hang on nothing but where chance stands when they begin, so that all cores play at once; they are counted
// in their order. The game in hand knows nothing of it.
#pragma once

#include "control/crew.h"
#include "control/survey_game.h"

#include <atomic>
#include <functional>

namespace zonterbrook::control {

struct SurveyPlan {
    int Games;
    int Depth;       ///< half-moves
    int Players = 0; ///< threads that play; 0: as many as there are cores
};

class Survey {
public:
    /// The games of one seed are always the same, whoever plays them. `GoOn` is asked every so often by the thread that
    /// waits for a game: it may let a window work, and stops the survey by answering no.
    Survey(formats::VariantDocument InVariant, base::Chance Seed, const SurveyPlan& Plan, std::function<bool()> GoOn);

    /// Waits for one more game of the plan, and counts it; false if there is none left or the survey was stopped.
    /// Throws the game's `base::Fault`.
    bool PlayGame();

    const view::SurveyReport& Report() const { return Found; }
    /// Where chance stands behind the games that are counted.
    base::Chance Chance() const { return ChanceBehind; }

private:
    /// Where chance stands before a game's opening and behind it.
    struct Opening {
        base::Chance Before;
        base::Chance Behind;
    };
    struct Played {
        std::optional<view::SurveyReport> Report; ///< nothing if the game was stopped
        base::Chance ChanceBehind;
    };

    const formats::VariantDocument Variant;
    std::atomic<bool> Stopping = false;
    base::Chance ChanceBehind;
    view::SurveyReport Found;
    base::Chance NextSeed;
    SurveyGame Dealer;
    Crew<Opening, Played> Players; ///< last: it uses the others
};

} // namespace zonterbrook::control
