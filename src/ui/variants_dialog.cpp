// The dialog of the variants.
#include "ui/variants_dialog.h"

#include "formats/variant_file.h"
#include "ui/board_preview.h"
#include "ui/help_page.h"
#include "ui/own_variant_dialog.h"
#include "ui/palette.h"
#include "ui/trial_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTabWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace zonterbrook::ui {

namespace {

constexpr int ListWidth = 250;
constexpr int WarningsHeight = 62;
constexpr int PromotionColumns = 8;
constexpr QSize UsualSize(1120, 690);
constexpr int FramePixels = 40; // what a desktop puts round a window

QString Text(std::string_view Words) {
    return QString::fromUtf8(Words.data(), static_cast<qsizetype>(Words.size()));
}

// What a box is called is also what its rule does: a person who can't see the tip hears it.
void Explain(QWidget* Widget, const QString& Tip) {
    Widget->setToolTip(Tip.isEmpty() ? Tip : QStringLiteral("<p>%1</p>").arg(Tip.toHtmlEscaped()));
    Widget->setAccessibleDescription(Tip);
}

QString Plain(QString Caption) {
    return Caption.remove(QLatin1Char(':')).trimmed();
}

/// The arrows of the box of words walk through the list below it.
class ArrowsToList : public QObject {
public:
    explicit ArrowsToList(QListWidget* InList) : QObject(InList), List(InList) {}

    bool eventFilter(QObject* Watched, QEvent* Event) override {
        if (Event->type() == QEvent::KeyPress) {
            const int Key = static_cast<QKeyEvent*>(Event)->key();
            if (Key == Qt::Key_Down || Key == Qt::Key_Up || Key == Qt::Key_PageDown || Key == Qt::Key_PageUp) {
                List->setFocus();
                QCoreApplication::sendEvent(List, Event);
                return true;
            }
        }
        return QObject::eventFilter(Watched, Event);
    }

private:
    QListWidget* List;
};

} // namespace

VariantsDialog::VariantsDialog(QWidget* Parent, control::VariantEditor& InEditor, Artwork& Art)
    : QDialog(Parent), Editor(InEditor) {
    setObjectName(QStringLiteral("dlgVariants"));
    setWindowTitle(QStringLiteral(" Variants"));
    auto* Columns = new QHBoxLayout;
    Columns->addWidget(BuildChoice());
    auto* Right = new QVBoxLayout;
    Right->addWidget(BuildPortrait(Art));
    Right->addWidget(BuildRules(), 1);
    Columns->addLayout(Right, 1);
    auto* Whole = new QVBoxLayout(this);
    Whole->addLayout(Columns, 1);
    Whole->addWidget(BuildButtons());
    OrderTabs();
    ListFolder();
    ShowForm();
    Filter->setFocus();
    const QSize Room = screen()->availableSize() - QSize(FramePixels, FramePixels);
    resize(UsualSize.boundedTo(Room));
}

// --- What it is made of ---------------------------------------------------------------------------------------------

