// The beginning and the end of a run.
//
// Start-up brings everything that a game needs into being, in an order that matters: settings, pictures, log, game,
// layout, board. What the window is asked at its end stands here, too.
#include "control/start.h"

#include "control/log.h"
#include "control/new_game.h"
#include "control/trap.h"
#include "view/commands.h"
#include "view/draw_board.h"
#include "view/layout.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

constexpr std::int16_t FirstRating = 1200;
constexpr std::uint8_t LeastDepth = 2;
constexpr std::int32_t SmallPictures = 0;
constexpr std::int32_t MediumPictures = 2;

// The settings of a first start.
void LoadSettings(GameState& State) {
    static_cast<view::SettingsFields&>(State) = {};
    if (State.SearchDepth == 0) {
        State.SearchDepth = LeastDepth;
    }
    // A run never begins with the computer playing itself.
    if (State.PlayMode == view::ComputerComputer) {
        State.PlayMode = view::ComputerPlayer;
    }
}

// One of the two picture sets that the program brings along; any other name falls back on the medium one.
void LoadSkin(GameState& State) {
    State.SizeClass = State.SkinName == "Classic Small" ? SmallPictures : MediumPictures;
}

} // namespace

void StartProgram(GameState& State) {
    engine::ResetEngine(State, *State.Outside);
    State.Rating = FirstRating;
    LoadSettings(State);
    view::ResetCommands(State);
    LoadSkin(State);
    OpenLog(State);
    NewGame(State);
    view::LayoutWindow(State);
    State.StatusPanels[view::ProductPanel] = view::ProductLine;
    view::SetStatus(State, view::SideMovesText(State.Side));
    view::DrawBoard(State, 0);
    view::ShowStrength(State);
    DrawOpeningByLot(State);
}

bool MayClose(GameState& State) {
    if (State.Ending != 0) {
        return true;
    }
    if (State.HandlerDepth > 0) {
        // Something is at work below; it unwinds first, and the window is closed again when it has.
        State.CancelRequested =
            State.SearchActive != 0 || State.Thinking != 0 ? rules::StopRequest::Person : State.CancelRequested;
        State.Cancel1 = 1;
        State.ClosePending = 1;
        return false;
    }
    bool Close = true;
    RunTrapped(State, [&] {
        Close = State.ConfirmExit == 0 || State.Outside->Ask("Confirmation", "Are you sure you want to exit?");
    });
    return Close;
}

void EndProgram(GameState& State) {
    if (State.Ending != 0) {
        return;
    }
    State.Ending = 1;
    CloseLog(State);
    State.Outside->EndProgram();
}

} // namespace zonterbrook::control
