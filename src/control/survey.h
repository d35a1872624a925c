// A survey of a rule set: the engine plays it against itself, over and over, and counts what happens.
//
// The games hang on nothing but where chance stands when they begin, so that all cores play at once; they are counted
// in their order. The game in hand knows nothing of it.
#pragma once

#include "control/survey_game.h"

#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

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
    Survey(formats::VariantDocument InVariant, base::Chance Seed, const SurveyPlan& InPlan,
           std::function<bool()> InGoOn);
    Survey(const Survey&) = delete;
    Survey& operator=(const Survey&) = delete;
    ~Survey();

    /// Waits for one more game of the plan, and counts it; false if there is none left or the survey was stopped.
    /// Throws the game's `base::Fault`.
    bool PlayGame();

    const view::SurveyReport& Report() const { return Found; }
    /// Where chance stands behind the games that are counted.
    base::Chance Chance() const { return ChanceBehind; }

private:
    /// What becomes of one game.
    struct Result {
        bool Known = false;
        base::Chance ChanceBehind;
        view::SurveyReport Report;
        std::exception_ptr Failure;
    };

    void PlayOn();
    base::Chance Deal(Result& Game);

    const formats::VariantDocument Variant;
    const SurveyPlan Plan;
    const std::function<bool()> GoOn;
    base::Chance ChanceBehind;
    view::SurveyReport Found;
    int Counted = 0;

    // Shared by all threads, under the lock but for the flag.
    std::atomic<bool> Stopping = false;
    std::mutex Lock;
    std::condition_variable Changed;
    base::Chance NextSeed;
    int Dealt = 0;
    SurveyGame Dealer;
    std::vector<Result> Results;

    std::vector<std::jthread> Players; ///< last, so that they have ended before anything else goes
};

} // namespace zonterbrook::control
