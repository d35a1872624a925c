// What the main window calls: one routine for each of its events; for menus and toolbar see commands.h.
//
// Each runs to its end under the trap (trap.h): no exception leaves it. The window then shows the contents of the state
// if they have changed.
#pragma once

#include "control/commands.h"
#include "control/input.h"
#include "control/keyboard.h"

#include <cstdint>
#include <string>

namespace zonterbrook::control {

inline constexpr int EnterKey = 13;

/// The mouse on cell `Index` of the board; a drag goes on reporting to the cell where it began. `X` and `Y` of the
/// release are twips from that cell's upper left corner, and may be negative or lie beyond it.
void c_MouseDown(GameState& State, int Index, int Button);
void c_MouseMove(GameState& State, int Index);
void c_MouseUp(GameState& State, int Index, int Button, int X, int Y);

/// The mouse on the counter of a side's pieces off the board: pressed, and released over cell `Index`, or -1 for none.
void ExtraPieces_MouseDown(GameState& State, std::int32_t Side);
void ExtraPieces_MouseUp(GameState& State, int Index);

/// A key pressed on the board, and `Pick` released: arrows move the cursor, `Pick` takes the piece under it and then
/// drops it there, `Menu` opens the position editor. All that happens is what the mouse would do on the cursor's cell.
/// The first arrow of a person who has not used the keys before only shows where the cursor is.
void c_KeyDown(GameState& State, BoardKey Key);
void c_KeyUp(GameState& State, BoardKey Key);

/// The board has got the keyboard, by the keyboard itself or otherwise; it has lost it, because the person has gone
/// elsewhere in the window or otherwise.
void c_GotFocus(GameState& State, bool ByKeys);
void c_LostFocus(GameState& State, bool ByPerson);

/// A helper of the desktop has chosen a cell for the person: the cursor goes there and picks or drops.
void c_Choose(GameState& State, int Index);

/// What a screen reader says of a cell.
std::string c_Text(const GameState& State, int Index);

/// Puts the picked piece back where it stood, as the Escape key does.
void PutBackPiece(GameState& State);

/// One of the ways that the person is asked to choose from, by its number.
void c_ChooseWay(GameState& State, int Number);

/// A key released in the box of typed moves, whose text is in `TypedText`. Enter plays it.
void Text2_KeyUp(GameState& State, int KeyCode);

/// A key released in the comment box, whose text is in `CommentText`.
void Text1_KeyUp(GameState& State);

/// A double click on a list, its line in `Selected`.
void List2_DblClick(GameState& State);
void List3_DblClick(GameState& State);

/// The mouse released on, and a key pressed in, the list of the game's moves, its line in `Selected`.
void List1_MouseUp(GameState& State);
void List1_KeyDown(GameState& State, int KeyCode);

/// A file dropped on the window or named as the program was started; a place, from 0, among the files opened lately.
/// Nothing while something is at work.
void OpenDropped(GameState& State, const std::filesystem::path& File);
void OpenListed(GameState& State, std::size_t Place);

/// Once, before the window is shown. `State` must be fresh and its `TwipsPerPixel` set.
void Form_Load(GameState& State);

/// Once, when the window is seen: the computer begins if the person plays the other colour.
void Form_Activate(GameState& State);

/// The window's texts have another density now: 12 or 15 twips to a pixel.
void ChangeDensity(GameState& State, std::int32_t TwipsPerPixel);

/// The window is about to close; `Cancel` comes back true if it is to stay.
void Form_QueryUnload(GameState& State, bool& Cancel);

/// The window closes: saves what is saved and lets go of what is open. `EndProgram` follows by itself.
void Form_Unload(GameState& State);

} // namespace zonterbrook::control
