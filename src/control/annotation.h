// Games with what the engine thinks of each of their moves, as comments.
//
// A game hangs on nothing but its moves and rules, so that all cores are at work; the games come in their order.
#pragma once

#include "control/crew.h"
#include "control/state.h"

#include <atomic>
#include <functional>
#include <memory>

namespace zonterbrook::control {

/// Searches the position before each half-move of the game so deep, and adds value and best line to the half-move's
/// comment: "[12: d4-e5 e7-f6]", the value in hundredths of a man from the side to move. The board stands at the end of
/// the game afterwards.
void AnnotateGame(GameState& State, int Depth);

struct AnnotationPlan {
    int Games;
    int Depth;       ///< half-moves
    int Workers = 0; ///< threads; 0: as many as there are cores
};

/// The same for many games.
class Annotation {
public:
    /// `Load(Game)` lays the game of that number, from 0, on `State`. It is called by other threads, in order; `State`
    /// must be left alone as long as this lives, and is as the last game loaded left it then.
    Annotation(GameState& InState, const AnnotationPlan& Plan, std::function<void(int)> Load);

    /// Waits for the next game; null if there is none left. Throws what loading or annotating it threw. It belongs to
    /// the world of the state that was given.
    std::unique_ptr<GameState> Next();

private:
    using Game = std::unique_ptr<GameState>;

    GameState& State;
    std::atomic<bool> Stopping = false;
    Crew<Game, Game> Workers; ///< last: it uses the others
};

} // namespace zonterbrook::control
