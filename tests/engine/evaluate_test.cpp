// The evaluators, term by term: rows of two positions that differ in one thing, so that the difference of their scores
// is that thing's worth; and what is decided before any term counts. Rows are named by the fault they would catch.
#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "support/engine_game.h"

namespace zonterbrook::engine {
namespace {

using namespace tests;
using rules::Black;
using rules::White;

/// One promotion square for White and none for Black: no back rank, no dead squares, and square values around a0 alone.
constexpr const char* Bare = "PromoW=A0|PromoB=";

std::int32_t Value(EngineState& State, EvaluateFunction Evaluate, std::string_view Position) {
    Lay(State, Position);
    return Evaluate(State, WindowLow, WindowHigh, State.Side) - State.Material[0];
}

struct TermRow {
    const char* Fault;
    std::string Rules;
    const char *Position, *Against;
    int Difference;
    bool Distances = false;
    EvaluateFunction Evaluate = EvaluatePosition;
};

std::string With(const char* Rules) {
    return std::string(Bare) + "|" + Rules;
}

const TermRow TermRows[] = {
    {"centre_of_white", Bare, "W:Wc5:Bj8", "W:Wb4:Bj8", 20},
    {"last_square_of_the_centre", Bare, "W:Wh6:Bj8", "W:Wb4:Bj8", 20},
    {"square_beside_the_centre", Bare, "W:Wi5:Bj8", "W:Wb4:Bj8", 0},
    {"centre_of_black", Bare, "W:Wb4:Bd6", "W:Wb4:Bj8", -20},
    {"centre_seen_from_black", Bare, "B:Wb4:Bd6", "B:Wb4:Bj8", 20},
    {"centre_of_the_other_colour", With("PiecesOnBlack=0"), "W:Wd5:Bi8", "W:Wc4:Bi8", 20},
    {"black_squares_of_the_other_colour", With("PiecesOnBlack=0"), "W:Wc5:Bi8", "W:Wc4:Bi8", 0},
    {"wide_centre", With("PiecesOnBlack=2"), "W:Wa5:Bj8", "W:Wa4:Bj8", 20},
    {"wide_centre_has_a_gap", With("PiecesOnBlack=2"), "W:We5:Bj8", "W:Wa4:Bj8", 0},
    {"flying_king", Bare, "W:WKb4:Bj8", "W:Wb4:Bj8", 75},
    {"safe_king", With("ManCapKing=0"), "W:WKb4:Bj8", "W:Wb4:Bj8", 100},
    {"short_king", With("LongKings=0"), "W:WKb4:Bj8", "W:Wb4:Bj8", 25},
    {"short_king_at_the_side", With("LongKings=0"), "W:WKa5:Bj8", "W:WKb4:Bj8", -10},
    {"short_king_in_the_corner", With("LongKings=0"), "W:WKa1:Bj8", "W:WKb4:Bj8", -20},
    {"long_diagonal", Bare, "W:WKc3:Bj8", "W:WKb4:Bj8", 50},
    {"long_diagonal_of_black", Bare, "W:Wb4:BKc3", "W:Wb4:BKb6", -50},
    {"far_corner", Bare, "W:WKf1:Bj8", "W:WKb4:Bj8", -25},
    {"far_corner_of_black", Bare, "W:Wb4:BKj5", "W:Wb4:BKb6", 25},
    {"back_rank_second_square", "", "W:Wc1:Bj8", "W:Wa1:Bj8", 10},
    {"back_rank_fourth_square", "", "W:Wg1:Bj8", "W:Wa1:Bj8", 0},
    {"back_rank_fifth_square", "", "W:Wi1:Bj8", "W:Wa1:Bj8", 10},
    {"kept_back_rank_of_black_is_no_mirror", "", "W:Wb4:Bb0", "W:Wb4:Bd0", -10},
    {"kept_back_rank_of_black_fourth_square", "", "W:Wb4:Bh0", "W:Wb4:Bd0", -10},
    {"kept_back_rank_of_black_fifth_square", "", "W:Wb4:Bj0", "W:Wb4:Bd0", 0},
    {"back_rank_of_a_king", "", "W:WKc1:Bj8", "W:WKa1:Bj8", -50},
    {"wide_back_rank", "PiecesOnBlack=2|PromoB=A1B1C1D1E1F1G1H1I1J1", "W:Wj1:Bj8", "W:We1:Bj8", 10},
    {"dead_square", "PromoW=A0|PromoB=J1", "W:Wi7:Bb4", "W:Wc7:Bb4", -75},
    {"dead_square_of_black", "PromoW=A0|PromoB=J1", "W:Wc7:Bb4", "W:Wc7:Bh4", 75},
    {"dead_square_of_a_king", "PromoW=A0|PromoB=J1", "W:WKi7:Bb4", "W:WKb6:Bb4", 0},
    {"dead_squares_of_unequal_columns", Bare, "W:Wi7:Bj8", "W:Wc7:Bj8", 0},
    // Nineteen less the distance, times one and two for each supporter; a third of it for kings.
    {"support_not_counted", Bare, "W:Wb4,c3:Bj8", "W:Wb4:Bj8", 21, true},
    {"kept_black_takes_the_last_of_equals", Bare, "W:Wb4:Bb8,j8", "W:Wb4:Bj8", -7, true},
    {"kept_white_takes_the_first_of_equals", Bare, "W:Wb4,j4:Bb8", "W:Wb4:Bj8", 15, true},
    {"king_pulled_like_a_man", Bare, "W:WKb4:Bj8", "W:Wb4:Bj8", 70, true},
    {"man_before_king_as_target", Bare, "W:Wb4:Bb6,Kj8", "W:Wb4:BKj8", -17, true},
    {"american_short_king", AmericanRules, "W:WKa5:Bj8", "W:WKb4:Bj8", -10, true, EvaluateAmerican},
    {"american_man_alone", AmericanRules, "W:Wb4,c3:Bj8", "W:Wb4,e3:Bj8", 14, true, EvaluateAmerican},
    {"american_centre", AmericanRules, "W:WKc5:Bj8", "W:WKb4:Bj8", 20, true, EvaluateAmerican},
    {"german_long_diagonal", "", "W:WKc3:Bj8", "W:WKd2:Bj8", 50, true, EvaluateGerman},
    {"german_far_corner", "", "W:WKf1:Bj8", "W:WKd2:Bj8", -25, true, EvaluateGerman},
    {"german_values_of_black_added", "", "W:Wb4:Bj4", "W:Wb4:Bj8", -24, true, EvaluateGerman},
    {"italian_centre_of_the_german", "", "W:WKd5:Bj8", "W:WKc4:Bj8", 20, true, EvaluateItalian},
};

TEST(Evaluate, EachTermIsWorthWhatItSays) {
    for (const TermRow& R : TermRows) {
        EngineGame Game(R.Rules);
        Game->DistanceTermEnabled = R.Distances ? 1 : 0;
        const std::int32_t Score = Value(*Game, R.Evaluate, R.Position);
        EXPECT_EQ(R.Difference, Score - Value(*Game, R.Evaluate, R.Against)) << R.Fault;
    }
}

TEST(Evaluate, PatternInFrontOfPromotionSquares) {
    const struct {
        const char *Fault, *Position;
        int Gain;
    } Rows[] = {
        {"free_ground", "W:Wa1,c1:Bj2", 120},
        {"first_step_taken", "W:Wa1,e9:Bj2", 100},
        {"shared_second_step_taken", "W:Wa1,d8:Bj2", 100},
        {"both_steps_taken", "W:Wa1,e9,f8:Bj2", 80},
        {"enemy_on_a_step", "W:Wa1,c1:Bc9", 100},
        {"square_itself_taken", "W:Wa1,d0:Bj2", 0},
        {"closed_line_of_men", "W:Wd0,e9,f8:Bj2", 30},
        {"bent_line_of_men", "W:Wd0,e9,d8:Bj2", 0},
        {"line_of_black_men", "W:Wa1,c1:Bd0,c9,b8", -30},
        {"line_with_a_king", "W:Wd0,e9,Kf8:Bj2", 0},
    };
    for (const auto& R : Rows) {
        EngineGame Game("PromoW=D0|PromoB=");
        Game->MenThresholdWhite = 0;
        const std::int32_t Off = Value(*Game, EvaluatePosition, R.Position);
        Game->PatternTermEnabled = 1;
        EXPECT_EQ(R.Gain, Value(*Game, EvaluatePosition, R.Position) - Off) << R.Fault;
        Game->MenThresholdWhite = 9;
        const std::int32_t Late = Value(*Game, EvaluatePosition, R.Position);
        Game->PatternTermEnabled = 0;
        EXPECT_EQ(0, Value(*Game, EvaluatePosition, R.Position) - Late) << "counted late: " << R.Fault;
    }
    // The hard-wired ones count ground that is free all over twice and know no switch.
    EngineGame Game("");
    const auto Gain = [&](std::string_view Position) {
        Game->MenThresholdWhite = 0;
        const std::int32_t Early = Value(*Game, EvaluateGerman, Position);
        Game->MenThresholdWhite = 9;
        return Early - Value(*Game, EvaluateGerman, Position);
    };
    // Four pairs of steps for each of three squares, and for the first, where one leads off the board, three and a
    // half.
    EXPECT_EQ(15 * 50 + 20, Gain("W:Wa1:Bj2"));
    EXPECT_EQ(11 * 50 + 5 * 20, Gain("W:Wa1,e9:Bj2")) << "a first step that is taken";
}

TEST(Evaluate, DecidedPositionsComeFirst) {
    const struct {
        const char *Fault, *Rules, *Position;
        int Ply;
        int Score; ///< 1: any that is not decided
        int Lost, NoLegal;
    } Rows[] = {
        {"enemy_without_pieces_not_won", "", "W:Wb4:B", 0, 32000, 0, 0},
        {"distance_from_the_root_not_counted", "", "W:Wb4:B", 7, 31993, 0, 0},
        {"own_loss_returns_at_once", "", "W:W:Bj8", 0, 1, 1, 0},
        {"limit_of_pieces_not_read", "NumberPieces=1", "W:Wb4,d4:Bj8", 0, 32000, 0, 0},
        {"limit_itself_stands", "NumberPieces=1", "W:Wb4,d4:Bj8,h8", 0, 1, 0, 0},
        {"own_limit_not_told", "NumberPieces=1", "B:Wb4,d4:Bj8", 0, 1, 1, 0},
        {"losing_all_does_not_win", "AntiMode=1", "W:W:Bj8", 0, 32000, 0, 0},
        {"taking_all_does_not_lose", "AntiMode=1", "W:Wb4:B", 0, 1, 1, 0},
        {"first_king_does_not_win", "KingWin=1", "W:WKb0:Bj8", 0, 32000, 0, 0},
        {"king_off_its_squares_wins", "KingWin=1", "W:WKb4:Bj8", 0, 1, 0, 0},
        {"enemy_king_not_a_loss", "KingWin=1", "W:Wb4:BKa1", 0, 1, 1, 0},
        {"man_on_the_goal_wins", "KingWin=1", "W:Wb0:Bj8", 0, 1, 0, 0},
        {"king_must_come_back", "WinAtPromo=1", "W:WKb0:Bj8", 0, 1, 0, 0},
        {"king_that_came_back_does_not_win", "WinAtPromo=1", "B:Wb4:BKb0", 0, 32000, 0, 0},
        {"goals_not_swapped_in_anti_mode", "KingWin=1|AntiMode=1", "W:Wb4:BKa1", 0, 32000, 0, 0},
        {"unused_entry_is_a_goal", "KingWin=1|PromoW=", "W:WKb0:Bj8", 0, 1, 0, 0},
        {"blocked_side_not_drawn", "NoLegalDraw=1", "W:Wa1:Bb2,c3", 0, 0, 0, 1},
        {"blocked_side_drawn_unasked", "", "W:Wa1:Bb2,c3", 0, 1, 0, 0},
        {"no_pieces_are_a_draw", "NoLegalDraw=1", "W:W:Bb2", 0, 1, 1, 0},
    };
    for (const auto& R : Rows) {
        EngineGame Game(R.Rules, R.Position);
        Game->Ply = R.Ply;
        const std::int32_t Score = EvaluatePosition(*Game, WindowLow, WindowHigh, Game->Side);
        if (R.Score == 1) {
            EXPECT_LT(std::abs(Score), 30000) << R.Fault;
        } else {
            EXPECT_EQ(R.Score, Score) << R.Fault;
        }
        EXPECT_EQ(R.Lost, Game->SideToMoveLost) << R.Fault;
        EXPECT_EQ(R.NoLegal, Game->NoLegalDrawHit) << R.Fault;
    }
}

TEST(Evaluate, LeavesEarlyOutsideTheWindow) {
    const struct {
        const char *Fault, *Rules;
        int Alpha, Beta, Margin, DrawPending;
        bool Lazy;
        int Score; ///< of the lazy exit; White is two men ahead
    } Rows[] = {
        {"above_the_margin_not_left", "", -100, 49, 150, 0, true, 200},
        {"at_the_margin_left", "", -100, 50, 150, 0, false, 0},
        {"below_the_margin_not_left", "", 351, 400, 150, 0, true, 200},
        {"at_the_lower_margin_left", "", 350, 400, 150, 0, false, 0},
        {"wider_margin_not_used", "", -100, 49, 160, 0, false, 0},
        {"anti_mode_not_turned", "AntiMode=1", -100, 49, 150, 0, true, -200},
        {"draw_before_the_lazy_exit", "", -100, 49, 150, 1, true, 200},
    };
    for (const auto& R : Rows) {
        EngineGame Game(R.Rules, "W:Wb4,d4,f4:Bj8");
        Game->LazyMargin = R.Margin;
        Game->DrawPending = R.DrawPending;
        const std::int32_t Score = EvaluatePosition(*Game, R.Alpha, R.Beta, White);
        EXPECT_EQ(R.Lazy, Score == R.Score) << R.Fault << ' ' << Score;
    }
    EngineGame Game("", "W:Wb4,d4,f4:Bj8");
    Game->DrawPending = 2;
    EXPECT_EQ(0, EvaluatePosition(*Game, WindowLow, WindowHigh, White)) << "a pending draw scores";
    Game->TotalMaterial[0] = 0;
    Game->DrawPending = 1;
    EXPECT_EQ(0, EvaluatePosition(*Game, -100, 49, White)) << "lazy exit without material";
    EXPECT_EQ(200, EvaluateGerman(*Game, -100, 49, White)) << "kept: the hard-wired ones do not ask for material";
}

TEST(Evaluate, RepetitionsScoreNothing) {
    EngineGame Game("", "W:WKb4:BKj8");
    const auto Score = [&](int GameMoves) {
        Game->GameMoves = GameMoves;
        return EvaluatePosition(*Game, WindowLow, WindowHigh, White);
    };
    const std::int32_t Fresh = Score(5);
    EXPECT_NE(0, Fresh);
    EXPECT_EQ(Fresh, Score(5)) << "a position repeats itself at once";
    EXPECT_EQ(0, Score(6)) << "the position before the last move is not looked at";
    EXPECT_EQ(0, Score(1000)) << "not looked for through the whole history";
    // What a searched line left behind answers for another line as well, until it is overwritten.
    Lay(*Game, "W:WKc3:BKj8");
    EXPECT_NE(0, Score(6)) << "another position taken for it";
    Lay(*Game, "W:WKb4:BKj8");
    EXPECT_EQ(0, Score(9)) << "kept: the key of move 5 still stands";
    Lay(*Game, "W:WKe3:BKj8");
    EXPECT_NE(0, Score(5));
    Lay(*Game, "W:WKb4:BKj8");
    EXPECT_NE(0, Score(9)) << "an overwritten key still answers";
    Lay(*Game, "W:WKb4:Bj8");
    EXPECT_NE(0, Score(8)) << "a man taken for a king";
    // An early exit stores no key.
    EngineGame Early("", "W:WKb4:BKj8");
    Early->GameMoves = 5;
    EvaluatePosition(*Early, 900, 1000, White);
    Early->GameMoves = 9;
    EXPECT_NE(0, EvaluatePosition(*Early, WindowLow, WindowHigh, White));
    // And whoever is to move does not belong to the key.
    Early->GameMoves = 11;
    EXPECT_EQ(0, EvaluatePosition(*Early, WindowLow, WindowHigh, Black));
}

TEST(Evaluate, NoiseIsTwoDrawsOfItsAmplitude) {
    EngineGame Game("", "W:Wb4:Bj8");
    for (const auto& [Strength, Amplitude] : {std::pair{0, 0}, {1, 5}, {2, 70}, {3, 140}, {9, 560}}) {
        Game->Strength = static_cast<std::uint8_t>(Strength);
        SetNoise(*Game);
        EXPECT_EQ(Amplitude, Game->Noise) << Strength;
    }
    Game->Noise = 0;
    const std::int32_t Exact = EvaluatePosition(*Game, WindowLow, WindowHigh, White);
    Game->Noise = 70;
    const struct {
        double First, Second;
        int Added;
    } Draws[] = {{0, 0, 0}, {0.999, 0, 69}, {0, 0.999, -69}, {0.5, 0.25, 35 - 17}};
    for (const auto& R : Draws) {
        Game.World.Draws = {R.First, R.Second};
        EXPECT_EQ(R.Added, EvaluatePosition(*Game, WindowLow, WindowHigh, White) - Exact) << R.First << ' ' << R.Second;
        EXPECT_TRUE(Game.World.Draws.empty()) << "not drawn twice";
    }
    Game->DrawPending = 1;
    EXPECT_EQ(0, EvaluatePosition(*Game, WindowLow, WindowHigh, White)) << "noise on a draw";
}

TEST(Evaluate, SumsKeptByMovesEqualARecount) {
    Dice Chance(7);
    for (const char* Rules : {"", "TwoKings=1", AmericanRules, "KingMan=1|ManKing=1|ChangeSide=1", "AntiMode=1"}) {
        for (int Play = 0; Play < 20; ++Play) {
            EngineGame Game(Rules);
            const EvaluateFunction Evaluate = PlayingRoutine(*Game).Evaluate;
            for (int Move = 0; Move < 80; ++Move) {
                rules::GenerateGameMoves(*Game);
                const int Count = rules::MoveCountOfPly(*Game);
                if (Count == 0) {
                    break;
                }
                rules::InitGameTree(*Game);
                rules::PerformMove(*Game, static_cast<int>(Chance() % static_cast<unsigned>(Count)));
                rules::InitGameTree(*Game);
                Game->HistoryFingerprint.Fill(0);
                Game->PositionHistory.Fill({});
                const std::int32_t Kept = Evaluate(*Game, WindowLow, WindowHigh, Game->Side);
                const std::int32_t Material = Game->Material[0];
                rules::RecountPosition(*Game);
                Game->Material[0] = Material; // may drift from the board, by the rules
                ASSERT_EQ(Kept, Evaluate(*Game, WindowLow, WindowHigh, Game->Side)) << PositionText(*Game);
            }
        }
    }
}

} // namespace
} // namespace zonterbrook::engine
