// Random moves under random rules: every move made and taken back leaves all figures in step and the state as it was,
// and the legal-move test agrees with the generator where the two are to agree.
#include "rules/generate.h"
#include "rules/moves.h"
#include "support/position_text.h"

#include <cstring>

namespace zonterbrook::rules {
namespace {

using namespace tests;

constexpr const char* Words[] = {"NW", "NE", "SE", "SW", "N", "S", "E", "W", "NN", "EE", "SS", "WW"};

std::string StepsByChance(Dice& Chance) {
    std::string Text;
    for (const char* Separator : {"", ";", ";", " ", ";", ";", ";"}) {
        Text += Separator + std::string(Words[Chance() % (Chance() % 4 == 0 ? 12 : 8)]);
    }
    return Text;
}

std::string SquaresByChance(Dice& Chance) {
    std::string Text;
    for (unsigned Left = Chance() % 17; Left > 0; --Left) {
        Text += Chance() % 6 == 0 ? "--" : std::string{static_cast<char>('A' + Chance() % 10), "0192"[Chance() % 4]};
    }
    return Text;
}

/// Draws every rule. Rules of the start and of the end of a game are drawn too, though no generator reads them.
void DrawRules(RuleSetFields& Rules, Dice& Chance) {
    Rules = RuleSetFields{};
    for (const RuleKey& Key : RuleKeys()) {
        const std::uint32_t Draw = Chance() % 8;
        if (Draw < 5) {
            Key.Write(Rules, Draw < 4 ? Draw % 2 : 2);
        }
    }
    for (const std::string_view Key : {"ContractW1", "ContractW2", "ContractB1", "ContractB2"}) {
        WriteRule(Rules, Key, std::to_string(2 + Chance() % 10));
    }
    WriteRule(Rules, "NumberFriends", std::to_string(static_cast<int>(Chance() % 4) - 1));
    for (const std::string_view Key : MovementKeys) {
        if (Chance() % 2 == 0) {
            WriteRule(Rules, Key, StepsByChance(Chance));
        }
    }
    for (const std::string_view Key : PromotionKeys) {
        if (Chance() % 3 == 0) {
            WriteRule(Rules, Key, SquaresByChance(Chance));
        }
    }
}

/// The faults that there may be: a Black king that jumps a friend, entries whose free row lies off the board, and
/// limits of paths and rows, which rules drawn by chance do reach.
bool MayFault(const RulesState& State) {
    return (State.RuleSet.JumpFriend == 1 && State.Side == Black) || State.RuleSet.canContract == 1 ||
           State.RuleSet.LastCap == 1 || State.CaptureRow.Count >= 90 || State.SetCaptures == 1;
}

/// Every part that a move taken back must leave as it was: the position, its counters and its figures at the root.
void ExpectSamePosition(const RulesState& Before, const RulesState& After) {
    EXPECT_EQ(0, std::memcmp(&Before.Board[1], &After.Board[1], (BoardCells - 1) * sizeof Before.Board[1]));
    EXPECT_TRUE(Before.Pieces == After.Pieces);
    const auto Figures = [](const RulesState& S) {
        return std::tuple(S.Side, S.Ply, S.GameMoves, S.PiecesInHandWhite, S.PiecesInHandBlack, S.Material[S.Ply],
                          S.TotalMaterial[S.Ply]);
    };
    EXPECT_EQ(Figures(Before), Figures(After));
    EXPECT_TRUE(Before.WeightSums[Before.Ply] == After.WeightSums[Before.Ply]);
    EXPECT_TRUE(Before.StackLimit == After.StackLimit);
    EXPECT_TRUE(Before.RuleSet == After.RuleSet);
    EXPECT_TRUE(Before.MoveDirections == After.MoveDirections);
}

class RandomGame {
public:
    explicit RandomGame(std::uint32_t Seed) : Chance(Seed), State(Game("")), Before(std::make_unique<RulesState>()) {}

    int Moves = 0, Faults = 0, Compared = 0;

    void Play(int Length) {
        DrawRules(State->RuleSet, Chance);
        // Weights that tell all cells and kinds apart, so that a figure out of step cannot hide.
        for (int Index = 0; Index < PieceIndices; ++Index) {
            for (int Cell = 0; Cell < BoardCells; ++Cell) {
                for (std::int32_t& Lane : State->PieceWeights[Cell][Index].Lanes) {
                    Lane = static_cast<std::int32_t>(Chance() % 1000) - 500;
                }
            }
        }
        StartRulesGame(*State);
        for (int Move = 0; Move < Length; ++Move) {
            if (!PlayOne()) {
                return;
            }
        }
    }

private:
    bool PlayOne() {
        *Before = *State;
        try {
            GenerateGameMoves(*State);
            CompareWithMoveTest();
        } catch (const GeneratorFault& Fault) {
            EXPECT_TRUE(MayFault(*State)) << Fault.what() << ' ' << PositionText(*Before);
            ++Faults;
            *State = *Before;
            return false;
        }
        EXPECT_TRUE(Before->Board == State->Board) << "generator left marks: " << PositionText(*Before);
        const int Count = MoveCountOfPly(*State);
        if (Count == 0) {
            return false;
        }
        *Before = *State;
        for (int Try = 0; Try < 3; ++Try) {
            const int Move = static_cast<int>(Chance() % static_cast<unsigned>(Count));
            SCOPED_TRACE(MoveText(State->MoveStack[Move]) + " in " + PositionText(*Before));
            TriedMove Tried(*State, Move);
            EXPECT_EQ("", CheckPosition(*State));
            Tried.TakeBack();
            EXPECT_EQ("", CheckPosition(*State));
            ExpectSamePosition(*Before, *State);
            ++Moves;
        }
        InitGameTree(*State);
        PerformMove(*State, static_cast<int>(Chance() % static_cast<unsigned>(Count)));
        InitGameTree(*State);
        EXPECT_EQ("", CheckPosition(*State));
        return !testing::Test::HasFailure();
    }

    /// The test for a move is to say what the generator says, but for entries and the capture of the last moved piece.
    void CompareWithMoveTest() {
        const int Count = MoveCountOfPly(*State);
        const int Top = State->StackTop;
        const bool Exists = GenerateMoves1(*State, 1);
        if (State->RuleSet.canContract != 1 && State->RuleSet.LastCap != 1) {
            EXPECT_EQ(Count > 0, Exists) << PositionText(*Before);
            EXPECT_EQ(Top, State->StackTop) << PositionText(*Before);
            ++Compared;
        }
    }

    Dice Chance;
    std::unique_ptr<RulesState> State;
    std::unique_ptr<RulesState> Before;
};

TEST(RandomGames, KeepTheirFiguresInStep) {
    int Moves = 0, Faults = 0, Compared = 0;
    for (std::uint32_t Seed = 1; Seed <= 300 && !HasFailure(); ++Seed) {
        SCOPED_TRACE("seed " + std::to_string(Seed));
        RandomGame Game(Seed);
        Game.Play(60);
        Moves += Game.Moves;
        Faults += Game.Faults;
        Compared += Game.Compared;
    }
    EXPECT_GT(Moves, 10000);
    EXPECT_GT(Compared, 1000);
    EXPECT_LT(Faults, 30) << "rules that only fault prove nothing";
}

} // namespace
} // namespace zonterbrook::rules
