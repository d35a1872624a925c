// How the main window brings its widgets up to date with the contents of the state.
//
// Each part compares itself with the copy of what is shown and touches the widgets only where they differ. Ticks are
// compared with the entries themselves, since a click ticks an entry before its handler has agreed.
#include "ui/main_window.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLayout>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zonterbrook::ui {

namespace {

using view::Control;

constexpr int EdgePixels = 12;         // between the window's edge and the board's frame
constexpr double TableLinePixels = 18; // height of a line of text for which the tables leave room
constexpr int GapPixels = 6;

QString Text(const std::string& Utf8) {
    return QString::fromStdString(Utf8);
}

int Pixels(double Twips, int TwipsPerPixel) {
    return static_cast<int>(std::lround(Twips / TwipsPerPixel));
}

// Stretches the tables for a font that is larger than they were made for. What stands right of the board moves apart
// to the right, what stands above and below the lists moves apart up and down; the lists give or take the rest.
class Stretch {
public:
    Stretch(const view::LayoutFields& Layout, int LineHeight)
        : BoardRight(Layout.BoardLeft + 10 * Layout.Pitch), ListTop(Layout.PlaceOf(Control::GameList).Top),
          ListBottom(ListTop + Layout.PlaceOf(Control::GameList).Height),
          Factor(std::max(1.0, LineHeight / TableLinePixels)) {}

    double X(double Value) const { return Value <= BoardRight ? Value : BoardRight + (Value - BoardRight) * Factor; }

    double Y(double Value) const {
        if (Value <= ListTop) {
            return Value * Factor;
        }
        if (Value >= ListBottom) {
            return std::max(ListBottom, ListTop * Factor) + (Value - ListBottom) * Factor;
        }
        return ListTop * Factor;
    }

private:
    double BoardRight;
    double ListTop;
    double ListBottom;
    double Factor;
};

} // namespace

