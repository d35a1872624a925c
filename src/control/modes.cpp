// The three modes of play, and Cancel.
//
// A change of mode leaves position and record alone. Writes the mode and the names beside the board.
#include "control/modes.h"

#include "control/book.h"
#include "control/computer_move.h"
#include "control/input_state.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "rules/generate.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

using view::GameMode;

void BeginOwnPlay(GameState& State) {
    ClearInput(State);
    State.RatingAllowed = false;
    State.CancelRequested = rules::StopRequest::None;
    State.PlayMode = GameMode::ComputerComputer;
    NamePlayers(State);
    view::ShowPlayers(State);
    State.ChoiceList = {};
    State.RootList = {};
    EnterTurn(State, TurnState::Thinking);
}

// A Cancel that came between two moves ends the play as well.
bool OwnPlayEnds(const GameState& State) {
    return State.StopAutoPlay == 1 || IsOver(State) || State.CancelRequested != rules::StopRequest::None ||
           State.ProgramEnds;
}

void EndOwnPlay(GameState& State) {
    State.CancelRequested = rules::StopRequest::None;
    State.PlayMode = GameMode::ComputerPlayer;
    if (!IsOver(State)) {
        EnterTurn(State, TurnState::Resting);
    }
    view::SetStatus(State, StandingText(State));
    NamePersonToMove(State);
    view::ShowPlayers(State);
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
}

} // namespace

void SetComputerPlayerMode(view::ViewState& State) {
    State.PlayMode = GameMode::ComputerPlayer;
    NamePersonToMove(State);
    view::ShowPlayers(State);
    view::SetStatus(State, "Computer-Player mode");
}

void SetPlayerPlayerMode(view::ViewState& State) {
    State.PlayMode = GameMode::PlayerPlayer;
    NamePlayers(State);
    view::ShowPlayers(State);
    view::SetStatus(State, "Player-Player mode");
}

void RunComputerComputer(GameState& State) {
    BeginOwnPlay(State);
    // At least one move is always asked for.
    do {
        ComputerMove(State);
        State.Outside().Wait(PauseSeconds);
    } while (!OwnPlayEnds(State));
    if (!State.ProgramEnds) {
        EndOwnPlay(State);
    }
}

void ComputeForPerson(GameState& State) {
    ClearInput(State);
    ComputeNow(State);
}

void mnu_Play_Cancel_Click(GameState& State) {
    if (CanCancel(State)) {
        AskForStop(State);
    }
}

} // namespace zonterbrook::control
