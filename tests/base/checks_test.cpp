// What is never lost in silence: indices, widths, lengths. Each row is named by the fault it would catch.
#include "base/checked_array.h"
#include "base/checked_number.h"
#include "base/fixed_text.h"
#include "base/outside_world.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

namespace zonterbrook::base {
namespace {

/// What the fault says, or nothing if there was none.
template <typename Routine>
std::string FaultOf(Routine&& Work) {
    try {
        Work();
    } catch (const Fault& Caught) {
        return Caught.what();
    }
    return "";
}

TEST(CheckedArray, FaultsOutsideItsBoundsOnly) {
    CheckedArray<int, 3> Array{{1, 2, 3}};
    const struct {
        const char* Fault;
        std::int64_t Index;
        int Value; ///< -1: must fault
    } Rows[] = {
        {"first_refused", 0, 1},
        {"one_past_the_end_read", 3, -1},
        {"negative_read", -1, -1},
        {"most_negative_read", std::numeric_limits<std::int64_t>::min(), -1},
        {"low_half_of_a_wide_index_read", std::int64_t{1} << 32, -1},
        {"wide_index_cut_to_32_bits", (std::int64_t{1} << 32) + 1, -1},
    };
    for (const auto& R : Rows) {
        const CheckedArray<int, 3>& Constant = Array;
        const std::string Text = FaultOf([&] { EXPECT_EQ(R.Value, Array[R.Index]) << R.Fault; });
        EXPECT_EQ(R.Value == -1, !Text.empty()) << R.Fault;
        EXPECT_EQ(Text, FaultOf([&] { EXPECT_EQ(R.Value, Constant[R.Index]) << R.Fault; })) << R.Fault;
        if (R.Value == -1) {
            EXPECT_EQ("index " + std::to_string(R.Index) + " outside an array of 3", Text) << R.Fault;
        }
    }
    EXPECT_NE("", FaultOf([&] { Array[std::int8_t{-1}] = 0; })) << "small_negative_index_turned_into_255";
    EXPECT_NE("", FaultOf([&] { Array[std::uint8_t{255}] = 0; })) << "small_unsigned_index_taken_for_negative";
}

TEST(Narrow, KeepsWhatFitsAndFaultsElse) {
    EXPECT_EQ(255, Narrow<std::uint8_t>(255));
    EXPECT_EQ(0, Narrow<std::uint8_t>(0));
    EXPECT_EQ(-32768, Narrow<std::int16_t>(-32768));
    EXPECT_EQ("value 256 does not fit its field", FaultOf([] { Narrow<std::uint8_t>(256); })) << "wraps_to_0";
    EXPECT_NE("", FaultOf([] { Narrow<std::uint8_t>(-1); })) << "wraps_to_255";
    EXPECT_NE("", FaultOf([] { Narrow<std::int32_t>(std::int64_t{1} << 31); })) << "changes_its_sign";
    EXPECT_NE("", FaultOf([] { Narrow<std::int32_t>(std::uint64_t{1} << 63); })) << "unsigned_taken_for_negative";
}

TEST(FixedText, IsNeverCutAndLeavesNoRest) {
    FixedText<4> Text{};
    EXPECT_TRUE(Text.Empty());
    Text.Assign("abcd");
    EXPECT_EQ("abcd", Text.View()) << "full_length_refused";
    EXPECT_NE("", FaultOf([&] { Text.Assign("abcde"); })) << "cut_in_silence";
    EXPECT_EQ("abcd", Text.View()) << "refused_text_stored_in_part";
    EXPECT_NE("", FaultOf([&] { Text.Append("e"); })) << "appended_beyond_the_end";
    Text.Assign("x");
    const FixedText<4> Fresh = MakeFixedText<4>("x");
    EXPECT_EQ(0, std::memcmp(&Text, &Fresh, sizeof Text)) << "old_tail_left_where_states_are_compared_as_memory";
    Text.Append("yz");
    EXPECT_EQ("xyz", Text.View()) << "appended_at_the_wrong_place";
    EXPECT_FALSE(Text == Fresh) << "compared_by_the_shorter_length";
    Text.Clear();
    EXPECT_TRUE(Text == "") << "cleared_text_keeps_its_length";
}

class CountingWorld final : public OutsideWorld {
public:
    int Turns = 0;
    double Seconds() override { return 0; }
    double Random() override { return 0; }

protected:
    void TakeTurn() override { ++Turns; }
};

TEST(OutsideWorld, TakesATurnEachThousandNodes) {
    CountingWorld World;
    for (int Node = 1; Node <= 5 * 1024; ++Node) {
        World.Yield();
        EXPECT_EQ(Node / 1024, World.Turns) << "window_starved_or_asked_at_every_node, node " << Node;
    }
}

} // namespace
} // namespace zonterbrook::base
