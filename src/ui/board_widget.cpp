// The board: a hundred cells with their pictures, numbers and highlights, the frame, and the labels along the edges.
//
// One widget paints them all. Cells are copied pixel by pixel from prepared pictures; at a fractional screen scale
// their edges are rounded to device pixels one by one, so that neighbours meet without a seam and nothing is resampled.
#include "ui/board_widget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace zonterbrook::ui {

namespace {

constexpr int CellsInRow = 10;
constexpr int BandPixels = 4;        // the wooden band outside the frame's line
constexpr int NumberTwips = 100;     // of a square's number from the cell's corner
const QColor BoxOnDark(255, 255, 0); // the two colours of the highlight
const QColor BoxOnLight(128, 128, 0);
const QColor FrameLine(46, 27, 13);
const QColor BandLight(122, 86, 54);
const QColor BandDark(84, 55, 31);

int Pixels(int Twips, int TwipsPerPixel) {
    return static_cast<int>(std::lround(static_cast<double>(Twips) / TwipsPerPixel));
}

// The handlers count the buttons as 1 and 2; others stay unheard.
int ButtonCode(Qt::MouseButtons Buttons) {
    if (Buttons.testFlag(Qt::LeftButton)) {
        return 1;
    }
    return Buttons.testFlag(Qt::RightButton) ? 2 : 0;
}

} // namespace

QRect PixelRect(const view::Rectangle& Place, int TwipsPerPixel) {
    const int Left = Pixels(Place.Left, TwipsPerPixel);
    const int Top = Pixels(Place.Top, TwipsPerPixel);
    return {Left, Top, Pixels(Place.Left + Place.Width, TwipsPerPixel) - Left,
            Pixels(Place.Top + Place.Height, TwipsPerPixel) - Top};
}

BoardWidget::BoardWidget(QWidget* Parent) : QWidget(Parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void BoardWidget::PlaceBoard(const view::WindowContents& Contents, int Twips, int Offset) {
    TwipsPerPixel = Twips;
    UpBy = Offset;
    Layout = Contents.Layout;
    update();
}

void BoardWidget::Display(const view::WindowContents& Contents) {
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        if (Cells[Cell] != Contents.Cells[Cell]) {
            Cells[Cell] = Contents.Cells[Cell];
            update(CellRect(Cell));
        }
    }
    if (EdgeLabels != Contents.EdgeLabels || FrameShown != Contents.FrameShown || Frame != Contents.BoardFrame) {
        EdgeLabels = Contents.EdgeLabels;
        FrameShown = Contents.FrameShown;
        Frame = Contents.BoardFrame;
        update();
    }
    ShowPointer();
}

QRect BoardWidget::CellRect(int Cell) const {
    const int Column = Cell % CellsInRow;
    const int Row = Cell / CellsInRow;
    const int Side = Pixels(Layout.CellSize, TwipsPerPixel);
    return {Pixels(Layout.BoardLeft + Column * Layout.Pitch, TwipsPerPixel),
            Pixels(Layout.BoardTop + Row * Layout.Pitch, TwipsPerPixel) - UpBy, Side, Side};
}

// --- Painting
// ----------------------------------------------------------------------------------------------------------

void BoardWidget::paintEvent(QPaintEvent* Event) {
    QPainter Painter(this);
    if (FrameShown) {
        PaintFrame(Painter);
    }
    PaintLabels(Painter);
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        if (Event->region().intersects(CellRect(Cell))) {
            PaintCell(Painter, Cell);
        }
    }
}

void BoardWidget::PaintCell(QPainter& Painter, int Cell) {
    const view::BoardCell& Shown = Cells[Cell];
    const QRect Area = CellRect(Cell);

    // 1. The picture, on whole device pixels.
    const QTransform ToDevice = Painter.deviceTransform();
    const QRectF Exact = ToDevice.mapRect(QRectF(Area));
    const QPoint Corner(qRound(Exact.left()), qRound(Exact.top()));
    const QSize Size(qRound(Exact.right()) - Corner.x(), qRound(Exact.bottom()) - Corner.y());
    if (!Size.isEmpty()) {
        Painter.drawPixmap(ToDevice.inverted().map(QPointF(Corner)),
                           Pictures.CellPicture(Shown.Shows, Size, devicePixelRatioF()));
    }

    // 2. The number, with a dark edge so that it can be read on a light square and beside a white man.
    if (Shown.Number != 0) {
        QFont Small = LabelFont();
        Small.setBold(true);
        QPainterPath Digits;
        const int Inset = Pixels(NumberTwips, TwipsPerPixel) / 2;
        Digits.addText(Area.left() + Inset, Area.top() + Inset + QFontMetrics(Small).ascent(), Small,
                       QString::number(Shown.Number));
        Painter.setRenderHint(QPainter::Antialiasing, true);
        Painter.strokePath(Digits, QPen(QColor(0, 0, 0, 150), 2));
        Painter.fillPath(Digits, Qt::white);
        Painter.setRenderHint(QPainter::Antialiasing, false);
    }

    // 3. The highlight.
    if (Shown.Box != view::Highlight::None) {
        const QRect Inside = PixelRect(Layout.Box, TwipsPerPixel).translated(Area.topLeft());
        QPen Line(Shown.Box == view::Highlight::Dark ? BoxOnDark : BoxOnLight, 2);
        Line.setJoinStyle(Qt::MiterJoin);
        Painter.setPen(Line);
        Painter.setBrush(Qt::NoBrush);
        Painter.drawRect(Inside.adjusted(1, 1, -1, -1));
    }
}

