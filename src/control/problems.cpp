// The search for problems.
//
// Plays each legal move as a person would, looks at the position behind it from the side of the one who replies, and
// takes the move back.
#include "control/problems.h"

#include "base/checked_number.h"
#include "control/book.h"
#include "control/calculation.h"
#include "control/ending.h"
#include "control/hint.h"
#include "control/input_state.h"
#include "control/kept_game.h"
#include "control/navigation.h"
#include "control/record.h"
#include "control/turn_state.h"
#include "engine/quick_root.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/moves.h"
#include "view/draw_board.h"
#include "view/move_lists.h"

#include <cstdlib>
#include <optional>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr std::int32_t BaseDepth = 5;
constexpr std::int32_t LeastSwing = 100;
constexpr std::string_view Iniscore = "   iniScore:";

/// Makes the line of a finding anew each time that a reply becomes the best.
class ProblemObserver final : public engine::QuickObserver {
public:
    ProblemObserver(GameState& InState, std::int32_t InBaseScore, std::int32_t InRootScore)
        : State(InState), BaseScore(InBaseScore), RootScore(InRootScore) {}

    void MoveAccepted(int Iteration, int Move) override {
        const game::NamedMove Best = game::NamedMoveOf(State.MoveStack[Move]);
        const std::string Name = game::MoveName(State, Best);
        const std::string Depth = "   Depth:" + view::SignedText(Iteration);
        view::SetStatus(State, Name + Depth + std::string(Iniscore) + view::SignedText(RootScore));
        view::CalculationFields Found;
        TakeMainLine(State, Found);
        Line.assign(&Found.Line[0], &Found.Line[0] + Found.LineLength);
        bool Captures = false;
        for (const game::NamedMove& Each : Line) {
            Captures = Captures || Each.Captures;
        }
        Text.clear();
        // A capture at once is no problem, and neither is a line without one.
        if (!Best.Captures && Captures) {
            Text = Name + ' ' + view::LineText(State, Found) + "   " + view::SignedText(State.BestScore) + Depth +
                   std::string(Iniscore) + view::SignedText(BaseScore);
        }
    }

    std::string Text;
    std::vector<game::NamedMove> Line;

private:
    GameState& State;
    const std::int32_t BaseScore;
    const std::int32_t RootScore;
};

// The score of the position on the board from the side that has moved last.
std::int32_t ScoreAtDepth(GameState& State) {
    const engine::SearchScope Scope(State, engine::SearchFamily::Quick);
    std::int32_t Depth = BaseDepth;
    std::int32_t Value = 0;
    rules::InitGameTree(State);
    engine::QuickScoreDepth(State, Depth, Value);
    return Value;
}

// The position behind a move: what the reply can make of it.
std::optional<Finding> AnalyseProblemPosition(GameState& State, std::int32_t BaseScore) {
    const std::int32_t RootScore = ScoreAtDepth(State);
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    if (rules::MoveCountOfPly(State) == 0) {
        return std::nullopt;
    }
    ProblemObserver Watching(State, BaseScore, RootScore);
    engine::QuickRootSearch(State, engine::ToolPolicy, State.PlyValueDepth, Watching);
    if (std::abs(State.BestScore - BaseScore) <= LeastSwing || Watching.Text.empty()) {
        return std::nullopt;
    }
    return Finding{0, 0, std::move(Watching.Line), std::move(Watching.Text)};
}

struct Ends {
    std::int32_t Source;
    std::int32_t Dest;
};

std::vector<Ends> ListedMoves(GameState& State) {
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    std::vector<Ends> Moves;
    Moves.reserve(static_cast<std::size_t>(rules::MoveCountOfPly(State)));
    for (int I = 0; I < rules::MoveCountOfPly(State); ++I) {
        Moves.push_back({State.MoveStack[I].Source, State.MoveStack[I].Dest});
    }
    return Moves;
}

