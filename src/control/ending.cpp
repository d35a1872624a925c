// The end of a game.
//
// Reads the position, the record and the options of the draw rules; writes `DrawCode` and the counts of the rules and,
// when a game is over, its result and what the window says of it. The won position is the evaluator's finding, the
// rating rating.h's business.
#include "control/ending.h"

#include "control/rating.h"
#include "control/turn_state.h"
#include "engine/evaluate.h"
#include "rules/generate.h"
#include "rules/moves.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace zonterbrook::control {

namespace {

using game::Result;

constexpr int RepetitionsAllowed = 2;
constexpr std::string_view DrawText = "It's a draw!";
constexpr std::string_view ComputerWinsText = "Computer wins!";

// --- The draw rules ------------------------------------------------------------------------------------------------

// The limits of half-moves without capture or promotion that the options offer.
int MoveLimitOf(std::uint8_t Choice) {
    static constexpr int Limits[] = {64, 100, 32, 40, 80};
    return Limits[Choice < std::size(Limits) ? Choice : 1];
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

KingWeights WeighKings(const rules::RulesState& State) {
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
        // The half-move from which the ending stands is counted itself. Wanted: docs/kept_behaviour.md, "three kings".
        if (Start > 0 && State.GameMoves - Start + 2 > 2 * Moves) {
            State.DrawCode = Code;
        }
        if (Start == 0) {
            Start = State.GameMoves;
        }
    }
}

bool CaptureWaits(const rules::RulesState& State) {
    for (int I = State.StackLimit[State.Ply]; I < State.StackLimit[State.Ply + 1]; ++I) {
        if (State.MoveStack[I].Captures.Count != 0) {
            return true;
        }
    }
    return false;
}

std::string_view DrawRuleText(DrawRule Code) {
    switch (Code) {
    case DrawRule::Repetition:
        return "It's a draw! Triple Repetition";
    case DrawRule::MoveLimit:
        return "It's a draw! 50 Moves Rule";
    case DrawRule::KingAgainstKing:
        return "It's a draw! King versus King";
    case DrawRule::ThreeKingsAgainstOne:
        return "It's a draw! 3 Kings versus 1 King";
    case DrawRule::None:
    case DrawRule::TwoKingsAgainstOne:
        break;
    }
    return "It's a draw! 2 Kings versus 1 King";
}

// --- The result ----------------------------------------------------------------------------------------------------

// The result when one side has lost all its pieces; none if both have some.
Result ResultByPieces(const rules::RulesState& State) {
    const bool BlackIsFirst = State.RuleSet.BlackStarts == 1;
    Result Found = Result::None;
    if (rules::PiecesOf(State, rules::White).None()) {
        Found = BlackIsFirst ? Result::FirstWins : Result::SecondWins;
    }
    if (rules::PiecesOf(State, rules::Black).None()) {
        Found = BlackIsFirst ? Result::SecondWins : Result::FirstWins;
    }
    return Found;
}

// The result when the side to move is blocked; none if it can move.
Result ResultByMoves(rules::RulesState& State) {
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) != 0) {
        return Result::None;
    }
    const bool FirstToMove = (State.Side == rules::Black) == (State.RuleSet.BlackStarts == 1);
    return FirstToMove ? Result::SecondWins : Result::FirstWins;
}

Result DecisiveResult(rules::RulesState& State) {
    Result Found = ResultByPieces(State);
    if (Found == Result::None) {
        Found = ResultByMoves(State);
    }
    if (State.RuleSet.AntiMode != 1) {
        return Found;
    }
    // An undecided position of an anti game counts as won by the first side, too. Wanted: docs/kept_behaviour.md, "no
    // result text".
    return Found == Result::FirstWins ? Result::SecondWins : Result::FirstWins;
}

// --- What is told of an end ----------------------------------------------------------------------------------------

bool IsDraw(Ending How) {
    return How == Ending::Drawn || How == Ending::DrawnByRule || How == Ending::DrawAgreed ||
           How == Ending::OfferAccepted;
}

// Ends that a word brought about, and no move: the position itself goes on.
bool IsAgreed(Ending How) {
    return How == Ending::DrawAgreed || How == Ending::OfferAccepted || How == Ending::Resigned;
}

std::string StatusOf(const GameState& State, Ending How) {
    switch (How) {
    case Ending::DrawnByRule:
        return std::string(DrawRuleText(State.DrawCode));
    case Ending::WhiteWins:
        return "White wins!";
    case Ending::BlackWins:
        return "Black wins!";
    case Ending::PersonWins:
        return State.PlayerName + " wins!";
    case Ending::ComputerWins:
    case Ending::Resigned:
        return std::string(ComputerWinsText);
    case Ending::Drawn:
    case Ending::DrawAgreed:
    case Ending::OfferAccepted:
        break;
    }
    return std::string(DrawText);
}

// The person's score, as the rating counts it.
double ScoreOf(const GameState& State, Ending How) {
    const auto PersonPlays = [&](const std::string& Name) { return Name == State.PlayerName ? 1.0 : 0.0; };
    switch (How) {
    case Ending::WhiteWins:
        return PersonPlays(State.WhitePlayerName);
    case Ending::BlackWins:
        return PersonPlays(State.BlackPlayerName);
    case Ending::PersonWins:
        return 1;
    case Ending::ComputerWins:
    case Ending::Resigned:
        return 0;
    case Ending::Drawn:
    case Ending::DrawnByRule:
    case Ending::DrawAgreed:
    case Ending::OfferAccepted:
        break;
    }
    return 0.5;
}

