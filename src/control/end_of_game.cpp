// The end of a game.
//
// Reads the position, the record and the options of the draw rules; writes `DrawCode`, the counters of the rules and,
// when a game is over, its result and the window. The won position is the evaluator's finding, the rating rating.h's
// business.
#include "control/end_of_game.h"

#include "control/rating.h"
#include "engine/evaluate.h"
#include "rules/generate.h"
#include "rules/moves.h"
#include "view/commands.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zonterbrook::control {

namespace {

enum DrawRule : std::int32_t {
    NoDraw,
    Repetition,
    MoveLimit,
    KingAgainstKing,
    ThreeKingsAgainstOne,
    TwoKingsAgainstOne
};

constexpr int RepetitionsAllowed = 2;
constexpr double PauseSeconds = 0.5;
constexpr std::string_view FirstWins = "1-0";
constexpr std::string_view SecondWins = "0-1";
constexpr std::string_view Shared = "1/2-1/2";

// The limits of half-moves without capture or promotion that the options dialog offers.
int MoveLimitOf(std::uint8_t Choice) {
    static constexpr int Limits[] = {64, 100, 32, 40, 80};
    return Limits[Choice < std::size(Limits) ? Choice : 1];
}

bool IsIrreversible(const rules::MoveRecord& Move) {
    return Move.Captures.Count != 0 || Move.Kind != 0;
}

// Half-moves since the last capture or promotion, that one counted, too; all of them and one more if there was none.
int QuietHalfMoves(const GameState& State) {
    int HalfMove = State.GameMoves;
    while (HalfMove > 0 && !IsIrreversible(State.PlayedMoves[HalfMove].Record)) {
        --HalfMove;
    }
    return State.GameMoves - (HalfMove - 1);
}

bool StandsThirdTime(GameState& State) {
    const engine::PositionKey Key = engine::KeyOfPosition(State);
    engine::StoreKey(State, State.GameMoves - 1, Key);
    int Count = 0;
    for (int I = 0; I < State.GameMoves; ++I) {
        Count += State.PositionHistory[I] == Key ? 1 : 0;
    }
    return Count > RepetitionsAllowed;
}

// Weights of the two sides in men, a king counting two, when only kings are left; {0, 0} if a man is.
struct KingWeights {
    int Stronger = 0;
    int Weaker = 0;

    bool Are(int A, int B) const { return Stronger == A && Weaker == B; }
};

KingWeights WeighKings(const GameState& State) {
    if (State.Pieces[0].Any() || State.Pieces[1].Any()) {
        return {};
    }
    const int White = 2 * State.Pieces[2].Count();
    const int Black = 2 * State.Pieces[3].Count();
    return {std::max(White, Black), std::min(White, Black)};
}

// Counts the half-moves of an ending that is drawn after so many full moves.
void CountEnding(GameState& State, bool Stands, bool InForce, int Moves, std::int32_t& Start, DrawRule Code) {
    if (!Stands) {
        Start = 0;
    } else if (InForce) {
        // The half-move from which the ending stands is counted itself. Wanted.
        if (Start > 0 && State.GameMoves - Start + 2 > 2 * Moves) {
            State.DrawCode = Code;
        }
        if (Start == 0) {
            Start = State.GameMoves;
        }
    }
}

bool CaptureWaits(const GameState& State) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        if (State.MoveStack[I].Captures.Count != 0) {
            return true;
        }
    }
    return false;
}

void EndInDraw(GameState& State) {
    SetResultText(State, DrawnResult);
    UpdateRating(State, 0.5);
    CloseGame(State, DrawText);
}

void EndDecided(GameState& State) {
    SetResultText(State, DecisiveResult);
    const bool BlackWon = (State.Side == rules::White) == (State.RuleSet.AntiMode == 0);
    const std::string_view Text = BlackWon ? "Black wins!" : "White wins!";
    UpdateRating(State, PlayerWon(State, BlackWon ? "black" : "white"));
    CloseGame(State, Text);
    Congratulate(State, Text);
}

std::string_view DrawRuleText(std::int32_t Code) {
    switch (Code) {
    case Repetition:
        return "It's a draw! Triple Repetition";
    case MoveLimit:
        return "It's a draw! 50 Moves Rule";
    case KingAgainstKing:
        return "It's a draw! King versus King";
    case ThreeKingsAgainstOne:
        return "It's a draw! 3 Kings versus 1 King";
    default:
        return "It's a draw! 2 Kings versus 1 King";
    }
}

// The result when one side has lost all its pieces; empty if both have some.
std::string_view ResultByPieces(const GameState& State) {
    const bool BlackIsFirst = State.RuleSet.BlackStarts == 1;
    std::string_view Result;
    if (rules::PiecesOf(State, rules::White).None()) {
        Result = BlackIsFirst ? FirstWins : SecondWins;
    }
    if (rules::PiecesOf(State, rules::Black).None()) {
        Result = BlackIsFirst ? SecondWins : FirstWins;
    }
    return Result;
}

// The result when the side to move is blocked; empty if it can move.
std::string_view ResultByMoves(GameState& State) {
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) != 0) {
        return {};
    }
    const bool FirstToMove = (State.Side == rules::Black) == (State.RuleSet.BlackStarts == 1);
    return FirstToMove ? SecondWins : FirstWins;
}

std::string_view Reversed(std::string_view Result) {
    // An undecided position of an anti game counts as won by the first side, too. Wanted.
    return Result == FirstWins ? SecondWins : FirstWins;
}

} // namespace

