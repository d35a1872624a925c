// The main window with a game in it, driven by mouse and keys as a person would.
//
// Most cases play both sides by hand; the few with the computer use shallow searches, or deep ones that are cancelled.
#include "control/trap.h"
#include "window_hands.h"

namespace zonterbrook::tests {
namespace {

const QColor Yellow(255, 255, 0);

class MainWindow : public WindowFixture {
protected:
    QString LastLine() { return List("List1")->item(List("List1")->count() - 1)->text(); }
};

// --- What is seen

TEST_F(MainWindow, OpensWithTheBoardDrawn) {
    const QImage Picture = Seen();
    const auto At = [&](const char* Name) { return Picture.pixelColor(Middle(Name)).lightness(); };
    EXPECT_GT(At("d4"), At("e5")) << "a white man on it, and none";
    EXPECT_LT(At("c9"), At("d6")) << "a black man";
    EXPECT_GT(At("e6"), At("e5")) << "a light square, and a dark one";
    EXPECT_LT(Picture.pixelColor(Board().CellRect(0).topLeft() - QPoint(2, 2)).lightness(),
              Picture.pixelColor(0, 0).lightness())
        << "the frame";
    for (const auto& [Label, Ground] : {std::pair("Label1", QColor(255, 0, 0)), {"Label2", QColor(255, 255, 255)}}) {
        const QImage Name = Find<QLabel>(Label)->grab().toImage();
        EXPECT_EQ(Ground, Name.pixelColor(Name.width() / 2, 1)) << "the side to move is red";
    }
    EXPECT_TRUE(Window->windowTitle().startsWith("Zonterbrook 1.20"));
    const QRect Frame = Window->frameGeometry();
    const QRect Free = Window->screen()->availableGeometry();
    EXPECT_TRUE(std::abs(Frame.center().x() - Free.center().x()) <= 2 || Frame.width() > Free.width());
}

// Size of the board, and of the font in pixels.
class Fonts : public MainWindow, public testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(Fonts, TextsAreReadWhole) {
    const auto [SizeClass, FontPixels] = GetParam();
    QFont Font = Window->font();
    Font.setPixelSize(FontPixels);
    Window->setFont(Font);
    Game().SizeClass = SizeClass;
    Game().RuleSet.canContract = 1; // with the labels of the pieces off the board
    Game().WhitePlayerName = "A player with a long name";
    Game().StatusPanels[view::StatusPanel].assign(300, 'x'); // is cut: the window keeps its width
    view::LayoutWindow(Game());
    view::DrawBoard(Game(), 0);
    Window->ShowContents();
    QCoreApplication::processEvents(); // a window that is too small for its texts grows

