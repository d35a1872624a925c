// What a running calculation shows of itself: the calculation's label, the status bar, the progress bar. It also keeps
// the texts that the log gets. For the computer's move and for the analysis.
#pragma once

#include "control/state.h"
#include "engine/root_search.h"

#include <string>
#include <string_view>

namespace zonterbrook::control {

/// Takes over as much of the main line as is shown.
void TakeMainLine(const engine::EngineState& State, view::CalculationFields& Found);

/// Keeps which position is thought about, and tells whether it is the one on the board: else the list of the last
/// calculation holds no moves for it. Before the first calculation of a game any does.
void NoteCalculated(GameState& State);
bool BelongsToCalculation(const GameState& State);

/// Listens to a root search and shows how far it is. The second move of the line that it finds is the reply that is
/// expected, `HintSource` and `HintDest`.
class CalculationReport : public engine::RootObserver {
public:
    /// `InDoing`: what the status bar says, such as "Thinking...". `InAlsoTold`, if any, hears of each iteration, too.
    CalculationReport(GameState& InState, std::string_view InDoing, engine::RootObserver* InAlsoTold)
        : State(InState), Doing(InDoing), AlsoTold(InAlsoTold) {}

    void MoveStarts(int Iteration, int Move, bool Verifying) override;
    void MoveAccepted(int Iteration, int Move) override;
    void MoveDone(double Elapsed) override;
    void IterationDone(int Iteration, double Seconds) override;

    std::string MainLineText; ///< of the best move so far
    std::string SearchLog;    ///< a line for each iteration that was completed

private:
    GameState& State;
    std::string Doing;
    engine::RootObserver* AlsoTold;
    std::string BestLine; ///< depth, best move and score, as the log has them
};

} // namespace zonterbrook::control
