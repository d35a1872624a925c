// The main window with a game in it, driven by mouse and keys as a person would.
#pragma once

#include "ui/main_window.h"

#include <QObject>
#include <QTemporaryDir>

#include <memory>

namespace zonterbrook::tests {

class WindowTest : public QObject {
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

private:
    control::GameState& Game() { return Window->GameOf(); }
    QPoint Middle(const char* Square);
    void Drag(const char* From, const char* To);
    void PlayBothSides();
    template <class Kind>
    Kind* Find(const char* Name) {
        return Window->findChild<Kind*>(QLatin1String(Name));
    }

    std::unique_ptr<QTemporaryDir> Written;
    std::unique_ptr<ui::MainWindow> Window;
};

} // namespace zonterbrook::tests
