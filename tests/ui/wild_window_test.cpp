// Random mouse, keys, menus, buttons and lists on the real window: no fault, and a state that is in order.
//
// A few seconds of it in every run of the tests. With ZONTERBROOK_WILD_SECONDS set it goes on for as long, with ever
// new seeds, and with deep searches that are cancelled and the computer against itself.
#include "wild_window_test.h"

#include "control/new_game.h"
#include "rules/generate.h"
#include "support/complaint.h"
#include "view/board_cursor.h"
#include "view/layout.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QToolButton>

#include <algorithm>

namespace zonterbrook::tests {

using view::CommandId;

// The real platform with a fixed row of chances, and without the pauses in which a person reads what has happened.
class QuickPlatform : public ui::QtPlatform {
public:
    QuickPlatform(ui::MainWindow& Owner, ui::ProgramFolders Where, unsigned Seed)
        : QtPlatform(Owner, std::move(Where)), Row(Seed) {}
    double Random() override { return std::generate_canonical<double, 53>(Row); }
    void SeedRandom() override {}
    void Wait(double) override {
        Refresh();
        QCoreApplication::processEvents();
    }

    // A program ends after a question, or after the message of a fault.
    void Message(std::string_view Title, std::string_view Text, control::Icon Sign) override {
        LastMessage = Text;
        QtPlatform::Message(Title, Text, Sign);
    }
    bool Ask(std::string_view Title, std::string_view Text) override {
        LastMessage.clear();
        return QtPlatform::Ask(Title, Text);
    }
    void EndProgram() override {
        Fault = LastMessage;
        QtPlatform::EndProgram();
    }

