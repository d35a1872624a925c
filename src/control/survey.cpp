// A survey of a rule set.
#include "control/survey.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace zonterbrook::control {

namespace {

/// How long the thread that waits leaves its window alone.
constexpr std::chrono::milliseconds LongestWait{5};

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

int PlayersFor(const SurveyPlan& Plan) {
    const int Cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return std::min(Plan.Players > 0 ? Plan.Players : Cores, Plan.Games);
}

} // namespace

Survey::Survey(formats::VariantDocument InVariant, base::Chance Seed, const SurveyPlan& InPlan,
               std::function<bool()> InGoOn)
    : Variant(std::move(InVariant)), Plan(InPlan), GoOn(std::move(InGoOn)), ChanceBehind(Seed), NextSeed(Seed),
      Dealer(Variant, Stopping), Results(static_cast<std::size_t>(Plan.Games)) {
    for (int Player = PlayersFor(Plan); Player > 0; --Player) {
        Players.emplace_back([this] { PlayOn(); });
    }
}

Survey::~Survey() {
    Stopping = true;
}

base::Chance Survey::Deal(Result& Game) {
    const base::Chance Seed = NextSeed;
    try {
        NextSeed = Dealer.DrawOpening(Seed);
    } catch (...) {
        Game.Failure = std::current_exception();
    }
    Game.ChanceBehind = NextSeed;
    return Seed;
}

void Survey::PlayOn() {
    SurveyGame Table(Variant, Stopping);
    for (std::unique_lock Held(Lock); !Stopping && Dealt < Plan.Games;) {
        Result& Mine = Results[static_cast<std::size_t>(Dealt++)];
        const base::Chance Seed = Deal(Mine);
        Held.unlock();
        if (Mine.Failure == nullptr) {
            try {
                if (const auto Played = Table.Play(Seed, Plan.Depth)) {
                    Mine.Report = *Played;
                }
            } catch (...) {
                Mine.Failure = std::current_exception();
            }
        }
        Held.lock();
        Mine.Known = !Stopping;
        Changed.notify_all();
    }
}

bool Survey::PlayGame() {
    if (Counted == Plan.Games) {
        return false;
    }
    const Result& Next = Results[static_cast<std::size_t>(Counted)];
    std::unique_lock Held(Lock);
    do {
        Held.unlock();
        if (Stopping || !GoOn()) {
            Stopping = true;
            return false;
        }
        Held.lock();
    } while (!Changed.wait_for(Held, LongestWait, [&] { return Next.Known; }));
    if (Next.Failure != nullptr) {
        std::rethrow_exception(Next.Failure);
    }
    Add(Found, Next.Report);
    ChanceBehind = Next.ChanceBehind;
    ++Counted;
    return true;
}

} // namespace zonterbrook::control
