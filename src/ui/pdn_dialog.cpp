// The chooser of PDN games.
#include "ui/pdn_dialog.h"

#include "ui/palette.h"

#include <QAbstractTableModel>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

namespace zonterbrook::ui {

namespace {

// So much of the file at a time that the window stays alive: some milliseconds.
constexpr std::size_t Slice = std::size_t{1} << 20U;
constexpr int BarSteps = 1000;
constexpr int ColumnWidths[] = {200, 84, 135, 135, 62, 110, 58, 44, 62, 62};
constexpr QSize UsualSize(980, 560);

QString Text(std::string_view Words) {
    return QString::fromUtf8(Words.data(), static_cast<qsizetype>(Words.size()));
}

} // namespace

/// The lines of the chooser as the list asks for them.
class PdnModel : public QAbstractTableModel {
public:
    PdnModel(QObject* Parent, const view::PdnChooser& InChooser) : QAbstractTableModel(Parent), Chooser(InChooser) {
        Rows = static_cast<int>(Chooser.Lines());
    }

    int rowCount(const QModelIndex& Parent = {}) const override { return Parent.isValid() ? 0 : Rows; }
    int columnCount(const QModelIndex& Parent = {}) const override {
        return Parent.isValid() ? 0 : formats::PdnColumns;
    }
    QVariant data(const QModelIndex& Index, int Role) const override {
        if (Role != Qt::DisplayRole || static_cast<std::size_t>(Index.row()) >= Chooser.Lines()) {
            return {};
        }
        return Text(
            Chooser.Text(static_cast<std::size_t>(Index.row()), static_cast<formats::PdnColumn>(Index.column())));
    }
    QVariant headerData(int Section, Qt::Orientation Way, int Role) const override {
        if (Role != Qt::DisplayRole || Way != Qt::Horizontal) {
            return {};
        }
        return Text(formats::PdnColumnTitle(static_cast<formats::PdnColumn>(Section)));
    }

    /// Lines have come to the end.
    void Grow() {
        const int Now = static_cast<int>(Chooser.Lines());
        if (Now > Rows) {
            beginInsertRows({}, Rows, Now - 1);
            Rows = Now;
            endInsertRows();
        }
    }
    /// All may be different.
    void Renew() {
        beginResetModel();
        Rows = static_cast<int>(Chooser.Lines());
        endResetModel();
    }

private:
    const view::PdnChooser& Chooser;
    int Rows = 0;
};

PdnDialog::PdnDialog(QWidget* Parent, formats::PdnIndex& Games, const QString& Title,
                     const std::vector<std::string>& Variants)
    : QDialog(Parent), Chooser(Games, Variants), Model(new PdnModel(this, Chooser)), Work(new QTimer(this)) {
    setObjectName(QStringLiteral("dlgPDN"));
    setWindowTitle(Title);
    Build();
    connect(Work, &QTimer::timeout, this, &PdnDialog::GoOn);
    connect(Words, &QLineEdit::textChanged, this, &PdnDialog::Narrow);
    connect(List->header(), &QHeaderView::sectionClicked, this, &PdnDialog::SortBy);
    connect(List, &QTreeView::activated, this, &QDialog::accept);
    connect(List->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { Ok->setEnabled(SelectedGame().has_value()); });
    Select(0);
    ShowCount();
    Work->start(0);
}

void PdnDialog::Build() {
    auto* Grid = new QGridLayout(this);
    Words = new QLineEdit;
    Words->setObjectName(QStringLiteral("Filter"));
    Words->setPalette(DesktopPalette());
    Words->setPlaceholderText(tr("Filter: player, event, date, ..."));
    Words->setAccessibleName(tr("Filter"));
    Words->setClearButtonEnabled(true);
    Words->installEventFilter(this);
    Count = new QLabel;
    Count->setObjectName(QStringLiteral("Count"));
    Bar = new QProgressBar;
    Bar->setObjectName(QStringLiteral("Progress"));
    Bar->setAccessibleName(tr("How much of the file has been read"));
    Bar->setMaximum(BarSteps);
    Bar->setTextVisible(false);
    Bar->setFixedWidth(140);

    List = new QTreeView;
    List->setObjectName(QStringLiteral("ListView1"));
    List->setAccessibleName(tr("Games"));
    List->setModel(Model);
    List->setRootIsDecorated(false);
    List->setUniformRowHeights(true);
    List->setAllColumnsShowFocus(true);
    List->setAlternatingRowColors(true);
    List->setSelectionBehavior(QAbstractItemView::SelectRows);
    List->header()->setSectionsClickable(true);
    List->header()->setStretchLastSection(true);
    for (int Column = 0; Column < formats::PdnColumns; ++Column) {
        List->setColumnWidth(Column, ColumnWidths[Column]);
    }

    OpenAs = new QComboBox;
    OpenAs->setObjectName(QStringLiteral("Combo1"));
    OpenAs->setMaxVisibleItems(20);
    for (const std::string& Name : Chooser.OpenAs()) {
        OpenAs->addItem(Text(Name));
    }
    auto* OpenAsLabel = new QLabel(tr("Open &as:"));
    OpenAsLabel->setBuddy(OpenAs);
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    Ok = Buttons->button(QDialogButtonBox::Ok);
    Ok->setObjectName(QStringLiteral("OKButton"));
    Buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("CancelButton"));
    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* Top = new QHBoxLayout;
    Top->addWidget(Words, 1);
    Top->addWidget(Bar);
    Top->addWidget(Count);
    auto* Bottom = new QHBoxLayout;
    Bottom->addWidget(OpenAsLabel);
    Bottom->addWidget(OpenAs);
    Bottom->addStretch(1);
    Bottom->addWidget(Buttons);
    Grid->addLayout(Top, 0, 0);
    Grid->addWidget(List, 1, 0);
    Grid->addLayout(Bottom, 2, 0);
    List->setFocus();
    resize(UsualSize);
}

