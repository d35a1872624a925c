// The board's widget by itself: where cells stand, what they look like, how the mouse is reported.
#include "board_test.h"

#include "ui/artwork.h"
#include "ui/board_widget.h"
#include "view/layout.h"

#include <QSignalSpy>
#include <QTest>

#include <cstdlib>
#include <memory>

namespace zonterbrook::tests {

namespace {

using ui::BoardWidget;
using view::Highlight;
using view::Picture;

constexpr int Raised = 19;

// A state with nothing in it but the layout of one size and density.
std::unique_ptr<view::ViewState> Laid(int SizeClass, int TwipsPerPixel) {
    auto State = std::make_unique<view::ViewState>();
    State->SizeClass = SizeClass;
    State->TwipsPerPixel = TwipsPerPixel;
    view::LayoutWindow(*State);
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        State->Cells[Cell].Shows = (Cell + Cell / 10) % 2 == 0 ? Picture::light_square : Picture::dark_square;
    }
    return State;
}

void Prepare(BoardWidget& Board, const view::ViewState& State) {
    Board.resize(620, 620);
    Board.PlaceBoard(State, State.TwipsPerPixel, Raised);
    Board.Display(State);
}

QImage Painted(BoardWidget& Board, qreal Density = 1, QColor Ground = Qt::magenta) {
    QImage Canvas(Board.size() * Density, QImage::Format_RGB32);
    Canvas.setDevicePixelRatio(Density);
    Canvas.fill(Ground);
    Board.render(&Canvas, QPoint(), QRegion(), QWidget::DrawChildren);
    return Canvas;
}

// Mean difference of two pictures in shades of grey, 0 to 255.
double GreyDifference(const QPixmap& A, const QPixmap& B) {
    const QImage Left = A.toImage().convertToFormat(QImage::Format_Grayscale8);
    const QImage Right = B.toImage().convertToFormat(QImage::Format_Grayscale8);
    long Sum = 0;
    for (int Y = 0; Y < Left.height(); ++Y) {
        for (int X = 0; X < Left.width(); ++X) {
            Sum += std::abs(qGray(Left.pixel(X, Y)) - qGray(Right.pixel(X, Y)));
        }
    }
    return static_cast<double>(Sum) / (Left.width() * Left.height());
}

} // namespace

void BoardTest::CellsStandWhereTheLayoutSays_data() {
    QTest::addColumn<int>("SizeClass");
    QTest::addColumn<int>("Twips");
    QTest::addColumn<int>("Side");
    QTest::addColumn<int>("Left");
    QTest::newRow("small") << 0 << 15 << 38 << 25;
    QTest::newRow("small, dense") << 0 << 12 << 38 << 32;
    QTest::newRow("medium") << 2 << 15 << 54 << 25;
    QTest::newRow("medium, dense") << 2 << 12 << 54 << 32;
}

void BoardTest::CellsStandWhereTheLayoutSays() {
    QFETCH(int, SizeClass);
    QFETCH(int, Twips);
    QFETCH(int, Side);
    QFETCH(int, Left);
    const auto State = Laid(SizeClass, Twips);
    BoardWidget Board;
    Prepare(Board, *State);
    QCOMPARE(Board.CellRect(0).left(), Left);
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        const QRect Here = Board.CellRect(Cell);
        QCOMPARE(Here.size(), QSize(Side, Side));
        QCOMPARE(Here.topLeft(), Board.CellRect(0).topLeft() + QPoint(Cell % 10, Cell / 10) * Side);
    }
}

void BoardTest::PicturesTellPiecesApart_data() {
    QTest::addColumn<int>("Side");
    QTest::newRow("small") << 38;
    QTest::newRow("medium") << 54;
    QTest::newRow("medium at twice the density") << 108;
}

void BoardTest::PicturesTellPiecesApart() {
    QFETCH(int, Side);
    ui::RegisterArt();
    ui::Artwork Art;
    const QSize Size(Side, Side);
    // Without colour, too: a person who sees none has to tell a king from a man at a glance.
    constexpr double AtAGlance = 6;
    for (int First = 0; First < view::PictureCount; ++First) {
        for (int Second = 0; Second < First; ++Second) {
            const QPixmap A = Art.CellPicture(static_cast<Picture>(First), Size, 1);
            const QPixmap B = Art.CellPicture(static_cast<Picture>(Second), Size, 1);
            QCOMPARE(A.size(), Size);
            const double Difference = GreyDifference(A, B);
            QVERIFY2(Difference > AtAGlance,
                     qPrintable(QStringLiteral("%1 and %2 differ by %3").arg(First).arg(Second).arg(Difference)));
        }
    }
}

void BoardTest::NoSeamsAtAnyScale_data() {
    QTest::addColumn<int>("SizeClass");
    QTest::addColumn<double>("Density");
    for (const int SizeClass : {0, 2}) {
        for (const double Density : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
            QTest::newRow(qPrintable(QStringLiteral("size %1 at %2").arg(SizeClass).arg(Density)))
                << SizeClass << Density;
        }
    }
}

void BoardTest::NoSeamsAtAnyScale() {
    QFETCH(int, SizeClass);
    QFETCH(double, Density);
    const auto State = Laid(SizeClass, 15);
    BoardWidget Board;
    Prepare(Board, *State);
    const QImage Picture = Painted(Board, Density);
    const QRect Area = Board.CellRect(0).united(Board.CellRect(99));
    const QRect Device(qCeil(Area.left() * Density), qCeil(Area.top() * Density), qFloor(Area.width() * Density) - 1,
                       qFloor(Area.height() * Density) - 1);
    QPoint Gap(-1, -1);
    for (int Y = Device.top(); Y <= Device.bottom(); ++Y) {
        for (int X = Device.left(); X <= Device.right(); ++X) {
            if (Picture.pixel(X, Y) == QColor(Qt::magenta).rgb()) {
                Gap = QPoint(X, Y);
            }
        }
    }
    QCOMPARE(Gap, QPoint(-1, -1));
}

