// The opening book.
#include "control/book.h"

#include "base/fault.h"
#include "base/text.h"
#include "formats/book_file.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::control {

/// The lines that fit a game, from one file.
struct BookIndex {
    std::string VariantName;      ///< what it was made for
    std::filesystem::path Folder; ///< as `GameState::BookFolder`
    bool Fallback = false;

    bool Mirrored = false; ///< the book has the colours the other way round
    std::vector<std::string> Lines;
    std::vector<std::pair<std::vector<std::string>, std::string>> Names;
};

namespace {

namespace fs = std::filesystem;
using formats::BookBlock;

constexpr std::string_view DefaultVariant = "International Checkers";
constexpr std::size_t MostCandidates = 11;
constexpr int ComparedPromotions = 12;
constexpr int MirrorSum = 51;
constexpr std::uint8_t BothColours = 2;

// --- Which block fits -----------------------------------------------------------------------------------------------

const std::string* ValueOf(const BookBlock& Block, std::string_view Key) {
    const auto At = std::ranges::find(Block.Keys, Key, &std::pair<std::string, std::string>::first);
    return At == Block.Keys.end() ? nullptr : &At->second;
}

bool SamePromotions(const rules::PromotionTable& InForce, int Column, std::string_view Names) {
    rules::RuleSetFields Read;
    rules::WriteTextRule(Read, rules::PromotionKeys[Column], base::ToUpper(Names));
    for (int Row = 0; Row < ComparedPromotions; ++Row) {
        if (InForce[Row][Column] != Read.PromotionSquares[Row][Column]) {
            return false;
        }
    }
    return true;
}

// Keys that are no rules say nothing about the game.
bool KeyFits(const GameState& State, const std::string& Key, const std::string& Value) {
    if (Key == "Variant") {
        return Value == State.VariantName;
    }
    if (Key == "Setup") {
        return Value == rules::BuildSetupText(State);
    }
    for (int Column = 0; Column < 2; ++Column) {
        if (Key == rules::PromotionKeys[Column]) {
            return SamePromotions(State.RuleSet.PromotionSquares, Column, Value);
        }
    }
    const rules::RuleKey* Rule = rules::FindRuleKey(Key);
    return Rule == nullptr || Rule->Read(State.RuleSet) == base::LenientNumber(Value);
}

bool MovementsFit(const GameState& State, const BookBlock& Block) {
    rules::DirectionTable Steps = State.MoveDirections;
    for (std::size_t Index = 0; Index < Block.Movements.size(); ++Index) {
        rules::ParseMovement(Block.Movements[Index], static_cast<int>(Index), Steps);
    }
    return Steps == State.MoveDirections;
}

bool Fits(const GameState& State, const BookBlock& Block, bool Fallback) {
    const std::string* Variant = ValueOf(Block, "Variant");
    if (Variant == nullptr) {
        return false;
    }
    if (Fallback) {
        return *Variant == DefaultVariant && rules::BuildSetupText(State) == rules::DefaultSetup &&
               State.RuleSet.PiecesOnBlack == 1 && State.RuleSet.AntiMode == 0;
    }
    return MovementsFit(State, Block) &&
           std::ranges::all_of(Block.Keys, [&](const auto& Key) { return KeyFits(State, Key.first, Key.second); });
}

// --- The index ------------------------------------------------------------------------------------------------------

fs::path FolderOf(const GameState& State) {
    if (!State.BookFolder.empty()) {
        return State.BookFolder;
    }
    const fs::path Program = State.Outside().ApplicationDirectory();
    return formats::FindFile(Program, "books").value_or(Program / "books");
}

void Complain(GameState& State, formats::BookFault Fault) {
    const std::string Name = State.VariantName + ".BOK";
    if (Fault == formats::BookFault::NoBook) {
        State.Outside().Message("Zonterbrook", Name + " is not an Zonterbrook Book file", Icon::Exclamation);
    } else if (Fault == formats::BookFault::OtherVersion) {
        State.Outside().Message("Error", "Incorrect version of " + Name + "\nNeed version 0.89", Icon::Exclamation);
    }
}

void TakeBlock(const GameState& State, const BookBlock& Block, BookIndex& Index) {
    const std::string* Begins = ValueOf(Block, "BlackStarts");
    const bool BlackBegins = Begins != nullptr && base::LenientNumber(*Begins) == 1;
    Index.Mirrored = Index.Fallback && BlackBegins != (State.RuleSet.BlackStarts == 1);
    Index.Lines = Block.Lines;
    for (const auto& [Moves, Name] : Block.Names) {
        Index.Names.emplace_back(formats::MovesOfCells(Moves), Name);
    }
}

std::shared_ptr<const BookIndex> MakeIndex(GameState& State) {
    auto Index = std::make_shared<BookIndex>();
    Index->VariantName = State.VariantName;
    Index->Folder = State.BookFolder;
    Index->Fallback = State.BookFallback == 1;
    const std::string Name = (Index->Fallback ? std::string(DefaultVariant) : State.VariantName) + ".bok";
    const auto File = formats::FindFile(FolderOf(State), Name);
    const auto Text = File ? formats::ReadTextFile(*File).Document : std::nullopt;
    if (!Text) {
        return Index;
    }
    const formats::BookDocument Book = formats::ReadBook(*Text);
    Complain(State, Book.Fault);
    const auto Block =
        std::ranges::find_if(Book.Blocks, [&](const BookBlock& Each) { return Fits(State, Each, Index->Fallback); });
    if (Block != Book.Blocks.end()) {
        TakeBlock(State, *Block, *Index);
    }
    return Index;
}

const BookIndex& IndexOf(GameState& State) {
    const bool Good = State.Book != nullptr && State.Book->VariantName == State.VariantName &&
                      State.Book->Fallback == (State.BookFallback == 1) && State.Book->Folder == State.BookFolder;
    if (!Good) {
        State.Book = MakeIndex(State);
    }
    return *State.Book;
}

// --- The game so far ------------------------------------------------------------------------------------------------

// Both squares of a numbered move from the other side of the board.
std::string Mirrored(std::string_view Move) {
    std::string Text;
    for (std::size_t At = 0; At + 1 < Move.size(); At += 2) {
        const std::string Number =
            std::to_string(MirrorSum - static_cast<int>(base::LenientNumber(Move.substr(At, 2))));
        Text += std::string(2 - std::min<std::size_t>(Number.size(), 2), '0') + Number;
    }
    return Text;
}

std::vector<std::string> MovesSoFar(const GameState& State, bool Mirror) {
    const bool Letters = State.RuleSet.PiecesOnBlack == BothColours;
    std::vector<std::string> Moves;
    for (int Number = 1; Number <= State.Record.Cursor; ++Number) {
        const game::NamedMove Made = game::NamedMoveOf(State.Record.HalfMoves[Number].Played.Record);
        std::string Move = game::RawMove(Letters ? rules::Notation::Algebraic : rules::Notation::Numeric, Made);
        Move.resize(formats::BookMove, '0'); // a piece that enters has one square
        Moves.push_back(Mirror ? Mirrored(Move) : std::move(Move));
    }
    return Moves;
}

bool LeadsOn(const std::vector<std::string>& Played, const std::string& Line) {
    for (std::size_t Index = 0; Index < Played.size(); ++Index) {
        const std::size_t At = Index * formats::BookCell;
        if (At + formats::BookMove > Line.size()) {
            return false;
        }
        for (std::size_t C = 0; C < formats::BookMove; ++C) {
            const char Here = Line[At + C] == ' ' ? '0' : Line[At + C];
            if (Played[Index].size() != formats::BookMove || Here != Played[Index][C]) {
                return false;
            }
        }
    }
    return true;
}

// The side that a mark recommends a move to, by the colours of the game.
char MarkOfSide(const GameState& State, bool Mirror) {
    return (State.Side == rules::White) != Mirror ? 'w' : 'b';
}

rules::Notation NamesOf(const GameState& State) {
    return State.RuleSet.PiecesOnBlack == BothColours ? rules::Notation::Algebraic : rules::Notation::Numeric;
}

game::MoveEnds EndsOf(const GameState& State, std::string_view Candidate) {
    const std::string Move = State.Book->Mirrored ? Mirrored(Candidate) : std::string(Candidate);
    const auto Cell = [&](std::size_t At) {
        const std::string_view Name = std::string_view(Move).substr(At, 2);
        return NamesOf(State) == rules::Notation::Algebraic
                   ? rules::AlgebraicCell(base::ToUpper(Name))
                   : rules::NumberedCell(State.RuleSet.PiecesOnBlack, base::LenientNumber(Name));
    };
    if (Move.find_first_not_of(" 0", 2) == std::string::npos) {
        return {Cell(0) == 0 ? 0 : rules::FromHand, Cell(0)}; // a piece that enters
    }
    return {Cell(0), Cell(2)};
}

} // namespace

