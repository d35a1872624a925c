// Why a move is refused: the rule that is named lets the move stand when it is changed.
#include "control/record.h"
#include "control/variant_start.h"
#include "rules/generate.h"
#include "rules/input.h"
#include "rules/install.h"
#include "rules/refusal.h"
#include "support/game_fixture.h"

#include <filesystem>

namespace zonterbrook::tests {
namespace {

struct ReasonCase {
    const char *Name, *Rules, *Pieces, *From, *To; // `To` empty: why it can't move at all
    const char* Key;
};

class Reasons : public RowsOf<PersonsFixture, ReasonCase> {
protected:
    void Change(std::string_view Rules) {
        for (const std::string& Rule : Split(Rules, ',')) {
            const std::size_t Sign = Rule.find('=');
            ASSERT_TRUE(rules::WriteRule(State.RuleSet, Rule.substr(0, Sign), Rule.substr(Sign + 1))) << Rule;
        }
        rules::InstallRuleSet(State);
    }
};

TEST_P(Reasons, AreTheRuleThatStandsAgainstIt) {
    const ReasonCase& Row = GetParam();
    Change(Row.Rules);
    Lay(Row.Pieces, rules::White);
    const auto Before = std::make_unique<control::GameState>(State);
    const int Dest = *Row.To == '\0' ? rules::Anywhere : Square(Row.To);
    const rules::Refusal Why = rules::WhyRefused(State, Square(Row.From), Dest);
    EXPECT_EQ(Row.Key, Why.Key) << Why.Sentence;
    EXPECT_TRUE(Why.Sentence.ends_with('.') && Why.Sentence.size() <= 90) << Why.Sentence;
    EXPECT_EQ(Before->Board, State.Board);
    EXPECT_EQ(Before->RuleSet, State.RuleSet);
}

constexpr ReasonCase ReasonRows[] = {
    {"a_capture_waits", "", "w c3, w i1, b d4, b j0", "i1", "h2", "CapRequired"},
    {"for_another_piece", "", "w c3, w i1, b d4, b j0", "i1", "", "CapRequired"},
    {"a_longer_one", "", "w c3, b d4, b f6, b b4, b j0", "c3", "a5", "MaxCapMove"},
    {"more_kings", "MaxCapMoveKings=1", "w c3, B d4, b b4, b j0", "c3", "a5", "MaxCapMoveKings"},
    {"a_king_first", "KingCapMove=1,MaxCapMove=0", "w c3, b d4, W i1, b h2, b j0", "c3", "e5", "KingCapMove"},
    {"to_its_end", "MaxCapMove=0", "w c3, b d4, b f6, b j0", "c3", "e5", "MulJumps"},
    {"kings_are_safe", "ManCapKing=0", "w c3, B d4, b j0", "c3", "e5", "ManCapKing"},
    {"short_kings", "LongKings=0", "W c3, b j0", "c3", "f6", "LongKings"},
    {"men_go_forward", "", "w c3, b j0", "c3", "b2", "WhiteManMovement"},
    {"too_far", "", "w c3, b j0", "c3", "e5", "none"},
    {"not_empty", "", "w c3, w d4, b j0", "c3", "d4", "none"},
    {"not_his", "", "w c3, b j0", "j0", "i9", "none"},
    {"nobody", "", "w c3, b j0", "e5", "f6", "none"},
    {"shut_in", "", "w a3, w b4, w a5, b j0", "a3", "", "none"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Reasons, testing::ValuesIn(ReasonRows), RowName);

// Over the shipped variants, moves at random that are refused: the rule that is named is changed by hand, and the move
// stands.
TEST_F(PersonsFixture, AReasonIsAlwaysTrue) {
    int Named = 0;
    for (const auto& File : std::filesystem::directory_iterator(World.Directory / "variants")) {
        PlayVariant(File.path().stem().string());
        for (int Turn = 0; Turn < 60; ++Turn) {
            rules::GenerateGameMoves(State);
            const int Moves = rules::MoveCountOfPly(State);
            if (Moves == 0) {
                break;
            }
            // From a square of a piece that can or can't move, to one that a man or a king might try for.
            static constexpr int Steps[] = {11, 13, 22, 26, 33, 39, 12, 24, 1};
            const int Source = rules::FirstCell + static_cast<int>(World.Random() * 118);
            const int Dest = Source + State.Side * Steps[static_cast<std::size_t>(World.Random() * 9)];
            if (Dest < rules::FirstCell || Dest > rules::LastCell || !rules::IsPiece(State.Board[Source]) ||
                State.Board[Dest] != rules::Empty) {
                continue;
            }
            const rules::Refusal Why = rules::WhyRefused(State, Source, Dest);
            if (const rules::RuleKey* Key = rules::FindRuleKey(Why.Key); Key != nullptr && Source != Dest) {
                ++Named;
                auto Changed = std::make_unique<rules::RulesState>(State);
                Key->Write(Changed->RuleSet, Why.Key == "NumberFriends" ? -1 : 1 - Key->Read(State.RuleSet));
                Changed->RuleSet.NumberFriends = Why.Key == "JumpFriend" ? -1 : Changed->RuleSet.NumberFriends;
                rules::InstallRuleSet(*Changed);
                EXPECT_GE(rules::FindMove(*Changed, Source, Dest), 0) << File.path() << ": " << Why.Sentence;
            }
            const rules::MoveRecord Move =
                State.MoveStack[State.StackLimit[State.Ply] + static_cast<int>(World.Random() * Moves)];
            ASSERT_TRUE(control::EnterMove(State, Move.Source, Move.Dest));
        }
    }
    EXPECT_GT(Named, 5);
}

} // namespace
} // namespace zonterbrook::tests
