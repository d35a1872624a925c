// The main window with a game in it, driven by mouse and keys as a person would.
//
// Most cases play both sides by hand; the few with the computer use shallow searches, or deep ones that are cancelled.
#include "window_test.h"

#include "view/layout.h"

#include <QToolButton>

namespace zonterbrook::tests {

namespace {

using view::CommandId;
using view::Highlight;
using view::Picture;

} // namespace

void WindowTest::init() {
    Open();
}

void WindowTest::cleanup() {
    Close();
}

// --- What is seen
// --------------------------------------------------------------------------------------------------------

void WindowTest::OpensWithTheBoardDrawn() {
    const QImage Picture = Window->BoardOf().grab().toImage();
    const auto At = [&](const char* Square) { return Picture.pixelColor(Middle(Square)).lightness(); };
    QVERIFY(At("d4") > At("e5")); // a white man on it, and none
    QVERIFY(At("c9") < At("d6")); // a black man
    QVERIFY(At("e6") > At("e5")); // a light square, and a dark one
    QVERIFY(Window->windowTitle().startsWith(QStringLiteral("Zonterbrook 1.20")));
    QCOMPARE(Find<QLabel>("Label3")->text(), QStringLiteral("White"));
    QCOMPARE(Find<QLabel>("Label5")->text(), QStringLiteral("20"));
    QCOMPARE(Find<ui::LineList>("List2")->count(), 9);
    const QRect Frame = Window->frameGeometry();
    const QRect Free = Window->screen()->availableGeometry();
    QVERIFY(std::abs(Frame.center().x() - Free.center().x()) <= 2 || Frame.width() > Free.width());
}

void WindowTest::EverythingIsNamed() {
    const char* Names[] = {"c", "List1", "List2", "List3", "Text1", "Text2", "Progress", "Toolbar1", "StatusBar1"};
    for (const char* Name : Names) {
        QVERIFY2(Find<QWidget>(Name) != nullptr, Name);
    }
    for (int I = 1; I <= 14; ++I) {
        auto* Label = Find<QLabel>(qPrintable(QStringLiteral("Label%1").arg(I)));
        QVERIFY(Label != nullptr);
        QVERIFY(!Label->accessibleDescription().isEmpty());
    }
    for (const view::CommandRow& Row : view::CommandRows()) {
        const QByteArray Name(Row.Name.data(), static_cast<qsizetype>(Row.Name.size()));
        QVERIFY2(Find<QObject>(Name.constData()) != nullptr, Name.constData());
    }
    const auto Buttons =
        Find<QToolBar>("Toolbar1")->findChildren<QToolButton*>(QRegularExpression(QStringLiteral("^Toolbar1_")));
    QCOMPARE(static_cast<std::size_t>(Buttons.size()), view::ToolbarButtons().size());
    for (const QToolButton* Button : Buttons) {
        QVERIFY2(!Button->accessibleName().isEmpty(), qPrintable(Button->objectName()));
        QVERIFY2(!Button->icon().isNull(), qPrintable(Button->objectName()));
    }
}

void WindowTest::TextsAreReadWhole_data() {
    QTest::addColumn<int>("SizeClass");
    QTest::addColumn<int>("FontPixels");
    for (const int SizeClass : {0, 2}) {
        for (const int FontPixels : {11, 13, 17, 22}) {
            QTest::newRow(qPrintable(QStringLiteral("size %1, font of %2").arg(SizeClass).arg(FontPixels)))
                << SizeClass << FontPixels;
        }
    }
}

void WindowTest::TextsAreReadWhole() {
    QFETCH(int, SizeClass);
    QFETCH(int, FontPixels);
    QFont Font = Window->font();
    Font.setPixelSize(FontPixels);
    Window->setFont(Font);
    Game().SizeClass = SizeClass;
    Game().RuleSet.canContract = 1; // with the labels of the pieces off the board
    Game().WhitePlayerName = "A player with a long name";
    view::LayoutWindow(Game());
    view::DrawBoard(Game(), 0);
    Window->ShowContents();

    QList<QWidget*> Controls;
    for (QObject* Child : Window->centralWidget()->children()) {
        auto* Control = qobject_cast<QWidget*>(Child);
        if (Control != nullptr && Control->isVisible()) {
            Controls.append(Control);
        }
    }
    QCOMPARE(Controls.size(), 21);
    for (QWidget* Control : Controls) {
        const QByteArray Name = Control->objectName().toLatin1();
        QVERIFY2(Window->centralWidget()->rect().contains(Control->geometry()), Name.constData());
        for (const QWidget* Other : Controls) {
            const QString Both = QStringLiteral("%1 lies over %2").arg(Control->objectName(), Other->objectName());
            QVERIFY2(Control == Other || !Control->geometry().intersects(Other->geometry()), qPrintable(Both));
        }
        const auto* Label = qobject_cast<QLabel*>(Control);
        if (Label != nullptr && !Label->wordWrap()) {
            QVERIFY2(Label->width() >= Label->sizeHint().width(), Name.constData());
            QVERIFY2(Label->height() >= Label->fontMetrics().height(), Name.constData());
        }
    }
}

// --- Moves by hand
// -------------------------------------------------------------------------------------------------------

void WindowTest::DragMakesTheMove() {
    PlayBothSides();
    Drag("d4", "e5");
    QCOMPARE(Game().GameMoves, 1);
    QCOMPARE(Game().Board[SquareNamed("e5")], 1);
    QCOMPARE(Find<ui::LineList>("List1")->count(), 1);
    QVERIFY(Find<ui::LineList>("List1")->item(0)->text().endsWith(QStringLiteral("d4-e5")));
    QCOMPARE(Window->BoardOf().cursor().shape(), Qt::ArrowCursor);
}

void WindowTest::DropOutsidePutsThePieceBack() {
    PlayBothSides();
    ui::BoardWidget* Board = &Window->BoardOf();
    QTest::mousePress(Board, Qt::LeftButton, {}, Middle("d4"));
    QCOMPARE(Game().Cells[view::CellOfSquare(Game(), SquareNamed("d4"))].Shows, Picture::dark_square);
    QTest::mouseRelease(Board, Qt::LeftButton, {}, QPoint(-300, 5000));
    QCOMPARE(Game().GameMoves, 0);
    QCOMPARE(Game().Cells[view::CellOfSquare(Game(), SquareNamed("d4"))].Shows, Picture::dark_white_man);
    Drag("d4", "c5"); // and can be taken again
    QCOMPARE(Game().GameMoves, 1);
}

void WindowTest::EscapePutsThePieceBack() {
    ui::BoardWidget* Board = &Window->BoardOf();
    Board->setFocus();
    QTest::mousePress(Board, Qt::LeftButton, {}, Middle("d4"));
    QVERIFY(Game().SourceCell >= 0);
    QTest::keyClick(Board, Qt::Key_Escape);
    QCOMPARE(Game().SourceCell, -1);
    QTest::mouseRelease(Board, Qt::LeftButton, {}, Middle("e5"));
    QCOMPARE(Game().GameMoves, 0);
}

void WindowTest::TypedMoveIsPlayed() {
    PlayBothSides();
    auto* Box = Find<QLineEdit>("Text2");
    Box->setFocus();
    QTest::keyClicks(Box, QStringLiteral("d4-e5"));
    QTest::keyClick(Box, Qt::Key_Return);
    QCOMPARE(Game().GameMoves, 1);
    QCOMPARE(Box->text(), QString());
    NextBox Refusal(QMessageBox::Ok);
    QTest::keyClicks(Box, QStringLiteral("a1-j0"));
    QTest::keyClick(Box, Qt::Key_Return);
    QCOMPARE(Refusal.Title, QStringLiteral("Error"));
    QCOMPARE(Refusal.Text, QStringLiteral("Illegal move"));
    QCOMPARE(Refusal.Icon, QMessageBox::Warning);
    QCOMPARE(Game().GameMoves, 1);
    QCOMPARE(Box->text(), QString());
}

void WindowTest::DoubleClickedLineIsPlayed() {
    PlayBothSides();
    auto* List = Find<ui::LineList>("List2");
    const QString Line = List->item(2)->text();
    const QPoint Where = List->visualItemRect(List->item(2)).center();
    QTest::mouseClick(List->viewport(), Qt::LeftButton, {}, Where);
    QTest::mouseDClick(List->viewport(), Qt::LeftButton, {}, Where);
    QCOMPARE(Game().GameMoves, 1);
    QVERIFY(Find<ui::LineList>("List1")->item(0)->text().endsWith(Line));
}

void WindowTest::WrongColourIsRefused() {
    NextBox Refusal(QMessageBox::Ok);
    QTest::mousePress(&Window->BoardOf(), Qt::LeftButton, {}, Middle("b8"));
    QCOMPARE(Refusal.Title, QStringLiteral("Error"));
    QCOMPARE(Refusal.Text, QStringLiteral("White moves"));
    PlayBothSides();
    Drag("d4", "e5"); // the lost release of the press does no harm
    QCOMPARE(Game().GameMoves, 1);
}

void WindowTest::MovablePiecesAreBoxed() {
    Game().ShowAvailableMoves = 1;
    QTest::mouseMove(&Window->BoardOf(), Middle("e5"));
    QTest::mouseMove(&Window->BoardOf(), Middle("e6"));
    const QImage Picture = Window->BoardOf().grab().toImage();
    const auto EdgeOf = [&](const char* Square) {
        const QRect Area = Window->BoardOf().CellRect(view::CellOfSquare(Game(), SquareNamed(Square)));
        return Picture.pixelColor(Area.left() + 2, Area.center().y());
    };
    QCOMPARE(EdgeOf("b4"), QColor(255, 255, 0));
    QVERIFY(EdgeOf("c3") != QColor(255, 255, 0));
}

void WindowTest::TurnedBoardIsMirrored() {
    ui::BoardWidget& Board = Window->BoardOf();
    const QImage Before = Board.grab().toImage();
    const QPoint Corner = Middle("a1");
    Window->ActionOf(CommandId::Turn)->trigger();
    const QImage Turned = Board.grab().toImage();
    QCOMPARE(Middle("j0"), Corner);
    QVERIFY(Turned.pixelColor(Corner).lightness() < Before.pixelColor(Corner).lightness());
    QVERIFY(Turned.copy(0, Board.CellRect(99).bottom() + 6, Board.width(), 30) !=
            Before.copy(0, Board.CellRect(99).bottom() + 6, Board.width(), 30)); // the letters, too
    Window->ActionOf(CommandId::Turn)->trigger();
    QCOMPARE(Board.grab().toImage(), Before);
}

// --- Commands
// ------------------------------------------------------------------------------------------------------------

void WindowTest::EntriesFollowTheState() {
    const auto SameAsState = [&] {
        for (const view::CommandRow& Row : view::CommandRows()) {
            const QAction* Entry = Window->ActionOf(Row.Id);
            if (Entry != nullptr && (Entry->isEnabled() != view::CanRun(Game(), Row.Id) ||
                                     Entry->isChecked() != Game().CommandOf(Row.Id).Ticked)) {
                qWarning("%s", qPrintable(Entry->objectName()));
                return false;
            }
        }
        return true;
    };
    QVERIFY(SameAsState());
    QVERIFY(!Window->ActionOf(CommandId::Moveback)->isEnabled());
    QVERIFY(!Find<QToolButton>("Toolbar1_Back")->isEnabled());
    PlayBothSides();
    QVERIFY(SameAsState());
    QVERIFY(Find<QToolButton>("Toolbar1_PlayerPlayer")->isChecked());
    QVERIFY(!Find<QToolButton>("Toolbar1_ComputerPlayer")->isChecked());
    Drag("d4", "e5");
    QVERIFY(SameAsState());
    QVERIFY(Find<QToolButton>("Toolbar1_Back")->isEnabled());
    QTest::mouseClick(Find<QToolButton>("Toolbar1_Back"), Qt::LeftButton);
    QCOMPARE(Game().GameMoves, 0);
    QVERIFY(SameAsState());
    QVERIFY(Find<QToolButton>("Toolbar1_Forward")->isEnabled());
}

void WindowTest::RefusedChoiceKeepsItsTick() {
    QVERIFY(Window->ActionOf(CommandId::mnu_Board_Notation_Chess)->isChecked());
    Game().RuleSet.PiecesOnBlack = 2; // squares of both colours have no numbers
    Window->ActionOf(CommandId::mnu_Board_Notation_Checkers)->trigger();
    QVERIFY(Window->ActionOf(CommandId::mnu_Board_Notation_Chess)->isChecked());
    QVERIFY(!Window->ActionOf(CommandId::mnu_Board_Notation_Checkers)->isChecked());
}

void WindowTest::ArrowsStepThroughTheGame() {
    PlayBothSides();
    Drag("d4", "e5");
    Drag("a7", "b6");
    QCOMPARE(Game().GameMoves, 2);
    auto* List = Find<ui::LineList>("List2");
    List->setFocus();
    QTest::keyClick(List, Qt::Key_Left);
    QCOMPARE(Game().GameMoves, 1);
    QTest::keyClick(List, Qt::Key_Right);
    QCOMPARE(Game().GameMoves, 2);
    ui::BoardWidget* Board = &Window->BoardOf();
    Board->setFocus();
    QTest::keyClick(Board, Qt::Key_Home);
    QCOMPARE(Game().GameMoves, 0);
    QTest::keyClick(Board, Qt::Key_End);
    QCOMPARE(Game().GameMoves, 2);
    QTest::keyClick(Board, Qt::Key_Left); // the cursor's here
    QTest::keyClick(Board, Qt::Key_Left);
    QCOMPARE(Game().GameMoves, 2);
    QTest::keyClick(Board, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(Game().GameMoves, 1);
    QTest::keyClick(Board, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(Game().GameMoves, 2);
    auto* Box = Find<QLineEdit>("Text2");
    Box->setFocus();
    QTest::keyClicks(Box, QStringLiteral("d4"));
    QTest::keyClick(Box, Qt::Key_Left);
    QTest::keyClick(Box, Qt::Key_Home);
    QCOMPARE(Game().GameMoves, 2); // they belong to the text
    QCOMPARE(Box->cursorPosition(), 0);
}

void WindowTest::CommentsStayWithTheirMove() {
    PlayBothSides();
    auto* Comment = Find<QPlainTextEdit>("Text1");
    Comment->setFocus();
    QTest::keyClicks(Comment, QStringLiteral("A quiet start"));
    QCOMPARE(Comment->toPlainText(), QStringLiteral("A quiet start"));
    Drag("d4", "e5");
    QCOMPARE(Comment->toPlainText(), QString());
    Window->ActionOf(CommandId::Moveback)->trigger();
    QCOMPARE(Game().MoveComment[1], std::string("A quiet start"));
}

// --- The computer
// --------------------------------------------------------------------------------------------------------

void WindowTest::ComputerAnswers() {
    Drag("d4", "e5");
    QCOMPARE(Game().GameMoves, 2);
    QCOMPARE(Game().Thinking, 0);
    QCOMPARE(Find<ui::LineList>("List1")->count(), 2);
    QVERIFY(Find<ui::LineList>("List2")->count() > 0);
    QVERIFY(Find<ui::LineList>("List3")->count() > 0);
    QVERIFY(Find<QLineEdit>("Text2")->isEnabled());
    QVERIFY(!Window->ActionOf(CommandId::mnu_Play_Cancel)->isEnabled());
}

void WindowTest::KeyboardComesBackAfterTheReply() {
    auto* Box = Find<QLineEdit>("Text2");
    Box->setFocus();
    QTest::keyClicks(Box, QStringLiteral("d4e5"));
    QTest::keyClick(Box, Qt::Key_Return);
    QCOMPARE(Game().GameMoves, 2);
    QVERIFY(Box->hasFocus());
    auto* List = Find<ui::LineList>("List2");
    List->setFocus();
    List->setCurrentRow(0);
    QTest::keyClick(List, Qt::Key_Return);
    QCOMPARE(Game().GameMoves, 4);
    QVERIFY(List->hasFocus());
}

void WindowTest::CancelStopsTheSearch() {
    Game().SearchDepth = 20;
    QImage InSearch;
    InMidSearch Press(Game(), [&] {
        QVERIFY(!Window->ActionOf(CommandId::New1)->isEnabled());
        QVERIFY(!Find<QLineEdit>("Text2")->isEnabled());
        QVERIFY(!Find<QToolButton>("Toolbar1_TurnBoard")->isEnabled()); // its menu is closed
        Drag("b4", "a5");                                               // and the board is closed
        QCOMPARE(Game().SourceCell, -1);
        auto* Button = Find<QToolButton>("Toolbar1_Cancel");
        QVERIFY(Button->isEnabled());
        QTest::mouseClick(Button, Qt::LeftButton);
        QVERIFY(!Button->isEnabled());
    });
    Drag("d4", "e5");
    QVERIFY(Press.Turns > 0);
    QCOMPARE(Game().Thinking, 0);
    QCOMPARE(Game().GameMoves, 2);
    QCOMPARE(static_cast<int>(Game().SearchDepth), 20);
    QVERIFY(Window->ActionOf(CommandId::New1)->isEnabled());
}

void WindowTest::ClosingInMidSearchEndsCleanly() {
    Game().SearchDepth = 20;
    bool StayedOpen = false;
    InMidSearch Close(Game(), [&] {
        Window->close();
        StayedOpen = Window->isVisible() && !Window->HasEnded();
    });
    Drag("d4", "e5");
    QVERIFY(StayedOpen); // until the search had unwound
    QTRY_VERIFY(!Window->isVisible());
    QVERIFY(Window->HasEnded());
    QCOMPARE(Game().HandlerDepth, 0);
}

void WindowTest::ClosingCanBeRefused() {
    Game().ConfirmExit = 1;
    {
        NextBox Refusal(QMessageBox::No);
        Window->close();
        QCOMPARE(Refusal.Title, QStringLiteral("Confirmation"));
        QCOMPARE(Refusal.Text, QStringLiteral("Are you sure you want to exit?"));
    }
    QVERIFY(Window->isVisible());
    NextBox Consent(QMessageBox::Yes);
    Window->ActionOf(CommandId::Exit)->trigger();
    QTRY_VERIFY(!Window->isVisible());
    QCOMPARE(Consent.Text, QStringLiteral("Are you sure you want to exit?"));
}

} // namespace zonterbrook::tests
