// The tests of the window: real widgets, real mouse and key events, drawn off screen and without a sound.
#include <QApplication>
#include <gtest/gtest.h>

int main(int Count, char** Words) {
    testing::InitGoogleTest(&Count, Words);
    qputenv("PULSE_SERVER", "/nonexistent/socket"); // nothing can be heard where there is no such server
    QApplication Application(Count, Words);
    // A test that closes its window must not end the event loops of those that follow.
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
