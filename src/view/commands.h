// The commands of the main window: the one table from which menu bar, toolbar and popup menu are made, and the one that
// says which event gives or takes which command.
//
// A command bears the name of its menu entry. Its toolbar button, if it has one, is enabled, pressed and released with
// it. What a command runs stands in control/events.h; whether it is enabled and ticked, in the window's contents.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zonterbrook::view {

struct ViewState;

/// Every menu and entry, named as its control.
enum class CommandId : std::uint8_t {
    None, ///< no command; the parent of the menus of the bar
    mnuGame,
    New1,
    NewVariant,
    Open1,
    Save,
    mnuProblem,
    Details,
    Exit,
    mnuPlay,
    Compute,
    mnu_Play_Cancel,
    First,
    Moveback,
    MoveForward,
    Last,
    Offerdraw,
    Resign,
    Hint,
    Cplayer,
    Pplayer,
    mnu_Play_Ccomputer,
    Options,
    Analyze,
    mnu_Board1,
    Turn,
    Notation1,
    Nonotation,
    mnu_Board_Notation_Chess,
    mnu_Board_Notation_Checkers,
    CreateHtml,
    view,
    calculation,
    rating,
    extra,
    plyvaluetable,
    Help,
    QuickRules,
    Rules,
    mnu_Help_About,
    mnuSetup,
    mnuPopup,
    mnu_PopUp_ClearBoard,
    empty1,
    mnu_PopUp_BlackChecker,
    mnu_PopUp_BlackKing,
    Whitechecker,
    Whiteking,
    mnu_PopUp_BlackM,
    WhiteM,
};
inline constexpr int CommandCount = static_cast<int>(CommandId::WhiteM) + 1;

enum class CommandKind : std::uint8_t {
    Menu,      ///< opens a menu whose rows have it as their `Menu`
    Entry,     ///< runs something
    Check,     ///< runs something and bears a tick
    Radio,     ///< one of a group: the neighbours of the same kind up to the next separator
    Separator, ///< a line
};

/// One row of the menus, in the order in which they show it.
struct CommandRow {
    CommandId Id;   ///< `None` for a separator
    CommandId Menu; ///< the menu it stands in
    CommandKind Kind;
    std::string_view Name;          ///< the control's name
    std::string_view Caption;       ///< "&" stands before the letter that opens it from the keyboard
    std::string_view Shortcut = {}; ///< key sequences joined by "; ", the first of which the menu shows
    bool Built = true;              ///< false: its tool is still to come, and the entry stays disabled
};

/// The menus whole: menu bar from left to right, each menu from top to bottom, the hidden popup menu last.
std::span<const CommandRow> CommandRows();

/// The row of a command; a `Fault` for `None`.
const CommandRow& RowOf(CommandId Id);

/// The command of a control's name, or `None`.
CommandId FindCommand(std::string_view Name);

/// A button of `Toolbar1`. Indices that are missing are separators.
struct ToolbarButton {
    int Index;
    std::string_view Key;
    std::string_view Tip;
    CommandId Command;
};
inline constexpr int ToolbarLastIndex = 27;

std::span<const ToolbarButton> ToolbarButtons();

/// What a menu entry or button shows.
struct CommandState {
    bool Enabled = true;
    bool Ticked = false;

    bool operator==(const CommandState&) const = default;
};

/// What happens in the window that gives or takes commands.
enum class WindowEvent : std::uint8_t {
    GameBegins,     ///< a new game, ready to play
    MoveEntered,    ///< a move has been added to the record
    SteppedForward, ///< the cursor moved forward in the record
    SteppedBack,    ///< the cursor moved back
    GameEnds,       ///< a result stands
    SearchBegins,   ///< the computer thinks
    SearchEnds,     ///< and is done
    CancelPressed,  ///< the search has been told to stop
    ComputerPlayerChosen,
    PlayerPlayerChosen,
    ComputerComputerChosen,
    ToolBegins, ///< problem search or ply value table at work
    ToolEnds,
};

/// Enables and disables, and for the modes ticks, the commands of an event by the table in enable_rules.cpp; a search
/// takes and gives the typed-move box, too. Rows with a condition ask the state: the mode, and whether moves lie behind
/// and ahead of the cursor. Whether the game has ended is not known here: who applies `SearchEnds` or a choice of mode
/// to an ended game applies `GameEnds` after it. While the computer plays itself `SearchEnds` gives nothing back.
void ApplyEvent(ViewState& State, WindowEvent Event);

/// Enables or disables one command. One that is not built stays disabled.
void SetEnabled(ViewState& State, CommandId Id, bool Enabled);

/// Ticks one of a radio group and unticks its neighbours.
void ChooseRadio(ViewState& State, CommandId Id);

/// Whether a person can run the command now: it, its menus are enabled.
bool CanRun(const ViewState& State, CommandId Id);

/// `FreezeMenus` disables the menus Game, Play, Board, View and Help, the typed-move box and the toolbar;
/// `UnfreezeMenus` enables them.
void FreezeMenus(ViewState& State);
void UnfreezeMenus(ViewState& State);

/// Every command as it is before the first game: what is built enabled, ticks by the settings.
void ResetCommands(ViewState& State);

} // namespace zonterbrook::view
