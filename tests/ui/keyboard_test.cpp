// The board played on with real keys, and the frame that shows where they are.
#include "control/variant_start.h"
#include "window_hands.h"

namespace zonterbrook::tests {
namespace {

class Keys : public WindowFixture {
protected:
    // To a square, and what is pressed there; the first step shows the cursor.
    void Walk(const char* Name, Qt::Key There = Qt::Key_unknown) {
        const int Wanted = Cell(Name);
        for (int Steps = 0; Steps < 20 && Game().CursorCell != Wanted; ++Steps) {
            const int Right = Wanted % 10 - Game().CursorCell % 10;
            const int Down = Wanted / 10 - Game().CursorCell / 10;
            Press(Right > 0 ? Qt::Key_Right : Right < 0 ? Qt::Key_Left : Down > 0 ? Qt::Key_Down : Qt::Key_Up);
        }
        ASSERT_EQ(Wanted, Game().CursorCell);
        if (There != Qt::Key_unknown) {
            Press(There);
        }
    }
};

TEST_F(Keys, TabGoesRoundTheWindow) {
    Game().RootList.Lines = {"d4-e5"}; // as after a calculation
    Window->ShowContents();
    for (const char* Name : {"c", "List1", "List2", "List3", "Text2", "Text1", "c"}) {
        ASSERT_EQ(Name, Window->focusWidget()->objectName());
        QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(Window->focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(Board().hasFocus());
}

TEST_F(Keys, BeginOnAPieceThatCanMoveAndStopAtTheEdges) {
    Press(Qt::Key_Up);
    EXPECT_TRUE(Board().CellText(Board().CursorCell()).contains("can move"));
    for (const auto& [Edge, Outwards] :
         {std::pair("a4", Qt::Key_Left), {"j4", Qt::Key_Right}, {"d0", Qt::Key_Up}, {"d1", Qt::Key_Down}}) {
        Walk(Edge, Outwards);
        EXPECT_EQ(Cell(Edge), Board().CursorCell());
    }
    Run(CommandId::TurnBoard);
    EXPECT_EQ(Cell("d1"), Board().CursorCell()) << "the square stays behind when the board is turned";
}

// Whatever a cell measures, the cursor's cell is the one that the piece falls on.
TEST_F(Keys, WaysEndOnTheCursorsSquare) {
    // Size, density, and whether the board is turned; a skin that tells no size is the last.
    constexpr std::tuple<int, int, int> Rows[] = {{0, 15, 0}, {0, 12, 0}, {2, 15, 0},
                                                  {2, 12, 0}, {2, 12, 1}, {4, 15, 0}};
    PlayBothSides();
    for (const auto& [SizeClass, Twips, Turned] : Rows) {
        Game().SizeClass = SizeClass;
        Game().TwipsPerPixel = Twips;
        Game().BoardTurned = Turned;
        view::LayoutWindow(Game());
        for (rules::CellSet All = rules::AllPieces(Game()); All.Any();) {
            Game().Board[All.TakeFirst()] = rules::Empty;
        }
        Game().Board[Square("a1")] = rules::WhiteKing;
        Game().Board[Square("j2")] = rules::BlackKing;
        Game().Side = rules::White;
        control::StartPosition(Game());
        Walk("a1", Qt::Key_Return);
        Walk("i9", Qt::Key_Return);
        EXPECT_EQ(rules::WhiteKing, PieceOn("i9")) << SizeClass << ' ' << Twips;
    }
}

TEST_F(Keys, MakeMovesAndTakeThemBack) {
    PlayBothSides();
    Walk("e5");
    for (const bool Elsewhere : {false, true}) { // the release
        QTest::keyPress(&Board(), Qt::Key_Space);
        EXPECT_TRUE(Game().NumbersShown) << "while the key is held";
        Elsewhere ? TypedMove()->setFocus() : QTest::keyRelease(&Board(), Qt::Key_Space);
        EXPECT_FALSE(Game().NumbersShown);
    }
    Board().setFocus();
    Walk("d4", Qt::Key_Return);
    Walk("d4", Qt::Key_Return);
    EXPECT_EQ(-1, Game().SourceCell) << "picked twice it is put back";
    Walk("d4", Qt::Key_Return);
    EXPECT_EQ(Game().CursorCell, Game().SourceCell);
    Walk("e5");
    const QImage Carried = Seen();
    EXPECT_GT(Carried.pixelColor(Middle("e5")).lightness(), Carried.pixelColor(Middle("d4")).lightness());
    EXPECT_EQ(Qt::ArrowCursor, Board().cursor().shape()) << "the piece goes with the cursor, not with the mouse";
    Press(Qt::Key_Escape);
    EXPECT_EQ(-1, Game().SourceCell);
    EXPECT_EQ(0, Game().GameMoves);
    Walk("d4", Qt::Key_Return);
    Walk("e5", Qt::Key_Space);
    EXPECT_EQ(1, Game().GameMoves);
    EXPECT_EQ(1, PieceOn("e5"));
    const NextBox Refusal("Error: You cannot move that piece", QMessageBox::Ok, QMessageBox::Warning);
    Walk("e9", Qt::Key_Enter); // Black's turn, and this man is shut in
    BackToFront();
    EXPECT_TRUE(Board().hasFocus());
    EXPECT_EQ(Cell("e9"), Board().CursorCell());
}

TEST_F(Keys, EscapeStillCancels) {
    Walk("d4");
    InMidSearch([&] {
        Board().setFocus(Qt::TabFocusReason);
        Press(Qt::Key_Left); // the cursor walks meanwhile
        Press(Qt::Key_Return);
        EXPECT_EQ(-1, Game().SourceCell);
        EXPECT_EQ("c7, Black man", Board().CellText(Cell("c7"))) << "the moves of a search are nobody's";
        Press(Qt::Key_Escape);
        EXPECT_EQ(rules::StopRequest::Person, Game().CancelRequested);
    });
    EXPECT_EQ(2, Game().GameMoves);
}

// On each kind of square the frame has a line that stands out from what is below it, all the way round.
TEST_F(Keys, FrameIsSeen) {
    for (const char* Name : {"d4", "b8", "e5", "d5"}) {
        SCOPED_TRACE(Name);
        const QImage Before = Seen();
        view::SetCursor(Game(), Square(Name));
        view::ShowCursor(Game(), true);
        Window->ShowContents();
        const QImage After = Seen();
        const int Half = Board().CellRect(0).width() / 2;
        for (const QPoint Way : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            int Best = 0;
            for (int Out = Half / 2; Out < Half; ++Out) {
                const QPoint Here = Middle(Name) + Way * Out;
                Best = std::max(Best, std::abs(qGray(Before.pixel(Here)) - qGray(After.pixel(Here))));
            }
            EXPECT_GT(Best, 90);
        }
        const QRect Neighbour = Board().CellRect(Game().CursorCell + 1);
        EXPECT_EQ(Before.copy(Neighbour), After.copy(Neighbour));
        view::ShowCursor(Game(), false);
        Window->ShowContents();
    }
}

TEST_F(Keys, FrameComesAndGoesWithTheKeyboard) {
    ASSERT_TRUE(Board().hasFocus());
    EXPECT_EQ(-1, Board().CursorCell()) << "not by the keys";
    Press(Qt::Key_Tab);
    QTest::keyClick(Window->focusWidget(), Qt::Key_Backtab);
    const int There = Board().CursorCell();
    EXPECT_GE(There, 0);
    Press(Qt::Key_Tab);
    EXPECT_EQ(-1, Board().CursorCell());
    Board().setFocus();
    EXPECT_EQ(-1, Board().CursorCell()) << "nobody has gone there";
    Press(Qt::Key_Tab);
    QTest::keyClick(Window->focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(There, Board().CursorCell()) << "goes on as before";
    QTest::mouseClick(&Board(), Qt::LeftButton, {}, Middle("e5"));
    EXPECT_EQ(-1, Board().CursorCell());
    Press(Qt::Key_Right); // comes back where the mouse was pressed, without a step
    EXPECT_EQ(Cell("e5"), Board().CursorCell());
    EXPECT_EQ(view::Highlight::Dark, Game().Cells[Cell("d4")].Box) << "what can move is boxed, as by the mouse";
}

TEST_F(Keys, EditorOpensAtTheCursor) {
    const auto Menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    const Soon Choose([&] { return Menu() != nullptr; },
                      [&] {
                          const QRect Around = Board().CellRect(Cell("e5")).adjusted(-2, -2, 2, 2);
                          EXPECT_TRUE(Around.contains(Board().mapFromGlobal(Menu()->pos())));
                          Menu()->setActiveAction(Entry(CommandId::WhiteKing));
                          QTest::keyClick(Menu(), Qt::Key_Return);
                      });
    Walk("e5", Qt::Key_Menu);
    EXPECT_EQ(2, PieceOn("e5"));
    // The keyboard comes back to the board when the desktop hands it over.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        BackToFront();
        return Board().CursorCell() >= 0;
    }));
}

// While the computer thinks the box of typed moves is closed, and its keys are the board's: without a frame, as nobody
// has gone there.
TEST_F(Keys, ClosedBoxLeavesNoFrame) {
    InMidSearch(
        [&] {
            EXPECT_EQ(-1, Board().CursorCell());
            Run(CommandId::Cancel);
        },
        true);
    EXPECT_TRUE(TypedMove()->hasFocus());
}

TEST_F(Keys, WindowGoesWhileTheBoardHasTheKeyboard) {
    Walk("e5");
    Window.reset(); // nothing of it may be called any more
    EXPECT_EQ(nullptr, QApplication::focusWidget());
}

} // namespace
} // namespace zonterbrook::tests
