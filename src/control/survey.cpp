// A survey of a rule set.
#include "control/survey.h"

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

Survey::Survey(formats::VariantDocument InVariant, base::Chance Seed, std::function<bool()> InGoOn)
    : Variant(std::move(InVariant)), GoOn(std::move(InGoOn)), State(std::make_unique<GameState>(World)) {
    World.Chance = Seed;
    World.OnTurn = [this] {
        if (!GoOn()) {
            Stopped = true;
            State->CancelRequested = rules::StopRequest::Person;
        }
    };
    engine::ResetEngine(*State, World);
    ApplySettings(*State, formats::Settings{});
    State->PlayMode = view::GameMode::PlayerPlayer;
    State->Strength = 0; // no noise
}

void Survey::Begin() {
    Game = {};
    StartVariant(*State, Variant, RulesFrom::File);
    if (State->RuleSet.RemoveMen == 1) {
        rules::RemoveMen(*State, World);
        control::StartPosition(*State);
    }
    Begins = State->Side;
    Drawn = DrawnHalfMoves + (State->RuleSet.DoMoves == 1 ? State->RuleSet.NumberMoves : 0);
    State->CancelRequested = rules::StopRequest::None;
}

bool Survey::MakeMove(int Depth) {
    rules::GenerateGameMoves(*State);
    const int Choices = rules::MoveCountOfPly(*State);
    int Move = 0;
    if (Drawn > 0) {
        --Drawn;
        Move = std::min(static_cast<int>(World.Random() * Choices), Choices - 1);
    } else {
        engine::PrepareSearch(*State);
        State->Noise = 0;
        SetMoveLimit(*State);
        rules::InitGameTree(*State);
        rules::GenerateGameMoves(*State);
        engine::RootObserver Nobody;
        engine::RootSearch(*State, {Choices == 1 ? 1 : Depth, false, 0}, World.Seconds(), Nobody);
        State->DrawPending = 0;
    }
    if (Stopped) {
        return false;
    }
    game::HalfMove Made = NewHalfMove(*State, Move);
    rules::PlayMove(*State, Move);
    RecordMove(*State, std::move(Made), game::MadeBy::Computer);
    ++Game.HalfMoves;
    Game.Choices += Choices;
    Game.Forced += Choices == 1 ? 1 : 0;
    Game.Captures += State->Record.Last().Played.Record.Captures.Count != 0 ? 1 : 0;
    return true;
}

void Survey::Count(Ending How) {
    ++Found.Games;
    Found.HalfMoves += Game.HalfMoves;
    Found.Choices += Game.Choices;
    Found.Captures += Game.Captures;
    Found.Forced += Game.Forced;
    if (How == Ending::Drawn || How == Ending::DrawnByRule) {
        ++Found.DrawsBy[static_cast<int>(DrawOf(*State, How))];
    } else {
        ++((How == Ending::WhiteWins) == (Begins == rules::White) ? Found.FirstWins : Found.SecondWins);
    }
}

bool Survey::PlayGame(int Depth) {
    Begin();
    for (;;) {
        DrawRuleCheck(*State);
        if (const auto Ends = FindEnding(*State)) {
            Count(*Ends);
            return true;
        }
        if (!GoOn() || !MakeMove(Depth)) {
            return false;
        }
    }
}

} // namespace zonterbrook::control
