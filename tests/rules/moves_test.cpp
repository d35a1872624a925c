// The move stack, ordering scores, make and unmake. Rows are named by the fault they would catch; rows whose fault
// begins with "kept" hold behaviour that looks like a fault and is none.
#include "base/fault.h"
#include "rules/generate.h"
#include "rules/install.h"
#include "rules/moves.h"
#include "support/position_text.h"

namespace zonterbrook::rules {
namespace {

using namespace tests;

struct MakeRow {
    const char *Fault, *Rules, *Before, *Move, *After;
    int Material; ///< seen from the side to move after it
    int Total, Irreversible;
    const char* TakenBack = nullptr; ///< as before
};

constexpr const char* Circle = "W:WKc3:Bd2,f2,d4,f4";
const MakeRow MakeRows[] = {
    {"piece_left_behind", "", "W:Wa1:Bj0", "a1-b2", "B:Wb2:Bj0", 0, 200, 0},
    {"captured_piece_left", "", "W:Wc3:Bd4,j0", "c3xe5(d4)", "B:We5:Bj0", 0, 200, 1},
    {"black_takes_as_white", "", "B:Wd4,a1:Be5", "e5xc3(d4)", "W:Wa1:Bc3", 0, 200, 1},
    {"king_taken_as_a_man", "", "W:Wc3:BKd4,j0", "c3xe5(Kd4)", "B:We5:Bj0", 0, 200, 1},
    {"man_not_crowned", "", "W:Wa9:Bj8", "a9-b0K", "B:WKb0:Bj8", -100, 300, 1},
    {"black_man_crowned_white", "", "B:Wa3:Bb2", "b2-a1K", "W:Wa3:BKa1", -100, 300, 1},
    {"capture_does_not_crown", "", "W:Wb8:Bc9,j8", "b8xd0(c9)K", "B:WKd0:Bj8", -100, 300, 1},
    {"kept_circle_takes_the_king_off", "LongKings=0", Circle, "c3xc3(d4,f4,f2,d2)", "B:W:B", -200, 200, 1,
     "W:W:Bd2,f2,d4,f4"},
    {"kept_circle_that_promotes_crowns_at_home", "", "W:Wd0:Bc7,e7,c9,e9", "d0xd0(e9,e7,c7,c9)K", "B:WKd0:B", -200, 200,
     1},
    {"kept_demoted_king_leaves_the_board", "KingMan=1|LongKings=0", "W:WKc3:Bd4,j0", "c3xe5(d4)", "B:W:Bj0", -200, 200,
     1, "W:W:Bd4,j0"},
    {"plain_move_demotes", "KingMan=1|LongKings=0", "W:WKc3:Bj0", "c3-b4", "B:WKb4:Bj0", -100, 300, 0},
    {"man_demoted", "KingMan=1", "W:Wc3:Bd4,j0", "c3xe5(d4)", "B:We5:Bj0", 0, 200, 1},
    {"last_man_not_crowned", "ManKing=1", "W:Wc3:Bd4,j0", "c3xe5(d4)", "B:We5:BKj0", 100, 300, 1},
    {"last_man_crowned_by_captures_alone", "ManKing=1", "W:Wa1,c1:Bj0", "a1-b2", "B:Wc1,b2:BKj0", 0, 400, 0},
    {"own_last_man_crowned", "ManKing=1", "W:Wa1:Bj0,h0", "a1-b2", "B:Wb2:Bh0,j0", 100, 300, 0},
    {"lone_king_crowned_again", "ManKing=1", "W:Wa1,c1:BKj0", "a1-b2", "B:Wc1,b2:BKj0", 0, 400, 0},
    {"turncoat_keeps_its_colour", "ChangeSide=1", "W:Wa9:Bj8", "a9-b0K", "B:W:Bj8,Kb0", 100, 300, 1},
    {"entry_counts_as_material", "canContract=1|ContractNumber=2|ContractW1=2|ContractW2=2", "W:Wc3:Bj0", "*e1",
     "B:We1,c3:Bj0", 0, 200, 0},
    {"flying_king_lands_short", "", "W:WKa1:Bc3,j0", "a1xh8(c3)", "B:WKh8:Bj0", -100, 300, 1},
};

TEST(Make, MovesAndTakesBack) {
    for (const MakeRow& R : MakeRows) {
        const auto State = Game(R.Rules, R.Before);
        GenerateGameMoves(*State);
        const int Move = FindMove(*State, R.Move);
        const int Hands = State->PiecesInHandWhite;
        const std::string Start = PositionText(*State);
        const auto Before = std::make_unique<RulesState>(*State);
        PerformMove(*State, Move);
        EXPECT_EQ(R.After, PositionText(*State)) << R.Fault;
        EXPECT_EQ(R.Material, State->Material[1]) << R.Fault;
        EXPECT_EQ(R.Total, State->TotalMaterial[1]) << R.Fault;
        EXPECT_EQ(R.Irreversible, State->PlyIrreversible[1]) << R.Fault;
        EXPECT_EQ(State->MoveStack[Move].Dest, State->PlyDest[1]) << R.Fault;
        EXPECT_EQ(State->MoveStack[Move].Dest, State->MoveDest[1]) << R.Fault;
        EXPECT_EQ(Hands - (*R.Move == '*' ? 1 : 0), State->PiecesInHandWhite) << R.Fault;
        EXPECT_EQ("", CheckPosition(*State)) << R.Fault;
        TakeBackMove(*State, Move);
        EXPECT_EQ(R.TakenBack != nullptr ? R.TakenBack : Start, PositionText(*State)) << R.Fault;
        EXPECT_EQ(0, State->Ply + State->GameMoves) << R.Fault;
        EXPECT_EQ(Hands, State->PiecesInHandWhite) << R.Fault;

        // Whoever only tries a move gets back all that was there.
        *State = *Before;
        TriedMove Tried(*State, Move);
        Tried.TakeBack();
        EXPECT_EQ(Start, PositionText(*State)) << R.Fault;
        EXPECT_EQ("", CheckPosition(*State)) << R.Fault;

        // And so does whoever steps back over a played move.
        *State = *Before;
        const PlayedMove Played = RememberMove(*State, Move);
        PerformMove(*State, Move);
        GenerateMoves(*State, 1);
        StepBack(*State, Played, Before->Material[0], Before->TotalMaterial[0]);
        EXPECT_EQ(Start, PositionText(*State)) << R.Fault;
        EXPECT_EQ(Before->Material[0], State->Material[0]) << R.Fault;
        EXPECT_EQ("", CheckPosition(*State)) << R.Fault;
    }
}

TEST(Make, TakingBackUnderLastManWritesToCell0) {
    const auto State = Game("ManKing=1", "W:Wa1,c1:Bj0,h0");
    GenerateGameMoves(*State);
    PerformMove(*State, 0);
    EXPECT_EQ(Border, State->Board[0]);
    TakeBackMove(*State, 0);
    EXPECT_EQ(Black, State->Board[0]) << "kept: nobody was crowned and the write goes to cell 0";
}

TEST(Make, FaultsAtItsLimits) {
    const auto State = Game("");
    GenerateGameMoves(*State);
    State->Ply = MaxPly;
    EXPECT_THROW(PerformMove(*State, 0), base::Fault) << "ply_101_written";
    State->Ply = 0;
    State->GameMoves = GameMoveEntries - 1;
    EXPECT_THROW(PerformMove(*State, 0), base::Fault) << "written_behind_the_last_move";
}

TEST(Make, TheRootIsTheLastMovePlayed) {
    const auto State = Game("", "W:Wc3:Bd4,j0");
    GenerateGameMoves(*State);
    PerformMove(*State, 0);
    InitGameTree(*State);
    EXPECT_EQ(0, State->Ply);
    EXPECT_EQ(0, State->Material[0]);
    EXPECT_EQ(200, State->TotalMaterial[0]);
    State->Material[1] = 7;
    InitGameTree(*State);
    EXPECT_EQ(0, State->Material[0]) << "copied at ply 0 too";
    EXPECT_EQ("", CheckPosition(*State));
}

TEST(Ordering, ScoresTellWhatToTryFirst) {
    const struct {
        const char *Fault, *Rules, *Position;
        const char* Wanted[3]; ///< ends of main line, first and second killer
        const char* LandedAt;  ///< the last move but one
        const char* Move;
        int Score;
    } Rows[] = {
        {"plain_move_scores", "", "W:Wc3:Bj0", {"", "", ""}, "", "c3-d4", 0},
        {"main_line_ignored", "", "W:Wc3:Bj0", {"c3d4", "", ""}, "", "c3-d4", 500},
        {"first_killer_ignored", "", "W:Wc3:Bj0", {"c3b4", "c3d4", ""}, "", "c3-d4", 250},
        {"second_killer_ignored", "", "W:Wc3:Bj0", {"c3b4", "c3b4", "c3d4"}, "", "c3-d4", 150},
        {"main_line_added_to_killer", "", "W:Wc3:Bj0", {"c3d4", "c3d4", "c3d4"}, "", "c3-d4", 500},
        {"ends_swapped", "", "W:Wc3:Bj0", {"d4c3", "", ""}, "", "c3-d4", 0},
        {"plain_move_recaptures", "", "W:Wc3:Bj0", {"", "", ""}, "d4", "c3-d4", 0},
        {"man_worth_nothing", "", "W:Wc3:Bd4", {"", "", ""}, "", "c3xe5(d4)", 50},
        {"king_worth_a_man", "LongKings=0", "W:WKc3:Bd4", {"", "", ""}, "", "c3xe5(d4)", 0},
        {"taken_king_worth_a_man", "", "W:Wc3:BKd4", {"", "", ""}, "", "c3xe5(Kd4)", 150},
        {"second_capture_not_counted", "", "W:Wc3:Bd4,Kf6", {"", "", ""}, "", "c3xg7(d4,Kf6)", 250},
        {"recapture_not_seen", "", "W:Wc3:Bd4", {"", "", ""}, "e5", "c3xe5(d4)", 350},
        {"capture_drops_the_main_line", "", "W:Wc3:Bd4", {"c3e5", "", ""}, "e5", "c3xe5(d4)", 850},
        {"capture_drops_the_killer", "", "W:Wc3:Bd4", {"", "", "c3e5"}, "", "c3xe5(d4)", 200},
        {"promotion_scores", "", "W:Wa9:Bj8", {"", "", ""}, "", "a9-b0K", 0},
    };
    for (const auto& R : Rows) {
        const auto State = Game(R.Rules, R.Position);
        const auto End = [](const char* Move, std::size_t At) {
            return *Move == '\0' ? 0 : Cell(std::string_view(Move).substr(At, 2));
        };
        State->Ply = 2;
        State->PlyDest[1] = *R.LandedAt == '\0' ? 0 : Cell(R.LandedAt);
        // The move just made never counts.
        State->PlyDest[2] = *R.LandedAt == '\0' ? Cell("e5") : 0;
        const auto Ends = [&](const char* Move) { return MoveEnds{End(Move, 0), End(Move, 2)}; };
        State->Wanted[2] = {Ends(R.Wanted[0]), {Ends(R.Wanted[1]), Ends(R.Wanted[2])}};
        GenerateLegalMoves(*State);
        EXPECT_EQ(R.Score, State->MoveStack[FindMove(*State, R.Move)].Score) << R.Fault;
    }
}

TEST(Ordering, TheBestUnusedMoveComesNext) {
    const auto State = Game("");
    GenerateGameMoves(*State);
    const int Scores[] = {0, 100, UsedScore, 100, UsedScore, 250, 0, 0, 0};
    for (int I = 0; I < 9; ++I) {
        State->MoveStack[I].Score = Scores[I];
    }
    State->MoveStack[9].Score = 9999; // of the ply below
    MovePicker Moves(*State);
    for (const int Expected : {5, 1, 3, 0, 6, 7, 8, -1, -1}) {
        EXPECT_EQ(Expected, Moves.Pick());
    }
    for (int I = 0; I < 9; ++I) {
        EXPECT_EQ(UsedScore, State->MoveStack[I].Score);
    }
}

TEST(Stack, AFullOneAsksToStopAndOverwritesItsLastRecord) {
    const struct {
        const char* Fault;
        int From;
        const char* Position; ///< empty: nine plain moves
        int Top, Cancel;
    } Rows[] = {
        {"stop_before_the_stack_is_full", 991, "", 1000, 0},
        {"one_too_many_not_noticed", 992, "", 1000, 1},
        {"written_beyond_the_end", 1000, "", 1000, 1},
        {"capture_written_beyond_the_end", 1000, "W:Wc3:Bd4", 1000, 1},
        {"last_capture_that_fits_stops", 999, "W:Wc3:Bd4", 1000, 0},
    };
    for (const auto& R : Rows) {
        const auto State = Game("", R.Position);
        State->StackLimit[0] = R.From;
        GenerateGameMoves(*State);
        EXPECT_EQ(R.Top, State->StackTop) << R.Fault;
        EXPECT_EQ(R.Top, State->StackLimit[1]) << R.Fault;
        EXPECT_EQ(R.Cancel, static_cast<int>(State->CancelRequested)) << R.Fault;
        if (R.Cancel == 1) {
            EXPECT_EQ(*R.Position == '\0' ? "j4-i5" : "c3xe5(d4)", MoveText(State->MoveStack[1000])) << R.Fault;
        }
    }
}

TEST(Isamulti, CountsWhoStandsAStepBehind) {
    const struct {
        const char *Fault, *Rules, *Position, *Square;
        int Side, Count;
    } Rows[] = {
        {"alone_is_not_one", "", "W:Wd4:Bj0", "d4", White, 1},
        {"man_behind_not_counted", "", "W:Wd4,c3:Bj0", "d4", White, 3},
        {"two_behind", "", "W:Wd4,c3,e3:Bj0", "d4", White, 5},
        {"man_ahead_counted", "", "W:Wd4,c5,e5:Bj0", "d4", White, 1},
        {"king_ahead_not_counted", "", "W:Wd4,Kc5,Ke5:Bj0", "d4", White, 5},
        {"king_far_off_counted", "", "W:Wd4,Kb6:Bj0", "d4", White, 1},
        {"enemy_counted", "", "W:Wd4:Bc3,e3,c5", "d4", White, 1},
        {"black_counts_from_below", "", "W:Wa1:Bd4,c5,c3", "d4", Black, 3},
        {"border_counted", "", "W:Wa1:Bj0", "a1", White, 1},
        {"capture_steps_counted", "WhiteManMovement=N N;E;W;S", "W:Wd4,c4,d3,d5:Bj0", "d4", White, 3},
        {"side_0_taken_for_black", "", "W:Wd4,c3:Bj0", "d4", 0, 3},
        {"empty_square_refused", "", "W:Wc3:Bj0", "d4", White, 3},
    };
    for (const auto& R : Rows) {
        const auto State = Game(R.Rules, R.Position);
        EXPECT_EQ(R.Count, Isamulti(*State, Cell(R.Square), R.Side)) << R.Fault;
    }
}

} // namespace
} // namespace zonterbrook::rules
