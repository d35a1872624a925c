// The tests of the window: real widgets, real mouse and key events, drawn off screen.
#include "board_test.h"
#include "window_test.h"

#include <QApplication>
#include <QTest>

int main(int Count, char** Words) {
    QApplication Application(Count, Words);
    // A test that closes its window must not end the event loops of those that follow.
    QApplication::setQuitOnLastWindowClosed(false);
    zonterbrook::tests::BoardTest Board;
    zonterbrook::tests::WindowTest Window;
    return QTest::qExec(&Board, Count, Words) + QTest::qExec(&Window, Count, Words);
}
