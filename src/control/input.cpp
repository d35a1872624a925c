// Moves from the mouse, from the keyboard and from the lists, and every refusal in its words.
//
// Input checks no rule: it looks a move up among those of the ply, and compares with them to say why it was refused.
// A drag is idle (`SourceCell` -1) or held (`SourceCell` set, the cell painted empty); every way out of held puts the
// piece back or redraws the board. Reads the stack of the ply; writes the latches, boxes and pointers. What a move sets
// off is record.h's business.
#include "control/input.h"

#include "base/text.h"
#include "control/record.h"
#include "control/setup.h"
#include "rules/cells.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <string>

namespace zonterbrook::control {

namespace {

constexpr std::string_view ErrorTitle = "Error";
constexpr std::string_view IllegalMove = "Illegal move";
constexpr std::string_view NeedToJump = "you need to jump";
constexpr std::string_view WrongJump = "you cannot jump that way";
constexpr std::string_view NotEmpty = "that square is not empty";

// So many rows of the last generation are asked why a capture was refused.
constexpr int RowsAsked = 21;
constexpr int PopupMargin = 2;
// A line of six characters ends in a mark that is no part of the move.
constexpr std::size_t MarkedLine = 6;
constexpr int LastRootMove = engine::RootMoveEntries - 1;

void Refuse(GameState& State, std::string_view Text) {
    State.Outside->Message(ErrorTitle, Text, Icon::Exclamation);
}

template <typename Visit>
void ForEachMove(const GameState& State, Visit&& Do) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        Do(State.MoveStack[I]);
    }
}

bool AnyMoveFrom(const GameState& State, int Square) {
    bool Found = false;
    ForEachMove(State, [&](const rules::MoveRecord& Move) { Found |= Move.Source == Square; });
    return Found;
}

void ClearDrag(GameState& State) {
    State.SourceCell = -1;
    State.DropDx = 0;
    State.DropDy = 0;
    State.SetupLatch = 0;
    State.HoverCell = -1;
    State.RightCell = -1;
    State.HoverSquare = 0;
    State.DragIconSet = 0;
    State.PopupLatch = 0;
}

void RemovePointers(GameState& State) {
    for (view::BoardCell& Cell : State.Cells) {
        Cell.Pointer = view::Picture::None;
    }
}

// The piece is back where it was, and with it the board as it was before the pick.
void EndFailedDrag(GameState& State, int Source) {
    view::RepaintSquare(State, Source);
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        if (Move.Source == Source) {
            view::RepaintSquare(State, Move.Dest);
        }
    });
    ClearDrag(State);
    State.SourcesShown = 0;
}

void ShowNumbers(GameState& State) {
    if (State.SetupLatch == 0) {
        State.NumbersShown = 1;
        State.SourcesShown = 0;
        view::DrawBoard(State, 1);
    }
    State.SetupLatch = 0;
}

void RefusePick(GameState& State, int Square, std::string_view Text) {
    view::RepaintSquare(State, Square);
    State.SourceCell = -1;
    Refuse(State, Text);
}

void BoxTargets(GameState& State, int Square) {
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        const bool Kept = Move.Source == State.HoverSquare || Move.Source == Square;
        if (Move.Source != rules::FromHand && !Kept) {
            view::RepaintSquare(State, Move.Source);
        }
    });
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        if (Move.Source == Square) {
            State.SourcesShown = 1;
            view::BoxSquare(State, Move.Dest);
        }
    });
}

void PickPiece(GameState& State, int Index) {
    if (State.GameEnded != 0) {
        return;
    }
    const int Square = view::SquareOfCell(State, Index);
    const std::int32_t Piece = State.Board[Square];
    State.SourceCell = Index;
    view::PaintEmpty(State, Square);
    if ((Piece > 0) != (State.Side > 0)) {
        RefusePick(State, Square, view::SideMovesText(State.Side));
        return;
    }
    State.CycleMove = 0;
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        State.CycleMove |= Move.Source == Square && Move.Dest == Square ? 1 : 0;
    });
    if (!AnyMoveFrom(State, Square)) {
        RefusePick(State, Square, "You cannot move that piece");
        return;
    }
    State.Cells[Index].Pointer = view::PointerOfPiece(Piece);
    if (State.ShowAvailableMoves == 0) {
        return;
    }
    if (State.HoverCell >= 0) {
        view::BoxSquare(State, view::SquareOfCell(State, State.HoverCell));
    }
    State.DragIconSet = 0;
    BoxTargets(State, Square);
    // The rule of the touched piece takes hold only here, where available moves are shown. Wanted.
    if (State.TouchedSquare == 0) {
        State.TouchedSquare = Square;
    }
}

