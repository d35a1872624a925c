// The pictures of the board: squares, pieces and drag pointers, rendered from vector art.
//
// Each picture is composed once for each size in device pixels, square and piece together, and kept; painting a cell is
// a plain copy. Reads nothing of the game.
#pragma once

#include "view/state.h"

#include <QCursor>
#include <QHash>
#include <QPixmap>
#include <QSize>

namespace zonterbrook::ui {

/// Makes the drawings known; once, before anything is drawn with them. Again does no harm.
void RegisterArt();

class Artwork {
public:
    /// The picture of a cell, `Size` device pixels large. `Density`: device pixels to a pixel of the toolkit.
    const QPixmap& CellPicture(view::Picture Which, QSize Size, qreal Density);

    /// The mouse pointer of a piece in the hand, as large as on a cell of `CellPixels`; `Picture::None` gives the usual
    /// pointer.
    QCursor Pointer(view::Picture Which, int CellPixels, qreal Density);

private:
    QHash<quint64, QPixmap> Prepared;
};

} // namespace zonterbrook::ui
