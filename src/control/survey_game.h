// One game of a survey: the engine against itself behind an opening drawn by lot, in a world and on a state of its own.
#pragma once

#include "base/chance.h"
#include "control/ending.h"
#include "control/state.h"
#include "control/still_world.h"
#include "formats/variant_file.h"
#include "view/survey_words.h"

#include <atomic>
#include <memory>
#include <optional>

namespace zonterbrook::control {

/// Plays one game after the other; what has been played before does not matter. Throws a `base::Fault` where the rules
/// lead beyond what a generator has room for.
class SurveyGame {
public:
    /// Both must outlive it. A game ends when `Stopping` is raised, from whatever thread.
    SurveyGame(const formats::VariantDocument& InVariant, const std::atomic<bool>& InStopping);

    /// Where chance stands behind the opening that it draws from there. The rest of a game draws nothing.
    base::Chance DrawOpening(base::Chance From);
    /// The game behind that opening, at a depth of so many half-moves; nothing if it was stopped.
    std::optional<view::SurveyReport> Play(base::Chance From, int Depth);

private:
    void Begin(base::Chance From);
    std::optional<Ending> EndsNow();
    void DrawMove();
    void FindMove(int Depth);
    void MakeMove(int Move, int Choices);
    void Count(Ending How);

    const formats::VariantDocument& Variant;
    const std::atomic<bool>& Stopping;
    StillWorld World;
    std::unique_ptr<GameState> State;
    view::SurveyReport Found;
    std::int32_t Begins = 0; ///< the side that began it
    int Drawn = 0;           ///< half-moves that are still to be drawn
};

} // namespace zonterbrook::control
