// The board as a picture of its own.
#include "ui/diagram_picture.h"

#include "formats/text_file.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QSvgGenerator>

namespace zonterbrook::ui {

namespace {

constexpr int CellsInRow = 10;
constexpr double EdgePart = 0.055; // of the side, for the notation

// The texts of the edges in the order in which they stand: each column from the left, each row from below.
void PaintEdges(QPainter& Painter, const view::ViewState& Shown, const QRectF& Board, double Edge) {
    QFont Small = Painter.font();
    Small.setPixelSize(std::max(6, static_cast<int>(Edge * 0.6)));
    Painter.setFont(Small);
    Painter.setPen(Qt::black);
    const double CellSide = Board.width() / CellsInRow;
    for (const view::EdgeLabel& Label : Shown.EdgeLabels) {
        const view::LayoutFields& Layout = Shown.Layout;
        const bool Below = Label.Y > Layout.BoardTop + CellsInRow * Layout.Pitch - Layout.Pitch / 4;
        const QString Words = QString::fromStdString(Label.Text);
        if (Below) {
            const int Column = std::clamp((Label.X + 200 - Layout.BoardLeft) / Layout.Pitch, 0, CellsInRow - 1);
            Painter.drawText(QRectF(Board.left() + Column * CellSide, Board.bottom(), CellSide, Edge), Qt::AlignCenter,
                             Words);
        } else {
            const int Row = std::clamp((Label.Y + 100 - Layout.BoardTop) / Layout.Pitch, 0, CellsInRow - 1);
            Painter.drawText(QRectF(Board.left() - Edge, Board.top() + Row * CellSide, Edge, CellSide), Qt::AlignCenter,
                             Words);
        }
    }
}

QString WriteSvg(Artwork& Art, const view::ViewState& Shown, const QString& File, int Pixels) {
    QBuffer Bytes;
    QSvgGenerator Drawing;
    Drawing.setOutputDevice(&Bytes);
    Drawing.setSize(QSize(Pixels, Pixels));
    Drawing.setViewBox(QRect(0, 0, Pixels, Pixels));
    Drawing.setTitle(QString::fromStdString(Shown.VariantTitle));
    QPainter Painter(&Drawing);
    PaintDiagram(Painter, Art, Shown, QRect(0, 0, Pixels, Pixels));
    Painter.end();
    const auto Failure = formats::WriteFile(std::filesystem::path(File.toStdU16String()), Bytes.data().toStdString());
    return Failure ? QString::fromStdString(Failure->Text()) : QString();
}

} // namespace

void PaintDiagram(QPainter& Painter, Artwork& Art, const view::ViewState& Shown, const QRect& Area) {
    const double Edge = Shown.EdgeLabels.empty() ? Area.width() * 0.01 : Area.width() * EdgePart;
    const double Side = Area.width() - Edge - Area.width() * 0.01;
    const QRectF Board(Area.left() + Edge, Area.top() + Area.width() * 0.01, Side, Side);
    Painter.fillRect(Area, Qt::white);
    Painter.setRenderHint(QPainter::Antialiasing);
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        const double CellSide = Side / CellsInRow;
        const int Row = Cell / CellsInRow;
        const QRectF Place(Board.left() + Cell % CellsInRow * CellSide, Board.top() + Row * CellSide, CellSide,
                           CellSide);
        Art.Paint(Painter, Shown.Cells[Cell].Shows, Place);
    }
    Painter.setPen(QPen(Qt::black, std::max(1.0, Area.width() / 400.0)));
    Painter.setBrush(Qt::NoBrush);
    Painter.drawRect(Board);
    PaintEdges(Painter, Shown, Board, Edge);
}

QImage DiagramImage(Artwork& Art, const view::ViewState& Shown, int Pixels) {
    QImage Picture(Pixels, Pixels, QImage::Format_RGB32);
    QPainter Painter(&Picture);
    PaintDiagram(Painter, Art, Shown, Picture.rect());
    return Picture;
}

QString SaveDiagramPicture(Artwork& Art, const view::ViewState& Shown, const QString& File, int Pixels) {
    const QString Kind = QFileInfo(File).suffix().toLower();
    if (Kind == QLatin1String("svg")) {
        return WriteSvg(Art, Shown, File, Pixels);
    }
    QBuffer Bytes;
    QImageWriter Writer(&Bytes, Kind.toLatin1());
    if (!Writer.write(DiagramImage(Art, Shown, Pixels))) {
        return QObject::tr("%1: pictures of this kind can't be written").arg(File);
    }
    const auto Failure = formats::WriteFile(std::filesystem::path(File.toStdU16String()), Bytes.data().toStdString());
    return Failure ? QString::fromStdString(Failure->Text()) : QString();
}

} // namespace zonterbrook::ui
