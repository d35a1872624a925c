// The main window with a game in it, driven by mouse and keys as a person would.
#pragma once

#include "window_hands.h"

#include <QObject>

namespace zonterbrook::tests {

class WindowTest : public QObject, private WindowHands {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void OpensWithTheBoardDrawn();
    void DragMakesTheMove();
    void DropOutsidePutsThePieceBack();
    void EscapePutsThePieceBack();
    void TypedMoveIsPlayed();
    void DoubleClickedLineIsPlayed();
    void WrongColourIsRefused();
    void MovablePiecesAreBoxed();
    void TurnedBoardIsMirrored();
    void EntriesFollowTheState();
    void RefusedChoiceKeepsItsTick();
    void ArrowsStepThroughTheGame();
    void CommentsStayWithTheirMove();
    void ComputerAnswers();
    void KeyboardComesBackAfterTheReply();
    void CancelStopsTheSearch();
    void ClosingInMidSearchEndsCleanly();
    void ClosingCanBeRefused();
    void EverythingIsNamed();
    void TextsAreReadWhole_data();
    void TextsAreReadWhole();
};

} // namespace zonterbrook::tests
