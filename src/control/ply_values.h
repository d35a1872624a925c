// The ply value table: plays the game again from the present position to its end, and measures each position by
// searches of growing depth.
#pragma once

#include "control/state.h"
#include "view/ply_values.h"

#include <vector>

namespace zonterbrook::control {

/// What its window works on.
class PlyValueTool {
public:
    explicit PlyValueTool(GameState& InState) : State(InState) {}

    /// Measures the positions behind the half-moves after the present one. The cursor stands at the last row reached
    /// afterwards. May be called once.
    void Build();
    /// The same for a window's event: a failure is shown, and ends the program.
    void BuildTrapped();
    /// Ends it, with the rows so far.
    void Cancel1_Click();

    const std::vector<view::PlyRow>& Rows() const { return Measured; }
    int Depth() const { return State.PlyValueDepth; }
    /// Half-moves to measure in all.
    int Wanted() const { return State.Record.Count - Begun; }
    bool IsDone() const { return Done; }

    /// Goes to the position of a row.
    void GoTo(std::size_t Row);

private:
    bool AnalysePlyValues(view::PlyRow& Row);

    GameState& State;
    std::vector<view::PlyRow> Measured;
    int Begun = 0; ///< the half-move from which it goes on
    bool Cancelled = false;
    bool Done = false;
};

/// The command: builds the table in its window.
void BuildPlyValueTable(GameState& State);

} // namespace zonterbrook::control
