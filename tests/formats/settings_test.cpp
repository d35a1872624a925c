// The settings file, line by line as other programs know it, and the rating's characters.
#include "base/fault.h"
#include "base/text.h"
#include "formats/settings.h"

#include <gtest/gtest.h>

namespace zonterbrook::formats {
namespace {

// The whole file of a first start.
constexpr std::string_view Defaults =
    "QUAVERMILL0.89| 0 | 1 | 2 | 0 | 1 | 1 | 1 | 1 | 0 |International Checkers| 1 | 0 | 0 | 2 | 0 | 1 | 0 | 1 | 0 "
    "|Player| 0 | 1 | 0 | 1 | 1 | 1 | 0 | 1 |B0D0F0H0J0|A1C1E1G1I1|NW;NE NW;NE;SE;SW|NW;NE NW;NE;SE;SW|"
    "NW;NE;SE;SW NW;NE;SE;SW|NW;NE;SE;SW NW;NE;SE;SW| 0 | 1 | 1 | 0 | 0 | 0 | 0 | 0 | 0 | 1 | 3 | 150 | 1 | 0 | 0 | 1 "
    "| 2 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 | 0 |Classic Medium| 0 | 0 | 0 | 0 | 0 | 0 | 5 | 1 | 0 | 0 | 0 | 0 | "
    "0 "
    "| 0 | 0 | 0 | 0 | 0 | 0 | 0 |";

std::string Lines(std::string_view Text) {
    std::string File;
    for (const char C : Text) {
        File += C == '|' ? std::string("\r\n") : std::string(1, C);
    }
    return File;
}

/// The file of a first start with another text in one row, counted from 1.
std::string WithRow(std::size_t Row, std::string_view Text) {
    std::vector<std::string> All = base::SplitLines(Lines(Defaults));
    All.at(Row) = Text;
    std::string File;
    for (const std::string& Line : All) {
        File += Line + "\n";
    }
    return File;
}

TEST(Settings, OfAFirstStart) {
    EXPECT_EQ(Lines(Defaults), WriteSettings({}));
    EXPECT_TRUE(Settings{} == ReadSettings(Lines(Defaults)));
}

// Each row changed alone comes back, and comes back to the same row.
TEST(Settings, EveryRowComesBack) {
    for (std::size_t Row = 1; Row <= SettingsRows; ++Row) {
        const bool Name = Row == 10 || Row == 20 || Row == 63;
        const bool Squares = Row == 29 || Row == 30;
        const bool Steps = Row >= 31 && Row <= 34;
        const std::string Value = Name ? "Any text" : Squares ? "C1E1" : Steps ? "N S" : " 7 ";
        const auto Read = ReadSettings(WithRow(Row, Value));
        ASSERT_TRUE(Read) << Row;
        EXPECT_FALSE(Settings{} == *Read) << Row;
        EXPECT_EQ(Value, base::SplitLines(WriteSettings(*Read)).at(Row));
    }
}

TEST(Settings, WhatIsTakenAndWhatIsNot) {
    EXPECT_FALSE(ReadSettings(""));
    EXPECT_FALSE(ReadSettings(WithRow(0, "QUAVERMILL0.90")));
    EXPECT_FALSE(ReadSettings(Lines(Defaults.substr(0, Defaults.size() - 4)))) << "a line short";
    EXPECT_EQ("Jan", ReadSettings(WithRow(20, " Jan, the other"))->PlayerName) << "ends at a comma";
    EXPECT_EQ("A, B", ReadSettings(WithRow(10, "A, B"))->VariantName) << "a whole line";
    EXPECT_EQ(0, ReadSettings(WithRow(1, " 2 "))->PlayMode);
    EXPECT_EQ(2, ReadSettings(WithRow(3, " 0 "))->SearchDepth);
    EXPECT_EQ(0, ReadSettings(WithRow(14, "x"))->TimeLimit);
    EXPECT_EQ(-12, ReadSettings(WithRow(14, "-1 2x"))->TimeLimit);
    EXPECT_EQ("-12 ", base::SplitLines(WriteSettings(*ReadSettings(WithRow(14, "-12")))).at(14));
    for (const auto& [Row, Text] : {std::pair{2U, "256"}, {14U, "32768"}, {5U, "2147483648"}, {6U, "-1"}}) {
        EXPECT_THROW(ReadSettings(WithRow(Row, Text)), base::Fault) << Row;
    }
}

TEST(Rating, IsWrittenInItsOwnCharacters) {
    EXPECT_EQ("QZCC", EncodeRatingText(RatingDigits, "1200"));
    EXPECT_EQ("1200", DecodeRatingText(RatingDigits, "QZCC"));
    EXPECT_EQ("9/0", DecodeRatingText(RatingDigits, "AxC"));
}

} // namespace
} // namespace zonterbrook::formats
