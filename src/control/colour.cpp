// The person's colour.
//
// Writes the mode, the names beside the board and the setting that remembers the colour. Moving is computer_move.h's
// business.
#include "control/colour.h"

#include "control/computer_move.h"
#include "control/input_state.h"
#include "control/settings.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

using view::PersonColour;

void Play(GameState& State, PersonColour Colour) {
    ClearInput(State);
    State.OwnSettings.PlayColour = static_cast<std::int32_t>(Colour);
    SaveOwnSettings(State);
    State.PlayMode = view::GameMode::ComputerPlayer;
    State.BoardTurned = Colour == PersonColour::Black ? 1 : 0;
    view::SetStatus(State, StandingText(State));
    BeginByColour(State);
}

} // namespace

void PlayWhite(GameState& State) {
    Play(State, PersonColour::White);
}

void PlayBlack(GameState& State) {
    Play(State, PersonColour::Black);
}

void BeginByColour(GameState& State) {
    const auto Colour = static_cast<PersonColour>(State.OwnSettings.PlayColour);
    if (Colour == PersonColour::NotChosen || State.PlayMode != view::GameMode::ComputerPlayer) {
        return;
    }
    NamePlayers(State);
    view::DrawBoard(State, 0);
    const std::int32_t Person = Colour == PersonColour::White ? rules::White : rules::Black;
    if (TakesMoves(State) && State.Side != Person) {
        ComputeNow(State);
    }
}

} // namespace zonterbrook::control
