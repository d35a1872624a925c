// Zonterbrook: draughts in a hundred variants.
//
// Finds the program's folder and the folder for what it writes, makes the main window and hands over to its events.
// The only word of its command line is a file to open, which the desktop gives it.
#include "ui/main_window.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdlib>
#include <filesystem>

int main(int Count, char** Arguments) {
    QApplication Application(Count, Arguments);
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
    const QStringList Words = QCoreApplication::arguments();
    if (Words.size() > 1) {
        // The window stands first, so that a message has something to stand over.
        const std::filesystem::path File(Words.at(1).toStdU16String());
        QMetaObject::invokeMethod(
            &Window, [&Window, File] { Window.OpenFile(File); }, Qt::QueuedConnection);
    }
    return QApplication::exec();
}