    QList<QWidget*> Controls = Window->centralWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    Controls.removeIf([](const QWidget* Control) { return !Control->isVisible(); });
    EXPECT_EQ(21, Controls.size());
    EXPECT_EQ(FontPixels, QFontInfo(List("List1")->font()).pixelSize());
    EXPECT_LE(Window->minimumSizeHint().width(), Window->centralWidget()->width());
    for (const QWidget* Control : Controls) {
        SCOPED_TRACE(qPrintable(Control->objectName()));
        EXPECT_TRUE(Window->centralWidget()->rect().contains(Control->geometry()));
        for (const QWidget* Other : Controls) {
            EXPECT_TRUE(Control == Other || !Control->geometry().intersects(Other->geometry()))
                << "lies over " << qPrintable(Other->objectName());
        }
        const auto* Label = qobject_cast<const QLabel*>(Control);
        if (Label != nullptr && !Label->wordWrap()) {
            EXPECT_GE(Label->width(), Label->sizeHint().width());
            EXPECT_GE(Label->height(), Label->fontMetrics().height());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, Fonts, testing::Combine(testing::Values(0, 2), testing::Values(11, 13, 17, 22)));

TEST_F(MainWindow, MovablePiecesAreBoxedAndATurnedBoardIsMirrored) {
    const QImage Before = Seen();
    QTest::mouseMove(&Board(), Middle("e5"));
    QTest::mouseMove(&Board(), Middle("e6"));
    const QImage Boxed = Seen();
    const QPoint LeftEdge(2 - Board().CellRect(0).width() / 2, 0);
    EXPECT_EQ(Yellow, Boxed.pixelColor(Middle("b4") + LeftEdge));
    EXPECT_NE(Yellow, Boxed.pixelColor(Middle("c3") + LeftEdge));
    EXPECT_EQ(Before.pixelColor(Middle("b4")), Boxed.pixelColor(Middle("b4"))) << "a box is empty";
    const QPoint Corner = Middle("a1");
    Run(CommandId::TurnBoard);
    const QImage Turned = Seen();
    EXPECT_EQ(Corner, Middle("j0"));
    EXPECT_LT(Turned.pixelColor(Corner).lightness(), Before.pixelColor(Corner).lightness());
    const QRect Letters(0, Board().CellRect(99).bottom() + 6, Board().width(), 30);
    EXPECT_NE(Before.copy(Letters), Turned.copy(Letters));
    Run(CommandId::TurnBoard);
    EXPECT_EQ(Before, Seen());
}

// At any size nothing lies over anything else, the board takes what fits, and a drop falls where it is let go.
TEST_F(MainWindow, TakesAnySize) {
    PlayBothSides();
    int Larger = 0;
    for (const QSize Size :
         {QSize(1280, 690), QSize(950, 1040), QSize(1900, 1000), QSize(3840, 2100), QSize(798, 640)}) {
        SCOPED_TRACE(testing::Message() << Size.width() << " by " << Size.height());
        Window->resize(Size);
        QCoreApplication::processEvents();
        EXPECT_EQ(Size, Window->size());
        const QList<QWidget*> Controls = Window->centralWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        for (const QWidget* Control : Controls) {
            for (const QWidget* Other : Controls) {
                const bool Apart = Control == Other || !Control->isVisible() || !Other->isVisible() ||
                                   !Control->geometry().intersects(Other->geometry());
                EXPECT_TRUE(Apart) << qPrintable(Control->objectName()) << " and " << qPrintable(Other->objectName());
            }
            EXPECT_TRUE(!Control->isVisible() || Window->centralWidget()->rect().contains(Control->geometry()))
                << qPrintable(Control->objectName());
        }
        for (int Cell = 1; Cell < 10; ++Cell) {
            EXPECT_EQ(Board().CellRect(Cell - 1).right() + 1, Board().CellRect(Cell).left()) << "a seam";
        }
        Larger += Board().CellRect(0).width() > 60 ? 1 : 0;
        Drag("d4", "e5");
        ASSERT_EQ(1, PieceOn("e5"));
        control::RunCommand(Game(), CommandId::Back);
        Window->ShowContents();
    }
    EXPECT_EQ(2, Larger);
    const QRect Last = Window->geometry();
    Window->close();
    Window.reset();
    Window = std::make_unique<ui::MainWindow>(Folders());
    EXPECT_EQ(Last.size(), Window->size()) << "the size is kept";
}

// --- Moves by hand

TEST_F(MainWindow, DragMakesTheMove) {
    {
        const NextBox Refusal("Error: White moves", QMessageBox::Ok, QMessageBox::Warning);
        Take("b8"); // the lost release of the press does no harm
    }
    PlayBothSides();
    Take("d4");
    EXPECT_EQ(Picture::dark_square, Game().Cells[Cell("d4")].Shows);
    QTest::mouseRelease(&Board(), Qt::LeftButton, {}, QPoint(-300, 5000));
    EXPECT_EQ(0, Game().GameMoves);
    EXPECT_EQ(Picture::dark_white_man, Game().Cells[Cell("d4")].Shows);
    Drag("d4", "e5"); // and can be taken again
    EXPECT_EQ(1, Game().GameMoves);
    EXPECT_EQ(1, PieceOn("e5"));
    EXPECT_TRUE(LastLine().endsWith("d4-e5"));
    EXPECT_EQ(Qt::ArrowCursor, Board().cursor().shape());
}

TEST_F(MainWindow, TypedMoveIsPlayed) {
    PlayBothSides();
    Type("d4-e5");
    EXPECT_EQ(1, Game().GameMoves);
    EXPECT_EQ("", TypedMove()->text());
    const NextBox Refusal("Error: Illegal move", QMessageBox::Ok, QMessageBox::Warning);
    Type("a1-j0");
    EXPECT_EQ(1, Game().GameMoves);
    EXPECT_EQ("", TypedMove()->text());
}

TEST_F(MainWindow, DoubleClickedLineIsPlayed) {
    PlayBothSides();
    const QString Line = List("List2")->item(2)->text();
    const QPoint Where = List("List2")->visualItemRect(List("List2")->item(2)).center();
    QTest::mouseClick(List("List2")->viewport(), Qt::LeftButton, {}, Where);
    QTest::mouseDClick(List("List2")->viewport(), Qt::LeftButton, {}, Where);
    EXPECT_EQ(1, Game().GameMoves);
    EXPECT_TRUE(LastLine().endsWith(Line));
}

// --- Commands

TEST_F(MainWindow, ToolbarButtonsAreTheCommands) {
    EXPECT_FALSE(Button("Back")->isEnabled());
    PlayBothSides();
    EXPECT_TRUE(Button("PlayerPlayer")->isChecked());
    EXPECT_FALSE(Button("ComputerPlayer")->isChecked());
    Drag("d4", "e5");
    QTest::mouseClick(Button("Back"), Qt::LeftButton);
    EXPECT_EQ(0, Game().GameMoves);
    Game().RuleSet.PiecesOnBlack = 2; // squares of both colours have no numbers: a refused choice keeps its tick
    Run(CommandId::Numeric);
    EXPECT_TRUE(Entry(CommandId::Algebraic)->isChecked() && !Entry(CommandId::Numeric)->isChecked());
    Run(CommandId::ComputerPlayer);
    Game().UseRating = 0;
    const NextBox End("Congratulations: OK... Computer wins!", QMessageBox::Ok, QMessageBox::NoIcon); // a picture
    QTest::mouseClick(Button("Resign"), Qt::LeftButton);
    EXPECT_TRUE(Button("New Game")->isEnabled() && !Button("Resign")->isEnabled());
}

TEST_F(MainWindow, TheSetUpMenuOpensBesideTheMouse) {
    const auto Menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    const Soon Look([&] { return Menu() != nullptr; },
                    [&] {
                        EXPECT_FALSE(Menu()->geometry().contains(QCursor::pos())) << "a slip chooses";
                        QTest::keyClick(Menu(), Qt::Key_Escape);
                    });
    QCursor::setPos(Board().mapToGlobal(Middle("e5")));
    QTest::mouseClick(&Board(), Qt::RightButton, {}, Middle("e5"));
    EXPECT_EQ(0, PieceOn("e5"));
}

TEST_F(MainWindow, EntriesFollowTheState) {
    const auto Expect = [&] {
        for (const control::CommandRow& Row : control::CommandRows()) {
            const QAction* Shown = Row.Id == CommandId::None ? nullptr : Entry(Row.Id);
            if (Shown != nullptr && Row.Menu != CommandId::PopupMenu) {
                EXPECT_EQ(Text(Row.Caption), Shown->text());
                EXPECT_EQ(control::IsEnabled(Game(), Row.Id), Shown->isEnabled()) << Row.Name;
                EXPECT_EQ(control::IsTicked(Game(), Row.Id), Shown->isChecked()) << Row.Name;
            }
        }
    };
    Expect();
    InMidSearch([&] {
        Expect();
        Run(CommandId::Cancel);
        Expect();
    });
    for (const CommandId Id : {CommandId::PlayerPlayer, CommandId::Back, CommandId::First, CommandId::Last}) {
        Run(Id);
        Expect();
    }
}

TEST_F(MainWindow, ArrowsStepThroughTheGame) {
    PlayBothSides();
    Drag("d4", "e5");
    Drag("a7", "b6");
    const auto Expect = [&](QWidget* Where, Qt::Key Key, Qt::KeyboardModifiers Held, int Moves) {
        Where->setFocus();
        QTest::keyClick(Where, Key, Held);
        EXPECT_EQ(Moves, Game().GameMoves) << QKeySequence(Key).toString().toStdString();
    };
    Expect(List("List2"), Qt::Key_Left, {}, 1);
    Expect(List("List2"), Qt::Key_Right, {}, 2);
    Expect(&Board(), Qt::Key_Home, {}, 0);
    Expect(&Board(), Qt::Key_End, {}, 2);
    Expect(&Board(), Qt::Key_Left, {}, 2); // the cursor's here: it is shown, and goes
    Expect(&Board(), Qt::Key_Left, {}, 2);
    Expect(&Board(), Qt::Key_Left, Qt::AltModifier, 1);
    Expect(&Board(), Qt::Key_Right, Qt::AltModifier, 2);
    Expect(TypedMove(), Qt::Key_Z, Qt::ControlModifier, 1); // with nothing typed there is nothing to edit
    Expect(TypedMove(), Qt::Key_End, {}, 2);
    Expect(TypedMove(), Qt::Key_Home, {}, 0);
    Expect(TypedMove(), Qt::Key_Right, {}, 1);
    Expect(TypedMove(), Qt::Key_Y, Qt::ControlModifier, 2);
    QTest::keyClicks(TypedMove(), "d4");
    Expect(TypedMove(), Qt::Key_Left, {}, 2); // they belong to the text
    Expect(TypedMove(), Qt::Key_Home, {}, 2);
    EXPECT_EQ(0, TypedMove()->cursorPosition());
}

TEST_F(MainWindow, PlaceholdersCanBeReadOnAnyDesktop) {
    const QPalette Usual = QGuiApplication::palette();
    QPalette Dark = Usual;
    Dark.setColor(QPalette::Base, Qt::black);
    Dark.setColor(QPalette::Text, Qt::white);
    Dark.setColor(QPalette::PlaceholderText, Qt::black); // as a desktop may leave it
    for (const QPalette& Colours : {Dark, Usual}) {
        QApplication::setPalette(Colours);
        QCoreApplication::processEvents();
        const QPalette Box = TypedMove()->palette();
        EXPECT_EQ(Box.color(QPalette::Text).rgb(), Box.color(QPalette::PlaceholderText).rgb());
        EXPECT_NE(Box.color(QPalette::Base).rgb(), Box.color(QPalette::PlaceholderText).rgb());
    }
    QApplication::setPalette(QPalette());
}

TEST_F(MainWindow, ProgressIsAPartOfTheWhole) {
    for (const auto& [Value, Maximum, Shown] : {std::array{1.0, 4.0, 250.0}, {9.0, 9.0, 1000.0}, {0.0, 4.0, 0.0}}) {
        Game().Progress = {Value, Maximum};
        Window->ShowContents();
        EXPECT_EQ(Shown, Find<QProgressBar>("Progress")->value());
    }
}

TEST_F(MainWindow, ListsShowWhatIsChosenAndElseTheirBeginning) {
    Game().GameList.Lines.assign(300, "   1. d4-e5");
    Game().GameList.Selected = 299;
    Window->ShowContents();
    const QScrollBar* Bar = List("List1")->verticalScrollBar();
    EXPECT_EQ(Bar->maximum(), Bar->value());
    List("List1")->verticalScrollBar()->setValue(0);
    Game().GameList.Lines.front() = "   1. 32-28";
    Window->ShowContents();
    EXPECT_EQ(Bar->maximum(), Bar->value()) << "the chosen line is out of sight";
    Game().GameList.Selected = -1;
    Window->ShowContents();
    EXPECT_EQ(0, Bar->value());
}

TEST_F(MainWindow, CommentsStayWithTheirMove) {
    PlayBothSides();
    auto* Comment = Find<QPlainTextEdit>("Text1");
    Comment->setFocus();
    QTest::keyClicks(Comment, "A quiet start");
    EXPECT_EQ("A quiet start", Comment->toPlainText());
    Drag("d4", "e5");
    EXPECT_EQ("", Comment->toPlainText());
    EXPECT_EQ("A quiet start", Game().Record.HalfMoves[1].Comment);
}

// --- The computer

TEST_F(MainWindow, ComputerAnswersAndTheKeyboardComesBack) {
    const Soon Pause([&] { return Game().Turn == control::TurnState::Thinking; },
                     [&] { EXPECT_EQ(1, List("List1")->count()) << "the pause is there to see the move"; });
    Type("d4e5");
    EXPECT_EQ(2, Game().GameMoves);
    EXPECT_EQ(2, List("List1")->count());
    EXPECT_GT(List("List3")->count(), 0);
    EXPECT_TRUE(TypedMove()->hasFocus());
    List("List2")->setFocus();
    QTest::keyClick(List("List2"), Qt::Key_Down);
    QTest::keyClick(List("List2"), Qt::Key_Return);
    EXPECT_EQ(4, Game().GameMoves);
    EXPECT_TRUE(List("List2")->hasFocus());
}

TEST_F(MainWindow, CancelStopsTheSearch) {
    InMidSearch([&] {
        EXPECT_FALSE(TypedMove()->isEnabled());
        EXPECT_FALSE(Button("TurnBoard")->isEnabled()) << "its menu is closed";
        Drag("b4", "a5");
        EXPECT_EQ(-1, Game().SourceCell) << "the board is open";
        QTest::mouseClick(Button("Cancel"), Qt::LeftButton);
        EXPECT_FALSE(Button("Cancel")->isEnabled());
    });
    EXPECT_FALSE(control::IsBusy(Game()));
    EXPECT_EQ(2, Game().GameMoves);
    EXPECT_EQ(20, Game().SearchDepth);
    EXPECT_TRUE(TypedMove()->isEnabled());
}

TEST_F(MainWindow, ClosingInMidSearchEndsCleanly) {
    InMidSearch([&] {
        Window->close();
        EXPECT_TRUE(Window->isVisible() && !Window->HasEnded()) << "gone before the search had unwound";
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Window->isVisible(); }));
    EXPECT_TRUE(Window->HasEnded());
    EXPECT_EQ(0, Game().HandlersAtWork);
    Open();
    InMidSearch([&] {
        const NextBox Fault("Error: broken", QMessageBox::Ok, QMessageBox::Warning);
        control::RunTrapped(Game(), [] { throw base::Fault("broken"); });
        QCoreApplication::processEvents();
        EXPECT_TRUE(Window->isVisible()) << "gone before the search had unwound";
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Window->isVisible(); }));
}

TEST_F(MainWindow, ClosingCanBeRefused) {
    constexpr const char* Question = "Confirmation: Are you sure you want to exit?";
    Game().ConfirmExit = 1;
    for (const QMessageBox::StandardButton Answer : {QMessageBox::No, QMessageBox::NoButton}) {
        const NextBox Refusal(Question, Answer, QMessageBox::Question);
        Window->close();
        EXPECT_TRUE(Window->isVisible());
    }
    const NextBox Consent(Question, QMessageBox::Yes, QMessageBox::Question);
    Run(CommandId::Exit);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Window->isVisible(); }));
}

} // namespace
} // namespace zonterbrook::tests
