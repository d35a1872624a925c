// One game of a survey.
#include "control/survey_game.h"

#include "control/ending.h"
#include "control/record.h"
#include "control/settings.h"
#include "control/variant_start.h"
#include "engine/root_search.h"
#include "formats/settings.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/install.h"

#include <algorithm>
#include <utility>

namespace zonterbrook::control {

namespace {

constexpr int DrawnHalfMoves = 4;

view::SurveyDraw DrawOf(const GameState& State, Ending How) {
    using enum view::SurveyDraw;
    if (How != Ending::DrawnByRule) {
        return State.Record.IsFull() ? Length : Blocked;
    }
    switch (State.DrawCode) {
    case DrawRule::MoveLimit:
        return Limit;
    case DrawRule::KingAgainstKing:
        return Kings;
    case DrawRule::ThreeKingsAgainstOne:
        return ThreeKings;
    case DrawRule::TwoKingsAgainstOne:
        return TwoKings;
    case DrawRule::Repetition:
    case DrawRule::None:
        break;
    }
    return Repetition;
}

} // namespace

SurveyGame::SurveyGame(const formats::VariantDocument& InVariant, const std::atomic<bool>& InStopping)
    : Variant(InVariant), Stopping(InStopping), State(std::make_unique<GameState>(World)) {
    World.OnTurn = [this] {
        if (Stopping) {
            State->CancelRequested = rules::StopRequest::Person;
        }
    };
    engine::ResetEngine(*State, World);
    ApplySettings(*State, formats::Settings{});
    State->PlayMode = view::GameMode::PlayerPlayer;
    State->Strength = 0; // no noise
}

base::Chance SurveyGame::DrawOpening(base::Chance From) {
    Begin(From);
    while (Drawn > 0 && !EndsNow()) {
        DrawMove();
    }
    return World.Chance;
}

std::optional<view::SurveyReport> SurveyGame::Play(base::Chance From, int Depth) {
    Begin(From);
    for (;;) {
        if (const auto Ends = EndsNow()) {
            Count(*Ends);
            return Found;
        }
        if (Drawn > 0) {
            DrawMove();
        } else {
            FindMove(Depth);
        }
        if (Stopping) {
            return std::nullopt;
        }
    }
}

void SurveyGame::Begin(base::Chance From) {
    Found = {};
    World.Chance = From;
    StartVariant(*State, Variant, RulesFrom::File);
    if (State->RuleSet.RemoveMen == 1) {
        rules::RemoveMen(*State, World);
        control::StartPosition(*State);
    }
    Begins = State->Side;
    Drawn = DrawnHalfMoves + (State->RuleSet.DoMoves == 1 ? State->RuleSet.NumberMoves : 0);
    State->CancelRequested = rules::StopRequest::None;
}

std::optional<Ending> SurveyGame::EndsNow() {
    DrawRuleCheck(*State);
    return FindEnding(*State);
}

void SurveyGame::DrawMove() {
    --Drawn;
    rules::GenerateGameMoves(*State);
    const int Choices = rules::MoveCountOfPly(*State);
    MakeMove(std::min(static_cast<int>(World.Random() * Choices), Choices - 1), Choices);
}

void SurveyGame::FindMove(int Depth) {
    engine::PrepareSearch(*State);
    State->Noise = 0;
    SetMoveLimit(*State);
    rules::InitGameTree(*State);
    rules::GenerateGameMoves(*State);
    const int Choices = rules::MoveCountOfPly(*State);
    engine::RootObserver Nobody;
    engine::RootSearch(*State, {Choices == 1 ? 1 : Depth, false, 0}, World.Seconds(), Nobody);
    State->DrawPending = 0;
    if (!Stopping) {
        MakeMove(0, Choices);
    }
}

void SurveyGame::MakeMove(int Move, int Choices) {
    game::HalfMove Made = NewHalfMove(*State, Move);
    rules::PlayMove(*State, Move);
    RecordMove(*State, std::move(Made), game::MadeBy::Computer);
    ++Found.HalfMoves;
    Found.Choices += Choices;
    Found.Forced += Choices == 1 ? 1 : 0;
    Found.Captures += State->Record.Last().Played.Record.Captures.Count != 0 ? 1 : 0;
}

void SurveyGame::Count(Ending How) {
    Found.Games = 1;
    if (How == Ending::Drawn || How == Ending::DrawnByRule) {
        ++Found.DrawsBy[static_cast<int>(DrawOf(*State, How))];
    } else {
        ++((How == Ending::WhiteWins) == (Begins == rules::White) ? Found.FirstWins : Found.SecondWins);
    }
}

} // namespace zonterbrook::control
