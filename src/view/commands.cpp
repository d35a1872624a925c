// The table of commands in the order of the menus, and the toolbar.
#include "view/commands.h"

#include "base/fault.h"

#include <algorithm>
#include <string>

namespace zonterbrook::view {

namespace {

constexpr bool ToCome = false;

constexpr CommandRow Menu(CommandId Id, CommandId Parent, std::string_view Name, std::string_view Caption) {
    return {Id, Parent, CommandKind::Menu, Name, Caption};
}

constexpr CommandRow Line(CommandId Parent, std::string_view Name) {
    return {CommandId::None, Parent, CommandKind::Separator, Name, "-"};
}

using Id = CommandId;
using Kind = CommandKind;

constexpr CommandRow Rows[] = {
    Menu(Id::mnuGame, Id::None, "mnuGame", "&Game"),
    {Id::New1, Id::mnuGame, Kind::Entry, "New1", "New Game", "Ctrl+N"},
    {Id::NewVariant, Id::mnuGame, Kind::Entry, "NewVariant", "New Variant...", "Ctrl+Shift+N", ToCome},
    Line(Id::mnuGame, "streep1"),
    {Id::Open1, Id::mnuGame, Kind::Entry, "Open1", "Open...", "Ctrl+O", ToCome},
    {Id::Save, Id::mnuGame, Kind::Entry, "Save", "Save...", "Ctrl+S", ToCome},
    Line(Id::mnuGame, "streep2"),
    {Id::mnuProblem, Id::mnuGame, Kind::Entry, "mnuProblem", "Search for Problems...", "", ToCome},
    Line(Id::mnuGame, "streep3"),
    {Id::Details, Id::mnuGame, Kind::Entry, "Details", "Details...", "Ctrl+I", ToCome},
    Line(Id::mnuGame, "streep4"),
    {Id::Exit, Id::mnuGame, Kind::Entry, "Exit", "Exit", "Ctrl+Q"},

    Menu(Id::mnuPlay, Id::None, "mnuPlay", "&Play"),
    {Id::Compute, Id::mnuPlay, Kind::Entry, "Compute", "Compute", "F5"},
    {Id::mnu_Play_Cancel, Id::mnuPlay, Kind::Entry, "mnu_Play_Cancel", "Cancel", "Esc"},
    Line(Id::mnuPlay, "streep7"),
    {Id::First, Id::mnuPlay, Kind::Entry, "First", "First", "Home; Alt+Home"},
    {Id::Moveback, Id::mnuPlay, Kind::Entry, "Moveback", "Back", "Ctrl+Z; Left; Alt+Left"},
    {Id::MoveForward, Id::mnuPlay, Kind::Entry, "MoveForward", "Forward", "Ctrl+Y; Right; Alt+Right"},
    {Id::Last, Id::mnuPlay, Kind::Entry, "Last", "Last", "End; Alt+End"},
    Line(Id::mnuPlay, "streep8"),
    {Id::Offerdraw, Id::mnuPlay, Kind::Entry, "Offerdraw", "Offer draw", "Ctrl+D"},
    {Id::Resign, Id::mnuPlay, Kind::Entry, "Resign", "Resign", "Ctrl+R"},
    {Id::Hint, Id::mnuPlay, Kind::Entry, "Hint", "Hint", "Ctrl+H", ToCome},
    Line(Id::mnuPlay, "streep9"),
    {Id::Cplayer, Id::mnuPlay, Kind::Radio, "Cplayer", "Player-Computer", "Ctrl+1"},
    {Id::Pplayer, Id::mnuPlay, Kind::Radio, "Pplayer", "Player-Player", "Ctrl+2"},
    {Id::mnu_Play_Ccomputer, Id::mnuPlay, Kind::Radio, "mnu_Play_Ccomputer", "Computer-Computer", "Ctrl+3"},
    Line(Id::mnuPlay, "streep10"),
    {Id::Options, Id::mnuPlay, Kind::Entry, "Options", "Options...", "Ctrl+,", ToCome},
    Line(Id::mnuPlay, "streep11"),
    {Id::Analyze, Id::mnuPlay, Kind::Entry, "Analyze", "Analyze", "F6", ToCome},

    Menu(Id::mnu_Board1, Id::None, "mnu_Board1", "&Board"),
    {Id::Turn, Id::mnu_Board1, Kind::Entry, "Turn", "Turn Board", "Ctrl+T"},
    Menu(Id::Notation1, Id::mnu_Board1, "Notation1", "Notation"),
    {Id::Nonotation, Id::Notation1, Kind::Radio, "Nonotation", "None"},
    {Id::mnu_Board_Notation_Chess, Id::Notation1, Kind::Radio, "mnu_Board_Notation_Chess", "Algebraic"},
    {Id::mnu_Board_Notation_Checkers, Id::Notation1, Kind::Radio, "mnu_Board_Notation_Checkers", "Numeric"},
    Line(Id::mnu_Board1, "streep12"),
    {Id::CreateHtml, Id::mnu_Board1, Kind::Entry, "CreateHtml", "Create Diagram...", "", ToCome},

    Menu(Id::view, Id::None, "view", "&View"),
    {Id::calculation, Id::view, Kind::Check, "calculation", "Calculation", "Ctrl+L"},
    Line(Id::view, "streep13"),
    {Id::rating, Id::view, Kind::Entry, "rating", "Rating..."},

    Menu(Id::extra, Id::None, "extra", "&Extra"),
    {Id::plyvaluetable, Id::extra, Kind::Entry, "plyvaluetable", "Show Ply Value Table", "", ToCome},

    Menu(Id::Help, Id::None, "Help", "&Help"),
    {Id::QuickRules, Id::Help, Kind::Entry, "QuickRules", "Quick Rules", "F1", ToCome},
    {Id::Rules, Id::Help, Kind::Entry, "Rules", "Rules", "Shift+F1", ToCome},
    Line(Id::Help, "streep14"),
    {Id::mnu_Help_About, Id::Help, Kind::Entry, "mnu_Help_About", "About", "", ToCome},

    Menu(Id::mnuSetup, Id::None, "mnuSetup", ""),
    Menu(Id::mnuPopup, Id::mnuSetup, "mnuPopup", ""),
    {Id::mnu_PopUp_ClearBoard, Id::mnuPopup, Kind::Entry, "mnu_PopUp_ClearBoard", "Clear Board"},
    Line(Id::mnuPopup, "streep5"),
    {Id::empty1, Id::mnuPopup, Kind::Radio, "empty1", "Empty"},
    {Id::mnu_PopUp_BlackChecker, Id::mnuPopup, Kind::Radio, "mnu_PopUp_BlackChecker", "Black Checker"},
    {Id::mnu_PopUp_BlackKing, Id::mnuPopup, Kind::Radio, "mnu_PopUp_BlackKing", "Black King"},
    {Id::Whitechecker, Id::mnuPopup, Kind::Radio, "Whitechecker", "White Checker"},
    {Id::Whiteking, Id::mnuPopup, Kind::Radio, "Whiteking", "White King"},
    Line(Id::mnuPopup, "streep6"),
    {Id::mnu_PopUp_BlackM, Id::mnuPopup, Kind::Radio, "mnu_PopUp_BlackM", "Black moves"},
    {Id::WhiteM, Id::mnuPopup, Kind::Radio, "WhiteM", "White moves"},
};

constexpr ToolbarButton Buttons[] = {
    {1, "New Game", "New Game", Id::New1},
    {2, "New Variant", "New Variant", Id::NewVariant},
    {4, "Open", "Open", Id::Open1},
    {5, "Save", "Save", Id::Save},
    {7, "Compute", "Compute", Id::Compute},
    {8, "Cancel", "Cancel Computing", Id::mnu_Play_Cancel},
    {10, "First", "Back to First Move", Id::First},
    {11, "Back", "Move Back", Id::Moveback},
    {12, "Forward", "Move Forward", Id::MoveForward},
    {13, "Last", "Forward to Last Move", Id::Last},
    {15, "Draw", "Offer Draw", Id::Offerdraw},
    {16, "Resign", "Resign", Id::Resign},
    {17, "Hint", "Hint", Id::Hint},
    {19, "ComputerPlayer", "Computer-Player", Id::Cplayer},
    {20, "PlayerPlayer", "Player-Player", Id::Pplayer},
    {21, "ComputerComputer", "Computer-Computer", Id::mnu_Play_Ccomputer},
    {23, "Options", "Options", Id::Options},
    {25, "Analyze", "Analyze", Id::Analyze},
    {27, "TurnBoard", "Turn Board", Id::Turn},
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

CommandId FindCommand(std::string_view Name) {
    const auto Found = std::ranges::find(Rows, Name, &CommandRow::Name);
    return Found == std::end(Rows) ? CommandId::None : Found->Id;
}

std::span<const ToolbarButton> ToolbarButtons() {
    return Buttons;
}

} // namespace zonterbrook::view
