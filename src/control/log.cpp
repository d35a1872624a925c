// The lines of the running log. Where the text goes is the platform's business.
#include "control/log.h"

#include "base/text.h"
#include "view/move_lists.h"

#include <string>

namespace zonterbrook::control {

namespace {

// The columns of the heading, which the lines of the moves stand under.
constexpr std::string_view Heading = "      moves    score   depth    main";
constexpr std::size_t MoveColumns = 14;
constexpr std::size_t ScoreColumns = 6;
constexpr std::size_t DepthColumns = 2;
constexpr std::string_view BeforeDepth = "      ";
constexpr std::string_view BeforeMain = "    ";

void AppendLine(const GameState& State, std::string_view Line) {
    AppendLog(State, std::string(Line) + "\n");
}

void WriteHeading(const GameState& State) {
    AppendLine(State, "");
    AppendLine(State, State.VariantTitle);
    AppendLine(State, State.RuleSet.BlackStarts == 1 ? "Black   White" : "White   Black");
    AppendLine(State, Heading);
}

std::string MoveAndScore(const GameState& State) {
    std::string Line = view::GameLine(State, State.Record, State.Record.Cursor);
    Line.resize(std::max(Line.size(), MoveColumns), ' ');
    return Line + base::PadLeft(std::to_string(State.Record.Last().Score), ScoreColumns);
}

} // namespace

void OpenLog(GameState& State) {
    State.LogOpen = State.Outside().OpenLog();
    AppendLine(State, "");
    AppendLine(State, std::string(view::ProductName) + "   " + State.Outside().Date() + "  " + State.Outside().Time());
}

void CloseLog(GameState& State) {
    if (State.LogOpen) {
        State.LogOpen = false;
        State.Outside().CloseLog();
    }
}

void AppendLog(const GameState& State, std::string_view Text) {
    if (State.LogOpen) {
        State.Outside().AppendLog(Text);
    }
}

void LogMove(const GameState& State) {
    if (State.Record.Cursor == 1) {
        WriteHeading(State);
    }
    AppendLine(State, MoveAndScore(State));
}

void LogComputerMove(const GameState& State, std::string_view MainLine, std::string_view SearchLog) {
    if (State.Record.Cursor == 1) {
        WriteHeading(State);
    }
    std::string Line = MoveAndScore(State);
    Line.append(BeforeDepth).append(base::PadLeft(std::to_string(State.Record.Last().Depth), DepthColumns));
    Line.append(BeforeMain).append(MainLine);
    AppendLine(State, Line);
    AppendLog(State, SearchLog);
}

} // namespace zonterbrook::control
