// The tests of the window: real widgets, real mouse and key events, drawn off screen. With the name of a class as the
// first word only its tests are run.
#include "board_test.h"
#include "keyboard_test.h"
#include "screen_reader_test.h"
#include "sound_test.h"
#include "wild_window_test.h"
#include "window_test.h"

#include <QApplication>
#include <QTest>

#include <cstdlib>
#include <memory>
#include <vector>

int main(int Count, char** Words) {
    using namespace zonterbrook::tests;
    QApplication Application(Count, Words);
    // A test that closes its window must not end the event loops of those that follow.
    QApplication::setQuitOnLastWindowClosed(false);
    std::vector<std::unique_ptr<QObject>> Classes;
    Classes.push_back(std::make_unique<BoardTest>());
    Classes.push_back(std::make_unique<WindowTest>());
    Classes.push_back(std::make_unique<KeyboardTest>());
    Classes.push_back(std::make_unique<ScreenReaderTest>());
    Classes.push_back(std::make_unique<SoundTest>());
    Classes.push_back(std::make_unique<WildWindowTest>());

    QStringList Arguments = QCoreApplication::arguments();
    const auto Named = [&](const QObject& Class) {
        return Arguments.size() > 1 &&
               QString::fromLatin1(Class.metaObject()->className()).endsWith(QStringLiteral("::") + Arguments.at(1));
    };
    for (const auto& Class : Classes) {
        if (Named(*Class)) {
            Arguments.removeAt(1);
            return QTest::qExec(Class.get(), Arguments);
        }
    }
    int Failures = 0;
    for (const auto& Class : Classes) {
        Failures += QTest::qExec(Class.get(), Arguments);
    }
    return Failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
