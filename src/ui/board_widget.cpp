// The board: a hundred cells with their pictures, numbers and highlights, the frame, and the labels along the edges.
//
// One widget paints them all. Cells are copied pixel by pixel from prepared pictures; at a fractional screen scale
// their edges are rounded to device pixels one by one, so that neighbours meet without a seam and nothing is resampled.
#include "ui/board_widget.h"

#include "ui/board_access.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

namespace zonterbrook::ui {

namespace {

constexpr int CellsInRow = 10;
constexpr int EdgePixels = 12;   // between the window's edge and the frame
constexpr double BandTwips = 60; // the wooden band outside the frame's line
constexpr int NumberTwips = 100; // of a square's number from the cell's corner
const QColor FrameLine(46, 27, 13);
const QColor BandLight(122, 86, 54);
const QColor BandDark(84, 55, 31);
const QColor CursorLine(255, 255, 255); // light on dark, so that it stands out from any square and any piece
const QColor CursorEdge(13, 71, 161);
constexpr int CursorInset = 5; // inside the highlight
const QColor TraceLine(255, 214, 102);
const QColor TraceEdge(60, 35, 0, 130);
const QColor HintLine(102, 255, 153);
const QColor HintEdge(0, 60, 20);
const QColor WayLine(255, 255, 255);
const QColor WayEdge(13, 71, 161, 200);
const QColor WayBadge(13, 71, 161);

// Of a move that slides, in milliseconds.
constexpr double LongestSlide = 200;
constexpr double ShortestSlide = 130;
constexpr double SlideOfCorner = 20; // for each corner of its way
constexpr int SlideTick = 8;

int Pixels(double Twips, double TwipsPerPixel) {
    return static_cast<int>(std::lround(Twips / TwipsPerPixel));
}

// The lowest byte is the red one.
QColor ColourOf(std::int32_t Value) {
    const auto Bits = static_cast<std::uint32_t>(Value);
    return {static_cast<int>(Bits & 0xFFU), static_cast<int>((Bits >> 8U) & 0xFFU),
            static_cast<int>((Bits >> 16U) & 0xFFU)};
}

// The handlers count the buttons as 1 and 2; others stay unheard.
int ButtonCode(Qt::MouseButtons Buttons) {
    if (Buttons.testFlag(Qt::LeftButton)) {
        return 1;
    }
    return Buttons.testFlag(Qt::RightButton) ? 2 : 0;
}

view::Picture SquareUnder(view::Picture Which) {
    using view::Picture;
    const bool Light =
        Which == Picture::light_square || (Which >= Picture::light_white_man && Which <= Picture::light_black_king);
    return Light ? Picture::light_square : Picture::dark_square;
}

// The piece that a cell shows, without its square.
view::Picture PieceOf(view::Picture Which) {
    using view::Picture;
    const auto From = [&](Picture First) {
        return static_cast<Picture>(static_cast<int>(Picture::white_man_ico) + static_cast<int>(Which) -
                                    static_cast<int>(First));
    };
    if (Which >= Picture::dark_white_man && Which <= Picture::dark_black_king) {
        return From(Picture::dark_white_man);
    }
    if (Which >= Picture::light_white_man && Which <= Picture::light_black_king) {
        return From(Picture::light_white_man);
    }
    return Picture::None;
}

// The last move is seen without colours, too: a ring on the square it left, dots on its way, a cross on what it took,
// a ring around the piece.
void PaintTrace(QPainter& Painter, view::Trace Which, const QRect& Area) {
    using view::Trace;
    if (Which == Trace::None) {
        return;
    }
    const QPointF Middle = QRectF(Area).center();
    const double Unit = Area.width() / 2.0;
    const auto Draw = [&](const QColor& Ink, double Wide) {
        Painter.setPen(QPen(Ink, Wide, Qt::SolidLine, Qt::RoundCap));
        switch (Which) {
        case Trace::Source:
            Painter.drawEllipse(Middle, 0.3 * Unit, 0.3 * Unit);
            break;
        case Trace::Path:
            Painter.drawEllipse(Middle, 0.06 * Unit, 0.06 * Unit);
            break;
        case Trace::Captured:
            Painter.drawLine(Middle + QPointF(-0.22, -0.22) * Unit, Middle + QPointF(0.22, 0.22) * Unit);
            Painter.drawLine(Middle + QPointF(-0.22, 0.22) * Unit, Middle + QPointF(0.22, -0.22) * Unit);
            break;
        case Trace::Target:
            Painter.drawEllipse(Middle, 0.92 * Unit, 0.92 * Unit);
            break;
        case Trace::None:
            break;
        }
    };
    Painter.setRenderHint(QPainter::Antialiasing, true);
    Painter.setBrush(Qt::NoBrush);
    Draw(TraceEdge, std::max(2.5, 0.13 * Unit));
    Draw(TraceLine, std::max(1.2, 0.06 * Unit));
    Painter.setRenderHint(QPainter::Antialiasing, false);
}

std::optional<control::BoardKey> KeyOfCursor(const QKeyEvent& Event) {
    using control::BoardKey;
    const Qt::KeyboardModifiers Held = Event.modifiers() & ~Qt::KeypadModifier;
    if (Event.key() == Qt::Key_F10 && Held == Qt::ShiftModifier) {
        return BoardKey::Menu;
    }
    if (Held == Qt::ControlModifier) {
        switch (Event.key()) {
        case Qt::Key_Left:
            return BoardKey::JumpLeft;
        case Qt::Key_Right:
            return BoardKey::JumpRight;
        case Qt::Key_Up:
            return BoardKey::JumpUp;
        case Qt::Key_Down:
            return BoardKey::JumpDown;
        default:
            return std::nullopt;
        }
    }
    if (Held != Qt::NoModifier) {
        return std::nullopt;
    }
    switch (Event.key()) {
    case Qt::Key_Left:
        return BoardKey::Left;
    case Qt::Key_Right:
        return BoardKey::Right;
    case Qt::Key_Up:
        return BoardKey::Up;
    case Qt::Key_Down:
        return BoardKey::Down;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return BoardKey::Pick;
    case Qt::Key_Menu:
        return BoardKey::Menu;
    default:
        return std::nullopt;
    }
}

} // namespace

QRect PixelRect(const view::Rectangle& Place, double TwipsPerPixel) {
    const int Left = Pixels(Place.Left, TwipsPerPixel);
    const int Top = Pixels(Place.Top, TwipsPerPixel);
    return {Left, Top, Pixels(Place.Left + Place.Width, TwipsPerPixel) - Left,
            Pixels(Place.Top + Place.Height, TwipsPerPixel) - Top};
}

BoardWidget::BoardWidget(QWidget* Parent) : QWidget(Parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    QAccessible::installActivationObserver(this);
    connect(this, &BoardWidget::CellTextChanged, this, [this](int Cell) { TellCellChanged(*this, Cell); });
    connect(this, &BoardWidget::CursorCame, this, [this](int Cell) { TellCellFocused(*this, Cell); });
}

BoardWidget::~BoardWidget() {
    QAccessible::removeActivationObserver(this);
}

void BoardWidget::PlaceBoard(const view::WindowContents& Contents, double Twips, int Offset) {
    if (TwipsPerPixel != Twips) {
        Pictures.ForgetSizes();
        LargestCell = {};
        PointerShown = view::Picture::None;
    }
    TwipsPerPixel = Twips;
    UpBy = Offset;
    Layout = Contents.Layout;
    const double Density = devicePixelRatioF();
    for (int Index = 0; Density == std::floor(Density) && Index < CellsInRow; ++Index) {
        const QSize Size = CellRect(Index * (CellsInRow + 1)).size(); // of each file and rank once
        LargestCell = LargestCell.expandedTo(Size * Density);
    }
    update();
}

void BoardWidget::Display(const view::WindowContents& Contents) {
    const bool Slides = Contents.Slide.Number != Slide.Number;
    if (Sliding && (Slides || Cells[Slide.Path.back()].Shows != Contents.Cells[Slide.Path.back()].Shows)) {
        EndSlide();
    }
    if (Ways != Contents.Ways) {
        Ways = Contents.Ways;
        update();
    }
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
    if (Look != Contents.Look) {
        Look = Contents.Look;
        Pictures.UseSkin(Look.OwnPictures);
        PointerShown = view::Picture::None;
        update();
    }
    const bool CursorMoved = Cursor != Contents.CursorCell;
    if (CursorMoved) {
        for (const int Cell : {Cursor, Contents.CursorCell}) {
            update(Cell >= 0 ? CellRect(Cell) : QRect());
        }
        Cursor = Contents.CursorCell;
    }
    ShowPointer();
    TellScreenReader(CursorMoved);
    if (Slides) {
        BeginSlide(Contents.Slide);
    }
    Filled = true;
}

// A cell reaches to where the next one begins, so that no scale leaves a seam; the last ones end as the tables say.
QRect BoardWidget::CellRect(int Cell) const {
    const auto Edge = [this](int From, int Index) { return Pixels(From + Index * Layout.Pitch, TwipsPerPixel); };
    const auto End = [&](int From, int Index) {
        return Index + 1 < CellsInRow ? Edge(From, Index + 1)
                                      : Edge(From, Index) + Pixels(Layout.CellSize, TwipsPerPixel);
    };
    const int Column = Cell % CellsInRow;
    const int Row = Cell / CellsInRow;
    const QPoint Corner(Edge(Layout.BoardLeft, Column), Edge(Layout.BoardTop, Row));
    const QSize Size(End(Layout.BoardLeft, Column) - Corner.x(), End(Layout.BoardTop, Row) - Corner.y());
    return {Corner - QPoint(0, UpBy), Size};
}

// --- Painting -------------------------------------------------------------------------------------------------------

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
    PaintSlide(Painter);
    PaintWays(Painter);
    if (Cursor >= 0) {
        PaintCursor(Painter, Cursor);
    }
}

