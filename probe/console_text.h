// What the commands of the console share: their arguments, and lines that several of them answer with.
#pragma once

#include "base/text.h"
#include "engine/root_search.h"
#include "rules/moves.h"

#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zonterbrook::probe {

/// What is wrong with a command.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline std::vector<std::string_view> SplitWords(std::string_view Text) {
    std::vector<std::string_view> Words;
    while (!(Text = base::Trim(Text)).empty()) {
        const std::size_t End = Text.find_first_of(" \t");
        Words.push_back(Text.substr(0, End));
        Text.remove_prefix(End == std::string_view::npos ? Text.size() : End);
    }
    return Words;
}

inline void ExpectCount(const std::vector<std::string_view>& Words, std::size_t Least, std::size_t Most) {
    if (Words.size() < Least || Words.size() > Most) {
        throw CommandError(Words.size() < Least ? "too few arguments" : "too many arguments");
    }
}

inline std::int64_t Number(std::string_view Text, std::int64_t Lowest, std::int64_t Highest) {
    std::int64_t Value = 0;
    const auto Result = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
    if (Result.ec != std::errc{} || Result.ptr != Text.data() + Text.size()) {
        throw CommandError("'" + std::string(Text) + "' is no number");
    }
    if (Value < Lowest || Value > Highest) {
        throw CommandError(std::string(Text) + " is not within " + std::to_string(Lowest) + " to " +
                           std::to_string(Highest));
    }
    return Value;
}

inline int SmallNumber(std::string_view Text, int Lowest, int Highest) {
    return static_cast<int>(Number(Text, Lowest, Highest));
}

inline std::int32_t WideNumber(std::string_view Text) {
    return static_cast<std::int32_t>(Number(Text, INT32_MIN, INT32_MAX));
}

/// A text of several lines in one: line ends are written as in a program's text.
inline std::string OneLine(std::string_view Text) {
    std::string Line;
    for (const char C : Text) {
        Line += C == '\n' ? std::string("\\n") : std::string(1, C);
    }
    return Line;
}

/// Writes one line for each iteration.
class IterationLines final : public engine::RootObserver {
public:
    explicit IterationLines(const engine::EngineState& InState) : State(InState) {}

    void IterationDone(int Iteration, double /*Seconds*/) override {
        const rules::MoveRecord& Best = State.MoveStack[0];
        Text += "depth " + std::to_string(Iteration) + " score " + std::to_string(State.BestScore) + " best " +
                std::to_string(Best.Source) + '-' + std::to_string(Best.Dest) + " nodes " +
                std::to_string(State.NodeCount) + '\n';
    }

    std::string Text;

private:
    const engine::EngineState& State;
};

} // namespace zonterbrook::probe