BookAnswer AskBook(GameState& State) {
    BookAnswer Answer;
    const BookIndex& Index = IndexOf(State);
    const std::vector<std::string> Played = MovesSoFar(State, Index.Mirrored);
    const char Mark = MarkOfSide(State, Index.Mirrored);
    for (const std::string& Line : Index.Lines) {
        if (!LeadsOn(Played, Line)) {
            continue;
        }
        Answer.InBook = true;
        const std::size_t Next = Played.size() * formats::BookCell;
        const std::size_t MarkAt = Next + formats::BookMove;
        if (MarkAt >= Line.size() || Line[MarkAt] != Mark || Answer.Candidates.size() == MostCandidates) {
            continue;
        }
        std::string Move = Line.substr(Next, formats::BookMove);
        if (std::ranges::find(Answer.Candidates, Move) == Answer.Candidates.end()) {
            Answer.Candidates.push_back(std::move(Move));
        }
    }
    for (const auto& [Moves, Name] : Index.Names) {
        if (Moves.size() <= Played.size() && std::equal(Moves.begin(), Moves.end(), Played.begin())) {
            Answer.Name = Name;
        }
    }
    return Answer;
}

namespace {

BookAnswer AskIfWanted(GameState& State) {
    return State.UseBook == 1 && State.BookOpen ? AskBook(State) : BookAnswer{};
}

void ShowName(GameState& State, const BookAnswer& Answer) {
    State.OpeningName = Answer.Name;
    State.StatusPanels[view::OpeningPanel] = Answer.Name;
}

} // namespace

bool DrawBookMove(GameState& State) {
    State.BookMoveSource = 0;
    State.BookMoveDest = 0;
    const BookAnswer Answer = AskBook(State);
    State.OpeningName = Answer.Name;
    if (Answer.Candidates.empty()) {
        return false;
    }
    const auto Count = Answer.Candidates.size();
    const auto Drawn = static_cast<std::size_t>(State.Outside().Random() * static_cast<double>(Count));
    const game::MoveEnds Ends = EndsOf(State, Answer.Candidates[std::min(Drawn, Count - 1)]);
    State.BookMoveSource = Ends.Source;
    State.BookMoveDest = Ends.Dest;
    return State.BookMoveSource >= 1;
}

void ShowOpening(GameState& State) {
    ShowName(State, AskIfWanted(State));
}

void RefreshChoices(GameState& State) {
    const BookAnswer Answer = AskIfWanted(State);
    State.BookMoves.clear();
    for (const std::string& Candidate : Answer.Candidates) {
        const game::MoveEnds Ends = EndsOf(State, Candidate);
        State.BookMoves.emplace_back(Ends.Source, Ends.Dest);
    }
    ShowName(State, Answer);
    view::RefreshMoveChoices(State);
}

} // namespace zonterbrook::control
