// A search that looks further than the one that plays: the upper plies over a table of positions, the last ones by the
// engine's own routine, whose values it gives.
#pragma once

#include "engine/search.h"

#include <vector>

namespace zonterbrook::tools {

/// A move of the root and what it is worth to the side to move, in hundredths of a man.
struct JudgedMove {
    std::int32_t Source = 0;
    std::int32_t Dest = 0;
    std::int32_t Score = 0;
};

class DeepSearch {
public:
    explicit DeepSearch(engine::EngineState& InState) : State(InState), Table(Entries) {}

    /// The best move of the position on the board, searched to `Depth` plies, and in front of it nothing; behind it
    /// those that are worse by less than `Margin`, by a shallower look at them, `Most` in all. Of moves between the
    /// same cells only the first one counts. Empty if there is no move. Forgets all that it knew of other positions.
    std::vector<JudgedMove> BestMoves(int Depth, std::int32_t Margin, std::size_t Most);

    /// Every move of the root with its exact score at `Depth`, the best one first.
    std::vector<JudgedMove> RankMoves(int Depth);

private:
    static constexpr std::size_t Entries = std::size_t{1} << 24;
    static constexpr int EngineDepth = 2; ///< plies that the engine's own routine searches

    struct Entry {
        std::uint64_t Key = 0;
        std::int16_t Score = 0;
        std::int16_t Depth = -1;
        std::int8_t Bound = 0; ///< -1: the score is at most this, 1: at least, 0: exactly
        std::uint8_t Source = 0;
        std::uint8_t Dest = 0;
    };

    void Begin();
    std::vector<JudgedMove> RootMoves();
    std::int32_t TryRoot(const JudgedMove& Move, int Depth, std::int32_t Alpha, std::int32_t Beta);
    void SearchBest(std::vector<JudgedMove>& Moves, int Depth);
    std::int32_t Node(std::int32_t Alpha, std::int32_t Beta, int Depth);
    std::uint64_t KeyOfBoard() const;

    engine::EngineState& State;
    std::vector<Entry> Table;
};

} // namespace zonterbrook::tools
