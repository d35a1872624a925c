// The record: what a new move replaces, what a cut leaves, and where it ends.
#include "game/game_record.h"

#include <gtest/gtest.h>

#include <memory>

namespace zonterbrook::game {
namespace {

HalfMove Numbered(int Number) {
    HalfMove Made;
    Made.Played.Record.Source = Number;
    return Made;
}

class Records : public testing::Test {
protected:
    std::unique_ptr<GameRecord> Owned = std::make_unique<GameRecord>();
    GameRecord& Record = *Owned;

    void Play(int HalfMoves) {
        for (int Number = 1; Number <= HalfMoves; ++Number) {
            Record.HalfMoves[Number].Comment = "before " + std::to_string(Number);
            Append(Record, Numbered(Number));
        }
    }
};

TEST_F(Records, ANewMoveReplacesTheTailButItsOwnComment) {
    Play(4);
    Record.HalfMoves[5].Comment = "what now?";
    Record.Cursor = 1;
    Append(Record, Numbered(77));
    EXPECT_EQ(2, Record.Count);
    EXPECT_EQ(2, Record.Cursor);
    EXPECT_EQ(77, Record.Last().Played.Record.Source);
    EXPECT_EQ("before 2", Record.Last().Comment) << "written for the second move, whichever it is";
    for (int Number = 3; Number <= 5; ++Number) {
        EXPECT_EQ("", Record.HalfMoves[Number].Comment);
        EXPECT_EQ(0, Record.HalfMoves[Number].Played.Record.Source);
    }
    EXPECT_FALSE(Record.MovesAhead());
}

TEST_F(Records, QuietHalfMovesAreCountedFromTheLastThatWasNot) {
    Play(3);
    EXPECT_EQ(4, QuietHalfMoves(Record)) << "one more than there are";
    Record.HalfMoves[2].Played.Record.Kind = 2;
    EXPECT_EQ(2, QuietHalfMoves(Record));
    Record.HalfMoves[3].Played.Record.Captures.Append(25, false);
    EXPECT_EQ(1, QuietHalfMoves(Record));
    Record.Cursor = 1;
    EXPECT_EQ(2, QuietHalfMoves(Record)) << "what lies ahead has not been made";
}

TEST_F(Records, HoldAThousandHalfMovesAndNoMore) {
    Play(rules::MaxGameMoves);
    EXPECT_TRUE(Record.IsFull());
    EXPECT_THROW(Append(Record, Numbered(1)), base::Fault);
    EXPECT_EQ(rules::MaxGameMoves, Record.Count);
}

} // namespace
} // namespace zonterbrook::game
