// Opening a game file.
//
// Nothing of the game in hand is touched until the whole file has been read; from then on its game is gone, and Restore
// Previous Game brings it back.
#include "control/loaded_game.h"

#include "control/book.h"
#include "control/ending.h"
#include "control/game_document.h"
#include "control/settings.h"
#include "control/trap.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "formats/text_file.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/position.h"
#include "view/draw_board.h"
#include "view/layout.h"
#include "view/move_lists.h"

#include <utility>

namespace zonterbrook::control {

namespace {

constexpr std::string_view ProgramTitle = "Zonterbrook";

void Complain(const GameState& State, std::string_view Title, const std::string& Text) {
    State.Outside().Message(Title, Text, Icon::Exclamation);
}

void SayFault(const GameState& State, formats::GameFileFault Fault, const std::filesystem::path& File) {
    switch (Fault) {
    case formats::GameFileFault::NotAGame:
        Complain(State, ProgramTitle, formats::PathText(File) + " is not an Zonterbrook file");
        break;
    case formats::GameFileFault::OtherVersion:
        Complain(State, "Error", "Incorrect game file!\nNeed version 0.89");
        break;
    case formats::GameFileFault::Broken: // ends without a word. Wanted: docs/kept_behaviour.md, "silently"
    case formats::GameFileFault::None:
        break;
    }
}

// The file of a variant; where it is gone, the rules in hand and the default position have to do.
formats::VariantDocument VariantInHand(const GameState& State) {
    try {
        return ReadChosenVariant(State);
    } catch (const FileFault&) {
        formats::VariantDocument Variant;
        Variant.Name = State.VariantName;
        Variant.Rules = State.LoadedRuleSet;
        return Variant;
    }
}

std::vector<FileMove> MovesOf(const GameState& State, const formats::GameFileDocument& Game) {
    std::vector<FileMove> Moves;
    for (const formats::GameFileMove& Written : Game.Moves) {
        const game::MoveEnds Ends = game::ReadRawMove(State, Written.Raw);
        FileMove& Move = Moves.emplace_back();
        Move.Source = Ends.Source;
        Move.Dest = Ends.Dest;
        Move.Text = Written.Raw;
        Move.Comment = Written.Comment;
    }
    for (const formats::GameFileWay& Way : Game.Ways) {
        if (Way.HalfMove >= 1 && static_cast<std::size_t>(Way.HalfMove) <= Moves.size()) {
            Moves[static_cast<std::size_t>(Way.HalfMove) - 1].Between = Way.Captured;
        }
    }
    return Moves;
}

} // namespace

void AbandonGame(GameState& State, LoadMode Mode) {
    EnterTurn(State, TurnState::Resting);
    if (Mode == LoadMode::Opening || Mode == LoadMode::DrawnMoves) {
        RestartGame(State);
        return;
    }
    if (Mode == LoadMode::Chosen) {
        // Black begins the empty game. Wanted: docs/kept_behaviour.md, "Black begins".
        State.BlackStartsByRules.reset();
        State.RuleSet.BlackStarts = 1;
    }
    StartVariant(State, VariantInHand(State), RulesFrom::Hand, Lots::Left);
}

void SettleLoadedBoard(GameState& State) {
    if (State.RuleSet.PiecesOnBlack < 2 && rules::AllPieces(State).Any()) {
        rules::FitMenToColour(State);
    }
    view::LayoutWindow(State);
}

void ClearForLoad(GameState& State) {
    view::SetStatus(State, "");
    for (view::ListFields* List : {&State.ChoiceList, &State.RootList}) {
        *List = {};
    }
    State.CommentText.clear();
    State.TypedText.clear();
    State.Calculated = {};
    view::WriteCalculation(State);
    State.Progress.Value = 0;
}

void NameFile(GameState& State, const std::filesystem::path& File) {
    State.File = File;
    NoteRecentFile(State, File);
    view::ShowFileName(State, formats::PathText(File.filename()));
}

LoadReport PlayLoadedMoves(GameState& State, const std::vector<FileMove>& Moves, std::string_view LastComment,
                           LoadMode Mode) {
    // 1. The moves.
    const ReplayReport Replayed = ReplayMoves(State, Moves, Mode == LoadMode::Chosen);
    LoadReport Report{LoadResult::Loaded, Replayed.Played, {}};
    if (!Replayed.Whole) {
        Report.How = LoadResult::IllegalMove;
        Report.Refused = Moves[static_cast<std::size_t>(Replayed.Played)].Text;
        Complain(State, "Error", Report.Refused + ": Illegal move!");
        AbandonGame(State, Mode);
        return Report;
    }

    // 2. Where the game stands.
    State.Record.HalfMoves[State.Record.Count + 1].Comment = LastComment;
    EnterTurn(State, TurnState::Resting);
    if (State.PlayMode == view::GameMode::ComputerPlayer) {
        NamePersonToMove(State);
    }
    State.CommentText = State.Record.Last().Comment;
    view::SetStatus(State, view::SideMovesText(State.Side));
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
    view::DrawBoard(State, 0);

    // 3. Whether it has ended. A game is read whole even where it was played on past its end. The end of the last run's
    // game has been announced in that run.
    if (State.Record.Count > 0) {
        if (const auto End = FindEnding(State)) {
            EndGame(State, *End, Mode == LoadMode::Autosave ? Announcement::Silent : Announcement::Aloud);
            view::SetStatus(State, State.EndText);
        }
    }
    State.GameChanged = false;
    return Report;
}

LoadReport StartGameOf(GameState& State, const formats::GameFileDocument& Game, LoadMode Mode) {
    // 1. The rules, and the variant that they are known by.
    formats::VariantDocument Variant = VariantInHand(State);
    if (Game.UseClassic) {
        State.UseClassic = *Game.UseClassic;
        State.VariantName = Game.VariantName;
        Variant = VariantInHand(State);
    }
    State.VariantName = Game.VariantName;
    State.NotationMode = Game.Names;
    State.RuleSet = Game.Rules;
    const std::optional<std::uint8_t> Before = std::exchange(State.BlackStartsByRules, std::nullopt);
    if (Game.PlayerName && *Game.PlayerName != State.PlayerName) {
        State.OwnName = State.OwnName.value_or(State.PlayerName);
        State.PlayerName = *Game.PlayerName;
    }

    // 2. The start position.
    rules::LaySetup(State, Variant.Setup);
    const std::string Usual = rules::BuildSetupText(State);
    const bool OwnStart = !Game.Setup.empty() && Game.Setup != Usual;
    Variant.Setup = Game.Setup.empty() ? Variant.Setup : Game.Setup;
    const bool Allowed = State.RatingAllowed;
    StartVariant(State, Variant, RulesFrom::Hand, Lots::Left);
    if (Mode == LoadMode::DrawnMoves) {
        // It is the game in hand that goes on.
        State.BlackStartsByRules = Before;
        State.RatingAllowed = Allowed;
    } else if (OwnStart) {
        State.BlackStartsByRules = Variant.Rules.BlackStarts;
    }
    SettleLoadedBoard(State);
    State.BookOpen = Game.BookOpen;
    State.Details = Game.Details;

    // 3. The moves.
    LoadReport Report = PlayLoadedMoves(State, MovesOf(State, Game), Game.LastComment, Mode);
    if (Report.How == LoadResult::Loaded && OwnStart && Mode != LoadMode::DrawnMoves) {
        view::MarkTitle(State);
    }
    return Report;
}

LoadReport LoadGameFile(GameState& State, const std::filesystem::path& File, LoadMode Mode) {
    const auto Bytes = formats::ReadFileBytes(File);
    if (!Bytes.Document) {
        Complain(State, "Error", formats::PathText(File) + ": " + Bytes.Error.Text());
        return {};
    }
    const formats::GameFileResult Read = formats::ReadGameFile(*Bytes.Document, DocumentOf(State));
    if (!Read.Document) {
        SayFault(State, Read.Fault, File);
        return {};
    }
    return StartGameOf(State, *Read.Document, Mode);
}

} // namespace zonterbrook::control
