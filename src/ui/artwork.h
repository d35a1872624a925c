// The pictures of the board: squares, pieces and drag pointers, from the program's vector art or from a skin's files.
//
// Each picture is composed once for each size in device pixels, square and piece together, and kept; painting a cell is
// a plain copy. Reads nothing of the game.
#pragma once

#include "view/state.h"

#include <QCursor>
#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QSize>

#include <array>
#include <filesystem>
#include <memory>
#include <span>

class QPainter;
class QSvgRenderer;

namespace zonterbrook::ui {

/// Makes the drawings known; once, before anything is drawn with them. Again does no harm.
void RegisterArt();

class Artwork {
public:
    /// The picture of a cell, `Size` device pixels large. `Density`: device pixels to a pixel of the toolkit.
    const QPixmap& CellPicture(view::Picture Which, QSize Size, qreal Density);

    /// Lets go of the pictures of the sizes so far: the board has another one now.
    void ForgetSizes() { Prepared.clear(); }

    /// The mouse pointer of a piece in the hand, as large as on a cell of `CellPixels`; `Picture::None` gives the usual
    /// pointer.
    QCursor Pointer(view::Picture Which, int CellPixels, qreal Density);

    /// Paints the picture of a cell itself, not a copy made for a size: for paper and drawings.
    void Paint(QPainter& Painter, view::Picture Which, const QRectF& Place) const;

    /// Reads a skin's pictures, one for each of `view::Picture`; an empty path leaves one to the program's own. False
    /// if one can't be read: then the last skin's stay.
    bool LoadSkin(std::span<const std::filesystem::path> Files);

    /// Whether the pictures are the skin's from now on, or the program's.
    void UseSkin(bool Use);

private:
    /// A picture of a skin: a drawing, or a bitmap that is scaled.
    struct SkinPicture {
        std::shared_ptr<QSvgRenderer> Drawing;
        QImage Bitmap;
    };

    QPixmap ComposeSkin(const SkinPicture& Source, view::Picture Which, QSize Size, qreal Density) const;

    QHash<quint64, QPixmap> Prepared;
    std::array<SkinPicture, view::PictureCount> Skin;
    bool SkinUsed = false;
};

} // namespace zonterbrook::ui
