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

void Append(GameState& State, std::string_view Text) {
    if (State.LogOpen != 0) {
        State.Outside->AppendLog(Text);
    }
}

void AppendLine(GameState& State, std::string_view Line) {
    Append(State, std::string(Line) + "\n");
}

std::string MoveAndScore(const GameState& State, std::string_view DisplayText) {
    std::string Line = view::MoveListLine(State.GameMoves, DisplayText);
    Line.resize(std::max(Line.size(), MoveColumns), ' ');
    return Line + base::PadLeft(std::to_string(State.MoveScores[State.GameMoves]), ScoreColumns);
}

} // namespace

void OpenLog(GameState& State) {
    State.LogOpen = State.Outside->OpenLog() ? 1 : 0;
    AppendLine(State, "");
    AppendLine(State, std::string(view::ProductName) + "   " + State.Outside->Date() + "  " + State.Outside->Time());
}

void CloseLog(GameState& State) {
    if (State.LogOpen != 0) {
        State.LogOpen = 0;
        State.Outside->CloseLog();
    }
}

void WriteLogHeader(GameState& State) {
    AppendLine(State, "");
    AppendLine(State, State.VariantTitle);
    AppendLine(State, State.RuleSet.BlackStarts == 1 ? "Black   White" : "White   Black");
    AppendLine(State, Heading);
}

void LogPersonMove(GameState& State, std::string_view DisplayText) {
    AppendLine(State, MoveAndScore(State, DisplayText));
}

void LogComputerMove(GameState& State, std::string_view DisplayText, int Depth, std::string_view MainLine,
                     std::string_view SearchLog) {
    std::string Line = MoveAndScore(State, DisplayText);
    Line.append(BeforeDepth).append(base::PadLeft(std::to_string(Depth), DepthColumns));
    Line.append(BeforeMain).append(MainLine);
    AppendLine(State, Line);
    Append(State, SearchLog);
}

} // namespace zonterbrook::control
