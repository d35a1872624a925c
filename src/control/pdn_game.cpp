// Games in PDN: from the game in hand to text, and from a text that has been read to the board.
//
// What a game is played by and where it begins is known before anything of the game in hand is touched.
#include "control/pdn_game.h"

#include "base/text.h"
#include "control/game_document.h"
#include "control/trap.h"
#include "control/variant_start.h"
#include "formats/fen.h"
#include "formats/game_type.h"
#include "formats/pdn_index.h"
#include "formats/pdn_move.h"
#include "formats/pdn_writer.h"
#include "formats/rule_tags.h"
#include "rules/install.h"
#include "rules/position.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::control {

namespace {

namespace fs = std::filesystem;
using formats::PdnGameType;

constexpr std::string_view DefaultVariant = "International Checkers";
constexpr std::string_view OpeningsName = "opening.pdn";

// --- Writing -------------------------------------------------------------------------------------------------------

formats::RuleTagDocument RulesOf(const GameState& State) {
    return {State.VariantName, rules::BuildSetupText(State), State.RuleSet};
}

// Numbers, where there are any, unless the person wants letters.
rules::Notation WrittenNotation(const GameState& State) {
    const bool Letters = State.SaveAlgebraic == 1 || State.RuleSet.PiecesOnBlack == 2;
    return Letters ? rules::Notation::Algebraic : rules::Notation::Numeric;
}

std::string MoveText(const game::HalfMove& Made, rules::Notation Names) {
    const rules::MoveRecord& Move = Made.Played.Record;
    if (Made.Way == 0) {
        return game::MoveName(Names, 'x', game::NamedMoveOf(Move));
    }
    std::vector<std::string> Squares = {rules::SquareNotation(Names, Move.Source, rules::Padding::None)};
    for (const std::int32_t Cell : SquaresBetween(Move)) {
        Squares.push_back(rules::SquareNotation(Names, Cell, rules::Padding::None));
    }
    Squares.push_back(rules::SquareNotation(Names, Move.Dest, rules::Padding::None));
    return formats::JoinPdnMove(Squares, 'x');
}

std::string ResultOf(const GameState& State) {
    const std::string_view OnBoard = game::ResultText(State.Result);
    return OnBoard.empty() ? State.Details.Result : std::string(OnBoard);
}

// --- The rules and the start of a game that was read ---------------------------------------------------------------

// What a game is played by, found out before it begins.
struct Start {
    std::string VariantName;
    std::int32_t UseClassic = 1;
    formats::VariantDocument Variant; ///< of its file
    rules::RuleSetFields Rules;
    std::string Setup; ///< empty: the variant's own
    bool FromTag = false;
    bool Failed = false; ///< the private tag could not be read to its end
};

std::optional<formats::VariantDocument> FindVariant(const GameState& State, const std::string& Name,
                                                    bool UserVariants) {
    const fs::path Folder = FolderOfVariants(State, UserVariants);
    return formats::ReadVariantFile(Folder, Name, rules::RuleSetFields{}).Document;
}

// A variant by name: one that the program brings along, else one of the person's own, else the default rules.
Start StartOf(const GameState& State, const std::string& Name) {
    Start Found;
    Found.VariantName = Name;
    if (auto Shipped = FindVariant(State, Name, false)) {
        Found.Variant = *std::move(Shipped);
    } else if (auto Own = FindVariant(State, Name, true)) {
        Found.Variant = *std::move(Own);
        Found.UseClassic = 0;
    }
    Found.Rules = Found.Variant.Rules;
    return Found;
}

Start StartInHand(const GameState& State) {
    Start Found;
    Found.VariantName = State.VariantName;
    Found.UseClassic = State.UseClassic;
    if (auto Own = FindVariant(State, State.VariantName, State.UseClassic == 0)) {
        Found.Variant = *std::move(Own);
    }
    Found.Rules = State.RuleSet;
    return Found;
}

void TakeTag(Start& Found, const formats::RuleTagDocument& Tag) {
    Found.Rules = Tag.Rules;
    Found.Setup = Tag.Setup;
    Found.FromTag = true;
}

Start FindStart(const GameState& State, const formats::PdnTags& Tags, const std::optional<PdnGameType>& Type,
                std::string_view AsVariant, LoadMode Mode) {
    if (!Tags.RuleSet.empty()) {
        if (const auto Tag = formats::ReadRuleSetTag(Tags.RuleSet); Tag.Document) {
            Start Found = StartOf(State, Tag.Document->Variant);
            TakeTag(Found, *Tag.Document);
            return Found;
        }
    }
    if (!Tags.RuleTag.empty()) {
        Start Found = StartOf(State, formats::RuleTagVariant(Tags.RuleTag));
        const formats::RuleTagReading Tag = formats::ReadRuleTag(Tags.RuleTag, Found.Rules);
        TakeTag(Found, Tag.Document);
        Found.Failed = Tag.Failed;
        return Found;
    }
    if (!AsVariant.empty()) {
        return StartOf(State, std::string(AsVariant));
    }
    if (Mode != LoadMode::Chosen) {
        return StartInHand(State);
    }
    const std::string_view Named = Type ? formats::GameTypeVariant(*Type) : std::string_view();
    return StartOf(State, std::string(Named.empty() ? DefaultVariant : Named));
}

// The set-up of the game's own tags; false if it can't be understood.
bool TakeFen(Start& Found, const formats::PdnTags& Tags, const std::optional<PdnGameType>& Type) {
    if (Tags.SetUp != "1" && Tags.Fen.empty()) {
        return true;
    }
    const int Colour = Found.Rules.PiecesOnBlack;
    auto Read = formats::ReadFen(Tags.Fen, Colour, Type ? &*Type : nullptr);
    if (!Read.Document && Type) {
        Read = formats::ReadFen(Tags.Fen, Colour);
    }
    if (!Read.Document) {
        return false;
    }
    Found.Setup = Read.Document->Setup;
    Found.Rules.BlackStarts = Read.Document->BlackBegins ? 1 : 0;
    return true;
}

void Begin(GameState& State, const Start& Found) {
    State.VariantName = Found.VariantName;
    State.UseClassic = Found.UseClassic;
    State.RuleSet = Found.Rules;
    State.BlackStartsByRules.reset();
    rules::LaySetup(State, Found.Variant.Setup);
    const bool OwnStart = !Found.Setup.empty() && Found.Setup != rules::BuildSetupText(State);
    formats::VariantDocument Variant = Found.Variant;
    Variant.Setup = Found.Setup.empty() ? Variant.Setup : Found.Setup;
    StartVariant(State, Variant, RulesFrom::Hand, Lots::Left);
    if (OwnStart) {
        State.BlackStartsByRules = Found.Variant.Rules.BlackStarts;
        view::MarkTitle(State);
    }
    SettleLoadedBoard(State);
}

// --- The moves -----------------------------------------------------------------------------------------------------

std::int32_t CellOf(const GameState& State, const std::string& Square) {
    return base::IsDigits(Square) ? rules::NumberedCell(State.RuleSet.PiecesOnBlack, base::LenientNumber(Square))
                                  : rules::AlgebraicCell(Square);
}

FileMove ReadMove(const GameState& State, const formats::PdnHalfMove& Half, const PdnGameType* Type) {
    FileMove Move;
    Move.Text = Half.Text;
    Move.Comment = Half.Comment;
    const auto Parts = formats::SplitPdnMove(Half.Text);
    if (!Parts) {
        return Move;
    }
    std::vector<std::int32_t> Cells;
    for (const std::string& Square : Parts->Squares) {
        Cells.push_back(CellOf(State, Type != nullptr ? formats::OwnSquare(*Type, Square) : Square));
    }
    Move.Source = Cells.front();
    Move.Dest = Cells.back();
    if (Cells.size() > 2) {
        Move.Between.assign(Cells.begin() + 1, Cells.end() - 1);
    }
    Move.Joint = Parts->SaysCapture() ? FileMove::Sign::Capture
                 : Parts->SaysStep()  ? FileMove::Sign::Step
                                      : FileMove::Sign::None;
    return Move;
}

std::vector<FileMove> ReadMoves(const GameState& State, const formats::PdnGame& Game, const PdnGameType* Type) {
    std::vector<FileMove> Moves;
    Moves.reserve(Game.Moves.size());
    for (const formats::PdnHalfMove& Half : Game.Moves) {
        Moves.push_back(ReadMove(State, Half, Type));
    }
    return Moves;
}

// The moves by the names that the game type has for squares, if the first one is legal by them, else by our own.
std::vector<FileMove> FindMoves(GameState& State, const formats::PdnGame& Game,
                                const std::optional<PdnGameType>& Type) {
    if (Type && !Game.Moves.empty()) {
        if (IsLegal(State, ReadMove(State, Game.Moves.front(), &*Type))) {
            return ReadMoves(State, Game, &*Type);
        }
    }
    return ReadMoves(State, Game, nullptr);
}

// A variant that was chosen takes the notation of the game's first move.
void TakeNotation(GameState& State, const formats::PdnGame& Game) {
    if (!Game.Moves.empty() && State.RuleSet.PiecesOnBlack < 2) {
        const bool Numbers = Game.Moves.front().Text.front() <= '9';
        State.NotationMode = Numbers ? rules::Notation::Numeric : rules::Notation::Algebraic;
    }
}

void ShowEnd(GameState& State, const formats::PdnGame& Game) {
    const auto NameOf = [](const std::string& Tag) { return Tag.empty() ? std::string("Player") : Tag; };
    State.WhitePlayerName = NameOf(Game.Tags.White);
    State.BlackPlayerName = NameOf(Game.Tags.Black);
    const std::string Text = ResultOf(State);
    view::SetStatus(State, Text + (Game.Comments == 0 ? ";  no comments" : ""));
    view::DrawBoard(State, 0);
}

LoadReport Fail(GameState& State, std::string_view Title, const std::string& Text, LoadResult How) {
    State.Outside().Message(Title, Text, Icon::Exclamation);
    LoadReport Report;
    Report.How = How;
    return Report;
}

std::vector<std::string> AllVariants(const GameState& State) {
    const fs::path Program = State.Outside().ApplicationDirectory();
    std::vector<std::string> Names = formats::ListVariants(formats::VariantFolder(Program, false));
    std::ranges::move(formats::ListVariants(formats::VariantFolder(Program, true)), std::back_inserter(Names));
    return Names;
}

std::optional<PdnChoice> ChooseGame(const GameState& State, formats::PdnIndex& Games, LoadMode Mode) {
    constexpr std::size_t Slice = 1U << 20U;
    if (Mode == LoadMode::Opening && State.RandomOpening == 1) {
        while (Games.Scan(Slice)) {
        }
        const auto Drawn = static_cast<std::size_t>(State.Outside().Random() * static_cast<double>(Games.Count()));
        return PdnChoice{std::min(Drawn, Games.Count() - 1), {}};
    }
    return State.Outside().ChoosePdnGame(Games, Mode == LoadMode::Opening ? " Choose Opening" : " Open PDN game",
                                         AllVariants(State));
}

} // namespace

