// How the main window brings its widgets up to date with the contents of the state.
//
// Each part compares itself with the copy of what is shown and touches the widgets only where they differ. Ticks are
// compared with the entries themselves, since a click ticks an entry before its handler has agreed.
#include "control/ending.h"
#include "control/last_move.h"
#include "control/turn_state.h"
#include "ui/main_window.h"
#include "ui/palette.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSignalBlocker>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zonterbrook::ui {

namespace {

using view::Control;

QString Text(const std::string& Utf8) {
    return QString::fromStdString(Utf8);
}

} // namespace

void MainWindow::ShowContents() {
    if (Showing) {
        return; // the keyboard has gone from one control to another meanwhile; the board comes last
    }
    control::TraceLastMove(*State);
    State->DrawCounter = control::DrawCounter(*State);
    const view::WindowContents& Now = *State;
    const QScopedValueRollback Busy(Showing, true);
    // What can be used follows from the whole state, not from the contents alone; and a click may have ticked an entry
    // that its handler has not.
    ShowCommands();
    QWidget* Focused = focusWidget();
    ShowOpenControls();
    KeepFocus(Focused);
    setWindowModified(State->GameChanged);
    if (EverShown && Now == Shown) {
        return;
    }
    ShowFullScreen();
    ShowLayout();
    ShowLists();
    ShowTexts();
    ShowLabels();
    ShowProgress();
    ShowRecentFiles();
    if (!EverShown || Now.Caption != Shown.Caption) {
        // The desktop puts its mark for what is not saved in the place of the brackets.
        setWindowTitle(Text(Now.Caption).trimmed() + QLatin1String("[*]"));
    }
    for (std::size_t I = 0; I < Panels.size(); ++I) {
        Panels.at(I)->setText(Text(Now.StatusPanels[I]));
    }
    CounterPanel->setText(Text(Now.DrawCounter));
    // The first panel keeps the width of its longest text, or the others would jump when it is cleared.
    Panels.front()->setMinimumWidth(std::max(Panels.front()->minimumWidth(), Panels.front()->sizeHint().width()));
    ShowBoard();
    Shown = Now;
    EverShown = true;
}

void MainWindow::ShowFullScreen() {
    if (EverShown && State->FullScreen != isFullScreen()) {
        setWindowState(windowState() ^ Qt::WindowFullScreen);
    }
}

void MainWindow::ShowRecentFiles() {
    if (EverShown && State->RecentFiles == Shown.RecentFiles) {
        return;
    }
    QMenu* Recent = Menus.at(static_cast<std::size_t>(control::CommandId::RecentMenu));
    Recent->clear();
    for (std::size_t Place = 0; Place < State->RecentFiles.size(); ++Place) {
        const QFileInfo File(Text(State->RecentFiles[Place]));
        QString Caption = File.fileName();
        Caption.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* Entry = Recent->addAction(QStringLiteral("&%1 %2").arg(Place + 1).arg(Caption));
        Entry->setObjectName(QStringLiteral("Recent%1").arg(Place + 1));
        Entry->setToolTip(File.filePath());
        Entry->setStatusTip(File.filePath());
        connect(Entry, &QAction::triggered, this,
                [this, Place] { Dispatch([Place](control::GameState& Game) { control::OpenListed(Game, Place); }); });
    }
}

void MainWindow::ShowBoard() {
    Board->Display(*State);
}

void MainWindow::ShowLists() {
    const auto ShowList = [this](LineList* List, view::ListFields view::WindowContents::*Fields) {
        const view::ListFields& Now = State.get()->*Fields;
        if (!EverShown || Now != Shown.*Fields) {
            List->Display(Now);
        }
    };
    ShowList(GameList, &view::WindowContents::GameList);
    ShowList(ChoiceList, &view::WindowContents::ChoiceList);
    ShowList(RootList, &view::WindowContents::RootList);
}

void MainWindow::ShowTexts() {
    if (CommentBox->toPlainText() != Text(State->CommentText)) {
        const QSignalBlocker Quiet(CommentBox);
        CommentBox->setPlainText(Text(State->CommentText));
    }
    if (!EverShown || State->TypedText != Shown.TypedText) {
        MoveBox->setText(Text(State->TypedText));
    }
}

void MainWindow::ShowOpenControls() {
    for (const auto& [Widget, Which] : Placed()) {
        const bool Open = Widget == Progress || control::IsOpen(*State, Which);
        if (Widget->isEnabled() != Open) {
            Widget->setEnabled(Open);
        }
    }
}