    std::string LastMessage;
    std::string Fault;

private:
    std::mt19937 Row;
};

WildWindowTest::WildWindowTest() = default;
WildWindowTest::~WildWindowTest() = default;

void WildWindowTest::init() {
    qputenv("PULSE_SERVER", "/nonexistent/socket"); // no noise
    disconnect(&Answers, nullptr, this, nullptr);
    connect(&Answers, &QTimer::timeout, this, &WildWindowTest::AnswerWhatIsOpen);
    Answers.start(0);
}

// Message boxes and popup menus are closed by one of their buttons or entries, or by Escape; long searches by Cancel.
void WildWindowTest::CloseAll() {
    Close();
    World.reset(); // after the window, which still looks at it
}

void WildWindowTest::AnswerWhatIsOpen() {
    if (auto* Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        const QList<QAction*> Entries = Menu->actions();
        QAction* Entry = Entries.at(Below(static_cast<int>(Entries.size())));
        if (Now(3) || Entry->isSeparator() || !Entry->isEnabled() || Entry->menu() != nullptr) {
            QTest::keyClick(Menu, Qt::Key_Escape);
        } else {
            Menu->setActiveAction(Entry);
            QTest::keyClick(Menu, Qt::Key_Return);
        }
        return;
    }
    if (auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        const QList<QAbstractButton*> Buttons = Box->buttons();
        if (Now(4)) {
            QTest::keyClick(Box, Qt::Key_Escape);
        } else {
            QTest::mouseClick(Buttons.at(Below(static_cast<int>(Buttons.size()))), Qt::LeftButton);
        }
        return;
    }
    if (Window != nullptr && Game().SearchActive != 0 && WithSearches) {
        switch (Below(6)) {
        case 0:
            Window->ActionOf(CommandId::mnu_Play_Cancel)->trigger();
            break;
        case 1:
            UseMouse();
            break;
        case 2:
            UseKeys();
            break;
        default:
            break;
        }
    }
}

// A square with a move more often than not: events at random hardly ever make one.
int WildWindowTest::SomeCell() {
    const int Moves = rules::MoveCountOfPly(Game());
    if (Game().Thinking == 0 && Moves > 0 && !Now(4)) {
        const rules::MoveRecord& Move = Game().MoveStack[Game().StackLimit[Game().Ply] + Below(Moves)];
        if (Move.Source != rules::FromHand) {
            return view::CellOfSquare(Game(), Move.Source);
        }
    }
    return Below(view::BoardPictures);
}

int WildWindowTest::SomeTarget(int Cell) {
    const int Square = view::SquareOfCell(Game(), Cell);
    const int Moves = Game().Thinking == 0 ? rules::MoveCountOfPly(Game()) : 0;
    for (int I = 0; I < Moves && !Now(4); ++I) {
        const rules::MoveRecord& Move = Game().MoveStack[Game().StackLimit[Game().Ply] + I];
        if (Move.Source == Square) {
            return view::CellOfSquare(Game(), Move.Dest);
        }
    }
    return Below(view::BoardPictures);
}

QPoint WildWindowTest::SomePoint() {
    const QSize Size = Window->BoardOf().size();
    return {Below(Size.width() + 200) - 100, Below(Size.height() + 200) - 100};
}

void WildWindowTest::UseMouse() {
    ui::BoardWidget* Board = &Window->BoardOf();
    const int From = SomeCell();
    const int To = SomeTarget(From);
    const Qt::MouseButton Button = Now(40) ? Qt::RightButton : Now(40) ? Qt::MiddleButton : Qt::LeftButton;
    const QPoint Start = Now(10) ? SomePoint() : Board->CellRect(From).center();
    const QPoint End = Now(10) ? SomePoint() : Board->CellRect(To).center();
    if (!Now(5)) {
        QTest::mouseMove(Board, Start);
    }
    if (!Now(8)) {
        QTest::mousePress(Board, Button, {}, Start);
    }
    if (!Now(5)) {
        QTest::mouseMove(Board, End);
    }
    if (!Now(8)) { // else the release comes in the middle of something else, or never
        QTest::mouseRelease(Board, Button, {}, End);
    }
}

void WildWindowTest::UseKeys() {
    static constexpr Qt::Key Keys[] = {Qt::Key_Left,  Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Return,
                                       Qt::Key_Space, Qt::Key_Enter,     Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Backtab,
                                       Qt::Key_Home,  Qt::Key_End,       Qt::Key_PageUp, Qt::Key_F5,    Qt::Key_A,
                                       Qt::Key_4,     Qt::Key_Backspace, Qt::Key_Menu,   Qt::Key_Delete};
    if (Now(3)) {
        Window->BoardOf().setFocus(Now(2) ? Qt::TabFocusReason : Qt::OtherFocusReason);
    }
    for (int Strokes = 1 + Below(5); Strokes > 0; --Strokes) {
        ComeToFront();
        QWidget* There = Window->focusWidget();
        if (There == nullptr) {
            return;
        }
        const Qt::Key Key = Keys[Below(static_cast<int>(std::size(Keys)))];
        const Qt::KeyboardModifiers Held = Now(12)   ? Qt::ControlModifier
                                           : Now(12) ? Qt::AltModifier
                                           : Now(12) ? Qt::ShiftModifier
                                                     : Qt::NoModifier;
        if (Now(10)) {
            QTest::keyPress(There, Key, Held);
        } else {
            QTest::keyClick(There, Key, Held);
        }
    }
    if (Now(3) && Window->BoardOf().CursorCell() >= 0) { // a move with the keys, whole
        ui::BoardWidget* Board = &Window->BoardOf();
        Board->setFocus();
        const int From = SomeCell();
        const int To = SomeTarget(From);
        for (const int Cell : {From, To}) {
            ComeToFront();
            view::SetCursor(Game(), view::SquareOfCell(Game(), Cell));
            QTest::keyClick(Board, Qt::Key_Return);
        }
    }
}

void WildWindowTest::UseCommand() {
    const auto Rows = view::CommandRows();
    const view::CommandRow& Row = Rows[static_cast<std::size_t>(Below(static_cast<int>(Rows.size())))];
    const bool Slow = Row.Id == CommandId::mnu_Play_Ccomputer; // it waits between its moves
    if (Window->ActionOf(Row.Id) == nullptr || (Slow && !(WithSearches && Now(20)))) {
        return;
    }
    Window->ActionOf(Row.Id)->trigger();
}

void WildWindowTest::UseButton() {
    const auto Buttons = view::ToolbarButtons();
    const view::ToolbarButton& Chosen = Buttons[static_cast<std::size_t>(Below(static_cast<int>(Buttons.size())))];
    if (Chosen.Command != CommandId::mnu_Play_Ccomputer) {
        const QByteArray Name = QByteArray("Toolbar1_") + QByteArray(Chosen.Key.data(), qsizetype(Chosen.Key.size()));
        QTest::mouseClick(Find<QToolButton>(Name.constData()), Qt::LeftButton);
    }
}

void WildWindowTest::UseList() {
    static constexpr const char* Names[] = {"List1", "List2", "List3"};
    auto* List = Find<ui::LineList>(Names[Below(3)]);
    const int Row = Below(List->count() + 2);
    const QPoint Where = Row < List->count() ? List->visualItemRect(List->item(Row)).center()
                                             : QPoint(Below(List->width()), Below(List->height()));
    QTest::mouseClick(List->viewport(), Qt::LeftButton, {}, Where);
    if (Now(2)) {
        QTest::mouseDClick(List->viewport(), Qt::LeftButton, {}, Where);
    } else if (Now(3)) {
        QTest::keyClick(List, Qt::Key_Return);
    }
}

void WildWindowTest::Scribble() {
    static constexpr char Signs[] = "abcdefghij0123456789-x:K ";
    QString Text;
    for (int I = Below(8); I >= 0; --I) {
        Text += QLatin1Char(Signs[Below(static_cast<int>(sizeof Signs) - 1)]);
    }
    if (Now(3)) {
        QTest::keyClicks(Find<QPlainTextEdit>("Text1"), Text);
    } else {
        QTest::keyClicks(Find<QLineEdit>("Text2"), Text);
        QTest::keyClick(Find<QLineEdit>("Text2"), Qt::Key_Return);
    }
}

// As a desktop brings a window back when its box has closed: only then has it keys.
void WildWindowTest::ComeToFront() {
    if (!Window->isActiveWindow() && Window->isVisible()) {
        Window->activateWindow();
        QCoreApplication::processEvents();
    }
}

void WildWindowTest::DoSomething() {
    ComeToFront();
    Game().SearchDepth = WithSearches && Now(20) ? 20 : 1;
    switch (Below(12)) {
    case 0:
        UseCommand();
        break;
    case 1:
        UseButton();
        break;
    case 2:
        UseList();
        break;
    case 3:
        Scribble();
        break;
    case 4:
    case 5:
    case 6:
        UseKeys();
        break;
    default:
        UseMouse();
    }
}

// Beside the state itself: the widgets show it, and the board shows the position.
std::string WildWindowTest::WindowComplaint() {
    std::string Found = Complaint(Game());
    for (const view::CommandRow& Row : view::CommandRows()) {
        const QAction* Entry = Window->ActionOf(Row.Id);
        if (Entry != nullptr && Entry->isEnabled() != view::CanRun(Game(), Row.Id)) {
            Found += " an entry is not as the state says: " + std::string(Row.Name);
        }
    }
    const auto Same = [](const ui::LineList* List, const view::ListFields& Fields) {
        bool Equal = List->count() == static_cast<int>(Fields.Lines.size());
        for (int I = 0; Equal && I < List->count(); ++I) {
            Equal = List->item(I)->text().toStdString() == Fields.Lines[static_cast<std::size_t>(I)];
        }
        return Equal;
    };
    if (!Same(Find<ui::LineList>("List1"), Game().List1) || !Same(Find<ui::LineList>("List2"), Game().List2) ||
        !Same(Find<ui::LineList>("List3"), Game().List3)) {
        Found += " a list shows other lines";
    }
    if (Window->BoardOf().CursorCell() != Game().CursorCell) {
        Found += " the cursor stands elsewhere";
    }
    if (Game().CursorCell >= 0 && Window->isActiveWindow() && !Window->BoardOf().hasFocus()) {
        Found += " a cursor without the keyboard";
    }
    const auto Before = Game().Cells;
    view::DrawBoard(Game(), 0);
    for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
        if (Cell != Game().SourceCell && Before[Cell].Shows != Game().Cells[Cell].Shows) {
            Found += " a cell shows something else than the position";
        }
    }
    Game().Cells = Before;
    return Found;
}

