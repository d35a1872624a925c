// Comments by the engine.
#include "control/annotation.h"

#include "base/text.h"
#include "control/calculation.h"
#include "control/ending.h"
#include "control/navigation.h"
#include "control/still_world.h"
#include "engine/root_search.h"
#include "rules/generate.h"
#include "view/move_lists.h"

#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

/// Keeps the line of the best move.
class LineObserver final : public engine::RootObserver {
public:
    explicit LineObserver(const GameState& InState) : State(InState) {}
    void MoveAccepted(int /*Iteration*/, int /*Move*/) override { TakeMainLine(State, Found); }
    std::string Text() const { return std::string(base::Trim(view::LineText(State, Found))); }

private:
    const GameState& State;
    view::CalculationFields Found;
};

// What the engine thinks of the position on the board; empty if there is no move.
std::string Verdict(GameState& State, int Depth) {
    engine::PrepareSearch(State);
    State.Noise = 0;
    State.CancelRequested = rules::StopRequest::None;
    SetMoveLimit(State);
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) == 0) {
        return {};
    }
    LineObserver Watching(State);
    engine::RootSearch(State, {Depth, false, 0}, State.Outside().Seconds(), Watching);
    State.DrawPending = 0;
    return '[' + std::to_string(State.BestScore) + ": " + Watching.Text() + ']';
}

/// Annotates one game after the other in a world of its own.
class Annotator {
public:
    Annotator(int InDepth, const std::atomic<bool>& InStopping) : Depth(InDepth), Stopping(InStopping) {}

    void Annotate(GameState& Game) {
        World.OnTurn = [&] {
            if (Stopping) {
                Game.CancelRequested = rules::StopRequest::Person;
            }
        };
        Game.World = &World;
        AnnotateGame(Game, Depth);
    }

private:
    const int Depth;
    const std::atomic<bool>& Stopping;
    StillWorld World;
};

} // namespace

void AnnotateGame(GameState& State, int Depth) {
    NavigateMoves(State, State.Record.Cursor);
    for (int Number = 1; Number <= State.Record.Count; ++Number) {
        std::string& Comment = State.Record.HalfMoves[Number].Comment;
        const std::string Says = Verdict(State, Depth);
        Comment += (Comment.empty() || Says.empty() ? "" : " ") + Says;
        NavigateMoves(State, -1);
    }
}

Annotation::Annotation(GameState& InState, const AnnotationPlan& Plan, std::function<void(int)> Load)
    : State(InState), Workers(
                          Plan.Games, Plan.Workers,
                          [this, Load = std::move(Load)](int Number) {
                              Load(Number);
                              return std::make_unique<GameState>(State);
                          },
                          [this, Depth = Plan.Depth] {
                              return [Hired = std::make_shared<Annotator>(Depth, Stopping)](Game Begun) {
                                  Hired->Annotate(*Begun);
                                  return Begun;
                              };
                          },
                          [] { return true; }, Stopping) {}

std::unique_ptr<GameState> Annotation::Next() {
    auto Done = Workers.Next();
    if (!Done) {
        return nullptr;
    }
    (*Done)->World = State.World;
    return *std::move(Done);
}

} // namespace zonterbrook::control
