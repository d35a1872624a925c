// The states of a turn and what may follow each.
#include "control/turn_state.h"

#include "base/fault.h"
#include "rules/position.h"
#include "view/move_lists.h"

#include <initializer_list>

namespace zonterbrook::control {

namespace {

constexpr unsigned Bit(TurnState State) {
    return 1U << static_cast<unsigned>(State);
}

constexpr unsigned AnyOf(std::initializer_list<TurnState> States) {
    unsigned Bits = 0;
    for (const TurnState State : States) {
        Bits |= Bit(State);
    }
    return Bits;
}

using enum TurnState;

// By state, in the order of the enum.
constexpr unsigned MayFollow[] = {
    AnyOf({Thinking, Replaying, Ending, Over, Hinting, Measuring}), // Resting
    AnyOf({Resting, Ending, Over}),                                 // Thinking
    AnyOf({Resting, Ending, Over}),                                 // Replaying
    AnyOf({Over}),                                                  // Ending
    AnyOf({Resting, Replaying}),                                    // Over
    AnyOf({Resting}),                                               // Hinting
    AnyOf({Resting, Over}),                                         // Measuring
};

} // namespace

void EnterTurn(GameFields& Game, TurnState Next) {
    if (Next != Game.Turn && (MayFollow[static_cast<std::size_t>(Game.Turn)] & Bit(Next)) == 0) {
        throw base::Fault("turn " + std::to_string(static_cast<int>(Next)) + " cannot follow " +
                          std::to_string(static_cast<int>(Game.Turn)));
    }
    Game.Turn = Next;
}

bool IsBusy(const GameFields& Game) {
    return Game.Turn != Resting && Game.Turn != Over;
}

bool IsOver(const GameFields& Game) {
    return Game.Turn == Over;
}

bool TakesMoves(const GameFields& Game) {
    return Game.Turn == Resting;
}

bool CanCancel(const GameState& State) {
    if (State.Turn == Measuring) {
        return State.StopQuickSearch == 0;
    }
    return State.Turn == Thinking && State.CancelRequested != rules::StopRequest::Person && State.StopAutoPlay == 0;
}

void AskForStop(GameState& State) {
    if (State.Turn == Measuring) {
        State.StopQuickSearch = 1;
    } else {
        State.CancelRequested = rules::StopRequest::Person;
    }
}

std::string StandingText(const GameState& State) {
    if (IsOver(State) && !State.EndText.empty()) {
        return State.EndText;
    }
    if (!State.Record.MovesAhead() && !State.StatusText.empty()) {
        return State.StatusText;
    }
    return std::string(view::SideMovesText(State.Side));
}

std::string CheckRest(const GameState& State) {
    std::string Found = rules::CheckPosition(State);
    if (IsBusy(State)) {
        Found += " something is left at work";
    }
    if (State.Record.Cursor != State.GameMoves) {
        Found += " the cursor is not where the board is";
    }
    if (State.Record.Count < State.Record.Cursor) {
        Found += " the cursor is behind the record";
    }
    if (State.GameList.Lines.size() != static_cast<std::size_t>(State.Record.Count)) {
        return Found + " lines and half-moves differ";
    }
    for (int Number = 1; Number <= State.Record.Count; ++Number) {
        if (State.GameList.Lines[static_cast<std::size_t>(Number - 1)] != view::GameLine(State, State.Record, Number)) {
            Found += " a line and its half-move differ";
        }
    }
    return Found;
}

} // namespace zonterbrook::control
