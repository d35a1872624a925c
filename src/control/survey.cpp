// A survey of a rule set.
#include "control/survey.h"

#include <memory>
#include <utility>

namespace zonterbrook::control {

namespace {

void Add(view::SurveyReport& Sum, const view::SurveyReport& Game) {
    Sum.Games += Game.Games;
    Sum.FirstWins += Game.FirstWins;
    Sum.SecondWins += Game.SecondWins;
    for (int Draw = 0; Draw < view::SurveyDraws; ++Draw) {
        Sum.DrawsBy[Draw] += Game.DrawsBy[Draw];
    }
    Sum.HalfMoves += Game.HalfMoves;
    Sum.Choices += Game.Choices;
    Sum.Captures += Game.Captures;
    Sum.Forced += Game.Forced;
}

} // namespace

Survey::Survey(formats::VariantDocument InVariant, base::Chance Seed, const SurveyPlan& Plan,
               std::function<bool()> GoOn)
    : Variant(std::move(InVariant)), ChanceBehind(Seed), NextSeed(Seed), Dealer(Variant, Stopping),
      Players(
          Plan.Games, Plan.Players,
          [this](int) {
              const base::Chance Before = NextSeed;
              NextSeed = Dealer.DrawOpening(Before);
              return Opening{Before, NextSeed};
          },
          [this, Depth = Plan.Depth] {
              return [Table = std::make_shared<SurveyGame>(Variant, Stopping), Depth](const Opening& Begins) {
                  return Played{Table->Play(Begins.Before, Depth), Begins.Behind};
              };
          },
          std::move(GoOn), Stopping) {}

bool Survey::PlayGame() {
    const auto Game = Players.Next();
    if (!Game || !Game->Report) {
        return false;
    }
    Add(Found, *Game->Report);
    ChanceBehind = Game->ChanceBehind;
    return true;
}

} // namespace zonterbrook::control
