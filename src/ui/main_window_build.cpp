// What the main window is made of: menus and toolbar from the table of commands, the controls and their names.
#include "ui/icons.h"
#include "ui/main_window.h"

#include <QActionGroup>
#include <QFrame>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolButton>

namespace zonterbrook::ui {

namespace {

using control::CommandId;
using control::CommandKind;

struct CommandPicture {
    CommandId Id;
    const char* Name;
};

constexpr CommandPicture Pictures[] = {
    {CommandId::NewGame, "new_game"},
    {CommandId::NewVariant, "new_variant"},
    {CommandId::Open, "open"},
    {CommandId::Save, "save"},
    {CommandId::Compute, "compute"},
    {CommandId::Cancel, "cancel"},
    {CommandId::First, "first"},
    {CommandId::Back, "back"},
    {CommandId::Forward, "forward"},
    {CommandId::Last, "last"},
    {CommandId::OfferDraw, "draw"},
    {CommandId::Resign, "resign"},
    {CommandId::Hint, "hint"},
    {CommandId::ComputerPlayer, "computer_player"},
    {CommandId::PlayerPlayer, "player_player"},
    {CommandId::ComputerComputer, "computer_computer"},
    {CommandId::Options, "options"},
    {CommandId::Analyze, "analyze"},
    {CommandId::TurnBoard, "turn_board"},
};

constexpr int ToolbarIconPixels = 24;
constexpr int PanelMargin = 8;

QString Text(std::string_view Utf8) {
    return QString::fromUtf8(Utf8.data(), static_cast<qsizetype>(Utf8.size()));
}

std::size_t IndexOf(CommandId Id) {
    return static_cast<std::size_t>(Id);
}

} // namespace

// --- Commands -------------------------------------------------------------------------------------------------------

QMenu* MainWindow::BuildMenu(const control::CommandRow& Row) {
    auto* Menu = new QMenu(Text(Row.Caption), this);
    Menu->setObjectName(Text(Row.Name));
    Menu->menuAction()->setObjectName(Text(Row.Name));
    Menu->setToolTipsVisible(false);
    return Menu;
}

QAction* MainWindow::BuildAction(const control::CommandRow& Row) {
    auto* Entry = new QAction(Text(Row.Caption), this);
    Entry->setObjectName(Text(Row.Name));
    Entry->setCheckable(Row.Kind == CommandKind::Check || Row.Kind == CommandKind::Radio);
    if (!Row.Shortcut.empty()) {
        Entry->setShortcuts(QKeySequence::listFromString(Text(Row.Shortcut), QKeySequence::PortableText));
    }
    if (Row.Id == CommandId::Exit) {
        Entry->setMenuRole(QAction::QuitRole);
    } else if (Row.Id == CommandId::About) {
        Entry->setMenuRole(QAction::AboutRole);
    } else {
        Entry->setMenuRole(QAction::NoRole);
    }
    return Entry;
}

void MainWindow::BuildMenus() {
    QActionGroup* Radio = nullptr; // of the neighbours that exclude each other
    for (const control::CommandRow& Row : control::CommandRows()) {
        QMenu* Within = Row.Menu == CommandId::None ? nullptr : Menus.at(IndexOf(Row.Menu));
        if (Row.Kind != CommandKind::Radio) {
            Radio = nullptr;
        }
        switch (Row.Kind) {
        case CommandKind::Menu: {
            QMenu* Menu = BuildMenu(Row);
            Menus.at(IndexOf(Row.Id)) = Menu;
            if (Within != nullptr) {
                Within->addMenu(Menu);
            } else if (Row.Id != CommandId::SetupMenu) {
                // The menu of the position editor is opened on the board alone.
                menuBar()->addMenu(Menu);
            }
            break;
        }
        case CommandKind::Separator:
            Within->addSeparator()->setObjectName(Text(Row.Name));
            break;
        case CommandKind::Radio:
        case CommandKind::Check:
        case CommandKind::Entry: {
            QAction* Entry = BuildAction(Row);
            Actions.at(IndexOf(Row.Id)) = Entry;
            Within->addAction(Entry);
            if (Row.Kind == CommandKind::Radio) {
                if (Radio == nullptr) {
                    Radio = new QActionGroup(this);
                }
                Radio->addAction(Entry);
            }
            break;
        }
        }
    }
    for (const CommandPicture& Each : Pictures) {
        auto LooksOpen = std::make_shared<bool>(false);
        OpenAtRest.emplace_back(ActionOf(Each.Id), LooksOpen);
        ActionOf(Each.Id)->setIcon(LineIcon(QLatin1String(Each.Name), LooksOpen));
        ActionOf(Each.Id)->setIconVisibleInMenu(false);
    }
}

void MainWindow::BuildToolbar() {
    Toolbar = addToolBar(tr("Toolbar"));
    Toolbar->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar->setMovable(false);
    Toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    Toolbar->setIconSize(QSize(ToolbarIconPixels, ToolbarIconPixels));
    setContextMenuPolicy(Qt::PreventContextMenu);
    // The mode that is on is seen on dark desktops, too.
    Toolbar->setStyleSheet(
        QStringLiteral("QToolButton:checked { border: 1px solid palette(highlight); border-radius: 4px;"
                       " background: palette(midlight); }"));
    int Index = 1;
    for (const control::ToolbarButton& Button : control::ToolbarButtons()) {
        while (Index++ < Button.Index) {
            Toolbar->addSeparator();
        }
        QAction* Entry = ActionOf(Button.Command);
        const QString Keys = Entry->shortcut().toString(QKeySequence::NativeText);
        Entry->setToolTip(Keys.isEmpty() ? Text(Button.Tip) : tr("%1 (%2)").arg(Text(Button.Tip), Keys));
        Toolbar->addAction(Entry);
        QWidget* Shape = Toolbar->widgetForAction(Entry);
        Shape->setObjectName(QStringLiteral("Toolbar1_%1").arg(Text(Button.Key)));
        Shape->setAccessibleName(Text(Button.Tip));
    }
}

// --- Controls -------------------------------------------------------------------------------------------------------

void MainWindow::BuildControls() {
    Inner = new QWidget(this);
    Inner->setObjectName(QStringLiteral("Inner"));
    setCentralWidget(Inner);
    Inner->installEventFilter(this);
    Board = new BoardWidget(Inner);
    MoveBox = new QLineEdit(Inner);
    MoveBox->installEventFilter(this);
    MoveBox->setPlaceholderText(tr("Type a move"));
    ChoiceList = new LineList(tr("Moves"), Inner);
    GameList = new LineList(tr("Game"), Inner);
    RootList = new LineList(tr("Calculation"), Inner);
    CommentBox = new QPlainTextEdit(Inner);
    CommentBox->setTabChangesFocus(true);
    CommentBox->setPlaceholderText(tr("Comment"));
    for (QLabel*& Label : Labels) {
        Label = new QLabel(Inner);
        Label->setTextFormat(Qt::PlainText);
    }
    // Variant and strength end where the lists end; the calculation may take several lines.
    constexpr std::size_t Strength = 6;
    constexpr std::size_t Variant = 7;
    constexpr std::size_t Calculation = 8;
    Labels.at(Strength)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Labels.at(Variant)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QLabel* Lines = Labels.at(Calculation);
    Lines->setWordWrap(true);
    Lines->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Lines->setFrameShape(QFrame::StyledPanel);
    Lines->setMargin(3);
    Lines->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Progress = new QProgressBar(Inner);
    Progress->setTextVisible(false);
    // The keyboard goes over the window as the eye does.
    QWidget* const Row[] = {Board, GameList, ChoiceList, RootList, MoveBox, CommentBox};
    for (std::size_t I = 1; I < std::size(Row); ++I) {
        setTabOrder(Row[I - 1], Row[I]);
    }
}

std::array<std::pair<QWidget*, view::Control>, 6> MainWindow::Placed() const {
    using view::Control;
    return {{{GameList, Control::GameList},
             {ChoiceList, Control::ChoiceList},
             {RootList, Control::RootList},
             {CommentBox, Control::CommentBox},
             {MoveBox, Control::MoveBox},
             {Progress, Control::Progress}}};
}

void MainWindow::BuildStatusBar() {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->setContentsMargins(PanelMargin, 0, PanelMargin, 0);
    for (QLabel*& Panel : Panels) {
        Panel = new QLabel(this);
        Panel->setTextFormat(Qt::PlainText);
        Panel->setIndent(0);
        statusBar()->addWidget(Panel, Panel == Panels.front() ? 0 : 1);
    }
    CounterPanel = new QLabel(this);
    CounterPanel->setTextFormat(Qt::PlainText);
    CounterPanel->setObjectName(QStringLiteral("StatusBar1_Counter"));
    CounterPanel->setAccessibleDescription(tr("Moves towards a draw"));
    statusBar()->addPermanentWidget(CounterPanel);
    // Who moves and what the computer thinks may take what room there is, and is cut there: the window keeps its width.
    for (std::size_t I = 1; I < Panels.size(); ++I) {
        Panels.at(I)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        Panels.at(I)->setContentsMargins(2 * PanelMargin, 0, 0, 0);
    }
}

void MainWindow::NameControls() {
    struct Names {
        QWidget* Widget;
        const char* Control;
        QString Accessible;
    };
    const Names Table[] = {
        {Board, "c", tr("Board")},
        {GameList, "List1", tr("Moves of the game")},
        {ChoiceList, "List2", tr("Moves that can be played")},
        {RootList, "List3", tr("Moves of the last calculation")},
        {CommentBox, "Text1", tr("Comment on the move")},
        {MoveBox, "Text2", tr("Type a move, then press Enter")},
        {Progress, "Progress", tr("Progress of the calculation")},
    };
    for (const Names& Each : Table) {
        Each.Widget->setObjectName(QLatin1String(Each.Control));
        Each.Widget->setAccessibleName(Each.Accessible);
    }
    GameList->setToolTip(tr("Moves of the game: click one to go there"));
    ChoiceList->setToolTip(tr("Moves that can be played: double-click one to play it"));
    RootList->setToolTip(tr("Moves of the last calculation: double-click one to play it"));
    MoveBox->setToolTip(tr("Type a move, such as its two squares, then press Enter"));

    // A label's own text is its name for a screen reader; what it is about is the description.
    const QString About[] = {
        tr("Upper player"),
        tr("Lower player"),
        tr("Colour of the upper player"),
        tr("Colour of the lower player"),
        tr("Pieces of the upper player, a king counting two"),
        tr("Pieces of the lower player, a king counting two"),
        tr("Strength of the computer"),
        tr("Variant"),
        tr("Calculation"),
        tr("Pieces off the board"),
        tr("Black"),
        tr("Black's pieces off the board"),
        tr("White"),
        tr("White's pieces off the board"),
    };
    static_assert(std::size(About) == std::tuple_size_v<decltype(Labels)>);
    for (std::size_t I = 0; I < Labels.size(); ++I) {
        Labels.at(I)->setObjectName(QStringLiteral("Label%1").arg(I + 1));
        Labels.at(I)->setAccessibleDescription(About[I]);
    }
    statusBar()->setAccessibleName(tr("Status"));
    const QString AboutPanels[] = {tr("Program"), tr("Status of the game"), tr("Opening")};
    static_assert(std::size(AboutPanels) == std::tuple_size_v<decltype(Panels)>);
    for (std::size_t I = 0; I < Panels.size(); ++I) {
        Panels.at(I)->setObjectName(QStringLiteral("StatusBar1_Panel%1").arg(I + 1));
        Panels.at(I)->setAccessibleDescription(AboutPanels[I]);
    }
}

} // namespace zonterbrook::ui
