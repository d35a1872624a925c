// What is to be seen of the move that was played last.
#include "control/last_move.h"

#include "control/replay.h"
#include "rules/cells.h"
#include "view/draw_board.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace zonterbrook::control {

namespace {

using view::Trace;

std::vector<std::int32_t> PathOf(const GameState& State, const rules::MoveRecord& Move) {
    std::vector<std::int32_t> Squares{Move.Source};
    if (Move.Captures.Count > 1) {
        const std::vector<std::int32_t> Between = SquaresBetween(Move);
        Squares.insert(Squares.end(), Between.begin(), Between.end());
    }
    Squares.push_back(Move.Dest);
    std::transform(Squares.begin(), Squares.end(), Squares.begin(),
                   [&](std::int32_t Square) { return view::CellOfSquare(State, Square); });
    return Squares;
}

void MarkCells(GameState& State, const rules::MoveRecord& Move) {
    for (view::BoardCell& Cell : State.Cells) {
        Cell.Left = Trace::None;
    }
    if (State.OwnSettings.MarkLastMove == 0 || Move.Source == 0) {
        return;
    }
    const auto Mark = [&](std::int32_t Square, Trace As) { State.Cells[view::CellOfSquare(State, Square)].Left = As; };
    if (Move.Source != rules::FromHand) {
        for (const std::int32_t Cell : PathOf(State, Move)) {
            State.Cells[Cell].Left = Trace::Path;
        }
        Mark(Move.Source, Trace::Source);
    }
    for (int I = 0; I < Move.Captures.Count; ++I) {
        Mark(Move.Captures.Groups[I].Cell, Trace::Captured);
    }
    Mark(Move.Dest, Trace::Target);
}

// The pieces that have left the board with a move.
std::vector<std::pair<std::int32_t, view::Picture>> TakenBy(const GameState& State, const rules::PlayedMove& Played) {
    std::vector<std::pair<std::int32_t, view::Picture>> Taken;
    for (int I = 0; I < Played.Record.Captures.Count; ++I) {
        const rules::CaptureGroup& Group = Played.Record.Captures.Groups[I];
        if (State.Board[Group.Cell] == rules::Empty) {
            const std::int32_t Piece = Played.Mover > 0 ? -Group.Weight : Group.Weight;
            Taken.emplace_back(view::CellOfSquare(State, Group.Cell), view::PointerOfPiece(Piece));
        }
    }
    return Taken;
}

void Slide(GameState& State, const rules::PlayedMove& Played, bool Forward) {
    if (State.OwnSettings.SlideMoves == 0 || Played.Record.Source == rules::FromHand) {
        return;
    }
    ++State.Slide.Number;
    State.Slide.Piece = view::PointerOfPiece(Played.Mover);
    State.Slide.Path = PathOf(State, Played.Record);
    State.Slide.Taken.clear();
    if (Forward) {
        State.Slide.Taken = TakenBy(State, Played);
    } else {
        std::reverse(State.Slide.Path.begin(), State.Slide.Path.end());
    }
}

} // namespace

void TraceLastMove(GameState& State) {
    const game::GameRecord& Record = State.Record;
    const game::HalfMove& Last = Record.Last();
    const ShownMove Before = State.MoveShown;
    if (Record.Cursor != Before.Cursor || Record.Count != Before.Count ||
        !(Last.Played.Record == Before.Played.Record)) {
        State.MoveShown = {Record.Cursor, Record.Count, Last.Played};
        const bool ByHand = std::exchange(State.DroppedByHand, false) && Last.By == game::MadeBy::Person;
        const bool Grown = Record.Count != Before.Count;
        const bool Read = Grown && Last.By == game::MadeBy::File;
        // The computer may have answered before the board was shown again.
        const bool OneOn = Record.Cursor == Before.Cursor + 1 ||
                           (Record.Cursor == Before.Cursor + 2 && Grown && Last.By == game::MadeBy::Computer);
        const bool OneBack = Record.Cursor + 1 == Before.Cursor && !Grown &&
                             Record.HalfMoves[Before.Cursor].Played.Record == Before.Played.Record;
        if (OneOn && !ByHand && !Read) {
            Slide(State, Last.Played, true);
        } else if (OneBack) {
            Slide(State, Before.Played, false);
        }
    }
    MarkCells(State, Last.Played.Record);
}

} // namespace zonterbrook::control
