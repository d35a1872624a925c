// The main window `frmMain`: owns the game's state, turns events into calls of control, and shows what the state says.
//
// This file has the window's life and its events; what it is made of is in main_window_build.cpp, how it shows the
// contents in main_window_show.cpp. While a search runs, events come in through the platform's turns: a handler then
// runs inside the one that searches, and those that may not do so refuse by themselves.
#include "ui/main_window.h"

#include "control/events.h"
#include "ui/board_access.h"
#include "ui/icons.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <QWindow>

#include <cmath>

namespace zonterbrook::ui {

namespace {

// Desktops with text of 120 dots an inch have 12 twips to a pixel; a display's scale factor comes on top by itself.
int TwipsPerPixelOf(const QScreen* Screen) {
    constexpr int LargeTextDensity = 120;
    const int Density = static_cast<int>(std::lround(Screen->logicalDotsPerInch()));
    return Density == LargeTextDensity ? 12 : 15;
}

// The labels of the pieces off the board, and whose they are.
struct CounterOf {
    std::size_t Label;
    std::int32_t Side;
};
constexpr CounterOf Counters[] = {{10, rules::Black}, {11, rules::Black}, {12, rules::White}, {13, rules::White}};

} // namespace

MainWindow::MainWindow(ProgramFolders Folders, QWidget* Parent)
    : QMainWindow(Parent), Outside(std::make_unique<QtPlatform>(*this, std::move(Folders))),
      State(std::make_unique<control::GameState>(*Outside)) {
    setObjectName(QStringLiteral("frmMain"));
    RegisterArt();
    RegisterBoardAccess();
    setWindowIcon(ProgramIcon());
    BuildMenus();
    BuildToolbar();
    BuildControls();
    BuildStatusBar();
    NameControls();
    ConnectControls();
    SteadyLooks();

    State->TwipsPerPixel = TwipsPerPixelOf(screen());
    control::Form_Load(*State);
    ShowContents();
    setAcceptDrops(true);
    for (const CounterOf& Each : Counters) {
        Labels.at(Each.Label)->installEventFilter(this);
        Labels.at(Each.Label)->setToolTip(tr("Drag from here to the square that a piece is to enter on"));
    }
    Board->setFocus();
}

MainWindow::~MainWindow() {
    // The board loses the keyboard when it goes, and the state has gone before it.
    Board->disconnect(this);
}

// --- Handlers -------------------------------------------------------------------------------------------------------

void MainWindow::Dispatch(const std::function<void(control::GameState&)>& Handler) {
    if (EndWanted) {
        return;
    }
    Handler(*State);
    ShowContents();
    LeaveIfAsked();
}

void MainWindow::ConnectControls() {
    using control::GameState;

    connect(Board, &BoardWidget::CellPressed, this, [this](int Cell, int Button) {
        Dispatch([=](GameState& Game) { control::c_MouseDown(Game, Cell, Button); });
    });
    connect(Board, &BoardWidget::CellMoved, this,
            [this](int Cell) { Dispatch([=](GameState& Game) { control::c_MouseMove(Game, Cell); }); });
    connect(Board, &BoardWidget::CellReleased, this, [this](int Cell, int Button, int X, int Y) {
        Dispatch([=](GameState& Game) { control::c_MouseUp(Game, Cell, Button, X, Y); });
    });

    connect(Board, &BoardWidget::KeyReported, this, [this](control::BoardKey Key, bool Pressed) {
        Dispatch([=](GameState& Game) { (Pressed ? control::c_KeyDown : control::c_KeyUp)(Game, Key); });
    });
    connect(Board, &BoardWidget::Typed, this, &MainWindow::TypeOnBoard);
    connect(Board, &BoardWidget::CellChosen, this,
            [this](int Cell) { Dispatch([=](GameState& Game) { control::c_Choose(Game, Cell); }); });
    Board->SayCellsWith([this](int Cell) { return control::c_Text(*State, Cell); });
    connect(Board, &BoardWidget::FocusGained, this, [this](bool ByKeys) {
        // A control that is closed hands the keyboard on as if somebody had pressed Tab.
        control::c_GotFocus(*State, ByKeys && !Showing);
        ShowContents();
    });
    connect(Board, &BoardWidget::FocusLost, this, [this](bool ByPerson) {
        control::c_LostFocus(*State, ByPerson);
        ShowContents();
    });

    // What a person selects or types stands in the widget already: it goes to the state, and to the copy of what is
    // shown.
    const auto KeepSelection = [this](LineList* List, view::ListFields view::WindowContents::*Fields) {
        connect(List, &LineList::currentRowChanged, this, [this, Fields](int Row) {
            (State.get()->*Fields).Selected = Row;
            (Shown.*Fields).Selected = Row;
        });
    };
    KeepSelection(GameList, &view::WindowContents::GameList);
    KeepSelection(ChoiceList, &view::WindowContents::ChoiceList);
    KeepSelection(RootList, &view::WindowContents::RootList);
    connect(GameList, &LineList::Released, this, [this] { Dispatch(control::List1_MouseUp); });
    connect(GameList, &LineList::EnterPressed, this,
            [this] { Dispatch([](GameState& Game) { control::List1_KeyDown(Game, control::EnterKey); }); });
    connect(ChoiceList, &LineList::doubleClicked, this, [this] { Dispatch(control::List2_DblClick); });
    connect(ChoiceList, &LineList::EnterPressed, this, [this] { Dispatch(control::List2_DblClick); });
    connect(RootList, &LineList::doubleClicked, this, [this] { Dispatch(control::List3_DblClick); });
    connect(RootList, &LineList::EnterPressed, this, [this] { Dispatch(control::List3_DblClick); });

    connect(CommentBox, &QPlainTextEdit::textChanged, this, [this] {
        State->CommentText = CommentBox->toPlainText().toStdString();
        Shown.CommentText = State->CommentText;
        Dispatch(control::Text1_KeyUp);
    });
    connect(MoveBox, &QLineEdit::textEdited, this, [this](const QString& Typed) {
        State->TypedText = Typed.toStdString();
        Shown.TypedText = State->TypedText;
    });
    // Enter counts when it goes down: its release may belong to a message box that it has just closed.
    connect(MoveBox, &QLineEdit::returnPressed, this,
            [this] { Dispatch([](GameState& Game) { control::Text2_KeyUp(Game, control::EnterKey); }); });

    for (const control::CommandRow& Row : control::CommandRows()) {
        // The entries of the popup menu are not run: the chosen one is the answer to whoever opened the menu.
        QAction* Entry = Row.Menu == control::CommandId::PopupMenu ? nullptr : ActionOf(Row.Id);
        if (Entry != nullptr) {
            connect(Entry, &QAction::triggered, this,
                    [this, Id = Row.Id] { Dispatch([Id](GameState& Game) { control::RunCommand(Game, Id); }); });
        }
    }
}

// With nothing to edit in the box of typed moves, the keys that go through the game are the commands' own.
bool MainWindow::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched == Inner && Event->type() == QEvent::Resize && EverShown) {
        PlaceControls();
    }
    if (Event->type() == QEvent::MouseButtonPress || Event->type() == QEvent::MouseButtonRelease) {
        const auto* Mouse = static_cast<QMouseEvent*>(Event);
        for (const CounterOf& Each : Counters) {
            if (Watched == Labels.at(Each.Label) && Mouse->button() == Qt::LeftButton) {
                DragFromCounter(*Mouse, Each.Side);
                return true;
            }
        }
    }
    if (Watched == MoveBox && Event->type() == QEvent::ShortcutOverride && MoveBox->text().isEmpty()) {
        Event->ignore();
        return true;
    }
    return QMainWindow::eventFilter(Watched, Event);
}

