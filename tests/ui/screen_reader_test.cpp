// The window as a screen reader meets it: what stands in its tree, under which names, in which state.
//
// Everything is asked of the accessibility tree, never of the widgets, so that what a reader can't find is missing
// here.
#include "window_hands.h"

#include <QAccessible>
#include <QMap>
#include <QSignalSpy>

namespace zonterbrook::tests {
namespace {

QString Text(std::string_view Utf8) {
    return QString::fromUtf8(Utf8.data(), static_cast<qsizetype>(Utf8.size()));
}

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

    // The nodes below one, by the names of their objects. A menu bears the name of its entry, which comes first.
    static void Walk(QAccessibleInterface* Node, QMap<QString, QAccessibleInterface*>& Found) {
        const QString Name = Node->object() == nullptr ? QString() : Node->object()->objectName();
        if (!Name.isEmpty() && !Found.contains(Name)) {
            Found.insert(Name, Node);
        }
        for (int I = 0; I < Node->childCount(); ++I) {
            if (Node->child(I) != nullptr) {
                Walk(Node->child(I), Found);
            }
        }
    }
    QMap<QString, QAccessibleInterface*> Tree() {
        QMap<QString, QAccessibleInterface*> Found;
        Walk(QAccessible::queryAccessibleInterface(Window.get()), Found);
        return Found;
    }

    // Entries read as the state says: open or closed, ticked or not.
    void ExpectEntriesAsInState() {
        const auto Found = Tree();
        for (const control::CommandRow& Row : control::CommandRows()) {
            const auto* Entry = Found.value(Text(Row.Name));
            if (InTree(Row) && Row.Kind != control::CommandKind::Menu) {
                EXPECT_NE(control::IsEnabled(Game(), Row.Id), Entry->state().disabled) << Row.Name;
                EXPECT_EQ(control::IsTicked(Game(), Row.Id), Entry->state().checked) << Row.Name;
            }
        }
    }
    // The editor's menu is in the tree while it is open.
    static bool InTree(const control::CommandRow& Row) {
        return Row.Kind != control::CommandKind::Separator && Row.Id != CommandId::SetupMenu &&
               Row.Menu != CommandId::SetupMenu && Row.Menu != CommandId::PopupMenu;
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
        EXPECT_EQ(QAccessible::Cell, Here->role());
        EXPECT_EQ(Table(), Here->parent());
        EXPECT_EQ(Index, Table()->indexOfChild(Here));
        EXPECT_EQ(Index, Here->tableCellInterface()->rowIndex() * 10 + Here->tableCellInterface()->columnIndex());
    }
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
    EXPECT_TRUE(Table()->child(First)->state().focused);
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
    const auto Found = Tree();
    QStringList Names = QString("c List1 List2 List3 Text1 Text2 Progress Toolbar1 StatusBar1 StatusBar1_Panel1 "
                                "StatusBar1_Panel2 StatusBar1_Panel3")
                            .split(' ');
    for (int I = 1; I <= 14; ++I) {
        Names.append(QStringLiteral("Label%1").arg(I));
    }
    for (const QString& Name : Names) {
        ASSERT_TRUE(Found.contains(Name)) << qPrintable(Name);
        const QString Words = Found[Name]->text(QAccessible::Description);
        EXPECT_TRUE(!Words.isEmpty() || (!Name.startsWith("Label") && !Found[Name]->text(QAccessible::Name).isEmpty()))
            << qPrintable(Name);
    }
    EXPECT_EQ("White", Found["Label3"]->text(QAccessible::Name));
    EXPECT_EQ("20", Found["Label5"]->text(QAccessible::Name));
    EXPECT_EQ(QAccessible::StaticText, Found["Label9"]->role());
    EXPECT_EQ(9, Found["List2"]->childCount());
    for (const control::CommandRow& Row : control::CommandRows()) {
        const QString Name = Text(Row.Name);
        EXPECT_NE(nullptr, Find<QObject>(Name)) << qPrintable(Name);
        if (InTree(Row)) {
            ASSERT_TRUE(Found.contains(Name)) << qPrintable(Name);
            EXPECT_EQ(Text(Row.Caption).remove('&'), Found[Name]->text(QAccessible::Name));
        }
    }
    for (const control::ToolbarButton& Row : control::ToolbarButtons()) {
        ASSERT_TRUE(Found.contains("Toolbar1_" + Text(Row.Key))) << Row.Key;
        EXPECT_EQ(Text(Row.Tip), Found["Toolbar1_" + Text(Row.Key)]->text(QAccessible::Name));
        EXPECT_FALSE(Find<QToolButton>("Toolbar1_" + Text(Row.Key))->icon().isNull()) << Row.Key;
    }
}

TEST_F(ScreenReader, EntriesFollowTheState) {
    ExpectEntriesAsInState();
    InMidSearch([&] {
        ExpectEntriesAsInState();
        EXPECT_TRUE(Tree()["Text2"]->state().disabled);
        Run(CommandId::Cancel);
        ExpectEntriesAsInState();
    });
    for (const CommandId Id : {CommandId::PlayerPlayer, CommandId::Back, CommandId::First, CommandId::Forward,
                               CommandId::Last, CommandId::ComputerPlayer}) {
        SCOPED_TRACE(control::RowOf(Id).Name);
        Run(Id);
        ExpectEntriesAsInState();
    }
}

} // namespace
} // namespace zonterbrook::tests
