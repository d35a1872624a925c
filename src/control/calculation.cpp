// What a running calculation shows of itself.
//
// Reads the main line and the best score; writes label, status and progress, and the expected reply.
#include "control/calculation.h"

#include "engine/evaluate.h"
#include "view/move_lists.h"
#include "view/time_text.h"

#include <algorithm>

namespace zonterbrook::control {

namespace {

constexpr int ReplyColumn = 1;
constexpr int CaptureTag = 1;
constexpr int PromotionTag = 10;
constexpr std::size_t LogIndent = 15;

bool IsShown(const view::SettingsFields& Settings) {
    return Settings.ShowCalculation == 1;
}

game::NamedMove NamedMoveOf(const engine::MainLineMove& Move) {
    return {Move.Source, Move.Dest, Move.Tag % PromotionTag == CaptureTag, Move.Tag > CaptureTag};
}

// The reply that the main line expects.
void TakeReply(GameState& State) {
    const view::CalculationFields& Found = State.Calculated;
    const bool Expected = Found.LineLength > ReplyColumn;
    State.HintSource = Expected ? Found.Line[ReplyColumn].Source : 0;
    State.HintDest = Expected ? Found.Line[ReplyColumn].Dest : 0;
}

} // namespace

void TakeMainLine(const engine::EngineState& State, view::CalculationFields& Found) {
    const auto& Line = State.MainVariantTable[0];
    Found.LineLength = 0;
    for (int Column = 0; Column < Found.LongestLine && Line[Column].Source != 0; ++Column) {
        Found.Line[Column] = NamedMoveOf(Line[Column]);
        ++Found.LineLength;
    }
}

void NoteCalculated(GameState& State) {
    State.CalculatedFor = {engine::KeyOfPosition(State), State.Side};
}

bool BelongsToCalculation(const GameState& State) {
    return !State.CalculatedFor || *State.CalculatedFor == CalculatedPosition{engine::KeyOfPosition(State), State.Side};
}

void CalculationReport::MoveStarts(int Iteration, int Move, bool Verifying) {
    if (!IsShown(State)) {
        return;
    }
    std::string Depth = std::to_string(Iteration);
    if (Verifying) {
        Depth += "/" + std::to_string(Iteration + 1);
    }
    const game::NamedMove Searched = game::NamedMoveOf(State.MoveStack[Move]);
    view::SetStatus(State, Doing + " (" + Depth + ")  " + game::MoveName(State, Searched));
}

void CalculationReport::MoveAccepted(int Iteration, int Move) {
    // 1. What has been found.
    view::CalculationFields& Found = State.Calculated;
    using Stage = view::CalculationFields::Stage;
    Found.Stands = IsShown(State) ? Stage::Found : Stage::None;
    Found.Depth = Iteration;
    Found.Best = game::NamedMoveOf(State.MoveStack[Move]);
    Found.Score = State.BestScore;
    Found.FromBook = State.BookMoveSource >= 1;
    Found.LineLength = 0;
    if (!Found.FromBook) {
        TakeMainLine(State, Found);
        TakeReply(State);
    }

    // 2. As the log has it: what is not shown is not logged. Wanted: docs/kept_behaviour.md, "no main lines".
    BestLine = "D:" + view::SignedText(Iteration) + "   B: " + game::MoveName(State, Found.Best) +
               "   S:" + view::SignedText(Found.Score);
    MainLineText = Found.FromBook ? "Book" : IsShown(State) ? view::LineText(State, Found) : std::string();

    // 3. As the window has it.
    if (IsShown(State)) {
        view::WriteCalculation(State);
    }
}

void CalculationReport::MoveDone(double Elapsed) {
    view::ProgressFields& Bar = State.Progress;
    Bar.Value = std::clamp(State.FixedDepth == 1 ? Bar.Value + 1 : Elapsed, 0.0, Bar.Maximum);
}

void CalculationReport::IterationDone(int Iteration, double Seconds) {
    if (AlsoTold != nullptr) {
        AlsoTold->IterationDone(Iteration, Seconds);
    }
    SearchLog.append(LogIndent, ' ').append(BestLine).append("   M: ").append(MainLineText);
    SearchLog.append("  T: ").append(view::TimeString(Seconds)).append("\n");
}

} // namespace zonterbrook::control
