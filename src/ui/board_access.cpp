// The board for screen readers: the table, its hundred cells, and the events that tell of them.
//
// The toolkit owns every interface that has been registered with it; the table takes its cells off again when the board
// goes.
#include "ui/board_access.h"

#include "ui/board_widget.h"

#include <QAccessibleWidget>
#include <QWindow>

#include <array>

namespace zonterbrook::ui {

namespace {

constexpr int Side = 10;

class CellAccess : public QAccessibleInterface,
                   public QAccessibleTableCellInterface,
                   public QAccessibleActionInterface {
public:
    CellAccess(BoardWidget& Whole, int Index) : Board(Whole), Cell(Index) {}

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return Board.window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&Board); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text Which) const override {
        return Which == QAccessible::Name ? Board.CellText(Cell) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const QRect Here = Board.CellRect(Cell);
        return {Board.mapToGlobal(Here.topLeft()), Here.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State Now;
        Now.focusable = true;
        Now.focused = Board.hasFocus() && Board.CursorCell() == Cell;
        Now.disabled = !Board.isEnabled();
        Now.invisible = !Board.isVisible();
        Now.readOnly = true;
        return Now;
    }

    // As a cell of the table.
    bool isSelected() const override { return false; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return Cell % Side; }
    int rowIndex() const override { return Cell / Side; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    // What can be done with it.
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& Name) override {
        if (Name == pressAction()) {
            emit Board.CellChosen(Cell);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    void* interface_cast(QAccessible::InterfaceType Type) override {
        switch (Type) {
        case QAccessible::TableCellInterface:
            return static_cast<QAccessibleTableCellInterface*>(this);
        case QAccessible::ActionInterface:
            return static_cast<QAccessibleActionInterface*>(this);
        default:
            return nullptr;
        }
    }

private:
    BoardWidget& Board;
    int Cell;
};

class BoardAccess : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit BoardAccess(BoardWidget& Whole) : QAccessibleWidget(&Whole, QAccessible::Table), Board(Whole) {
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            Ids.at(static_cast<std::size_t>(Cell)) =
                QAccessible::registerAccessibleInterface(new CellAccess(Board, Cell));
        }
    }
    ~BoardAccess() override {
        for (const QAccessible::Id Id : Ids) {
            QAccessible::deleteAccessibleInterface(Id);
        }
    }
    BoardAccess(const BoardAccess&) = delete;
    BoardAccess& operator=(const BoardAccess&) = delete;

    int childCount() const override { return view::BoardPictures; }
    QAccessibleInterface* child(int Index) const override {
        return Index >= 0 && Index < view::BoardPictures
                   ? QAccessible::accessibleInterface(Ids.at(static_cast<std::size_t>(Index)))
                   : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* Wanted) const override {
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            if (child(Cell) == Wanted) {
                return Cell;
            }
        }
        return -1;
    }
    QAccessibleInterface* childAt(int X, int Y) const override {
        const QPoint Inside = Board.mapFromGlobal(QPoint(X, Y));
        for (int Cell = 0; Cell < view::BoardPictures; ++Cell) {
            if (Board.CellRect(Cell).contains(Inside)) {
                return child(Cell);
            }
        }
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override { return Board.hasFocus() ? child(Board.CursorCell()) : nullptr; }

    // As a table.
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int Row, int Column) const override {
        return Row >= 0 && Row < Side && Column >= 0 && Column < Side ? child(Row * Side + Column) : nullptr;
    }
    int selectedCellCount() const override { return 0; }
    QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    int columnCount() const override { return Side; }
    int rowCount() const override { return Side; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

    void* interface_cast(QAccessible::InterfaceType Type) override {
        return Type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(Type);
    }

private:
    BoardWidget& Board;
    std::array<QAccessible::Id, view::BoardPictures> Ids{};
};

QAccessibleInterface* MakeAccess(const QString&, QObject* Wanted) {
    auto* Board = qobject_cast<BoardWidget*>(Wanted);
    return Board != nullptr ? new BoardAccess(*Board) : nullptr;
}

void Tell(BoardWidget& Board, int Cell, QAccessible::Event What) {
    QAccessibleEvent Event(&Board, What);
    Event.setChild(Cell);
    QAccessible::updateAccessibility(&Event);
}

} // namespace

void RegisterBoardAccess() {
    QAccessible::installFactory(MakeAccess);
}

void TellCellChanged(BoardWidget& Board, int Cell) {
    Tell(Board, Cell, QAccessible::NameChanged);
}

void TellCellFocused(BoardWidget& Board, int Cell) {
    Tell(Board, Cell, QAccessible::Focus);
}

} // namespace zonterbrook::ui