// A control that is closed while the computer thinks gets the keyboard back when it opens again, unless the person has
// gone elsewhere. Meanwhile the keys are the board's, and never the next control's that happens to be open.
void MainWindow::KeepFocus(QWidget* Before) {
    if (Before != nullptr && Before != Board && !Before->isEnabled()) {
        Interrupted = Before;
        Board->setFocus();
    } else if (Interrupted != nullptr && Interrupted->isEnabled()) {
        if (focusWidget() == Board) {
            Interrupted->setFocus();
        }
        Interrupted = nullptr;
    }
}

void MainWindow::ShowLabels() {
    bool Moved = false;
    for (std::size_t I = 0; I < Labels.size(); ++I) {
        const view::LabelFields& Now = State.get()->*view::Labels[I];
        const view::LabelFields& Before = Shown.*view::Labels[I];
        if (EverShown && Now == Before) {
            continue;
        }
        QLabel* Label = Labels.at(I);
        // The calculation breaks between two moves, and not behind the hyphen of one.
        Label->setText(Label->wordWrap() ? Text(Now.Text).replace(QLatin1Char('-'), QStringLiteral("\u2060-\u2060"))
                                         : Text(Now.Text));
        Label->setVisible(Now.Visible);
        if (Label->wordWrap()) {
            Label->setToolTip(Text(Now.Text)); // the calculation may be longer than its box
        }
        if (!EverShown || Now.Colours != Before.Colours) {
            ColourLabel(Label, Now.Colours);
        }
        Moved = true;
    }
    if (Moved) {
        // A longer name may need a smaller board.
        PlaceControls();
    }
}

void MainWindow::ColourLabel(QLabel* Label, view::LabelColours Colours) {
    switch (Colours) {
    case view::LabelColours::Usual:
        Label->setStyleSheet({});
        break;
    case view::LabelColours::WhiteOnRed:
        Label->setStyleSheet(
            QStringLiteral("background: #ff0000; color: #ffffff; border-radius: 4px; padding: 0 4px;"));
        break;
    case view::LabelColours::RedOnWhite:
        Label->setStyleSheet(
            QStringLiteral("background: #ffffff; color: #ff0000; border-radius: 4px; padding: 0 4px;"));
        break;
    }
}

void MainWindow::ShowProgress() {
    if (EverShown && State->Progress == Shown.Progress) {
        return;
    }
    constexpr int Steps = 1000;
    const double Part = State->Progress.Maximum > 0 ? State->Progress.Value / State->Progress.Maximum : 0;
    Progress->setRange(0, Steps);
    Progress->setValue(static_cast<int>(std::lround(std::clamp(Part, 0.0, 1.0) * Steps)));
}

void MainWindow::ShowCommands() {
    for (const control::CommandRow& Row : control::CommandRows()) {
        if (Row.Id == control::CommandId::None) {
            continue;
        }
        QMenu* Menu = Menus.at(static_cast<std::size_t>(Row.Id));
        QAction* Entry = Menu != nullptr ? Menu->menuAction() : ActionOf(Row.Id);
        // The entries of a menu that is closed are closed with it: their buttons must not look as if they did
        // something.
        const bool Enabled = control::IsEnabled(*State, Row.Id);
        if (Entry->isEnabled() != Enabled) {
            Entry->setEnabled(Enabled);
        }
        const bool Ticked = control::IsTicked(*State, Row.Id);
        if (Entry->isCheckable() && Entry->isChecked() != Ticked) {
            Entry->setChecked(Ticked);
        }
    }
    if (!control::IsBusy(*State)) {
        for (const auto& [Entry, LooksOpen] : OpenAtRest) {
            *LooksOpen = Entry->isEnabled();
        }
    }
}

// --- Layout ---------------------------------------------------------------------------------------------------------

void MainWindow::ShowLayout() {
    const bool Same = EverShown && State->Layout == Shown.Layout && State->BoardFrame == Shown.BoardFrame;
    if (Same) {
        return;
    }
    const bool SameSize =
        EverShown && State->Layout.Width == Shown.Layout.Width && State->Layout.Height == Shown.Layout.Height;
    if (SameSize || isMaximized() || isFullScreen()) {
        PlaceControls();
    } else if (EverShown || !ComeBack()) {
        ResizeToScale(EverShown ? Places.Scale() : 1);
        CentreOnScreen();
    }
}

