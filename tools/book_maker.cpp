// Makes an opening book, and a file of openings, by the engine's own judgement: docs/book-files.md says how.
//
// The book is a tree of positions, made a half-move at a time. Near its root every position is judged: what is
// recommended there is within a margin of the best by a search some plies deeper than the computer reaches in its own
// time, counted in nodes so that every machine makes the same book. Behind that the lines only lead on. What has been
// judged is kept in a file beside the book, so that a run that was stopped is taken up again.
#include "base/checked_number.h"
#include "base/text.h"
#include "control/game_document.h"
#include "control/pdn_game.h"
#include "control/record.h"
#include "control/still_world.h"
#include "control/variant_start.h"
#include "deep_search.h"
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "formats/book_file.h"
#include "formats/text_file.h"
#include "rules/generate.h"
#include "rules/position.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace zonterbrook::tools {

namespace {

namespace fs = std::filesystem;

using Path = std::vector<std::string>; ///< raw moves from the start

std::vector<std::string> Split(const std::string& Text, char At) {
    std::vector<std::string> Parts;
    std::istringstream Rest(Text);
    for (std::string Part; std::getline(Rest, Part, At);) {
        Parts.push_back(Part);
    }
    return Parts;
}

struct Order {
    std::string Variant = "International Checkers";
    fs::path Out;
    fs::path Openings;                      ///< a file of openings is wanted, too
    std::vector<int> Widths{9, 5, 4, 2, 2}; ///< moves that the book knows, by half-move; behind them one
    int Length = 10;                        ///< half-moves of a line
    int Judged = 5;                         ///< half-moves whose positions are judged
    int Most = 3;                           ///< recommended moves of a position
    int Margin = 8;                         ///< in hundredths of a man
    int Deeper = 4;                         ///< plies
    int RankDepth = 8;
    std::uint64_t Nodes = 20'000'000; ///< the computer's own time
    std::uint64_t Seed = 1;
    unsigned Threads = 1;
    std::vector<std::pair<std::string, std::string>> Names; ///< moves of an opening, and what it is called
};

/// What the book says of a position.
struct Judgement {
    int Depth = 0; ///< plies that it has been judged by; 0: not judged
    std::int32_t Score = 0;
    std::vector<std::string> Good;    ///< recommended
    std::vector<std::string> Replies; ///< that lead on, the recommended ones among them
};

// Tells after which iteration the nodes of the computer's time were used up.
class Reach : public engine::RootObserver {
public:
    Reach(engine::EngineState& InState, std::uint64_t InNodes) : State(InState), Nodes(InNodes) {}
    void IterationDone(int Iteration, double /*Seconds*/) override {
        Depth = State.NodeCount <= Nodes ? Iteration : Depth;
    }

    int Depth = 1;

private:
    engine::EngineState& State;
    std::uint64_t Nodes;
};

/// A board of its own, on which positions are looked at.
class Bench {
public:
    Bench(const Order& What, const fs::path& Program)
        : Wanted(What), State(new control::GameState(World)), Deep(*State) {
        World.Program = Program;
        engine::ResetEngine(*State, World);
        State->Strength = 0;
        State->UseRating = 0;
        State->VariantName = Wanted.Variant;
        control::StartVariant(*State, control::ReadChosenVariant(*State), control::RulesFrom::File,
                              control::Lots::Left);
        State->NotationMode = State->RuleSet.PiecesOnBlack == 2 ? rules::Notation::Algebraic : rules::Notation::Numeric;
    }

    control::GameState& Game() { return *State; }

    /// Lays the position behind some moves; false if they can't be played, or the game is over behind them.
    bool Lay(const Path& Moves) {
        control::RestartGame(*State);
        for (const std::string& Move : Moves) {
            const game::MoveEnds Ends = game::ReadRawMove(*State, Move);
            auto Made = control::EnterMove(*State, Ends.Source, Ends.Dest);
            if (!Made) {
                return false;
            }
            control::RecordMove(*State, *std::move(Made), game::MadeBy::File);
        }
        rules::GenerateGameMoves(*State);
        return rules::MoveCountOfPly(*State) > 0;
    }

    std::string Key() const { return rules::SetupText(State->Board) + (State->Side > 0 ? 'w' : 'b'); }

