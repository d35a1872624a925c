// The keys on the board, turned into what the mouse would do.
//
// Nothing of the game is decided here: the cursor presses, moves and lets go in the middle of its cell, and input.h
// does the rest. A press on an empty square lasts as long as the key is held. Reads and writes the cursor; what the
// mouse holds (`SourceCell`, `NumbersShown`) it only reads.
#include "control/keyboard.h"

#include "control/input.h"
#include "control/turn_state.h"
#include "view/board_cursor.h"
#include "view/draw_board.h"

namespace zonterbrook::control {

namespace {

constexpr int CellsInRow = 10;
constexpr int LowerLeftCell = 90;

// The cursor begins where there is something to do.
void FindPlace(GameState& State) {
    int Square = view::SquareOfCell(State, LowerLeftCell);
    if (TakesMoves(State) && State.StackLimit[State.Ply] < State.StackLimit[State.Ply + 1]) {
        const std::int32_t Source = State.MoveStack[State.StackLimit[State.Ply]].Source;
        Square = Source == rules::FromHand ? Square : Source;
    }
    view::SetCursor(State, Square);
}

void BringUp(GameState& State) {
    if (State.CursorSquare == 0) {
        FindPlace(State);
    }
    State.KeysOnBoard = true;
    view::ShowCursor(State, true);
}

struct PlaceInCell {
    int X;
    int Y;
};

// The middle of the cursor's cell, in twips from the corner of `Cell`, by the pitch that drops are measured with.
PlaceInCell MiddleSeenFrom(const GameState& State, int Cell) {
    const int Pitch = State.Layout.DragPitch;
    const int Right = State.CursorCell % CellsInRow - Cell % CellsInRow;
    const int Down = State.CursorCell / CellsInRow - Cell / CellsInRow;
    return {Right * Pitch + Pitch / 2, Down * Pitch + Pitch / 2};
}

void MoveThere(GameState& State) {
    // As a drag does, the way with a piece in the hand goes on reporting to the cell where it began.
    const int Cell = State.SourceCell >= 0 ? State.SourceCell : State.CursorCell;
    MoveOverCell(State, Cell);
}

void ReleaseThere(GameState& State, int Cell, int Button) {
    const PlaceInCell Middle = MiddleSeenFrom(State, Cell);
    ReleaseCell(State, Cell, Button, Middle.X, Middle.Y);
}

void PickOrDrop(GameState& State) {
    if (State.SourceCell >= 0) {
        ReleaseThere(State, State.SourceCell, LeftButton);
        return;
    }
    MoveThere(State);
    PressCell(State, State.CursorCell, LeftButton);
}

void OpenEditor(GameState& State) {
    MoveThere(State);
    PressCell(State, State.CursorCell, RightButton);
    ReleaseThere(State, State.CursorCell, RightButton);
}

void Step(GameState& State, int Right, int Down) {
    view::StepCursor(State, Right, Down);
    MoveThere(State);
}

// To the next square that is played on: within the rank, or on the next one to the side where there is room.
void Jump(GameState& State, int Right, int Down) {
    if (State.RuleSet.PiecesOnBlack == 2) {
        Step(State, Right, Down);
        return;
    }
    const int Column = State.CursorCell % CellsInRow;
    const int Row = State.CursorCell / CellsInRow;
    const bool Played = view::IsDarkSquare(State, view::SquareOfCell(State, State.CursorCell));
    if (Down == 0) {
        const int Wide = Played ? 2 * Right : Right;
        Step(State, Column + Wide >= 0 && Column + Wide < CellsInRow ? Wide : 0, 0);
    } else if (Row + Down >= 0 && Row + Down < CellsInRow) {
        // Up and down in turns, so that a way up the board stays in its two files.
        const int Aside = !Played ? 0 : Column % 2 == 0 ? 1 : -1;
        Step(State, Aside, Down);
    }
}

} // namespace

void PressBoardKey(GameState& State, BoardKey Key) {
    const bool WasHidden = State.CursorCell < 0;
    BringUp(State);
    const bool Steps = Key != BoardKey::Pick && Key != BoardKey::Menu;
    if (WasHidden && Steps) {
        MoveThere(State);
        return;
    }
    switch (Key) {
    case BoardKey::Left:
        Step(State, -1, 0);
        break;
    case BoardKey::Right:
        Step(State, 1, 0);
        break;
    case BoardKey::Up:
        Step(State, 0, -1);
        break;
    case BoardKey::Down:
        Step(State, 0, 1);
        break;
    case BoardKey::JumpLeft:
        Jump(State, -1, 0);
        break;
    case BoardKey::JumpRight:
        Jump(State, 1, 0);
        break;
    case BoardKey::JumpUp:
        Jump(State, 0, -1);
        break;
    case BoardKey::JumpDown:
        Jump(State, 0, 1);
        break;
    case BoardKey::Pick:
        PickOrDrop(State);
        break;
    case BoardKey::Menu:
        OpenEditor(State);
        break;
    }
}

void ReleaseBoardKey(GameState& State, BoardKey Key) {
    if (Key == BoardKey::Pick && State.NumbersShown && State.CursorCell >= 0) {
        ReleaseThere(State, State.CursorCell, LeftButton);
    }
}

void EnterBoard(GameState& State, bool ByKeys) {
    if (ByKeys || State.KeysOnBoard) {
        BringUp(State);
    }
}

void LeaveBoard(GameState& State, bool ByPerson) {
    ReleaseBoardKey(State, BoardKey::Pick); // its release goes elsewhere
    view::ShowCursor(State, false);
    // Who has gone elsewhere does not play on the board with the keys any more, also when the board gets them
    // meanwhile.
    State.KeysOnBoard = State.KeysOnBoard && !ByPerson;
}

void ChooseCell(GameState& State, int Index) {
    view::SetCursor(State, view::SquareOfCell(State, Index));
    BringUp(State);
    PickOrDrop(State);
    ReleaseBoardKey(State, BoardKey::Pick);
}

void MouseTakesOver(GameState& State, int Index) {
    State.KeysOnBoard = false;
    view::ShowCursor(State, false);
    if (Index >= 0 && Index < view::BoardPictures) {
        State.CursorSquare = view::SquareOfCell(State, Index);
    }
}

} // namespace zonterbrook::control
