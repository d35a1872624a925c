// The ply value table.
#include "control/ply_values.h"

#include "control/calculation.h"
#include "control/input_state.h"
#include "control/navigation.h"
#include "control/trap.h"
#include "control/turn_state.h"
#include "engine/quick_root.h"
#include "engine/root_search.h"
#include "rules/generate.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <limits>

namespace zonterbrook::control {

namespace {

constexpr std::int16_t LostWithoutMove = -32000;
constexpr std::int16_t WonWithoutMove = 31999;

/// Keeps the value of each depth, and the line of the best move.
class RowObserver final : public engine::QuickObserver {
public:
    RowObserver(const GameState& InState, view::PlyRow& InRow) : State(InState), Row(InRow) {}

    void MoveAccepted(int /*Iteration*/, int /*Move*/) override { TakeMainLine(State, Found); }
    void IterationDone(int Iteration) override {
        Row.Values[Iteration] = static_cast<std::int16_t>(State.BestScore);
        Deepest = Iteration;
    }

    /// The line's text, and how many of its moves capture.
    void Finish() {
        Row.Line = view::LineText(State, Found);
        for (int I = 0; I < Found.LineLength; ++I) {
            Captures += Found.Line[I].Captures ? 1 : 0;
        }
    }

    int Deepest = 0;
    int Captures = 0;

private:
    const GameState& State;
    view::PlyRow& Row;
    view::CalculationFields Found;
};

std::int16_t HeldInRange(std::int32_t Value) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<std::int32_t>(Value, Limits::min(), Limits::max()));
}

} // namespace

// The position behind the half-move that has just been stepped over; false where it was stopped.
bool PlyValueTool::AnalysePlyValues(view::PlyRow& Row) {
    // 1. A side without a reply needs no search.
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) == 0) {
        Row.Values.Fill(State.RuleSet.AntiMode == 1 ? WonWithoutMove : LostWithoutMove);
        Row.Flagged = true;
        return true;
    }

    // 2. The search, deeper and deeper.
    const double Started = State.Outside().Seconds();
    RowObserver Watching(State, Row);
    engine::QuickRootSearch(State, engine::ToolPolicy, State.PlyValueDepth, Watching);
    Watching.Finish();
    Row.Seconds = HeldInRange(static_cast<std::int32_t>(engine::ElapsedSeconds(Started, State.Outside().Seconds())));

    // 3. What has changed on the way down. With one ply there is no second to compare with.
    Row.Diff = HeldInRange(Row.Values[Watching.Deepest] - Row.Values[2]);
    Row.Flagged = view::IsCombination(Row, Watching.Deepest, Watching.Captures);
    return State.StopQuickSearch != 1;
}

void PlyValueTool::Build() {
    // 1. A tool is at work.
    Begun = State.Record.Cursor;
    State.StopQuickSearch = 0;
    State.HintSource = 0;
    State.HintDest = 0;
    ClearInput(State);
    EnterTurn(State, TurnState::Measuring);
    engine::InitEngineThresholds(State);
    view::SetStatus(State, "Searching...");
    State.Progress = {0, static_cast<double>(std::max(1, Wanted() * Depth()))};

    // 2. A row for each half-move.
    while (!Cancelled && StepForTool(State)) {
        view::PlyRow Row;
        Row.HalfMove = State.Record.Cursor;
        Row.Move = view::HalfMoveText(State, State.Record.Last());
        Cancelled = !AnalysePlyValues(Row) || Cancelled;
        Measured.push_back(std::move(Row));
        State.Progress.Value += Depth();
        State.Outside().Refresh();
    }

    // 3. The game stands at the last row.
    State.StopQuickSearch = 0;
    State.StopAutoPlay = 0;
    State.CancelRequested = rules::StopRequest::None;
    State.Progress.Value = 0;
    Done = true;
    SettleAfterTool(State);
}

void PlyValueTool::BuildTrapped() {
    RunTrapped(State, [this] { Build(); });
}

void PlyValueTool::Cancel1_Click() {
    Cancelled = true;
    if (CanCancel(State)) {
        AskForStop(State);
    }
}

void PlyValueTool::GoTo(std::size_t Row) {
    if (!Done || Row >= Measured.size() || IsBusy(State)) {
        return;
    }
    RunTrapped(State, [&] { NavigateMoves(State, State.Record.Cursor - Measured[Row].HalfMove); });
    State.Outside().Refresh();
}

void BuildPlyValueTable(GameState& State) {
    PlyValueTool Tool(State);
    State.Outside().ShowPlyValues(Tool);
}

} // namespace zonterbrook::control