// As large, and where, the window was when it was last closed; false if that is not known.
bool MainWindow::ComeBack() {
    const QByteArray Kept = QByteArray::fromBase64(QByteArray::fromStdString(State->OwnSettings.WindowPlace));
    if (Kept.isEmpty() || !restoreGeometry(Kept)) {
        return false;
    }
    PlaceControls();
    return true;
}

// The size at which the layout has the scale, or the largest that the screen has room for.
void MainWindow::ResizeToScale(double Scale) {
    const WindowLayout Wanted = Measured();
    Inner->setMinimumSize(0, 0);
    const QSize Around = layout()->totalMinimumSize();
    // What the desktop puts around a window is not known before it stands there.
    constexpr QSize UsualFrame(8, 42);
    const QSize Frame = frameGeometry().size() == size() ? UsualFrame : frameGeometry().size() - size();
    const QSize Free = screen()->availableGeometry().size() - Frame - QSize(0, Around.height());
    const QSize Room = Wanted.SizeAt(std::min(Scale, Wanted.ScaleFor(Free)));
    Inner->setMinimumSize(Room);
    resize(layout()->totalMinimumSize());
    layout()->activate();
    PlaceControls();
}

// The layout before it knows its room.
WindowLayout MainWindow::Measured() const {
    return {State->Layout, {State->TwipsPerPixel, fontMetrics().height(), HeaderWidths()}};
}

// What the columns above the lists take, at the desktop's own font size.
std::array<int, 4> MainWindow::HeaderWidths() const {
    const int Longest = 40 * fontMetrics().averageCharWidth(); // what is longer is cut
    std::array<int, 4> Widths{};
    for (std::size_t Column = 0; Column < Widths.size(); ++Column) {
        for (const std::size_t Label : HeaderColumns[Column]) {
            const int Width = qCeil(Labels.at(Label)->sizeHint().width() / TextScale());
            Widths.at(Column) = std::max(Widths.at(Column), std::min(Longest, Width));
        }
    }
    return Widths;
}

double MainWindow::TextScale() const {
    return static_cast<double>(QFontInfo(Inner->font()).pixelSize()) / QFontInfo(font()).pixelSize();
}

// The texts grow with the board, in whole pixels.
void MainWindow::SizeTexts() {
    const int Wanted = qRound(QFontInfo(font()).pixelSize() * WindowLayout::FontScale(Places.Scale()));
    if (QFontInfo(Inner->font()).pixelSize() == Wanted) {
        return;
    }
    QFont Larger = font();
    Larger.setPixelSize(Wanted);
    UseFont(Larger);
}

void MainWindow::UseFont(const QFont& Wanted) {
    Inner->setFont(Wanted);
    for (QLabel* Label : Labels) {
        Label->setFont(Wanted); // a label with colours of its own does not take it from around it
    }
    for (LineList* List : {GameList, ChoiceList, RootList}) {
        List->UseFixedWidthFont();
    }
}

void MainWindow::PlaceControls() {
    Places = Measured();
    Inner->setMinimumSize(Places.SizeAt(SmallestScale));
    Places.Fit(Inner->size());
    SizeTexts();
    FrameLists();
    for (std::size_t I = 0; I < Labels.size(); ++I) {
        Labels.at(I)->setGeometry(OnWholePixels(Places.Place(static_cast<Control>(I))));
    }
    for (const auto& [Widget, Which] : Placed()) {
        Widget->setGeometry(OnWholePixels(Places.Place(Which)));
    }
    Board->setGeometry(Places.BoardPlace());
    Board->PlaceBoard(*State, Places.Twips(), Places.RaisedBy());
    Board->lower();
    PlaceLabels();
}

// So many pixels of the toolkit make whole ones of the screen.
int MainWindow::PixelGrid() const {
    const double Density = devicePixelRatioF();
    int Grid = 1;
    while (Grid < 4 && std::abs(Grid * Density - std::round(Grid * Density)) > 0.01) {
        ++Grid;
    }
    return Grid;
}

// What scrolls lies over one edge of a frame of one pixel, at a fractional scale: there the frames have two.
void MainWindow::FrameLists() {
    const QString Wanted = PixelGrid() == 1
                               ? QString()
                               : QStringLiteral("QAbstractScrollArea { border: 2px solid palette(mid); }"
                                                "QAbstractScrollArea:focus { border-color: palette(highlight); }");
    for (QWidget* Each : {static_cast<QWidget*>(GameList), static_cast<QWidget*>(ChoiceList),
                          static_cast<QWidget*>(RootList), static_cast<QWidget*>(CommentBox)}) {
        if (Each->styleSheet() != Wanted) {
            Each->setStyleSheet(Wanted);
        }
    }
}

