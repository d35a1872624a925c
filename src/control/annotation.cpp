// Comments by the engine.
#include "control/annotation.h"

#include "base/text.h"
#include "control/calculation.h"
#include "control/ending.h"
#include "control/navigation.h"
#include "engine/root_search.h"
#include "rules/generate.h"
#include "view/move_lists.h"

#include <string>

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

} // namespace zonterbrook::control