QWidget* VariantsDialog::BuildChoice() {
    auto* Side = new QWidget;
    Side->setFixedWidth(ListWidth);
    auto* Column = new QVBoxLayout(Side);
    Column->setContentsMargins(0, 0, 0, 0);
    Classic = new QRadioButton(tr("Classic"));
    Classic->setObjectName(QStringLiteral("Option1"));
    Explain(Classic, tr("The variants that come with the program."));
    User = new QRadioButton(tr("User"));
    User->setObjectName(QStringLiteral("Option2"));
    Explain(User, tr("The variants that you have made yourself."));
    (Editor.ListsUserVariants() ? User : Classic)->setChecked(true);
    auto* Folders = new QHBoxLayout;
    Folders->addWidget(Classic);
    Folders->addWidget(User);
    Folders->addStretch(1);
    Filter = new QLineEdit;
    Filter->setObjectName(QStringLiteral("Filter"));
    Filter->setAccessibleName(tr("Find a variant"));
    Filter->setPalette(DesktopPalette());
    Filter->setPlaceholderText(tr("Find: flying kings, anti, ..."));
    Filter->setClearButtonEnabled(true);
    Explain(Filter, tr("Words of a name, a help text or rules, such as \"flying kings\" or \"without backward "
                       "capture\"."));
    List = new QListWidget;
    List->setObjectName(QStringLiteral("Variants"));
    List->setAccessibleName(tr("Variants"));
    List->setUniformItemSizes(true);
    Filter->installEventFilter(new ArrowsToList(List));
    Count = new QLabel;
    Count->setObjectName(QStringLiteral("Count"));
    Combo = new QComboBox;
    Combo->setObjectName(QStringLiteral("Combo1"));
    Combo->setAccessibleName(tr("Variant"));
    Combo->setMaxVisibleItems(24);
    Combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* Save = new QPushButton(tr("Save as &User Variant..."));
    Save->setAutoDefault(false);
    Save->setObjectName(QStringLiteral("SaveUserVariant"));
    Explain(Save, tr("Keeps these rules and this start position as a variant of your own."));
    Delete = new QPushButton(tr("&Delete"));
    Delete->setAutoDefault(false);
    Delete->setObjectName(QStringLiteral("DeleteUserVariant"));
    Explain(Delete, tr("Deletes the chosen variant, if it is one of your own."));
    auto* Own = new QHBoxLayout;
    Own->addWidget(Save, 1);
    Own->addWidget(Delete);
    Column->addWidget(Combo);
    Column->addLayout(Folders);
    Column->addWidget(Filter);
    Column->addWidget(List, 1);
    Column->addWidget(Count);
    Column->addLayout(Own);

    for (QRadioButton* Folder : {Classic, User}) {
        connect(Folder, &QRadioButton::clicked, this, [this] {
            Do([this] { Editor.Option_Click(User->isChecked()); });
            ListFolder();
        });
    }
    connect(Combo, &QComboBox::activated, this, [this](int Index) {
        Do([&] { Editor.Combo1_Click(Combo->itemText(Index).toStdString()); });
        Narrow();
    });
    connect(Filter, &QLineEdit::textChanged, this, &VariantsDialog::Narrow);
    connect(List, &QListWidget::currentItemChanged, this, &VariantsDialog::ChooseListed);
    connect(List, &QListWidget::itemClicked, this, &VariantsDialog::ChooseListed);
    connect(Save, &QPushButton::clicked, this, &VariantsDialog::SaveAsUserVariant);
    connect(Delete, &QPushButton::clicked, this, [this] {
        Do([this] { Editor.DeleteUserVariant(); });
        ListFolder();
    });
    return Side;
}

QWidget* VariantsDialog::BuildPortrait(Artwork& Art) {
    auto* Portrait = new QWidget;
    auto* Row = new QHBoxLayout(Portrait);
    Row->setContentsMargins(0, 0, 0, 0);
    Preview = new BoardPreview(Art);
    Preview->setObjectName(QStringLiteral("StartPosition"));
    Title = new QLabel;
    Title->setObjectName(QStringLiteral("Title"));
    QFont Large = Title->font();
    Large.setBold(true);
    Large.setPointSizeF(Large.pointSizeF() * 1.25);
    Title->setFont(Large);
    State = new QLabel;
    State->setObjectName(QStringLiteral("RulesState"));
    RulesLine = new QLabel;
    RulesLine->setObjectName(QStringLiteral("RulesLine"));
    RulesLine->setWordWrap(true);
    Help = new QTextBrowser;
    Help->setObjectName(QStringLiteral("Help"));
    Help->setAccessibleName(tr("Help of the variant"));
    Help->setOpenLinks(false);
    auto* Words = new QVBoxLayout;
    Words->addWidget(Title);
    Words->addWidget(State);
    Words->addWidget(RulesLine);
    Words->addWidget(Help, 1);
    Row->addWidget(Preview, 0, Qt::AlignTop);
    Row->addLayout(Words, 1);
    Portrait->setMaximumHeight(Preview->height() + 10);
    return Portrait;
}

