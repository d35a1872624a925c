// The board played on with real keys, and the frame that shows where they are.
#pragma once

#include "window_hands.h"

#include <QObject>

namespace zonterbrook::tests {

class KeyboardTest : public QObject, private WindowHands {
    Q_OBJECT

private slots:
    void init() { Open(); }
    void cleanup() { Close(); }

    void TabGoesRoundTheWindow();
    void MoveIsMadeWithTheKeys();
    void EscapePutsThePieceBack();
    void CancelIsStillEscape();
    void FrameIsSeen_data();
    void FrameIsSeen();
    void FrameComesAndGoesWithTheKeyboard();
    void PieceGoesWithTheCursor();
    void NumbersShowWhileTheKeyIsHeld();
    void EditorOpensAtTheCursor();
    void ClosedBoxLeavesNoFrame();
    void WindowGoesWhileTheBoardHasTheKeyboard();

private:
    void Press(Qt::Key Key) { QTest::keyClick(&Window->BoardOf(), Key); }
    void WalkTo(const char* Square);
};

} // namespace zonterbrook::tests
