// Which event of the window gives and takes which command: one table, walked by one routine.
//
// Writes the commands' states, the typed-move box and the toolbar; reads mode, cursor and list of moves.
#include "view/commands.h"
#include "view/state.h"

namespace zonterbrook::view {

namespace {

using Id = CommandId;
using Event = WindowEvent;

enum class Action { Enable, Disable, Tick };

enum class When {
    Always,
    ComputerPlayer,
    NotPlayerPlayer,
    NotComputerComputer,
    MovesBehind,
    NothingBehind,
    MovesAhead,
    NothingAhead,
};

constexpr Id Backward[] = {Id::First, Id::Moveback};
constexpr Id Forward[] = {Id::MoveForward, Id::Last};
constexpr Id Engine[] = {Id::Compute, Id::Analyze, Id::mnu_Play_Ccomputer};
constexpr Id AgainstComputer[] = {Id::Offerdraw, Id::Resign};
constexpr Id Hint[] = {Id::Hint};
constexpr Id Cancel[] = {Id::mnu_Play_Cancel};
constexpr Id Save[] = {Id::Save};
constexpr Id Modes[] = {Id::Cplayer, Id::Pplayer};
constexpr Id ComputerPlayerMode[] = {Id::Cplayer};
constexpr Id PlayerPlayerMode[] = {Id::Pplayer};
constexpr Id ComputerComputerMode[] = {Id::mnu_Play_Ccomputer};
// What would pull the game away from under a search, beside the engine's own commands.
constexpr Id GameChanging[] = {Id::New1,    Id::NewVariant, Id::Open1,         Id::Save,      Id::mnuProblem,
                               Id::Details, Id::Options,    Id::plyvaluetable, Id::mnu_Board1};

struct EnableRule {
    Event On;
    Action Does;
    std::span<const Id> Commands;
    When If = When::Always;
};

constexpr EnableRule Rules[] = {
    {Event::GameBegins, Action::Enable, Engine},
    {Event::GameBegins, Action::Enable, AgainstComputer, When::ComputerPlayer},
    {Event::GameBegins, Action::Enable, Hint, When::NotComputerComputer},
    {Event::GameBegins, Action::Disable, Backward},
    {Event::GameBegins, Action::Disable, Forward},
    {Event::GameBegins, Action::Disable, Save},

    {Event::MoveEntered, Action::Enable, Backward},
    {Event::MoveEntered, Action::Enable, Save},
    {Event::MoveEntered, Action::Disable, Forward},

    {Event::SteppedForward, Action::Enable, Backward},
    {Event::SteppedForward, Action::Disable, Forward, When::NothingAhead},

    {Event::SteppedBack, Action::Enable, Engine},
    {Event::SteppedBack, Action::Enable, Forward},
    {Event::SteppedBack, Action::Enable, Hint},
    {Event::SteppedBack, Action::Enable, AgainstComputer, When::NotPlayerPlayer},
    {Event::SteppedBack, Action::Disable, Backward, When::NothingBehind},

    {Event::GameEnds, Action::Disable, Engine},
    {Event::GameEnds, Action::Disable, AgainstComputer},
    {Event::GameEnds, Action::Disable, Hint},

    {Event::SearchBegins, Action::Enable, Cancel},
    {Event::SearchBegins, Action::Disable, GameChanging},
    {Event::SearchBegins, Action::Disable, Engine},
    {Event::SearchBegins, Action::Disable, Modes},
    {Event::SearchBegins, Action::Disable, AgainstComputer},
    {Event::SearchBegins, Action::Disable, Hint},
    {Event::SearchBegins, Action::Disable, Backward},
    {Event::SearchBegins, Action::Disable, Forward},

    // While the computer plays itself nothing comes back between two moves: events run in the pause between them, and a
    // new game begun there would meet the next search.
    {Event::SearchEnds, Action::Disable, Cancel, When::NotComputerComputer},
    {Event::SearchEnds, Action::Enable, GameChanging, When::NotComputerComputer},
    {Event::SearchEnds, Action::Enable, Engine, When::NotComputerComputer},
    {Event::SearchEnds, Action::Enable, Modes, When::NotComputerComputer},
    {Event::SearchEnds, Action::Enable, AgainstComputer, When::ComputerPlayer},
    {Event::SearchEnds, Action::Enable, Hint, When::NotComputerComputer},
    {Event::SearchEnds, Action::Enable, Backward, When::MovesBehind},
    {Event::SearchEnds, Action::Enable, Forward, When::MovesAhead},

    {Event::CancelPressed, Action::Disable, Cancel},

    {Event::ComputerPlayerChosen, Action::Enable, AgainstComputer},
    {Event::ComputerPlayerChosen, Action::Enable, Hint},
    {Event::ComputerPlayerChosen, Action::Tick, ComputerPlayerMode},

    {Event::PlayerPlayerChosen, Action::Disable, AgainstComputer},
    {Event::PlayerPlayerChosen, Action::Enable, Hint},
    {Event::PlayerPlayerChosen, Action::Tick, PlayerPlayerMode},

    {Event::ComputerComputerChosen, Action::Disable, AgainstComputer},
    {Event::ComputerComputerChosen, Action::Disable, Hint},
    {Event::ComputerComputerChosen, Action::Tick, ComputerComputerMode},
};

bool Holds(const ViewState& State, When Condition) {
    const bool Behind = State.GameMoves > 0;
    const bool Ahead = State.GameList.Lines.size() > static_cast<std::size_t>(State.GameMoves);
    const bool Resting = State.PlayMode != ComputerComputer;
    switch (Condition) {
    case When::Always:
        return true;
    case When::ComputerPlayer:
        return State.PlayMode == ComputerPlayer;
    case When::NotPlayerPlayer:
        return State.PlayMode != PlayerPlayer;
    case When::NotComputerComputer:
        return Resting;
    case When::MovesBehind:
        return Resting && Behind;
    case When::NothingBehind:
        return !Behind;
    case When::MovesAhead:
        return Resting && Ahead;
    case When::NothingAhead:
        return !Ahead;
    }
    return false;
}

// The tools of the engine freeze and give back what a search does.
Event EventOfTable(Event Happened) {
    switch (Happened) {
    case Event::ToolBegins:
        return Event::SearchBegins;
    case Event::ToolEnds:
        return Event::SearchEnds;
    default:
        return Happened;
    }
}

} // namespace

void ApplyEvent(ViewState& State, WindowEvent Happened) {
    const Event On = EventOfTable(Happened);
    for (const EnableRule& Rule : Rules) {
        if (Rule.On != On || !Holds(State, Rule.If)) {
            continue;
        }
        for (const Id Command : Rule.Commands) {
            if (Rule.Does == Action::Tick) {
                ChooseRadio(State, Command);
            } else {
                SetEnabled(State, Command, Rule.Does == Action::Enable);
            }
        }
    }
    if (On == Event::SearchBegins) {
        State.MoveBox.Enabled = false;
    } else if (On == Event::SearchEnds && State.PlayMode != ComputerComputer) {
        State.MoveBox.Enabled = true;
    }
}

void SetEnabled(ViewState& State, CommandId Command, bool Enabled) {
    State.CommandOf(Command).Enabled = Enabled && RowOf(Command).Built;
}

void ChooseRadio(ViewState& State, CommandId Chosen) {
    const std::span<const CommandRow> Table = CommandRows();
    const CommandRow* Row = &RowOf(Chosen);
    const auto InGroup = [&](const CommandRow* Candidate) {
        return Candidate >= Table.data() && Candidate < Table.data() + Table.size() &&
               Candidate->Kind == CommandKind::Radio && Candidate->Menu == Row->Menu;
    };
    const CommandRow* First = Row;
    while (First > Table.data() && InGroup(First - 1)) {
        --First;
    }
    for (const CommandRow* Neighbour = First; InGroup(Neighbour); ++Neighbour) {
        State.CommandOf(Neighbour->Id).Ticked = Neighbour->Id == Chosen;
    }
}

bool CanRun(const ViewState& State, CommandId Command) {
    for (Id At = Command; At != Id::None; At = RowOf(At).Menu) {
        if (!State.CommandOf(At).Enabled) {
            return false;
        }
    }
    return Command != Id::None;
}

namespace {

void SetMenus(ViewState& State, bool Enabled) {
    for (const Id Menu : {Id::mnuGame, Id::mnuPlay, Id::mnu_Board1, Id::view, Id::Help}) {
        SetEnabled(State, Menu, Enabled);
    }
    State.MoveBox.Enabled = Enabled;
    State.ToolbarEnabled = Enabled;
}

} // namespace

void FreezeMenus(ViewState& State) {
    SetMenus(State, false);
}

void UnfreezeMenus(ViewState& State) {
    SetMenus(State, true);
}

void ResetCommands(ViewState& State) {
    for (const CommandRow& Row : CommandRows()) {
        if (Row.Kind != CommandKind::Separator) {
            State.CommandOf(Row.Id) = {Row.Built, false};
        }
    }
    SetEnabled(State, Id::mnu_Play_Cancel, false);
    switch (State.PlayMode) {
    case PlayerPlayer:
        ApplyEvent(State, Event::PlayerPlayerChosen);
        break;
    case ComputerComputer:
        ApplyEvent(State, Event::ComputerComputerChosen);
        break;
    default:
        ApplyEvent(State, Event::ComputerPlayerChosen);
    }
    static constexpr Id Notations[] = {Id::mnu_Board_Notation_Chess, Id::mnu_Board_Notation_Checkers, Id::Nonotation};
    ChooseRadio(State, Notations[static_cast<int>(State.NotationMode)]);
    State.CommandOf(Id::calculation).Ticked = State.ShowCalculation == 1;
}

} // namespace zonterbrook::view
