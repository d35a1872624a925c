// The pictures of the board: squares, pieces and drag pointers, rendered from vector art.
//
// The art is a handful of drawings, each the size of a whole square: two squares and four pieces with their shadows.
// The fourteen pictures are what can be made by laying one over the other.
#include "ui/artwork.h"

#include <QPainter>
#include <QSvgRenderer>

#include <array>

// The drawings lie in a library, from which nothing is linked that is not named; the macro wants to stand outside of
// any namespace.
static void NameTheDrawings() {
    Q_INIT_RESOURCE(art);
}

namespace zonterbrook::ui {

namespace {

struct Layers {
    const char* Square; // nullptr: nothing behind the piece
    const char* Piece;  // nullptr: nothing on the square
};

// In the order of `view::Picture`.
constexpr std::array<Layers, view::PictureCount> Recipes{{
    {"dark_square", nullptr},
    {"light_square", nullptr},
    {"dark_square", "white_man"},
    {"dark_square", "black_man"},
    {"dark_square", "white_king"},
    {"dark_square", "black_king"},
    {"light_square", "white_man"},
    {"light_square", "black_man"},
    {"light_square", "white_king"},
    {"light_square", "black_king"},
    {nullptr, "white_man"},
    {nullptr, "black_man"},
    {nullptr, "white_king"},
    {nullptr, "black_king"},
}};

void PaintLayer(QPainter& Painter, const char* Name, const QRectF& Place) {
    if (Name == nullptr) {
        return;
    }
    // Read once: a window that is resized draws them anew for each size.
    static QHash<QLatin1String, std::shared_ptr<QSvgRenderer>> Drawings;
    std::shared_ptr<QSvgRenderer>& Drawing = Drawings[QLatin1String(Name)];
    if (Drawing == nullptr) {
        Drawing = std::make_shared<QSvgRenderer>(QStringLiteral(":/art/pieces/%1.svg").arg(QLatin1String(Name)));
    }
    Drawing->render(&Painter, Place);
}

QPixmap Compose(view::Picture Which, QSize Size, qreal Density) {
    const Layers& Recipe = Recipes.at(static_cast<std::size_t>(Which));
    QImage Canvas(Size, Recipe.Square != nullptr ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    Canvas.fill(Recipe.Square != nullptr ? Qt::black : Qt::transparent);
    QPainter Painter(&Canvas);
    Painter.setRenderHint(QPainter::Antialiasing);
    const QRectF Place(QPointF(0, 0), QSizeF(Size));
    PaintLayer(Painter, Recipe.Square, Place);
    PaintLayer(Painter, Recipe.Piece, Place);
    Painter.end();
    QPixmap Picture = QPixmap::fromImage(std::move(Canvas));
    Picture.setDevicePixelRatio(Density);
    return Picture;
}

} // namespace

void RegisterArt() {
    NameTheDrawings();
}

const QPixmap& Artwork::CellPicture(view::Picture Which, QSize Size, qreal Density) {
    // A density enters the key because it is stored in the picture; in 1/1000, which no desktop's steps are finer than.
    const quint64 Key = (static_cast<quint64>(Which) << 56) | (static_cast<quint64>(Size.width() & 0xFFFF) << 40) |
                        (static_cast<quint64>(Size.height() & 0xFFFF) << 24) |
                        static_cast<quint64>(qRound(Density * 1000) & 0xFFFFFF);
    auto Found = Prepared.find(Key);
    if (Found == Prepared.end()) {
        const SkinPicture& Own = Skin.at(static_cast<std::size_t>(Which));
        const bool HasOwn = SkinUsed && (Own.Drawing != nullptr || !Own.Bitmap.isNull());
        Found = Prepared.insert(Key, HasOwn ? ComposeSkin(Own, Which, Size, Density) : Compose(Which, Size, Density));
    }
    return *Found;
}

QPixmap Artwork::ComposeSkin(const SkinPicture& Source, view::Picture Which, QSize Size, qreal Density) const {
    const bool Pointer = Which >= view::Picture::white_man_ico;
    QImage Canvas(Size, Pointer ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    Canvas.fill(Pointer ? Qt::transparent : Qt::black);
    QPainter Painter(&Canvas);
    if (Source.Drawing != nullptr) {
        Painter.setRenderHint(QPainter::Antialiasing);
        Source.Drawing->render(&Painter, QRectF(QPointF(0, 0), QSizeF(Size)));
    } else {
        const bool Same = Source.Bitmap.size() == Size;
        Painter.drawImage(
            0, 0, Same ? Source.Bitmap : Source.Bitmap.scaled(Size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    Painter.end();
    QPixmap Picture = QPixmap::fromImage(std::move(Canvas));
    Picture.setDevicePixelRatio(Density);
    return Picture;
}

void Artwork::Paint(QPainter& Painter, view::Picture Which, const QRectF& Place) const {
    const SkinPicture& Own = Skin.at(static_cast<std::size_t>(Which));
    if (SkinUsed && Own.Drawing != nullptr) {
        Own.Drawing->render(&Painter, Place);
        return;
    }
    if (SkinUsed && !Own.Bitmap.isNull()) {
        Painter.setRenderHint(QPainter::SmoothPixmapTransform);
        Painter.drawImage(Place, Own.Bitmap);
        return;
    }
    const Layers& Recipe = Recipes.at(static_cast<std::size_t>(Which));
    PaintLayer(Painter, Recipe.Square, Place);
    PaintLayer(Painter, Recipe.Piece, Place);
}

bool Artwork::LoadSkin(std::span<const std::filesystem::path> Files) {
    std::array<SkinPicture, view::PictureCount> Read;
    for (std::size_t Index = 0; Index < Read.size() && Index < Files.size(); ++Index) {
        if (Files[Index].empty()) {
            continue;
        }
        const QString Name = QString::fromStdU16String(Files[Index].u16string());
        SkinPicture& Picture = Read.at(Index);
        if (Name.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
            Picture.Drawing = std::make_shared<QSvgRenderer>(Name);
        } else {
            Picture.Bitmap = QImage(Name);
        }
        if (Picture.Drawing != nullptr ? !Picture.Drawing->isValid() : Picture.Bitmap.isNull()) {
            return false;
        }
    }
    Skin = std::move(Read);
    Prepared.clear();
    return true;
}

void Artwork::UseSkin(bool Use) {
    SkinUsed = Use;
    Prepared.clear();
}

QCursor Artwork::Pointer(view::Picture Which, int CellPixels, qreal Density) {
    if (Which == view::Picture::None) {
        return QCursor(Qt::ArrowCursor);
    }
    const int Side = qRound(CellPixels * Density);
    // Held by its middle, so that the square under the piece is the one that it falls on.
    return QCursor(CellPicture(Which, QSize(Side, Side), Density), CellPixels / 2, CellPixels / 2);
}

} // namespace zonterbrook::ui