QWidget* VariantsDialog::BuildRules() {
    Tabs = new QTabWidget;
    Tabs->setObjectName(QStringLiteral("Rules"));
    const auto AddPage = [&](const QString& Caption) {
        auto* Page = new QWidget;
        auto* Grid = new QGridLayout(Page);
        Grid->setContentsMargins(9, 5, 9, 5);
        // On a small screen a page is scrolled rather than cut.
        auto* Frame = new QScrollArea;
        Frame->setFrameShape(QFrame::NoFrame);
        Frame->setWidgetResizable(true);
        Frame->setWidget(Page);
        Frame->viewport()->setAutoFillBackground(false);
        Page->setAutoFillBackground(false);
        Tabs->addTab(Frame, Caption);
        return Grid;
    };
    QGridLayout* Captures = AddPage(tr("&Captures and Kings"));
    Captures->addWidget(BuildFrame(view::RuleFrame::Captures), 0, 0);
    Captures->addWidget(BuildFrame(view::RuleFrame::FlyingKings), 0, 1, Qt::AlignTop);
    Captures->setColumnStretch(0, 3);
    Captures->setColumnStretch(1, 2);
    Captures->setRowStretch(1, 1);
    QGridLayout* Game = AddPage(tr("&Game"));
    Game->addWidget(BuildFrame(view::RuleFrame::Misc), 0, 0);
    Game->addWidget(BuildFrame(view::RuleFrame::WinDraw), 0, 1);
    Game->addWidget(BuildFrame(view::RuleFrame::Opening), 1, 0, Qt::AlignTop);
    Game->addWidget(BuildFrame(view::RuleFrame::OffTheBoard), 1, 1);
    Game->setColumnStretch(0, 2);
    Game->setColumnStretch(1, 3);
    Game->setRowStretch(2, 1);
    QGridLayout* Board = AddPage(tr("&Squares and Steps"));
    Board->addWidget(BuildPromotions(), 0, 0);
    Board->addWidget(BuildMovements(), 1, 0);
    Board->setRowStretch(2, 1);

    Warnings = new QListWidget;
    Warnings->setObjectName(QStringLiteral("Warnings"));
    Warnings->setAccessibleName(tr("What is contradictory or without effect"));
    Warnings->setWordWrap(true);
    Warnings->setFixedHeight(WarningsHeight);
    connect(Warnings, &QListWidget::itemActivated, this, &VariantsDialog::ShowConcerned);
    connect(Warnings, &QListWidget::itemClicked, this, &VariantsDialog::ShowConcerned);
    auto* Whole = new QWidget;
    auto* Column = new QVBoxLayout(Whole);
    Column->setContentsMargins(0, 0, 0, 0);
    Column->addWidget(Tabs, 1);
    Column->addWidget(Warnings);
    return Whole;
}

QLineEdit* VariantsDialog::BuildBox(const QString& Name, view::EntryBox& Entry, std::string_view Key,
                                    const QString& Says, int Letters) {
    auto* Box = new QLineEdit;
    Box->setObjectName(Name);
    Box->setAccessibleName(Says);
    Box->setFixedWidth(Box->fontMetrics().averageCharWidth() * Letters + 18);
    Boxes.push_back({Box, &Entry, Key});
    connect(Box, &QLineEdit::textEdited, this, [this, &Entry](const QString& Typed) {
        Entry.Text = Typed.toStdString();
        Entry.Wrong = false;
        ShowForm();
    });
    return Box;
}

