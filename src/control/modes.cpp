// The three modes of play, and Cancel.
//
// A change of mode leaves position and record alone. Writes the mode, the names beside the board and the commands.
#include "control/modes.h"

#include "control/computer_move.h"
#include "control/new_game.h"
#include "rules/generate.h"
#include "view/commands.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

using view::WindowEvent;

constexpr double PauseSeconds = 0.5;
constexpr std::string_view ComputerName = "Computer";

// The commands of a mode; those that an ended game can't use stay off.
void ChooseMode(GameState& State, std::int32_t Mode, WindowEvent Event) {
    State.PlayMode = Mode;
    view::ApplyEvent(State, Event);
    if (State.GameEnded != 0) {
        view::ApplyEvent(State, WindowEvent::GameEnds);
    }
}

void NameBoth(GameState& State, std::string_view Name) {
    State.WhitePlayerName = Name;
    State.BlackPlayerName = Name;
    view::ShowPlayers(State);
}

void BeginOwnPlay(GameState& State) {
    State.RatingAllowed = 0;
    State.CancelRequested = rules::StopRequest::None;
    ChooseMode(State, view::ComputerComputer, WindowEvent::ComputerComputerChosen);
    NameBoth(State, ComputerName);
    for (view::ListFields* List : {&State.ChoiceList, &State.RootList}) {
        List->Lines.clear();
        List->Selected = -1;
        List->Enabled = false;
    }
}

// A Cancel that came between two moves ends the play as well.
bool OwnPlayEnds(const GameState& State) {
    return State.StopAutoPlay == 1 || State.GameEnded == 1 || State.CancelRequested != rules::StopRequest::None ||
           State.Ending != 0;
}

void EndOwnPlay(GameState& State) {
    State.Thinking = 0;
    State.SearchActive = 0;
    State.CancelRequested = rules::StopRequest::None;
    State.PlayMode = view::ComputerPlayer;
    view::ApplyEvent(State, WindowEvent::SearchEnds);
    ChooseMode(State, view::ComputerPlayer, WindowEvent::ComputerPlayerChosen);
    NamePersonToMove(State);
    view::ShowPlayers(State);
    State.ChoiceList.Enabled = State.GameEnded == 0;
    State.RootList.Enabled = true;
    rules::GenerateGameMoves(State);
    view::RefreshMoveChoices(State);
}

} // namespace

void SetComputerPlayerMode(GameState& State) {
    ChooseMode(State, view::ComputerPlayer, WindowEvent::ComputerPlayerChosen);
    NamePersonToMove(State);
    view::ShowPlayers(State);
    view::SetStatus(State, "Computer-Player mode");
}

void SetPlayerPlayerMode(GameState& State) {
    ChooseMode(State, view::PlayerPlayer, WindowEvent::PlayerPlayerChosen);
    NameBoth(State, State.PlayerName);
    view::SetStatus(State, "Player-Player mode");
}

void RunComputerComputer(GameState& State) {
    BeginOwnPlay(State);
    // At least one move is always asked for.
    do {
        State.Thinking = 1;
        ComputerMove(State);
        State.Outside->Wait(PauseSeconds);
    } while (!OwnPlayEnds(State));
    if (State.Ending == 0) {
        EndOwnPlay(State);
    }
}

void mnu_Play_Cancel_Click(GameState& State) {
    if (State.SearchActive == 1) {
        State.CancelRequested = rules::StopRequest::Person;
        view::ApplyEvent(State, WindowEvent::CancelPressed);
    }
}

} // namespace zonterbrook::control