    /// Judges the position on the board, or only ranks its moves.
    Judgement Judge(bool Deeply, std::size_t Width) {
        Judgement Found;
        if (Deeply) {
            rules::GenerateGameMoves(*State);
            const bool Forced = rules::MoveCountOfPly(*State) == 1;
            Found.Depth = Forced ? 1 : ReachedDepth() + Wanted.Deeper;
            const auto Good = Deep.BestMoves(Found.Depth, Wanted.Margin, static_cast<std::size_t>(Wanted.Most));
            Found.Score = Good.front().Score;
            for (const JudgedMove& Move : Good) {
                Found.Good.push_back(NameOf(Move));
            }
        }
        Found.Replies = Found.Good;
        for (const JudgedMove& Move : Shuffled(Deep.RankMoves(Wanted.RankDepth))) {
            const std::string Name = NameOf(Move);
            if (Found.Replies.size() < Width && std::ranges::find(Found.Replies, Name) == Found.Replies.end()) {
                Found.Replies.push_back(Name);
            }
        }
        return Found;
    }

private:
    std::string NameOf(const JudgedMove& Move) const {
        std::string Name = game::RawMove(State->NotationMode, {Move.Source, Move.Dest, false, false});
        std::ranges::replace(Name, ' ', '0');
        return Name;
    }

    int ReachedDepth() {
        Deep.RankMoves(1); // the figures of a root
        World.OnTurn = [this] {
            if (State->NodeCount > Wanted.Nodes) {
                State->CancelRequested = rules::StopRequest::Clock;
            }
        };
        State->NodeCount = 0;
        rules::GenerateGameMoves(*State);
        Reach Told(*State, Wanted.Nodes);
        constexpr int Deepest = 30;
        engine::RootSearch(*State, {.Depth = Deepest}, World.Seconds(), Told);
        World.OnTurn = {};
        return std::min(Told.Depth, Deepest - Wanted.Deeper);
    }

    // Moves of about the same worth come in an order that the seed and the position decide.
    std::vector<JudgedMove> Shuffled(std::vector<JudgedMove> Moves) const {
        constexpr double Spread = 6;
        base::Chance Lots{Wanted.Seed};
        for (const char Figure : Key()) {
            Lots.State = Lots.State * 31 + static_cast<unsigned char>(Figure);
        }
        Lots.Next();
        for (JudgedMove& Move : Moves) {
            Move.Score += static_cast<std::int32_t>(Lots.Next() * Spread);
        }
        std::ranges::stable_sort(Moves, std::ranges::greater{}, &JudgedMove::Score);
        return Moves;
    }

    const Order& Wanted;
    control::StillWorld World;
    std::unique_ptr<control::GameState> State;
    DeepSearch Deep;
};

/// What has been judged, in memory and in its file.
class Judgements {
public:
    explicit Judgements(const fs::path& Kept) {
        std::ifstream Before(Kept);
        for (std::string Line; std::getline(Before, Line);) {
            Read(Line);
        }
        File.open(Kept, std::ios::app);
    }

    const Judgement* Find(const std::string& Key) const {
        const auto Found = Known.find(Key);
        return Found == Known.end() ? nullptr : &Found->second;
    }

    void Keep(const std::string& Key, const Judgement& What) {
        const std::lock_guard Alone(Lock);
        File << Key << ' ' << What.Depth << ' ' << What.Score << ' ' << What.Good.size();
        for (const std::string& Move : What.Replies) {
            File << ' ' << Move;
        }
        File << std::endl;
        Known[Key] = What;
    }

private:
    // A line that was cut short when the run was stopped is judged again.
    void Read(const std::string& Line) {
        const std::vector<std::string> Words = Split(Line, ' ');
        constexpr std::size_t Head = 4;
        if (Words.size() <= Head || Words.back().size() != formats::BookMove) {
            return;
        }
        Judgement What;
        What.Depth = static_cast<int>(base::LenientNumber(Words[1]));
        What.Score = static_cast<std::int32_t>(base::LenientNumber(Words[2]));
        What.Replies.assign(Words.begin() + Head, Words.end());
        const auto Good =
            std::min<std::size_t>(static_cast<std::size_t>(base::LenientNumber(Words[3])), What.Replies.size());
        What.Good.assign(What.Replies.begin(), What.Replies.begin() + static_cast<std::ptrdiff_t>(Good));
        Known[Words[0]] = std::move(What);
    }

    std::map<std::string, Judgement> Known;
    std::ofstream File;
    std::mutex Lock;
};

/// A path through the tree, and the marks of its moves.
struct Branch {
    Path Moves;
    std::string Cells; ///< as the book writes them
};

class BookMaker {
public:
    BookMaker(Order What, fs::path InProgram)
        : Wanted(std::move(What)), Program(std::move(InProgram)), Known(Wanted.Out.string() + ".judged"),
          Table(Wanted, Program) {}

    void Make() {
        std::vector<Branch> Level{{}};
        for (int Ply = 0; Ply < Wanted.Length; ++Ply) {
            JudgeAll(Level, Ply);
            Level = Grown(Level, Ply);
            std::cerr << "half-move " << Ply + 1 << ": " << Level.size() << " lines\n";
            if (ShortestOpening <= Ply + 1 && Ply + 1 <= LongestOpening && !Wanted.Openings.empty()) {
                AddOpenings(Level, Ply + 1);
            }
        }
        if (!Wanted.Openings.empty()) {
            Save(Wanted.Openings, Openings);
            std::cerr << OpeningCount << " openings\n";
        }
        WriteBook(Level);
    }

private:
    static constexpr int ShortestOpening = 3;
    static constexpr int LongestOpening = 4;

