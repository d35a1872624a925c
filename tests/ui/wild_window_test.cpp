// Random mouse, keys, menus, buttons and lists on the real window: no fault, and a state that is in order.
//
// A few seconds of it in every run of the tests. With ZONTERBROOK_WILD_SECONDS set it goes on for as long, with ever
// new seeds, and with deep searches that are cancelled and the computer against itself.
#include "control/turn_state.h"
#include "control/variant_start.h"
#include "rules/generate.h"
#include "window_hands.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace zonterbrook::tests {
namespace {

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

class WildWindow : public WindowFixture, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        QObject::connect(&Answers, &QTimer::timeout, [this] { AnswerWhatIsOpen(); });
        Answers.start(0);
    }
    void TearDown() override {
        Answers.stop();
        Window.reset(); // before the world that it still looks at
    }

    int Below(auto Limit) { return static_cast<int>(Chance() % static_cast<unsigned>(Limit)); }
    bool Now(int OneIn) { return Below(OneIn) == 0; }
    const auto& OneOf(const auto& Things) { return *(std::begin(Things) + Below(std::size(Things))); }

    void Play(unsigned Seed, int Events);
    void AnswerWhatIsOpen();
    void DoSomething();
    void UseMouse();
    void UseKeys();
    void UseCommand();
    void UseButton();
    void UseList();
    void Scribble();
    int SomeCell();
    int SomeTarget(int From);
    QPoint SomePoint(int Cell);
    std::string WindowComplaint();

    std::unique_ptr<QuickPlatform> World;
    std::mt19937 Chance;
    QTimer Answers;
    const int Seconds = qEnvironmentVariableIntValue("ZONTERBROOK_WILD_SECONDS");
    const bool WithSearches = Seconds > 0; // searches that are cancelled, and the computer against itself
    int MovesSeen = 0;
};

// Message boxes and popup menus are closed by one of their buttons or entries, or by Escape; long searches by Cancel.
void WildWindow::AnswerWhatIsOpen() {
    if (auto* Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        QAction* Chosen = OneOf(Menu->actions());
        const bool Useless = Chosen->isSeparator() || !Chosen->isEnabled() || Chosen->menu() != nullptr;
        if (Useless || Now(3)) {
            QTest::keyClick(Menu, Qt::Key_Escape);
        } else {
            Menu->setActiveAction(Chosen);
            QTest::keyClick(Menu, Qt::Key_Return);
        }
    } else if (auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        if (Now(4)) {
            QTest::keyClick(Box, Qt::Key_Escape);
        } else {
            QTest::mouseClick(OneOf(Box->buttons()), Qt::LeftButton);
        }
    } else if (Window != nullptr && Game().Turn == control::TurnState::Thinking && WithSearches) {
        const int What = Below(6);
        if (What == 0) {
            Run(CommandId::Cancel);
        } else if (What == 1) {
            UseMouse();
        } else if (What == 2) {
            UseKeys();
        }
    }
}

// A square with a move more often than not: events at random hardly ever make one.
int WildWindow::SomeCell() {
    const int Moves = rules::MoveCountOfPly(Game());
    if (!control::IsBusy(Game()) && Moves > 0 && !Now(4)) {
        const rules::MoveRecord& Move = Game().MoveStack[Game().StackLimit[Game().Ply] + Below(Moves)];
        if (Move.Source != rules::FromHand) {
            return view::CellOfSquare(Game(), Move.Source);
        }
    }
    return Below(view::BoardPictures);
}

int WildWindow::SomeTarget(int From) {
    const int Moves = !control::IsBusy(Game()) ? rules::MoveCountOfPly(Game()) : 0;
    for (int I = 0; I < Moves && !Now(4); ++I) {
        const rules::MoveRecord& Move = Game().MoveStack[Game().StackLimit[Game().Ply] + I];
        if (Move.Source == view::SquareOfCell(Game(), From)) {
            return view::CellOfSquare(Game(), Move.Dest);
        }
    }
    return Below(view::BoardPictures);
}