void BoardTest::HighlightComesAndGoes_data() {
    QTest::addColumn<int>("Box");
    QTest::addColumn<QColor>("Colour");
    QTest::newRow("on dark") << static_cast<int>(Highlight::Dark) << QColor(255, 255, 0);
    QTest::newRow("on light") << static_cast<int>(Highlight::Light) << QColor(128, 128, 0);
}

void BoardTest::HighlightComesAndGoes() {
    QFETCH(int, Box);
    QFETCH(QColor, Colour);
    constexpr int Cell = 45;
    const auto State = Laid(2, 15);
    BoardWidget Board;
    Prepare(Board, *State);
    const QImage Before = Painted(Board);

    State->Cells[Cell].Box = static_cast<Highlight>(Box);
    Board.Display(*State);
    const QImage Boxed = Painted(Board);
    const QRect Area = Board.CellRect(Cell);
    QCOMPARE(Boxed.pixelColor(Area.left() + 1, Area.center().y()), Colour);
    QCOMPARE(Boxed.pixelColor(Area.center().x(), Area.top() + 1), Colour);
    QCOMPARE(Boxed.pixelColor(Area.center()), Before.pixelColor(Area.center()));
    QCOMPARE(Boxed.copy(Board.CellRect(Cell + 1)), Before.copy(Board.CellRect(Cell + 1)));

    State->Cells[Cell].Box = Highlight::None;
    Board.Display(*State);
    QCOMPARE(Painted(Board), Before);
}

void BoardTest::NumberIsPrinted() {
    const auto State = Laid(2, 15);
    BoardWidget Board;
    Prepare(Board, *State);
    const QImage Before = Painted(Board);
    State->Cells[1].Number = 1;
    Board.Display(*State);
    const QImage After = Painted(Board);
    const QRect Area = Board.CellRect(1);
    QVERIFY(After.copy(Area) != Before.copy(Area));
    // In the upper left corner, where a piece leaves it readable.
    const QRect Quarter(Area.center(), Area.bottomRight());
    QCOMPARE(After.copy(Quarter), Before.copy(Quarter));
}

void BoardTest::MouseIsReportedToThePressedCell_data() {
    QTest::addColumn<int>("Cell");
    QTest::addColumn<QPoint>("Moved"); // in pixels, from the cell's upper left corner
    QTest::addColumn<QPoint>("Expected");
    QTest::newRow("inside") << 44 << QPoint(10, 20) << QPoint(150, 300);
    QTest::newRow("to the right") << 44 << QPoint(60, 20) << QPoint(900, 300);
    QTest::newRow("up and left") << 44 << QPoint(-10, -1) << QPoint(-150, -15);
    QTest::newRow("outside the widget") << 0 << QPoint(-200, 2000) << QPoint(-3000, 30000);
}

void BoardTest::MouseIsReportedToThePressedCell() {
    QFETCH(int, Cell);
    QFETCH(QPoint, Moved);
    QFETCH(QPoint, Expected);
    const auto State = Laid(2, 15);
    BoardWidget Board;
    Prepare(Board, *State);
    QSignalSpy Pressed(&Board, &BoardWidget::CellPressed);
    QSignalSpy Released(&Board, &BoardWidget::CellReleased);
    const QPoint Corner = Board.CellRect(Cell).topLeft();
    QTest::mousePress(&Board, Qt::LeftButton, {}, Corner + QPoint(3, 4));
    QTest::mouseRelease(&Board, Qt::LeftButton, {}, Corner + Moved);
    QCOMPARE(Pressed.count(), 1);
    QCOMPARE(Pressed.at(0), QVariantList({Cell, 1, 45, 60}));
    QCOMPARE(Released.count(), 1);
    QCOMPARE(Released.at(0), QVariantList({Cell, 1, Expected.x(), Expected.y()}));
}

void BoardTest::LostReleaseDoesNotKeepTheCell() {
    const auto State = Laid(2, 15);
    BoardWidget Board;
    Prepare(Board, *State);
    QSignalSpy Pressed(&Board, &BoardWidget::CellPressed);
    QTest::mousePress(&Board, Qt::LeftButton, {}, Board.CellRect(12).center());
    // The release goes to a message box that the press has opened.
    QTest::mousePress(&Board, Qt::LeftButton, {}, Board.CellRect(77).center());
    QCOMPARE(Pressed.count(), 2);
    QCOMPARE(Pressed.at(1).at(0).toInt(), 77);
}

void BoardTest::PointerFollowsTheContents() {
    const auto State = Laid(2, 15);
    BoardWidget Board;
    Prepare(Board, *State);
    QCOMPARE(Board.cursor().shape(), Qt::ArrowCursor);
    State->Cells[3].Pointer = Picture::white_man_ico;
    Board.Display(*State);
    QCOMPARE(Board.cursor().shape(), Qt::BitmapCursor);
    QCOMPARE(Board.cursor().hotSpot(), QPoint(27, 27));
    State->Cells[3].Pointer = Picture::None;
    Board.Display(*State);
    QCOMPARE(Board.cursor().shape(), Qt::ArrowCursor);
}

} // namespace zonterbrook::tests
