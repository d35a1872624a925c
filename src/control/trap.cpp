// The event dispatch's trap.
#include "control/trap.h"

#include "control/log.h"

#include <exception>
#include <string>

namespace zonterbrook::control {

namespace {

// Counts the handlers at work, also when one is left by an exception.
class Depth {
public:
    explicit Depth(GameState& InState) : State(InState) { ++State.HandlerDepth; }
    ~Depth() { --State.HandlerDepth; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

private:
    GameState& State;
};

void ShowAndEnd(GameState& State, std::string_view Text) {
    State.Outside->Message("Error", Text, Icon::Exclamation);
    End1(State);
}

} // namespace

void RunTrapped(GameState& State, const std::function<void()>& Handler, std::string_view FaultText) {
    if (State.Ending != 0) {
        return;
    }
    {
        const Depth Running(State);
        try {
            Handler();
        } catch (const FileFault& Failure) {
            if (State.LogOpen != 0) {
                State.Outside->AppendLog(std::string(Failure.what()) + "\n");
            }
            ShowAndEnd(State, ErrorFound);
        } catch (const std::exception& Failure) {
            // The standard library's own failures end the run as ours do.
            ShowAndEnd(State, FaultText.empty() ? Failure.what() : FaultText);
        }
    }
    if (State.HandlerDepth == 0 && State.ClosePending != 0 && State.Ending == 0) {
        State.ClosePending = 0;
        State.Outside->CloseWindow();
    }
}

void End1(GameState& State) {
    if (State.Ending != 0) {
        return;
    }
    State.Ending = 1;
    // A search below the failed handler unwinds by these before the window goes.
    State.CancelRequested = rules::StopRequest::Person;
    State.Cancel1 = 1;
    CloseLog(State);
    State.Outside->EndProgram();
}

} // namespace zonterbrook::control
