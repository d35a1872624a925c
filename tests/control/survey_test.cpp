// Surveys: the same seed gives the same games, figures add up, a stop is obeyed.
#include "control/survey.h"
#include "rules/position.h"
#include "support/position_text.h"

#include <gtest/gtest.h>

namespace zonterbrook::tests {
namespace {

using control::Survey;

formats::VariantDocument RulesOf(std::string_view Name) {
    return *formats::ReadVariantFile(formats::VariantFolder(ZONTERBROOK_DATA_DIR, false), Name, {}).Document;
}

view::SurveyReport Play(const formats::VariantDocument& Variant, int Games, std::uint64_t Seed, int Players = 1) {
    Survey Playing(Variant, base::Chance{Seed}, {Games, 1, Players}, [] { return true; });
    while (Playing.PlayGame()) {
    }
    return Playing.Report();
}

TEST(Survey, OneSeedOneReport) {
    for (const char* Name : {"International Checkers", "Poddavki 10x10", "Three-Move Ballot 10x10", "Missing Men"}) {
        const view::SurveyReport Found = Play(RulesOf(Name), 4, 7);
        EXPECT_EQ(4, Found.FirstWins + Found.SecondWins + view::DrawnGames(Found)) << Name;
        EXPECT_EQ(4, Found.Games);
        EXPECT_GE(Found.Choices, Found.HalfMoves);
        EXPECT_LE(Found.Forced, Found.HalfMoves);
        EXPECT_TRUE(Found == Play(RulesOf(Name), 4, 7, 3)) << Name << " hangs on who plays";
        EXPECT_FALSE(Found == Play(RulesOf(Name), 4, 8)) << Name << " draws nothing";
    }
}

TEST(Survey, KnowsWhoWinsAndWhyNobodyDoes) {
    struct Case {
        const char* Rules;
        const char* Setup; ///< squares with pieces
        const char* Line;
    };
    const Case Rows[] = {
        // White takes the only piece at once; the same where that loses; where Black begins, who is taken.
        {"", "W:Wc3:Bd4", "first 1 second 0"},
        {"AntiMode=1", "W:Wc3:Bd4", "first 0 second 1"},
        {"BlackStarts=1", "W:Wc3:Bd4", "first 1 second 0"},
        {"NoLegalDraw=1", "W:Wa9:Bb0,c1", "draws 1 repetition=0 limit=0 kings=0 threekings=0 twokings=0 blocked=1"},
    };
    for (const Case& Row : Rows) {
        formats::VariantDocument Variant;
        for (const std::string& Rule : Split(Row.Rules, ',')) {
            rules::WriteRule(Variant.Rules, Rule.substr(0, Rule.find('=')), Rule.substr(Rule.find('=') + 1));
        }
        Variant.Setup = rules::SetupText(Game("", Row.Setup)->Board);
        const std::string Line = view::SurveyLine(Play(Variant, 1, 3));
        EXPECT_NE(std::string::npos, Line.find(Row.Line)) << Row.Rules << ": " << Line;
    }
}

TEST(Survey, StopsInMidGame) {
    int Left = 3;
    Survey Playing(RulesOf("International Checkers"), base::Chance{1}, {2, 30}, [&] { return --Left > 0; });
    EXPECT_FALSE(Playing.PlayGame());
    EXPECT_FALSE(Playing.PlayGame()) << "goes on";
    EXPECT_EQ(0, Playing.Report().Games);
    EXPECT_TRUE(view::SurveyWords(Playing.Report()).empty());
}

} // namespace
} // namespace zonterbrook::tests
