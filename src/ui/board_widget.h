// The board: a hundred cells with their pictures, numbers and highlights, the frame, and the labels along the edges.
//
// It paints the window's contents and reports the mouse by cell, in twips, as the handlers want it, and the keys that
// move the cursor. It decides nothing.
#pragma once

#include "control/events.h"
#include "ui/artwork.h"
#include "ui/motion.h"
#include "view/state.h"

#include <QAccessible>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QRect>
#include <QWidget>

#include <functional>
#include <vector>

namespace zonterbrook::ui {

/// A place given in twips, in pixels of the toolkit.
QRect PixelRect(const view::Rectangle& Place, double TwipsPerPixel);

class BoardWidget : public QWidget, private QAccessible::ActivationObserver {
    Q_OBJECT

public:
    explicit BoardWidget(QWidget* Parent = nullptr);
    ~BoardWidget() override;

    /// Shows the board's part of the contents: repaints what differs from what stands there.
    void Display(const view::WindowContents& Contents);

    /// Takes the layout over: where cells, frame and labels stand, `Offset` pixels further up than the layout says,
    /// with so many twips of the layout to a pixel.
    void PlaceBoard(const view::WindowContents& Contents, double Twips, int Offset);

    /// Where a cell stands in this widget; of a cell of 0 to 99.
    QRect CellRect(int Cell) const;

    /// The cell with the keyboard's cursor; -1 while it is hidden.
    int CursorCell() const { return Cursor; }

    /// The pictures that it is painted with.
    Artwork& Art() { return Pictures; }

    /// What a screen reader says of a cell comes from `Say`; nothing, before it is set.
    void SayCellsWith(std::function<std::string(int)> Say) { SayCell = std::move(Say); }
    QString CellText(int Cell) const;

signals:
    /// A character that is no key of the board's.
    void Typed(const QString& Text);
    /// A key of the cursor, pressed or released.
    void KeyReported(control::BoardKey Key, bool Pressed);
    void FocusGained(bool ByKeys);
    void FocusLost(bool ByPerson);
    /// A screen reader has chosen a cell for the person.
    void CellChosen(int Cell);
    /// While a screen reader listens: a cell reads otherwise than before, the cursor has come to it.
    void CellTextChanged(int Cell);
    void CursorCame(int Cell);

    /// The mouse on a cell. Moves with a button held, and the release, are those of the cell where the press was; X and
    /// Y are twips from its upper left corner.
    void CellPressed(int Cell, int Button);
    void CellMoved(int Cell);
    void CellReleased(int Cell, int Button, int X, int Y);

protected:
    void paintEvent(QPaintEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void mouseMoveEvent(QMouseEvent* Event) override;
    void mouseReleaseEvent(QMouseEvent* Event) override;
    bool event(QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void keyReleaseEvent(QKeyEvent* Event) override;
    void focusInEvent(QFocusEvent* Event) override;
    void focusOutEvent(QFocusEvent* Event) override;
    void timerEvent(QTimerEvent* Event) override;

public:
    /// The cell at a place in this widget, or -1.
    int CellAt(QPointF Where) const;

private:
    QPoint TwipsIn(int Cell, QPointF Where) const;
    QFont LabelFont() const;
    int BandWidth() const;
    QPoint LabelCentre(const view::EdgeLabel& Label) const;
    void PaintCell(QPainter& Painter, int Cell);
    void PaintCursor(QPainter& Painter, int Cell);
    void PaintPicture(QPainter& Painter, view::Picture Which, const QRect& Area);
    void PaintCorners(QPainter& Painter, const QRect& Area) const;
    void PaintLifted(QPainter& Painter, view::Picture Piece, const QRect& Area);
    void PaintWays(QPainter& Painter) const;
    void PaintSlide(QPainter& Painter);
    void BeginSlide(const view::SlideFields& Wanted);
    void EndSlide();
    void UpdateSlide();
    double SlidPart() const;
    QRect SlidRect() const;
    bool Covers(int Cell) const;
    void PaintFrame(QPainter& Painter) const;
    void PaintLabels(QPainter& Painter) const;
    void ShowPointer();
    void TellScreenReader(bool CursorMoved);
    void accessibilityActiveChanged(bool Active) override;

    Artwork Pictures;
    base::CheckedArray<view::BoardCell, view::BoardPictures> Cells{};
    std::vector<view::EdgeLabel> EdgeLabels;
    int Cursor = -1;
    std::function<std::string(int)> SayCell;
    bool ReaderListens = QAccessible::isActive();
    std::vector<QString> Said; // what a screen reader knows of the cells; empty while there is none
    view::LookFields Look;
    view::LayoutFields Layout;
    view::Rectangle Frame;
    bool FrameShown = false;
    double TwipsPerPixel = 15;
    int UpBy = 0;         // pixels by which everything stands further up than in the layout
    int PressedCell = -1; // the cell that hears of the mouse while a button is held
    view::Picture PointerShown = view::Picture::None;
    view::Picture InHand = view::Picture::None;
    QSize LargestCell; // in device pixels
    std::vector<view::WayFields> Ways;
    view::SlideFields Slide;  // the last one that was told
    bool Sliding = false;     // while it is on its way
    QElapsedTimer SlideClock; // since it began
    QBasicTimer SlideTicks;
    DesktopMotion Motion;
    QRect SlideShown;    // where the piece was painted last
    bool Filled = false; // once there are contents
};

} // namespace zonterbrook::ui