QGroupBox* VariantsDialog::BuildFrame(view::RuleFrame Frame) {
    auto* Group = new QGroupBox(Text(view::FrameCaption(Frame)));
    auto* Grid = new QGridLayout(Group);
    Grid->setVerticalSpacing(1);
    Grid->setContentsMargins(9, 4, 9, 4);
    Grid->setColumnStretch(0, 1);
    int Row = 0;
    const auto AddNumber = [&](const view::NumberRow& Number, int Column) {
        auto* Label = new QLabel(Text(Number.Caption));
        Label->setObjectName(QStringLiteral("Label%1").arg(Number.Label));
        QLineEdit* Box = BuildBox(QStringLiteral("Text%1").arg(Number.Number), Editor.Form.Numbers[Number.Number],
                                  Number.Key, Plain(Text(Number.Caption.empty() ? Number.Tip : Number.Caption)), 6);
        Explain(Box, Text(Number.Tip));
        Label->setBuddy(Box);
        NumberLabels.at(static_cast<std::size_t>(Number.Number)) = Label;
        Grid->addWidget(Label, Row, Column, Qt::AlignRight);
        Grid->addWidget(Box, Row, Column + 1);
    };
    const auto NumberOf = [&](int Tick) -> const view::NumberRow* {
        // The boxes that stand behind a check box.
        constexpr std::pair<int, int> Behind[] = {{view::TickUnlimited, 6}, {view::TickThreeKings, 5},
                                                  {view::TickTwoKings, 7},  {view::TickRemoveMen, 3},
                                                  {view::TickDoMoves, 4},   {view::TickOffBoard, 10}};
        for (const auto& [Of, Number] : Behind) {
            for (const view::NumberRow& Each : view::NumberRows()) {
                if (Of == Tick && Each.Number == Number) {
                    return &Each;
                }
            }
        }
        return nullptr;
    };
    for (const view::TickRow& Tick : view::TickRows()) {
        if (Tick.Frame != Frame) {
            continue;
        }
        auto* Box = new QCheckBox(Text(Tick.Caption));
        Box->setObjectName(QStringLiteral("Check%1").arg(Tick.Number));
        Explain(Box, Text(Tick.Tip));
        const bool Inner = Tick.Number == view::TickMaxCapMoveKings || Tick.Number == view::TickCrowned ||
                           Tick.Number == view::TickUnlimited;
        if (Inner) {
            Box->setStyleSheet(QStringLiteral("margin-left: 20px"));
        }
        Ticks.at(static_cast<std::size_t>(Tick.Number)) = Box;
        connect(Box, &QCheckBox::clicked, this,
                [this, Number = Tick.Number](bool On) { Do([&] { Editor.Check_Click(Number, On); }); });
        const view::NumberRow* Number = NumberOf(Tick.Number);
        Grid->addWidget(Box, Row, 0, 1, Number != nullptr ? 1 : 3);
        if (Number != nullptr) {
            AddNumber(*Number, 1);
        }
        ++Row;
    }
    for (const view::NumberRow& Number : view::NumberRows()) {
        if (Number.Frame == Frame && NumberLabels.at(static_cast<std::size_t>(Number.Number)) == nullptr) {
            AddNumber(Number, 1);
            ++Row;
        }
    }
    return Group;
}

QGroupBox* VariantsDialog::BuildPromotions() {
    auto* Group = new QGroupBox(tr("Promotion Squares"));
    auto* Grid = new QGridLayout(Group);
    const QString Sides[] = {tr("White:"), tr("Black:")};
    for (int Box = 0; Box < view::PromotionBoxes; ++Box) {
        const int Colour = Box / rules::PromotionRows;
        const int Place = Box % rules::PromotionRows;
        if (Place == 0) {
            Grid->addWidget(new QLabel(Sides[Colour]), 2 * Colour, 0);
        }
        QLineEdit* Square =
            BuildBox(QStringLiteral("Text1(%1)").arg(Box), Editor.Form.Promotions[Box], rules::PromotionKeys[Colour],
                     tr("%1 promotion square %2").arg(Plain(Sides[Colour])).arg(Place + 1), 4);
        Explain(Square, tr("A square on which this side's men are crowned, such as b0; empty for none."));
        Grid->addWidget(Square, 2 * Colour + Place / PromotionColumns, 1 + Place % PromotionColumns);
    }
    Grid->setColumnStretch(PromotionColumns + 1, 1);
    return Group;
}

