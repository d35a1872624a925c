// How a move enters the record and its line the list.
#include "control/record.h"

#include "base/checked_number.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "view/move_lists.h"

#include <utility>

namespace zonterbrook::control {

namespace {

// The slider of the strength runs from 1 to this.
constexpr int HighestLevel = 10;

} // namespace

game::HalfMove NewHalfMove(const GameState& State, int Move) {
    game::HalfMove Made;
    Made.Played = rules::RememberMove(State, Move);
    Made.Choices = base::Narrow<std::int16_t>(rules::MoveCountOfPly(State));
    return Made;
}

std::optional<game::HalfMove> EnterMove(GameState& State, int Source, int Dest) {
    const int Move = rules::FindMove(State, Source, Dest);
    if (Move < 0) {
        return std::nullopt;
    }
    game::HalfMove Made = NewHalfMove(State, Move);
    rules::PlayMove(State, Move);
    return Made;
}

void RecordMove(GameState& State, game::HalfMove Made, game::MadeBy By) {
    Made.Material = base::Narrow<std::int16_t>(State.Material[State.Ply]);
    Made.TotalMaterial = State.TotalMaterial[State.Ply];
    Made.By = By;
    Made.Level = base::Narrow<std::uint8_t>(HighestLevel - State.Strength);
    game::Append(State.Record, std::move(Made));
    view::ListGame(State, State.Record, State.Record.Cursor);
    State.CommentText.clear();
    State.GameChanged = State.GameChanged || By != game::MadeBy::File;
}

void CutAhead(GameState& State) {
    if (State.Record.MovesAhead()) {
        game::Cut(State.Record, State.Record.Cursor);
        view::ListGame(State, State.Record, State.Record.Cursor + 1);
    }
}

void PlayMoveSound(const GameState& State) {
    if (State.UseSound == 1) {
        State.Outside().PlaySound("sounds/click.wav");
    }
}

} // namespace zonterbrook::control
