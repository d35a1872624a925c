// The New Game command, and the openings that are drawn by lot.
#include "control/new_game.h"

#include "control/colour.h"
#include "control/ending.h"
#include "control/game_document.h"
#include "control/kept_game.h"
#include "control/open_game.h"
#include "control/pdn_game.h"
#include "control/record.h"
#include "control/variant_editor.h"
#include "control/variant_start.h"
#include "formats/text_file.h"
#include "rules/generate.h"
#include "rules/install.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zonterbrook::control {

namespace {

// A game from which men have been taken never changes the rating.
void RemoveMen(GameState& State) {
    rules::RemoveMen(State, State.Outside());
    StartPosition(State);
    State.RatingAllowed = false;
}

struct Ends {
    int Source;
    int Dest;
};

// The move that the lot falls on.
Ends DrawMove(GameState& State) {
    const int Count = rules::MoveCountOfPly(State);
    const int Drawn = std::min(static_cast<int>(State.Outside().Random() * Count), Count - 1);
    const rules::MoveRecord& Move = State.MoveStack[State.StackLimit[State.Ply] + Drawn];
    return {Move.Source, Move.Dest};
}

// Plays moves by lot and gives them back; a move that would end the game is not among them. The position is left behind
// the last one drawn.
std::vector<Ends> PlayByLot(GameState& State) {
    std::vector<Ends> Moves;
    while (static_cast<int>(Moves.size()) < State.RuleSet.NumberMoves) {
        rules::GenerateGameMoves(State);
        if (rules::MoveCountOfPly(State) == 0) {
            break;
        }
        const Ends Drawn = DrawMove(State);
        auto Made = EnterMove(State, Drawn.Source, Drawn.Dest);
        if (!Made) {
            break;
        }
        RecordMove(State, std::move(*Made), game::MadeBy::File);
        DrawRuleCheck(State);
        if (FindEnding(State)) {
            break;
        }
        Moves.push_back(Drawn);
    }
    return Moves;
}

// The moves of the opening come from a game file, so that they stand in the record as those of one do.
void PlayMoves(GameState& State) {
    const std::size_t Count = PlayByLot(State).size();
    formats::GameFileDocument Opening = DocumentOf(State);
    Opening.Moves.resize(std::min(Count, Opening.Moves.size()));
    RestartGame(State);
    const std::filesystem::path File = State.Outside().WritableDirectory() / DrawnMovesName;
    if (formats::WriteFile(File, formats::WriteGameFile(Opening))) {
        // Without a place for the file the moves are played all the same.
        StartGameOf(State, Opening, LoadMode::DrawnMoves);
        return;
    }
    LoadGameFile(State, File, LoadMode::DrawnMoves);
    std::error_code Error;
    std::filesystem::remove(File, Error);
}

} // namespace

void StartNewGame(GameState& State, ChooseVariant Dialog) {
    // 1. The game in hand.
    if (WouldLoseMoves(State) && !State.Outside().Ask("Confirmation", "Quit current game?")) {
        return;
    }
    State.Replaced = KeepGame(State);
    StartVariant(State, ReadChosenVariant(State), RulesFrom::Hand);

    // 2. The variant. However the dialog is closed, what it has left in force is played.
    if (Dialog == ChooseVariant::Yes) {
        VariantEditor Editor(State);
        State.Outside().ShowVariants(Editor);
        if (State.ProgramEnds) {
            return;
        }
        StartVariant(State, ReadChosenVariant(State), RulesFrom::Hand);
    }

    // 3. The opening.
    if (State.ChooseOpening == 1) {
        LoadOpening(State);
    }
    DrawOpeningByLot(State);
    if (State.UseSound == 1) {
        State.Outside().PlaySound("sounds/roll.wav", State.OwnSettings.Volume);
    }
    BeginByColour(State);
}

void New1_Click(GameState& State) {
    StartNewGame(State, ChooseVariant::No);
}

void NewVariant_Click(GameState& State) {
    StartNewGame(State, ChooseVariant::Yes);
}

void DrawOpeningByLot(GameState& State) {
    if (State.RuleSet.RemoveMen == 1) {
        RemoveMen(State);
    }
    if (State.RuleSet.DoMoves == 1) {
        PlayMoves(State);
    }
}

} // namespace zonterbrook::control
