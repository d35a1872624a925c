// The window as a screen reader meets it: what stands in its tree, under which names, in which state.
//
// Everything is asked of the accessibility tree, never of the widgets, so that what a reader can't find is missing
// here.
#include "window_hands.h"

#include <QAccessible>
#include <QSignalSpy>

namespace zonterbrook::tests {
namespace {

class ScreenReader : public WindowFixture {
protected:
    // As when a reader is started while the window stands; it hears of cells that read otherwise, and of the cursor.
    void Listen() {
        QAccessible::setActive(true);
        Changes = std::make_unique<QSignalSpy>(&Board(), &ui::BoardWidget::CellTextChanged);
        Cursors = std::make_unique<QSignalSpy>(&Board(), &ui::BoardWidget::CursorCame);
    }
    void TearDown() override { QAccessible::setActive(false); }

    QAccessibleInterface* Table() { return QAccessible::queryAccessibleInterface(&Board()); }
    QAccessibleInterface* CellOf(const char* Name) { return Table()->child(Cell(Name)); }
    QString Says(const char* Name) { return CellOf(Name)->text(QAccessible::Name); }

    static QString NameOf(QWidget* Control) {
        return QAccessible::queryAccessibleInterface(Control)->text(QAccessible::Name);
    }

    std::unique_ptr<QSignalSpy> Changes;
    std::unique_ptr<QSignalSpy> Cursors;
};

TEST_F(ScreenReader, BoardIsATable) {
    QAccessibleTableInterface* Rows = Table()->tableInterface();
    ASSERT_NE(nullptr, Rows);
    EXPECT_EQ(QAccessible::Table, Table()->role());
    EXPECT_EQ("Board", Table()->text(QAccessible::Name));
    EXPECT_EQ(100, Table()->childCount());
    EXPECT_EQ(20, Rows->rowCount() + Rows->columnCount());
    for (int Index = 0; Index < 100; ++Index) {
        QAccessibleInterface* Here = Rows->cellAt(Index / 10, Index % 10);
        EXPECT_TRUE(Here->role() == QAccessible::Cell && Here->state().readOnly);
        EXPECT_EQ(Table(), Here->parent());
        EXPECT_EQ(Index, Table()->indexOfChild(Here));
        EXPECT_EQ(Index, Here->tableCellInterface()->rowIndex() * 10 + Here->tableCellInterface()->columnIndex());
    }
    EXPECT_EQ(nullptr, Table()->child(100));
    EXPECT_EQ(nullptr, Rows->cellAt(0, 10));
    const QPoint There = Board().mapToGlobal(Middle("d4"));
    EXPECT_EQ(CellOf("d4"), Table()->childAt(There.x(), There.y()));
    EXPECT_TRUE(CellOf("d4")->rect().contains(There));
    EXPECT_TRUE(Table()->rect().contains(CellOf("d4")->rect()));
}

TEST_F(ScreenReader, HearsOfTheCursorAndOfWhatChanges) {
    Listen();
    Press(Qt::Key_Right);
    const int First = Board().CursorCell();
    ASSERT_GE(First, 0);
    EXPECT_EQ(1, Cursors->count(QVariantList{First}));
    EXPECT_EQ(Table()->child(First), Table()->focusChild());
    EXPECT_TRUE(Table()->child(First)->state().focusable && Table()->child(First)->state().focused);
    Press(Qt::Key_Up);
    EXPECT_EQ(1, Cursors->count(QVariantList{First - 10}));
    EXPECT_FALSE(Table()->child(First)->state().focused);
    PlayBothSides();
    Drag("d4", "e5"); // all cells for the first time
    Changes->clear();
    Drag("a7", "b6");
    EXPECT_LT(0, Changes->count(QVariantList{Cell("a7")}));
    EXPECT_EQ(0, Changes->count(QVariantList{Cell("a1")}));
}

TEST_F(ScreenReader, CanPressACell) {
    PlayBothSides();
    for (const char* Name : {"d4", "e5"}) {
        EXPECT_EQ(Says("e5"), Game().SourceCell < 0 ? "e5, empty" : "e5, empty, target");
        CellOf(Name)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    EXPECT_EQ("e5, White man", Says("e5"));
    EXPECT_EQ(1, List("List1")->count()) << "it isn't seen";
}

TEST_F(ScreenReader, FindsEverythingByItsName) {
    for (const char* Name : {"c", "List1", "List2", "List3", "Text1", "Text2", "Progress", "StatusBar1"}) {
        ASSERT_NE(nullptr, Find<QWidget>(Name)) << Name;
        EXPECT_NE("", NameOf(Find<QWidget>(Name))) << Name;
    }
    QStringList Labels{"StatusBar1_Panel1", "StatusBar1_Panel2", "StatusBar1_Panel3"};
    for (int I = 1; I <= 14; ++I) {
        Labels.append(QStringLiteral("Label%1").arg(I));
    }
    for (const QString& Name : Labels) {
        ASSERT_NE(nullptr, Find<QLabel>(Name)) << qPrintable(Name);
        EXPECT_NE("", Find<QLabel>(Name)->accessibleDescription()) << qPrintable(Name);
    }
    EXPECT_EQ("White", NameOf(Find<QLabel>("Label3")));
    EXPECT_EQ("20", NameOf(Find<QLabel>("Label5")));
    for (const control::CommandRow& Row : control::CommandRows()) {
        EXPECT_NE(nullptr, Find<QObject>(Text(Row.Name))) << Row.Name;
    }
    for (const control::ToolbarButton& Row : control::ToolbarButtons()) {
        QToolButton* Each = Button(Row.Key.data());
        ASSERT_NE(nullptr, Each) << Row.Key;
        EXPECT_EQ(Text(Row.Tip), NameOf(Each));
        EXPECT_FALSE(Each->icon().isNull()) << Row.Key;
    }
}

} // namespace
} // namespace zonterbrook::tests
