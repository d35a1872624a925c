// The board played on with real keys, and the frame that shows where they are.
#include "keyboard_test.h"

#include "view/board_cursor.h"

#include <cmath>

namespace zonterbrook::tests {

namespace {

// How far two colours lie apart in lightness, as the rules for readable pages count it: 1 to 21.
double Contrast(QColor A, QColor B) {
    const auto Luminance = [](QColor Colour) {
        const auto Linear = [](double Value) {
            return Value <= 0.03928 ? Value / 12.92 : std::pow((Value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * Linear(Colour.redF()) + 0.7152 * Linear(Colour.greenF()) + 0.0722 * Linear(Colour.blueF());
    };
    const double Light = std::max(Luminance(A), Luminance(B));
    const double Dark = std::min(Luminance(A), Luminance(B));
    return (Light + 0.05) / (Dark + 0.05);
}

} // namespace

void KeyboardTest::WalkTo(const char* Square) {
    const int Wanted = view::CellOfSquare(Game(), SquareNamed(Square));
    for (int Steps = 0; Steps < 20 && Game().CursorCell != Wanted; ++Steps) {
        const int Right = Wanted % 10 - Game().CursorCell % 10;
        const int Down = Wanted / 10 - Game().CursorCell / 10;
        Press(Right > 0 ? Qt::Key_Right : Right < 0 ? Qt::Key_Left : Down > 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    QCOMPARE(Game().CursorCell, Wanted);
}

void KeyboardTest::TabGoesRoundTheWindow() {
    const char* Round[] = {"c", "List1", "List2", "List3", "Text2", "Text1", "c"};
    Game().List3.Enabled = true; // as after a calculation
    Window->ShowContents();
    QVERIFY(Window->BoardOf().hasFocus());
    for (const char* Name : Round) {
        QCOMPARE(Window->focusWidget()->objectName(), QLatin1String(Name));
        QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(Window->focusWidget(), Qt::Key_Backtab);
    QCOMPARE(Window->focusWidget(), &Window->BoardOf());
}

void KeyboardTest::MoveIsMadeWithTheKeys() {
    PlayBothSides();
    Press(Qt::Key_Right); // shows the cursor
    QVERIFY(Game().CursorCell >= 0);
    WalkTo("d4");
    Press(Qt::Key_Return);
    QCOMPARE(Game().SourceCell, Game().CursorCell);
    WalkTo("e5");
    Press(Qt::Key_Space);
    QCOMPARE(Game().GameMoves, 1);
    QCOMPARE(Game().Board[SquareNamed("e5")], 1);
    WalkTo("e9"); // Black's turn, and this man is shut in
    NextBox Refusal(QMessageBox::Ok);
    Press(Qt::Key_Enter);
    QCOMPARE(Refusal.Text, QStringLiteral("You cannot move that piece"));
    Window->activateWindow(); // which a desktop does by itself
    QVERIFY(QTest::qWaitForWindowActive(Window.get()));
    QVERIFY(Window->BoardOf().hasFocus());
    QCOMPARE(Window->BoardOf().CursorCell(), view::CellOfSquare(Game(), SquareNamed("e9")));
}

void KeyboardTest::EscapePutsThePieceBack() {
    PlayBothSides();
    Press(Qt::Key_Up);
    WalkTo("d4");
    Press(Qt::Key_Return);
    WalkTo("e5");
    Press(Qt::Key_Escape);
    QCOMPARE(Game().SourceCell, -1);
    QCOMPARE(Game().GameMoves, 0);
}

void KeyboardTest::CancelIsStillEscape() {
    Game().SearchDepth = 20;
    bool Cancelled = false;
    InMidSearch Escape(Game(), [&] {
        Press(Qt::Key_Left); // the cursor walks meanwhile
        Press(Qt::Key_Return);
        QCOMPARE(Game().SourceCell, -1);
        Press(Qt::Key_Escape);
        Cancelled = Game().CancelRequested != 0;
    });
    Press(Qt::Key_Right);
    WalkTo("d4");
    Press(Qt::Key_Return);
    WalkTo("e5");
    Press(Qt::Key_Return);
    QVERIFY(Cancelled);
    QCOMPARE(Game().GameMoves, 2);
}

void KeyboardTest::FrameIsSeen_data() {
    QTest::addColumn<QByteArray>("Square");
    for (const char* Square : {"d4", "b8", "e5", "d5"}) {
        QTest::newRow(Square) << QByteArray(Square);
    }
}

// On each kind of square the frame has a line that stands out from what is below it, all the way round.
void KeyboardTest::FrameIsSeen() {
    QFETCH(QByteArray, Square);
    constexpr double StandsOut = 3;
    const QImage Before = Window->BoardOf().grab().toImage();
    view::SetCursor(Game(), SquareNamed(Square.constData()));
    view::ShowCursor(Game(), true);
    Window->ShowContents();
    const QImage After = Window->BoardOf().grab().toImage();
    const QRect Area = Window->BoardOf().CellRect(Game().CursorCell);
    const int Half = Area.width() / 2;
    for (const QPoint Way : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
        double Best = 1;
        for (int Out = Half / 2; Out < Half; ++Out) {
            const QPoint Here = Area.center() + Way * Out;
            Best = std::max(Best, Contrast(Before.pixelColor(Here), After.pixelColor(Here)));
        }
        QVERIFY2(Best > StandsOut, qPrintable(QString::number(Best)));
    }
    const QRect Neighbour = Window->BoardOf().CellRect(Game().CursorCell + 1);
    QCOMPARE(After.copy(Neighbour), Before.copy(Neighbour));
}

void KeyboardTest::FrameComesAndGoesWithTheKeyboard() {
    ui::BoardWidget& Board = Window->BoardOf();
    QVERIFY(Board.hasFocus());
    QCOMPARE(Board.CursorCell(), -1); // not by the keys
    QTest::keyClick(&Board, Qt::Key_Tab);
    QTest::keyClick(Window->focusWidget(), Qt::Key_Backtab);
    QVERIFY(Board.hasFocus());
    const int There = Board.CursorCell();
    QVERIFY(There >= 0);
    QTest::keyClick(&Board, Qt::Key_Tab);
    QCOMPARE(Board.CursorCell(), -1);
    Board.setFocus(); // goes on as before
    QCOMPARE(Board.CursorCell(), There);
    QTest::mouseClick(&Board, Qt::LeftButton, {}, Middle("e5"));
    QCOMPARE(Board.CursorCell(), -1);
}

void KeyboardTest::PieceGoesWithTheCursor() {
    PlayBothSides();
    Press(Qt::Key_Right);
    WalkTo("d4");
    Press(Qt::Key_Return);
    WalkTo("e5");
    const QImage Carried = Window->BoardOf().grab().toImage();
    QVERIFY(Carried.pixelColor(Middle("e5")).lightness() > Carried.pixelColor(Middle("d4")).lightness());
    QCOMPARE(Window->BoardOf().cursor().shape(), Qt::ArrowCursor);
}

void KeyboardTest::NumbersShowWhileTheKeyIsHeld() {
    Press(Qt::Key_Right);
    WalkTo("e5");
    QTest::keyPress(&Window->BoardOf(), Qt::Key_Space);
    QCOMPARE(Game().NumbersShown, 1);
    QTest::keyRelease(&Window->BoardOf(), Qt::Key_Space);
    QCOMPARE(Game().NumbersShown, 0);
}

void KeyboardTest::EditorOpensAtTheCursor() {
    Press(Qt::Key_Right);
    WalkTo("e5");
    QPoint Opened;
    QTimer Choose;
    connect(&Choose, &QTimer::timeout, this, [&] {
        if (auto* Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            Choose.stop();
            Opened = Window->BoardOf().mapFromGlobal(Menu->pos());
            Menu->setActiveAction(Window->ActionOf(view::CommandId::Whiteking));
            QTest::keyClick(Menu, Qt::Key_Return);
        }
    });
    Choose.start(1);
    Press(Qt::Key_Menu);
    QCOMPARE(Game().Board[SquareNamed("e5")], 2);
    QVERIFY(Window->BoardOf().CellRect(Game().CursorCell).adjusted(-2, -2, 2, 2).contains(Opened));
    QVERIFY(Window->BoardOf().CursorCell() >= 0);
}

// While the computer thinks the box of typed moves is closed, and its keys are the board's: without a frame, as nobody
// has gone there.
void KeyboardTest::ClosedBoxLeavesNoFrame() {
    Game().SearchDepth = 20;
    int CursorInSearch = -2;
    InMidSearch Look(Game(), [&] {
        CursorInSearch = Window->BoardOf().CursorCell();
        Window->ActionOf(view::CommandId::mnu_Play_Cancel)->trigger();
    });
    auto* Box = Find<QLineEdit>("Text2");
    Box->setFocus();
    QTest::keyClicks(Box, QStringLiteral("d4e5"));
    QTest::keyClick(Box, Qt::Key_Return);
    QCOMPARE(CursorInSearch, -1);
    QVERIFY(Box->hasFocus());
}

void KeyboardTest::WindowGoesWhileTheBoardHasTheKeyboard() {
    Press(Qt::Key_Right);
    QVERIFY(Window->BoardOf().CursorCell() >= 0);
    Window.reset(); // nothing of it may be called any more
    QVERIFY(QApplication::focusWidget() == nullptr);
}

} // namespace zonterbrook::tests
