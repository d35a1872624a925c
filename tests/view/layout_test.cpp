// The layout's tables: figures that the window must have, and what must hold of all of them.
#include "support/rows.h"
#include "support/view_fixture.h"
#include "view/draw_board.h"
#include "view/layout.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace zonterbrook::view {
namespace {

class Layouts : public tests::ViewFixture {
protected:
    void LayOut(std::int32_t SizeClass, std::int32_t CustomSize, std::int32_t Twips) {
        State.SizeClass = SizeClass;
        State.BoardCustomSize = CustomSize;
        State.TwipsPerPixel = Twips;
        LayoutWindow(State);
    }
    Rectangle PlaceOf(Control Which) const { return State.Layout.PlaceOf(Which); }
};

struct BoardCase {
    const char* Name;
    std::int32_t SizeClass, CustomSize, Twips;
    std::int32_t CellSize, Pitch, DragPitch, BoxEnd, LastCellLeft, PixelsOfCell;
};

using BoardFigures = tests::RowsOf<Layouts, BoardCase>;

TEST_P(BoardFigures, AreThoseOfTheSize) {
    const BoardCase& Row = GetParam();
    LayOut(Row.SizeClass, Row.CustomSize, Row.Twips);
    EXPECT_EQ(Row.CellSize, State.Layout.CellSize);
    EXPECT_EQ(Row.Pitch, State.Layout.Pitch);
    EXPECT_EQ(Row.DragPitch, State.Layout.DragPitch);
    EXPECT_EQ((Rectangle{16, 16, Row.BoxEnd - 16, Row.BoxEnd - 16}), State.Layout.Box);
    EXPECT_EQ(Row.LastCellLeft, State.Layout.BoardLeft + 9 * State.Layout.Pitch);
    EXPECT_EQ(Row.PixelsOfCell, (State.Layout.CellSize + Row.Twips / 2) / Row.Twips);
}

constexpr BoardCase BoardRows[] = {{"small", 0, -1, 15, 568, 570, 568, 544, 5504, 38},
                                   {"small_dense", 0, -1, 12, 458, 456, 458, 434, 4488, 38},
                                   {"medium", 2, -1, 15, 808, 811, 808, 784, 7672, 54},
                                   {"medium_dense_drags_by_more", 2, -1, 12, 648, 648, 653, 629, 6216, 54},
                                   {"skin_of_small_pictures", 4, 0, 15, 568, 570, 568, 544, 5504, 38},
                                   {"skin_of_medium_pictures", 4, 2, 12, 648, 648, 653, 629, 6216, 54},
                                   {"skin_without_size", 4, -1, 15, 568, 570, 2488, 544, 5504, 38},
                                   {"skin_without_size_dense", 4, -1, 12, 458, 456, 458, 434, 4488, 38}};
INSTANTIATE_TEST_SUITE_P(Rows, BoardFigures, testing::ValuesIn(BoardRows), tests::RowName);

TEST_F(Layouts, SmallBoardOfTheUsualDensityPushesTheListsAside) {
    LayOut(0, -1, 12);
    const Rectangle Dense = PlaceOf(Control::ChoiceList);
    EXPECT_EQ(7560, Dense.Left);
    EXPECT_EQ(1320, Dense.Top);
    LayOut(0, -1, 15);
    EXPECT_EQ(Dense.Left + 1130, PlaceOf(Control::ChoiceList).Left);
    EXPECT_EQ(1400, PlaceOf(Control::ChoiceList).Top);
    EXPECT_EQ(240, PlaceOf(Control::Calculation).Left) << "what stands below the board stays";
}

bool Overlap(const Rectangle& A, const Rectangle& B) {
    return A.Left < B.Left + B.Width && B.Left < A.Left + A.Width && A.Top < B.Top + B.Height &&
           B.Top < A.Top + A.Height;
}

class Room : public Layouts, public testing::WithParamInterface<std::tuple<int, int, int>> {};

TEST_P(Room, NothingOverlapsAndNothingSticksOut) {
    const auto [SizeClass, Twips, ExtraPieces] = GetParam();
    State.RuleSet.canContract = static_cast<std::uint8_t>(ExtraPieces);
    LayOut(SizeClass, -1, Twips);
    DrawEdges(State);
    std::vector<Rectangle> Places;
    for (int Which = 0; Which < ControlCount; ++Which) {
        const bool OfExtraPieces =
            Which >= static_cast<int>(Control::ExtraHeading) && Which <= static_cast<int>(Control::ExtraWhiteCount);
        if (ExtraPieces != 0 || !OfExtraPieces) {
            Places.push_back(State.Layout.Places[Which]);
        }
    }
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
}

INSTANTIATE_TEST_SUITE_P(Rows, Room,
                         testing::Combine(testing::Values(0, 2), testing::Values(12, 15), testing::Values(0, 1)));

TEST_F(Layouts, ExtraPiecesAreShownByTheRuleAlone) {
    LayOut(2, -1, 15);
    EXPECT_FALSE(State.ExtraHeading.Visible);
    const Rectangle Whole = PlaceOf(Control::CommentBox);
    State.RuleSet.canContract = 1;
    LayoutWindow(State);
    EXPECT_TRUE(State.ExtraWhiteCount.Visible);
    EXPECT_EQ("Extra Pieces:", State.ExtraHeading.Text);
    const Rectangle Shrunk = PlaceOf(Control::CommentBox);
    EXPECT_LT(Shrunk.Height, Whole.Height);
    EXPECT_EQ(Whole.Top + Whole.Height, Shrunk.Top + Shrunk.Height);
    State.RuleSet.canContract = 0;
    LayoutWindow(State);
    EXPECT_FALSE(State.ExtraWhiteCount.Visible);
    EXPECT_EQ(Whole, PlaceOf(Control::CommentBox));
}

} // namespace
} // namespace zonterbrook::view
