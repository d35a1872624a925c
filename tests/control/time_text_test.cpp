// Durations as text, plain and in words.
#include "control/time_text.h"

#include <gtest/gtest.h>

namespace zonterbrook::control {
namespace {

struct TimeCase {
    const char* Name;
    double Seconds;
    const char* Plain;
    const char* Words;
};

class Durations : public testing::TestWithParam<TimeCase> {};

TEST_P(Durations, AsText) {
    EXPECT_EQ(GetParam().Plain, TimeString(GetParam().Seconds, false));
    EXPECT_EQ(GetParam().Words, TimeString(GetParam().Seconds, true));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Durations,
    testing::Values(TimeCase{"nothing", 0, "00:00.00", "0 seconds"}, TimeCase{"one_second", 1, "00:00.01", "1 second"},
                    TimeCase{"rounds_down", 5.4, "00:00.05", "5 seconds"},
                    TimeCase{"rounds_up", 5.5, "00:00.06", "6 seconds"},
                    TimeCase{"seconds_carry", 59.6, "00:01.00", "1 minute and 0 seconds"},
                    TimeCase{"one_minute", 61, "00:01.01", "1 minute and 1 second"},
                    TimeCase{"minutes", 605, "00:10.05", "10 minutes and 5 seconds"},
                    TimeCase{"minutes_carry", 3599.5, "01:00.00", "1 hour, 0 minutes, and 0 seconds"},
                    TimeCase{"one_hour", 3661, "01:01.01", "1 hour, 1 minute, and 1 second"},
                    TimeCase{"hours", 7322, "02:02.02", "2 hours, 2 minutes, and 2 seconds"},
                    TimeCase{"many_hours", 360000, "100:00.00", "100 hours, 0 minutes, and 0 seconds"}),
    [](const auto& Info) { return Info.param.Name; });

} // namespace
} // namespace zonterbrook::control
