// A window in a test and a person's hands on it: finding controls, dragging pieces, pressing keys, answering boxes.
#pragma once

#include "base/text.h"
#include "control/turn_state.h"
#include "rules/square_names.h"
#include "support/rows.h"
#include "ui/main_window.h"
#include "view/board_cursor.h"
#include "view/draw_board.h"
#include "view/layout.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

/// What a failed comparison shows of a text.
inline void PrintTo(const QString& Text, std::ostream* Out) {
    *Out << '"' << qPrintable(Text) << '"';
}

namespace zonterbrook::tests {

inline QString Text(std::string_view Utf8) {
    return QString::fromUtf8(Utf8.data(), static_cast<qsizetype>(Utf8.size()));
}

using control::CommandId;
using view::Picture;

/// Does something once, as soon as it can, from within whatever gives the event loop a turn; it must come to it.
class Soon : public QObject {
public:
    Soon(std::function<bool()> CanDo, std::function<void()> What) {
        connect(&Timer, &QTimer::timeout, this, [this, CanDo = std::move(CanDo), What = std::move(What)] {
            if (CanDo()) {
                Timer.stop();
                What();
            } else if (Waited.elapsed() > WatchdogMilliseconds) {
                Timer.stop();
                ADD_FAILURE() << "what was waited for never came";
                for (QWidget* Open : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
                    if (Open != nullptr) {
                        Open->close(); // or whoever opened it would wait for ever
                    }
                }
            }
        });
        Waited.start();
        Timer.start(1);
    }
    ~Soon() override { EXPECT_FALSE(Timer.isActive()) << "what was waited for never came"; }

private:
    static constexpr qint64 WatchdogMilliseconds = 30000;

    QTimer Timer;
    QElapsedTimer Waited;
};

/// Answers the message box that is about to open, which must say "title: text"; with `NoButton`, by Escape.
class NextBox : public Soon {
public:
    NextBox(const char* Said, QMessageBox::StandardButton Answer, QMessageBox::Icon Icon)
        : Soon([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; },
               [=] {
                   auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                   EXPECT_EQ(Said, Box->windowTitle() + ": " + Box->text());
                   EXPECT_EQ(Icon, Box->icon());
                   const bool Asks = Icon == QMessageBox::Question;
                   EXPECT_TRUE(!Asks || Box->defaultButton() == Box->button(QMessageBox::Yes));
                   Answer == QMessageBox::NoButton ? QTest::keyClick(Box, Qt::Key_Escape)
                                                   : QTest::mouseClick(Box->button(Answer), Qt::LeftButton);
               }) {}
};

/// A window of its own for each test, against a computer that answers at once.
class WindowFixture : public testing::Test {
protected:
    void SetUp() override { Open(); }

    void Open() {
        Window.reset();
        Written = std::make_unique<QTemporaryDir>();
        Window = std::make_unique<ui::MainWindow>(Folders());
        Game().ConfirmExit = 0;
        Game().UseSound = 0;
        Game().FixedDepth = 1;
        Game().SearchDepth = 1;
        Window->show();
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    }
    /// As a desktop does by itself when a box has closed: only then has the window keys.
    void BackToFront() {
        if (!Window->isActiveWindow() && Window->isVisible()) {
            Window->activateWindow();
            QCoreApplication::processEvents();
        }
    }

    ui::ProgramFolders Folders() const { return {ZONTERBROOK_DATA_DIR, Written->path().toStdString()}; }
    control::GameState& Game() { return Window->GameOf(); }
    ui::BoardWidget& Board() { return Window->BoardOf(); }
    QAction* Entry(CommandId Id) { return Window->ActionOf(Id); }
    template <class Kind>
    Kind* Find(const QString& Name) {
        return Window->findChild<Kind*>(Name);
    }
    QToolButton* Button(const char* Key) { return Find<QToolButton>(QStringLiteral("Toolbar1_") + Key); }
    ui::LineList* List(const char* Name) { return Find<ui::LineList>(Name); }
    QLineEdit* TypedMove() { return Find<QLineEdit>("Text2"); }

    static int Square(const char* Name) { return rules::AlgebraicCell(base::ToUpper(Name)); }
    int Cell(const char* Name) { return view::CellOfSquare(Game(), Square(Name)); }
    std::int32_t PieceOn(const char* Name) { return Game().Board[Square(Name)]; }
    QPoint Middle(const char* Name) { return Board().CellRect(Cell(Name)).center(); }
    QImage Seen() { return Board().grab().toImage(); }

    void Take(const char* From) { QTest::mousePress(&Board(), Qt::LeftButton, {}, Middle(From)); }
    void Drop(const char* To) { QTest::mouseRelease(&Board(), Qt::LeftButton, {}, Middle(To)); }
    void Drag(const char* From, const char* To) {
        QTest::mouseMove(&Board(), Middle(From));
        Take(From);
        QTest::mouseMove(&Board(), Middle(To));
        Drop(To);
    }
    void Press(Qt::Key Key, Qt::KeyboardModifiers Held = {}) { QTest::keyClick(&Board(), Key, Held); }
    void Type(const char* Move) {
        TypedMove()->setFocus();
        QTest::keyClicks(TypedMove(), Move);
        QTest::keyClick(TypedMove(), Qt::Key_Return);
    }
    void Run(CommandId Id) { Entry(Id)->trigger(); }
    void PlayBothSides() { Run(CommandId::PlayerPlayer); }

    /// Makes the move d4-e5, and does something while the computer thinks about it for long.
    void InMidSearch(const std::function<void()>& What, bool Typed = false) {
        Game().SearchDepth = 20;
        int Turns = 0;
        const Soon Look(
            [&] { return Game().Turn == control::TurnState::Thinking && Game().NodeCount > 0 && ++Turns == 5; }, What);
        Typed ? Type("d4e5") : Drag("d4", "e5");
    }

    std::unique_ptr<QTemporaryDir> Written;
    std::unique_ptr<ui::MainWindow> Window;
};

} // namespace zonterbrook::tests
