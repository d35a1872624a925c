// Lists of moves and the texts made from the state.
#include "rules/square_names.h"
#include "support/view_fixture.h"
#include "view/move_lists.h"
#include "view/time_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zonterbrook::view {
namespace {

class Lists : public tests::ViewFixture {};

TEST_F(Lists, LinesAlignAtTheFullStop) {
    const auto Record = std::make_unique<game::GameRecord>();
    for (const auto& [Number, Line] : {std::pair{1, "   1. c3-d4"},
                                       {2, "      c3-d4"},
                                       {17, "   9. c3-d4"},
                                       {19, "  10. c3-d4"},
                                       {199, " 100. c3-d4"}}) {
        Record->HalfMoves[Number].Played.Record.Source = rules::AlgebraicCell("C3");
        Record->HalfMoves[Number].Played.Record.Dest = rules::AlgebraicCell("D4");
        EXPECT_EQ(Line, GameLine(State, *Record, Number));
    }
}

TEST_F(Lists, TheFirstMovesOfTheGameAreNine) {
    RefreshMoveChoices(State);
    EXPECT_EQ(9U, State.ChoiceList.Lines.size());
    EXPECT_NE(std::ranges::find(State.ChoiceList.Lines, "d4-e5"), State.ChoiceList.Lines.end())
        << "names in small letters";
    State.NotationMode = rules::Notation::Numeric;
    RefreshMoveChoices(State);
    EXPECT_NE(std::ranges::find(State.ChoiceList.Lines, "32-28"), State.ChoiceList.Lines.end());
    EXPECT_EQ(9U, State.ChoiceList.Lines.size()) << "lines of the list before are left";
}

TEST_F(Lists, RootMovesShowSquaresAndScore) {
    State.RootMoves.Fill({engine::UnsetScore, 0, engine::UnsetScore});
    State.RootMoves[0] = {rules::AlgebraicCell("C3"), rules::AlgebraicCell("D4"), -12};
    State.RootMoves[1] = {rules::FromHand, rules::AlgebraicCell("E1"), 31990};
    ShowRootMoves(State);
    EXPECT_EQ((std::vector<std::string>{"c3-d4     -12", "e1      31990"}), State.RootList.Lines);
}

TEST_F(Lists, StrengthIsShownWithItsLimit) {
    State.Strength = 1;
    EXPECT_EQ("Strength:9   Time:2 sec", StrengthText(State));
    State.FixedDepth = 1;
    State.SearchDepth = 7;
    EXPECT_EQ("Strength:9   Depth:7 ply", StrengthText(State));
}

TEST_F(Lists, AChangedRuleMarksTheName) {
    State.VariantName = "Russian Checkers 10X10";
    ShowVariantTitle(State);
    EXPECT_EQ("Russian Checkers", State.VariantLine.Text);
    State.RuleSet.LongKings = 0;
    ShowVariantTitle(State);
    EXPECT_EQ("Russian Checkers (M)", State.VariantLine.Text);
    EXPECT_TRUE(State.Caption.ends_with("Russian Checkers (M)"));
}

TEST(Durations, AsText) {
    constexpr std::pair<double, const char*> Rows[] = {
        {0, "00:00.00"}, {1.4, "00:00.01"}, {59.6, "00:01.00"}, {3599.5, "01:00.00"}, {360060, "100:01.00"}};
    for (const auto& [Seconds, Text] : Rows) {
        EXPECT_EQ(Text, TimeString(Seconds));
    }
}

} // namespace
} // namespace zonterbrook::view