// In the cell, now and then anywhere on the board or beside it.
QPoint WildWindow::SomePoint(int Cell) {
    return Now(10) ? QPoint(Below(Board().width() + 200) - 100, Below(Board().height() + 200) - 100)
                   : Board().CellRect(Cell).center();
}

void WildWindow::UseMouse() {
    const int From = SomeCell();
    const QPoint Start = SomePoint(From);
    const QPoint End = SomePoint(SomeTarget(From));
    const Qt::MouseButton Button = Now(40) ? Qt::RightButton : Now(40) ? Qt::MiddleButton : Qt::LeftButton;
    if (!Now(5)) {
        QTest::mouseMove(&Board(), Start);
    }
    if (!Now(8)) {
        QTest::mousePress(&Board(), Button, {}, Start);
    }
    if (!Now(5)) {
        QTest::mouseMove(&Board(), End);
    }
    if (!Now(8)) { // else the release comes in the middle of something else, or never
        QTest::mouseRelease(&Board(), Button, {}, End);
    }
}

void WildWindow::UseKeys() {
    static constexpr Qt::Key Keys[] = {Qt::Key_Left,  Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Return,
                                       Qt::Key_Space, Qt::Key_Enter,     Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Backtab,
                                       Qt::Key_Home,  Qt::Key_End,       Qt::Key_PageUp, Qt::Key_F5,    Qt::Key_A,
                                       Qt::Key_4,     Qt::Key_Backspace, Qt::Key_Menu,   Qt::Key_Delete};
    static constexpr Qt::KeyboardModifier Modifiers[] = {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier};
    if (Now(3)) {
        Board().setFocus(Now(2) ? Qt::TabFocusReason : Qt::OtherFocusReason);
    }
    for (int Strokes = 1 + Below(5); Strokes > 0; --Strokes) {
        BackToFront();
        QWidget* There = Window->focusWidget();
        if (There == nullptr) {
            return;
        }
        const Qt::KeyboardModifiers Held = Now(4) ? OneOf(Modifiers) : Qt::NoModifier;
        const Qt::Key Key = OneOf(Keys);
        QTest::keyPress(There, Key, Held);
        if (!Now(10)) {
            QTest::keyRelease(There, Key, Held);
        }
    }
    if (Now(3) && Board().CursorCell() >= 0) { // a move with the keys, whole
        Board().setFocus();
        const int From = SomeCell();
        for (const int Cell : {From, SomeTarget(From)}) {
            BackToFront();
            view::SetCursor(Game(), view::SquareOfCell(Game(), Cell));
            Press(Qt::Key_Return);
        }
    }
}

void WildWindow::UseCommand() {
    const CommandId Id = OneOf(control::CommandRows()).Id;
    const bool Slow = Id == CommandId::ComputerComputer; // it waits between its moves
    if (Entry(Id) != nullptr && (!Slow || (WithSearches && Now(20)))) {
        Run(Id);
    }
}

void WildWindow::UseButton() {
    const control::ToolbarButton& Chosen = OneOf(control::ToolbarButtons());
    if (Chosen.Command != CommandId::ComputerComputer) {
        QTest::mouseClick(Button(std::string(Chosen.Key).c_str()), Qt::LeftButton);
    }
}

void WildWindow::UseList() {
    ui::LineList* Lines = List(OneOf(std::array{"List1", "List2", "List3"}));
    const int Row = Below(Lines->count() + 2);
    const QPoint Where = Row < Lines->count() ? Lines->visualItemRect(Lines->item(Row)).center()
                                              : QPoint(Below(Lines->width()), Below(Lines->height()));
    QTest::mouseClick(Lines->viewport(), Qt::LeftButton, {}, Where);
    if (Now(2)) {
        QTest::mouseDClick(Lines->viewport(), Qt::LeftButton, {}, Where);
    } else if (Now(3)) {
        QTest::keyClick(Lines, Qt::Key_Return);
    }
}