    std::size_t WidthAt(int Ply) const {
        const auto Index = static_cast<std::size_t>(Ply);
        return Index < Wanted.Widths.size() ? static_cast<std::size_t>(Wanted.Widths[Index]) : 1;
    }

    /// Judges the positions that stand behind the branches and are not known yet.
    void JudgeAll(const std::vector<Branch>& Level, int Ply) {
        const bool Deeply = Ply < Wanted.Judged;
        std::map<std::string, const Branch*> ToDo;
        for (const Branch& Each : Level) {
            if (Table.Lay(Each.Moves)) {
                const Judgement* Before = Known.Find(Table.Key());
                if (Before == nullptr || (Deeply && Before->Depth == 0)) {
                    ToDo.emplace(Table.Key(), &Each);
                }
            }
        }
        const std::vector<std::pair<std::string, const Branch*>> Work(ToDo.begin(), ToDo.end());
        std::atomic<std::size_t> Next{0};
        std::vector<std::jthread> Threads;
        for (unsigned I = 0; I < Wanted.Threads; ++I) {
            Threads.emplace_back([&] {
                Bench Own(Wanted, Program);
                for (std::size_t Turn = Next++; Turn < Work.size(); Turn = Next++) {
                    Own.Lay(Work[Turn].second->Moves);
                    Known.Keep(Work[Turn].first, Own.Judge(Deeply, WidthAt(Ply)));
                }
            });
        }
    }

    std::vector<Branch> Grown(const std::vector<Branch>& Level, int Ply) {
        std::vector<Branch> Longer;
        for (const Branch& Each : Level) {
            if (!Table.Lay(Each.Moves)) {
                continue;
            }
            const Judgement& What = *Known.Find(Table.Key());
            const char Side = Table.Game().Side > 0 ? 'w' : 'b';
            for (std::size_t I = 0; I < std::max(WidthAt(Ply), What.Good.size()) && I < What.Replies.size(); ++I) {
                Branch Next = Each;
                Next.Moves.push_back(What.Replies[I]);
                Next.Cells += What.Replies[I] + (I < What.Good.size() ? Side : ' ');
                if (Table.Lay(Next.Moves)) {
                    Longer.push_back(std::move(Next));
                }
            }
        }
        return Longer;
    }

    /// The rules of the block, as a game file has them.
    std::string RulesOfBlock() {
        Table.Lay({});
        const std::string File = formats::WriteGameFile(control::DocumentOf(Table.Game()));
        std::string Keys;
        for (const std::string& Whole : Split(File, '\n')) {
            const std::string_view Line = base::Trim(Whole);
            const std::string_view Key = Line.substr(0, Line.find('='));
            if (Line == "START") {
                break;
            }
            const bool NoRule = Key == "QUAVERMILL Version" || Key == "Book" || Key == "Notation" ||
                                Key == "UseClassic" || Key == "PlayerName";
            Keys += NoRule ? std::string() : std::string(Line) + '\n';
        }
        return Keys;
    }

    void WriteBook(std::vector<Branch>& Lines) {
        std::ranges::sort(Lines, {}, &Branch::Cells);
        std::string Text = "QUAVERSET Version=0.89\n" + RulesOfBlock() + "start\n";
        std::string_view Before;
        for (const Branch& Line : Lines) {
            std::size_t Same = 0;
            while (Same < Before.size() && Same < Line.Cells.size() &&
                   Before.substr(Same, formats::BookCell) ==
                       std::string_view(Line.Cells).substr(Same, formats::BookCell)) {
                Same += formats::BookCell;
            }
            std::string Rest = Line.Cells.substr(Same);
            Rest.erase(Rest.find_last_not_of(' ') + 1);
            Text += std::string(Same, ' ') + Rest + '\n';
            Before = Line.Cells;
        }
        if (!Wanted.Names.empty()) {
            Text += "names\n";
            for (const auto& [Moves, Name] : Wanted.Names) {
                Text.append(Moves).append(" '").append(Name).append("'\n");
            }
        }
        Save(Wanted.Out, Text + "end\n");
        std::cerr << Lines.size() << " lines\n";
    }

