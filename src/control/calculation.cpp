// What a running calculation shows of itself.
//
// Reads the main line and the best score; writes label, status and progress, and the expected reply.
#include "control/calculation.h"

#include "control/time_text.h"
#include "rules/square_names.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::control {

namespace {

constexpr int ShownMoves = 20;
constexpr int ReplyColumn = 1;
constexpr int CaptureTag = 1;
constexpr int PromotionTag = 10;
constexpr std::size_t LogIndent = 15;
constexpr std::string_view BookText = "Book";

bool IsShown(const GameState& State) {
    return State.ShowCalculation == 1;
}

std::string MainLineMoveText(const GameState& State, const rules::MainLineMove& Move) {
    std::string Text = rules::SquareNotation(State, Move.Source, rules::Padding::None);
    if (Move.Tag % PromotionTag == CaptureTag) {
        Text += State.CaptureChar;
    } else if (Move.Source != rules::FromHand) {
        Text += '-';
    }
    Text += rules::SquareNotation(State, Move.Dest, rules::Padding::None);
    return Move.Tag > CaptureTag ? Text + 'K' : Text;
}

} // namespace

std::string DisplayMainVariant(GameState& State) {
    std::string Text;
    State.HintSource = 0;
    State.HintDest = 0;
    const auto& Line = State.MainVariantTable[0];
    for (int Column = 0; Column <= rules::MaxPly && Line[Column].Source != 0; ++Column) {
        if (Column == ReplyColumn) {
            State.HintSource = Line[Column].Source;
            State.HintDest = Line[Column].Dest;
        }
        if (Column < ShownMoves && IsShown(State)) {
            Text += MainLineMoveText(State, Line[Column]) + ' ';
        }
    }
    if (IsShown(State)) {
        State.Calculation.Text += "\nMain: " + Text;
    }
    return Text;
}

void CalculationReport::MoveStarts(int Iteration, int Move, bool Verifying) {
    if (!IsShown(State)) {
        return;
    }
    rules::DisplayMove(State, Move);
    std::string Depth = std::to_string(Iteration);
    if (Verifying) {
        Depth += "/" + std::to_string(Iteration + 1);
    }
    view::SetStatus(State, Doing + " (" + Depth + ")  " + std::string(State.MoveText.View()));
}

void CalculationReport::MoveAccepted(int Iteration, int Move) {
    rules::DisplayMove(State, Move);
    const std::string MoveText(State.MoveText.View());
    const std::string Depth = view::SignedText(Iteration);
    const std::string Score = view::SignedText(State.BestScore);
    BestLine = "D:" + Depth + "   B: " + MoveText + "   S:" + Score;
    if (IsShown(State)) {
        State.Calculation.Text = "Depth:" + Depth + "   Best: " + MoveText + "   Score:" + Score;
    }
    if (State.BookMoveSource < 1) {
        MainLineText = DisplayMainVariant(State);
    } else {
        MainLineText = BookText;
        if (IsShown(State)) {
            State.Calculation.Text.append("\n").append(BookText);
        }
    }
}

void CalculationReport::MoveDone(double Elapsed) {
    view::ProgressFields& Bar = State.Progress;
    Bar.Value = std::clamp(State.FixedDepth == 1 ? Bar.Value + 1 : Elapsed, 0.0, Bar.Maximum);
}

void CalculationReport::IterationDone(int /*Iteration*/, double Seconds) {
    SearchLog.append(LogIndent, ' ').append(BestLine).append("   M: ").append(MainLineText);
    SearchLog.append("  T: ").append(TimeString(Seconds, false)).append("\n");
}

} // namespace zonterbrook::control
