// The board as it is shown, as a picture of its own: for the clipboard, for a file, for paper.
#pragma once

#include "ui/artwork.h"
#include "view/state.h"

#include <QImage>
#include <QString>

class QPainter;

namespace zonterbrook::ui {

/// Paints the board over `Area`, which must be square, with its notation at the edges.
void PaintDiagram(QPainter& Painter, Artwork& Art, const view::ViewState& Shown, const QRect& Area);

QImage DiagramImage(Artwork& Art, const view::ViewState& Shown, int Pixels);

/// Writes the picture: a drawing if the name ends in ".svg", else a bitmap of that kind. Gives what was wrong, or an
/// empty text.
QString SaveDiagramPicture(Artwork& Art, const view::ViewState& Shown, const QString& File, int Pixels);

} // namespace zonterbrook::ui
