// The four generators with their rules folded in: their own differences in tables, and their moves against those of the
// generic generator on positions reached by chance.
#include "rules/generate.h"
#include "rules/moves.h"
#include "support/position_text.h"

#include <algorithm>

namespace zonterbrook::rules {
namespace {

using namespace tests;

constexpr const char* Sets[] = {"", AmericanRules, ItalianRules, "", RussianRules};
using enum KnownRules;

std::string_view RulesOf(KnownRules Set) {
    return Sets[static_cast<int>(Set)];
}

TEST(SpecialGenerators, HaveTheirOwnWays) {
    const struct {
        const char* Fault;
        KnownRules Set;
        const char *Position, *Moves;
    } Rows[] = {
        {"american_man_takes_backwards", American, "W:Wc3:Bd2", "c3-b4 c3-d4"},
        {"american_plain_moves_beside_captures", American, "W:Wc3,i3:Bd4", "c3xe5(d4)"},
        {"italian_man_takes_a_king", Italian, "W:Wb2:BKc3", "b2-a3"},
        {"italian_man_ties_with_the_king", Italian, "W:Wb2,Kh2:Bc3,g3", "h2xf4(g3)"},
        {"german_man_crowned_in_passing", German, "W:Wb8:Bc9,e9", "b8xf8(c9,e9)"},
        {"russian_black_man_not_crowned", Russian, "B:Wb2,e3:Ba3",
         "a3xf4(b2,e3)K a3xg5(b2,e3)K a3xh6(b2,e3)K a3xi7(b2,e3)K a3xj8(b2,e3)K"},
    };
    for (const auto& R : Rows) {
        const auto State = Game(RulesOf(R.Set), R.Position);
        ASSERT_EQ(R.Set, State->SpecialRuleSet);
        GeneratorOf(R.Set).GenerateBoth(*State);
        EXPECT_EQ(R.Moves, MoveList(*State)) << R.Fault;
    }
    // Only one of the four has captures at once and so keeps them beside the plain moves of the same square.
    for (const KnownRules Set : {American, German}) {
        const auto State = Game(RulesOf(Set), "W:Wc3,i3:Bd4");
        GeneratorOf(Set).Generate(*State, 1);
        EXPECT_EQ(Set == American ? "c3-b4 c3xe5(d4) i3-h4 i3-j4" : "c3-b4 i3-h4 i3-j4 c3xe5(d4)", MoveList(*State));
    }
}

/// A position with pieces of all kinds on squares that are played on.
void LayByChance(RulesState& State, Dice& Chance) {
    const unsigned Density = 2 + Chance() % 8;
    for (CellSet Cells = PlayingCells; Cells.Any();) {
        const int Square = Cells.TakeFirst();
        const bool Plays = (RowOf(Square) + ColumnOf(Square)) % 2 == State.RuleSet.PiecesOnBlack;
        const unsigned Draw = Plays ? Chance() % (Density + 4) : Density + 4;
        State.Board[Square] = Draw < 2                         ? (Draw == 0 ? 1 : -1)
                              : Draw == 2 && Chance() % 2 == 0 ? 2
                              : Draw == 3 && Chance() % 2 == 0 ? -2
                                                               : 0;
    }
    State.Side = Chance() % 2 == 0 ? White : Black;
    ResetMoves(State);
    RecountPosition(State);
}

TEST(SpecialGenerators, ListTheMovesOfTheGenericOne) {
    Dice Chance(2);
    for (const KnownRules Set : {American, Italian, German, Russian}) {
        const auto State = Game(RulesOf(Set));
        int Ties = 0;
        int Captures = 0;
        for (int Try = 0; Try < 3000; ++Try) {
            LayByChance(*State, Chance);
            GenerateLegalMoves(*State);
            std::vector<std::string> Generic = MovesOfPly(*State);
            Captures += State->CaptureRow.Count > 0 ? 1 : 0;
            GeneratorOf(Set).GenerateBoth(*State);
            std::vector<std::string> Special = MovesOfPly(*State);
            if (Set != American) {
                // Same order too, but for what the special one leaves out.
                std::vector<std::string> InOrder = Generic;
                std::erase_if(InOrder, [&](const auto& Move) { return std::ranges::count(Special, Move) == 0; });
                EXPECT_EQ(Special, InOrder) << static_cast<int>(Set) << ' ' << PositionText(*State);
            }
            std::ranges::sort(Generic);
            std::ranges::sort(Special);
            if (Set == Italian && Special != Generic) {
                // A man's capture that ties with a king's stands in the generic one alone.
                EXPECT_TRUE(std::ranges::includes(Generic, Special)) << PositionText(*State);
                for (const std::string& Move : Generic) {
                    const bool King = State->Board[Cell(Move.substr(0, 2))] == 2 * State->Side;
                    EXPECT_EQ(King, std::ranges::binary_search(Special, Move)) << Move << ' ' << PositionText(*State);
                }
                ++Ties;
            } else {
                EXPECT_EQ(Generic, Special) << static_cast<int>(Set) << ' ' << PositionText(*State);
            }
            ASSERT_EQ("", CheckPosition(*State));
        }
        EXPECT_GT(Captures, 500) << "positions without captures prove nothing";
        EXPECT_EQ(Set == Italian, Ties > 0) << static_cast<int>(Set);
    }
}

} // namespace
} // namespace zonterbrook::rules