void MainWindow::ShowContents() {
    if (Showing) {
        return; // the keyboard has gone from one control to another meanwhile; the board comes last
    }
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
    // The first panel keeps the width of its longest text, or the others would jump when it is cleared.
    Panels.front()->setMinimumWidth(std::max(Panels.front()->minimumWidth(), Panels.front()->sizeHint().width()));
    ShowBoard();
    Shown = Now;
    EverShown = true;
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
    const std::pair<QWidget*, Control> Closable[] = {{GameList, Control::GameList},
                                                     {ChoiceList, Control::ChoiceList},
                                                     {RootList, Control::RootList},
                                                     {MoveBox, Control::MoveBox},
                                                     {CommentBox, Control::CommentBox}};
    for (const auto& [Widget, Which] : Closable) {
        const bool Open = control::IsOpen(*State, Which);
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
        Label->setText(Text(Now.Text));
        Label->setVisible(Now.Visible);
        if (Label->wordWrap()) {
            Label->setToolTip(Label->text()); // the calculation may be longer than its box
        }
        if (!EverShown || Now.Colours != Before.Colours) {
            ColourLabel(Label, Now.Colours);
        }
        Moved = true;
    }
    if (Moved) {
        PlaceLabels();
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
}

// --- Layout ---------------------------------------------------------------------------------------------------------

void MainWindow::ShowLayout() {
    const bool Same = EverShown && State->Layout == Shown.Layout && State->BoardFrame == Shown.BoardFrame;
    if (Same) {
        return;
    }
    PlaceControls();
    CentreOnScreen();
}

void MainWindow::PlaceControls() {
    const view::LayoutFields& Layout = State->Layout;
    const int Twips = State->TwipsPerPixel;
    const int Line = fontMetrics().height();
    const Stretch Apart(Layout, Line);
    const int UpBy = BoardRaisedBy();

    const auto Place = [&](QWidget* Widget, const view::Rectangle& Table) {
        const int Left = Pixels(Apart.X(Table.Left), Twips);
        const int Right = Pixels(Apart.X(Table.Left + Table.Width), Twips);
        const int Top = Pixels(Apart.Y(Table.Top), Twips) - UpBy;
        const int Bottom = Pixels(Apart.Y(Table.Top + Table.Height), Twips) - UpBy;
        Widget->setGeometry(Left, Top, Right - Left, Bottom - Top);
    };
    for (std::size_t I = 0; I < Labels.size(); ++I) {
        Place(Labels.at(I), Layout.Places[I]);
    }
    Place(GameList, Layout.PlaceOf(Control::GameList));
    Place(ChoiceList, Layout.PlaceOf(Control::ChoiceList));
    Place(RootList, Layout.PlaceOf(Control::RootList));
    Place(CommentBox, Layout.PlaceOf(Control::CommentBox));
    Place(MoveBox, Layout.PlaceOf(Control::MoveBox));
    Place(Progress, Layout.PlaceOf(Control::Progress));

    const int BoardSide = 10 * Layout.Pitch;
    Board->setGeometry(0, 0, Pixels(Layout.BoardLeft + BoardSide, Twips) + GapPixels,
                       Pixels(Layout.BoardTop + BoardSide, Twips) - UpBy + Line + 2 * GapPixels - 2);
    Board->PlaceBoard(*State, Twips, UpBy);
    Board->lower();
    PlaceLabels();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

// Labels stand side by side where the tables say. One that needs more room than that, in the font in use, moves those
// behind it to the right: in all rows alike, so that they stay columns. Returns where the last column has to end.
int MainWindow::PlaceColumns(std::span<const LabelColumn> Columns, int RightEnd) {
    const view::LayoutFields& Layout = State->Layout;
    const Stretch Apart(Layout, fontMetrics().height());
    const auto TableLeft = [&](std::size_t Label) {
        return Pixels(Apart.X(Layout.Places[Label].Left), State->TwipsPerPixel);
    };
    int Free = 0; // where the next column may begin
    for (std::size_t Column = 0; Column < Columns.size(); ++Column) {
        int End = 0;
        for (const std::size_t Label : Columns[Column]) {
            End = std::max(End, std::max(Free, TableLeft(Label)) + Labels.at(Label)->sizeHint().width());
        }
        if (Column + 1 == Columns.size()) {
            RightEnd = std::max(RightEnd, End);
            End = RightEnd;
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
    return RightEnd;
}

void MainWindow::PlaceLabels() {
    static constexpr LabelColumn Players[] = {
        {2, 3}, {0, 1}, {4, 5}, {7, 6}}; // colour, name, pieces, variant and strength
    static constexpr LabelColumn ExtraPieces[] = {{9, 9}, {10, 10}, {11, 11}, {12, 12}, {13, 13}};
    const view::LayoutFields& Layout = State->Layout;
    const Stretch Apart(Layout, fontMetrics().height());
    const auto RightOf = [&](const view::Rectangle& Table) {
        return Pixels(Apart.X(Table.Left + Table.Width), State->TwipsPerPixel);
    };
    const int Margin = Pixels(Apart.X(Layout.Width), State->TwipsPerPixel) - RightOf(Layout.PlaceOf(Control::RootList));
    const int Right = PlaceColumns(Players, RightOf(Layout.PlaceOf(Control::RootList)));
    PlaceColumns(ExtraPieces, RightOf(Layout.PlaceOf(Control::ExtraWhiteCount)));
    const int Width = std::max(Pixels(Apart.X(Layout.Width), State->TwipsPerPixel), Right + Margin);
    const int Height = Pixels(Apart.Y(Layout.Height), State->TwipsPerPixel) - BoardRaisedBy();
    if (Inner->size() != QSize(Width, Height)) {
        Inner->setFixedSize(Width, Height);
    }
}

// Above the board the tables leave room for a toolbar; here the toolbar stands outside of them.
int MainWindow::BoardRaisedBy() const {
    return Pixels(State->Layout.BoardTop, State->TwipsPerPixel) - EdgePixels;
}

void MainWindow::CentreOnScreen() {
    adjustSize();
    const QRect Free = screen()->availableGeometry();
    const QSize Size = frameGeometry().size();
    move(Free.left() + std::max(0, (Free.width() - Size.width()) / 2),
         Free.top() + std::max(0, (Free.height() - Size.height()) / 2));
}

// --- The desktop's look ---------------------------------------------------------------------------------------------

// Lists and boxes are closed while the computer thinks, at every move: their texts fade, but nothing flashes.
void MainWindow::SteadyBackgrounds() {
    for (QWidget* Each : {static_cast<QWidget*>(GameList), static_cast<QWidget*>(ChoiceList),
                          static_cast<QWidget*>(RootList), static_cast<QWidget*>(MoveBox)}) {
        QPalette Colours = QGuiApplication::palette();
        Colours.setColor(QPalette::Disabled, QPalette::Base, Colours.color(QPalette::Active, QPalette::Base));
        Each->setPalette(Colours);
    }
}

void MainWindow::changeEvent(QEvent* Event) {
    QMainWindow::changeEvent(Event);
    if (!EverShown) {
        return;
    }
    if (Event->type() == QEvent::FontChange) {
        for (LineList* List : {GameList, ChoiceList, RootList}) {
            List->UseFixedWidthFont();
        }
        PlaceControls();
    } else if (Event->type() == QEvent::PaletteChange) {
        SteadyBackgrounds();
    }
}

} // namespace zonterbrook::ui