void WildWindow::Scribble() {
    QString Text;
    for (int I = Below(8); I >= 0; --I) {
        Text += QLatin1Char(OneOf(std::string_view("abcdefghij0123456789-x:K ")));
    }
    if (Now(3)) {
        QTest::keyClicks(Find<QPlainTextEdit>("Text1"), Text);
    } else {
        QTest::keyClicks(TypedMove(), Text);
        QTest::keyClick(TypedMove(), Qt::Key_Return);
    }
}

void WildWindow::DoSomething() {
    BackToFront();
    Game().SearchDepth = WithSearches && Now(20) ? 20 : 1;
    using Doing = void (WildWindow::*)();
    static constexpr Doing Doings[] = {&WildWindow::UseCommand, &WildWindow::UseButton, &WildWindow::UseList,
                                       &WildWindow::Scribble,   &WildWindow::UseKeys,   &WildWindow::UseKeys,
                                       &WildWindow::UseKeys,    &WildWindow::UseMouse,  &WildWindow::UseMouse,
                                       &WildWindow::UseMouse,   &WildWindow::UseMouse,  &WildWindow::UseMouse};
    (this->*OneOf(Doings))();
}

// Beside the state itself: the widgets show it, and the board shows the position.
std::string WildWindow::WindowComplaint() {
    std::string Found = control::CheckRest(Game());
    for (const control::CommandRow& Row : control::CommandRows()) {
        if (Entry(Row.Id) != nullptr && Entry(Row.Id)->isEnabled() != control::IsEnabled(Game(), Row.Id)) {
            Found += " an entry is not as the state says: " + std::string(Row.Name);
        }
    }
    for (const auto& [Name, Fields] :
         {std::pair("List1", &Game().GameList), {"List2", &Game().ChoiceList}, {"List3", &Game().RootList}}) {
        std::vector<std::string> Lines;
        for (int I = 0; I < List(Name)->count(); ++I) {
            Lines.push_back(List(Name)->item(I)->text().toStdString());
        }
        if (Lines != Fields->Lines) {
            Found += std::string(" other lines are in ") + Name;
        }
    }
    if (Board().CursorCell() != Game().CursorCell) {
        Found += " the cursor stands elsewhere";
    }
    if (Game().CursorCell >= 0 && Window->isActiveWindow() && !Board().hasFocus()) {
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

void WildWindow::Play(unsigned Seed, int Events) {
    Open();
    Chance.seed(Seed);
    World = std::make_unique<QuickPlatform>(*Window, Folders(), Seed);
    World->OpenLog();
    Game().World = World.get();
    Game().UseSound = 1;
    Game().ConfirmExit = 1;
    Game().VariantName = GetParam();
    control::StartVariant(Game(), control::ReadChosenVariant(Game()), control::RulesFrom::File);
    Game().SizeClass = Now(2) ? 2 : 0;
    view::LayoutWindow(Game());
    view::DrawBoard(Game(), 0);
    Window->ShowContents();
    for (int Event = 0; Event < Events && !Window->HasEnded(); ++Event) {
        SCOPED_TRACE(testing::Message() << "seed " << Seed << ", event " << Event);
        DoSomething();
        ASSERT_EQ("", World->Fault);
        if (Event % 20 == 0 && !Window->HasEnded()) {
            QCoreApplication::processEvents();
            MovesSeen = std::max(MovesSeen, Game().Record.Count);
            ASSERT_EQ("", WindowComplaint());
        }
    }
}

TEST_P(WildWindow, LeavesTheStateInOrder) {
    constexpr int Rows = 4;
    QElapsedTimer Clock;
    Clock.start();
    for (unsigned Seed = 1; Seed <= 2 || Clock.elapsed() < 1000LL * Seconds / Rows; ++Seed) {
        ASSERT_NO_FATAL_FAILURE(Play(Seed, 250));
    }
    EXPECT_GT(MovesSeen, 5) << "hardly a move was made";
}

INSTANTIATE_TEST_SUITE_P(Rows, WildWindow,
                         testing::Values("International Checkers", "Turkish Draughts 10x10", "Reserves",
                                         "Frisian Draughts"),
                         TextName);

} // namespace
} // namespace zonterbrook::tests
