// How a move enters the record and its line the list.
#include "control/record.h"

#include "base/checked_number.h"
#include "control/game_document.h"
#include "control/kept_game.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "view/move_lists.h"

#include <utility>

namespace zonterbrook::control {

namespace {

// The slider of the strength runs from 1 to this.
constexpr int HighestLevel = 10;

bool SameEnds(const rules::MoveRecord& A, const rules::MoveRecord& B) {
    return A.Source == B.Source && A.Dest == B.Dest;
}

void KeepWhatIsCut(GameState& State) {
    if (State.Record.MovesAhead()) {
        State.Replaced = KeepGame(State);
    }
}

} // namespace

game::HalfMove NewHalfMove(const GameState& State, int Move) {
    game::HalfMove Made;
    Made.Played = rules::RememberMove(State, Move);
    Made.Choices = base::Narrow<std::int16_t>(rules::MoveCountOfPly(State));
    for (int I = State.StackLimit[State.Ply]; I < Move; ++I) {
        const rules::MoveRecord& Before = State.MoveStack[I];
        Made.Way = static_cast<std::int16_t>(Made.Way + (SameEnds(Before, State.MoveStack[Move]) ? 1 : 0));
    }
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
    KeepWhatIsCut(State);
    game::Append(State.Record, std::move(Made));
    view::ListGame(State, State.Record, State.Record.Cursor);
    State.CommentText.clear();
    State.PickedSquare = 0;
    if (By != game::MadeBy::File) {
        State.GameChanged = true;
        SaveByItself(State);
    }
}

void CutAhead(GameState& State) {
    if (State.Record.MovesAhead()) {
        KeepWhatIsCut(State);
        game::Cut(State.Record, State.Record.Cursor);
        view::ListGame(State, State.Record, State.Record.Cursor + 1);
    }
}

void PlayMoveSound(const GameState& State) {
    if (State.UseSound == 1) {
        State.Outside().PlaySound("sounds/click.wav", State.OwnSettings.Volume);
    }
}

} // namespace zonterbrook::control