// One legal move with what the other side can do about it.
std::optional<Finding> TryMove(GameState& State, const Ends& Move, std::int32_t BaseScore) {
    const std::int32_t Material = State.Material[0];
    const std::int32_t TotalMaterial = State.TotalMaterial[0];
    auto Made = EnterMove(State, Move.Source, Move.Dest);
    if (!Made) {
        return std::nullopt;
    }
    const rules::PlayedMove Played = Made->Played;
    game::Append(State.Record, std::move(*Made));
    DrawRuleCheck(State);
    std::optional<Finding> Found;
    if (!FindEnding(State)) {
        Found = AnalyseProblemPosition(State, BaseScore);
    }
    rules::StepBack(State, Played, Material, TotalMaterial);
    if (Found) {
        Found->Source = Move.Source;
        Found->Dest = Move.Dest;
    }
    return Found;
}

std::string CountText(std::size_t Count) {
    return Count == 0 ? "no Problems/Combinations found" : std::to_string(Count) + " Problems/Combinations found";
}

} // namespace

std::vector<Finding> SearchProblems(GameState& State) {
    std::vector<Finding> Found;
    if (TellExpectedReply(State)) {
        State.Calculated = {};
        State.Calculation.Text = CountText(0);
        return Found;
    }

    // 1. A tool is at work; what it touches of the game is kept.
    ClearInput(State);
    const auto Game = std::make_unique<GameFields>(static_cast<const GameFields&>(State));
    const std::int32_t BestScore = State.BestScore;
    EnterTurn(State, TurnState::Measuring);
    State.StopQuickSearch = 0;
    State.TypedText.clear();
    State.Calculated = {};
    view::WriteCalculation(State);
    view::SetStatus(State, "Searching...");
    engine::InitEngineThresholds(State);

    // 2. What the position is worth as it stands.
    const std::vector<Ends> Moves = ListedMoves(State);
    State.MaxSearchDepth = BaseDepth + State.Plys;
    const std::int32_t BaseScore = Moves.empty() ? 0 : ScoreAtDepth(State);
    State.Progress = {0, static_cast<double>(std::max<std::size_t>(Moves.size(), 1) * State.PlyValueDepth)};

    // 3. Each move.
    for (const Ends& Move : Moves) {
        if (State.StopQuickSearch == 1) {
            break;
        }
        if (auto Shot = TryMove(State, Move, BaseScore)) {
            Found.push_back(*std::move(Shot));
        }
        const TurnState Turn = State.Turn;
        static_cast<GameFields&>(State) = *Game;
        State.Turn = Turn;
        State.Progress.Value += State.PlyValueDepth;
        State.Outside().Refresh();
    }

    // 4. Everything is as it was.
    State.StopQuickSearch = 0;
    State.StopAutoPlay = 0;
    State.CancelRequested = rules::StopRequest::None;
    State.BestScore = BestScore;
    State.HintSource = 0;
    State.HintDest = 0;
    State.Progress.Value = 0;
    EnterTurn(State, TurnState::Resting);
    rules::InitGameTree(State);
    rules::GenerateGameMoves(State);
    RefreshChoices(State);
    view::DrawBoard(State, 0);
    view::SetStatus(State, "");
    State.Calculation.Text = CountText(Found.size());
    return Found;
}

void PlayFinding(GameState& State, const Finding& Found) {
    if (!TakesMoves(State)) {
        return;
    }
    State.Replaced = KeepGame(State);
    const std::int32_t Begins = State.Record.Cursor;
    CutAhead(State);
    const auto Play = [&](std::int32_t Source, std::int32_t Dest) {
        auto Made = EnterMove(State, Source, Dest);
        if (Made) {
            RecordMove(State, std::move(*Made), game::MadeBy::File);
            DrawRuleCheck(State);
        }
        return Made.has_value();
    };
    bool Goes = Play(Found.Source, Found.Dest);
    for (std::size_t I = 0; Goes && I < Found.Line.size(); ++I) {
        Goes = Play(Found.Line[I].Source, Found.Line[I].Dest);
    }
    NavigateMoves(State, State.Record.Cursor - Begins);
}

void mnuProblem_Click(GameState& State) {
    const std::vector<Finding> Found = SearchProblems(State);
    if (Found.empty()) {
        return;
    }
    if (const auto Chosen = State.Outside().ShowProblems(Found)) {
        PlayFinding(State, Found[*Chosen]);
    }
}

} // namespace zonterbrook::control