void BoardWidget::PaintFrame(QPainter& Painter) const {
    const QRect Line = PixelRect(Frame, TwipsPerPixel).translated(0, -UpBy);
    const QRectF Outside = QRectF(Line).adjusted(-BandPixels, -BandPixels, BandPixels + 1, BandPixels + 1);
    QLinearGradient Wood(Outside.topLeft(), Outside.bottomRight());
    Wood.setColorAt(0, BandLight);
    Wood.setColorAt(1, BandDark);
    Painter.setRenderHint(QPainter::Antialiasing, true);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Wood);
    Painter.drawRoundedRect(Outside, 3, 3);
    Painter.setRenderHint(QPainter::Antialiasing, false);
    Painter.setPen(QPen(FrameLine, 1));
    Painter.setBrush(FrameLine);
    Painter.drawRect(Line);
}

QFont BoardWidget::LabelFont() const {
    // Two digits have to stand between the window's edge and the board.
    QFont Font = font();
    const int Room = Pixels(Layout.BoardLeft, TwipsPerPixel) - BandPixels - 4;
    const int Width = QFontMetrics(Font).horizontalAdvance(QStringLiteral("50"));
    if (Width > Room && Room > 0) {
        Font.setPixelSize(std::max(8, QFontInfo(Font).pixelSize() * Room / Width));
    }
    return Font;
}

void BoardWidget::PaintLabels(QPainter& Painter) const {
    const QFont Font = LabelFont();
    const int Ascent = QFontMetrics(Font).ascent();
    Painter.setFont(Font);
    Painter.setPen(palette().color(QPalette::WindowText));
    for (const view::EdgeLabel& Label : EdgeLabels) {
        Painter.drawText(Pixels(Label.X, TwipsPerPixel), Pixels(Label.Y, TwipsPerPixel) - UpBy + Ascent,
                         QString::fromStdString(Label.Text));
    }
}

// --- The mouse
// -----------------------------------------------------------------------------------------------------------

int BoardWidget::CellAt(QPointF Where) const {
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        if (QRectF(CellRect(Cell)).contains(Where)) {
            return Cell;
        }
    }
    return -1;
}

QPoint BoardWidget::TwipsIn(int Cell, QPointF Where) const {
    const QPointF Inside = Where - CellRect(Cell).topLeft();
    return {static_cast<int>(std::floor(Inside.x() * TwipsPerPixel)),
            static_cast<int>(std::floor(Inside.y() * TwipsPerPixel))};
}

void BoardWidget::mousePressEvent(QMouseEvent* Event) {
    const int Button = ButtonCode(Event->button());
    if (PressedCell < 0 || Event->buttons() == Event->button()) {
        // With no other button held this is a new press, even if the release of the last one went to a message box.
        PressedCell = CellAt(Event->position());
    }
    if (Button == 0 || PressedCell < 0) {
        return;
    }
    const QPoint Where = TwipsIn(PressedCell, Event->position());
    emit CellPressed(PressedCell, Button, Where.x(), Where.y());
}

void BoardWidget::mouseDoubleClickEvent(QMouseEvent* Event) {
    // The second press of a quick pair is a press like any other.
    mousePressEvent(Event);
}

void BoardWidget::mouseMoveEvent(QMouseEvent* Event) {
    if (Event->buttons() == Qt::NoButton) {
        PressedCell = -1;
    }
    const int Cell = PressedCell >= 0 ? PressedCell : CellAt(Event->position());
    if (Cell < 0) {
        return;
    }
    const QPoint Where = TwipsIn(Cell, Event->position());
    emit CellMoved(Cell, ButtonCode(Event->buttons()), Where.x(), Where.y());
}

void BoardWidget::mouseReleaseEvent(QMouseEvent* Event) {
    const int Cell = PressedCell;
    if (Event->buttons() == Qt::NoButton) {
        PressedCell = -1;
    }
    const int Button = ButtonCode(Event->button());
    if (Cell < 0 || Button == 0) {
        return;
    }
    const QPoint Where = TwipsIn(Cell, Event->position());
    emit CellReleased(Cell, Button, Where.x(), Where.y());
}

void BoardWidget::ShowPointer() {
    view::Picture Wanted = view::Picture::None;
    for (const view::BoardCell& Cell : Cells) {
        if (Cell.Pointer != view::Picture::None) {
            Wanted = Cell.Pointer;
        }
    }
    if (Wanted != PointerShown) {
        PointerShown = Wanted;
        setCursor(Pictures.Pointer(Wanted, Pixels(Layout.CellSize, TwipsPerPixel), devicePixelRatioF()));
    }
}

} // namespace zonterbrook::ui
