// The New Game command, and the openings that are drawn by lot.
#include "control/new_game.h"

#include "control/ending.h"
#include "control/log.h"
#include "control/record.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

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

// The moves of the opening stand in the record as those of a file do.
void PlayMoves(GameState& State) {
    const std::vector<Ends> Moves = PlayByLot(State);
    RestartGame(State);
    EnterTurn(State, TurnState::Replaying);
    for (const Ends& Move : Moves) {
        auto Made = EnterMove(State, Move.Source, Move.Dest);
        if (!Made) {
            break;
        }
        RecordMove(State, std::move(*Made), game::MadeBy::File);
        LogMove(State);
        DrawRuleCheck(State);
    }
    EnterTurn(State, TurnState::Resting);
    if (State.PlayMode == view::GameMode::ComputerPlayer) {
        NamePersonToMove(State);
    }
    view::SetStatus(State, view::SideMovesText(State.Side));
    rules::GenerateGameMoves(State);
    view::RefreshMoveChoices(State);
    view::DrawBoard(State, 0);
}

} // namespace

void StartNewGame(GameState& State) {
    if (State.Record.Count > 0 && !State.Outside().Ask("Confirmation", "Quit current game?")) {
        return;
    }
    StartVariant(State, ReadChosenVariant(State), RulesFrom::Hand);
    DrawOpeningByLot(State);
    if (State.UseSound == 1) {
        State.Outside().PlaySound("sounds/roll.wav");
    }
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
