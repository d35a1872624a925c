// The commands one by one. Each reads its arguments whole before it touches the state.
#include "console.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "bench_positions.h"
#include "console_text.h"
#include "control/notation.h"
#include "control/variant_start.h"
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "formats/text_file.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/perft.h"
#include "rules/position.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <functional>
#include <stdexcept>

namespace zonterbrook::probe {

using namespace engine;
using namespace rules;

namespace {

constexpr int DeepestSearch = MaxPly;

/// The generator that the argument at `Index` asks for; the generic one if it is not there.
const Generator& ChosenGenerator(const RulesState& State, const std::vector<std::string_view>& Words,
                                 std::size_t Index) {
    if (Words.size() <= Index || Words[Index] == "generic") {
        return GeneratorOf(KnownRules::None);
    }
    if (Words[Index] != "special") {
        throw CommandError("'" + std::string(Words[Index]) + "' is no generator");
    }
    return GeneratorOf(State.SpecialRuleSet);
}

std::string SideLetter(std::int32_t Side) {
    return Side == White ? "w" : "b";
}

std::string MoveLine(const MoveRecord& Record) {
    std::string Line =
        std::to_string(Record.Source) + ' ' + std::to_string(Record.Dest) + ' ' + std::to_string(Record.Kind) + ' ';
    if (Record.Captures.Count == 0) {
        Line += '-';
    }
    for (int I = 0; I < Record.Captures.Count; ++I) {
        const CaptureGroup& Group = Record.Captures.Groups[I];
        Line += std::to_string(Group.Weight * 1000 + Group.Cell);
    }
    return Line + ' ' + std::to_string(Record.Score) + '\n';
}

std::string MainLineText(const EngineState& State) {
    std::string Line = "line";
    for (const MainLineMove& Move : State.MainVariantTable[0]) {
        if (Move.Source == 0) {
            break;
        }
        Line += ' ' + std::to_string(Move.Source) + '-' + std::to_string(Move.Dest);
    }
    return Line + '\n';
}

void ForgetLines(EngineState& State) {
    State.Wanted.Fill({});
    for (auto& Row : State.MainVariantTable) {
        Row.Fill({});
    }
}

/// A setting that `set` knows: where it lies, as a function that stores a value in it.
struct Setting {
    std::string_view Name;
    void (*Store)(control::GameState& State, std::int64_t Value);
};

constexpr Setting Settings[] = {
    {"ExtendedSearch",
     [](control::GameState& S, std::int64_t V) { S.ExtendedSearch = base::Narrow<decltype(S.ExtendedSearch)>(V); }},
    {"BruteForce",
     [](control::GameState& S, std::int64_t V) { S.BruteForce = base::Narrow<decltype(S.BruteForce)>(V); }},
    {"Balance", [](control::GameState& S, std::int64_t V) { S.Balance = base::Narrow<decltype(S.Balance)>(V); }},
    {"Plys", [](control::GameState& S, std::int64_t V) { S.Plys = base::Narrow<decltype(S.Plys)>(V); }},
    {"LazyMargin",
     [](control::GameState& S, std::int64_t V) { S.LazyMargin = base::Narrow<decltype(S.LazyMargin)>(V); }},
    {"PatternTermEnabled",
     [](control::GameState& S, std::int64_t V) {
         S.PatternTermEnabled = base::Narrow<decltype(S.PatternTermEnabled)>(V);
     }},
    {"UseBook", [](control::GameState& S, std::int64_t V) { S.UseBook = base::Narrow<decltype(S.UseBook)>(V); }},
    {"BookFallback",
     [](control::GameState& S, std::int64_t V) { S.BookFallback = base::Narrow<decltype(S.BookFallback)>(V); }},
    {"ColonCapture",
     [](control::GameState& S, std::int64_t V) {
         S.ColonCapture = base::Narrow<decltype(S.ColonCapture)>(V);
         S.CaptureChar = S.ColonCapture == 1 ? ':' : 'x';
         control::RewriteMoves(S);
     }},
    {"CapitalNotation",
     [](control::GameState& S, std::int64_t V) { S.CapitalNotation = base::Narrow<decltype(S.CapitalNotation)>(V); }},
    {"SaveAlgebraic",
     [](control::GameState& S, std::int64_t V) { S.SaveAlgebraic = base::Narrow<decltype(S.SaveAlgebraic)>(V); }},
    {"NotationMode",
     [](control::GameState& S, std::int64_t V) {
         if (V < 0 || V > 2) {
             throw CommandError("a notation is 0, 1 or 2");
         }
         S.NotationMode = static_cast<Notation>(V);
     }},
};

struct NamedEvaluator {
    std::string_view Name;
    EvaluateFunction Evaluate;
};

constexpr NamedEvaluator Evaluators[] = {{"generic", EvaluatePosition},
                                         {"american", EvaluateAmerican},
                                         {"german", EvaluateGerman},
                                         {"italian", EvaluateItalian}};

template <typename Table>
const auto& FindRow(const Table& Rows, std::string_view Name, std::string_view What) {
    for (const auto& Row : Rows) {
        if (Row.Name == Name) {
            return Row;
        }
    }
    throw CommandError("'" + std::string(Name) + "' is no " + std::string(What));
}

} // namespace

Console::Console(const std::filesystem::path& Program) : State(std::make_unique<control::GameState>(World)) {
    World.Program = Program;
    ResetEngine(*State, World);
    // The engine plays without noise, and nobody is rated.
    State->Strength = 0;
    State->UseRating = 0;
    control::RestartGame(*State);
}

std::string Console::Execute(std::string_view Line) {
    Line = base::Trim(Line);
    const std::size_t End = Line.find_first_of(" \t");
    const std::string_view Command = Line.substr(0, End);
    const std::string_view Rest = End == std::string_view::npos ? std::string_view{} : base::Trim(Line.substr(End));
    const auto Before = std::make_unique<control::GameState>(*State);
    try {
        return Run(Command, Rest) + "ok\n";
    } catch (const GeneratorFault& Fault) {
        *State = *Before;
        return "error: fault in " + std::string(Fault.Routine) + '\n';
    } catch (const std::runtime_error& Error) {
        *State = *Before;
        return "error: " + std::string(Error.what()) + '\n';
    }
}

std::string Console::Run(std::string_view Command, std::string_view Rest) {
    if (Command == "variant") {
        return Variant(Rest);
    }
    if (Command == "check") {
        return Check(Rest);
    }
    if (Command == "rule") {
        return Rule(Rest);
    }
    if (Command == "replay") {
        return Replay(Rest);
    }
    if (Command == "settings") {
        return ReadSettings(Rest);
    }
    if (Command == "save") {
        return Save(Rest);
    }
    if (Command == "set" && Rest.starts_with("BookDir")) {
        return SetBookFolder(base::Trim(Rest.substr(std::string_view("BookDir").size())));
    }
    if (Command == "annotate") {
        return Annotate(Rest);
    }
    if (Command == "diagram") {
        return Diagram(Rest);
    }
    struct Row {
        std::string_view Name;
        std::string (*Answer)(Console& Self, const Words& Arguments);
    };
    static constexpr std::array<Row, 27> Commands = {{
        {"board", [](Console& C, const Words& A) { return C.Board(A); }},
        {"show", [](Console& C, const Words& A) { return ExpectCount(A, 0, 0), C.Show(); }},
        {"key", [](Console& C, const Words& A) { return ExpectCount(A, 1, 1), C.Key(A[0]); }},
        {"moves", [](Console& C, const Words& A) { return C.Moves(A); }},
        {"generate", [](Console& C, const Words& A) { return C.Generate(A); }},
        {"exists", [](Console& C, const Words& A) { return C.Exists(A); }},
        {"perft", [](Console& C, const Words& A) { return C.Perft(A); }},
        {"play", [](Console& C, const Words& A) { return C.Play(A); }},
        {"undo", [](Console& C, const Words& A) { return ExpectCount(A, 0, 0), C.Undo(); }},
        {"eval", [](Console& C, const Words& A) { return C.Eval(A); }},
        {"set", [](Console& C, const Words& A) { return C.Set(A); }},
        {"search", [](Console& C, const Words& A) { return C.Search(A); }},
        {"think", [](Console& C, const Words& A) { return C.Think(A); }},
        {"bench", [](Console& C, const Words& A) { return C.Bench(A); }},
        {"seed", [](Console& C, const Words& A) { return C.Seed(A); }},
        {"game", [](Console& C, const Words& A) { return ExpectCount(A, 0, 0), C.NeedGame(), C.Game(); }},
        {"step", [](Console& C, const Words& A) { return C.GoTo(A); }},
        {"compute", [](Console& C, const Words& A) { return C.Compute(A); }},
        {"enter", [](Console& C, const Words& A) { return C.Enter(A); }},
        {"why", [](Console& C, const Words& A) { return C.Why(A); }},
        {"book", [](Console& C, const Words& A) { return ExpectCount(A, 0, 0), C.Book(); }},
        {"hint", [](Console& C, const Words& A) { return C.Hint(A); }},
        {"analyze", [](Console& C, const Words& A) { return C.Analyze(A); }},
        {"plyvalues", [](Console& C, const Words& A) { return C.PlyValues(A); }},
        {"problems", [](Console& C, const Words& A) { return C.Problems(A); }},
        {"survey", [](Console& C, const Words& A) { return C.SurveyRules(A); }},
        {"quit",
         [](Console& C, const Words& A) {
             ExpectCount(A, 0, 0);
             C.Quit = true;
             return std::string();
         }},
    }};
    return FindRow(Commands, Command, "command").Answer(*this, SplitWords(Rest));
}

void Console::ForgetMoves() {
    Played.clear();
    HasList = false;
}

formats::VariantDocument Console::ReadDocument(std::string_view File) {
    if (File.empty()) {
        throw CommandError("no file given");
    }
    const auto Text = formats::ReadTextFile(formats::TextPath(File));
    if (!Text.Document) {
        throw CommandError(Text.Error.Text());
    }
    auto Document = formats::ReadVariant(*Text.Document, RuleSetFields{});
    if (!Document.Document) {
        throw CommandError(Document.Error.Text());
    }
    return *std::move(Document.Document);
}

std::string Console::Variant(std::string_view File) {
    const formats::VariantDocument Document = ReadDocument(File);
    State->VariantName = formats::PathText(formats::TextPath(File).stem());
    control::StartVariant(*State, Document, control::RulesFrom::File, control::Lots::Left);
    ForgetMoves();
    PositionIsNew = false;
    return {};
}

std::string Console::Rule(std::string_view Assignment) {
    const std::size_t Equals = Assignment.find('=');
    if (Equals == std::string_view::npos) {
        throw CommandError("a rule is set by <Key>=<value>");
    }
    const std::string_view Name = Assignment.substr(0, Equals);
    const std::string_view Value = Assignment.substr(Equals + 1);
    InitGameTree(*State);
    if (Name == "Setup") {
        if (Value != "normal" && !IsSetupText(Value)) {
            throw CommandError("a start position has a hundred digits, 0 to 4");
        }
        LaySetup(*State, Value);
        control::RestartGame(*State);
        ForgetMoves();
        PositionIsNew = false;
        return {};
    }
    const int ColourBefore = State->RuleSet.PiecesOnBlack;
    if (!WriteRule(State->RuleSet, Name, Value)) {
        throw CommandError("'" + std::string(Name) + "' is no rule");
    }
    if (Name == "BlackStarts") {
        State->Side = State->RuleSet.BlackStarts == 1 ? Black : White;
    } else if (Name == "ContractNumber") {
        State->PiecesInHandWhite = State->PiecesInHandBlack = State->RuleSet.ContractNumber;
    }
    InstallEngineRules(*State);
    PositionIsNew = true;
    if (Name == "PiecesOnBlack" && State->RuleSet.PiecesOnBlack < 2 && State->RuleSet.PiecesOnBlack != ColourBefore) {
        FitMenToColour(*State);
    }
    HasList = false;
    return {};
}

std::string Console::Board(const Words& Arguments) {
    ExpectCount(Arguments, 2, 2);
    if (!IsSetupText(Arguments[0])) {
        throw CommandError("a position has a hundred digits, 0 to 4");
    }
    if (Arguments[1] != "w" && Arguments[1] != "b") {
        throw CommandError("the side to move is w or b");
    }
    State->Board = State->BoardTemplate;
    WriteSetup(State->Board, Arguments[0]);
    State->Side = Arguments[1] == "w" ? White : Black;
    ResetMoves(*State);
    RecountPosition(*State);
    State->PositionHistory.Fill({});
    State->HistoryFingerprint.Fill(0);
    ForgetLines(*State);
    ForgetMoves();
    PositionIsNew = true;
    return {};
}

std::string Console::Show() const {
    return "board " + SetupText(State->Board) + ' ' + SideLetter(State->Side) + "\nspecial " +
           std::to_string(static_cast<int>(State->SpecialRuleSet)) + "\nmaterial " +
           std::to_string(State->Material[State->Ply]) + ' ' + std::to_string(State->TotalMaterial[State->Ply]) +
           "\nhand " + std::to_string(State->PiecesInHandWhite) + ' ' + std::to_string(State->PiecesInHandBlack) + '\n';
}

std::string Console::Key(std::string_view Name) const {
    const auto Value =
        Name == "Setup" ? std::optional<std::string>(BuildSetupText(*State)) : RuleText(State->RuleSet, Name);
    if (!Value) {
        throw CommandError("'" + std::string(Name) + "' is no rule");
    }
    return std::string(Name) + '=' + *Value + '\n';
}

std::string Console::ListMoves() const {
    std::string Text;
    for (int I = State->StackLimit[State->Ply]; I < State->StackLimit[State->Ply + 1]; ++I) {
        Text += MoveLine(State->MoveStack[I]);
    }
    return Text;
}

std::string Console::Moves(const Words& Arguments) {
    ExpectCount(Arguments, 0, 1);
    const Generator& Chosen = ChosenGenerator(*State, Arguments, 0);
    const GamePositionScope Scope(*State);
    Chosen.GenerateBoth(*State);
    Listed.assign(State->MoveStack.begin() + State->StackLimit[State->Ply],
                  State->MoveStack.begin() + State->StackLimit[State->Ply + 1]);
    HasList = true;
    return ListMoves();
}

std::string Console::Generate(const Words& Arguments) {
    ExpectCount(Arguments, 1, 2);
    const int AllMoves = WideNumber(Arguments[0]);
    const Generator& Chosen = ChosenGenerator(*State, Arguments, 1);
    const GamePositionScope Scope(*State);
    Chosen.Generate(*State, AllMoves);
    return ListMoves();
}

std::string Console::Exists(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    const int AllMoves = WideNumber(Arguments[0]);
    const GamePositionScope Scope(*State);
    return GenerateMoves1(*State, AllMoves) ? "exists 1\n" : "exists 0\n";
}

std::string Console::Perft(const Words& Arguments) {
    ExpectCount(Arguments, 1, 2);
    const int Depth = SmallNumber(Arguments[0], 0, DeepestSearch);
    const Generator& Chosen = ChosenGenerator(*State, Arguments, 1);
    return "nodes " + std::to_string(rules::Perft(*State, Depth, Chosen)) + '\n';
}

std::string Console::Play(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    if (!HasList) {
        throw CommandError("ask for the moves of this position first");
    }
    if (Listed.empty()) {
        throw CommandError("there is no move");
    }
    const auto Chosen = static_cast<std::size_t>(Number(Arguments[0], 0, static_cast<std::int64_t>(Listed.size()) - 1));
    const int Index = State->StackLimit[State->Ply] + static_cast<int>(Chosen);
    State->MoveStack[Index] = Listed[Chosen];
    InitGameTree(*State);
    const Step Done = {RememberMove(*State, Index), State->Material[0], State->TotalMaterial[0]};
    PerformMove(*State, Index);
    Played.push_back(Done);
    HasList = false;
    return {};
}

std::string Console::Undo() {
    if (Played.empty()) {
        throw CommandError("no move has been played");
    }
    const Step& Last = Played.back();
    StepBack(*State, Last.Move, Last.Material, Last.TotalMaterial);
    Played.pop_back();
    HasList = false;
    return {};
}

std::string Console::Eval(const Words& Arguments) {
    if (Arguments.size() != 1 && Arguments.size() != 3) {
        throw CommandError("an evaluator and no window, or both its bounds");
    }
    const NamedEvaluator& Chosen = FindRow(Evaluators, Arguments[0], "evaluator");
    const std::int32_t Alpha = Arguments.size() == 3 ? WideNumber(Arguments[1]) : WindowLow;
    const std::int32_t Beta = Arguments.size() == 3 ? WideNumber(Arguments[2]) : WindowHigh;
    InitEngineThresholds(*State);
    State->DrawPending = 0;
    State->NoLegalDrawHit = 0;
    const GamePositionScope Scope(*State);
    const std::int32_t Score = Chosen.Evaluate(*State, Alpha, Beta, State->Side);
    return "score " + std::to_string(Score) + " lost " + std::to_string(State->SideToMoveLost) + " nolegal " +
           std::to_string(State->NoLegalDrawHit) + '\n';
}

std::string Console::Set(const Words& Arguments) {
    ExpectCount(Arguments, 2, 2);
    FindRow(Settings, Arguments[0], "setting").Store(*State, WideNumber(Arguments[1]));
    return {};
}

std::string Console::Search(const Words& Arguments) {
    if (Arguments.size() != 2 && Arguments.size() != 4) {
        throw CommandError("a routine, a depth, and no window or both its bounds");
    }
    const SearchRoutine& Chosen = FindRow(SearchRoutines(), Arguments[0], "search routine");
    std::int32_t Depth = SmallNumber(Arguments[1], -DeepestSearch, DeepestSearch);
    std::int32_t Alpha =
        Arguments.size() == 4 ? static_cast<std::int32_t>(Number(Arguments[2], WindowLow, WindowHigh)) : WindowLow;
    const std::int32_t Beta =
        Arguments.size() == 4 ? static_cast<std::int32_t>(Number(Arguments[3], WindowLow, WindowHigh)) : WindowHigh;
    InitGameTree(*State);
    InitEngineThresholds(*State);
    ForgetLines(*State);
    State->RootSide = State->Side;
    State->DrawPending = 0;
    State->CancelRequested = rules::StopRequest::None;
    State->StopAutoPlay = 0;
    State->MaxSearchDepth = Depth + State->Plys;
    State->NodeCount = 0;
    const std::int32_t Score = Chosen.Search(*State, Alpha, Beta, Depth);
    return "score " + std::to_string(Score) + " nodes " + std::to_string(State->NodeCount) + '\n' +
           MainLineText(*State);
}

std::string Console::Think(const Words& Arguments) {
    ExpectCount(Arguments, 1, 1);
    RootLimits Limits;
    Limits.Depth = SmallNumber(Arguments[0], 1, DeepestSearch);
    State->LazyMargin = DefaultLazyMargin;
    ForgetLines(*State);
    PrepareSearch(*State);
    State->Noise = 0;
    State->CancelRequested = rules::StopRequest::None;
    State->QuietLimit = 0;
    InitGameTree(*State);
    PlayingRoutine(*State).Evaluate(*State, WindowLow, WindowHigh, State->Side);
    GenerateGameMoves(*State);
    if (MoveCountOfPly(*State) == 0) {
        return {};
    }
    if (MoveCountOfPly(*State) == 1) {
        Limits.Depth = 1;
    }
    IterationLines Lines(*State);
    RootSearch(*State, Limits, World.Seconds(), Lines);
    return Lines.Text;
}

std::string Console::Bench(const Words& Arguments) const {
    ExpectCount(Arguments, 0, 1);
    const double Least = Arguments.empty() ? 0 : static_cast<double>(Number(Arguments[0], 0, 3600));
    const auto Start = std::chrono::steady_clock::now();
    std::uint64_t Nodes = 0;
    std::uint64_t Fingerprint = 0;
    double Seconds = 0;
    do {
        Fingerprint = SearchBenchPositions();
        Nodes += Fingerprint;
        Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
    } while (Seconds < Least);
    const auto PerSecond = static_cast<std::uint64_t>(static_cast<double>(Nodes) / Seconds);
    return "bench nodes " + std::to_string(Fingerprint) + " nps " + std::to_string(PerSecond) + '\n';
}

} // namespace zonterbrook::probe