void BoxMoveSources(GameState& State) {
    State.SourcesShown = 1;
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        if (Move.Source != rules::FromHand) {
            view::RepaintSquare(State, Move.Source);
            view::BoxSquare(State, Move.Source);
        }
    });
}

// The number of cells between the edge of the source cell and a coordinate of the drop.
int CellsMoved(int Coordinate, int Pitch) {
    return Coordinate / Pitch - (Coordinate < 0 ? 1 : 0);
}

// The square of a drop, 0 if it lies outside the board.
int DropSquare(const GameState& State, int Source, int X, int Y) {
    const int Pitch = State.Layout.DragPitch;
    const int Direction = State.BoardTurned == 1 ? -1 : 1;
    const int Column = rules::ColumnOf(Source) + Direction * CellsMoved(X, Pitch);
    const int Row = rules::RowOf(Source) - Direction * CellsMoved(Y, Pitch);
    const bool Inside =
        Column >= rules::FirstColumn && Column <= rules::LastColumn && Row >= rules::FirstRow && Row <= rules::LastRow;
    return Inside ? rules::CellAt(Row, Column) : 0;
}

bool IsFailedDrop(const GameState& State, int Source, int Target) {
    if (Target <= 0) {
        return true;
    }
    if (State.RuleSet.PiecesOnBlack < 2 && !view::IsDarkSquare(State, Target)) {
        return true;
    }
    return Target == Source && State.CycleMove != 1;
}

// Why no move leads from `Source` to `Dest`; empty if all that can be said is that it is none.
std::string_view RefusalReason(const GameState& State, int Source, int Dest) {
    std::string_view Reason;
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        if (Move.Captures.Count != 0 && State.RuleSet.CapRequired == 1) {
            Reason = NeedToJump;
        }
    });
    for (int I = 0; I < std::min(RowsAsked, static_cast<int>(State.CaptureRow.Count)); ++I) {
        const rules::CaptureRowFields& Row = State.CaptureRow.Rows[I];
        if (Row.Text.Count == 0) {
            break;
        }
        if (Row.Source == Source && Row.Dest == Dest) {
            Reason = WrongJump;
        }
    }
    if (Reason.empty() && State.Board[Dest] != rules::Empty) {
        Reason = NotEmpty;
    }
    return Reason;
}

void RefuseDrop(GameState& State, int Source, int Dest) {
    const std::string_view Reason = RefusalReason(State, Source, Dest);
    view::DrawBoard(State, 0);
    State.SourcesShown = 0;
    Refuse(State, Reason.empty() ? std::string(IllegalMove) : std::string(IllegalMove) + ": " + std::string(Reason));
}

void DropPiece(GameState& State, int X, int Y) {
    const int Source = view::SquareOfCell(State, State.SourceCell);
    RemovePointers(State);
    const int Target = DropSquare(State, Source, X, Y);
    if (IsFailedDrop(State, Source, Target)) {
        EndFailedDrag(State, Source);
        return;
    }
    const std::string Move = base::ToUpper(rules::SquareNotation(State, Source, rules::Padding::Zero) +
                                           rules::SquareNotation(State, Target, rules::Padding::Zero));
    ClearDrag(State);
    if (EnterMove(State, Move)) {
        RecordHumanMove(State);
    } else {
        RefuseDrop(State, Source, Target);
    }
}

// A move as a person writes it, as the squares that `EnterMove` takes. A part of one character is a number below 10 and
// gets a blank, so that each part is a field of two.
std::string NormaliseMove(const GameState& State, std::string_view Text) {
    std::string Move = base::ToUpper(base::Trim(Text));
    const std::string Joints = {'-', State.CaptureChar, static_cast<char>(State.CaptureChar == 'x' ? 'X' : '-')};
    for (std::size_t At = Move.find_first_of(Joints); At != std::string::npos; At = Move.find_first_of(Joints)) {
        std::string Left = Move.substr(0, At);
        std::string Right = Move.substr(At + 1);
        Left += Left.size() == 1 ? " " : "";
        Right += Right.size() == 1 ? " " : "";
        Move = Left + Right;
    }
    return Move;
}

void TypeMove(GameState& State) {
    const std::string Move = NormaliseMove(State, State.MoveBox.Text);
    State.MoveBox.Text.clear();
    if (EnterMove(State, Move)) {
        ClearDrag(State);
        RecordHumanMove(State);
    } else {
        Refuse(State, IllegalMove);
    }
}

void ClearLines(view::ListFields& List) {
    List.Lines.clear();
    List.Selected = -1;
}