bool IsPdnName(const fs::path& File) {
    return base::ToLower(File.extension().string()) == ".pdn";
}

std::string PdnText(const GameState& State) {
    const formats::RuleTagDocument Rules = RulesOf(State);
    const rules::Notation Names = WrittenNotation(State);
    formats::PdnGame Game;
    const game::Details Details = DetailsToSave(State);
    Game.Tags.Event = Details.Event;
    Game.Tags.Date = Details.Date;
    Game.Tags.Site = Details.Site;
    Game.Tags.Black = Details.Black;
    Game.Tags.White = Details.White;
    Game.Tags.RuleTag = formats::NeedsRuleTag(Rules) ? formats::WriteRuleTag(Rules) : std::string();
    Game.Tags.RuleSet = formats::WriteRuleSetTag(Rules);
    const bool Letters = Names == rules::Notation::Algebraic;
    if (const auto Type = formats::GameTypeOf(State.VariantName, State.RuleSet, State.LoadedRuleSet, Letters)) {
        Game.Tags.GameType = formats::WriteGameType(*Type);
    }
    Game.Result = ResultOf(State);
    const game::GameRecord& Record = State.Record;
    for (int Number = 1; Number <= Record.Count; ++Number) {
        Game.Moves.push_back({MoveText(Record.HalfMoves[Number], Names), Record.HalfMoves[Number].Comment});
    }
    Game.LastComment = Record.HalfMoves[Record.Count + 1].Comment;
    return formats::WritePdnGame(Game, State.Outside().Date());
}

