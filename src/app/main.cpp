// Zonterbrook: draughts in a hundred variants.
//
// Finds the program's folder and the folder for what it writes, makes the main window and hands over to its events.
// There is no command line.
#include "ui/main_window.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdlib>
#include <filesystem>

int main(int Count, char** Words) {
    QApplication Application(Count, Words);
    QApplication::setApplicationName(QStringLiteral("zonterbrook"));
    QGuiApplication::setDesktopFileName(QStringLiteral("zonterbrook"));

    const std::filesystem::path Program = QCoreApplication::applicationDirPath().toStdString();
    const std::filesystem::path OfUser =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() + "/zonterbrook";
    zonterbrook::ui::MainWindow Window(zonterbrook::ui::FindFolders(Program, OfUser));
    if (Window.HasEnded()) {
        return EXIT_FAILURE; // the start failed and has said so
    }
    Window.show();
    return QApplication::exec();
}