QGroupBox* VariantsDialog::BuildMovements() {
    auto* Group = new QGroupBox(tr("Movement Directions"));
    auto* Grid = new QGridLayout(Group);
    const QString Pieces[] = {tr("White Man:"), tr("Black Man:"), tr("White King:"), tr("Black King:")};
    const QString Lists[] = {tr("Normal Moves"), tr("Capture Moves")};
    // Labels 4 to 9 are the heads and the pieces, 13 to 16 the pieces once more, before their captures.
    for (int Kind = 0; Kind < 2; ++Kind) {
        auto* Head = new QLabel(Lists[Kind]);
        Head->setObjectName(QStringLiteral("Label%1").arg(4 + Kind));
        Grid->addWidget(Head, 0, 2 * Kind + 1);
        for (int Piece = 0; Piece < 4; ++Piece) {
            const int Box = 4 * Kind + Piece;
            auto* Label = new QLabel(Pieces[Piece]);
            Label->setObjectName(QStringLiteral("Label%1").arg((Kind == 0 ? 6 : 13) + Piece));
            QLineEdit* Steps =
                BuildBox(QStringLiteral("Text2(%1)").arg(Box), Editor.Form.Movements[Box], rules::MovementKeys[Piece],
                         Plain(Pieces[Piece]) + QLatin1String(", ") + Lists[Kind], 30);
            Explain(Steps, tr("Up to eight directions joined by \";\", from the owner's side of the board: N, NE, E, "
                              "SE, S, SW, W, NW, and NN, EE, SS, WW for leaps of two squares."));
            Label->setBuddy(Steps);
            Grid->addWidget(Label, 1 + Piece, 2 * Kind);
            Grid->addWidget(Steps, 1 + Piece, 2 * Kind + 1);
        }
    }
    Grid->setColumnStretch(4, 1);
    return Group;
}

QWidget* VariantsDialog::BuildButtons() {
    auto* Bar = new QWidget;
    auto* Row = new QHBoxLayout(Bar);
    Row->setContentsMargins(0, 0, 0, 0);
    const auto Add = [&](const QString& Caption, const char* Name, const QString& Tip, auto&& Click) {
        auto* Button = new QPushButton(Caption);
        Button->setObjectName(QLatin1String(Name));
        Button->setAutoDefault(false);
        Explain(Button, Tip);
        connect(Button, &QPushButton::clicked, this, Click);
        Row->addWidget(Button);
        return Button;
    };
    Add(tr("&Random"), "Random", tr("Draws a whole rule set by lot; squares and steps stay."),
        [this] { Do([this] { Editor.Random_Click(); }); });
    auto* SeedLabel = new QLabel(tr("S&eed:"));
    SeedBox = new QLineEdit;
    SeedBox->setObjectName(QStringLiteral("Seed"));
    SeedBox->setAccessibleName(tr("Seed"));
    SeedBox->setFixedWidth(SeedBox->fontMetrics().averageCharWidth() * 12);
    SeedBox->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,18}")), SeedBox));
    Explain(SeedBox, tr("The number that the last rule set was drawn by. Type one and press Enter to draw its set "
                        "again."));
    SeedLabel->setBuddy(SeedBox);
    connect(SeedBox, &QLineEdit::returnPressed, this, &VariantsDialog::DrawTypedSeed);
    Row->addWidget(SeedLabel);
    Row->addWidget(SeedBox);
    Add(tr("&Try it out..."), "TryOut", tr("Lets the computer play the rules against itself and tells what happens."),
        [this] { TrialDialog(this, Editor).exec(); });
    auto* Link = new QLabel(QStringLiteral("<a href=\"help\">%1</a>").arg(tr("What do these rules mean?")));
    Link->setObjectName(QStringLiteral("Label10"));
    Link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(Link, &QLabel::linkActivated, this, &VariantsDialog::ManualWanted);
    Row->addSpacing(12);
    Row->addWidget(Link);
    Row->addStretch(1);
    auto* Ok = Add(tr("OK"), "OKButton", tr("Takes the rules over and begins a game."), [this] {
        Do([this] {
            if (Editor.Variantsapply_Click()) {
                accept();
            }
        });
    });
    Ok->setDefault(true);
    Add(tr("Cancel"), "CancelButton", tr("Begins a game by what has been chosen or applied so far."),
        [this] { reject(); });
    Add(tr("&Apply"), "Variantsapply", tr("Takes the rules over and leaves the dialog open."),
        [this] { Do([this] { Editor.Variantsapply_Click(); }); });
    return Bar;
}

