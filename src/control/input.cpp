// Moves from the mouse, from the keyboard and from the lists, and every refusal in its words.
//
// Input checks no rule: it looks a move up among those of the ply, and compares with them to say why it was refused.
// A drag is idle (`SourceCell` -1) or held (`SourceCell` set, the cell painted empty); every way out of held puts the
// piece back or redraws the board. Reads the stack of the ply; writes the latches, boxes and pointers. What a move sets
// off is person_move.h's business.
#include "control/input.h"

#include "base/text.h"
#include "control/calculation.h"
#include "control/input_state.h"
#include "control/person_move.h"
#include "control/replay.h"
#include "control/setup.h"
#include "control/turn_state.h"
#include "rules/cells.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/refusal.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <string>
#include <utility>

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
constexpr int LastRootMove = engine::RootMoveEntries - 1;

void Refuse(const GameState& State, std::string_view Text) {
    State.Outside().Message(ErrorTitle, Text, Icon::Exclamation);
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

// The piece is back where it was, and with it the board as it was before the pick.
void EndFailedDrag(GameState& State, int Source) {
    view::RepaintSquare(State, Source);
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        if (Move.Source == Source) {
            view::RepaintSquare(State, Move.Dest);
        }
    });
    ClearDrag(State);
    State.SourcesShown = false;
}

void ShowNumbers(GameState& State) {
    if (!State.SetupLatch) {
        State.NumbersShown = true;
        State.SourcesShown = false;
        view::DrawBoard(State, 1);
    }
    State.SetupLatch = false;
}

void BoxMoveSources(GameState& State) {
    State.SourcesShown = true;
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        if (Move.Source != rules::FromHand) {
            view::RepaintSquare(State, Move.Source);
            view::BoxSquare(State, Move.Source);
        }
    });
}

void RefusePick(GameState& State, int Square, std::string_view Text) {
    view::RepaintSquare(State, Square);
    State.SourceCell = -1;
    Refuse(State, Text);
}

// Says in the status bar why a move is refused, and shows what can move instead: until the next press.
void Explain(GameState& State, int Source, int Dest) {
    view::SetStatus(State, rules::WhyRefused(State, Source, Dest).Sentence);
    BoxMoveSources(State);
    State.RefusalShown = true;
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
            State.SourcesShown = true;
            view::BoxSquare(State, Move.Dest);
        }
    });
}

void PickPiece(GameState& State, int Index) {
    if (IsOver(State)) {
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
    State.CycleMove = false;
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        State.CycleMove = State.CycleMove || (Move.Source == Square && Move.Dest == Square);
    });
    if (!AnyMoveFrom(State, Square)) {
        Explain(State, Square, rules::Anywhere);
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
    State.DragIconSet = false;
    BoxTargets(State, Square);
    // The rule of the touched piece takes hold only here, where available moves are shown. Wanted:
    // docs/kept_behaviour.md, "Touch-Move".
    if (State.TouchedSquare == 0) {
        State.TouchedSquare = Square;
    }
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
    return Target == Source && !State.CycleMove;
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
    Explain(State, Source, Dest);
    Refuse(State, Reason.empty() ? std::string(IllegalMove) : std::string(IllegalMove) + ": " + std::string(Reason));
}

// A piece that is let go where it was pressed stays picked, and its targets stay boxed; a second click frees it. With
// the keys it is free: there the second press is the drop.
void KeepPicked(GameState& State, int Square) {
    if (std::exchange(State.WasPicked, false) || State.KeysOnBoard || !AnyMoveFrom(State, Square)) {
        return;
    }
    State.PickedSquare = Square;
    view::RepaintSquare(State, Square);
    State.SourcesShown = true;
    if (State.ShowAvailableMoves != 0) {
        BoxTargets(State, Square);
    }
}

void DropPiece(GameState& State, int X, int Y) {
    const int Source = view::SquareOfCell(State, State.SourceCell);
    const int Target = DropSquare(State, Source, X, Y);
    if (IsFailedDrop(State, Source, Target)) {
        EndFailedDrag(State, Source);
        if (Target == Source) {
            KeepPicked(State, Source);
        }
        return;
    }
    ClearDrag(State);
    State.DroppedByHand = true;
    if (!PlayPersonMove(State, Source, Target)) {
        State.DroppedByHand = false;
        RefuseDrop(State, Source, Target);
    }
}

// Takes the clicked piece's mark and its boxes off the board.
void PutBackPicked(GameState& State) {
    if (const std::int32_t Square = std::exchange(State.PickedSquare, 0); Square != 0) {
        EndFailedDrag(State, Square);
    }
}

void ForgetWays(GameState& State) {
    if (!State.Ways.empty()) {
        view::SetStatus(State, State.StatusText);
    }
    State.Ways.clear();
    State.WayMoves.clear();
}

bool Bears(const view::WayFields& Way, std::int32_t Cell) {
    return std::find(Way.Path.begin(), Way.Path.end(), Cell) != Way.Path.end();
}

