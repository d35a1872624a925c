// The board: a hundred cells with their pictures, numbers and highlights, the frame, and the labels along the edges.
//
// It paints the window's contents and reports the mouse by cell, in twips, as the handlers want it. It decides nothing.
#pragma once

#include "ui/artwork.h"
#include "view/state.h"

#include <QRect>
#include <QWidget>

#include <vector>

namespace zonterbrook::ui {

/// A place given in twips, in pixels of the toolkit.
QRect PixelRect(const view::Rectangle& Place, int TwipsPerPixel);

class BoardWidget : public QWidget {
    Q_OBJECT

public:
    explicit BoardWidget(QWidget* Parent = nullptr);

    /// Shows the board's part of the contents: repaints what differs from what stands there.
    void Display(const view::WindowContents& Contents);

    /// Takes the layout over: where cells, frame and labels stand, `Offset` pixels further up than the layout says.
    void PlaceBoard(const view::WindowContents& Contents, int Twips, int Offset);

    /// Where a cell stands in this widget; of a cell of 0 to 99.
    QRect CellRect(int Cell) const;

signals:
    /// The mouse on a cell: X and Y in twips from its upper left corner. Moves with a button held, and the release, are
    /// those of the cell where the press was.
    void CellPressed(int Cell, int Button, int X, int Y);
    void CellMoved(int Cell, int Button, int X, int Y);
    void CellReleased(int Cell, int Button, int X, int Y);

protected:
    void paintEvent(QPaintEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void mouseMoveEvent(QMouseEvent* Event) override;
    void mouseReleaseEvent(QMouseEvent* Event) override;

private:
    int CellAt(QPointF Where) const;
    QPoint TwipsIn(int Cell, QPointF Where) const;
    QFont LabelFont() const;
    void PaintCell(QPainter& Painter, int Cell);
    void PaintFrame(QPainter& Painter) const;
    void PaintLabels(QPainter& Painter) const;
    void ShowPointer();

    Artwork Pictures;
    base::CheckedArray<view::BoardCell, view::BoardPictures> Cells{};
    std::vector<view::EdgeLabel> EdgeLabels;
    view::LayoutFields Layout;
    view::Rectangle Frame;
    bool FrameShown = false;
    int TwipsPerPixel = 15;
    int UpBy = 0;         // pixels by which everything stands further up than in the layout
    int PressedCell = -1; // the cell that hears of the mouse while a button is held
    view::Picture PointerShown = view::Picture::None;
};

} // namespace zonterbrook::ui
