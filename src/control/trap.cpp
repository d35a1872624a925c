// The event dispatch's trap.
#include "control/trap.h"

#include "control/log.h"
#include "control/turn_state.h"

#include <cassert>
#include <exception>
#include <string>

namespace zonterbrook::control {

namespace {

// Counts the handlers at work, also when one is left by an exception.
class AtWork {
public:
    explicit AtWork(GameState& InState) : State(InState) { ++State.HandlersAtWork; }
    ~AtWork() { --State.HandlersAtWork; }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

private:
    GameState& State;
};

void ShowAndEnd(GameState& State, std::string_view Text) {
    State.Outside().Message("Error", Text, Icon::Exclamation);
    End1(State);
}

} // namespace

void RunTrapped(GameState& State, const std::function<void()>& Handler, std::string_view FaultText) {
    if (State.ProgramEnds) {
        return;
    }
    {
        const AtWork Running(State);
        try {
            Handler();
        } catch (const FileFault& Failure) {
            AppendLog(State, std::string(Failure.what()) + "\n");
            ShowAndEnd(State, ErrorFound);
        } catch (const std::exception& Failure) {
            // The standard library's own failures end the run as ours do.
            ShowAndEnd(State, FaultText.empty() ? Failure.what() : FaultText);
        }
    }
    if (State.HandlersAtWork > 0 || State.ProgramEnds) {
        return;
    }
    assert(CheckRest(State).empty());
    if (State.CloseWanted) {
        State.Outside().CloseWindow();
    }
}

void End1(GameState& State) {
    if (State.ProgramEnds) {
        return;
    }
    State.ProgramEnds = true;
    // A search below the failed handler unwinds by this before the window goes.
    AskForStop(State);
    CloseLog(State);
    State.Outside().EndProgram();
}

} // namespace zonterbrook::control