// Each number stands where no other way goes.
void PlaceBadges(std::vector<view::WayFields>& Ways) {
    for (view::WayFields& Way : Ways) {
        Way.Badge = Way.Path[Way.Path.size() / 2];
        for (const std::int32_t Cell : Way.Path) {
            if (std::count_if(Ways.begin(), Ways.end(), [&](const auto& Each) { return Bears(Each, Cell); }) == 1) {
                Way.Badge = Cell;
                break;
            }
        }
    }
}

// The cells that a capture goes over: those it lands on and those it takes.
view::WayFields WayOf(const GameState& State, const rules::MoveRecord& Move) {
    view::WayFields Way;
    std::vector<std::int32_t> Between = SquaresBetween(Move);
    Way.Path.push_back(view::CellOfSquare(State, Move.Source));
    for (int I = 0; I < Move.Captures.Count; ++I) {
        Way.Path.push_back(view::CellOfSquare(State, Move.Captures.Groups[I].Cell));
        if (I < static_cast<int>(Between.size()) && I + 1 < Move.Captures.Count) {
            Way.Path.push_back(view::CellOfSquare(State, Between[static_cast<std::size_t>(I)]));
        }
    }
    Way.Path.push_back(view::CellOfSquare(State, Move.Dest));
    return Way;
}

// A click on a target of the picked piece. Of several captures that end there the person chooses.
void PlayTo(GameState& State, int Source, int Target) {
    std::vector<std::int32_t> Moves;
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        if (State.MoveStack[I].Source == Source && State.MoveStack[I].Dest == Target) {
            Moves.push_back(I);
        }
    }
    if (Moves.size() > 1) {
        State.WayMoves = Moves;
        for (const std::int32_t Move : Moves) {
            State.Ways.push_back(WayOf(State, State.MoveStack[Move]));
        }
        PlaceBadges(State.Ways);
        view::SetStatus(State, "Several captures end there: choose one by its number or by a click on its way.");
    } else if (!PlayPersonMove(State, Source, Target)) {
        RefuseDrop(State, Source, Target);
    }
}

// A press while a piece is picked; false if it goes on as any other press.
bool PressWithPicked(GameState& State, int Index) {
    const std::int32_t Picked = State.PickedSquare;
    const int Square = view::SquareOfCell(State, Index);
    PutBackPicked(State);
    if (Square == Picked) {
        State.WasPicked = true;
        return false;
    }
    bool IsTarget = false;
    ForEachMove(State, [&](const rules::MoveRecord& Move) {
        IsTarget = IsTarget || (Move.Source == Picked && Move.Dest == Square);
    });
    if (IsTarget) {
        PlayTo(State, Picked, Square);
    }
    return IsTarget;
}

} // namespace

void RefuseMove(GameState& State, int Source, int Dest) {
    if (Source == 0 || Dest == 0) {
        view::SetStatus(State, "That names no move: type its two squares, with a hyphen between them.");
    } else {
        Explain(State, Source, Dest);
    }
    Refuse(State, IllegalMove);
}

namespace {

void TypeMove(GameState& State) {
    const game::MoveEnds Move = game::ReadTypedMove(State, std::exchange(State.TypedText, {}));
    if (!PlayPersonMove(State, Move.Source, Move.Dest)) {
        RefuseMove(State, Move.Source, Move.Dest);
    }
}

void PlayLine(GameState& State, int Source, int Dest) {
    State.TypedText.clear();
    if (rules::FindMove(State, Source, Dest) >= 0) {
        State.ChoiceList = {};
        State.RootList = {};
        PlayPersonMove(State, Source, Dest);
    } else {
        view::DrawBoard(State, 0);
        State.SourcesShown = false;
        RefuseMove(State, Source, Dest);
    }
}

// The way that a click means: the only one that goes over the cell. Anywhere else it ends the question.
void PressWay(GameState& State, int Index) {
    std::vector<int> Meant;
    for (std::size_t I = 0; I < State.Ways.size(); ++I) {
        if (State.Ways[I].Badge == Index || Bears(State.Ways[I], Index)) {
            Meant.push_back(static_cast<int>(I));
        }
    }
    if (Meant.size() == 1) {
        ChooseWay(State, Meant.front() + 1);
    } else if (Meant.empty()) {
        ForgetWays(State);
    }
}

void EscapeHand(GameState& State) {
    if (!IsBusy(State) && State.HandSide != 0) {
        DropFromCounter(State, -1);
    }
    if (!IsBusy(State) && State.SourceCell >= 0) {
        EndFailedDrag(State, view::SquareOfCell(State, State.SourceCell));
    }
}

bool IsCell(int Index) {
    return Index >= 0 && Index < view::BoardPictures;
}

} // namespace