// At a fractional scale of the screen a frame that begins between two of its pixels loses a line: its edges stand where
// pixels of the toolkit and of the screen meet.
QRect MainWindow::OnWholePixels(const QRect& Place) const {
    const int Grid = PixelGrid();
    const QPoint Origin = Inner->mapTo(this, QPoint(0, 0));
    const auto Snapped = [Grid](int Value, int From) { return (Value + From + Grid / 2) / Grid * Grid - From; };
    const int Left = Snapped(Place.left(), Origin.x());
    const int Top = Snapped(Place.top(), Origin.y());
    return {Left, Top, Snapped(Place.right() + 1, Origin.x()) - Left, Snapped(Place.bottom() + 1, Origin.y()) - Top};
}

// Labels stand side by side where the tables say. One that needs more room than that, in the font in use, moves those
// behind it to the right: in all rows alike, so that they stay columns.
void MainWindow::PlaceColumns(std::span<const LabelColumn> Columns, int RightEnd) {
    const auto TableLeft = [&](std::size_t Label) { return Places.X(State->Layout.Places[Label].Left); };
    int Free = 0; // where the next column may begin
    for (std::size_t Column = 0; Column < Columns.size(); ++Column) {
        int End = 0;
        for (const std::size_t Label : Columns[Column]) {
            End = std::max(End, std::max(Free, TableLeft(Label)) + Labels.at(Label)->sizeHint().width());
        }
        if (Column + 1 == Columns.size()) {
            End = std::max(End, RightEnd);
        } else {
            int Next = RightEnd;
            for (const std::size_t Label : Columns[Column + 1]) {
                Next = std::min(Next, TableLeft(Label));
            }
            End = std::max(End, Next - GapPixels);
        }
        for (const std::size_t Label : Columns[Column]) {
            const int Left = std::max(Free, TableLeft(Label));
            Labels.at(Label)->setGeometry(Left, Labels.at(Label)->y(), End - Left, Labels.at(Label)->height());
        }
        Free = End + GapPixels;
    }
}

void MainWindow::PlaceLabels() {
    static constexpr LabelColumn ExtraPieces[] = {{9, 9}, {10, 10}, {11, 11}, {12, 12}, {13, 13}};
    const auto RightOf = [&](Control Which) {
        const view::Rectangle& Table = State->Layout.PlaceOf(Which);
        return Places.X(Table.Left + Table.Width);
    };
    PlaceColumns(HeaderColumns, RightOf(Control::RootList));
    PlaceColumns(ExtraPieces, RightOf(Control::ExtraWhiteCount));
}

void MainWindow::CentreOnScreen() {
    const QRect Free = screen()->availableGeometry();
    const QSize Size = frameGeometry().size();
    move(Free.left() + std::max(0, (Free.width() - Size.width()) / 2),
         Free.top() + std::max(0, (Free.height() - Size.height()) / 2));
}

// --- The desktop's look ---------------------------------------------------------------------------------------------

// Lists and boxes are closed while the computer thinks, at every move: they take no clicks, and look as before. So do
// the menus of the bar.
void MainWindow::SteadyLooks() {
    QPalette Colours = DesktopPalette();
    for (const QPalette::ColorRole Role :
         {QPalette::Base, QPalette::Text, QPalette::Highlight, QPalette::HighlightedText, QPalette::ButtonText,
          QPalette::WindowText, QPalette::Button}) {
        Colours.setColor(QPalette::Disabled, Role, Colours.color(QPalette::Active, Role));
    }
    for (const auto& [Widget, Which] : Placed()) {
        Widget->setPalette(Colours);
    }
    menuBar()->setPalette(Colours);
}

void MainWindow::changeEvent(QEvent* Event) {
    QMainWindow::changeEvent(Event);
    if (!EverShown) {
        return;
    }
    if (Event->type() == QEvent::WindowStateChange) {
        State->FullScreen = isFullScreen(); // the desktop has keys for it, too
        ShowContents();
    } else if (Event->type() == QEvent::FontChange) {
        UseFont(font());
        PlaceControls();
    } else if (Event->type() == QEvent::PaletteChange) {
        SteadyLooks();
    }
}

} // namespace zonterbrook::ui