std::optional<control::PdnChoice> PdnDialog::Choose() {
    if (exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    const auto Game = SelectedGame();
    if (!Game) {
        return std::nullopt;
    }
    const int As = OpenAs->currentIndex();
    return control::PdnChoice{*Game, As < 1 ? std::string() : Chooser.OpenAs()[static_cast<std::size_t>(As)]};
}

// The arrows of the box of words walk through the list.
bool PdnDialog::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched == Words && Event->type() == QEvent::KeyPress) {
        const int Key = static_cast<QKeyEvent*>(Event)->key();
        if (Key == Qt::Key_Down || Key == Qt::Key_Up || Key == Qt::Key_PageDown || Key == Qt::Key_PageUp) {
            List->setFocus();
            QCoreApplication::sendEvent(List, Event);
            return true;
        }
    }
    return QDialog::eventFilter(Watched, Event);
}

void PdnDialog::GoOn() {
    const bool More = Chooser.GoOn(Slice);
    if (More || !Chooser.SortColumn()) {
        Model->Grow();
    } else {
        const auto Game = SelectedGame();
        Model->Renew();
        Select(Game);
    }
    if (!More) {
        Work->stop();
    }
    ShowCount();
}

void PdnDialog::ShowCount() {
    Count->setText(Text(Chooser.CountText()));
    Bar->setValue(static_cast<int>(Chooser.Progress() * BarSteps));
    Bar->setVisible(Work->isActive());
    Ok->setEnabled(SelectedGame().has_value());
}

void PdnDialog::Narrow(const QString& Typed) {
    const auto Game = SelectedGame();
    Chooser.Filter(Typed.toStdString());
    Model->Renew();
    Select(Game);
    ShowCount();
}

void PdnDialog::SortBy(int Column) {
    const auto Game = SelectedGame();
    Chooser.SortBy(static_cast<formats::PdnColumn>(Column));
    Model->Renew();
    List->header()->setSortIndicatorShown(true);
    List->header()->setSortIndicator(Column, Chooser.SortsDownward() ? Qt::DescendingOrder : Qt::AscendingOrder);
    Select(Game);
}

// The game stays selected where it is listed, else the first that is.
void PdnDialog::Select(std::optional<std::size_t> Game) {
    const std::size_t Line = Game ? Chooser.LineOf(*Game).value_or(0) : 0;
    List->setCurrentIndex(Model->index(static_cast<int>(Line), 0));
    List->scrollTo(List->currentIndex());
}

std::optional<std::size_t> PdnDialog::SelectedGame() const {
    const QModelIndex Current = List->currentIndex();
    if (!Current.isValid() || static_cast<std::size_t>(Current.row()) >= Chooser.Lines()) {
        return std::nullopt;
    }
    return Chooser.GameOf(static_cast<std::size_t>(Current.row()));
}

} // namespace zonterbrook::ui
