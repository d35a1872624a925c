// The analysis.
//
// Goes the computer's road without playing: the record, the position and what lies ahead of the cursor stay. A game
// that turns out to be over ends in the same words.
#include "control/analysis.h"

#include "control/ending.h"
#include "control/thinking.h"
#include "control/turn_state.h"
#include "engine/evaluate.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

// What the search has seen coming; true where the game is won as it stands.
bool AnnounceOutcome(GameState& State) {
    if (State.BestScore < -engine::ForcedScore) {
        AnnounceLoss(State);
        return false;
    }
    if (State.BestScore <= engine::ForcedScore) {
        return false;
    }
    std::int32_t Value = 0;
    {
        rules::InitGameTree(State);
        const rules::GamePositionScope Scope(State);
        Value = engine::PlayingRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, -State.Side);
    }
    if (Value >= WonAsItStands) {
        return true;
    }
    AnnounceWin(State, (engine::WindowHigh - State.BestScore + 1) / 2);
    return false;
}

void AnalyzePosition(GameState& State, engine::RootObserver* AlsoTold) {
    // 1. As for a move.
    ThinkingInProgress Analysis(State, Purpose::Analysis, AlsoTold);
    PrepareThinking(State, Purpose::Analysis);
    if (!EndsBeforeThinking(State, Purpose::Analysis)) {
        Think(State, Analysis);
        if (State.ProgramEnds) {
            return; // a handler that ran in between has ended the program
        }
        State.StopAutoPlay = 0;
        State.CancelRequested = rules::StopRequest::None;
        State.HintSource = 0;
        State.HintDest = 0;

        // 2. What has been found, in words.
        const bool Won = AnnounceOutcome(State);
        view::DrawBoard(State, 0);

        // 3. A position that is over ends the game.
        rules::InitGameTree(State);
        rules::GenerateGameMoves(State);
        DrawRuleCheck(State);
        if (Won) {
            EndGame(State, Ending::ComputerWins);
        } else if (DrawRuleEndsGame(State)) {
            EndGame(State, Ending::DrawnByRule);
        }
    }
    GiveBackWindow(State);
}

} // namespace

void AnalyzeNow(GameState& State, engine::RootObserver* AlsoTold) {
    if (IsOver(State)) {
        return;
    }
    view::SetStatus(State, "");
    State.CancelRequested = rules::StopRequest::None;
    EnterTurn(State, TurnState::Thinking);
    AnalyzePosition(State, AlsoTold);
}

} // namespace zonterbrook::control
