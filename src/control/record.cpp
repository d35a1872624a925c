// How a move enters the record, its row and its line, and what a person's move sets off.
//
// Reads the position after the move and what `EnterMove` noted; writes the game's record, `GameList` and the commands.
// Whether the game is over is asked of end_of_game.h, the reply of computer_move.h.
#include "control/record.h"

#include "base/checked_number.h"
#include "base/text.h"
#include "control/computer_move.h"
#include "control/end_of_game.h"
#include "control/input.h"
#include "control/log.h"
#include "control/new_game.h"
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/square_names.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

namespace zonterbrook::control {

namespace {

using view::WindowEvent;

constexpr std::string_view PlayerPlayerStatus = "Player-Player mode";
constexpr std::size_t OneSquare = 2;
constexpr std::size_t TwoSquares = 4;

int RowOfHalfMove(int HalfMove) {
    return (HalfMove + 1) / 2;
}

bool IsFirstOfRow(int HalfMove) {
    return HalfMove % 2 == 1;
}

const std::string& StoredText(const GameState& State, int HalfMove) {
    const GameMoveRowFields& Row = State.GameMoveRow[RowOfHalfMove(HalfMove)];
    return IsFirstOfRow(HalfMove) ? Row.FirstMove : Row.SecondMove;
}

std::size_t RawLength(std::string_view Stored) {
    return Stored.size() > OneSquare && Stored[OneSquare] == ' ' ? OneSquare : TwoSquares;
}

void ClearHalfMove(GameState& State, int HalfMove) {
    State.MoveScores[HalfMove] = 0;
    State.MoveDepths[HalfMove] = 0;
    State.MoveChoices[HalfMove] = 0;
    if (RowOfHalfMove(HalfMove) < GameRows) {
        GameMoveRowFields& Row = State.GameMoveRow[RowOfHalfMove(HalfMove)];
        (IsFirstOfRow(HalfMove) ? Row.FirstMove : Row.SecondMove).clear();
        (IsFirstOfRow(HalfMove) ? Row.FirstSource : Row.SecondSource).clear();
    }
}

// The move just entered with what stood on its source cell.
rules::PlayedMove EnteredMove(const GameState& State) {
    return {State.MoveStack[State.PlayedIndex], State.EnteredMover};
}

// The move's score from its mover's side, as the computer's moves have theirs.
void StoreEvaluation(GameState& State) {
    engine::InitEngineThresholds(State);
    const rules::GamePositionScope Scope(State);
    const std::int32_t Score = engine::EvaluatePosition(State, engine::WindowLow, engine::WindowHigh, State.Side);
    State.MoveScores[State.GameMoves] = base::Narrow<std::int16_t>(-Score);
}

void GiveTurnToOtherPerson(GameState& State) {
    view::SetStatus(State, PlayerPlayerStatus);
    GenerateForInput(State);
    view::RefreshMoveChoices(State);
}

} // namespace

bool EnterMove(GameState& State, std::string_view Move) {
    const int Source = rules::SquareNumber(State, Move.substr(0, OneSquare));
    const std::int32_t Mover = Source >= rules::FirstCell && Source <= rules::LastCell ? State.Board[Source] : 0;
    const int Ply = State.Ply;
    bool Found = false;
    rules::InputMove(State, Move, Found);
    if (Found) {
        const bool FromHand = State.MoveStack[State.PlayedIndex].Source == rules::FromHand;
        State.EnteredMover = FromHand ? rules::Empty : Mover;
        State.EnteredChoices = State.StackLimit[Ply + 1] - State.StackLimit[Ply];
    }
    return Found;
}

void RecordHumanMove(GameState& State) {
    // 1. What the last calculation said is over.
    State.Calculation.Text = view::NoCalculation;
    State.StatusPanels[view::ProductPanel].clear();
    State.StatusText.clear();
    State.HintSource = 0;
    State.HintDest = 0;
    State.GameChanged = 1;
    State.GameStarted = 1;

    // 2. The record, cut behind the move, and the commands that hang on it.
    StoreHalfMove(State, EnteredMove(State));
    view::ApplyEvent(State, WindowEvent::MoveEntered);
    const std::string Display(State.MoveText.View());
    view::DrawBoard(State, 0);
    if (State.PlayMode == view::PlayerPlayer) {
        StoreEvaluation(State);
    }
    State.MoveChoices[State.GameMoves] = base::Narrow<std::int16_t>(State.EnteredChoices);
    PlayMoveSound(State);

    // 3. Row, line and log.
    if (State.GameMoves == 1) {
        WriteLogHeader(State);
    }
    AddMoveRow(State, RawTextOf(State, EnteredMove(State).Record), Display, MovedByPerson);
    LogPersonMove(State, Display);

    // 4. The end of the game, or the other side's turn.
    ClearInput(State);
    DrawRuleCheck(State);
    GameEndCheck(State);
    if (State.GameEnded != 0) {
        view::DrawBoard(State, 0);
        return;
    }
    if (State.PlayMode == view::PlayerPlayer) {
        GiveTurnToOtherPerson(State);
    } else {
        ComputeNow(State);
    }
    State.SourcesShown = 0;
}

void RecordLoadedMove(GameState& State) {
    const std::string Display(State.MoveText.View());
    StoreHalfMove(State, EnteredMove(State));
    State.MoveChoices[State.GameMoves] = base::Narrow<std::int16_t>(State.EnteredChoices);
    State.GameStarted = 1;
    if (State.GameMoves == 1) {
        WriteLogHeader(State);
    }
    AddMoveRow(State, RawTextOf(State, EnteredMove(State).Record), Display, MovedByFile);
    LogPersonMove(State, Display);
    DrawRuleCheck(State);
    view::ApplyEvent(State, WindowEvent::MoveEntered);
}

void CutRecord(GameState& State, int Kept) {
    const auto Lines = static_cast<std::size_t>(Kept);
    if (State.GameList.Lines.size() > Lines) {
        State.GameList.Lines.resize(Lines);
        State.GameList.Selected = Kept - 1;
    }
    for (int HalfMove = Kept + 1; HalfMove <= State.MoveCount; ++HalfMove) {
        ClearHalfMove(State, HalfMove);
        if (HalfMove > Kept + 1) {
            State.MoveComment[HalfMove].clear();
        }
    }
    if (State.MoveCount > Kept && State.MoveCount < rules::MaxGameMoves) {
        // The comment behind the last half-move belongs to the tail, too.
        State.MoveComment[State.MoveCount + 1].clear();
    }
    State.MoveCount = std::min(State.MoveCount, Kept);
}

void StoreHalfMove(GameState& State, const rules::PlayedMove& Played) {
    const int HalfMove = State.GameMoves;
    CutRecord(State, HalfMove - 1);
    State.PlayedMoves[HalfMove] = Played;
    State.MaterialAt[HalfMove] = base::Narrow<std::int16_t>(State.Material[State.Ply]);
    State.TotalMaterialAt[HalfMove] = State.TotalMaterial[State.Ply];
    if (HalfMove < rules::MaxGameMoves) {
        State.PlayedMoves[HalfMove + 1].Record.Source = 0;
    }
    State.MoveCount = HalfMove;
}

void AddMoveRow(GameState& State, std::string_view Raw, std::string_view Display, std::string_view Source) {
    const int HalfMove = State.GameMoves;
    if (RowOfHalfMove(HalfMove) >= GameRows) {
        return;
    }
    GameMoveRowFields& Row = State.GameMoveRow[RowOfHalfMove(HalfMove)];
    const std::string Stored = std::string(Raw) + " " + std::string(Display);
    (IsFirstOfRow(HalfMove) ? Row.FirstMove : Row.SecondMove) = Stored;
    (IsFirstOfRow(HalfMove) ? Row.FirstSource : Row.SecondSource) = Source;
    Row.Level = std::to_string(10 - State.Strength);
    State.GameList.Lines.push_back(view::MoveListLine(HalfMove, Display));
    State.GameList.Selected = static_cast<std::int32_t>(State.GameList.Lines.size()) - 1;
    State.CommentBox.Text.clear();
}

std::string RawTextOf(const GameState& State, const rules::MoveRecord& Record) {
    return rules::SquareNotation(State, Record.Source, rules::Padding::Zero) +
           rules::SquareNotation(State, Record.Dest, rules::Padding::Zero);
}

std::string StoredRaw(const GameState& State, int HalfMove) {
    if (RowOfHalfMove(HalfMove) >= GameRows) {
        return {};
    }
    const std::string& Stored = StoredText(State, HalfMove);
    return Stored.substr(0, RawLength(Stored));
}

std::string StoredDisplay(const GameState& State, int HalfMove) {
    if (RowOfHalfMove(HalfMove) >= GameRows) {
        return {};
    }
    const std::string& Stored = StoredText(State, HalfMove);
    const std::size_t Start = RawLength(Stored) + 1;
    return Stored.size() > Start ? Stored.substr(Start) : std::string();
}

void PlayMoveSound(GameState& State) {
    if (State.UseSound == 1) {
        State.Outside->PlaySound("sounds/click.wav");
    }
}

} // namespace zonterbrook::control
