// The tests of the window: real widgets, real mouse and key events, drawn off screen.
#include "board_test.h"
#include "keyboard_test.h"
#include "screen_reader_test.h"
#include "sound_test.h"
#include "window_test.h"

#include <QApplication>
#include <QTest>

int main(int Count, char** Words) {
    QApplication Application(Count, Words);
    // A test that closes its window must not end the event loops of those that follow.
    QApplication::setQuitOnLastWindowClosed(false);
    zonterbrook::tests::BoardTest Board;
    zonterbrook::tests::WindowTest Window;
    zonterbrook::tests::KeyboardTest Keyboard;
    zonterbrook::tests::ScreenReaderTest ScreenReader;
    zonterbrook::tests::SoundTest Sound;
    int Failures = 0;
    for (QObject* Each :
         {static_cast<QObject*>(&Board), static_cast<QObject*>(&Window), static_cast<QObject*>(&Keyboard),
          static_cast<QObject*>(&ScreenReader), static_cast<QObject*>(&Sound)}) {
        Failures += QTest::qExec(Each, Count, Words);
    }
    return Failures;
}