LoadReport StartPdnGame(GameState& State, const formats::PdnGame& Game, std::string_view AsVariant, LoadMode Mode) {
    // 1. What it is played by, and where it begins.
    const auto Type = formats::ReadGameType(Game.Tags.GameType);
    if (Game.Tags.RuleSet.empty() && Game.Tags.RuleTag.empty() && Type && Type->Width != 0 && !Type->IsTenByTen()) {
        return Fail(State, "Error",
                    "Game is played on a board of " + std::to_string(Type->Width) + " by " +
                        std::to_string(Type->Height) + " squares",
                    LoadResult::BadSetup);
    }
    Start Found = FindStart(State, Game.Tags, Type, AsVariant, Mode);
    if (Found.Failed) {
        LoadReport Report = Fail(State, "Error", "Error in loading PDN file!", LoadResult::RuleTagFailed);
        Begin(State, Found);
        AbandonGame(State, Mode);
        return Report;
    }
    const bool OwnNames = Found.FromTag && !Game.Tags.RuleSet.empty();
    const std::optional<PdnGameType> Named = OwnNames ? std::nullopt : Type;
    if (!TakeFen(Found, Game.Tags, Named)) {
        return Fail(State, "Error", "Illegal Setup!", LoadResult::BadSetup);
    }

    // 2. The game.
    Begin(State, Found);
    if (!AsVariant.empty()) {
        TakeNotation(State, Game);
    }
    State.Details = {Game.Tags.Event, Game.Tags.Site,  Game.Tags.Date,
                     Game.Tags.Black, Game.Tags.White, Game.Tags.Result == "*" ? Game.Result : Game.Tags.Result};
    std::vector<FileMove> Moves = FindMoves(State, Game, Named);
    ChooseCaptures(State, Moves);
    LoadReport Report = PlayLoadedMoves(State, Moves, Game.LastComment, Mode);
    Report.Comments = Game.Comments;
    Report.OwnStart = !Game.Tags.Fen.empty();
    if (Report.How == LoadResult::Loaded) {
        ShowEnd(State, Game);
    }
    return Report;
}