void WildWindowTest::Play(unsigned Seed, const QString& Variant, int Events) {
    constexpr int Batch = 20;
    CloseAll();
    Open();
    Chance.seed(Seed);
    World = std::make_unique<QuickPlatform>(
        *Window, ui::ProgramFolders{ZONTERBROOK_DATA_DIR, Written->path().toStdString()}, Seed);
    World->OpenLog();
    Game().World = World.get();
    Game().Outside = World.get();
    Game().UseSound = 1;
    Game().ConfirmExit = 1;
    Game().VariantName = Variant.toStdString();
    control::NewGame(Game());
    Game().RuleSet = Game().LoadedRuleSet;
    control::NewGame(Game());
    Game().SizeClass = Now(2) ? 2 : 0;
    view::LayoutWindow(Game());
    view::DrawBoard(Game(), 0);
    Window->ShowContents();
    for (int Event = 0; Event < Events && !Window->HasEnded(); ++Event) {
        DoSomething();
        QVERIFY2(World->Fault.empty(), qPrintable(QStringLiteral("seed %1, %2, event %3: %4")
                                                      .arg(Seed)
                                                      .arg(Variant)
                                                      .arg(Event)
                                                      .arg(QString::fromStdString(World->Fault))));
        if (Event % Batch == 0 && !Window->HasEnded()) {
            QCoreApplication::processEvents();
            MovesSeen = std::max(MovesSeen, Game().MoveCount);
            const std::string Found = WindowComplaint();
            QVERIFY2(Found.empty(), qPrintable(QStringLiteral("seed %1, %2, event %3:%4")
                                                   .arg(Seed)
                                                   .arg(Variant)
                                                   .arg(Event)
                                                   .arg(QString::fromStdString(Found))));
        }
    }
}

void WildWindowTest::LeavesTheStateInOrder_data() {
    QTest::addColumn<QString>("Variant");
    for (const char* Name : {"International Checkers", "Turkish Draughts 10x10", "Reserves", "Frisian Draughts"}) {
        QTest::newRow(Name) << QString::fromLatin1(Name);
    }
}

void WildWindowTest::LeavesTheStateInOrder() {
    QFETCH(QString, Variant);
    constexpr int EventsInARun = 250;
    constexpr int Rows = 4;
    const int Seconds = qEnvironmentVariableIntValue("ZONTERBROOK_WILD_SECONDS");
    WithSearches = Seconds > 0;
    MovesSeen = 0;
    QElapsedTimer Clock;
    Clock.start();
    unsigned Seed = 1;
    do {
        Play(Seed++, Variant, EventsInARun);
        if (QTest::currentTestFailed()) {
            return;
        }
    } while (Seed <= 2 || Clock.elapsed() < 1000LL * Seconds / Rows);
    QVERIFY2(MovesSeen > 5, "hardly a move was made");
}

} // namespace zonterbrook::tests
