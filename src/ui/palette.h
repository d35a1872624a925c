// The desktop's colours, as far as they need mending.
#pragma once

#include <QGuiApplication>
#include <QPalette>

namespace zonterbrook::ui {

/// The application's palette. Placeholders are a fainter text: a dark desktop need not name a colour for them, and they
/// would be black on black.
inline QPalette DesktopPalette() {
    QPalette Colours = QGuiApplication::palette();
    QColor Faint = Colours.color(QPalette::Active, QPalette::Text);
    Faint.setAlphaF(0.5F);
    Colours.setColor(QPalette::PlaceholderText, Faint);
    return Colours;
}

} // namespace zonterbrook::ui
