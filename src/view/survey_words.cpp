// What many games of a rule set have shown.
#include "view/survey_words.h"

#include <array>
#include <cstdio>
#include <numeric>
#include <string_view>

namespace zonterbrook::view {

namespace {

constexpr std::string_view DrawNames[SurveyDraws] = {"repetition", "limit",   "kings", "threekings",
                                                     "twokings",   "blocked", "length"};
constexpr std::string_view DrawPhrases[SurveyDraws] = {"by repetition",
                                                       "because nothing was taken or crowned for too long",
                                                       "with a king against a king",
                                                       "with three kings against one",
                                                       "with two kings against one",
                                                       "because a side could not move",
                                                       "because they found no end"};

// From what share on something is worth a sentence.
constexpr double Most = 0.6;
constexpr double Clearly = 0.15;
constexpr double OftenForced = 0.45;
constexpr double SeldomForced = 0.1;
constexpr double Lively = 0.4;
constexpr double Quiet = 0.15;

double Share(std::int64_t Part, std::int64_t Whole) {
    return Whole == 0 ? 0 : static_cast<double>(Part) / static_cast<double>(Whole);
}

std::string Number(double Value, int Digits) {
    std::array<char, 32> Text{};
    const int Length = std::snprintf(Text.data(), Text.size(), "%.*f", Digits, Value);
    return {Text.data(), static_cast<std::size_t>(Length)};
}

std::string Percent(double Part) {
    return Number(Part * 100, 0) + " in a hundred";
}

} // namespace

std::int32_t DrawnGames(const SurveyReport& Report) {
    return std::accumulate(Report.DrawsBy.begin(), Report.DrawsBy.end(), 0);
}

std::string SurveyLine(const SurveyReport& Report) {
    std::string Line = "games " + std::to_string(Report.Games) + " first " + std::to_string(Report.FirstWins) +
                       " second " + std::to_string(Report.SecondWins) + " draws " + std::to_string(DrawnGames(Report));
    for (int Rule = 0; Rule < SurveyDraws; ++Rule) {
        Line += ' ' + std::string(DrawNames[Rule]) + '=' + std::to_string(Report.DrawsBy[Rule]);
    }
    return Line + " length " + Number(Share(Report.HalfMoves, Report.Games), 1) + " moves " +
           Number(Share(Report.Choices, Report.HalfMoves), 1) + " captures " +
           Number(Share(Report.Captures, Report.HalfMoves), 2) + " forced " +
           Number(Share(Report.Forced, Report.HalfMoves), 2);
}

std::vector<std::string> SurveyWords(const SurveyReport& Report) {
    std::vector<std::string> Words;
    if (Report.Games == 0) {
        return Words;
    }
    // 1. Who wins.
    const int Drawn = DrawnGames(Report);
    Words.push_back("Of " + std::to_string(Report.Games) + (Report.Games == 1 ? " game" : " games") +
                    " the side that begins won " + std::to_string(Report.FirstWins) + ", the other side " +
                    std::to_string(Report.SecondWins) + "; " + std::to_string(Drawn) + " were drawn.");
    const double Advantage = Share(Report.FirstWins - Report.SecondWins, Report.Games);
    if (Share(Drawn, Report.Games) >= Most) {
        Words.emplace_back("Between equal players most games end in a draw.");
    } else if (Advantage >= Clearly || Advantage <= -Clearly) {
        Words.emplace_back(Advantage > 0 ? "To begin is a clear advantage." : "To begin is a clear disadvantage.");
    } else {
        Words.emplace_back("Neither side has a clear advantage.");
    }

    // 2. How draws come about.
    int Usual = 0;
    for (int Rule = 1; Rule < SurveyDraws; ++Rule) {
        Usual = Report.DrawsBy[Rule] > Report.DrawsBy[Usual] ? Rule : Usual;
    }
    if (Drawn > 0) {
        Words.push_back((Report.DrawsBy[Usual] == Drawn ? "The draws came " : "The draws came mostly ") +
                        std::string(DrawPhrases[Usual]) + '.');
    }

    // 3. What it is like to play.
    Words.push_back("A game took " + Number(Share(Report.HalfMoves, Report.Games) / 2, 0) +
                    " moves of each side, with " + Number(Share(Report.Choices, Report.HalfMoves), 1) +
                    " to choose from each time.");
    const double Forced = Share(Report.Forced, Report.HalfMoves);
    if (Forced >= OftenForced || Forced <= SeldomForced) {
        Words.push_back((Forced >= OftenForced ? "Much plays itself: " : "There is nearly always a choice: ") +
                        Percent(Forced) + " moves were forced.");
    }
    const double Captures = Share(Report.Captures, Report.HalfMoves);
    if (Captures >= Lively || Captures <= Quiet) {
        Words.push_back((Captures >= Lively ? "It is a lively game: " : "It is a quiet game: ") + Percent(Captures) +
                        " moves were captures.");
    }
    return Words;
}

} // namespace zonterbrook::view