// A piece from off the board is dragged from its counter; the label keeps the mouse until it is let go.
void MainWindow::DragFromCounter(const QMouseEvent& Mouse, std::int32_t Side) {
    if (Mouse.type() == QEvent::MouseButtonPress) {
        Dispatch([=](control::GameState& Game) { control::ExtraPieces_MouseDown(Game, Side); });
        if (State->HandSide == Side) {
            const auto Piece = Side == rules::White ? view::Picture::white_man_ico : view::Picture::black_man_ico;
            QGuiApplication::setOverrideCursor(
                Board->Art().Pointer(Piece, Board->CellRect(0).width(), devicePixelRatioF()));
        }
        return;
    }
    if (State->HandSide != 0) {
        QGuiApplication::restoreOverrideCursor();
        const int Cell = Board->CellAt(Board->mapFromGlobal(Mouse.globalPosition()));
        Dispatch([=](control::GameState& Game) { control::ExtraPieces_MouseUp(Game, Cell); });
    }
}

// What is typed on the board is a move: the box of typed moves takes it. While several ways are offered a digit chooses
// one.
void MainWindow::TypeOnBoard(const QString& Text) {
    if (!State->Ways.empty()) {
        Dispatch([Number = Text.toInt()](control::GameState& Game) { control::c_ChooseWay(Game, Number); });
    } else if (MoveBox->isEnabled()) {
        MoveBox->setFocus();
        MoveBox->setText(Text);
        State->TypedText = Text.toStdString();
        Shown.TypedText = State->TypedText;
    }
}

