// The generic generator, one small position for each rule: the moves that may be played, in the order of the stack.
// Rows are named by the fault they would catch; those that begin with "kept" hold behaviour that looks like a fault.
#include "rules/generate.h"
#include "support/position_text.h"

namespace zonterbrook::rules {
namespace {

using namespace tests;

struct GenerateRow {
    const char *Fault, *Rules, *Position, *Moves;
};

constexpr const char* TwoPrey = "W:Wc3,g3:Bd4,h4,h6";
constexpr const char* Kings = "W:Wc3,g3:Bd4,Kh4";
constexpr const char* ManAndKing = "W:Wc3,Kg3:Bd4,f4";

constexpr const char* Enters = "canContract=1|ContractNumber=1|ContractW1=2|ContractW2=2";

const GenerateRow Rows[] = {
    // Plain moves
    {"order_of_squares_or_steps", "", "W:Wa1,e3:Bj0", "a1-b2 e3-d4 e3-f4"},
    {"black_walks_up", "", "B:Wa1:Bd4,j0", "d4-e3 d4-c3 j0-i9"},
    {"blocked_square_entered", "", "W:Wa1,b2,c3:Bj0", "b2-a3 c3-b4 c3-d4"},
    {"man_on_the_last_row_not_crowned", "", "W:Wc9:Bj8", "c9-b0K c9-d0K"},
    {"square_of_the_other_side_crowns", "", "B:Wa3:Bb2", "b2-c1K b2-a1K"},
    {"other_last_row_squares_crown", "PromoW=B0", "W:Wc9:Bj8", "c9-b0K c9-d0"},
    {"sixteenth_promotion_square_ignored", "PromoW=------------------------------D0", "W:Wc9:Bj8", "c9-b0 c9-d0K"},
    {"king_promotes", "LongKings=0", "W:WKc9:Bj8", "c9-b0 c9-d0 c9-d8 c9-b8"},
    {"king_stops_short", "", "W:WKa1:Be5,f6", "a1-b2 a1-c3 a1-d4"},
    {"short_king_flies", "LongKings=0", "W:WKa1:Bj0", "a1-b2"},
    {"double_step_looks_on_its_way", "WhiteManMovement=NN S", "W:Wc3:Bc4,c9", "c3-c5"},
    {"step_listed_twice_made_once", "WhiteManMovement=NW;NW;NE", "W:Wc3:Bj8", "c3-b4 c3-b4 c3-d4"},
    {"man_without_steps_moves", "WhiteManMovement=", "W:Wc3:Bd4", ""},
    // Captures in general
    {"capture_not_mandatory", "", "W:Wc3,i3:Bd4", "c3xe5(d4)"},
    {"plain_moves_lost_when_optional", "CapRequired=0", "W:Wc3,i3:Bd4", "c3-b4 i3-h4 i3-j4 c3xe5(d4)"},
    {"blocked_landing_jumped", "", "W:Wc3:Bd4,e5", "c3-b4"},
    {"own_piece_jumped", "", "W:Wc3,d4:Bj0", "c3-b4 d4-c5 d4-e5"},
    {"jumped_over_the_border", "", "W:Wi3:Bj4", "i3-h4"},
    {"man_without_capture_steps_takes", "WhiteManMovement=NW;NE", "W:Wc3:Bd4", "c3-b4"},
    {"backward_capture_missed", "", "W:Wc3:Bd2", "c3xe1(d2)"},
    {"taken_piece_counted_twice", "", "W:Wc3:Bd4,f4,d2,f2", "c3xc3(d4,f4,f2,d2) c3xc3(d2,f2,f4,d4)"},
    {"start_square_blocks_its_own_path", "", "W:Wc3:Bd4,d2,f2,f4,b4,b6",
     "c3xc7(d4,f4,f2,d2,b4,b6) c3xc7(d2,f2,f4,d4,b4,b6)"},
    {"man_takes_no_king", "", "W:Wc3:BKd4", "c3xe5(Kd4)"},
    {"man_takes_a_king_against_the_rule", "ManCapKing=0", "W:Wc3:BKd4", "c3-b4"},
    {"king_takes_no_king", "ManCapKing=0|LongKings=0", "W:WKc3:BKd4", "c3xe5(Kd4)"},
    {"man_passes_a_king_against_the_rule", "ManCapKing=0", "W:Wc3:Bd4,Kf6", "c3xe5(d4)"},
    // Which captures stand
    {"shorter_capture_stands", "", TwoPrey, "g3xg7(h4,h6)"},
    {"shorter_capture_dropped_though_free", "MaxCapMove=0", TwoPrey, "c3xe5(d4) g3xg7(h4,h6)"},
    {"kings_counted_unasked", "", Kings, "c3xe5(d4) g3xi5(Kh4)"},
    {"fewer_kings_stand", "MaxCapMoveKings=1", Kings, "g3xi5(Kh4)"},
    {"kings_counted_without_the_most_pieces", "MaxCapMoveKings=1|MaxCapMove=0", Kings, "c3xe5(d4) g3xi5(Kh4)"},
    {"kings_before_pieces", "MaxCapMoveKings=1", "W:Wc3,g3:BKd4,h4,h6", "g3xg7(h4,h6)"},
    {"man_beside_king", "KingCapMove=1|LongKings=0", ManAndKing, "g3xe5(f4)"},
    {"man_beside_king_dropped_unasked", "LongKings=0", ManAndKing, "c3xe5(d4) g3xe5(f4)"},
    {"longer_capture_of_a_man_bars_the_king", "KingCapMove=1|LongKings=0", "W:WKc3,g3:Bd4,h4,h6", "c3xe5(d4)"},
    {"waiver_with_most_kings", "KingCapMove=1|MaxCapMoveKings=1|LongKings=0", ManAndKing, "c3xe5(d4) g3xe5(f4)"},
    {"waiver_by_other_values", "KingCapMove=2|MaxCapMoveKings=1|LongKings=0", ManAndKing, "g3xe5(f4)"},
    {"black_king_not_the_strongest", "KingCapMove=1|LongKings=0", "B:Wd4,f4:Bc5,Kg5", "g5xe3(f4)"},
    {"prefix_is_no_move", "MulJumps=0|MaxCapMove=0", "W:Wc3:Bd4,d6,b8", "c3xa9(d4,d6,b8) c3xc7(d4,d6) c3xe5(d4)"},
    {"king_must_finish_though_prefixes_stand", "MulJumps=0|MaxCapMove=0|KingFirst=1", "W:WKa1:Bd4,g7",
     "a1xh8(d4,g7) a1xe5(d4)"},
    {"king_may_stop_early", "MaxCapMove=0", "W:WKa1:Bc3,g5",
     "a1xd4(c3) a1xe5(c3) a1xh4(c3,g5) a1xi3(c3,g5) a1xj2(c3,g5)"},
    {"king_must_go_on_unasked", "MaxCapMove=0|MaxCapMoveK=0", "W:WKa1:Bc3,g5",
     "a1xd4(c3) a1xe5(c3) a1xh4(c3,g5) a1xi3(c3,g5) a1xj2(c3,g5) a1xg7(c3) a1xh8(c3) a1xi9(c3) a1xj0(c3)"},
    // Kings' captures
    {"flying_king_lands_on_one_square_only", "", "W:WKa1:Bd4",
     "a1xe5(d4) a1xf6(d4) a1xg7(d4) a1xh8(d4) a1xi9(d4) a1xj0(d4)"},
    {"first_square_not_enforced", "KingFirst=1", "W:WKa1:Bd4", "a1xe5(d4)"},
    {"two_in_a_row_jumped", "", "W:WKa1:Bd4,e5", "a1-b2 a1-c3"},
    {"man_flies_unasked", "", "W:Wa1:Bd4", "a1-b2"},
    {"man_does_not_fly", "ManCapMoveKing=1", "W:Wa1:Bd4,g3", "a1xh2(d4,g3) a1xi1(d4,g3)"},
    {"flying_man_stops_and_lands_further", "ManCapMoveKing=1|ManContJump=0", "W:Wa7:Bb8", "a7xc9(b8) a7xd0(b8)K"},
    {"jumped_piece_passed", "WhiteKingMovement=N;E;S;W N;E;S;W", "W:WKd1:Bd3,f5,h4,c3",
     "d1xh3(d3,h4,f5) d1xh2(d3,h4,f5) d1xh1(d3,h4,f5)"},
    {"jumped_piece_blocks_unasked", "WhiteKingMovement=N;E;S;W N;E;S;W|RemovePieces=0", "W:WKd1:Bd3,f5,h4,c3",
     "d1xb3(c3,d3,h4,f5) d1xa3(c3,d3,h4,f5)"},
    {"turns_straight_back", "RemovePieces=0", "W:WKd4:Be5,b2",
     "d4xf6(e5) d4xg7(e5) d4xh8(e5) d4xi9(e5) d4xj0(e5) d4xa1(b2)"},
    {"straight_way_back_closed", "RemovePieces=0|CapReverse=1|KingFirst=1", "W:WKd4:Be5,b2",
     "d4xa1(e5,b2) d4xf6(b2,e5)"},
    // Promotion in mid-capture
    {"man_crowned_in_passing", "", "W:Wb8:Bc9,e9", "b8xf8(c9,e9)"},
    {"man_passes_the_last_row", "ManContJump=0", "W:Wb8:Bc9,e9", "b8xd0(c9)K"},
    {"ends_on_the_last_row_uncrowned", "", "W:Wb8:Bc9", "b8xd0(c9)K"},
    {"crowned_man_walks_on", "ManContJumpCrowned=1", "W:Wb8:Bc9,f8",
     "b8xg7(c9,f8)K b8xh6(c9,f8)K b8xi5(c9,f8)K b8xj4(c9,f8)K"},
    {"crowned_man_does_not_fly_where_kings_do_not", "ManContJumpCrowned=1|LongKings=0", "W:Wb8:Bc9,f8",
     "b8xg7(c9,f8)K"},
    {"kept_other_values_crown_at_no_end", "ManContJump=2", "W:Wb8:Bc9", "b8xd0(c9)"},
    {"crowning_undone_too_late", "ManContJumpCrowned=1|MaxCapMove=0", "W:Wb8:Bc9,c7", "b8xd0(c9)K b8xd6(c7)"},
    {"flying_man_walks_after_its_crowning_is_undone",
     "ManContJumpCrowned=1|ManCapMoveKing=1|ManContJump=0|MaxCapMove=0|LongKings=0", "W:Wa7:Bb8,d4",
     "a7xc9(b8) a7xd0(b8)K a7xe3(d4)"},
    {"king_crowned_in_mid_capture", "LongKings=0|ManContJump=0", "W:WKb8:Bc9,e9", "b8xf8(c9,e9)"},
    // Jumps over friends
    {"friends_jumped_unasked", "NumberFriends=1", "W:Wa1,b2:Bj0", "b2-a3 b2-c3"},
    {"friend_not_jumped", "JumpFriend=1|NumberFriends=1", "W:Wa1,b2:Bj0", "a1-c3 b2-a3 b2-c3"},
    {"run_of_wrong_length", "JumpFriend=1|NumberFriends=2", "W:Wa1,b2:Bj0", "b2-a3 b2-c3"},
    {"longer_run", "JumpFriend=1|NumberFriends=2", "W:Wa1,b2,c3:Bj0", "a1-d4 b2-a3 c3-b4 c3-d4"},
    {"any_length", "JumpFriend=1|NumberFriends=-1", "W:Wa1,b2,c3:Bj0", "a1-d4 b2-a3 b2-d4 c3-b4 c3-d4"},
    {"blocked_behind_the_run", "JumpFriend=1|NumberFriends=-1", "W:Wa1,b2,Kc3:Bd4,e5", "b2-a3 c3-b4 c3-a5 c3-d2 c3-e1"},
    {"friend_of_another_kind", "JumpFriend=1|NumberFriends=1|LongKings=0", "W:Wa1,Kb2:Bj0", "b2-a3 b2-c3 b2-c1"},
    {"flying_king_jumps_friends", "JumpFriend=1|NumberFriends=1", "W:WKa1,Kb2,a3:Bc3,d4,j0", "b2-c1 a3-b4"},
    {"friend_jump_does_not_crown", "JumpFriend=1|NumberFriends=1", "W:Wb8,c9:Bj8", "b8-a9 b8-d0K c9-b0K c9-d0K"},
    {"kept_friend_jump_looks_at_twelve_squares", "JumpFriend=1|NumberFriends=1|PromoW=------------------------D0",
     "W:Wb8,c9:Bj8", "b8-a9 b8-d0 c9-b0 c9-d0K"},
    {"friend_jump_crowns_a_king", "JumpFriend=1|NumberFriends=1|LongKings=0", "W:WKb8,Kc9:Bj8",
     "b8-a9 b8-d0 b8-c7 b8-a7 c9-b0 c9-d0 c9-d8 c9-a7"},
    // Entries
    {"entries_unasked", "ContractNumber=1|ContractW1=2|ContractW2=2", "W:W:Bj0", ""},
    {"entry_row", Enters, "W:Wa1:Bj0", "a1-b2 *c1 *e1 *g1 *i1"},
    {"empty_hand_enters", "canContract=1|ContractW1=2|ContractW2=2", "W:Wa1:Bj0", "a1-b2"},
    {"row_ahead_must_be_free", "canContract=1|ContractNumber=1|ContractW1=2|ContractW2=4", "W:Wa3:Bc3",
     "*e1 *g1 *i1 a3-b4"},
    {"black_enters_on_whites_row", "canContract=1|ContractNumber=1|ContractB1=11|ContractB2=9", "B:Wa1:Bb8,j0",
     "b8-c7 b8-a7 *d0 *f0 *h0 j0-i9"},
    {"other_colour_of_square", "canContract=1|ContractNumber=1|ContractW1=2|ContractW2=2|PiecesOnBlack=0", "W:W:Bj0",
     "*b1 *d1 *f1 *h1 *j1"},
    {"every_square_on_a_wide_board", "canContract=1|ContractNumber=1|ContractW1=2|ContractW2=2|PiecesOnBlack=2",
     "W:W:Bj0", "*a1 *b1 *c1 *d1 *e1 *f1 *g1 *h1 *i1 *j1"},
    {"entry_beside_a_capture", Enters, "W:Wc3:Bd4", "c3xe5(d4)"},
    // Captures as sets
    {"same_set_on_two_ways", "WhiteManMovement=N;E N;E;S;W", "W:Wc3:Bc4,d5,e4,d3", "c3xc3(d3,c4,e4,d5)"},
    {"kept_refused_set_hides_its_prefixes", "WhiteManMovement=N;E N;E;S;W|MaxCapMove=0", "W:Wc3:Bc4,d5,e4,d3",
     "c3xc3(d3,c4,e4,d5)"},
    {"set_shared_by_two_pieces", "WhiteManMovement=N;E N;E;S;W", "W:Wc3,d2:Bd3", "d2xd4(d3) c3xe3(d3)"},
};

TEST(GenerateMoves, ListsWhatTheRulesAllow) {
    for (const GenerateRow& R : Rows) {
        const auto State = Game(R.Rules, R.Position);
        const auto Before = State->Board;
        GenerateGameMoves(*State);
        EXPECT_EQ(R.Moves, MoveList(*State)) << R.Fault;
        EXPECT_EQ(State->StackTop, State->StackLimit[1]) << R.Fault;
        EXPECT_TRUE(Before == State->Board) << "marks left on the board: " << R.Fault;
    }
}

TEST(GenerateMoves, TakesAllMovesByItsArgument) {
    const struct {
        const char *Fault, *Rules;
        int AllMoves;
        const char* Moves;
    } Calls[] = {
        {"captures_only", "", 0, "c3xe5(d4)"},
        {"captures_and_plain", "", 1, "c3-b4 i3-h4 i3-j4 c3xe5(d4)"},
        {"optional_captures_bring_plain_moves", "CapRequired=0", 0, "c3-b4 i3-h4 i3-j4 c3xe5(d4)"},
        {"below_the_horizon_captures_alone", "CapRequired=0", -1, "c3xe5(d4)"},
    };
    for (const auto& R : Calls) {
        const auto State = Game(R.Rules, "W:Wc3,i3:Bd4");
        State->StackLimit[0] = 5; // a ply begins where the one above ends
        GenerateMoves(*State, R.AllMoves);
        EXPECT_EQ(R.Moves, MoveList(*State)) << R.Fault;
    }
}

TEST(GenerateMoves, TheLastMovedPieceGoesFirst) {
    const struct {
        const char *Fault, *Rules, *LandedAt;
        int Ply, AtGamePosition;
        const char* Moves;
    } Calls[] = {
        {"rule_in_force_unasked", "MaxCapMove=0", "h4", 0, 0, "c3xe5(d4) g3xi5(h4)"},
        {"other_captures_stand", "MaxCapMove=0|LastCap=1", "h4", 0, 0, "g3xi5(h4)"},
        {"no_last_piece_to_take", "MaxCapMove=0|LastCap=1", "j0", 0, 0, "c3xe5(d4) g3xi5(h4)"},
        {"in_force_inside_the_tree", "MaxCapMove=0|LastCap=1", "h4", 1, 0, "c3xe5(d4) g3xi5(h4)"},
        {"not_in_force_in_the_game", "MaxCapMove=0|LastCap=1", "h4", 1, 1, "g3xi5(h4)"},
        {"plain_moves_stand", "MaxCapMove=0|LastCap=1|CapRequired=0", "h4", 0, 0, "g3xi5(h4)"},
        {"plain_moves_fall_without_it", "MaxCapMove=0|LastCap=1|CapRequired=0", "j0", 0, 0,
         "c3-b4 g3-f4 c3xe5(d4) g3xi5(h4)"},
    };
    for (const auto& R : Calls) {
        const auto State = Game(R.Rules, "W:Wc3,g3:Bd4,h4");
        State->Ply = R.Ply;
        State->GameMoves = 3;
        State->MoveDest[3] = static_cast<std::int16_t>(Cell(R.LandedAt));
        State->AtGamePosition = R.AtGamePosition;
        GenerateLegalMoves(*State);
        EXPECT_EQ(R.Moves, MoveList(*State)) << R.Fault;
    }
    // Totals count what the rule drops: the longer capture elsewhere leaves nothing that is long enough.
    const auto State = Game("LastCap=1", "W:Wc3,g3:Bd4,h4,h6");
    State->MoveDest[0] = static_cast<std::int16_t>(Cell("d4"));
    GenerateMoves(*State, 0);
    EXPECT_EQ("", MoveList(*State)) << "kept: dropped rows count for the longest";
}

TEST(GenerateMoves1, AnswersWhetherThereIsAMove) {
    const struct {
        const char *Fault, *Rules, *Position;
        int AllMoves;
        bool Exists;
    } Calls[] = {
        {"plain_move_missed", "", "W:Wa1:Bj0", 1, true},
        {"plain_move_counts_as_capture", "", "W:Wa1:Bj0", 0, false},
        {"optional_captures", "CapRequired=0", "W:Wa1:Bj0", 0, true},
        {"below_the_horizon", "CapRequired=0", "W:Wa1:Bj0", -1, false},
        {"capture_missed", "", "W:Wa1:Bb2", 1, true},
        {"blocked_side_moves", "", "W:Wa1:Bb2,c3", 1, false},
        {"side_without_pieces_moves", "", "W:W:Bc3", 1, false},
        {"king_boxed_in_moves", "", "W:WKa1:Bb2,c3", 1, false},
        {"friend_jump_missed", "JumpFriend=1|NumberFriends=1", "W:Wj2,i3:Bh4,i5,g5,j4", 1, false},
        {"friend_jump_missed", "JumpFriend=1|NumberFriends=1", "W:Wb2,c3,a3:Bb4,c5,a5,e5", 1, true},
        {"kept_entry_is_no_proof", Enters, "W:W:Bj0", 1, false},
        {"entry_hides_a_capture", Enters, "W:Wa1:Bb2", 1, true},
    };
    for (const auto& R : Calls) {
        const auto State = Game(R.Rules, R.Position);
        State->CaptureRow.Count = 17;
        const auto Before = std::make_unique<RulesState>(*State);
        EXPECT_EQ(R.Exists, GenerateMoves1(*State, R.AllMoves)) << R.Fault;
        EXPECT_TRUE(Before->Board == State->Board) << R.Fault;
        EXPECT_TRUE(Before->StackLimit == State->StackLimit) << R.Fault;
        EXPECT_EQ(17, State->CaptureRow.Count) << "rows of a running generator overwritten: " << R.Fault;
    }
    // Rows of ten where the generator has rows of twelve: the cells 21 to 28 in place of 25 to 34.
    const auto Entries = Game(Enters, "W:W:Bj0");
    EXPECT_FALSE(GenerateMoves1(*Entries, 1));
    EXPECT_EQ(2, Entries->StackTop) << "kept: the entries that it finds stay on the stack";
    GenerateMoves(*Entries, 1);
    EXPECT_EQ(5, MoveCountOfPly(*Entries)) << "the next call puts it right";
    // What the rule drops in the generator stands here.
    const auto Last = Game("LastCap=1", "W:Wc3,g3:Bd4,h4,h6");
    Last->MoveDest[0] = static_cast<std::int16_t>(Cell("d4"));
    GenerateMoves(*Last, 0);
    EXPECT_EQ(0, MoveCountOfPly(*Last));
    EXPECT_TRUE(GenerateMoves1(*Last, 0)) << "kept: the last moved piece drops no row";
}

TEST(GenerateMoves, WalksNoStateTwiceWhereSetsCountOnce) {
    const std::string Queens = "PiecesOnBlack=2|WhiteKingMovement=N;NE;E;SE;S;SW;W;NW N;NE;E;SE;S;SW;W;NW";
    const struct {
        const char* Fault;
        std::string Rules, Setup;
        int Moves;
        std::int64_t Sum; ///< of their ends, each by its place
    } Walks[] = {
        {"walks_every_order", Queens,
         "00000000000000040000000000400000202400400000040000"
         "32000004440000422400000000000000040000000020000000",
         83, 296553552},
        {"forgets_the_prefixes", Queens + "|MulJumps=0|MaxCapMove=0",
         "02000000000000002040000000000400000200000200004000"
         "00000000300404000000000000200000000000000000400020",
         772, 27773730442},
        {"lands_where_no_crowned_man_may",
         "PiecesOnBlack=2|MaxCapMove=0|RemovePieces=0|ManContJumpCrowned=1|WhiteManMovement=N N;NE;E;SE;S;SW;W;NW|"
         "WhiteKingMovement=N;NE;E;SE;S;SW;W;NW N;NE;E;SE;S;SW;W;NW",
         "04200020040000000000400000000000020200000000000000"
         "00010000000040000020204200040004000000020000000000",
         637, 17898754657},
        {"forgets_the_stops",
         "PiecesOnBlack=2|WhiteManMovement=N N;NE;E;SE;S;SW;W;NW|ManContJump=0|ManCapMoveKing=1|"
         "WhiteKingMovement=N;S N;S",
         "00000000000000402000000000000000000044000000400000"
         "00001000200000000200000000200200000400000000000000",
         242, 2620741920},
        {"forgets_where_it_came_from", Queens + "|RemovePieces=0",
         "00300000400204000130100000010000040000000000000000"
         "04400000340000004200040000430030000003030000000000",
         35, 75265350},
        {"forgets_whose_walk_it_was", Queens,
         "03000000040004000040340000034000000000420000000010"
         "10030003404000000004004001030000003000000000100000",
         30, 38915041},
        {"takes_a_man_for_a_king",
         "PiecesOnBlack=2|RemovePieces=0|ManContJumpCrowned=1|ManCapMoveKing=1|WhiteManMovement=N;NE;NW "
         "N;NE;NW;S;SE;SW;E;W|WhiteKingMovement=N;S N;S;NE;NW;SE;SW",
         "00000000000000000000010000000000000004000003100404"
         "01000000002004000000000004000004000000004010020000",
         53, 193302348},
    };
    for (const auto& R : Walks) {
        const auto State = Game(R.Rules);
        LaySetup(*State, R.Setup);
        State->Side = White;
        static int Pauses; // a pointer to a function knows no local
        Pauses = 0;
        State->Interrupts = [](RulesState&) { return ++Pauses > 2000; };
        GenerateLegalMoves(*State);
        std::int64_t Sum = 0;
        for (int I = 0; I < MoveCountOfPly(*State); ++I) {
            Sum += (I + 1) * (State->MoveStack[I].Source * 1000 + State->MoveStack[I].Dest);
        }
        EXPECT_EQ(R.Moves, MoveCountOfPly(*State)) << R.Fault;
        EXPECT_EQ(R.Sum, Sum) << R.Fault;

        State->Interrupts = [](RulesState&) { return true; };
        GenerateLegalMoves(*State);
        EXPECT_EQ("", CheckPosition(*State)) << R.Fault << ": stopped in the middle, it leaves the board in disorder";
        EXPECT_EQ(R.Setup, SetupText(State->Board)) << R.Fault;
    }
}

/// A stepping man's only way over this many men: along the rows of a wide board and back, from a1.
std::string Snake(std::size_t Length) {
    const std::string Way = "b1,d1,f1,h1,i2,h3,f3,d3,b3,a4,b5,d5,f5,h5,i6,h7,f7,d7,b7,a8,b9,d9";
    return Way.substr(0, 3 * Length - 1);
}

TEST(GenerateMoves, FaultsWhereAPathEnds) {
    const std::string Steps = "WhiteManMovement=N;E N;E;S;W|LongKings=0";
    const std::string KingsGo = "|KingCapMove=1|WhiteKingMovement=W W";
    const struct {
        const char* Fault;
        std::string Rules, Position;
        std::string What; ///< of the fault; empty: there must be none
    } Calls[] = {
        {"eighteen_pieces_refused", Steps, "W:Wa1:B" + Snake(18), ""},
        {"nineteen_pieces_written", Steps, "W:Wa1:B" + Snake(19), "GenerateMoves:   J3=0   Len(S1)=0   L=76"},
        {"faults_for_a_row_that_is_dropped", Steps + KingsGo, "W:Wa1,Kj0:Bi0," + Snake(19), ""},
        {"faults_at_level_21", Steps + KingsGo, "W:Wa1,Kj0:Bi0," + Snake(20), ""},
        {"level_22_written", Steps + KingsGo, "W:Wa1,Kj0:Bi0," + Snake(21), "GenerateMoves:   J3=0   Len(S1)=84   L=0"},
        {"black_king_jumps_a_friend", "JumpFriend=1|NumberFriends=1|LongKings=0", "B:Wa1:BKe5,Kd4",
         "GenerateMoves:   J3=0   Len(S1)=0   L=0"},
        {"faults_before_the_jump_is_legal", "JumpFriend=1|NumberFriends=2|LongKings=0", "B:Wa1:BKe5,Kd4", ""},
        {"white_king_faults", "JumpFriend=1|NumberFriends=1|LongKings=0", "W:Ba1:WKe5,Kd4", ""},
    };
    for (const auto& R : Calls) {
        const auto State = Game(R.Rules, R.Position);
        std::string What;
        try {
            GenerateMoves(*State, 1);
        } catch (const GeneratorFault& Fault) {
            What = Fault.what();
            EXPECT_EQ("GenerateMoves", Fault.Routine) << R.Fault;
        }
        EXPECT_EQ(R.What, What) << R.Fault;
    }
    // The king can step one way alone, so that the test for a move meets the jump before it meets a move.
    const auto State = Game("JumpFriend=1|NumberFriends=1|LongKings=0|BlackKingMovement=SW", "B:Wa1:BKe5,Kf6");
    try {
        GenerateMoves1(*State, 1);
        ADD_FAILURE() << "no fault";
    } catch (const GeneratorFault& Fault) {
        EXPECT_EQ("Fatal Error! Ombrestonefield will exit.", std::string(Fault.what()));
        EXPECT_EQ("GenerateMoves1", Fault.Routine);
    }
}

} // namespace
} // namespace zonterbrook::rules
