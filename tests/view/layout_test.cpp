// The layout: figures that the window must have, and what must hold of all of them.
#include "support/view_fixture.h"
#include "view/draw_board.h"
#include "view/layout.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace zonterbrook::view {
namespace {

class Layouts : public tests::ViewFixture, public testing::WithParamInterface<std::tuple<int, int, int>> {
protected:
    void LayOut(std::int32_t SizeClass, std::int32_t CustomSize, std::int32_t Twips) {
        State.SizeClass = SizeClass;
        State.BoardCustomSize = CustomSize;
        State.TwipsPerPixel = Twips;
        LayoutWindow(State);
    }
};

TEST_F(Layouts, TheBoardIsSmallOrMediumAndDraggedByAPitchOfItsOwn) {
    const struct {
        const char* Fault;
        std::int32_t SizeClass, CustomSize, Twips, Pitch, DragPitch;
    } Rows[] = {{"small", 0, -1, 15, 570, 568},
                {"medium_dense_drags_by_more", 2, -1, 12, 648, 653},
                {"skin_of_small_pictures", 4, 0, 15, 570, 568},
                {"skin_of_medium_pictures", 4, 2, 12, 648, 653},
                {"skin_without_size", 4, -1, 15, 570, 2488},
                {"skin_without_size_dense", 4, -1, 12, 456, 458}};
    for (const auto& Row : Rows) {
        LayOut(Row.SizeClass, Row.CustomSize, Row.Twips);
        EXPECT_EQ(Row.Pitch, State.Layout.Pitch) << Row.Fault;
        EXPECT_EQ(Row.DragPitch, State.Layout.DragPitch) << Row.Fault;
    }
}

bool Overlap(const Rectangle& A, const Rectangle& B) {
    return A.Left < B.Left + B.Width && B.Left < A.Left + A.Width && A.Top < B.Top + B.Height &&
           B.Top < A.Top + A.Height;
}

TEST_P(Layouts, NothingOverlapsAndNothingSticksOut) {
    const auto [SizeClass, Twips, ExtraPieces] = GetParam();
    State.RuleSet.canContract = 1;
    LayOut(SizeClass, -1, Twips);
    const Rectangle Shrunk = State.Layout.PlaceOf(Control::CommentBox);
    State.RuleSet.canContract = static_cast<std::uint8_t>(ExtraPieces);
    LayoutWindow(State);
    DrawEdges(State);
    std::vector<Rectangle> Places;
    for (int Which = 0; Which < ControlCount; ++Which) {
        const bool Label = Which < static_cast<int>(std::size(Labels));
        const bool Shown = !Label || (State.*Labels[Which]).Visible;
        EXPECT_TRUE(Shown || ExtraPieces == 0);
        if (Shown) {
            Places.push_back(State.Layout.Places[Which]);
        }
    }
    EXPECT_EQ(ExtraPieces != 0 ? 20U : 15U, Places.size());
    EXPECT_EQ(ExtraPieces != 0, Shrunk == State.Layout.PlaceOf(Control::CommentBox)) << "gives its upper part up";
    for (const Rectangle& Place : Places) {
        SCOPED_TRACE(testing::Message() << "at " << Place.Left << ", " << Place.Top);
        EXPECT_TRUE(Place.Width > 0 && Place.Height > 0);
        EXPECT_LE(Place.Left + Place.Width, State.Layout.Width);
        EXPECT_LE(Place.Top + Place.Height, State.Layout.Height);
        EXPECT_FALSE(Overlap(Place, State.BoardFrame)) << "on the board";
        for (const EdgeLabel& Label : State.EdgeLabels) {
            EXPECT_FALSE(Overlap(Place, {Label.X, Label.Y, 120, 220})) << "on " << Label.Text;
        }
        for (const Rectangle& Other : Places) {
            EXPECT_TRUE(&Other == &Place || !Overlap(Place, Other)) << "on " << Other.Left << ", " << Other.Top;
        }
    }
    // The frame holds the cells, within half a pixel: twips do not always make whole ones.
    EXPECT_LT(State.BoardFrame.Left, State.Layout.BoardLeft);
    EXPECT_NEAR(State.Layout.BoardLeft + 9 * State.Layout.Pitch + State.Layout.CellSize,
                State.BoardFrame.Left + State.BoardFrame.Width, Twips / 2);
}

INSTANTIATE_TEST_SUITE_P(Rows, Layouts,
                         testing::Combine(testing::Values(0, 2), testing::Values(12, 15), testing::Values(0, 1)));

} // namespace
} // namespace zonterbrook::view
