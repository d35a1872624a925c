// The icons of menus and toolbar: line drawings that take their colours from the palette in force.
//
// They read nothing of the game. The drawings are resources of the program; one drawing serves light and dark desktops,
// every size and every screen density.
#pragma once

#include <QIcon>
#include <QString>

#include <memory>

namespace zonterbrook::ui {

/// The icon drawn in the resource `Name`; an empty icon for an empty name. It is drawn anew for every size, density and
/// state that is asked of it, in the text colour of the application's palette at that moment. While `LooksOpen` holds,
/// a disabled icon looks as an enabled one.
QIcon LineIcon(const QString& Name, std::shared_ptr<const bool> LooksOpen = nullptr);

/// The program's own icon.
QIcon ProgramIcon();

} // namespace zonterbrook::ui
