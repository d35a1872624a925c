// The alpha-beta search below the root: twelve routines of one shape.
//
// Seven play, five are quick searches for hints and tools. Each pairs a generator with an evaluator and has a few
// differences, which all stand in one policy (search.cpp). No routine copies the position or allocates.
#pragma once

#include "engine/state.h"

#include <span>
#include <string_view>

namespace zonterbrook::engine {

/// A node of the search. `Alpha` and `Depth` are narrowed and extended through their references, and callers rely on
/// it. Returns the score from the side to move. The position is as before on every return.
using SearchFunction = std::int32_t (*)(EngineState& State, std::int32_t& Alpha, std::int32_t Beta,
                                        std::int32_t& Depth);
using EvaluateFunction = std::int32_t (*)(EngineState& State, std::int32_t Alpha, std::int32_t Beta, std::int32_t Side);

/// The seven routines that play, or the five quick ones: what stops the one doesn't stop the other.
enum class SearchFamily { Playing, Quick };

/// While it lives, moves are generated for the nodes of a search, and long capture walks give the world its turn and
/// end when the search is to stop.
class SearchScope {
public:
    SearchScope(EngineState& InState, SearchFamily Family);
    SearchScope(const SearchScope&) = delete;
    SearchScope& operator=(const SearchScope&) = delete;
    ~SearchScope();

private:
    EngineState& State;
    std::int32_t AtGamePositionBefore;
    bool (*InterruptsBefore)(rules::RulesState&);
};

/// One of the twelve.
struct SearchRoutine {
    std::string_view Name;
    SearchFunction Search;
    EvaluateFunction Evaluate;
};

std::span<const SearchRoutine> SearchRoutines();

/// The routine with exactly this name, or nullptr.
const SearchRoutine* FindSearchRoutine(std::string_view Name);

/// The routine by which the computer plays the rule set in force.
const SearchRoutine& PlayingRoutine(const EngineState& State);

/// The same of the quick family.
const SearchRoutine& QuickRoutine(const EngineState& State);

/// A quick score of the position after a move has just been made, from the view of the side that made it.
void QuickScore(EngineState& State, std::int32_t& Value);
void QuickScoreDepth(EngineState& State, std::int32_t& Depth, std::int32_t& Value);

/// No line leads on from a ply, and no move of it is wanted.
inline void ClearMainVariant(EngineState& State, int Ply) {
    State.MainVariantTable[Ply][Ply].Source = 0;
    State.Wanted[Ply].MainLine.Source = 0;
}

/// Stores record `Move` as the best of this ply and appends the line below it.
void UpdateMainVariant(EngineState& State, int Move);

} // namespace zonterbrook::engine