// A picture lies on whole device pixels. Cells differ by a pixel where the scale is no whole one: all are cut from the
// picture of the largest, so that a window that is being resized renders one for each.
void BoardWidget::PaintPicture(QPainter& Painter, view::Picture Which, const QRect& Area) {
    const QTransform ToDevice = Painter.deviceTransform();
    const QRectF Exact = ToDevice.mapRect(QRectF(Area));
    const QPoint Corner(qRound(Exact.left()), qRound(Exact.top()));
    const QSize Size(qRound(Exact.right()) - Corner.x(), qRound(Exact.bottom()) - Corner.y());
    if (Size.isEmpty()) {
        return;
    }
    LargestCell = LargestCell.expandedTo(Size);
    const QPixmap& Whole = Pictures.CellPicture(Which, LargestCell, devicePixelRatioF());
    const QPointF Where = ToDevice.inverted().map(QPointF(Corner));
    if (Size == LargestCell) {
        Painter.drawPixmap(Where, Whole);
    } else {
        const QRectF Part(QPointF(0, 0), QSizeF(Size));
        Painter.drawPixmap(QRectF(Where, QSizeF(Size) / devicePixelRatioF()), Whole, Part);
    }
}

void BoardWidget::PaintCell(QPainter& Painter, int Cell) {
    const view::BoardCell& Shown = Cells[Cell];
    const QRect Area = CellRect(Cell);

    // 1. The picture; the piece that lies on it may be lifted, or still on its way.
    const bool Apart = Shown.Lifted || Covers(Cell);
    PaintPicture(Painter, Apart ? SquareUnder(Shown.Shows) : Shown.Shows, Area);
    PaintTrace(Painter, Shown.Left, Area);
    if (Shown.Lifted) {
        PaintLifted(Painter, PieceOf(Shown.Shows), Area);
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

    // 3. A square of a hint: a mark in each corner, so that it is told from a box without colours.
    if (Shown.Hinted) {
        PaintCorners(Painter, Area);
    }

    // 4. The highlight.
    if (Shown.Box != view::Highlight::None) {
        const QRect Inside = PixelRect(Layout.Box, TwipsPerPixel).translated(Area.topLeft());
        QPen Line(ColourOf(Shown.Box == view::Highlight::Dark ? Look.DarkHighlight : Look.LightHighlight), 2);
        Line.setJoinStyle(Qt::MiterJoin);
        Painter.setPen(Line);
        Painter.setBrush(Qt::NoBrush);
        Painter.drawRect(Inside.adjusted(1, 1, -1, -1));
    }
}

void BoardWidget::PaintCorners(QPainter& Painter, const QRect& Area) const {
    const int Length = Area.width() / 4;
    const QRect Inside = Area.adjusted(2, 2, -3, -3);
    QPainterPath Corners;
    for (const auto& [X, Y, Right, Down] :
         {std::tuple(Inside.left(), Inside.top(), 1, 1), std::tuple(Inside.right(), Inside.top(), -1, 1),
          std::tuple(Inside.left(), Inside.bottom(), 1, -1), std::tuple(Inside.right(), Inside.bottom(), -1, -1)}) {
        Corners.moveTo(X + Right * Length, Y);
        Corners.lineTo(X, Y);
        Corners.lineTo(X, Y + Down * Length);
    }
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(HintEdge, 5));
    Painter.drawPath(Corners);
    Painter.setPen(QPen(HintLine, 3));
    Painter.drawPath(Corners);
}

