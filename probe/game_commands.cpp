// The commands over a whole game: the window's own roads, with a record and everything that follows from a move.
#include "console.h"
#include "console_text.h"
#include "control/computer_move.h"
#include "control/diagram.h"
#include "control/game_document.h"
#include "control/input.h"
#include "control/navigation.h"
#include "control/pdn_game.h"
#include "control/person_move.h"
#include "control/saved_game.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "formats/pdn_index.h"
#include "formats/settings.h"
#include "rules/generate.h"
#include "rules/position.h"
#include "rules/refusal.h"
#include "view/move_lists.h"

#include <utility>

namespace zonterbrook::probe {

namespace {

namespace fs = std::filesystem;

std::string_view ResultWord(control::LoadResult How) {
    switch (How) {
    case control::LoadResult::Loaded:
        return "ok";
    case control::LoadResult::IllegalMove:
        return "refused";
    case control::LoadResult::BadSetup:
        return "setup";
    case control::LoadResult::RuleTagFailed:
    case control::LoadResult::Failed:
        break;
    }
    return "failed";
}

std::string ResultOf(const control::GameState& State) {
    std::string Result(game::ResultText(State.Result));
    if (Result.empty()) {
        Result = State.Details.Result;
    }
    return Result.empty() ? "*" : Result;
}

std::string ReplayLine(const control::GameState& State, std::size_t Number, const control::LoadReport& Report) {
    std::string Line = "game " + std::to_string(Number) + ' ' + std::string(ResultWord(Report.How)) + " plies " +
                       std::to_string(Report.Played) + " result " + ResultOf(State) + " variant " + State.VariantName +
                       " fen " + (Report.OwnStart ? "yes" : "no") + " comments " + std::to_string(Report.Comments);
    if (Report.How == control::LoadResult::IllegalMove) {
        Line += " at " + Report.Refused;
    }
    return Line + '\n';
}

std::string RawMoveOf(const control::GameState& State, const game::HalfMove& Made) {
    return game::RawMove(State.NotationMode, game::NamedMoveOf(Made.Played.Record));
}

} // namespace

// A game begins from a position that a command has laid when something is done in it.
void Console::NeedGame() {
    if (!Played.empty()) {
        throw CommandError("undo what was played first");
    }
    if (!PositionIsNew) {
        return;
    }
    PositionIsNew = false;
    State->StartBoard = State->Board;
    State->RuleSet.BlackStarts = State->Side == rules::Black ? 1 : 0;
    static_cast<control::GameFields&>(*State) = {};
    State->Record.HalfMoves[0].Material = static_cast<std::int16_t>(State->Material[State->Ply]);
    State->Record.HalfMoves[0].TotalMaterial = State->TotalMaterial[State->Ply];
    view::ListGame(*State, State->Record);
}

std::string Console::TakeMessages() {
    return std::exchange(World.Said, {});
}

std::string Console::Seed(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    std::uint64_t Value = 0;
    const std::string_view Text = Arguments[0];
    const auto Result = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
    if (Result.ec != std::errc{} || Result.ptr != Text.data() + Text.size()) {
        throw CommandError("'" + std::string(Text) + "' is no seed");
    }
    World.Chance.State = Value;
    return {};
}

std::string Console::Replay(std::string_view Rest) {
    if (!Played.empty()) {
        throw CommandError("undo what was played first");
    }
    std::string Variant;
    if (const std::size_t As = Rest.rfind(" as "); As != std::string_view::npos) {
        Variant = base::Trim(Rest.substr(As + 4));
        Rest = base::Trim(Rest.substr(0, As));
    }
    // A number at the end is the game's; a file's name may end in one, too, and is tried first.
    std::size_t Game = 0;
    std::error_code Error;
    const std::size_t Blank = Rest.find_last_of(" \t");
    if (Blank != std::string_view::npos && base::IsDigits(Rest.substr(Blank + 1)) &&
        !fs::exists(formats::TextPath(Rest), Error)) {
        Game = static_cast<std::size_t>(Number(Rest.substr(Blank + 1), 1, INT32_MAX));
        Rest = base::Trim(Rest.substr(0, Blank));
    }
    const fs::path File = formats::TextPath(Rest);
    if (Rest.empty() || !fs::exists(File, Error)) {
        throw CommandError("'" + std::string(Rest) + "' does not exist");
    }
    HasList = false;
    PositionIsNew = false;
    World.Said.clear();
    return control::IsPdnName(File) ? ReplayPdnFile(File, Game, Variant) : ReplayGameFile(File);
}

std::string Console::ReplayGameFile(const fs::path& File) {
    control::ClearForLoad(*State);
    const control::LoadReport Report = control::LoadGameFile(*State, File, control::LoadMode::Chosen);
    return TakeMessages() + ReplayLine(*State, 1, Report);
}

std::string Console::ReplayPdnFile(const fs::path& File, std::size_t Game, const std::string& Variant) {
    constexpr std::size_t Slice = 1U << 22U;
    const auto Looks = formats::IsPdnFile(File);
    if (!Looks.Document || !*Looks.Document) {
        control::LoadPdnFile(*State, File, control::LoadMode::Chosen); // says what is wrong
        return TakeMessages();
    }
    formats::PdnIndex Games(File);
    while (Games.Scan(Slice)) {
    }
    if (Games.Count() == 0) {
        control::LoadPdnFile(*State, File, control::LoadMode::Chosen);
        return TakeMessages();
    }
    if (Game > Games.Count()) {
        throw CommandError("the file has " + std::to_string(Games.Count()) + " games");
    }
    std::string Lines;
    const std::size_t First = Game == 0 ? 1 : Game;
    const std::size_t Last = Game == 0 ? Games.Count() : Game;
    for (std::size_t Number = First; Number <= Last; ++Number) {
        const auto Read = Games.Read(Number - 1);
        if (!Read.Document) {
            Lines += ReplayLine(*State, Number, {});
            continue;
        }
        control::ClearForLoad(*State);
        const control::LoadReport Report =
            control::StartPdnGame(*State, *Read.Document, Variant, control::LoadMode::Chosen);
        Lines += TakeMessages() + ReplayLine(*State, Number, Report);
    }
    return Lines;
}

std::string Console::Save(std::string_view File) {
    if (File.empty()) {
        throw CommandError("no file given");
    }
    NeedGame();
    World.Said.clear();
    if (!control::SaveGameTo(*State, formats::TextPath(File))) {
        constexpr std::string_view Front = "message Error|";
        const std::string Said = TakeMessages();
        throw CommandError(Said.substr(Front.size(), Said.find('\n') - Front.size()));
    }
    return {};
}

std::string Console::Game() const {
    std::string Lines = "variant " + State->VariantName + "\nstart " + rules::BuildSetupText(*State) + ' ' +
                        (State->RuleSet.BlackStarts == 1 ? 'b' : 'w') + '\n';
    for (int Number = 1; Number <= State->Record.Count; ++Number) {
        const game::HalfMove& Made = State->Record.HalfMoves[Number];
        Lines += std::to_string(Number) + ' ' + RawMoveOf(*State, Made) + ' ' + view::HalfMoveText(*State, Made);
        Lines += Made.Comment.empty() ? "\n" : " {" + OneLine(Made.Comment) + "}\n";
    }
    return Lines;
}

// The values of the file as they would be written again, or the defaults where it can't be used.
std::string Console::ReadSettings(std::string_view File) {
    if (File.empty()) {
        throw CommandError("no file given");
    }
    const auto Text = formats::ReadTextFile(formats::TextPath(File));
    const auto Read = Text.Document ? formats::ReadSettings(*Text.Document) : std::nullopt;
    return (Read ? "read\n" : "default\n") + formats::WriteSettingValues(Read.value_or(formats::Settings{}), "\n");
}

std::string Console::Diagram(std::string_view File) {
    if (File.empty()) {
        throw CommandError("no file given");
    }
    const std::string Page = formats::WriteDiagram(control::DiagramOf(*State));
    if (const auto Failure = formats::WriteFile(formats::TextPath(File), Page)) {
        throw CommandError(Failure->Text());
    }
    return {};
}

std::string Console::GoTo(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    NeedGame();
    const int To = SmallNumber(Arguments[0], 0, State->Record.Count);
    control::NavigateMoves(*State, State->Record.Cursor - To);
    HasList = false;
    return {};
}

std::string Console::Compute(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    const int Depth = SmallNumber(Arguments[0], 1, rules::MaxPly);
    NeedGame();
    if (control::IsOver(*State)) {
        return {};
    }
    World.Said.clear();
    HasList = false;
    State->FixedDepth = 1;
    State->SearchDepth = static_cast<std::uint8_t>(Depth);
    IterationLines Lines(*State);
    const int Before = State->Record.Cursor;
    control::ComputeNow(*State, &Lines);
    std::string Text = Lines.Text;
    if (State->Record.Cursor > Before) {
        Text += "move " + RawMoveOf(*State, State->Record.Last()) + '\n';
    }
    return Text + TakeMessages();
}

std::string Console::Why(const Words& Arguments) {
    ExpectCount(Arguments, 1, 2);
    NeedGame();
    const std::string Typed =
        Arguments.size() == 1 ? std::string(Arguments[0]) : std::string(Arguments[0]) + ' ' + std::string(Arguments[1]);
    const game::MoveEnds Ends = game::ReadTypedMove(*State, Typed);
    if (Ends.Source == 0 || Ends.Dest == 0) {
        throw CommandError("'" + Typed + "' names no move");
    }
    const rules::Refusal Found = control::IsOver(*State) ? rules::Refusal{"none", "The game is over."}
                                                         : rules::WhyRefused(*State, Ends.Source, Ends.Dest);
    return "reason " + std::string(Found.Key) + '|' + Found.Sentence + '\n';
}

std::string Console::Enter(const Words& Arguments) {
    ExpectCount(Arguments, 1, 2);
    NeedGame();
    World.Said.clear();
    if (control::IsOver(*State)) {
        return "refused\n";
    }
    HasList = false;
    const std::string Typed =
        Arguments.size() == 1 ? std::string(Arguments[0]) : std::string(Arguments[0]) + ' ' + std::string(Arguments[1]);
    const game::MoveEnds Ends = game::ReadTypedMove(*State, Typed);
    if (!control::MakePersonMove(*State, Ends.Source, Ends.Dest)) {
        control::RefuseMove(*State, Ends.Source, Ends.Dest);
        return TakeMessages() + "refused\n";
    }
    rules::GenerateGameMoves(*State);
    view::RefreshMoveChoices(*State);
    return TakeMessages();
}

} // namespace zonterbrook::probe