void MainWindow::keyPressEvent(QKeyEvent* Event) {
    if (Event->key() == Qt::Key_Escape) {
        Dispatch(control::PutBackPiece);
        return;
    }
    QMainWindow::keyPressEvent(Event);
}

control::CommandId MainWindow::RunPopup(control::CommandId Menu) {
    QMenu* Popup = Menus.at(static_cast<std::size_t>(Menu));
    ShowCommands(); // its ticks are those of the square it has been opened on
    // On the square that the keys have chosen, or beside the mouse, at the height of what stands on the square: a slip
    // of the finger must not sweep the board.
    constexpr int Gap = 6;
    const int Cell = Board->CursorCell();
    QPoint Where = Cell >= 0 ? Board->mapToGlobal(Board->CellRect(Cell).center()) : QCursor::pos();
    for (QAction* Entry : Popup->actions()) {
        if (Cell < 0 && Entry->isChecked()) {
            Where += QPoint(Gap, -Popup->actionGeometry(Entry).center().y());
            break;
        }
    }
    const QAction* Chosen = Popup->exec(Where);
    for (const control::CommandRow& Row : control::CommandRows()) {
        if (Chosen != nullptr && ActionOf(Row.Id) == Chosen) {
            return Row.Id;
        }
    }
    return control::CommandId::None;
}

// --- Files from outside ---------------------------------------------------------------------------------------------

void MainWindow::OpenFile(const std::filesystem::path& File) {
    Dispatch([&](control::GameState& Game) { control::OpenDropped(Game, File); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* Event) {
    const QList<QUrl> Files = Event->mimeData()->urls();
    if (Files.size() == 1 && Files.constFirst().isLocalFile()) {
        Event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* Event) {
    Event->acceptProposedAction();
    const std::filesystem::path File(Event->mimeData()->urls().constFirst().toLocalFile().toStdU16String());
    // A message that the file brings up must not keep the program waiting that it was dragged from.
    QMetaObject::invokeMethod(
        this, [this, File] { OpenFile(File); }, Qt::QueuedConnection);
}

// --- The screen -----------------------------------------------------------------------------------------------------

void MainWindow::showEvent(QShowEvent* Event) {
    QMainWindow::showEvent(Event);
    if (!FollowsScreen) {
        FollowsScreen = true;
        connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::FollowScreen);
        FollowScreen();
        // The window is on the screen before the computer thinks.
        QMetaObject::invokeMethod(
            this, [this] { Dispatch(control::Form_Activate); }, Qt::QueuedConnection);
    }
}

// The window is on another screen, or the density of its texts has changed.
void MainWindow::FollowScreen() {
    for (const QScreen* Each : QGuiApplication::screens()) {
        Each->disconnect(this);
    }
    connect(screen(), &QScreen::logicalDotsPerInchChanged, this, &MainWindow::FollowScreen);
    const int Twips = TwipsPerPixelOf(screen());
    if (State->TwipsPerPixel != Twips) {
        Dispatch([Twips](control::GameState& Game) { control::ChangeDensity(Game, Twips); });
    }
}

// --- The end --------------------------------------------------------------------------------------------------------

void MainWindow::closeEvent(QCloseEvent* Event) {
    if (!EndWanted) {
        bool Stay = false;
        control::Form_QueryUnload(*State, Stay);
        ShowContents();
        if (Stay) {
            Event->ignore();
            return;
        }
        State->OwnSettings.WindowPlace = saveGeometry().toBase64().toStdString();
        control::Form_Unload(*State);
        EndWanted = true;
    }
    Event->accept();
}

void MainWindow::CloseLater() {
    CloseWanted = true;
    QMetaObject::invokeMethod(this, &MainWindow::LeaveIfAsked, Qt::QueuedConnection);
}

void MainWindow::EndLater() {
    EndWanted = true;
    QMetaObject::invokeMethod(this, &MainWindow::LeaveIfAsked, Qt::QueuedConnection);
}

void MainWindow::LeaveIfAsked() {
    // Inside a handler this is a turn that a search has given: the search has to unwind first.
    if (State->HandlersAtWork > 0 || !(CloseWanted || EndWanted)) {
        return;
    }
    CloseWanted = false;
    close();
}

} // namespace zonterbrook::ui