    /// The judged positions at the end of short lines that are about even, each as a game of its own.
    void AddOpenings(const std::vector<Branch>& Level, int Length) {
        constexpr std::int32_t Even = 15;
        std::map<std::string, const Branch*> Different;
        for (const Branch& Each : Level) {
            if (Table.Lay(Each.Moves)) {
                Different.emplace(Table.Key(), &Each);
            }
        }
        JudgeAll(Level, Length);
        for (const Branch& Each : Level) {
            Table.Lay(Each.Moves);
            const std::string Key = Table.Key();
            const Judgement* What = Known.Find(Key);
            if (Different.at(Key) == &Each && What->Depth > 1 && std::abs(What->Score) <= Even) {
                Table.Game().Details = {};
                Table.Game().Details.Event = NameOfOpening(Each);
                Openings += WithoutSomeTags(control::PdnText(Table.Game()));
                ++OpeningCount;
            }
        }
    }

    // The day, and rules that are those of the game's type.
    static std::string WithoutSomeTags(const std::string& Game) {
        std::string Kept;
        for (const std::string& Line : Split(Game, '\n')) {
            const bool Needless = Line.starts_with("[Date ") || Line.starts_with("[QVersion ") ||
                                  Line.starts_with("[Quavermill ") || Line.starts_with("[RuleSet ");
            Kept += Needless ? std::string() : Line + '\n';
        }
        return Kept;
    }

    std::string NameOfOpening(const Branch& Line) const {
        std::string Name;
        for (std::size_t I = 0; I < Line.Moves.size(); ++I) {
            Name += (I == 0 ? "" : " ") + (I % 2 == 0 ? std::to_string(I / 2 + 1) + ". " : std::string());
            Name.append(Line.Moves[I], 0, 2).append("-").append(Line.Moves[I], 2);
        }
        for (const auto& [Moves, Called] : Wanted.Names) {
            Path Begun = formats::MovesOfCells(Moves);
            if (Begun.size() <= Line.Moves.size() && std::equal(Begun.begin(), Begun.end(), Line.Moves.begin())) {
                return Called + ": " + Name;
            }
        }
        return Name;
    }

    static void Save(const fs::path& File, std::string_view Text) {
        if (const auto Failed = formats::WriteFile(File, Text)) {
            throw std::runtime_error(Failed->Text());
        }
    }

    const Order Wanted;
    const fs::path Program;
    Judgements Known;
    Bench Table;
    std::string Openings;
    int OpeningCount = 0;
};

std::vector<int> NumbersOf(const std::string& Text) {
    std::vector<int> Numbers;
    for (const std::string& Word : Split(Text, ',')) {
        Numbers.push_back(static_cast<int>(base::LenientNumber(Word)));
    }
    return Numbers;
}

Order ReadOrder(const std::vector<std::string>& Words) {
    Order What;
    for (std::size_t I = 0; I + 1 < Words.size(); I += 2) {
        const std::string& Key = Words[I];
        const std::string& Value = Words[I + 1];
        const auto Number = base::LenientNumber(Value);
        if (Key == "--variant") {
            What.Variant = Value;
        } else if (Key == "--out") {
            What.Out = formats::TextPath(Value);
        } else if (Key == "--openings") {
            What.Openings = formats::TextPath(Value);
        } else if (Key == "--widths") {
            What.Widths = NumbersOf(Value);
        } else if (Key == "--length") {
            What.Length = static_cast<int>(Number);
        } else if (Key == "--judged") {
            What.Judged = static_cast<int>(Number);
        } else if (Key == "--margin") {
            What.Margin = static_cast<int>(Number);
        } else if (Key == "--deeper") {
            What.Deeper = static_cast<int>(Number);
        } else if (Key == "--nodes") {
            What.Nodes = static_cast<std::uint64_t>(Number);
        } else if (Key == "--seed") {
            What.Seed = static_cast<std::uint64_t>(Number);
        } else if (Key == "--threads") {
            What.Threads = static_cast<unsigned>(Number);
        } else if (Key == "--name") {
            const std::size_t Quote = Value.find('=');
            What.Names.emplace_back(Value.substr(0, Quote), Value.substr(Quote + 1));
        } else {
            throw std::runtime_error("unknown option " + Key);
        }
    }
    if (What.Out.empty() || Words.size() % 2 != 0) {
        throw std::runtime_error("--out <file> is needed, and a value for each option");
    }
    return What;
}

} // namespace

int Run(const std::vector<std::string>& Words, const fs::path& Program) {
    try {
        BookMaker(ReadOrder(Words), Program).Make();
    } catch (const std::exception& Failure) {
        std::cerr << "book-maker: " << Failure.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace zonterbrook::tools

int main(int Count, char* Arguments[]) {
    std::error_code Error;
    const auto Own = std::filesystem::read_symlink("/proc/self/exe", Error);
    const auto Program = (Error ? std::filesystem::absolute(Arguments[0]) : Own).parent_path();
    return zonterbrook::tools::Run({Arguments + 1, Arguments + Count}, Program);
}
