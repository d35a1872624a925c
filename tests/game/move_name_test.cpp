// The text of a move in every notation. Rows are named by the fault they would catch.
#include "game/move_name.h"
#include "support/position_text.h"

namespace zonterbrook::game {
namespace {

TEST(MoveNames, TellEndsKindAndPromotion) {
    using enum rules::Notation;
    const int C3 = rules::AlgebraicCell("C3");
    const int B0 = rules::AlgebraicCell("B0");
    const int A9 = rules::AlgebraicCell("A9");
    const struct {
        const char* Fault;
        rules::Notation Names;
        char CaptureChar;
        NamedMove Move;
        const char* Name;
    } Rows[] = {{"plain", Algebraic, 'x', {C3, A9, false, false}, "c3-a9"},
                {"capture_by_its_sign", Algebraic, ':', {C3, A9, true, false}, "c3:a9"},
                {"promotion_not_marked", Algebraic, 'x', {A9, B0, true, true}, "a9xb0K"},
                {"numbers_padded", Numeric, 'x', {A9, B0, false, true}, "6-1K"},
                {"no_number_without_notation", None, 'x', {A9, B0, false, false}, "6-1"},
                {"entry_has_a_source", Algebraic, 'x', {rules::FromHand, C3, false, false}, "c3"}};
    for (const auto& R : Rows) {
        EXPECT_EQ(R.Name, MoveName(R.Names, R.CaptureChar, R.Move)) << R.Fault;
    }
}

} // namespace
} // namespace zonterbrook::game