// The frame of the keyboard's cursor; the piece in the hand goes with it.
void BoardWidget::PaintCursor(QPainter& Painter, int Cell) {
    const QRect Area = CellRect(Cell);
    if (InHand != view::Picture::None) {
        PaintLifted(Painter, InHand, Area);
    }
    const QRectF Inside = QRectF(Area).adjusted(CursorInset, CursorInset, -CursorInset, -CursorInset);
    constexpr double Corner = 3;
    Painter.setRenderHint(QPainter::Antialiasing, true);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(CursorEdge, 5));
    Painter.drawRoundedRect(Inside, Corner, Corner);
    Painter.setPen(QPen(CursorLine, 2));
    Painter.drawRoundedRect(Inside, Corner, Corner);
    Painter.setRenderHint(QPainter::Antialiasing, false);
}

// A little higher than it would lie, over its own shadow.
void BoardWidget::PaintLifted(QPainter& Painter, view::Picture Piece, const QRect& Area) {
    const int Height = std::max(2, Area.height() / 12);
    Painter.setRenderHint(QPainter::Antialiasing, true);
    QRadialGradient Shadow(QRectF(Area).center() + QPointF(0, Height), Area.width() * 0.5);
    Shadow.setColorAt(0.55, QColor(0, 0, 0, 150));
    Shadow.setColorAt(1, QColor(0, 0, 0, 0));
    Painter.fillRect(Area, Shadow);
    Painter.setRenderHint(QPainter::Antialiasing, false);
    Painter.save();
    Painter.setClipRect(Area);
    PaintPicture(Painter, Piece, Area.translated(0, -Height));
    Painter.restore();
}

