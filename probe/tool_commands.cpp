// The commands of the engine as adviser: hint, analysis, ply values, problems.
#include "console.h"
#include "console_text.h"
#include "control/analysis.h"
#include "control/book.h"
#include "control/hint.h"
#include "control/ply_values.h"
#include "control/problems.h"
#include "control/turn_state.h"
#include "formats/text_file.h"
#include "view/move_lists.h"

namespace zonterbrook::probe {

std::string Console::SetBookFolder(std::string_view Folder) {
    std::error_code Error;
    const std::filesystem::path Path = formats::TextPath(Folder);
    if (Folder.empty() || !std::filesystem::is_directory(Path, Error)) {
        throw CommandError("'" + std::string(Folder) + "' is no folder");
    }
    State->BookFolder = Path;
    State->Book.reset();
    return {};
}

std::string Console::Book() {
    NeedGame();
    World.Said.clear();
    const control::BookAnswer Answer = control::AskBook(*State);
    std::string Text = TakeMessages() + "inbook " + (Answer.InBook ? '1' : '0') + '\n';
    for (const std::string& Candidate : Answer.Candidates) {
        Text += "candidate " + Candidate + '\n';
    }
    return Text + "name " + Answer.Name + '\n';
}

std::string Console::Hint(const Words& Arguments) {
    ExpectCount(Arguments, 0, 1);
    if (!Arguments.empty() && Arguments[0] != "noise") {
        throw CommandError("'" + std::string(Arguments[0]) + "' is not known");
    }
    NeedGame();
    World.Said.clear();
    HasList = false;
    if (!control::IsOver(*State)) {
        control::ShowHint(*State, Arguments.empty() ? 0 : control::HintNoise);
        State->Noise = 0;
    }
    return TakeMessages();
}

std::string Console::Analyze(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    const int Depth = SmallNumber(Arguments[0], 1, rules::MaxPly);
    NeedGame();
    World.Said.clear();
    HasList = false;
    State->FixedDepth = 1;
    State->SearchDepth = static_cast<std::uint8_t>(Depth);
    IterationLines Lines(*State);
    control::AnalyzeNow(*State, &Lines);
    return Lines.Text + TakeMessages() + "status " + State->StatusPanels[view::StatusPanel] + '\n';
}

std::string Console::PlyValues(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    const int Depth = SmallNumber(Arguments[0], 1, view::DeepestPly);
    NeedGame();
    HasList = false;
    State->PlyValueDepth = static_cast<std::uint8_t>(Depth);
    std::string Text;
    if (control::IsOver(*State)) {
        return Text;
    }
    control::PlyValueTool Tool(*State);
    Tool.Build();
    for (const view::PlyRow& Row : Tool.Rows()) {
        const game::HalfMove& Made = State->Record.HalfMoves[Row.HalfMove];
        Text += "row " + std::to_string(Row.HalfMove) + ' ' +
                game::RawMove(State->NotationMode, game::NamedMoveOf(Made.Played.Record)) + " values";
        for (int Ply = 1; Ply <= Depth; ++Ply) {
            Text += ' ' + std::to_string(Row.Values[Ply]);
        }
        Text += " diff " + std::to_string(Row.Diff) + " flag " + (Row.Flagged ? '1' : '0') + " line " +
                std::string(base::Trim(Row.Line)) + '\n';
    }
    return Text;
}

std::string Console::Problems(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    const int Depth = SmallNumber(Arguments[0], 1, view::DeepestPly);
    NeedGame();
    World.Said.clear();
    HasList = false;
    State->PlyValueDepth = static_cast<std::uint8_t>(Depth);
    std::string Text;
    std::size_t Count = 0;
    if (!control::IsOver(*State)) {
        const auto Found = control::SearchProblems(*State);
        for (const control::Finding& Each : Found) {
            Text += Each.Text + '\n';
        }
        Count = Found.size();
    }
    return TakeMessages() + Text + "found " + std::to_string(Count) + '\n';
}

} // namespace zonterbrook::probe
