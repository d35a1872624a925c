// The player's rating.
//
// Reads the record, and who made each half-move at which strength; writes the rating and its summary.
#include "control/rating.h"

#include "base/checked_number.h"
#include "view/move_lists.h"

#include <cmath>

namespace zonterbrook::control {

namespace {

using game::HalfMove;
using game::MadeBy;

constexpr int UsualFactor = 30;
constexpr int MasterRating = 2000;
constexpr int GrandmasterRating = 2400;
constexpr int GrandmasterFactor = 10;
constexpr int LowestComputer = 700;
constexpr int PerLevel = 100;
// Two men ahead, in hundredths of a man.
constexpr int OnceAhead = 199;

// Who made the first half-move of a side, 1 or 2, that was made here and not read from a file.
MadeBy FirstMover(const game::GameRecord& Record, int Side) {
    for (int Number = Side; Number <= rules::MaxGameMoves; Number += 2) {
        if (Record.HalfMoves[Number].By != MadeBy::File) {
            return Record.HalfMoves[Number].By;
        }
    }
    return MadeBy::Nobody;
}

// The strength that counts for a pair of half-moves is the one in force when its last one was made.
int LevelOfPair(const game::GameRecord& Record, int First) {
    return Record.HalfMoves[First < Record.Count ? First + 1 : First].Level;
}

struct LevelFigures {
    int Sum = 0;
    int Count = 0;
    bool Counts = true; ///< the game counts: the computer has played a side, and nobody has changed sides
};

LevelFigures WalkRecord(const game::GameRecord& Record) {
    const MadeBy Movers[] = {FirstMover(Record, 1), FirstMover(Record, 2)};
    LevelFigures Levels;
    Levels.Counts = Movers[0] == MadeBy::Computer || Movers[1] == MadeBy::Computer;
    for (int Number = 1; Number <= Record.Cursor; ++Number) {
        const MadeBy By = Record.HalfMoves[Number].By;
        const MadeBy Mover = Movers[(Number - 1) % 2];
        if (By != MadeBy::File && By != Mover) {
            Levels.Counts = false;
            return Levels;
        }
        // Who made the first half-move of the pair is asked for both. Wanted: docs/kept_behaviour.md, "Rating".
        const int First = Number - (Number + 1) % 2;
        if (Mover == MadeBy::Computer && Record.HalfMoves[First].By != MadeBy::File) {
            Levels.Sum += LevelOfPair(Record, First);
            ++Levels.Count;
        }
    }
    return Levels;
}

int RatingFactor(int Rating) {
    if (Rating < MasterRating) {
        return UsualFactor;
    }
    if (Rating > GrandmasterRating) {
        return GrandmasterFactor;
    }
    return static_cast<int>(std::nearbyint(130.0 - Rating / 20.0));
}

} // namespace

void UpdateRating(GameState& State, double Score) {
    State.RatingSummary.clear();
    if (State.UseRating == 0) {
        return;
    }
    const LevelFigures Levels = WalkRecord(State.Record);
    State.RatingAllowed = State.RatingAllowed && Levels.Counts;
    if (!State.RatingAllowed) {
        return;
    }
    if (Score == 1) {
        State.RatingSummary = GameCompliment(State.Record);
    }
    const double Average = Levels.Count == 0 ? 1 : static_cast<double>(Levels.Sum) / Levels.Count;
    const int ComputerRating = static_cast<int>(std::floor(Average * PerLevel)) + LowestComputer;
    const int Before = State.Rating;
    const double Expected = 1 / (1 + std::pow(10.0, -(Before - ComputerRating) / 400.0));
    // The rounding mode in force takes halves to the even number.
    const double After = std::nearbyint(Before + RatingFactor(Before) * (Score - Expected));
    State.Rating = base::Narrow<std::int16_t>(static_cast<std::int64_t>(After));
    State.RatingSummary += "\n\nYour previous rating was" + view::SignedText(Before) +
                           "\nThe computers' rating in this game was" + view::SignedText(ComputerRating) +
                           "\nYour new rating is" + view::SignedText(State.Rating) + "\n";
}

std::string_view GameCompliment(const game::GameRecord& Record) {
    for (int Number = Record.Cursor % 2 == 0 ? 1 : 2; Number <= Record.Cursor; Number += 2) {
        const HalfMove& Made = Record.HalfMoves[Number];
        if (Made.Depth > 1 && Made.Score > OnceAhead) {
            return "  Good game";
        }
    }
    return "  Great game";
}

} // namespace zonterbrook::control
