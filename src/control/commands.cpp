// The commands of the main window in one table, and the toolbar made from it.
#include "control/commands.h"

#include "base/fault.h"
#include "control/analysis.h"
#include "control/clipboard.h"
#include "control/colour.h"
#include "control/details.h"
#include "control/diagram.h"
#include "control/draw_offer.h"
#include "control/help.h"
#include "control/hint.h"
#include "control/input.h"
#include "control/input_state.h"
#include "control/modes.h"
#include "control/navigation.h"
#include "control/new_game.h"
#include "control/notation.h"
#include "control/open_game.h"
#include "control/options.h"
#include "control/ply_values.h"
#include "control/problems.h"
#include "control/program.h"
#include "control/restored_game.h"
#include "control/saved_game.h"
#include "control/trap.h"
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>

namespace zonterbrook::control {

namespace {

using Id = CommandId;
using Kind = CommandKind;
using rules::Notation;
using view::GameMode;

// --- When a command is enabled -------------------------------------------------------------------------------------

bool Always(const GameState& /*State*/) {
    return true;
}

bool Never(const GameState& /*State*/) {
    return false;
}

bool AtRest(const GameState& State) {
    return !IsBusy(State);
}

// While a message is about to come, nothing else may.
bool NotEnding(const GameState& State) {
    return State.Turn != TurnState::Ending;
}

bool MayPlayOn(const GameState& State) {
    return TakesMoves(State);
}

// Between two persons a draw or a resignation has no meaning.
bool PlaysComputer(const GameState& State) {
    return TakesMoves(State) && State.PlayMode == GameMode::ComputerPlayer;
}

bool MovesBehind(const GameState& State) {
    return !IsBusy(State) && State.Record.MovesBehind();
}

// A game that has begun, or a position of the person's own.
bool WorthSaving(const GameState& State) {
    return !IsBusy(State) && (State.Record.Count > 0 || State.BlackStartsByRules);
}

bool HasReplaced(const GameState& State) {
    return !IsBusy(State) && State.Replaced != nullptr;
}

bool HasRecent(const GameState& State) {
    return !IsBusy(State) && !State.RecentFiles.empty();
}

bool MayTakeBack(const GameState& State) {
    return !IsBusy(State) && StepsToTakeBack(State) > 0;
}

bool MovesAhead(const GameState& State) {
    return !IsBusy(State) && State.Record.MovesAhead();
}

// --- When it bears a tick ------------------------------------------------------------------------------------------

template <GameMode Mode>
bool InMode(const GameState& State) {
    return State.PlayMode == Mode;
}

template <std::int32_t Side>
bool PersonPlays(const GameState& State) {
    return State.PlayMode == GameMode::ComputerPlayer && PersonSide(State) == Side;
}

template <Notation Names>
bool InNotation(const GameState& State) {
    return State.NotationMode == Names;
}

bool ShowsCalculation(const GameState& State) {
    return State.ShowCalculation == 1;
}

template <std::int32_t Piece>
bool PieceIs(const GameState& State) {
    return State.Board[State.PopupSquare] == Piece;
}

template <std::int32_t Side>
bool SideIs(const GameState& State) {
    return State.Side == Side;
}

// --- What it runs, where that is not a routine of its own ----------------------------------------------------------

void TurnBoard(GameState& State) {
    const std::int32_t Touched = State.TouchedSquare; // stays touched, wherever it is shown
    ClearInput(State);
    State.TouchedSquare = Touched;
    State.BoardTurned = 1 - State.BoardTurned;
    view::DrawBoard(State, 0);
}

template <Notation Names>
void SetNotationTo(GameState& State) {
    SetNotation(State, Names);
}

void ToggleCalculation(view::ViewState& State) {
    State.ShowCalculation = 1 - State.ShowCalculation;
    if (State.ShowCalculation == 0) {
        State.Calculated = {};
        view::WriteCalculation(State);
    }
}

template <std::int32_t view::OwnSettingsFields::*Setting>
void ToggleOwn(GameState& State) {
    State.OwnSettings.*Setting = 1 - State.OwnSettings.*Setting;
}

template <std::int32_t view::OwnSettingsFields::*Setting>
bool HasOwn(const GameState& State) {
    return State.OwnSettings.*Setting == 1;
}

void ToggleFullScreen(GameState& State) {
    State.FullScreen = !State.FullScreen;
}

bool FillsScreen(const GameState& State) {
    return State.FullScreen;
}

void Analyze_Click(GameState& State) {
    AnalyzeNow(State);
}

void Hint_Click(GameState& State) {
    ShowHint(State);
}

void rating_Click(GameState& State) {
    // The words have three r. Wanted: docs/kept_behaviour.md, "currrent".
    State.Outside().Message("Rating", "Your currrent rating is" + view::SignedText(State.Rating), Icon::Exclamation);
}

// A routine asks for the slice of the state that it needs.
template <auto Routine>
void Run(GameState& State) {
    Routine(State);
}

// --- The table -----------------------------------------------------------------------------------------------------

constexpr CommandRow Menu(Id Own, Id Parent, std::string_view Name, std::string_view Caption,
                          bool (*Enabled)(const GameState&) = Always) {
    return {Own, Parent, Kind::Menu, Name, Caption, {}, Enabled, nullptr};
}

constexpr CommandRow Line(Id Parent, std::string_view Name) {
    return {Id::None, Parent, Kind::Separator, Name, "-", {}, Never, nullptr};
}

constexpr CommandRow Rows[] = {
    Menu(Id::GameMenu, Id::None, "mnuGame", "&Game"),
    {Id::NewGame, Id::GameMenu, Kind::Entry, "New1", "New Game", "Ctrl+N", AtRest, Run<New1_Click>},
    {Id::NewVariant, Id::GameMenu, Kind::Entry, "NewVariant", "New Variant...", "Ctrl+Shift+N", AtRest,
     Run<NewVariant_Click>},
    Line(Id::GameMenu, "streep1"),
    {Id::Open, Id::GameMenu, Kind::Entry, "Open1", "Open...", "Ctrl+O", AtRest, Run<Open_Click>},
    Menu(Id::RecentMenu, Id::GameMenu, "OpenRecent", "Open Recent", HasRecent),
    {Id::Save, Id::GameMenu, Kind::Entry, "Save", "Save...", "Ctrl+S", WorthSaving, Run<Save_Click>},
    {Id::SaveAs, Id::GameMenu, Kind::Entry, "SaveAs", "Save As...", "Ctrl+Shift+S", AtRest, Run<SaveAs_Click>},
    {Id::RestorePrevious, Id::GameMenu, Kind::Entry, "RestorePrevious", "Restore Previous Game", "Ctrl+Shift+Z",
     HasReplaced, Run<RestorePrevious>},
    Line(Id::GameMenu, "streep15"),
    {Id::CopyPosition, Id::GameMenu, Kind::Entry, "CopyPosition", "Copy Position", "Ctrl+Shift+P", AtRest,
     Run<CopyPosition>},
    {Id::CopyGame, Id::GameMenu, Kind::Entry, "CopyGame", "Copy Game", "Ctrl+Shift+C", AtRest, Run<CopyGame>},
    {Id::Paste, Id::GameMenu, Kind::Entry, "Paste", "Paste Game or Position", "Ctrl+Shift+V", AtRest, Run<Paste>},
    Line(Id::GameMenu, "streep2"),
    {Id::SearchProblems, Id::GameMenu, Kind::Entry, "mnuProblem", "Search for Problems...", "", MayPlayOn,
     Run<mnuProblem_Click>},
    Line(Id::GameMenu, "streep3"),
    {Id::Details, Id::GameMenu, Kind::Entry, "Details", "Details...", "Ctrl+I", AtRest, Run<Details_Click>},
    Line(Id::GameMenu, "streep4"),
    {Id::Exit, Id::GameMenu, Kind::Entry, "Exit", "Exit", "Ctrl+Q", Always, Run<Exit_Click>},

    Menu(Id::PlayMenu, Id::None, "mnuPlay", "&Play"),
    {Id::Compute, Id::PlayMenu, Kind::Entry, "Compute", "Compute", "F5", MayPlayOn, Run<ComputeForPerson>},
    {Id::Cancel, Id::PlayMenu, Kind::Entry, "mnu_Play_Cancel", "Cancel", "Esc", CanCancel, Run<mnu_Play_Cancel_Click>},
    Line(Id::PlayMenu, "streep7"),
    {Id::First, Id::PlayMenu, Kind::Entry, "First", "First", "Home; Alt+Home", MovesBehind, Run<First_Click>},
    {Id::Back, Id::PlayMenu, Kind::Entry, "Moveback", "Back", "Left; Alt+Left", MovesBehind, Run<Moveback_Click>},
    {Id::Forward, Id::PlayMenu, Kind::Entry, "MoveForward", "Forward", "Ctrl+Y; Right; Alt+Right", MovesAhead,
     Run<MoveForward_Click>},
    {Id::Last, Id::PlayMenu, Kind::Entry, "Last", "Last", "End; Alt+End", MovesAhead, Run<Last_Click>},
    {Id::TakeBack, Id::PlayMenu, Kind::Entry, "TakeBack", "Take Back", "Ctrl+Z", MayTakeBack, Run<TakeBack_Click>},
    Line(Id::PlayMenu, "streep8"),
    {Id::OfferDraw, Id::PlayMenu, Kind::Entry, "Offerdraw", "Offer draw", "Ctrl+D", PlaysComputer, Run<OfferDraw>},
    // A slip of the fingers must not give up a game: no key of its own.
    {Id::Resign, Id::PlayMenu, Kind::Entry, "Resign", "Resign", "", PlaysComputer, Run<Resign>},
    {Id::Hint, Id::PlayMenu, Kind::Entry, "Hint", "Hint", "Ctrl+H", MayPlayOn, Run<Hint_Click>},
    Line(Id::PlayMenu, "streep9"),
    {Id::ComputerPlayer, Id::PlayMenu, Kind::Radio, "Cplayer", "Player-Computer", "Ctrl+1", AtRest,
     Run<SetComputerPlayerMode>, InMode<GameMode::ComputerPlayer>},
    {Id::PlayerPlayer, Id::PlayMenu, Kind::Radio, "Pplayer", "Player-Player", "Ctrl+2", AtRest,
     Run<SetPlayerPlayerMode>, InMode<GameMode::PlayerPlayer>},
    {Id::ComputerComputer, Id::PlayMenu, Kind::Radio, "mnu_Play_Ccomputer", "Computer-Computer", "Ctrl+3", MayPlayOn,
     Run<RunComputerComputer>, InMode<GameMode::ComputerComputer>},
    Line(Id::PlayMenu, "streep16"),
    {Id::PlayWhite, Id::PlayMenu, Kind::Radio, "PlayWhite", "Play White", "", AtRest, Run<PlayWhite>,
     PersonPlays<rules::White>},
    {Id::PlayBlack, Id::PlayMenu, Kind::Radio, "PlayBlack", "Play Black", "", AtRest, Run<PlayBlack>,
     PersonPlays<rules::Black>},
    Line(Id::PlayMenu, "streep10"),
    {Id::Options, Id::PlayMenu, Kind::Entry, "Options", "Options...", "Ctrl+,", AtRest, Run<ShowOptions>},
    Line(Id::PlayMenu, "streep11"),
    {Id::Analyze, Id::PlayMenu, Kind::Entry, "Analyze", "Analyze", "F6", MayPlayOn, Run<Analyze_Click>},

    Menu(Id::BoardMenu, Id::None, "mnu_Board1", "&Board", AtRest),
    {Id::TurnBoard, Id::BoardMenu, Kind::Entry, "Turn", "Turn Board", "Ctrl+T", AtRest, Run<TurnBoard>},
    Menu(Id::NotationMenu, Id::BoardMenu, "Notation1", "Notation"),
    {Id::NoNotation, Id::NotationMenu, Kind::Radio, "Nonotation", "None", "", AtRest,
     Run<SetNotationTo<Notation::None>>, InNotation<Notation::None>},
    {Id::Algebraic, Id::NotationMenu, Kind::Radio, "mnu_Board_Notation_Chess", "Algebraic", "", AtRest,
     Run<SetNotationTo<Notation::Algebraic>>, InNotation<Notation::Algebraic>},
    {Id::Numeric, Id::NotationMenu, Kind::Radio, "mnu_Board_Notation_Checkers", "Numeric", "", AtRest,
     Run<SetNotationTo<Notation::Numeric>>, InNotation<Notation::Numeric>},
    Line(Id::BoardMenu, "streep12"),
    {Id::CreateDiagram, Id::BoardMenu, Kind::Entry, "CreateHtml", "Create Diagram...", "", AtRest,
     Run<CreateHtml_Click>},
    {Id::CopyDiagram, Id::BoardMenu, Kind::Entry, "CopyDiagram", "Copy Diagram", "Ctrl+Shift+D", AtRest,
     Run<CopyDiagram>},
    {Id::SaveDiagram, Id::BoardMenu, Kind::Entry, "SaveDiagram", "Save Diagram As...", "", AtRest, Run<SaveDiagram>},
    {Id::PrintDiagram, Id::BoardMenu, Kind::Entry, "PrintDiagram", "Print...", "Ctrl+P", AtRest, Run<PrintDiagram>},

    Menu(Id::ViewMenu, Id::None, "view", "&View"),
    {Id::Calculation, Id::ViewMenu, Kind::Check, "calculation", "Calculation", "Ctrl+L", NotEnding,
     Run<ToggleCalculation>, ShowsCalculation},
    {Id::MarkLastMove, Id::ViewMenu, Kind::Check, "MarkLastMove", "Mark Last Move", "", NotEnding,
     Run<ToggleOwn<&view::OwnSettingsFields::MarkLastMove>>, HasOwn<&view::OwnSettingsFields::MarkLastMove>},
    {Id::SlideMoves, Id::ViewMenu, Kind::Check, "SlideMoves", "Slide Moves", "", NotEnding,
     Run<ToggleOwn<&view::OwnSettingsFields::SlideMoves>>, HasOwn<&view::OwnSettingsFields::SlideMoves>},
    {Id::FullScreen, Id::ViewMenu, Kind::Check, "FullScreen", "Full Screen", "F11", NotEnding, Run<ToggleFullScreen>,
     FillsScreen},
    Line(Id::ViewMenu, "streep13"),
    {Id::Rating, Id::ViewMenu, Kind::Entry, "rating", "Rating...", "", NotEnding, Run<rating_Click>},

    Menu(Id::ExtraMenu, Id::None, "extra", "&Extra"),
    {Id::PlyValueTable, Id::ExtraMenu, Kind::Entry, "plyvaluetable", "Show Ply Value Table", "", MayPlayOn,
     Run<BuildPlyValueTable>},

    Menu(Id::HelpMenu, Id::None, "Help", "&Help"),
    {Id::Contents, Id::HelpMenu, Kind::Entry, "Contents", "Contents", "F1", NotEnding, Run<Contents_Click>},
    {Id::QuickRules, Id::HelpMenu, Kind::Entry, "QuickRules", "Quick Rules", "Ctrl+F1", NotEnding,
     Run<QuickRules_Click>},
    {Id::Rules, Id::HelpMenu, Kind::Entry, "Rules", "Rules", "Shift+F1", NotEnding, Run<Rules_Click>},
    Line(Id::HelpMenu, "streep14"),
    {Id::About, Id::HelpMenu, Kind::Entry, "mnu_Help_About", "About", "", NotEnding, Run<About_Click>},

    Menu(Id::SetupMenu, Id::None, "mnuSetup", ""),
    Menu(Id::PopupMenu, Id::SetupMenu, "mnuPopup", ""),
    {Id::ClearBoard, Id::PopupMenu, Kind::Entry, "mnu_PopUp_ClearBoard", "Clear Board", "", Always, nullptr, nullptr},
    Line(Id::PopupMenu, "streep5"),
    {Id::EmptySquare, Id::PopupMenu, Kind::Radio, "empty1", "Empty", "", Always, nullptr, PieceIs<rules::Empty>},
    {Id::BlackMan, Id::PopupMenu, Kind::Radio, "mnu_PopUp_BlackChecker", "Black Checker", "", Always, nullptr,
     PieceIs<rules::BlackMan>},
    {Id::BlackKing, Id::PopupMenu, Kind::Radio, "mnu_PopUp_BlackKing", "Black King", "", Always, nullptr,
     PieceIs<rules::BlackKing>},
    {Id::WhiteMan, Id::PopupMenu, Kind::Radio, "Whitechecker", "White Checker", "", Always, nullptr,
     PieceIs<rules::WhiteMan>},
    {Id::WhiteKing, Id::PopupMenu, Kind::Radio, "Whiteking", "White King", "", Always, nullptr,
     PieceIs<rules::WhiteKing>},
    Line(Id::PopupMenu, "streep6"),
    {Id::BlackMoves, Id::PopupMenu, Kind::Radio, "mnu_PopUp_BlackM", "Black moves", "", Always, nullptr,
     SideIs<rules::Black>},
    {Id::WhiteMoves, Id::PopupMenu, Kind::Radio, "WhiteM", "White moves", "", Always, nullptr, SideIs<rules::White>},
};

constexpr ToolbarButton Buttons[] = {
    {1, "New Game", "New Game", Id::NewGame},
    {2, "New Variant", "New Variant", Id::NewVariant},
    {4, "Open", "Open", Id::Open},
    {5, "Save", "Save", Id::Save},
    {7, "Compute", "Compute", Id::Compute},
    {8, "Cancel", "Cancel Computing", Id::Cancel},
    {10, "First", "Back to First Move", Id::First},
    {11, "Back", "Move Back", Id::Back},
    {12, "Forward", "Move Forward", Id::Forward},
    {13, "Last", "Forward to Last Move", Id::Last},
    {15, "Draw", "Offer Draw", Id::OfferDraw},
    {16, "Resign", "Resign", Id::Resign},
    {17, "Hint", "Hint", Id::Hint},
    {19, "ComputerPlayer", "Computer-Player", Id::ComputerPlayer},
    {20, "PlayerPlayer", "Player-Player", Id::PlayerPlayer},
    {21, "ComputerComputer", "Computer-Computer", Id::ComputerComputer},
    {23, "Options", "Options", Id::Options},
    {25, "Analyze", "Analyze", Id::Analyze},
    {27, "TurnBoard", "Turn Board", Id::TurnBoard},
};

} // namespace

std::span<const CommandRow> CommandRows() {
    return Rows;
}

const CommandRow& RowOf(CommandId Wanted) {
    const auto Found = std::ranges::find_if(
        Rows, [Wanted](const CommandRow& Row) { return Row.Id == Wanted && Row.Kind != CommandKind::Separator; });
    if (Found == std::end(Rows)) {
        base::FailIndex(static_cast<int>(Wanted), CommandCount);
    }
    return *Found;
}

std::span<const ToolbarButton> ToolbarButtons() {
    return Buttons;
}

bool IsEnabled(const GameState& State, CommandId Command) {
    for (CommandId At = Command; At != Id::None; At = RowOf(At).Menu) {
        if (!RowOf(At).Enabled(State)) {
            return false;
        }
    }
    return Command != Id::None;
}

bool IsTicked(const GameState& State, CommandId Command) {
    const CommandRow& Row = RowOf(Command);
    return Row.Ticked != nullptr && Row.Ticked(State);
}

bool IsOpen(const GameState& State, view::Control Control) {
    switch (Control) {
    case view::Control::GameList:
        return State.Turn != TurnState::Thinking || State.PlayMode == GameMode::ComputerComputer;
    case view::Control::ChoiceList:
        return TakesMoves(State);
    case view::Control::RootList:
        return !IsBusy(State) && !State.RootList.Lines.empty();
    case view::Control::MoveBox:
        return !IsBusy(State);
    case view::Control::CommentBox:
        return State.Turn != TurnState::Measuring; // the record is not what it will be
    default:
        return true;
    }
}

void RunCommand(GameState& State, CommandId Command) {
    if (!IsEnabled(State, Command) || RowOf(Command).Run == nullptr) {
        return;
    }
    RunTrapped(State, [&] {
        EscapeDrag(State);
        RowOf(Command).Run(State);
    });
}

} // namespace zonterbrook::control