void DrawRuleCheck(GameState& State) {
    // Later rules overwrite earlier ones.
    State.DrawCode = NoDraw;

    // 1. Repetition. Before the first move there is nothing to store a key for.
    if (State.GameMoves > 0 && StandsThirdTime(State)) {
        State.DrawCode = Repetition;
    }

    // 2. Too long without a capture or a promotion.
    if (QuietHalfMoves(State) > MoveLimitOf(State.MoveLimitChoice)) {
        State.DrawCode = MoveLimit;
    }

    // 3. Few kings left.
    const KingWeights Kings = WeighKings(State);
    const rules::RuleSetFields& Rules = State.RuleSet;
    if (Kings.Are(2, 2)) {
        State.DrawCode = KingAgainstKing;
    }
    CountEnding(State, Kings.Are(6, 2), Rules.ThreeKings == 1, Rules.NumberKings, State.ThreeKingsStart,
                ThreeKingsAgainstOne);
    CountEnding(State, Kings.Are(4, 2), Rules.TwoKings == 1, Rules.NumberKings2, State.TwoKingsStart,
                TwoKingsAgainstOne);
}

bool DrawRuleEndsGame(const GameState& State) {
    switch (State.DrawCode) {
    case NoDraw:
        return false;
    case Repetition:
    case MoveLimit:
        return State.ChessDrawRules == 1;
    case KingAgainstKing:
        // A capture that can still be made is made first.
        return State.KingVersusKing == 1 && !CaptureWaits(State);
    case ThreeKingsAgainstOne:
        return State.RuleSet.ThreeKings == 1;
    default:
        return State.RuleSet.TwoKings == 1;
    }
}

GameOutcome FindOutcome(GameState& State) {
    // 1. The evaluator: is the position won for the side that would have won it by the last move?
    rules::InitGameTree(State);
    const std::int32_t Winner = State.RuleSet.AntiMode == 1 ? State.Side : -State.Side;
    std::int32_t Value = 0;
    {
        const rules::GamePositionScope Scope(State);
        Value = engine::EvaluatePosition(State, engine::WindowLow, engine::WindowHigh, Winner);
    }
    rules::GenerateGameMoves(State);

    // 2. A draw goes before a decision.
    if (std::exchange(State.NoLegalDrawHit, 0) != 0) {
        return GameOutcome::Drawn;
    }
    if (DrawRuleEndsGame(State)) {
        return GameOutcome::DrawnByRule;
    }
    if (rules::MoveCountOfPly(State) == 0 || Value == engine::WindowHigh) {
        return GameOutcome::Decided;
    }
    return RecordIsFull(State) ? GameOutcome::Drawn : GameOutcome::GoesOn;
}

bool RecordIsFull(const GameState& State) {
    return State.GameMoves >= rules::MaxGameMoves;
}

void GameEndCheck(GameState& State) {
    // 1. Does it go on?
    const GameOutcome Outcome = FindOutcome(State);
    if (Outcome == GameOutcome::GoesOn) {
        return;
    }

    // 2. It doesn't: nobody plays on, and the last move is seen.
    State.GameEnded = 1;
    for (view::ListFields* List : {&State.GameList, &State.ChoiceList, &State.RootList}) {
        List->Visible = true;
    }
    view::DrawBoard(State, 0);
    PauseOnLastMove(State);

    // 3. What it ended in.
    switch (Outcome) {
    case GameOutcome::GoesOn:
        break;
    case GameOutcome::Drawn:
        EndInDraw(State);
        Congratulate(State, DrawText);
        break;
    case GameOutcome::DrawnByRule:
        EndInDraw(State);
        AnnounceDrawRule(State);
        break;
    case GameOutcome::Decided:
        EndDecided(State);
        break;
    }
}

bool GameWouldEnd(GameState& State) {
    return FindOutcome(State) != GameOutcome::GoesOn;
}

void SetResultText(GameState& State, int Kind) {
    if (Kind == DrawnResult) {
        State.ResultText = Shared;
        return;
    }
    const bool Anti = State.RuleSet.AntiMode == 1;
    std::string_view Result = ResultByPieces(State);
    if (Result.empty()) {
        Result = ResultByMoves(State);
        Result = Anti ? Reversed(Result) : Result;
    } else if (Anti) {
        Result = Reversed(Result);
    }
    State.ResultText = Result;
}

void AnnounceDrawRule(GameState& State) {
    const std::string_view Text = DrawRuleText(State.DrawCode);
    view::SetStatus(State, Text);
    Congratulate(State, Text);
}

void SetMoveLimit(GameState& State) {
    State.QuietMoves = QuietHalfMoves(State);
    State.QuietLimit = MoveLimitOf(State.MoveLimitChoice);
}

void PauseOnLastMove(GameState& State) {
    // Events run while the world waits, and whoever called has not finished with the game.
    const std::int32_t Thinking = std::exchange(State.Thinking, 1);
    const auto Commands = State.Commands;
    const bool Typing = State.MoveBox.Enabled;
    const bool Toolbar = State.ToolbarEnabled;
    view::FreezeMenus(State);
    State.Outside->Wait(PauseSeconds);
    State.Commands = Commands;
    State.MoveBox.Enabled = Typing;
    State.ToolbarEnabled = Toolbar;
    State.Thinking = Thinking;
}

} // namespace zonterbrook::control