// From what is chosen to what it is made of, each frame from above.
void VariantsDialog::OrderTabs() {
    QWidget* Before = List;
    const auto Next = [&](QWidget* Widget) {
        setTabOrder(Before, Widget);
        Before = Widget;
    };
    for (const view::TickRow& Row : view::TickRows()) {
        Next(Ticks.at(static_cast<std::size_t>(Row.Number)));
    }
    for (const Bound& Each : Boxes) {
        Next(Each.Box);
    }
}

// --- What it shows --------------------------------------------------------------------------------------------------

template <typename Click>
void VariantsDialog::Do(Click&& What) {
    if (Showing) {
        return;
    }
    What();
    if (Editor.ProgramEnds()) {
        reject();
        return;
    }
    ShowForm();
}

void VariantsDialog::ShowForm() {
    const QScopedValueRollback Busy(Showing, true);
    for (std::size_t Number = 0; Number < Ticks.size(); ++Number) {
        if (QCheckBox* Box = Ticks.at(Number)) {
            Box->setChecked(Editor.Form.Ticks[Number].Ticked);
            Box->setEnabled(Editor.Form.Ticks[Number].Enabled);
        }
    }
    for (std::size_t Number = 0; Number < NumberLabels.size(); ++Number) {
        if (QLabel* Label = NumberLabels.at(Number)) {
            Label->setEnabled(Editor.Form.Numbers[Number].Enabled);
        }
    }
    for (const Bound& Each : Boxes) {
        if (Each.Box->text() != Text(Each.Entry->Text)) {
            Each.Box->setText(Text(Each.Entry->Text));
        }
        Each.Box->setEnabled(Each.Entry->Enabled);
        Each.Box->setStyleSheet(Each.Entry->Wrong ? QStringLiteral("color: #ffffff; background: #000000;") : QString());
    }
    if (const auto Seed = Editor.LastSeed(); Seed && !SeedBox->hasFocus()) {
        SeedBox->setText(QString::number(*Seed));
    }
    ShowChosen();
}

void VariantsDialog::ShowChosen() {
    const bool Edited = Editor.IsEdited();
    const auto Rules = Editor.RulesInBoxes();
    Title->setText(Text(formats::VariantDisplayName(Editor.Chosen())) +
                   (Edited ? QLatin1String(" (M)") : QLatin1String()));
    State->setText(Edited ? tr("The rules have been edited.") : tr("The rules are those of the variant's file."));
    RulesLine->setText(Rules ? Text(view::RulesLine(*Rules)) : QString());
    const QString Page = HelpAsPage(Editor.HelpText());
    if (Help->property("page") != Page) {
        Help->setProperty("page", Page);
        Help->setHtml(Page);
    }
    const auto Start = Editor.StartPosition();
    Preview->Display(Start.Squares, Start.PiecesOnBlack);
    Delete->setEnabled(Editor.ChosenIsUsers());
    const int Index = Combo->findText(Text(Editor.Chosen()));
    Combo->setCurrentIndex(Editor.ChosenIsUsers() == Editor.ListsUserVariants() ? Index : -1);

    ShowWarnings();
}

// The box that a warning is about.
QWidget* VariantsDialog::ConcernedBy(const std::string& Key) const {
    for (const view::TickRow& Row : view::TickRows()) {
        if (Row.Key == Key && Row.Number != view::TickUnlimited) {
            return Ticks.at(static_cast<std::size_t>(Row.Number));
        }
    }
    for (const Bound& Each : Boxes) {
        if (Each.Key == Key) {
            return Each.Box;
        }
    }
    return nullptr;
}

