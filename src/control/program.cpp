// The beginning and the end of a run.
//
// Start-up brings everything that a game needs into being, in an order that matters: settings, pictures, log, game,
// layout, board. What the window is asked at its end stands here, too.
#include "control/program.h"

#include "control/game_document.h"
#include "control/loaded_game.h"
#include "control/log.h"
#include "control/new_game.h"
#include "control/pdn_game.h"
#include "control/settings.h"
#include "control/skin.h"
#include "control/trap.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

// The game of the last run comes back where the person wants it to.
void LoadLastGame(GameState& State) {
    if (State.AutoSave != 1) {
        return;
    }
    if (const auto File = formats::FindFile(State.Outside().WritableDirectory(), AutosaveName)) {
        LoadGameFile(State, *File, LoadMode::Autosave);
        State.GameChanged = State.Record.Count > 0; // no file of the person's own holds it
    }
}

bool PersonAgrees(const GameState& State) {
    return State.ConfirmExit == 0 || State.Outside().Ask("Confirmation", "Are you sure you want to exit?");
}

// Whatever is at work unwinds; the window closes when the last handler has returned.
void CloseSoon(GameState& State) {
    State.CloseWanted = true;
    if (IsBusy(State)) {
        AskForStop(State);
    }
}

} // namespace

void StartProgram(GameState& State) {
    engine::ResetEngine(State, State.Outside());
    LoadRating(State);
    LoadSettings(State);
    LoadOwnSettings(State);
    LoadSkin(State);
    OpenLog(State);
    StartVariant(State, ReadChosenVariant(State), RulesFrom::Hand);
    State.StatusPanels[view::ProductPanel] = view::ProductLine;
    if (State.ChooseOpening == 1) {
        LoadOpening(State);
    }
    view::ShowStrength(State);
    DrawOpeningByLot(State);
    LoadLastGame(State);
    if (State.Outside().KeptBy() == FileKeeper::AnotherProgram) {
        view::SetStatus(State, "Another Zonterbrook is running: it keeps the settings and the last game");
    }
}

bool MayClose(GameState& State) {
    const bool AtWork = State.HandlersAtWork > 0;
    if (State.ProgramEnds || (State.CloseWanted && !AtWork)) {
        return true;
    }
    if (State.CloseWanted) {
        return false; // agreed, and still unwinding
    }
    bool Agreed = false;
    RunTrapped(State, [&] { Agreed = PersonAgrees(State); });
    if (Agreed && AtWork) {
        CloseSoon(State);
    }
    return Agreed && !AtWork;
}

void Exit_Click(GameState& State) {
    if (!State.CloseWanted && PersonAgrees(State)) {
        CloseSoon(State);
    }
}

void EndProgram(GameState& State) {
    if (State.ProgramEnds) {
        return;
    }
    SaveByItself(State);
    SaveSettings(State);
    SaveOwnSettings(State);
    State.ProgramEnds = true;
    CloseLog(State);
    State.Outside().EndProgram();
}

} // namespace zonterbrook::control
