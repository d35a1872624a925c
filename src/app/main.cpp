// Zonterbrook: draughts in a hundred variants.
//
// Finds the program's folder and the folder for what it writes, makes the main window and hands over to its events.
// There is no command line.
#include "ui/main_window.h"

#include <QApplication>
#include <QStandardPaths>

#include <filesystem>

int main(int Count, char** Words) {
    QApplication Application(Count, Words);
    QApplication::setApplicationName(QStringLiteral("zonterbrook"));
    QGuiApplication::setDesktopFileName(QStringLiteral("zonterbrook"));

    const std::filesystem::path Program = QCoreApplication::applicationDirPath().toStdString();
    const std::filesystem::path OfUser =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() + "/zonterbrook";
    zonterbrook::ui::MainWindow Window(zonterbrook::ui::FindFolders(Program, OfUser));
    Window.show();
    return QApplication::exec();
}
