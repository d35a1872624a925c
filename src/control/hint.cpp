// The hint.
//
// Plays and records nothing. Its search is not to be stopped: it is over in a moment.
#include "control/hint.h"

#include "control/book.h"
#include "control/ending.h"
#include "control/turn_state.h"
#include "engine/quick_root.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr std::string_view Title = "Hint";
constexpr std::string_view Advice = "Think ahead and try not to leave your opponent with multiple jumps";
constexpr std::uint8_t BothColours = 2;

void MarkMove(view::ViewState& State, std::int32_t Source, std::int32_t Dest) {
    State.HintedSquares[0] = Source == rules::FromHand ? 0 : Source;
    State.HintedSquares[1] = Dest;
    view::DrawBoard(State, 0);
}

void Say(GameState& State, const std::string& Move, std::int32_t Source, std::int32_t Dest) {
    MarkMove(State, Source, Dest);
    State.SourcesShown = false;
    State.Outside().Message(Title, "Try " + Move, Icon::None);
}

// The best move of a small search stands on record 0 afterwards; false if there is no move.
bool SearchHint(GameState& State, std::int32_t Noise) {
    // 1. The root.
    State.Noise = Noise;
    State.SearchBase = State.GameMoves;
    State.StopQuickSearch = 0;
    rules::InitGameTree(State);
    bool Lost = false;
    {
        const rules::GamePositionScope Scope(State);
        engine::QuickRoutine(State).Evaluate(State, engine::WindowLow, engine::WindowHigh, State.Side);
        Lost = State.SideToMoveLost != 0;
        State.NoLegalDrawHit = 0;
    }
    rules::GenerateGameMoves(State);
    const bool Moves = rules::MoveCountOfPly(State) > 0;
    if (Lost || !Moves) {
        State.Outside().Message("Congratulations", "You have already won!", Icon::None);
    }
    if (!Moves) {
        return false;
    }

    // 2. Two iterations; one where every square is played on.
    SetMoveLimit(State);
    engine::QuickObserver Nobody;
    engine::QuickRootSearch(State, engine::HintPolicy, State.RuleSet.PiecesOnBlack == BothColours ? 1 : 2, Nobody);
    return true;
}

} // namespace

bool TellExpectedReply(GameState& State) {
    if (State.HintSource <= 0) {
        return false;
    }
    const std::int32_t Source = std::exchange(State.HintSource, 0);
    const std::int32_t Dest = std::exchange(State.HintDest, 0);
    const auto NameOf = [&](std::int32_t Square) {
        return rules::SquareNotation(State.NotationMode, Square, rules::Padding::None);
    };
    Say(State, NameOf(Source) + "-" + NameOf(Dest), Source, Dest);
    return true;
}

void ShowHint(GameState& State, std::int32_t Noise) {
    engine::InitEngineThresholds(State);
    if (!TellExpectedReply(State)) {
        EnterTurn(State, TurnState::Hinting);
        const bool Found = SearchHint(State, Noise);
        EnterTurn(State, TurnState::Resting);
        if (Found) {
            const rules::MoveRecord Best = State.MoveStack[0];
            Say(State, game::MoveName(State, game::NamedMoveOf(Best)), Best.Source, Best.Dest);
        }
        rules::InitGameTree(State);
        rules::GenerateGameMoves(State);
        RefreshChoices(State);
    }
    view::SetStatus(State, Advice);
}

} // namespace zonterbrook::control
