// The window as a screen reader meets it: what stands in its tree, under which names, in which state.
//
// Everything is asked of the accessibility tree, never of the widgets, so that what a reader can't find is missing
// here.
#include "screen_reader_test.h"

#include "view/board_cursor.h"

#include <QMap>
#include <QSignalSpy>

#include <utility>
#include <vector>

namespace zonterbrook::tests {

namespace {

using view::CommandId;

// As when a reader is started while the window stands.
class Reader {
public:
    explicit Reader(ui::BoardWidget& Board)
        : Changes(&Board, &ui::BoardWidget::CellTextChanged), Cursors(&Board, &ui::BoardWidget::CursorCame) {
        QAccessible::setActive(true);
    }
    ~Reader() { QAccessible::setActive(false); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // How often it has heard of a cell.
    static qsizetype Count(const QSignalSpy& Heard, int Cell) { return Heard.count(QVariantList{Cell}); }

    QSignalSpy Changes;
    QSignalSpy Cursors;
};

using Tree = QMap<QString, QAccessibleInterface*>;

// The tree below a node, by the names of the objects. A command that stands in the menus and on the toolbar has two.
void Walk(QAccessibleInterface* Node, Tree& Found, int Depth = 0) {
    constexpr int Deepest = 12;
    if (Node == nullptr || Depth > Deepest) {
        return;
    }
    if (Node->object() != nullptr && !Node->object()->objectName().isEmpty()) {
        const QString Name = Node->object()->objectName();
        // A menu bears the name of its entry, which comes first.
        if (!Found.contains(Name)) {
            Found.insert(Name, Node);
        }
    }
    for (int I = 0; I < Node->childCount(); ++I) {
        Walk(Node->child(I), Found, Depth + 1);
    }
}

Tree TreeOf(QWidget* Top) {
    Tree Found;
    Walk(QAccessible::queryAccessibleInterface(Top), Found);
    return Found;
}

QString Text(std::string_view Utf8) {
    return QString::fromUtf8(Utf8.data(), static_cast<qsizetype>(Utf8.size()));
}

} // namespace

// --- The board
// -----------------------------------------------------------------------------------------------------------

void ScreenReaderTest::BoardIsATable() {
    QAccessibleInterface* Board = BoardTable();
    QCOMPARE(Board->role(), QAccessible::Table);
    QCOMPARE(Board->text(QAccessible::Name), QStringLiteral("Board"));
    QCOMPARE(Board->childCount(), 100);
    QAccessibleTableInterface* Table = Board->tableInterface();
    QVERIFY(Table != nullptr);
    QCOMPARE(Table->rowCount(), 10);
    QCOMPARE(Table->columnCount(), 10);
    for (int Index = 0; Index < 100; ++Index) {
        QAccessibleInterface* Cell = Board->child(Index);
        QCOMPARE(Cell->role(), QAccessible::Cell);
        QCOMPARE(Cell->parent(), Board);
        QCOMPARE(Board->indexOfChild(Cell), Index);
        QCOMPARE(Table->cellAt(Index / 10, Index % 10), Cell);
        QCOMPARE(Cell->tableCellInterface()->rowIndex(), Index / 10);
        QCOMPARE(Cell->tableCellInterface()->columnIndex(), Index % 10);
    }
    QVERIFY(Board->child(100) == nullptr);
    QVERIFY(Board->child(-1) == nullptr);
}

void ScreenReaderTest::CellsSayWhatIsOnThem() {
    PlayBothSides();
    QCOMPARE(Says("d4"), QStringLiteral("d4, White man, can move"));
    QCOMPARE(Says("c3"), QStringLiteral("c3, White man"));
    QCOMPARE(Says("e5"), QStringLiteral("e5, empty"));
    QTest::mousePress(&Window->BoardOf(), Qt::LeftButton, {}, Middle("d4"));
    QCOMPARE(Says("e5"), QStringLiteral("e5, empty, target"));
    QTest::mouseRelease(&Window->BoardOf(), Qt::LeftButton, {}, Middle("e5"));
    QCOMPARE(Says("e5"), QStringLiteral("e5, White man"));
    QCOMPARE(Says("a7"), QStringLiteral("a7, Black man, can move"));
}

void ScreenReaderTest::CellsStandWhereTheyAreSeen() {
    QAccessibleInterface* Board = BoardTable();
    const QPoint There = Window->BoardOf().mapToGlobal(Middle("d4"));
    const int Index = view::CellOfSquare(Game(), SquareNamed("d4"));
    QCOMPARE(Board->childAt(There.x(), There.y()), Board->child(Index));
    QVERIFY(Board->child(Index)->rect().contains(There));
    QVERIFY(Board->rect().contains(Board->child(Index)->rect()));
}

void ScreenReaderTest::ReaderHearsOfTheCursor() {
    ui::BoardWidget* Board = &Window->BoardOf();
    const Reader Hears(*Board);
    QTest::keyClick(Board, Qt::Key_Right);
    const int First = Board->CursorCell();
    QVERIFY(First >= 0);
    QCOMPARE(Reader::Count(Hears.Cursors, First), 1);
    QVERIFY(BoardTable()->focusChild() == BoardTable()->child(First));
    QVERIFY(BoardTable()->child(First)->state().focused);
    QTest::keyClick(Board, Qt::Key_Up);
    QCOMPARE(Reader::Count(Hears.Cursors, First - 10), 1);
    QVERIFY(!BoardTable()->child(First)->state().focused);
}

void ScreenReaderTest::ReaderHearsOfChanges() {
    PlayBothSides();
    ui::BoardWidget* Board = &Window->BoardOf();
    const Reader Hears(*Board);
    Drag("d4", "e5"); // all cells for the first time
    const auto Changes = [&](const char* Square) {
        return Reader::Count(Hears.Changes, view::CellOfSquare(Game(), SquareNamed(Square)));
    };
    const qsizetype Emptied = Changes("a7");
    const qsizetype Still = Changes("a1");
    Drag("a7", "b6");
    QCOMPARE(Game().GameMoves, 2);
    QVERIFY(Changes("a7") > Emptied);
    QCOMPARE(Changes("a1"), Still);
}

void ScreenReaderTest::ReaderCanPressACell() {
    PlayBothSides();
    const auto Press = [&](const char* Square) {
        QAccessibleInterface* Cell = BoardTable()->child(view::CellOfSquare(Game(), SquareNamed(Square)));
        QVERIFY(Cell->actionInterface() != nullptr);
        Cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    Press("d4");
    QCOMPARE(Says("e5"), QStringLiteral("e5, empty, target"));
    Press("e5");
    QCOMPARE(Game().GameMoves, 1);
    QCOMPARE(Find<ui::LineList>("List1")->count(), 1); // and it is seen
}

// --- The window
// ----------------------------------------------------------------------------------------------------------

void ScreenReaderTest::EverythingIsFound() {
    const Tree Found = TreeOf(Window.get());
    for (const char* Name : {"c", "List1", "List2", "List3", "Text1", "Text2", "Progress", "Toolbar1", "StatusBar1",
                             "StatusBar1_Panel1", "StatusBar1_Panel2", "StatusBar1_Panel3"}) {
        QVERIFY2(Found.contains(QLatin1String(Name)), Name);
        const bool HasWords = !Found.value(QLatin1String(Name))->text(QAccessible::Name).isEmpty() ||
                              !Found.value(QLatin1String(Name))->text(QAccessible::Description).isEmpty();
        QVERIFY2(HasWords, Name);
    }
    for (int I = 1; I <= 14; ++I) {
        const QString Name = QStringLiteral("Label%1").arg(I);
        QVERIFY2(Found.contains(Name), qPrintable(Name));
        QVERIFY2(!Found.value(Name)->text(QAccessible::Description).isEmpty(), qPrintable(Name));
    }
    QCOMPARE(Found.value(QStringLiteral("Label3"))->text(QAccessible::Name), QStringLiteral("White"));
    QCOMPARE(Found.value(QStringLiteral("Label5"))->text(QAccessible::Name), QStringLiteral("20"));
    QCOMPARE(Found.value(QStringLiteral("Label9"))->role(), QAccessible::StaticText);
    QCOMPARE(Found.value(QStringLiteral("List2"))->childCount(), 9);
    for (const view::CommandRow& Row : view::CommandRows()) {
        if (Row.Kind == view::CommandKind::Separator || Row.Id == CommandId::mnuSetup ||
            Row.Menu == CommandId::mnuSetup || Row.Menu == CommandId::mnuPopup) {
            continue; // the editor's menu is in the tree while it is open
        }
        const QByteArray Name(Row.Name.data(), static_cast<qsizetype>(Row.Name.size()));
        QVERIFY2(Found.contains(Text(Row.Name)), Name.constData());
        QCOMPARE(Found.value(Text(Row.Name))->text(QAccessible::Name), Text(Row.Caption).remove(QLatin1Char('&')));
    }
    for (const view::ToolbarButton& Button : view::ToolbarButtons()) {
        const QString Name = QStringLiteral("Toolbar1_") + Text(Button.Key);
        QVERIFY2(Found.contains(Name), qPrintable(Name));
        QCOMPARE(Found.value(Name)->text(QAccessible::Name), Text(Button.Tip));
    }
}

void ScreenReaderTest::EntriesFollowEvents_data() {
    // What happens, and which commands a reader then finds open and closed, in menus and on the toolbar.
    QTest::addColumn<int>("Case");
    QTest::addColumn<QStringList>("Open");
    QTest::addColumn<QStringList>("Closed");
    QTest::addColumn<QStringList>("Ticked");
    const QStringList Behind{"First", "Moveback"};
    const QStringList Ahead{"MoveForward", "Last"};
    const QStringList Engine{"Compute", "mnu_Play_Ccomputer"};
    const QStringList Against{"Offerdraw", "Resign"};
    const QStringList Changing{"New1", "Cplayer", "Pplayer", "mnu_Board1"};
    const QStringList Cancel{"mnu_Play_Cancel"};
    const QStringList None;
    int Case = 0;
    const auto Row = [&Case](const char* Name, const QStringList& Open, const QStringList& Closed,
                             const QStringList& Ticked) { QTest::newRow(Name) << Case++ << Open << Closed << Ticked; };
    Row("start of a search", Cancel, Changing + Engine + Against + Behind + Ahead, None);
    Row("cancelled", None, Cancel, None);
    Row("move entered", Behind + Engine + Changing, Ahead + Cancel, None);
    Row("back to move 0", Ahead + Engine, Behind, None);
    Row("back, not to the start", Ahead + Behind + Engine, None, None);
    Row("forward, not to the end", Ahead + Behind, None, None);
    Row("forward to the end", Behind, Ahead, None);
    Row("Player-Computer", Against + Engine, Cancel, {"Cplayer"});
    Row("Player-Player", Engine, Against + Cancel, {"Pplayer"});
    Row("stepping back between persons", Ahead + Engine, Against, {"Pplayer"});
}

void ScreenReaderTest::EntriesFollowEvents() {
    QFETCH(int, Case);
    QFETCH(QStringList, Open);
    QFETCH(QStringList, Closed);
    QFETCH(QStringList, Ticked);

    const auto Compare = [&] {
        const Tree Found = TreeOf(Window.get());
        // A command's button says the same as its entry.
        const auto NamesOf = [](const QString& Command) {
            QStringList Names{Command};
            for (const view::ToolbarButton& Button : view::ToolbarButtons()) {
                if (Text(view::RowOf(Button.Command).Name) == Command) {
                    Names.append(QStringLiteral("Toolbar1_") + Text(Button.Key));
                }
            }
            return Names;
        };
        for (const auto& [Commands, Disabled] : {std::pair(Open, 0), std::pair(Closed, 1)}) {
            for (const QString& Command : Commands) {
                for (const QString& Name : NamesOf(Command)) {
                    QVERIFY2(Found.contains(Name), qPrintable(Name));
                    QVERIFY2(static_cast<int>(Found.value(Name)->state().disabled) == Disabled, qPrintable(Name));
                }
            }
        }
        for (const char* Mode : {"Cplayer", "Pplayer", "mnu_Play_Ccomputer"}) {
            for (const QString& Name : NamesOf(QLatin1String(Mode))) {
                if (!Ticked.isEmpty()) {
                    const bool Wanted = Ticked.contains(QLatin1String(Mode));
                    QVERIFY2((Found.value(Name)->state().checked != 0) == Wanted, qPrintable(Name));
                }
            }
        }
    };
    const auto Run = [&](CommandId Id) { Window->ActionOf(Id)->trigger(); };

    if (Case <= 1) {
        Game().SearchDepth = 20;
        InMidSearch Look(Game(), [&] {
            if (Case == 1) {
                Run(CommandId::mnu_Play_Cancel);
            }
            Compare();
            QVERIFY(TreeOf(Window.get()).value(QStringLiteral("Text2"))->state().disabled);
            Run(CommandId::mnu_Play_Cancel);
        });
        Drag("d4", "e5");
        QVERIFY(Look.Turns > 0);
        return;
    }
    PlayBothSides();
    if (Case >= 2 && Case <= 6) {
        Drag("d4", "e5");
        Drag("a7", "b6");
        Drag("b4", "a5");
    }
    const std::vector<std::vector<CommandId>> Roads = {
        {},
        {CommandId::First},
        {CommandId::Moveback},
        {CommandId::First, CommandId::MoveForward},
        {CommandId::First, CommandId::Last},
        {CommandId::Cplayer},
        {CommandId::Cplayer, CommandId::Pplayer},
    };
    constexpr int FirstRoad = 2;
    const auto Road = static_cast<std::size_t>(Case - FirstRoad);
    if (Road < Roads.size()) {
        for (const CommandId Id : Roads[Road]) {
            Run(Id);
        }
    } else {
        Drag("d4", "e5");
        Run(CommandId::Moveback);
    }
    Compare();
}

} // namespace zonterbrook::tests
