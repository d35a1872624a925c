// The move generators.
//
// `GenerateMoves` lists the legal moves of any rule set. Four rule sets have a generator with their rules folded in,
// and `GenerateMoves1` only answers whether there is a move. All of them are one capture walk (capture_walk.h).
#pragma once

#include "rules/state.h"

#include <string>
#include <string_view>

namespace zonterbrook::rules {

/// A fault inside a generator. The board is not to be trusted afterwards; the program says `what()` and ends.
class GeneratorFault : public base::Fault {
public:
    GeneratorFault(std::string_view InRoutine, const std::string& Message) : Fault(Message), Routine(InRoutine) {}

    /// The generator's name.
    std::string_view Routine;
};

/// Lists the moves of the side to move from `StackLimit[Ply]` and sets `StackLimit[Ply + 1]`. `AllMoves` 1 lists plain
/// moves and captures; 0 captures only, unless captures are optional; a negative value captures only in any case.
/// Throws a `GeneratorFault`.
void GenerateMoves(RulesState& State, int AllMoves);

/// A generator by name: one call, and the two-step form that lists captures first and all moves only if there are none.
struct Generator {
    std::string_view Name;
    void (*Generate)(RulesState& State, int AllMoves);
    void (*GenerateBoth)(RulesState& State);
    /// True if `Generate` would list nothing after a step that has not been made. Sees it at a glance: false does not
    /// mean that there is a move.
    bool (*ListsNothingAfterStep)(const RulesState& State, int AllMoves, int Index, int From, int To);
};

/// The generator of a recognised rule set; the generic one for none.
const Generator& GeneratorOf(KnownRules Id);

/// Captures first, and only if there are none, all moves: the moves that may be played.
void GenerateLegalMoves(RulesState& State);

/// The same for the game's own position rather than for a node of a search: there the rule `LastCap` binds.
void GenerateGameMoves(RulesState& State);

/// While it lives, moves are generated for the game's own position.
class GamePositionScope {
public:
    explicit GamePositionScope(RulesState& InState) : State(InState), Before(InState.AtGamePosition) {
        State.AtGamePosition = 1;
    }
    GamePositionScope(const GamePositionScope&) = delete;
    GamePositionScope& operator=(const GamePositionScope&) = delete;
    ~GamePositionScope() { State.AtGamePosition = Before; }

private:
    RulesState& State;
    std::int32_t Before;
};

/// True if the side to move has a move. Leaves the move stack alone but for entries from off the board, which it puts
/// there and does not count (docs/kept_behaviour.md). Throws a `GeneratorFault`.
bool GenerateMoves1(RulesState& State, int AllMoves);

/// Moves on the stack at the present ply.
inline int MoveCountOfPly(const RulesState& State) {
    return State.StackLimit[State.Ply + 1] - State.StackLimit[State.Ply];
}

} // namespace zonterbrook::rules
