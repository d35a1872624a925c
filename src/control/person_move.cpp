// A person's move.
#include "control/person_move.h"

#include "base/checked_number.h"
#include "control/computer_move.h"
#include "control/input_state.h"
#include "control/log.h"
#include "control/record.h"
#include "control/turn.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <utility>

namespace zonterbrook::control {

namespace {

// The position after a move from its mover's side, as the computer's moves have their scores: by the evaluator of the
// routine that would play it, since the tables of a rule set are made for that one.
std::int16_t EvaluationForMover(GameState& State) {
    engine::InitEngineThresholds(State);
    const rules::GamePositionScope Scope(State);
    const engine::EvaluateFunction Evaluate = engine::PlayingRoutine(State).Evaluate;
    return base::Narrow<std::int16_t>(-Evaluate(State, engine::WindowLow, engine::WindowHigh, State.Side));
}

void ForgetCalculation(GameState& State) {
    State.Calculated = {};
    view::WriteCalculation(State);
    State.StatusPanels[view::ProductPanel].clear();
    State.StatusText.clear();
    State.HintSource = 0;
    State.HintDest = 0;
}

} // namespace

namespace {

Follows TakeOver(GameState& State, game::HalfMove Made) {
    // 1. What the last calculation said is over.
    ForgetCalculation(State);

    // 2. Record, list, sound and log.
    if (State.PlayMode == view::GameMode::PlayerPlayer) {
        Made.Score = EvaluationForMover(State);
    }
    RecordMove(State, std::move(Made), game::MadeBy::Person);
    PlayMoveSound(State);
    LogMove(State);
    ClearInput(State);
    view::DrawBoard(State, 0);

    // 3. Who is next.
    return FollowMove(State);
}

} // namespace

std::optional<Follows> MakePersonMove(GameState& State, int Source, int Dest) {
    auto Made = EnterMove(State, Source, Dest);
    return Made ? std::optional(TakeOver(State, *std::move(Made))) : std::nullopt;
}

bool PlayPersonMove(GameState& State, int Source, int Dest) {
    const auto Next = MakePersonMove(State, Source, Dest);
    if (Next == Follows::Computer) {
        ComputeNow(State);
    }
    return Next.has_value();
}

bool PlayPersonWay(GameState& State, int Move) {
    // The rule of the touched piece may refuse all of them.
    if (rules::FindMove(State, State.MoveStack[Move].Source, State.MoveStack[Move].Dest) < 0) {
        return false;
    }
    game::HalfMove Made = NewHalfMove(State, Move);
    rules::PlayMove(State, Move);
    if (TakeOver(State, std::move(Made)) == Follows::Computer) {
        ComputeNow(State);
    }
    return true;
}

} // namespace zonterbrook::control
