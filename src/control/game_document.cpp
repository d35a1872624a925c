// The game as a document, and the autosave.
#include "control/game_document.h"

#include "formats/text_file.h"
#include "rules/position.h"

namespace zonterbrook::control {

game::Details DetailsToSave(const GameState& State) {
    game::Details Details = State.Details;
    if (State.PlayMode == view::GameMode::PlayerPlayer && !State.OwnSettings.SecondName.empty()) {
        Details.White = Details.White.empty() ? State.WhitePlayerName : Details.White;
        Details.Black = Details.Black.empty() ? State.BlackPlayerName : Details.Black;
    }
    return Details;
}

formats::GameFileDocument DocumentOf(const GameState& State) {
    formats::GameFileDocument Game;
    Game.VariantName = State.VariantName;
    Game.Setup = rules::BuildSetupText(State);
    Game.BookOpen = State.BookOpen;
    Game.Names = State.NotationMode;
    Game.Rules = State.RuleSet;
    Game.UseClassic = State.UseClassic;
    Game.PlayerName = State.PlayerName;
    Game.Details = DetailsToSave(State);
    const game::GameRecord& Record = State.Record;
    for (int Number = 1; Number <= Record.Count; ++Number) {
        const game::HalfMove& Made = Record.HalfMoves[Number];
        const rules::MoveRecord& Move = Made.Played.Record;
        Game.Moves.push_back({game::RawMove(State.NotationMode, game::NamedMoveOf(Move)), Made.Comment});
        if (Made.Way > 0) {
            formats::GameFileWay Way{Number, {}};
            for (int I = 0; I < Move.Captures.Count; ++I) {
                Way.Captured.push_back(Move.Captures.Groups[I].Cell);
            }
            Game.Ways.push_back(std::move(Way));
        }
    }
    Game.LastComment = Record.HalfMoves[Record.Count + 1].Comment;
    return Game;
}

void SaveByItself(GameState& State) {
    Platform& Outside = State.Outside();
    if (Outside.KeptBy() != FileKeeper::ThisProgram) {
        return;
    }
    const auto Failure =
        formats::WriteFile(Outside.WritableDirectory() / AutosaveName, formats::WriteGameFile(DocumentOf(State)));
    if (Failure && !State.AutosaveComplained) {
        State.AutosaveComplained = true;
        Outside.Message("Error", Failure->Text(), Icon::Exclamation);
    }
}

} // namespace zonterbrook::control