LoadReport LoadPdnFile(GameState& State, const fs::path& File, LoadMode Mode) {
    const std::string Name = formats::PathText(File);
    const auto Looks = formats::IsPdnFile(File);
    if (!Looks.Document) {
        return Fail(State, "Error", Name + ": " + Looks.Error.Text(), LoadResult::Failed);
    }
    if (!*Looks.Document) {
        return Fail(State, "Zonterbrook", Name + " is not a PDN file", LoadResult::Failed);
    }
    constexpr std::size_t FirstGames = 1U << 16U;
    formats::PdnIndex Games(File);
    while (Games.Count() == 0 && Games.Scan(FirstGames)) {
    }
    if (Games.Count() == 0) {
        const std::string& Why = Games.Error().Sentence;
        return Why.empty() ? Fail(State, "Zonterbrook", "No games found!", LoadResult::Failed)
                           : Fail(State, "Error", Name + ": " + Why, LoadResult::Failed);
    }
    const auto Chosen = ChooseGame(State, Games, Mode);
    if (!Chosen) {
        return {};
    }
    const auto Game = Games.Read(Chosen->Game);
    if (!Game.Document) {
        return Fail(State, "Error", Name + ": " + Game.Error.Text(), LoadResult::Failed);
    }
    return StartPdnGame(State, *Game.Document, Chosen->Variant, Mode);
}

void LoadOpening(GameState& State) {
    const fs::path Program = State.Outside().ApplicationDirectory();
    if (const auto File = formats::FindFile(Program, OpeningsName)) {
        LoadPdnFile(State, *File, LoadMode::Opening);
    }
}

} // namespace zonterbrook::control
