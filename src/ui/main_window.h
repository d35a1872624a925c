// The main window `frmMain`: owns the game's state, turns events into calls of control, and shows what the state says.
//
// It keeps a copy of what it shows. After every handler it compares the state's contents with the copy and brings the
// widgets up to date; nothing is polled. Menus and toolbar are made from the table of commands.
#pragma once

#include "control/state.h"
#include "ui/board_widget.h"
#include "ui/line_list.h"
#include "ui/qt_platform.h"
#include "ui/window_layout.h"

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QToolBar>

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace zonterbrook::ui {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Builds the window and starts the game's state in it. The window is not shown yet.
    explicit MainWindow(ProgramFolders Folders, QWidget* Parent = nullptr);
    ~MainWindow() override;

    control::GameState& GameOf() { return *State; }
    BoardWidget& BoardOf() { return *Board; }

    /// True once the program is on its way out, as after a start that failed.
    bool HasEnded() const { return EndWanted; }

    /// The entry of a command, in menu and toolbar alike; null for menus and `None`.
    QAction* ActionOf(control::CommandId Id) const { return Actions.at(static_cast<std::size_t>(Id)); }

    /// Brings the widgets up to date with the state's contents.
    void ShowContents();

    /// Opens a popup menu at the mouse and returns what was chosen.
    control::CommandId RunPopup(control::CommandId Menu);

    /// Opens a file that has been named from outside: as the program was started, or dropped on the window. Nothing
    /// while something is at work.
    void OpenFile(const std::filesystem::path& File);

    /// Closes the window as a person would, or for good, as soon as no handler is at work.
    void CloseLater();
    void EndLater();

protected:
    void closeEvent(QCloseEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void changeEvent(QEvent* Event) override;
    void showEvent(QShowEvent* Event) override;
    void dragEnterEvent(QDragEnterEvent* Event) override;
    void dropEvent(QDropEvent* Event) override;

private:
    void BuildMenus();
    void BuildToolbar();
    void BuildControls();
    void BuildStatusBar();
    void NameControls();
    void ConnectControls();
    QMenu* BuildMenu(const control::CommandRow& Row);
    QAction* BuildAction(const control::CommandRow& Row);

    /// Runs a handler, then shows what it changed. Nothing once the program is ending.
    void Dispatch(const std::function<void(control::GameState&)>& Handler);
    void LeaveIfAsked();
    void TypeOnBoard(const QString& Text);
    void DragFromCounter(const QMouseEvent& Mouse, std::int32_t Side);

    void ShowFullScreen();
    void ShowLayout();
    void ShowBoard();
    void ShowLists();
    void ShowTexts();
    void ShowOpenControls();
    void ShowLabels();
    void ShowProgress();
    void ShowRecentFiles();
    void KeepFocus(QWidget* Before);
    void ShowCommands();
    void CentreOnScreen();
    void PlaceControls();
    void PlaceLabels();
    using LabelColumn = std::array<std::size_t, 2>; // labels that stand below each other, by index in `Labels`
    // Colour, name, pieces, variant and strength.
    static constexpr LabelColumn HeaderColumns[] = {{2, 3}, {0, 1}, {4, 5}, {7, 6}};
    void PlaceColumns(std::span<const LabelColumn> Columns, int RightEnd);
    std::array<std::pair<QWidget*, view::Control>, 6> Placed() const;
    WindowLayout Measured() const;
    int PixelGrid() const;
    void FrameLists();
    QRect OnWholePixels(const QRect& Place) const;
    bool ComeBack();
    void ResizeToScale(double Scale);
    std::array<int, 4> HeaderWidths() const;
    double TextScale() const;
    void SizeTexts();
    void UseFont(const QFont& Wanted);
    void FollowScreen();
    void SteadyLooks();
    static void ColourLabel(QLabel* Label, view::LabelColours Colours);

    std::unique_ptr<QtPlatform> Outside;
    std::unique_ptr<control::GameState> State;
    view::WindowContents Shown; // what the widgets show now
    bool EverShown = false;     // whether `Shown` is true of the widgets at all
    bool Showing = false;       // while the widgets are brought up to date
    bool FollowsScreen = false; // once it has been shown
    bool CloseWanted = false;
    bool EndWanted = false;
    QWidget* Interrupted = nullptr; // the control that had the keyboard when it was disabled

    std::array<QAction*, control::CommandCount> Actions{};
    std::array<QMenu*, control::CommandCount> Menus{};
    // Whether a command was open when nothing was at work: its icon looks so meanwhile.
    std::vector<std::pair<QAction*, std::shared_ptr<bool>>> OpenAtRest;
    WindowLayout Places; // where everything stands now
    QToolBar* Toolbar = nullptr;
    QWidget* Inner = nullptr; // all controls stand on it
    BoardWidget* Board = nullptr;
    LineList* GameList = nullptr;
    LineList* ChoiceList = nullptr;
    LineList* RootList = nullptr;
    QPlainTextEdit* CommentBox = nullptr;
    QLineEdit* MoveBox = nullptr;
    std::array<QLabel*, std::size(view::Labels)> Labels{};
    QProgressBar* Progress = nullptr;
    std::array<QLabel*, view::StatusPanelCount> Panels{};
    QLabel* CounterPanel = nullptr; // how far a draw rule has counted
};

} // namespace zonterbrook::ui
