// The popup menu of a square, and the start position that its choice makes.
//
// Writes the board, the start position and, through `StartPosition`, the whole game.
#include "control/setup.h"

#include "control/kept_game.h"
#include "control/variant_start.h"
#include "rules/position.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

struct PieceEntry {
    CommandId Id;
    std::int32_t Value;
};
constexpr PieceEntry PieceEntries[] = {{CommandId::EmptySquare, rules::Empty},
                                       {CommandId::BlackMan, rules::BlackMan},
                                       {CommandId::BlackKing, rules::BlackKing},
                                       {CommandId::WhiteMan, rules::WhiteMan},
                                       {CommandId::WhiteKing, rules::WhiteKing}};

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
    case CommandId::ClearBoard:
        ClearBoard(State);
        return true;
    case CommandId::BlackMoves:
        SetSideToMove(State, rules::Black);
        return true;
    case CommandId::WhiteMoves:
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
    StartPosition(State);
    State.IsEdited = true;
    view::MarkTitle(State);
    State.SetupLatch = true;
    State.PopupLatch = true;
}

} // namespace

void EditSquare(GameState& State, int Square) {
    if (State.RuleSet.PiecesOnBlack < 2 && !view::IsDarkSquare(State, Square)) {
        return;
    }
    State.SetupLatch = true;
    State.PopupSquare = Square;
    const CommandId Chosen = State.Outside().ShowPopup(CommandId::PopupMenu);
    if (ApplyEntry(State, Chosen)) {
        // A game is kept, and a position that has come from elsewhere; one on its way to what the person wants is not,
        // but one that is swept off the board.
        const bool FromElsewhere = State.BlackStartsByRules && !State.IsEdited;
        if (State.Record.Count > 0 || FromElsewhere || Chosen == CommandId::ClearBoard) {
            State.Replaced = KeepGame(State);
        }
        MakeStartPosition(State);
    }
}

} // namespace zonterbrook::control
