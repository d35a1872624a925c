// The commands of the engine as adviser: hint, analysis, ply values, problems.
#include "console.h"
#include "console_text.h"
#include "control/analysis.h"
#include "control/annotation.h"
#include "control/book.h"
#include "control/hint.h"
#include "control/pdn_game.h"
#include "control/ply_values.h"
#include "control/problems.h"
#include "control/saved_game.h"
#include "control/turn_state.h"
#include "formats/pdn_index.h"
#include "formats/text_file.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::probe {

// A game at a time, each written as soon as it is done: a run that was stopped goes on behind the games that are there.
std::string Console::Annotate(std::string_view Rest) {
    const Words Arguments = SplitWords(Rest);
    // The names of the files may hold blanks: the depth between them tells where they end.
    std::size_t At = 1;
    while (At + 1 < Arguments.size() && !base::IsDigits(Arguments[At])) {
        ++At;
    }
    if (At + 1 >= Arguments.size()) {
        throw CommandError("a file, a depth and another file are needed");
    }
    const int Depth = SmallNumber(Arguments[At], 1, rules::MaxPly);
    const auto From = static_cast<std::size_t>(Arguments[At].data() - Rest.data());
    const std::filesystem::path File = formats::TextPath(base::Trim(Rest.substr(0, From)));
    const std::filesystem::path Out = formats::TextPath(base::Trim(Rest.substr(From + Arguments[At].size())));
    const auto Looks = formats::IsPdnFile(File);
    if (!Looks.Document || !*Looks.Document) {
        throw CommandError("'" + formats::PathText(File) + "' is no PDN file that can be read");
    }
    constexpr std::size_t Slice = 1U << 22U;
    const auto Scan = [](formats::PdnIndex& Games) {
        while (Games.Scan(Slice)) {
        }
        return Games.Count();
    };
    std::error_code Error;
    std::size_t Done = 0;
    if (std::filesystem::exists(Out, Error)) {
        formats::PdnIndex Written(Out);
        Done = Scan(Written);
    }
    formats::PdnIndex Games(File);
    const std::size_t Count = Scan(Games);
    const int Left = static_cast<int>(Count - std::min(Done, Count));
    const auto Load = [&, First = Done](int Number) {
        const std::size_t Game = First + static_cast<std::size_t>(Number);
        const auto Read = Games.Read(Game);
        if (!Read.Document) {
            throw CommandError("game " + std::to_string(Game + 1) + " can't be read");
        }
        control::ClearForLoad(*State);
        using enum control::LoadResult;
        const auto How = control::StartPdnGame(*State, *Read.Document, {}, control::LoadMode::Chosen).How;
        World.Said.clear();
        if (How != Loaded && How != IllegalMove) {
            throw CommandError("game " + std::to_string(Game + 1) + " can't be laid on the board");
        }
    };
    std::string Text;
    HasList = false;
    PositionIsNew = false;
    std::unique_ptr<control::GameState> Last;
    {
        control::Annotation Annotated(*State, {Left, Depth}, Load);
        while (auto Game = Annotated.Next()) {
            if (!control::SaveGameTo(*Game, Out)) {
                throw CommandError("'" + formats::PathText(Out) + "' can't be written");
            }
            Text += "game " + std::to_string(++Done) + '\n';
            Last = std::move(Game);
        }
    }
    if (Last) {
        *State = *Last;
    }
    World.Said.clear();
    return Text;
}

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