// --- Several ways ---------------------------------------------------------------------------------------------------

void BoardWidget::PaintWays(QPainter& Painter) const {
    static constexpr Qt::PenStyle Strokes[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
    Painter.setRenderHint(QPainter::Antialiasing, true);
    const double Side = CellRect(0).width();
    for (std::size_t I = 0; I < Ways.size(); ++I) {
        QPolygonF Line;
        for (const std::int32_t Cell : Ways[I].Path) {
            Line << QRectF(CellRect(Cell)).center();
        }
        Painter.setBrush(Qt::NoBrush);
        Painter.setPen(QPen(WayEdge, Side * 0.16, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        Painter.drawPolyline(Line);
        Painter.setPen(QPen(WayLine, Side * 0.07, Strokes[I % std::size(Strokes)], Qt::FlatCap, Qt::RoundJoin));
        Painter.drawPolyline(Line);
    }
    QFont Digits = font();
    Digits.setPixelSize(std::max(9, static_cast<int>(Side * 0.36)));
    Digits.setBold(true);
    Painter.setFont(Digits);
    for (std::size_t I = 0; I < Ways.size(); ++I) {
        const QRectF Area = CellRect(Ways[I].Badge);
        Painter.setPen(QPen(WayLine, Side * 0.04));
        Painter.setBrush(WayBadge);
        Painter.drawEllipse(Area.center(), Side * 0.3, Side * 0.3);
        Painter.setPen(Qt::white);
        Painter.drawText(Area, Qt::AlignCenter, QString::number(I + 1));
    }
    Painter.setRenderHint(QPainter::Antialiasing, false);
}

// --- Sliding --------------------------------------------------------------------------------------------------------

// Only where the desktop lets things move, and never twice: what comes next ends it.
void BoardWidget::BeginSlide(const view::SlideFields& Wanted) {
    Slide = Wanted;
    if (!Filled || !isVisible() || Slide.Path.size() < 2 || !Motion.Wanted()) {
        return;
    }
    Sliding = true;
    SlideClock.start();
    SlideShown = SlidRect();
    SlideTicks.start(SlideTick, Qt::PreciseTimer, this);
    UpdateSlide();
}

void BoardWidget::EndSlide() {
    if (Sliding) {
        Sliding = false;
        SlideTicks.stop();
        UpdateSlide();
    }
}

// Where anything of it is to be seen.
void BoardWidget::UpdateSlide() {
    update(SlideShown);
    update(CellRect(Slide.Path.back()));
    for (const auto& [Cell, Piece] : Slide.Taken) {
        update(CellRect(Cell));
    }
}

void BoardWidget::timerEvent(QTimerEvent* Event) {
    if (Event->timerId() != SlideTicks.timerId()) {
        QWidget::timerEvent(Event);
        return;
    }
    if (SlidPart() >= 1) {
        EndSlide();
        return;
    }
    UpdateSlide();
    SlideShown = SlidRect();
    UpdateSlide();
}

// How much of the way is done, 0 to 1.
double BoardWidget::SlidPart() const {
    const double Corners = static_cast<double>(Slide.Path.size()) - 2;
    return static_cast<double>(SlideClock.elapsed()) / std::min(LongestSlide, ShortestSlide + SlideOfCorner * Corners);
}

QRect BoardWidget::SlidRect() const {
    const double Part = std::clamp(SlidPart(), 0.0, 1.0);
    const double Smooth = Part * Part * (3 - 2 * Part);
    std::vector<double> Ends{0}; // length of the way up to each of its corners
    for (std::size_t I = 1; I < Slide.Path.size(); ++I) {
        const QPoint Step = CellRect(Slide.Path[I]).topLeft() - CellRect(Slide.Path[I - 1]).topLeft();
        Ends.push_back(Ends.back() + std::hypot(Step.x(), Step.y()));
    }
    const double Done = Smooth * Ends.back();
    std::size_t Leg = 1;
    while (Leg + 1 < Ends.size() && Ends[Leg] < Done) {
        ++Leg;
    }
    const double Length = Ends[Leg] - Ends[Leg - 1];
    const double Along = Length > 0 ? (Done - Ends[Leg - 1]) / Length : 1;
    const QPointF From = CellRect(Slide.Path[Leg - 1]).topLeft();
    const QPointF To = CellRect(Slide.Path[Leg]).topLeft();
    return {(From + (To - From) * Along).toPoint(), CellRect(Slide.Path.back()).size()};
}

bool BoardWidget::Covers(int Cell) const {
    return Sliding && Slide.Path.back() == Cell;
}

void BoardWidget::PaintSlide(QPainter& Painter) {
    if (!Sliding) {
        return;
    }
    Painter.setOpacity(std::clamp(1 - SlidPart(), 0.0, 1.0));
    for (const auto& [Cell, Piece] : Slide.Taken) {
        PaintPicture(Painter, Piece, CellRect(Cell));
    }
    Painter.setOpacity(1);
    PaintPicture(Painter, Slide.Piece, SlideShown);
}

void BoardWidget::PaintFrame(QPainter& Painter) const {
    const QRect Line = PixelRect(Frame, TwipsPerPixel).translated(0, -UpBy);
    const int Band = BandWidth();
    const QRectF Outside = QRectF(Line).adjusted(-Band, -Band, Band + 1, Band + 1);
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
    const int Room = Pixels(Layout.BoardLeft, TwipsPerPixel) - BandWidth() - 4;
    const int Width = QFontMetrics(Font).horizontalAdvance(QStringLiteral("50"));
    if (Width > Room && Room > 0) {
        Font.setPixelSize(std::max(8, QFontInfo(Font).pixelSize() * Room / Width));
    }
    return Font;
}

int BoardWidget::BandWidth() const {
    return std::clamp(Pixels(BandTwips, TwipsPerPixel), 2, EdgePixels - 2);
}

// The tables tell which file or rank a label belongs to; it stands in the middle of it in any font.
QPoint BoardWidget::LabelCentre(const view::EdgeLabel& Label) const {
    constexpr double HalfDigit = 45; // in twips, of the font that the tables were made for
    constexpr double HalfLine = 98;
    const auto Index = [this](double Middle, int From) {
        const double Cell = (Middle - From - Layout.CellSize / 2.0) / Layout.Pitch;
        return std::clamp(static_cast<int>(std::lround(Cell)), 0, CellsInRow - 1);
    };
    const QRect Line = PixelRect(Frame, TwipsPerPixel).translated(0, -UpBy);
    if (Label.X < Layout.BoardLeft) {
        const int Row = Index(Label.Y + HalfLine, Layout.BoardTop);
        return {(Line.left() - BandWidth()) / 2, CellRect(Row * CellsInRow).center().y()};
    }
    const int Column = Index(Label.X + HalfDigit * static_cast<double>(Label.Text.size()), Layout.BoardLeft);
    const int Below = Line.bottom() + BandWidth() + 2 + QFontMetrics(LabelFont()).height() / 2;
    return {CellRect(Column).center().x(), Below};
}

void BoardWidget::PaintLabels(QPainter& Painter) const {
    const QFont Font = LabelFont();
    const QFontMetrics Metrics(Font);
    Painter.setFont(Font);
    Painter.setPen(palette().color(QPalette::WindowText));
    for (const view::EdgeLabel& Label : EdgeLabels) {
        QRect Around(0, 0, 4 * Metrics.averageCharWidth() + 8, Metrics.height());
        Around.moveCenter(LabelCentre(Label));
        Painter.drawText(Around, Qt::AlignCenter, QString::fromStdString(Label.Text));
    }
}

// --- The mouse ------------------------------------------------------------------------------------------------------

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
    EndSlide();
    const int Button = ButtonCode(Event->button());
    if (PressedCell < 0 || Event->buttons() == Event->button()) {
        // With no other button held this is a new press, even if the release of the last one went to a message box.
        PressedCell = CellAt(Event->position());
    }
    if (Button == 0 || PressedCell < 0) {
        return;
    }
    emit CellPressed(PressedCell, Button);
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
    if (Cell >= 0) {
        emit CellMoved(Cell);
    }
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
    InHand = Wanted;
    // With the keys the piece goes with the cursor.
    Wanted = Cursor >= 0 ? view::Picture::None : Wanted;
    if (Wanted != PointerShown) {
        PointerShown = Wanted;
        setCursor(Pictures.Pointer(Wanted, Pixels(Layout.CellSize, TwipsPerPixel), devicePixelRatioF()));
    }
}

// --- The keyboard ---------------------------------------------------------------------------------------------------

bool BoardWidget::event(QEvent* Event) {
    // Keys that are shortcuts elsewhere are the cursor's here.
    if (Event->type() == QEvent::ShortcutOverride && KeyOfCursor(*static_cast<QKeyEvent*>(Event))) {
        Event->accept();
        return true;
    }
    return QWidget::event(Event);
}

void BoardWidget::keyPressEvent(QKeyEvent* Event) {
    EndSlide();
    const auto Key = KeyOfCursor(*Event);
    if (!Key) {
        const bool Character = !Event->text().isEmpty() && Event->text().front().isPrint() &&
                               (Event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
        if (Character) {
            emit Typed(Event->text());
        } else {
            QWidget::keyPressEvent(Event);
        }
        return;
    }
    const bool Steps = *Key != control::BoardKey::Pick && *Key != control::BoardKey::Menu;
    if (Steps || !Event->isAutoRepeat()) {
        emit KeyReported(*Key, true);
    }
}

void BoardWidget::keyReleaseEvent(QKeyEvent* Event) {
    const auto Key = KeyOfCursor(*Event);
    if (Key && !Event->isAutoRepeat()) {
        emit KeyReported(*Key, false);
        return;
    }
    QWidget::keyReleaseEvent(Event);
}

void BoardWidget::focusInEvent(QFocusEvent* Event) {
    QWidget::focusInEvent(Event);
    const Qt::FocusReason Why = Event->reason();
    emit FocusGained(Why == Qt::TabFocusReason || Why == Qt::BacktabFocusReason || Why == Qt::ShortcutFocusReason);
}

void BoardWidget::focusOutEvent(QFocusEvent* Event) {
    QWidget::focusOutEvent(Event);
    const Qt::FocusReason Why = Event->reason();
    emit FocusLost(Why == Qt::TabFocusReason || Why == Qt::BacktabFocusReason || Why == Qt::ShortcutFocusReason ||
                   Why == Qt::MouseFocusReason);
}

// --- Screen readers -------------------------------------------------------------------------------------------------

QString BoardWidget::CellText(int Cell) const {
    return SayCell ? QString::fromStdString(SayCell(Cell)) : QString();
}

void BoardWidget::accessibilityActiveChanged(bool Active) {
    ReaderListens = Active;
    Said.clear();
}

void BoardWidget::TellScreenReader(bool CursorMoved) {
    if (!ReaderListens) {
        return;
    }
    Said.resize(view::BoardPictures);
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        QString& Before = Said.at(static_cast<std::size_t>(Cell));
        const QString Now = CellText(Cell);
        if (Before != Now) {
            Before = Now;
            emit CellTextChanged(Cell);
        }
    }
    if (CursorMoved && Cursor >= 0) {
        emit CursorCame(Cursor);
    }
}

} // namespace zonterbrook::ui