// What is contradictory is said below, and shown at the box concerned.
void VariantsDialog::ShowWarnings() {
    const std::vector<rules::RuleWarning> Found = Editor.Warnings();
    const QIcon Sign = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    for (const view::TickRow& Row : view::TickRows()) {
        QCheckBox* Box = Ticks.at(static_cast<std::size_t>(Row.Number));
        Box->setIcon({});
        Explain(Box, Text(Row.Tip));
    }
    Warnings->clear();
    for (const rules::RuleWarning& Each : Found) {
        auto* Line = new QListWidgetItem(Sign, Text(Each.Sentence));
        Line->setData(Qt::UserRole, Text(Each.Key));
        Warnings->addItem(Line);
        QWidget* Concerned = ConcernedBy(Each.Key);
        if (auto* Tick = qobject_cast<QCheckBox*>(Concerned)) {
            Tick->setIcon(Sign);
            Explain(Tick, Tick->accessibleDescription() + QLatin1Char(' ') + Text(Each.Sentence));
        } else if (Concerned != nullptr && Concerned->styleSheet().isEmpty()) {
            Concerned->setStyleSheet(QStringLiteral("border: 2px solid #d9a400;"));
        }
    }
    Warnings->setVisible(!Found.empty());
}

void VariantsDialog::ShowConcerned(const QListWidgetItem* Line) {
    QWidget* Concerned = ConcernedBy(Line->data(Qt::UserRole).toString().toStdString());
    for (int Index = 0; Concerned != nullptr && Index < Tabs->count(); ++Index) {
        if (Tabs->widget(Index)->isAncestorOf(Concerned)) {
            Tabs->setCurrentIndex(Index);
            Concerned->setFocus();
        }
    }
}

void VariantsDialog::ListFolder() {
    const QScopedValueRollback Busy(Showing, true);
    Combo->clear();
    for (const view::CatalogueEntry& Entry : Editor.Variants()) {
        Combo->addItem(Text(Entry.Name));
    }
    (Editor.ListsUserVariants() ? User : Classic)->setChecked(true);
    Narrow();
    ShowChosen();
}

void VariantsDialog::Narrow() {
    const QScopedValueRollback Busy(Showing, true);
    const std::string Words = Filter->text().toStdString();
    List->clear();
    int Fitting = 0;
    for (const view::CatalogueEntry& Entry : Editor.Variants()) {
        if (!view::Fits(Entry, Words)) {
            continue;
        }
        auto* Item = new QListWidgetItem(Text(formats::VariantDisplayName(Entry.Name)));
        Item->setData(Qt::UserRole, Text(Entry.Name));
        if (!Entry.Document) {
            Item->setFlags(Item->flags() & ~Qt::ItemIsEnabled);
            Item->setToolTip(Text(Entry.Complaint));
        }
        List->addItem(Item);
        if (Entry.Name == Editor.Chosen() && Editor.ChosenIsUsers() == Editor.ListsUserVariants()) {
            List->setCurrentItem(Item);
        }
        ++Fitting;
    }
    const auto All = static_cast<int>(Editor.Variants().size());
    const QString Listed = All == 1 ? tr("1 variant") : tr("%1 variants").arg(All);
    Count->setText(Fitting == All ? Listed : tr("%1 of %2 variants").arg(Fitting).arg(All));
    if (List->currentItem() != nullptr) {
        List->scrollToItem(List->currentItem());
    }
}

void VariantsDialog::ChooseListed() {
    const QListWidgetItem* Item = List->currentItem();
    if (Showing || Item == nullptr) {
        return;
    }
    const std::string Name = Item->data(Qt::UserRole).toString().toStdString();
    if (Name != Editor.Chosen() || Editor.ChosenIsUsers() != Editor.ListsUserVariants()) {
        Do([&] { Editor.Combo1_Click(Name); });
    }
}

void VariantsDialog::DrawTypedSeed() {
    if (!SeedBox->text().isEmpty()) {
        Do([this] { Editor.DrawFrom(SeedBox->text().toULongLong()); });
    }
}

void VariantsDialog::SaveAsUserVariant() {
    OwnVariantDialog(this, Editor).exec();
    if (Editor.ProgramEnds()) {
        reject();
        return;
    }
    Filter->clear();
    ListFolder();
    ShowForm();
}

} // namespace zonterbrook::ui
