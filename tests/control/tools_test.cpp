// The engine as adviser: hint, analysis, ply values, problems. None of them changes the game.
#include "control/analysis.h"
#include "control/game_document.h"
#include "control/hint.h"
#include "control/ply_values.h"
#include "control/problems.h"
#include "formats/game_file.h"
#include "rules/position.h"
#include "support/game_fixture.h"

namespace zonterbrook::tests {
namespace {

constexpr const char* Advice = "Think ahead and try not to leave your opponent with multiple jumps";

class Tools : public PersonsFixture {
protected:
    void SetUp() override {
        PersonsFixture::SetUp();
        State.Strength = 0;
        State.PlyValueDepth = 3;
    }
    /// Everything of the game, and where it stands.
    std::string Whole() const {
        return formats::WriteGameFile(control::DocumentOf(State)) + rules::SetupText(State.Board) +
               std::to_string(State.Side) + std::to_string(State.Record.Cursor) + std::to_string(State.Material[0]);
    }
    void ExpectHint(std::string_view Move) { World.ExpectMessage("Hint", "Try " + std::string(Move)); }
};

TEST_F(Tools, AHintIsTheExpectedReplyOnceThenASearch) {
    Play("d4e5");
    State.SearchDepth = 3;
    Run(Compute);
    const std::string Before = Whole();
    ASSERT_NE(0, State.HintSource);
    const int Source = State.HintSource;
    const int Dest = State.HintDest;
    ExpectHint(rules::AlgebraicName(Source) + "-" + rules::AlgebraicName(Dest));
    const std::uint64_t Nodes = State.NodeCount;
    Run(Hint);
    EXPECT_EQ(Nodes, State.NodeCount) << "it costs nothing";
    EXPECT_EQ(Advice, Status());
    EXPECT_TRUE(State.Cells[view::CellOfSquare(State, Source)].Hinted);
    EXPECT_TRUE(State.Cells[view::CellOfSquare(State, Dest)].Hinted);
    World.TakesAnything = true;
    Run(Hint);
    EXPECT_TRUE(World.LastSaid.starts_with("Try ")) << World.LastSaid;
    EXPECT_LT(Nodes, State.NodeCount);
    EXPECT_EQ(5, State.Noise);
    EXPECT_EQ(Before, Whole());
    EXPECT_EQ("", control::CheckRest(State));
    Press("a1");
    EXPECT_EQ(0, std::ranges::count_if(State.Cells, &view::BoardCell::Hinted)) << "until the next click";
}

TEST_F(Tools, AHintWithoutAMoveIsSaidOnce) {
    Lay("w a9, b b0, b c1", rules::White);
    World.ExpectMessage("Congratulations", "You have already won!");
    control::ShowHint(State, 0);
    EXPECT_EQ(control::TurnState::Resting, State.Turn);
}

TEST_F(Tools, AnAnalysisPlaysNothing) {
    Play("d4e5 c7d6 e5c7");
    Run(Back);
    Run(Back);
    State.SearchDepth = 4;
    State.PatternTermEnabled = 0;
    const std::string Before = Whole();
    const std::int32_t Margin = State.LazyMargin;
    Run(Analyze);
    EXPECT_EQ(Before, Whole());
    EXPECT_EQ(3, State.Record.Count) << "what lies ahead stays";
    EXPECT_EQ(0, State.PatternTermEnabled);
    EXPECT_EQ(Margin, State.LazyMargin);
    EXPECT_EQ(0, State.HintSource);
    EXPECT_FALSE(State.RootList.Lines.empty());
    EXPECT_FALSE(State.ChoiceList.Lines.empty());
    EXPECT_TRUE(State.Calculation.Text.starts_with("Depth: 4   Best: "));
    ExpectShown();

    Lay("w c3, b d4");
    Run(Analyze);
    EXPECT_EQ("Computer is winning in 0 move! ", Status());
    EXPECT_EQ(control::TurnState::Resting, State.Turn);
}

TEST_F(Tools, PlyValuesMeasureTheRestOfTheGame) {
    Play("d4e5 c7d6 e5c7 b8d6 h4g5");
    Run(First);
    Run(Forward);
    World.OnPlyValues = [&](control::PlyValueTool& Tool) {
        Tool.Build();
        ASSERT_EQ(4U, Tool.Rows().size());
        EXPECT_EQ("c7-d6", Tool.Rows()[0].Move);
        EXPECT_EQ(2, Tool.Rows()[0].HalfMove);
        EXPECT_EQ(Tool.Rows()[0].Values[3] - Tool.Rows()[0].Values[2], Tool.Rows()[0].Diff);
        EXPECT_TRUE(Tool.Rows()[1].Flagged) << "c7 is taken back: one capture";
        EXPECT_TRUE(Tool.Rows()[1].Line.starts_with("b8xd6 ")) << Tool.Rows()[1].Line;
        EXPECT_EQ(5, State.Record.Cursor);
        Tool.GoTo(0);
        EXPECT_EQ(2, State.Record.Cursor);
    };
    Run(PlyValueTable);
    EXPECT_EQ(5, State.Record.Count);
    EXPECT_EQ("", control::CheckRest(State));

    // A stop in the middle of a row keeps the plies that were reached.
    Run(First);
    State.PlyValueDepth = 20;
    World.OnPlyValues = [&](control::PlyValueTool& Tool) {
        World.OnNode = [&] {
            if (World.Nodes > 3000) {
                Tool.Cancel1_Click();
            }
        };
        World.Nodes = 0;
        Tool.Build();
        World.OnNode = nullptr;
        EXPECT_LE(1U, Tool.Rows().size());
        EXPECT_GT(5U, Tool.Rows().size());
        EXPECT_EQ(0, Tool.Rows().back().Values[20]);
    };
    Run(PlyValueTable);
    EXPECT_EQ(control::TurnState::Resting, State.Turn);
}

TEST(PlyReport, IsSortedInFiveWays) {
    std::vector<view::PlyRow> Rows(3);
    Rows[0] = {1, "a1-b2", {{0, 5, 3}}, -2, 9, "", false};
    Rows[1] = {2, "c3-d4", {{0, 7, 200}}, 1, 0, "", true};
    Rows[2] = {3, "e5xg7", {{0, 1, -90}}, 0, 4, "", false};
    const std::pair<view::PlyOrder, std::vector<std::size_t>> Orders[] = {
        {view::PlyOrder::BestDifference, {1, 2, 0}}, {view::PlyOrder::BothDifference, {0, 1, 2}},
        {view::PlyOrder::BestValue, {1, 0, 2}},      {view::PlyOrder::MostTime, {0, 2, 1}},
        {view::PlyOrder::Combinations, {1}},
    };
    for (const auto& [Order, Places] : Orders) {
        EXPECT_EQ(Places, view::SortRows(Rows, 2, Order)) << static_cast<int>(Order);
    }
    const std::string Report = view::PlyReport(Rows, 2, view::PlyOrder::Combinations);
    EXPECT_TRUE(Report.starts_with("  No      MOVE   PLY1    PLY2     Diff     Time   \n-------")) << Report;
    EXPECT_NE(std::string::npos, Report.find("\n   2.    c3-d4              7     200      1       0 \n")) << Report;
    // Diff, captures in the line, last value.
    const std::tuple<int, int, int, bool> Flags[] = {{101, 2, 0, true},  {100, 2, 0, false},   {101, 0, 0, false},
                                                     {0, 1, 0, true},    {0, 0, 31000, false}, {0, 0, -31001, true},
                                                     {-101, 2, 0, true}, {0, 2, 0, false}};
    for (const auto& [Diff, Captures, Value, Flagged] : Flags) {
        view::PlyRow Row;
        Row.Diff = static_cast<std::int16_t>(Diff);
        Row.Values[2] = static_cast<std::int16_t>(Value);
        EXPECT_EQ(Flagged, view::IsCombination(Row, 2, Captures)) << Diff << ' ' << Captures << ' ' << Value;
    }
}

TEST_F(Tools, ProblemsAreFoundShownAndTakenBack) {
    Play("d4c5 c7d6 f4g5");
    const std::string Before = Whole();
    std::size_t Found = 0;
    World.OnProblems = [&](const std::vector<control::Finding>& All) {
        Found = All.size();
        EXPECT_EQ("g5-h6 g5-h6 i7xg5 h4xd4 e7-f6 j4-i5     144   Depth: 3   iniScore:-6", All.at(0).Text);
        EXPECT_EQ(Before, Whole());
        return std::optional<std::size_t>();
    };
    Run(SearchProblems);
    EXPECT_EQ(2U, Found);
    EXPECT_EQ("2 Problems/Combinations found", State.Calculation.Text);
    EXPECT_EQ("", control::CheckRest(State));

    // One is played to be stepped through, and the game comes back.
    World.OnProblems = [](const std::vector<control::Finding>&) { return std::optional<std::size_t>(0); };
    Run(SearchProblems);
    EXPECT_EQ(3, State.Record.Cursor);
    EXPECT_LT(6, State.Record.Count);
    EXPECT_EQ("      i7xg5", State.GameList.Lines.at(5));
    Run(RestorePrevious);
    EXPECT_EQ(Before, Whole());

    // An expected reply is told in place of a search.
    State.HintSource = Square("d6");
    State.HintDest = Square("e5");
    ExpectHint("d6-e5");
    Run(SearchProblems);
    EXPECT_EQ("no Problems/Combinations found", State.Calculation.Text);
}

} // namespace
} // namespace zonterbrook::tests
