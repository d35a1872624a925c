// The popup menu of a square, and the start position that its choice makes.
//
// Writes the board, the start position and, through `NewGame`, the whole game.
#include "control/setup.h"

#include "control/input.h"
#include "control/new_game.h"
#include "rules/position.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

using view::CommandId;

struct PieceEntry {
    CommandId Id;
    std::int32_t Value;
};
constexpr PieceEntry PieceEntries[] = {{CommandId::empty1, rules::Empty},
                                       {CommandId::mnu_PopUp_BlackChecker, rules::BlackMan},
                                       {CommandId::mnu_PopUp_BlackKing, rules::BlackKing},
                                       {CommandId::Whitechecker, rules::WhiteMan},
                                       {CommandId::Whiteking, rules::WhiteKing}};

void TickEntries(GameState& State, int Square) {
    for (const PieceEntry& Entry : PieceEntries) {
        if (Entry.Value == State.Board[Square]) {
            view::ChooseRadio(State, Entry.Id);
        }
    }
    view::ChooseRadio(State, State.Side == rules::White ? CommandId::WhiteM : CommandId::mnu_PopUp_BlackM);
}

void ClearBoard(GameState& State) {
    for (int Cell = rules::FirstCell; Cell <= rules::LastCell; ++Cell) {
        if (State.Board[Cell] != rules::Border) {
            rules::SetCell(State, Cell, rules::Empty);
        }
    }
}

void SetSideToMove(GameState& State, std::int32_t Side) {
    State.Side = Side;
    view::SetStatus(State, view::SideMovesText(Side));
}

// False if the menu was closed with no choice.
bool ApplyEntry(GameState& State, CommandId Chosen) {
    switch (Chosen) {
    case CommandId::mnu_PopUp_ClearBoard:
        ClearBoard(State);
        return true;
    case CommandId::mnu_PopUp_BlackM:
        SetSideToMove(State, rules::Black);
        return true;
    case CommandId::WhiteM:
        SetSideToMove(State, rules::White);
        return true;
    default:
        break;
    }
    for (const PieceEntry& Entry : PieceEntries) {
        if (Entry.Id == Chosen) {
            rules::SetCell(State, State.PopupSquare, Entry.Value);
            return true;
        }
    }
    return false;
}

void MakeStartPosition(GameState& State) {
    State.StartBoard = State.Board;
    State.RuleSet.BlackStarts = State.Side == rules::Black ? 1 : 0;
    State.KeepBoard = 1;
    NewGame(State);
    ClearInput(State);
    State.SetupLatch = 1;
    State.PopupLatch = 1;
    view::ShowVariantTitle(State);
    if (!State.VariantTitle.ends_with(" (M)")) {
        State.VariantTitle += " (M)";
        view::ShowTitle(State);
    }
    view::DrawBoard(State, 0);
}

} // namespace

void EditSquare(GameState& State, int Square) {
    if (State.RuleSet.PiecesOnBlack < 2 && !view::IsDarkSquare(State, Square)) {
        return;
    }
    State.SetupLatch = 1;
    TickEntries(State, Square);
    State.PopupSquare = Square;
    if (ApplyEntry(State, State.Outside->ShowPopup(CommandId::mnuPopup))) {
        MakeStartPosition(State);
    }
}

} // namespace zonterbrook::control
