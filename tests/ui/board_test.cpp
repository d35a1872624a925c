// The board's widget by itself: where cells stand, what they look like, how the mouse is reported.
#include "support/rows.h"
#include "ui/artwork.h"
#include "ui/board_widget.h"
#include "view/layout.h"

#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace zonterbrook::tests {
namespace {

using ui::BoardWidget;
using view::Highlight;
using view::Picture;

// A board of cells without pieces, of one size and density.
class BoardOnly : public testing::Test {
protected:
    void Lay(int SizeClass, int TwipsPerPixel) {
        State.SizeClass = SizeClass;
        State.TwipsPerPixel = TwipsPerPixel;
        view::LayoutWindow(State);
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            State.Cells[Cell].Shows = (Cell + Cell / 10) % 2 == 0 ? Picture::light_square : Picture::dark_square;
        }
        Board.resize(620, 620);
        Board.PlaceBoard(State, TwipsPerPixel, 19);
        Board.Display(State);
    }
    void SetUp() override { Lay(2, 15); }

    QImage Painted(qreal Density = 1) {
        QImage Canvas(Board.size() * Density, QImage::Format_RGB32);
        Canvas.setDevicePixelRatio(Density);
        Canvas.fill(Qt::magenta);
        Board.render(&Canvas, QPoint(), QRegion(), QWidget::DrawChildren);
        return Canvas;
    }

    std::unique_ptr<view::ViewState> Owned = std::make_unique<view::ViewState>();
    view::ViewState& State = *Owned;
    BoardWidget Board;
};

TEST_F(BoardOnly, CellsStandWhereTheLayoutSays) {
    for (const auto& [SizeClass, Twips, Side, Left] :
         {std::array{0, 15, 38, 25}, {0, 12, 38, 32}, {2, 15, 54, 25}, {2, 12, 54, 32}}) {
        SCOPED_TRACE(testing::Message() << "size " << SizeClass << " at " << Twips);
        Lay(SizeClass, Twips);
        const QPoint First = Board.CellRect(0).topLeft();
        EXPECT_EQ(Left, First.x());
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            EXPECT_EQ(QRect(First + QPoint(Cell % 10, Cell / 10) * Side, QSize(Side, Side)), Board.CellRect(Cell));
        }
    }
}

// Without colour, too: a person who sees none has to tell a king from a man at a glance.
TEST(Pictures, TellPiecesApartInShadesOfGrey) {
    constexpr double AtAGlance = 6;
    ui::RegisterArt();
    ui::Artwork Art;
    for (const int Side : {38, 54, 108}) {
        std::vector<QImage> Shades;
        for (int Which = 0; Which < view::PictureCount; ++Which) {
            const QPixmap Drawn = Art.CellPicture(static_cast<Picture>(Which), QSize(Side, Side), 1);
            ASSERT_EQ(QSize(Side, Side), Drawn.size());
            Shades.push_back(Drawn.toImage().convertToFormat(QImage::Format_Grayscale8));
            for (std::size_t Other = 0; Other + 1 < Shades.size(); ++Other) {
                long Sum = 0;
                for (int At = 0; At < Side * Side; ++At) {
                    const QPoint Here(At % Side, At / Side);
                    Sum += std::abs(qGray(Shades.back().pixel(Here)) - qGray(Shades[Other].pixel(Here)));
                }
                EXPECT_GT(static_cast<double>(Sum) / (Side * Side), AtAGlance) << Which << " and " << Other;
            }
        }
    }
}

TEST_F(BoardOnly, NoSeamsAtAnyScale) {
    for (const int SizeClass : {0, 2}) {
        for (const double Density : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
            Lay(SizeClass, 15);
            const QImage Picture = Painted(Density);
            const QRect Area = Board.CellRect(0).united(Board.CellRect(99));
            int Gaps = 0;
            for (int Y = qCeil(Area.top() * Density); Y < qFloor((Area.bottom() + 1) * Density) - 1; ++Y) {
                for (int X = qCeil(Area.left() * Density); X < qFloor((Area.right() + 1) * Density) - 1; ++X) {
                    Gaps += Picture.pixel(X, Y) == QColor(Qt::magenta).rgb() ? 1 : 0;
                }
            }
            EXPECT_EQ(0, Gaps) << "size " << SizeClass << " at " << Density;
        }
    }
}