void PressCell(GameState& State, int Index, int Button) {
    if (!IsCell(Index) || IsBusy(State) || State.RightCell >= 0 || State.PopupLatch) {
        return;
    }
    if (std::exchange(State.RefusalShown, false)) {
        view::DrawBoard(State, 0);
        State.SourcesShown = false;
    }
    if (Button == RightButton) {
        PutBackPicked(State);
        ForgetWays(State);
        if (!State.SourcesShown) {
            State.RightCell = Index;
        }
        return;
    }
    if (Button != LeftButton) {
        return;
    }
    // The release of the last drag may never have come.
    EscapeHand(State);
    ForgetHintedMove(State);
    State.WasPicked = false;
    if (!State.Ways.empty()) {
        PressWay(State, Index);
        return;
    }
    if (State.PickedSquare != 0 && PressWithPicked(State, Index)) {
        return;
    }
    const view::Picture Shown = State.Cells[Index].Shows;
    if (Shown == view::Picture::dark_square || Shown == view::Picture::light_square) {
        ShowNumbers(State);
    } else {
        PickPiece(State, Index);
    }
}

void MoveOverCell(GameState& State, int Index) {
    if (!IsCell(Index) || State.NumbersShown || !TakesMoves(State)) {
        return;
    }
    State.PopupLatch = false;
    if (State.ShowAvailableMoves != 0 && !State.SourcesShown) {
        BoxMoveSources(State);
    }
    const int Square = view::SquareOfCell(State, Index);
    if (AnyMoveFrom(State, Square)) {
        State.HoverSquare = Square;
        State.HoverCell = Index;
    }
    if (State.SourceCell >= 0 && !State.DragIconSet) {
        State.DragIconSet = true;
        const int Source = view::SquareOfCell(State, State.SourceCell);
        State.Cells[State.SourceCell].Pointer = view::PointerOfPiece(State.Board[Source]);
    }
}

void ReleaseCell(GameState& State, int Index, int Button, int X, int Y) {
    if (!IsCell(Index) || IsBusy(State)) {
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
    if (State.NumbersShown) {
        State.NumbersShown = false;
        State.SourcesShown = false;
        view::DrawBoard(State, 0);
        return;
    }
    if (State.SourceCell >= 0) {
        DropPiece(State, X, Y);
    }
}

void PickFromCounter(GameState& State, std::int32_t Side) {
    if (!TakesMoves(State) || State.RuleSet.canContract == 0) {
        return;
    }
    EscapeDrag(State);
    if (Side != State.Side) {
        Refuse(State, view::SideMovesText(State.Side));
        return;
    }
    if (!AnyMoveFrom(State, rules::FromHand)) {
        Refuse(State, "You cannot move that piece");
        return;
    }
    State.HandSide = Side;
    if (State.ShowAvailableMoves != 0) {
        BoxTargets(State, rules::FromHand);
    }
}

void DropFromCounter(GameState& State, int Index) {
    if (std::exchange(State.HandSide, 0) == 0 || IsBusy(State)) {
        return;
    }
    if (!IsCell(Index)) {
        view::DrawBoard(State, 0);
        State.SourcesShown = false;
        return;
    }
    const int Target = view::SquareOfCell(State, Index);
    if (!PlayPersonMove(State, rules::FromHand, Target)) {
        RefuseDrop(State, rules::FromHand, Target);
    }
}

void EscapeDrag(GameState& State) {
    EscapeHand(State);
    if (!IsBusy(State)) {
        PutBackPicked(State);
        PressWay(State, -1);
    }
}

void ChooseWay(GameState& State, int Number) {
    if (IsBusy(State) || Number < 1 || Number > static_cast<int>(State.Ways.size())) {
        return;
    }
    const std::int32_t Move = State.WayMoves[static_cast<std::size_t>(Number - 1)];
    const rules::MoveRecord Chosen = State.MoveStack[Move];
    ForgetWays(State);
    if (!PlayPersonWay(State, Move)) {
        RefuseDrop(State, Chosen.Source, Chosen.Dest);
    }
}

void EnterTypedMove(GameState& State) {
    if (IsBusy(State) || base::Trim(State.TypedText).empty()) {
        return;
    }
    if (IsOver(State)) {
        State.TypedText.clear();
        view::SetStatus(State, State.EndText);
        return;
    }
    TypeMove(State);
}

void PlayListedMove(GameState& State) {
    const std::int32_t Line = State.ChoiceList.Selected;
    if (!TakesMoves(State) || Line < 0 || Line >= rules::MoveCountOfPly(State)) {
        return;
    }
    const rules::MoveRecord& Move = State.MoveStack[State.StackLimit[State.Ply] + Line];
    PlayLine(State, Move.Source, Move.Dest);
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
    // The calculation of another position, such as the computer's own before its move, has no moves for this one.
    if (!BelongsToCalculation(State)) {
        return;
    }
    PlayLine(State, State.RootMoves[K].Source, State.RootMoves[K].Dest);
}

} // namespace zonterbrook::control
