// A small board that only shows a position.
#include "ui/board_preview.h"

#include <QPainter>

#include <algorithm>

namespace zonterbrook::ui {

namespace {

using view::Picture;

constexpr int Side = 10;
constexpr int UsualPixels = 170;

// [dark, light][digit of a set-up]
constexpr Picture Pictures[2][5] = {{Picture::dark_square, Picture::dark_white_man, Picture::dark_black_man,
                                     Picture::dark_white_king, Picture::dark_black_king},
                                    {Picture::light_square, Picture::light_white_man, Picture::light_black_man,
                                     Picture::light_white_king, Picture::light_black_king}};

} // namespace

BoardPreview::BoardPreview(Artwork& InArt, QWidget* Parent) : QWidget(Parent), Art(InArt) {
    setFixedSize(UsualPixels, UsualPixels);
    setAccessibleName(tr("Start position"));
}

void BoardPreview::Display(const std::string& InSquares, int InPiecesOnBlack) {
    if (Squares != InSquares || PiecesOnBlack != InPiecesOnBlack) {
        Squares = InSquares;
        PiecesOnBlack = InPiecesOnBlack;
        update();
    }
}

void BoardPreview::paintEvent(QPaintEvent* /*Event*/) {
    QPainter Painter(this);
    if (!Squares.empty()) {
        PaintPosition(Painter, Art, rect(), Squares, PiecesOnBlack);
    }
}

void PaintPosition(QPainter& Painter, Artwork& Art, const QRect& Area, const std::string& Squares, int PiecesOnBlack) {
    const qreal Density = Painter.device()->devicePixelRatioF();
    const int Cell = Area.width() / Side;
    for (std::size_t Index = 0; Index < Squares.size(); ++Index) {
        const int Row = static_cast<int>(Index) / Side;
        const int Column = static_cast<int>(Index) % Side;
        // The corner at White's left is dark unless the pieces stand on the other colour.
        const bool Dark = ((Row + Column) % 2 == 0) == (PiecesOnBlack != 0);
        const int Digit = std::clamp(Squares[Index] - '0', 0, 4);
        const bool OnLight = !Dark && (PiecesOnBlack == 2 || Digit == 0);
        const QSize Size = QSize(Cell, Cell) * Density;
        Painter.drawPixmap(Area.left() + Column * Cell, Area.top() + (Side - 1 - Row) * Cell,
                           Art.CellPicture(Pictures[OnLight ? 1 : 0][Digit], Size, Density));
    }
}

} // namespace zonterbrook::ui