void PlayLine(GameState& State, std::string_view Line) {
    State.MoveBox.Text.clear();
    if (EnterMove(State, NormaliseMove(State, Line))) {
        ClearDrag(State);
        ClearLines(State.ChoiceList);
        ClearLines(State.RootList);
        State.Calculation.Text = view::NoCalculation;
        RecordHumanMove(State);
        return;
    }
    view::DrawBoard(State, 0);
    State.SourcesShown = 0;
    State.ChoiceList.Enabled = false;
    Refuse(State, IllegalMove);
    State.ChoiceList.Enabled = true;
}

bool IsCell(int Index) {
    return Index >= 0 && Index < view::BoardPictures;
}

} // namespace

// Once a game is over it is gone through, not played on.
bool TakesMoves(const GameState& State) {
    return State.Thinking == 0 && State.GameEnded == 0;
}

void ClearInput(GameState& State) {
    ClearDrag(State);
    RemovePointers(State);
    State.TouchedSquare = 0;
    State.SourcesShown = 0;
    State.NumbersShown = 0;
    State.CycleMove = 0;
}

void PressCell(GameState& State, int Index, int Button) {
    if (!IsCell(Index) || State.Thinking != 0 || State.RightCell >= 0 || State.PopupLatch != 0) {
        return;
    }
    if (Button == RightButton) {
        if (State.SourcesShown != 1) {
            State.RightCell = Index;
        }
        return;
    }
    if (Button != LeftButton) {
        return;
    }
    // The release of the last drag may never have come.
    EscapeDrag(State);
    const view::Picture Shown = State.Cells[Index].Shows;
    if (Shown == view::Picture::dark_square || Shown == view::Picture::light_square) {
        ShowNumbers(State);
    } else {
        PickPiece(State, Index);
    }
}

void MoveOverCell(GameState& State, int Index, int X, int Y) {
    if (!IsCell(Index) || State.NumbersShown != 0 || State.Thinking != 0 || State.GameEnded != 0) {
        return;
    }
    State.PopupLatch = 0;
    if (State.ShowAvailableMoves != 0 && State.SourcesShown == 0) {
        BoxMoveSources(State);
    }
    const int Square = view::SquareOfCell(State, Index);
    if (AnyMoveFrom(State, Square)) {
        State.HoverSquare = Square;
        State.HoverCell = Index;
    }
    if (State.SourceCell >= 0 && State.DragIconSet == 0) {
        State.DragIconSet = 1;
        const int Source = view::SquareOfCell(State, State.SourceCell);
        State.Cells[State.SourceCell].Pointer = view::PointerOfPiece(State.Board[Source]);
    }
    State.DropDx = X;
    State.DropDy = Y;
}

void ReleaseCell(GameState& State, int Index, int Button, int X, int Y) {
    if (!IsCell(Index) || State.Thinking != 0) {
        return;
    }
    if (Button == RightButton) {
        State.RightCell = -1;
        const int Limit = State.Layout.DragPitch + PopupMargin;
        const bool InsideCell = X >= 0 && X <= Limit && Y >= 0 && Y <= Limit;
        if (State.SourceCell < 0 && InsideCell) {
            EditSquare(State, view::SquareOfCell(State, Index));
        }
        return;
    }
    if (State.NumbersShown == 1) {
        State.NumbersShown = 0;
        view::DrawBoard(State, 0);
        return;
    }
    if (State.SourceCell >= 0) {
        DropPiece(State, X, Y);
    }
}

void EscapeDrag(GameState& State) {
    if (State.Thinking == 0 && State.SourceCell >= 0) {
        RemovePointers(State);
        EndFailedDrag(State, view::SquareOfCell(State, State.SourceCell));
    }
}

void EnterTypedMove(GameState& State) {
    if (TakesMoves(State)) {
        TypeMove(State);
    }
}

void PlayListedMove(GameState& State) {
    const auto& Lines = State.ChoiceList.Lines;
    const auto K = static_cast<std::size_t>(State.ChoiceList.Selected);
    if (!TakesMoves(State) || State.ChoiceList.Selected < 0 || K >= Lines.size()) {
        return;
    }
    const std::string& Line = Lines[K];
    PlayLine(State, std::string_view(Line).substr(0, Line.size() == MarkedLine ? MarkedLine - 1 : Line.size()));
}

void PlayRootMove(GameState& State) {
    const int K = State.RootList.Selected;
    if (!TakesMoves(State) || K < 0) {
        return;
    }
    if (K > LastRootMove) {
        Refuse(State, "List3_DblClick   K=" + view::SignedText(K));
        return;
    }
    const engine::RootMove Move = State.RootMoves[K];
    PlayLine(State, rules::SquareNotation(State, Move.Source, rules::Padding::Zero) +
                        rules::SquareNotation(State, Move.Dest, rules::Padding::Zero));
}

} // namespace zonterbrook::control