void ShowLastMove(GameState& State) {
    EnterTurn(State, TurnState::Ending);
    view::DrawBoard(State, 0);
    State.Outside().Wait(PauseSeconds);
}

} // namespace

void EndGame(GameState& State, Ending How, Announcement Voice) {
    // 1. The result, and the rating that it brings.
    State.Result = IsDraw(How) ? Result::Drawn : DecisiveResult(State);
    const bool Aloud = Voice == Announcement::Aloud;
    if (Aloud) {
        UpdateRating(State, ScoreOf(State, How));
    }

    // 2. What the status bar says now, and when the end of the record is reached again.
    State.EndText = StatusOf(State, How);
    if (!IsAgreed(How) && (Aloud || State.StatusText.empty())) {
        State.StatusText = State.EndText;
    }
    if (Aloud) {
        view::SetStatus(State, State.EndText);
    }

    // 3. The last move is seen before a message covers it.
    if (Aloud && !IsAgreed(How)) {
        ShowLastMove(State);
    }
    EnterTurn(State, TurnState::Over);
    if (Aloud) {
        const bool Answers = How == Ending::OfferAccepted || How == Ending::Resigned;
        State.Outside().Message("Congratulations", (Answers ? "OK... " : "") + State.EndText + State.RatingSummary,
                                Icon::Congratulation);
    }
}

void ReopenGame(GameState& State) {
    EnterTurn(State, TurnState::Resting);
    State.Result = Result::None;
    State.EndText.clear();
    State.DrawCode = DrawRule::None;
    // A count that began behind the cursor has not begun yet.
    State.ThreeKingsStart = State.ThreeKingsStart > State.GameMoves ? 0 : State.ThreeKingsStart;
    State.TwoKingsStart = State.TwoKingsStart > State.GameMoves ? 0 : State.TwoKingsStart;
}

void DrawRuleCheck(GameState& State) {
    // Later rules overwrite earlier ones.
    State.DrawCode = DrawRule::None;

    // 1. Repetition. Before the first move there is nothing to store a key for.
    if (State.GameMoves > 0 && StandsThirdTime(State)) {
        State.DrawCode = DrawRule::Repetition;
    }

    // 2. Too long without a capture or a promotion.
    if (game::QuietHalfMoves(State.Record) > MoveLimitOf(State.MoveLimitChoice)) {
        State.DrawCode = DrawRule::MoveLimit;
    }

    // 3. Few kings left.
    const KingWeights Kings = WeighKings(State);
    const rules::RuleSetFields& Rules = State.RuleSet;
    if (Kings.Are(2, 2)) {
        State.DrawCode = DrawRule::KingAgainstKing;
    }
    CountEnding(State, Kings.Are(6, 2), Rules.ThreeKings == 1, Rules.NumberKings, State.ThreeKingsStart,
                DrawRule::ThreeKingsAgainstOne);
    CountEnding(State, Kings.Are(4, 2), Rules.TwoKings == 1, Rules.NumberKings2, State.TwoKingsStart,
                DrawRule::TwoKingsAgainstOne);
}

bool DrawRuleEndsGame(const GameState& State) {
    switch (State.DrawCode) {
    case DrawRule::None:
        return false;
    case DrawRule::Repetition:
    case DrawRule::MoveLimit:
        return State.ChessDrawRules == 1;
    case DrawRule::KingAgainstKing:
        // A capture that can still be made is made first.
        return State.KingVersusKing == 1 && !CaptureWaits(State);
    case DrawRule::ThreeKingsAgainstOne:
        return State.RuleSet.ThreeKings == 1;
    case DrawRule::TwoKingsAgainstOne:
        return State.RuleSet.TwoKings == 1;
    }
    return false;
}

std::optional<Ending> FindEnding(GameState& State) {
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
        return Ending::Drawn;
    }
    if (DrawRuleEndsGame(State)) {
        return Ending::DrawnByRule;
    }
    if (rules::MoveCountOfPly(State) == 0 || Value == engine::WindowHigh) {
        const bool BlackHasWon = (State.Side == rules::White) == (State.RuleSet.AntiMode == 0);
        return BlackHasWon ? Ending::BlackWins : Ending::WhiteWins;
    }
    return State.Record.IsFull() ? std::optional(Ending::Drawn) : std::nullopt;
}

std::string DrawCounter(const GameState& State) {
    const auto Told = [](std::string_view What, int Moves, int Limit) {
        return std::string(What) + ": " + std::to_string(Moves) + " of " + std::to_string(Limit);
    };
    // Full moves; an ending counts from the half-move by which it arose.
    const auto Since = [&](std::int32_t Start) { return (State.GameMoves - Start + 2) / 2; };
    if (State.ThreeKingsStart > 0 && State.RuleSet.ThreeKings == 1) {
        return Told("3 kings against 1", Since(State.ThreeKingsStart), State.RuleSet.NumberKings);
    }
    if (State.TwoKingsStart > 0 && State.RuleSet.TwoKings == 1) {
        return Told("2 kings against 1", Since(State.TwoKingsStart), State.RuleSet.NumberKings2);
    }
    // Every opening has some quiet moves: the first ones are not worth a word.
    constexpr int WorthTelling = 10;
    const int Quiet = game::QuietHalfMoves(State.Record) / 2;
    if (State.ChessDrawRules == 1 && Quiet >= WorthTelling) {
        return Told("Quiet moves", Quiet, MoveLimitOf(State.MoveLimitChoice) / 2);
    }
    return {};
}

void SetMoveLimit(GameState& State) {
    State.QuietMoves = game::QuietHalfMoves(State.Record);
    State.QuietLimit = MoveLimitOf(State.MoveLimitChoice);
}

} // namespace zonterbrook::control