TEST_F(BoardOnly, ChangesAreRepainted) {
    class Watch : public QObject {
    public:
        QRegion Painted;
        bool eventFilter(QObject*, QEvent* Event) override {
            Painted += Event->type() == QEvent::Paint ? static_cast<QPaintEvent*>(Event)->region() : QRegion();
            return false;
        }
    } Seen;
    Board.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Board));
    QCoreApplication::processEvents();
    Board.installEventFilter(&Seen);
    const auto Expect = [&](const QRect& Area) {
        Seen.Painted = {};
        Board.Display(State);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QRegion(Area).subtracted(Seen.Painted).isEmpty(); }));
    };
    State.Cells[45].Box = Highlight::Dark;
    Expect(Board.CellRect(45));
    State.CursorCell = 7;
    Expect(Board.CellRect(7));
    State.CursorCell = -1;
    Expect(Board.CellRect(7));
    State.FrameShown = true;
    Expect(Board.rect());
}

TEST_F(BoardOnly, HighlightComesAndGoes) {
    const QImage Before = Painted();
    for (const auto& [Box, Colour] :
         {std::pair(Highlight::Dark, QColor(255, 255, 0)), std::pair(Highlight::Light, QColor(128, 128, 0))}) {
        State.Cells[45].Box = Box;
        Board.Display(State);
        const QImage Boxed = Painted();
        const QRect Area = Board.CellRect(45);
        EXPECT_EQ(Colour, Boxed.pixelColor(Area.left() + 1, Area.center().y()));
        EXPECT_EQ(Colour, Boxed.pixelColor(Area.center().x(), Area.top() + 1));
        EXPECT_EQ(Before.pixelColor(Area.center()), Boxed.pixelColor(Area.center()));
        EXPECT_EQ(Before.copy(Board.CellRect(46)), Boxed.copy(Board.CellRect(46)));
        State.Cells[45].Box = Highlight::None;
        Board.Display(State);
        EXPECT_EQ(Before, Painted());
    }
}

TEST_F(BoardOnly, NumberStandsWhereAPieceLeavesItReadable) {
    const QImage Before = Painted();
    State.Cells[1].Number = 1;
    Board.Display(State);
    const QRect Area = Board.CellRect(1);
    EXPECT_NE(Before.copy(Area), Painted().copy(Area));
    const QRect LowerRight(Area.center(), Area.bottomRight());
    EXPECT_EQ(Before.copy(LowerRight), Painted().copy(LowerRight));
}

TEST_F(BoardOnly, TheMouseIsReportedToThePressedCell) {
    // Where it goes, in pixels from the cell's upper left corner, and what is told of it in twips.
    const std::tuple<int, QPoint, QPoint> Rows[] = {{44, {10, 20}, {150, 300}},
                                                    {44, {60, 20}, {900, 300}},
                                                    {44, {-10, -1}, {-150, -15}},
                                                    {0, {-200, 2000}, {-3000, 30000}}};
    for (const auto& [Cell, Moved, Told] : Rows) {
        const QSignalSpy Pressed(&Board, &BoardWidget::CellPressed);
        const QSignalSpy Released(&Board, &BoardWidget::CellReleased);
        const QPoint Corner = Board.CellRect(Cell).topLeft();
        QTest::mousePress(&Board, Qt::LeftButton, {}, Corner + QPoint(3, 4));
        QTest::mouseRelease(&Board, Qt::LeftButton, {}, Corner + Moved);
        EXPECT_EQ((QList<QVariantList>{{Cell, 1}}), Pressed);
        EXPECT_EQ((QList<QVariantList>{{Cell, 1, Told.x(), Told.y()}}), Released);
    }
}

TEST_F(BoardOnly, PointerFollowsTheContents) {
    EXPECT_EQ(Qt::ArrowCursor, Board.cursor().shape());
    State.Cells[3].Pointer = Picture::white_man_ico;
    Board.Display(State);
    EXPECT_EQ(Qt::BitmapCursor, Board.cursor().shape());
    EXPECT_EQ(QPoint(27, 27), Board.cursor().hotSpot());
    State.Cells[3].Pointer = Picture::None;
    Board.Display(State);
    EXPECT_EQ(Qt::ArrowCursor, Board.cursor().shape());
}

} // namespace
} // namespace zonterbrook::tests
