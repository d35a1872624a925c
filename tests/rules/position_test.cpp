// Cells, sets of cells, laying a position and what is counted beside it. Rows are named by the fault they would catch.
#include "rules/install.h"
#include "rules/position.h"
#include "support/position_text.h"

#include <set>

namespace zonterbrook::rules {
namespace {

using namespace tests;

TEST(Cells, AreAHundredInsideABorder) {
    std::set<int> Playing;
    for (int Cell = 0; Cell < BoardCells; ++Cell) {
        const bool Inside = RowOf(Cell) >= 2 && RowOf(Cell) <= 11 && ColumnOf(Cell) >= 1 && ColumnOf(Cell) <= 10;
        EXPECT_EQ(Inside, IsOnBoard(Cell)) << Cell;
        if (Inside) {
            Playing.insert(Cell);
        }
    }
    EXPECT_EQ(100u, Playing.size());
    std::set<int> Taken;
    for (CellSet Cells = PlayingCells; Cells.Any();) {
        EXPECT_TRUE(Taken.insert(Cells.TakeFirst()).second);
    }
    EXPECT_EQ(Playing, Taken);
    for (int Row = FirstRow; Row <= LastRow; ++Row) {
        EXPECT_EQ(10, RowCells(Row).Count());
        EXPECT_EQ(CellAt(Row, 1), RowCells(Row).First());
        EXPECT_EQ(CellAt(Row, 10), RowCells(Row).Last());
    }
}

TEST(Cells, SetsHoldAtTheSeamOfTheirHalves) {
    for (const int A : {25, 87, 88, 89, 90, 142}) {
        for (const int B : {25, 87, 88, 89, 90, 142}) {
            const CellSet Both = CellSet::Of(A) | CellSet::Of(B);
            EXPECT_EQ(A == B ? 1 : 2, Both.Count()) << A << ' ' << B;
            EXPECT_EQ(std::min(A, B), Both.First()) << A << ' ' << B;
            EXPECT_EQ(std::max(A, B), Both.Last()) << A << ' ' << B;
            EXPECT_EQ(A == B, Both.Without(CellSet::Of(A)).None()) << A << ' ' << B;
            EXPECT_EQ(A == B ? 1 : 0, CellSet::Of(A).CountIn(CellSet::Of(B))) << A << ' ' << B;
            if (std::abs(B - A) < 64) {
                EXPECT_EQ(CellSet::Of(B), CellSet::Of(A).Moved(B - A)) << "moved across the seam, " << A << ' ' << B;
            }
        }
    }
    EXPECT_TRUE(CellSet::Of(25).Moved(-1).None()) << "moved off the lower end and round to the upper";
}

TEST(Position, TheDefaultOneIsTheOneOfTheGame) {
    const auto State = Game("");
    EXPECT_EQ("W:Wa1,c1,e1,g1,i1,b2,d2,f2,h2,j2,a3,c3,e3,g3,i3,b4,d4,f4,h4,j4"
              ":Ba7,c7,e7,g7,i7,b8,d8,f8,h8,j8,a9,c9,e9,g9,i9,b0,d0,f0,h0,j0",
              PositionText(*State));
    EXPECT_EQ(DefaultSetup, SetupText(State->Board));
    EXPECT_EQ(DefaultSetup, BuildSetupText(*State));
    EXPECT_EQ(20, State->StartMenWhite);
    EXPECT_EQ(40, State->TotalMen);
    EXPECT_EQ("", CheckPosition(*State));
}

TEST(Position, SetupTextsComeBack) {
    std::string Text(100, '0');
    for (std::size_t At = 0; At < Text.size(); ++At) {
        Text[At] = static_cast<char>('0' + (At * 7 + At / 10) % 5);
    }
    const auto State = Game("");
    LaySetup(*State, Text);
    EXPECT_EQ(Text, SetupText(State->Board));
    EXPECT_EQ(Text, BuildSetupText(*State)) << "start_position_not_kept";
    EXPECT_TRUE(IsSetupText(Text));
    for (const std::string& Bad : {Text.substr(1), Text + "0", "5" + Text.substr(1), "/" + Text.substr(1)}) {
        EXPECT_FALSE(IsSetupText(Bad)) << Bad;
    }
    LaySetup(*State, "normal");
    EXPECT_EQ(DefaultSetup, SetupText(State->Board)) << "normal_is_no_text";
}

TEST(Position, MaterialIsSeenFromTheSideToMove) {
    constexpr std::tuple<const char*, int, int> Rows[] = {
        {"W:Wa1,Kc1:Bj0", 200, 400}, {"B:Wa1,Kc1:Bj0", -200, 400}, {"W:WKa1:BKj0,Kh0", -200, 600}, {"W:W:B", 0, 0}};
    for (const auto& [Text, Material, Total] : Rows) {
        const auto State = Game("", Text);
        EXPECT_EQ(Material, State->Material[0]) << Text;
        EXPECT_EQ(Total, State->TotalMaterial[0]) << Text;
    }
}

TEST(Position, TheCheckSeesWhatIsWrong) {
    const struct {
        const char* Fault;
        void (*Break)(RulesState& State);
    } Rows[] = {
        {"border_overwritten", [](RulesState& S) { S.Board[36] = Empty; }},
        {"mark_left_on_the_board", [](RulesState& S) { S.Board[97] -= JumpedMark; }},
        {"set_lost_a_piece", [](RulesState& S) { S.Pieces[0].Toggle(25); }},
        {"set_of_the_wrong_kind", [](RulesState& S) { S.Board[25] = WhiteKing; }},
        {"weights_lost", [](RulesState& S) { ++S.WeightSums[0].Lanes[3]; }},
        {"no_side_to_move", [](RulesState& S) { S.Side = 0; }},
        {"ply_below_the_root", [](RulesState& S) { S.Ply = 0, S.GameMoves = -1; }},
    };
    for (const auto& R : Rows) {
        const auto State = Game("");
        EXPECT_EQ("", CheckPosition(*State)) << R.Fault;
        R.Break(*State);
        EXPECT_NE("", CheckPosition(*State)) << R.Fault;
    }
    const auto State = Game("");
    State->Board[0] = Black;
    EXPECT_EQ("", CheckPosition(*State)) << "cell 0 belongs to nobody and may hold anything";
}

} // namespace
} // namespace zonterbrook::rules
