// The commands of the main window: the one table from which menu bar, toolbar and popup menu are made, with when each
// command is enabled, when it is ticked and what it runs.
//
// Nothing is enabled or disabled by what happens: each row answers from the state as it is. A command's toolbar button,
// if it has one, is enabled, pressed and released with it.
#pragma once

#include "control/state.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace zonterbrook::control {

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
    CommandId Menu; ///< the menu it stands in; `None` for one of the bar
    CommandKind Kind;
    std::string_view Name;     ///< the control's name
    std::string_view Caption;  ///< "&" stands before the letter that opens it from the keyboard
    std::string_view Shortcut; ///< key sequences joined by "; ", the first of which the menu shows
    bool (*Enabled)(const GameState& State);
    void (*Run)(GameState& State);                    ///< null for menus, and where the popup's caller acts on it
    bool (*Ticked)(const GameState& State) = nullptr; ///< null for entries that bear no tick
};

/// The menus whole: menu bar from left to right, each menu from top to bottom, the hidden popup menu last.
std::span<const CommandRow> CommandRows();

/// The row of a command; a `Fault` for `None`.
const CommandRow& RowOf(CommandId Id);

/// A button of `Toolbar1`. Indices that are missing are separators.
struct ToolbarButton {
    int Index;
    std::string_view Key;
    std::string_view Tip;
    CommandId Command;
};
inline constexpr int ToolbarLastIndex = 27;

std::span<const ToolbarButton> ToolbarButtons();

/// Whether a person can run the command, or open the menu, now: it and the menus it stands in are enabled.
bool IsEnabled(const GameState& State, CommandId Id);

/// Whether its entry bears a tick and its button is pressed.
bool IsTicked(const GameState& State, CommandId Id);

/// Whether a list or box can be used now.
bool IsOpen(const GameState& State, view::Control Control);

/// Runs a command under the trap, with the piece in the hand put back first. Nothing for one that is disabled.
void RunCommand(GameState& State, CommandId Id);

} // namespace zonterbrook::control
