// A window in a test and a person's hands on it: finding controls, dragging pieces, answering boxes.
#pragma once

#include "ui/main_window.h"
#include "view/draw_board.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace zonterbrook::tests {

inline int SquareNamed(const char* Name) {
    constexpr int RowLength = 12;
    const int Row = Name[1] == '0' ? 10 : Name[1] - '0';
    return (Row + 1) * RowLength + (Name[0] - 'a' + 1);
}

// Answers the message box that is about to open, and keeps what it said.
class NextBox : public QObject {
public:
    explicit NextBox(QMessageBox::StandardButton Answer) : Button(Answer) {
        connect(&Timer, &QTimer::timeout, this, [this] {
            if (auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                Timer.stop();
                Title = Box->windowTitle();
                Text = Box->text();
                Icon = Box->icon();
                QTest::mouseClick(Box->button(Button), Qt::LeftButton);
            }
        });
        Timer.start(1);
    }

    QString Title;
    QString Text;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;

private:
    QMessageBox::StandardButton Button;
    QTimer Timer;
};

// Does something as soon as a search has been at work for a while, from within the turns that it gives.
class InMidSearch : public QObject {
public:
    InMidSearch(control::GameState& State, std::function<void()> What) {
        connect(&Timer, &QTimer::timeout, this, [this, &State, What = std::move(What)] {
            constexpr int SomeTurns = 5;
            if (State.SearchActive != 0 && State.NodeCount > 0 && ++Turns == SomeTurns) {
                Timer.stop();
                What();
            }
        });
        Timer.start(1);
    }

    int Turns = 0;

private:
    QTimer Timer;
};

class WindowHands {
public:
    // A window of its own for each case, against a computer that answers at once.
    void Open() {
        Written = std::make_unique<QTemporaryDir>();
        QVERIFY(Written->isValid());
        Window =
            std::make_unique<ui::MainWindow>(ui::ProgramFolders{ZONTERBROOK_DATA_DIR, Written->path().toStdString()});
        Game().ConfirmExit = 0;
        Game().UseSound = 0;
        Game().FixedDepth = 1;
        Game().SearchDepth = 1;
        Window->show();
        Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(Window.get()));
    }

    void Close() {
        Window.reset();
        Written.reset();
    }

    control::GameState& Game() { return Window->GameOf(); }
    QPoint Middle(const char* Square) {
        return Window->BoardOf().CellRect(view::CellOfSquare(Game(), SquareNamed(Square))).center();
    }
    void Drag(const char* From, const char* To) {
        ui::BoardWidget* Board = &Window->BoardOf();
        QTest::mouseMove(Board, Middle(From));
        QTest::mousePress(Board, Qt::LeftButton, {}, Middle(From));
        QTest::mouseMove(Board, Middle(To));
        QTest::mouseRelease(Board, Qt::LeftButton, {}, Middle(To));
    }
    void PlayBothSides() {
        Window->ActionOf(view::CommandId::Pplayer)->trigger();
        QCOMPARE(Game().PlayMode, view::PlayerPlayer);
    }
    template <class Kind>
    Kind* Find(const char* Name) {
        return Window->findChild<Kind*>(QLatin1String(Name));
    }

    std::unique_ptr<QTemporaryDir> Written;
    std::unique_ptr<ui::MainWindow> Window;
};

} // namespace zonterbrook::tests
