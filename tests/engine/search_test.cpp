// The twelve search routines: anchors, the ends of the tree, killers and main line, and stops that leave the exact
// root. Rows are named by the fault they would catch; larger tables of scores and node counts are under tests/data.
#include "engine/evaluate.h"
#include "engine/search.h"
#include "rules/generate.h"
#include "support/engine_game.h"

#include <set>

namespace zonterbrook::engine {
namespace {

using namespace tests;

std::int32_t SearchBy(EngineState& State, std::string_view Routine, std::int32_t Depth, std::int32_t Alpha = WindowLow,
                      std::int32_t Beta = WindowHigh) {
    State.RootSide = State.Side;
    State.MaxSearchDepth = Depth + State.Plys;
    State.NodeCount = 0;
    return FindSearchRoutine(Routine)->Search(State, Alpha, Beta, Depth);
}

TEST(Search, RoutinesAreChosenByTheRules) {
    constexpr std::tuple<const char*, const char*, const char*> Rows[] = {
        {"", "SearchGerman", "QuickSearchGerman"},
        {AmericanRules, "SearchAmerican", "QuickSearchAmerican"},
        {ItalianRules, "SearchItalian", "QuickSearchItalian"},
        {RussianRules, "SearchRussian", "QuickSearchRussian"},
        {"TwoKings=1", "SearchPlain", "QuickSearchPlain"},
        {"AntiMode=1", "SearchAnti", "QuickSearchPlain"},
        {"AntiMode=1|KingWin=1", "SearchAnti", "QuickSearchPlain"},
        {"KingWin=1", "SearchGoal", "QuickSearchPlain"},
        {"WinAtPromo=1", "SearchGoal", "QuickSearchPlain"},
        {"KingWin=2|WinAtPromo=2|AntiMode=2", "SearchPlain", "QuickSearchPlain"},
    };
    for (const auto& [Rules, Playing, Quick] : Rows) {
        EngineGame Game(Rules);
        EXPECT_EQ(Playing, PlayingRoutine(*Game).Name) << Rules;
        EXPECT_EQ(Quick, QuickRoutine(*Game).Name) << Rules;
    }
    std::set<std::string_view> Names;
    for (const SearchRoutine& Routine : SearchRoutines()) {
        EXPECT_EQ(&Routine, FindSearchRoutine(Routine.Name));
        Names.insert(Routine.Name);
    }
    EXPECT_EQ(12u, Names.size());
}

TEST(Search, KnowsTheEndsOfTheTree) {
    constexpr const char* Blocked = "W:Wa1:Bb2,c3";
    const struct {
        const char *Fault, *Rules, *Position, *Routine;
        int Depth;
        int Score; ///< 1: any that is not decided
    } Rows[] = {
        {"blocked_side_keeps_its_evaluation", "TwoKings=1", Blocked, "SearchPlain", 1, -32000},
        {"blocked_side_lost_at_the_horizon", "TwoKings=1", Blocked, "SearchPlain", 0, 1},
        {"blocked_side_does_not_win", "AntiMode=1", Blocked, "SearchAnti", 1, 31999},
        {"blocked_side_wins_at_the_horizon", "AntiMode=1", Blocked, "SearchAnti", 0, 1},
        {"blocked_side_loses_without_distance", "KingWin=1", Blocked, "SearchGoal", 1, -31999},
        {"quick_one_knows_no_anti_mode", "AntiMode=1", Blocked, "QuickSearchPlain", 1, 31999},
        {"quick_one_always_in_anti_mode", "TwoKings=1", Blocked, "QuickSearchPlain", 1, -32000},
        {"won_root_searched", "TwoKings=1", "W:Wa1:B", "SearchPlain", 5, 32000},
        {"win_in_one_not_counted_by_ply", "TwoKings=1", "W:Wc3:Bd4", "SearchPlain", 3, 31999},
        {"loss_in_two_not_counted_by_ply", "TwoKings=1", "W:Wa1:Bc3,j0", "SearchPlain", 3, -31998},
        {"win_by_blocking", "TwoKings=1", "B:Wa1:Bb2,d4", "SearchPlain", 3, 31999},
        {"anti_win_by_loss", "AntiMode=1", "W:Wc3:Be5", "SearchAnti", 3, 31998},
        {"first_king_not_searched_for", "KingWin=1", "W:Wa9:Bj6", "SearchGoal", 2, 31998},
    };
    for (const auto& R : Rows) {
        EngineGame Game(R.Rules, R.Position);
        const std::int32_t Score = SearchBy(*Game, R.Routine, R.Depth);
        if (R.Score == 1) {
            EXPECT_LT(std::abs(Score), 30000) << R.Fault;
        } else {
            EXPECT_EQ(R.Score, Score) << R.Fault;
        }
    }
}

TEST(Search, OptionsChangeWhatIsSearched) {
    // Ten moves that have led to trouble: a middle game with captures in all lines.
    constexpr const char* Middle = "W:Wa1,c1,e1,b2,d2,f2,c3,e3,g3,d4,f4:Bb8,d8,f8,h8,c7,e7,g7,d6,f6,h6,e9";
    const auto Nodes = [&](const std::function<void(EngineState&)>& Change, const char* Routine, int Depth) {
        EngineGame Game("TwoKings=1", Middle);
        Change(*Game);
        SearchBy(*Game, Routine, Depth);
        return Game->NodeCount;
    };
    const auto Same = [](EngineState&) {};
    const std::uint64_t Usual = Nodes(Same, "SearchPlain", 4);
    EXPECT_GT(Usual, Nodes([](EngineState& S) { S.ExtendedSearch = 0; }, "SearchPlain", 4)) << "extends_though_off";
    EXPECT_GT(Usual, Nodes([](EngineState& S) { S.Balance = 1; }, "SearchPlain", 4)) << "balance_not_read";
    EXPECT_LT(Usual, Nodes([](EngineState& S) { S.Plys = 6; }, "SearchPlain", 4)) << "depth_of_extensions_not_read";
    EXPECT_LT(Usual, Nodes([](EngineState& S) { S.BruteForce = 1; }, "SearchPlain", 4)) << "cuts_by_brute_force";
    EXPECT_EQ(Nodes(Same, "QuickSearchPlain", 4),
              Nodes([](EngineState& S) { S.BruteForce = 1; }, "QuickSearchPlain", 4))
        << "quick_one_knows_brute_force";
    EXPECT_EQ(1u, Nodes(Same, "SearchPlain", -5)) << "captures searched below their horizon";
    EXPECT_EQ(1u, Nodes(Same, "QuickSearchPlain", -1)) << "quick one searches captures";
}

TEST(Search, DepthAndAlphaGoBackToTheCaller) {
    EngineGame Game("TwoKings=1", "B:W:Bj8"); // the side to move has won, its enemy lost
    std::int32_t Alpha = WindowLow;
    std::int32_t Depth = 2;
    Game->Side = rules::White;
    Game->MaxSearchDepth = 5;
    FindSearchRoutine("SearchPlain")->Search(*Game, Alpha, WindowHigh, Depth);
    EXPECT_EQ(3, Depth) << "an extension is not seen by the caller";
    EngineGame Start("TwoKings=1");
    Alpha = WindowLow;
    Depth = 3;
    Start->MaxSearchDepth = 6;
    const std::int32_t Score = FindSearchRoutine("SearchPlain")->Search(*Start, Alpha, WindowHigh, Depth);
    EXPECT_EQ(Score, Alpha) << "a raised bound is not seen by the caller";
    // The quick dispatchers: the hard-wired routines take the caller's own depth, the generic one a copy.
    for (const auto& [Rules, After] : {std::pair{"", 3}, {"TwoKings=1", 2}}) {
        EngineGame Quick(Rules, "W:W:Bj8");
        Quick->MaxSearchDepth = 5;
        Depth = 2;
        std::int32_t Value = 0;
        QuickScoreDepth(*Quick, Depth, Value);
        EXPECT_EQ(After, Depth) << Rules;
    }
}

TEST(Search, QuickScoresLookSoManyPliesAhead) {
    for (const auto& [Rules, Plies] : {std::pair{"", 1}, {"TwoKings=1", 3}, {"PiecesOnBlack=2", 2}}) {
        EngineGame Game(Rules);
        Game->MaxSearchDepth = 3;
        std::int32_t Value = 0;
        QuickScore(*Game, Value);
        const std::uint64_t Nodes = Game->NodeCount;
        EngineGame Direct(Rules);
        Direct->MaxSearchDepth = 3;
        std::int32_t Alpha = WindowLow;
        std::int32_t Depth = Plies;
        EXPECT_EQ(-QuickRoutine(*Direct).Search(*Direct, Alpha, WindowHigh, Depth), Value) << Rules;
        EXPECT_EQ(Direct->NodeCount, Nodes) << Rules;
    }
}

TEST(Search, KillersAndMainLine) {
    EngineGame Game("", "W:Wc3,e3:Bj0");
    rules::GenerateGameMoves(*Game);
    auto& Table = Game->MainVariantTable;
    Table[1][1] = {99, 88, 0};
    Table[1][2] = {51, 64, 1};
    Table[1][3] = {0, 7, 0};
    Table[1][4] = {1, 2, 3};
    Table[0][4] = {8, 8, 8};
    UpdateMainVariant(*Game, FindMove(*Game, "c3-d4"));
    EXPECT_EQ((MainLineMove{Cell("c3"), Cell("d4"), 0}), Table[0][0]);
    EXPECT_EQ((MainLineMove{99, 88, 0}), Table[0][1]);
    EXPECT_EQ((MainLineMove{51, 64, 1}), Table[0][2]);
    EXPECT_EQ(0, Table[0][3].Source) << "the end of the line below is not copied";
    EXPECT_EQ(8, Table[0][4].Source) << "copied beyond the end of the line";
    constexpr std::tuple<const char*, const char*, int> Tags[] = {
        {"W:Wc3:Bd4", "c3xe5(d4)", 1}, {"W:Wa9:Bj8", "a9-b0K", 10}, {"W:Wb8:Bc9", "b8xd0(c9)K", 11}};
    for (const auto& [Position, Move, Tag] : Tags) {
        Lay(*Game, Position);
        rules::GenerateGameMoves(*Game);
        UpdateMainVariant(*Game, FindMove(*Game, Move));
        EXPECT_EQ(Tag, Table[0][0].Tag) << Move;
    }
    Game->Ply = rules::MaxPly; // the last ply has no line below it
    Game->MoveStack[0].Source = 77;
    UpdateMainVariant(*Game, 0);
    EXPECT_EQ(77, Table[rules::MaxPly][rules::MaxPly].Source);

    // Only a cut stores a killer, and it pushes the one before into the second place.
    EngineGame Cut("TwoKings=1", "W:Wc3,a1:Bd4,j0");
    SearchBy(*Cut, "SearchPlain", 2, -32000, -31000);
    EXPECT_EQ(Cell("c3"), Cut->Wanted[0].Killers[0].Source);
    Lay(*Cut, "W:Wc3,g3:Bh4,j0");
    Cut->Wanted[0].Killers[0] = {Cell("c3"), Cell("e5")};
    SearchBy(*Cut, "SearchPlain", 2, -32000, -31000);
    EXPECT_EQ((rules::MoveEnds{Cell("g3"), Cell("i5")}), Cut->Wanted[0].Killers[0]);
    EXPECT_EQ((rules::MoveEnds{Cell("c3"), Cell("e5")}), Cut->Wanted[0].Killers[1]);
    Lay(*Cut, "W:Wc3,a1:Bd4,j0");
    SearchBy(*Cut, "SearchPlain", 1);
    EXPECT_EQ(0, Cut->Wanted[0].Killers[0].Source) << "a move that only raises the bound is a killer";
}

TEST(Search, AThousandStopsLeaveTheExactRoot) {
    constexpr std::tuple<const char*, const char*, const char*> Rows[] = {
        {"", "", "SearchGerman"},
        {"", "W:WKc3,a1:Bd4,d6,f4,g7,Kj0", "SearchGerman"},
        {"KingMan=1|ManKing=1|ChangeSide=1|LongKings=0", "W:WKc3,b8,a1:Bd4,f4,f2,d2,g7,h2", "SearchPlain"},
        {"canContract=1|ContractNumber=3|ContractW1=2|ContractW2=3|ContractB1=11|ContractB2=10", "W:Wc5:Bd8",
         "SearchPlain"},
        {"AntiMode=1", "", "SearchAnti"},
    };
    for (const auto& [Rules, Position, Routine] : Rows) {
        EngineGame Game(Rules, Position);
        const auto Root = std::make_unique<EngineState>(*Game);
        for (int Stop = 1; Stop <= 200; ++Stop) {
            int Nodes = 0;
            Game.World.OnTurn = [&] {
                Game->CancelRequested = ++Nodes == Stop * 7 ? rules::StopRequest::Person : Game->CancelRequested;
            };
            SCOPED_TRACE(std::string(Routine) + " stopped at node " + std::to_string(Stop * 7));
            SearchBy(*Game, Routine, 7);
            Game->Board[0] = Root->Board[0]; // cell 0 belongs to nobody: crowning the last man leaves its mark there
            ASSERT_TRUE(SameRoot(*Root, *Game));
            ASSERT_EQ("", rules::CheckPosition(*Game));
            if (Game->NodeCount >= static_cast<std::uint64_t>(Stop) * 7) {
                ASSERT_EQ(1, Game->StopAutoPlay);
                ASSERT_EQ(rules::StopRequest::None, Game->CancelRequested);
            }
            Game->StopAutoPlay = 0;
        }
    }
}

TEST(Search, AStepEvaluatedBeforehandIsANodeLikeAnyOther) {
    // Where the rules in hand are not those that the evaluator keeps its sums for, every step is made and evaluated.
    constexpr const char* Middle = "W:Wa1,c1,e1,b2,d2,f2,c3,e3,g3,d4,f4:Bb8,d8,f8,h8,c7,e7,g7,d6,f6,h6,e9";
    const struct {
        const char *Rules, *Position, *Routine;
        void (*Option)(EngineState&);
    } Rows[] = {
        {"", Middle, "SearchGerman", [](EngineState&) {}},
        {"", Middle, "SearchGerman", [](EngineState& S) { S.ExtendedSearch = 2; }},
        {"", "", "SearchGerman", [](EngineState& S) { S.PatternTermEnabled = 1; }},
        {"", Middle, "QuickSearchGerman", [](EngineState&) {}},
        {"ManCapKing=0", Middle, "SearchPlain", [](EngineState&) {}},
        {"TwoKings=1", Middle, "SearchPlain", [](EngineState& S) { S.PatternTermEnabled = 1; }},
        {"TwoKings=1", Middle, "SearchPlain", [](EngineState& S) { S.BruteForce = 1; }},
        {"TwoKings=1", Middle, "SearchPlain", [](EngineState& S) { S.Noise = 40; }},
        {"TwoKings=1", "W:WKc3,a1,c1,b8:Bd8,b6,f4,g7,Kj0", "SearchPlain", [](EngineState&) {}},
        {"AntiMode=1", Middle, "SearchAnti", [](EngineState&) {}},
    };
    for (const auto& R : Rows) {
        for (int Stop = 1; Stop <= 30; ++Stop) {
            const auto Search = [&](EngineGame& Game) {
                R.Option(*Game);
                for (int Draw = 0; Draw < 4000; ++Draw) {
                    Game.World.Draws.push_back(Draw * 37 % 100 / 100.0);
                }
                std::uint64_t Nodes = 0;
                Game.World.OnTurn = [&] {
                    if (++Nodes == static_cast<std::uint64_t>(Stop) * 47) {
                        Game->CancelRequested = rules::StopRequest::Person;
                    }
                };
                return SearchBy(*Game, R.Routine, 4);
            };
            EngineGame Ahead(R.Rules, R.Position);
            EngineGame Behind(R.Rules, R.Position);
            Behind->SpecialRuleSet =
                Ahead->SpecialRuleSet == rules::KnownRules::None ? rules::KnownRules::German : rules::KnownRules::None;
            SCOPED_TRACE(std::string(R.Routine) + ' ' + R.Rules + " stopped at node " + std::to_string(Stop * 47));
            ASSERT_EQ(Search(Behind), Search(Ahead));
            ASSERT_EQ(Behind->NodeCount, Ahead->NodeCount);
            ASSERT_EQ(Behind->MainVariantTable[0], Ahead->MainVariantTable[0]);
            ASSERT_EQ(Behind.World.Draws.size(), Ahead.World.Draws.size());
        }
    }
}

TEST(Search, AFullStackStopsLikeTheUser) {
    EngineGame Game("TwoKings=1");
    const auto Root = std::make_unique<EngineState>(*Game);
    Game->StackLimit[0] = 980;
    SearchBy(*Game, "SearchPlain", 6);
    EXPECT_EQ(1, Game->StopAutoPlay);
    EXPECT_TRUE(SameRoot(*Root, *Game));
    EXPECT_LT(Game->NodeCount, 100u) << "goes on with a stack that overwrites itself";
    Game->StopAutoPlay = 1;
    EXPECT_EQ(0, SearchBy(*Game, "SearchPlain", 6)) << "an unwinding search looks on";
    EXPECT_EQ(1u, Game->NodeCount);
    // The quick family only stops where it would look deeper.
    Game->StackLimit[0] = 0;
    SearchBy(*Game, "QuickSearchPlain", 3);
    EXPECT_GT(Game->NodeCount, 100u) << "the quick one heeds a flag that is none of its own";
}

} // namespace
} // namespace zonterbrook::engine
