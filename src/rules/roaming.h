// Where the pieces of a game may ever get, whatever is played: what the check of a rule set goes by.
//
// Nothing stands in anybody's way here, and a piece may be taken wherever one of its kind may ever stand. So more is
// found than play allows, and what is not found is out of reach for certain.
#pragma once

#include "base/checked_array.h"
#include "rules/state.h"

#include <cstdint>
#include <functional>

namespace zonterbrook::rules {

/// The mailbox row on which a colour (0 White, 1 Black) enters pieces from off the board, and the one that must be free
/// for it. Neither need lie on the board.
struct EntryRows {
    std::int64_t Enters;
    std::int64_t Free;
};
EntryRows EntryRowsOf(const RuleSetFields& Rules, int Colour);

/// True for the mailbox rows of the board, 2 to 11.
bool IsBoardRow(std::int64_t Row);

/// The squares on which pieces are meant to stand.
CellSet PlayedCells(const RulesState& State);

/// The steps of a column of the step table.
int StepCount(const DirectionColumn& Column);

/// Reckons from the position on the board and the rules installed. The state must outlive it.
class Roaming {
public:
    explicit Roaming(const RulesState& InState);

    /// Whether there may ever be a piece of this index.
    bool May(int Index) const { return Stands[Index].Any(); }
    bool MayHaveMen() const { return May(0) || May(1); }
    bool MayHaveKings() const { return May(2) || May(3); }
    /// Whether a man may ever come to one of its promotion squares.
    bool MayCrown() const { return Crowns; }
    /// Whether a piece may ever capture at a distance.
    bool MayFly() const;
    /// Whether the capture step `Entry` of a piece may ever find something to take.
    bool MayTake(int Index, int Entry) const { return Takes[Index][Entry]; }
    /// The cells on which a piece may ever stand.
    const CellSet& StandsOn(int Index) const { return Stands[Index]; }
    /// The cells from which a man of this colour may come to a promotion square of its own.
    CellSet MayBeCrownedFrom(int Colour) const;

private:
    bool CrownsOnTheWay() const;
    bool FliesCapturing(int Index) const;
    void VisitMoves(int Index, int Cell, const std::function<void(int Dest, int CaptureEntry)>& Land) const;
    void Spread();
    void Arrive(int Index, int Cell);

    const RulesState& State;
    base::CheckedArray<CellSet, PieceIndices> Stands{};
    base::CheckedArray<base::CheckedArray<bool, DirectionEntries>, PieceIndices> Takes{};
    bool Crowns = false;
};

} // namespace zonterbrook::rules
