// The icons of menus and toolbar: line drawings that take their colours from the palette in force.
//
// The drawings name four inks. Before a drawing is rendered the inks are exchanged for colours that can be read on the
// window's background, dark or light, and for a single faded one when the command is disabled.
#include "ui/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include <array>
#include <utility>

namespace zonterbrook::ui {

namespace {

struct Ink {
    const char* Drawn;   // in the resource
    const char* OnLight; // nullptr: the palette's text colour
    const char* OnDark;
};

constexpr std::array<Ink, 4> Inks{{
    {"#202020", nullptr, nullptr},
    {"#2e7d32", "#2e7d32", "#7cc67f"},
    {"#c62828", "#c62828", "#ef7a72"},
    {"#1565c0", "#1565c0", "#7ab8f5"},
}};

QByteArray Recoloured(QByteArray Drawing, QIcon::Mode Mode) {
    const QPalette Palette = QGuiApplication::palette();
    const bool Disabled = Mode == QIcon::Disabled;
    const auto Group = Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor Text =
        Palette.color(Group, Mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    const bool Dark = Palette.color(QPalette::Button).lightness() < 128;
    for (const Ink& Each : Inks) {
        const bool Plain = Each.OnLight == nullptr || Disabled || Mode == QIcon::Selected;
        const QColor Colour = Plain ? Text : QColor(QLatin1String(Dark ? Each.OnDark : Each.OnLight));
        Drawing.replace(Each.Drawn, Colour.name().toLatin1());
    }
    return Drawing;
}

class LineIconEngine : public QIconEngine {
public:
    LineIconEngine(QByteArray Source, std::shared_ptr<const bool> LooksOpen)
        : Drawing(std::move(Source)), Steady(std::move(LooksOpen)) {}

    void paint(QPainter* Painter, const QRect& Area, QIcon::Mode Mode, QIcon::State) override {
        const bool Held = Mode == QIcon::Disabled && Steady != nullptr && *Steady;
        QSvgRenderer Renderer(Recoloured(Drawing, Held ? QIcon::Normal : Mode));
        Painter->save();
        Painter->setRenderHint(QPainter::Antialiasing);
        Renderer.render(Painter, QRectF(Area));
        Painter->restore();
    }

    QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override {
        QPixmap Picture(Size);
        Picture.fill(Qt::transparent);
        QPainter Painter(&Picture);
        paint(&Painter, QRect(QPoint(0, 0), Size), Mode, State);
        return Picture;
    }

    QIconEngine* clone() const override { return new LineIconEngine(*this); }

private:
    QByteArray Drawing;
    std::shared_ptr<const bool> Steady;
};

} // namespace

QIcon LineIcon(const QString& Name, std::shared_ptr<const bool> LooksOpen) {
    if (Name.isEmpty()) {
        return {};
    }
    QFile File(QStringLiteral(":/art/icons/%1.svg").arg(Name));
    if (!File.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QIcon(new LineIconEngine(File.readAll(), std::move(LooksOpen)));
}

QIcon ProgramIcon() {
    return QIcon(QStringLiteral(":/art/zonterbrook.svg"));
}

} // namespace zonterbrook::ui
