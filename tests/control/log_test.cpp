// The running log: its heading, and that every line stands under it.
#include "control/computer_move.h"
#include "support/game_fixture.h"
#include "support/quiet_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zonterbrook::tests {
namespace {

using view::CommandId;

class RunningLog : public GameFixture {
protected:
    QuietWorld Quiet;

    void SetUp() override {
        GameFixture::SetUp();
        State.World = &Quiet;
        World.Log.clear();
    }

    std::vector<std::string> Lines() const { return base::SplitLines(World.Log); }
};

constexpr const char* Heading = "      moves    score   depth    main";

TEST_F(RunningLog, AGameBeginsWithItsHeading) {
    BetweenPersons();
    Drag("d4", "e5");
    Drag("c7", "d6");
    const auto Log = Lines();
    ASSERT_EQ(6U, Log.size()) << World.Log;
    EXPECT_EQ("", Log[0]);
    EXPECT_EQ("International Checkers", Log[1]);
    EXPECT_EQ("White   Black", Log[2]);
    EXPECT_EQ(Heading, Log[3]);
    EXPECT_EQ("   1. d4-e5   ", Log[4].substr(0, 14));
    EXPECT_EQ("      c7-d6   ", Log[5].substr(0, 14));
}

TEST_F(RunningLog, TheHeadingSaysWhoBegan) {
    BetweenPersons();
    Lay("w c3, b d8", rules::Black);
    Type("d8e7");
    EXPECT_EQ("Black   White", Lines().at(2));
}

TEST_F(RunningLog, EveryColumnStandsUnderItsHeading) {
    State.SearchDepth = 3;
    control::RunCommand(State, CommandId::Compute);
    const auto Log = Lines();
    ASSERT_EQ(8U, Log.size()) << World.Log;
    const std::string& Line = Log[4];
    const std::string Score = std::to_string(State.MoveScores[1]);
    const std::size_t ScoreEnd = std::string(Heading).find("score") + 5;
    const std::size_t DepthEnd = std::string(Heading).find("depth") + 5;
    const std::size_t Main = std::string(Heading).find("main");
    EXPECT_EQ(Score, Line.substr(ScoreEnd - Score.size(), Score.size())) << Line;
    EXPECT_EQ(" 3    ", Line.substr(DepthEnd - 2, 6)) << Line;
    EXPECT_EQ(State.List1.Lines[0].substr(6), Line.substr(Main, 5)) << Line;
    for (int Iteration = 1; Iteration <= 3; ++Iteration) {
        const std::string& Search = Log[static_cast<std::size_t>(4 + Iteration)];
        EXPECT_EQ("               D: " + std::to_string(Iteration) + "   B: ", Search.substr(0, 25)) << Search;
        EXPECT_NE(std::string::npos, Search.find("   S: ")) << Search;
        EXPECT_NE(std::string::npos, Search.find("   M: ")) << Search;
        EXPECT_EQ("  T: 00:00.00", Search.substr(Search.size() - 13)) << Search;
    }
}

TEST_F(RunningLog, AMarkedMoveKeepsTheColumns) {
    BetweenPersons();
    Lay("w c9, w a1, b a9, b i9");
    World.Log.clear();
    Type("c9d0");
    const std::string Line = Lines().at(4);
    const std::string Score = std::to_string(State.MoveScores[1]);
    EXPECT_EQ("   1. c9-d0K", Line.substr(0, 12));
    EXPECT_EQ(20U, Line.size()) << Line;
    EXPECT_EQ(Score, Line.substr(20 - Score.size()));
}

TEST_F(RunningLog, WithoutALogTheGameGoesOn) {
    State.LogOpen = 0;
    World.LogIsOpen = false;
    control::RunCommand(State, CommandId::Compute);
    EXPECT_EQ(1, State.GameMoves);
    EXPECT_EQ("", World.Log);
}

} // namespace
} // namespace zonterbrook::tests
