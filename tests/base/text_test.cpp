// Lines, numbers and letter case as every file of the program is read. Each row is named by the fault it would catch.
#include "base/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace zonterbrook::base {
namespace {

TEST(Text, NumbersAreReadLeniently) {
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    const struct {
        const char *Fault, *Text;
        std::int64_t Value;
    } Rows[] = {
        {"empty_text_read_beyond_its_end", "", 0},
        {"leading_blanks_refused", "  \t7", 7},
        {"rest_behind_the_digits_refused", "12 men", 12},
        {"sign_lost", "-1", -1},
        {"plus_refused", "+5", 5},
        {"sign_alone_is_a_number", "-", 0},
        {"two_signs_taken_for_one", "--5", 0},
        {"blank_between_sign_and_digits_skipped", "- 5", 0},
        {"blanks_between_digits_end_the_number", "1 2\t3 x4", 123},
        {"hexadecimal_prefix_understood", "0x10", 0},
        {"leading_zeros_read_as_octal", "010", 10},
        {"largest_number_lost", "9223372036854775807", Most},
        {"too_large_wraps", "9223372036854775808", Most},
        {"too_small_wraps", "-99999999999999999999", -Most},
    };
    for (const auto& R : Rows) {
        EXPECT_EQ(R.Value, LenientNumber(R.Text)) << R.Fault;
    }
    // A text need not end where its memory does.
    EXPECT_EQ(1, LenientNumber(std::string_view("123").substr(0, 1))) << "digits_behind_the_view_read";
}

TEST(Text, LinesEndInThreeWays) {
    const struct {
        const char *Fault, *Text;
        std::vector<std::string> Lines;
    } Rows[] = {
        {"empty_text_has_a_line", "", {}},
        {"last_line_without_end_lost", "a\nb", {"a", "b"}},
        {"empty_rest_counted", "a\nb\n", {"a", "b"}},
        {"crlf_counted_twice", "a\r\nb\r\n", {"a", "b"}},
        {"old_line_end_unknown", "a\rb", {"a", "b"}},
        {"empty_line_lost", "a\n\nb", {"a", "", "b"}},
        {"empty_crlf_line_lost", "a\r\n\r\nb", {"a", "", "b"}},
        {"lfcr_taken_for_one_end", "a\n\rb", {"a", "", "b"}},
        {"mixed_ends", "a\rb\nc\r\nd", {"a", "b", "c", "d"}},
    };
    for (const auto& R : Rows) {
        EXPECT_EQ(R.Lines, SplitLines(R.Text)) << R.Fault;
    }
}

TEST(Text, BytesAreUtf8OrLatin1) {
    const struct {
        const char* Fault;
        std::string Bytes, Text;
    } Rows[] = {
        {"two_bytes_taken_for_latin1", "Jeu de dames \xC3\xA9", "Jeu de dames \xC3\xA9"},
        {"three_bytes_taken_for_latin1", "\xE2\x82\xAC", "\xE2\x82\xAC"},
        {"four_bytes_taken_for_latin1", "\xF0\x9F\x99\x82", "\xF0\x9F\x99\x82"},
        {"byte_order_mark_kept", "\xEF\xBB\xBFx", "x"},
        {"latin1_not_converted", "caf\xE9", "caf\xC3\xA9"},
        {"high_latin1_bit_lost", "\xFF\x80", "\xC3\xBF\xC2\x80"},
        {"cut_sequence_accepted", "a\xE2\x82", "a\xC3\xA2\xC2\x82"},
        {"overlong_form_accepted", "\xC0\xAF", "\xC3\x80\xC2\xAF"},
        {"overlong_three_bytes_accepted", "\xE0\x80\xAF", "\xC3\xA0\xC2\x80\xC2\xAF"},
        {"surrogate_accepted", "\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"},
        {"beyond_unicode_accepted", "\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"},
        {"lone_continuation_accepted", "\x80", "\xC2\x80"},
    };
    for (const auto& R : Rows) {
        EXPECT_EQ(R.Text, DecodeText(R.Bytes)) << R.Fault;
    }
}

TEST(Text, CaseBlanksAndWidth) {
    EXPECT_EQ("az09@[`{\xC9", ToLower("AZ09@[`{\xC9")) << "signs_beside_the_letters_or_other_bytes_changed";
    EXPECT_EQ("AZ09@[`{\xE9", ToUpper("az09@[`{\xE9")) << "signs_beside_the_letters_or_other_bytes_changed";
    EXPECT_EQ("a b", Trim(" \ta b\t ")) << "inner_blank_lost_or_tab_kept";
    EXPECT_EQ("", Trim(" \t ")) << "blanks_alone";
    EXPECT_EQ("  7", PadLeft("7", 3)) << "aligned_to_the_left";
    EXPECT_EQ("1234", PadLeft("1234", 3)) << "longer_text_cut";
}

} // namespace
} // namespace zonterbrook::base
