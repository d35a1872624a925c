// The dialog of the options.
#include "ui/options_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <memory>

namespace zonterbrook::ui {

namespace {

using view::OptionsForm;
using view::OptionsTab;

constexpr int LongestName = 60;

QString Text(std::string_view Words) {
    return QString::fromUtf8(Words.data(), static_cast<qsizetype>(Words.size()));
}

void Explain(QWidget* Widget, const QString& Tip) {
    Widget->setToolTip(QStringLiteral("<p>%1</p>").arg(Tip.toHtmlEscaped()));
    Widget->setAccessibleDescription(Tip);
}

bool ByDepthLimit(const OptionsForm& Form) {
    return Form.ByDepth;
}
bool ByTimeLimit(const OptionsForm& Form) {
    return !Form.ByDepth;
}
bool Extended(const OptionsForm& Form) {
    return Form.ExtendedSearch;
}
bool ChessRules(const OptionsForm& Form) {
    return Form.ChessDrawRules;
}
bool WithSound(const OptionsForm& Form) {
    return Form.UseSound;
}

// The lowest byte is the red one.
QColor ColourOf(std::int32_t Value) {
    return {Value & 0xFF, (Value >> 8) & 0xFF, (Value >> 16) & 0xFF};
}
std::int32_t ValueOf(const QColor& Colour) {
    return Colour.red() | Colour.green() << 8 | Colour.blue() << 16;
}

} // namespace

OptionsDialog::OptionsDialog(QWidget* Parent, control::OptionsEditor& InEditor)
    : QDialog(Parent), Editor(InEditor), Tabs(new QTabWidget) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral(" Options"));
    Tabs->setObjectName(QStringLiteral("tbsOptions"));
    auto* Column = new QVBoxLayout(this);
    Column->addWidget(Tabs);
    BuildComputer();
    BuildBoard();
    BuildEngine();
    BuildMisc();
    BuildButtons(Column);
    ShowForm();
}

// --- Parts ----------------------------------------------------------------------------------------------------------

QVBoxLayout* OptionsDialog::AddTab(const QString& Caption, int Index) {
    auto* Page = new QWidget;
    Page->setObjectName(QStringLiteral("picOptions(%1)").arg(Index));
    auto* Column = new QVBoxLayout(Page);
    Tabs->addTab(Page, Caption);
    return Column;
}

QGroupBox* OptionsDialog::AddFrame(QVBoxLayout* Column, const QString& Caption) {
    auto* Frame = new QGroupBox(Caption.trimmed());
    new QVBoxLayout(Frame);
    Column->addWidget(Frame);
    return Frame;
}

void OptionsDialog::AddTick(QVBoxLayout* Column, const view::OptionTick& Row) {
    auto* Box = new QCheckBox(Text(Row.Caption));
    Box->setObjectName(Text(Row.Name));
    Explain(Box, Text(Row.Tip));
    Ticks.push_back({Box, &Row});
    connect(Box, &QCheckBox::clicked, this, [this, &Row](bool On) {
        Editor.Form.*Row.Field = On;
        ShowForm();
    });
    Column->addWidget(Box);
}

void OptionsDialog::AddTicks(QVBoxLayout* Column, OptionsTab Tab, std::string_view Frame) {
    for (const view::OptionTick& Row : view::OptionTicks()) {
        if (Row.Tab == Tab && Row.Frame == Frame) {
            AddTick(Column, Row);
        }
    }
}

QLineEdit* OptionsDialog::AddNumber(QVBoxLayout* Column, const QString& Name, const QString& LabelName,
                                    const QString& Caption, std::string OptionsForm::*Field, const QString& Tip) {
    auto* Label = new QLabel(Caption);
    Label->setObjectName(LabelName);
    auto* Box = new QLineEdit(Text(Editor.Form.*Field));
    Box->setObjectName(Name);
    Box->setAccessibleName(QString(Caption).remove(QLatin1Char(':')).trimmed());
    Box->setFixedWidth(Box->fontMetrics().averageCharWidth() * 8);
    Explain(Box, Tip);
    Label->setBuddy(Box);
    connect(Box, &QLineEdit::textEdited, this,
            [this, Field](const QString& Typed) { Editor.Form.*Field = Typed.toStdString(); });
    auto* Row = new QHBoxLayout;
    Row->addSpacing(22);
    Row->addWidget(Label);
    Row->addStretch(1);
    Row->addWidget(Box);
    Column->addLayout(Row);
    return Box;
}

QSlider* OptionsDialog::AddSlider(QVBoxLayout* Column, const QString& Name, const QStringList& Marks, int Lowest,
                                  int Highest, std::int32_t OptionsForm::*Field, const QString& Says) {
    auto* Slider = new QSlider(Qt::Horizontal);
    Slider->setObjectName(Name);
    Slider->setAccessibleName(Says);
    Slider->setRange(Lowest, Highest);
    Slider->setTickPosition(QSlider::TicksBelow);
    Slider->setValue(Editor.Form.*Field);
    auto* Value = new QLabel(QString::number(Slider->value()));
    Value->setMinimumWidth(Value->fontMetrics().horizontalAdvance(QStringLiteral("180")));
    Value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(Slider, &QSlider::valueChanged, this, [this, Field, Value](int Now) {
        Editor.Form.*Field = Now;
        Value->setText(QString::number(Now));
    });
    auto* Row = new QHBoxLayout;
    Row->addWidget(Slider, 1);
    Row->addWidget(Value);
    Column->addLayout(Row);
    auto* Under = new QHBoxLayout;
    for (int Index = 0; Index < Marks.size(); ++Index) {
        if (Index > 0) {
            Under->addStretch(1);
        }
        Under->addWidget(new QLabel(Marks.at(Index)));
    }
    Under->addSpacing(Value->minimumWidth() + 8);
    Column->addLayout(Under);
    return Slider;
}

QPushButton* OptionsDialog::AddColour(QVBoxLayout* Column, const QString& Name, const QString& Caption,
                                      std::int32_t OptionsForm::*Field, std::int32_t Usual) {
    auto* Button = new QPushButton;
    Button->setObjectName(Name);
    Button->setAutoDefault(false);
    auto* Back = new QPushButton(tr("Skin's own"));
    Back->setObjectName(Name + QLatin1String("Reset"));
    Back->setAutoDefault(false);
    const auto Show = [this, Button, Back, Field, Usual] {
        const std::int32_t Own = Editor.Form.*Field;
        QPixmap Sample(32, 16);
        Sample.fill(ColourOf(Own >= 0 ? Own : Usual));
        Button->setIcon(Sample);
        Button->setText(Own >= 0 ? ColourOf(Own).name() : tr("as the skin has it"));
        Back->setEnabled(Own >= 0);
    };
    Show();
    connect(Button, &QPushButton::clicked, this, [this, Field, Usual, Caption, Show] {
        const std::int32_t Own = Editor.Form.*Field;
        const QColor Chosen = QColorDialog::getColor(ColourOf(Own >= 0 ? Own : Usual), this, Caption);
        if (Chosen.isValid()) {
            Editor.Form.*Field = ValueOf(Chosen);
            Show();
        }
    });
    connect(Back, &QPushButton::clicked, this, [this, Field, Show] {
        Editor.Form.*Field = -1;
        Show();
    });
    auto* Label = new QLabel(Caption);
    Label->setBuddy(Button);
    Button->setAccessibleName(QString(Caption).remove(QLatin1Char(':')));
    auto* Row = new QHBoxLayout;
    Row->addWidget(Label, 1);
    Row->addWidget(Button);
    Row->addWidget(Back);
    Column->addLayout(Row);
    return Button;
}

// --- Tabs -----------------------------------------------------------------------------------------------------------

void OptionsDialog::BuildComputer() {
    QVBoxLayout* Column = AddTab(tr("Computer"), 0);
    auto* Strength = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Strength "))->layout());
    AddSlider(Strength, QStringLiteral("Slider2"), {tr("Easy"), tr("Medium"), tr("Hard")}, 1, view::StrongestSlider,
              &OptionsForm::Strength, tr("Strength"));
    auto* Level = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Level "))->layout());

    const auto AddLimit = [&](const QString& Name, const QString& Caption, const QString& Slider, const QString& Tip,
                              const QStringList& Marks, int Highest, std::int32_t OptionsForm::*Field,
                              bool (*Enabled)(const OptionsForm&)) {
        auto* Box = new QCheckBox;
        Box->setObjectName(Name);
        Box->setAccessibleName(Tip);
        Box->setToolTip(Tip);
        auto* Inside = new QWidget;
        auto* Rows = new QVBoxLayout(Inside);
        Rows->setContentsMargins(0, 0, 0, 0);
        auto* Label = new QLabel(Caption);
        Rows->addWidget(Label);
        QSlider* Bar = AddSlider(Rows, Slider, Marks, 1, Highest, Field, QString(Caption).remove(QLatin1Char(':')));
        Label->setBuddy(Bar);
        auto* Row = new QHBoxLayout;
        Row->addWidget(Box, 0, Qt::AlignTop);
        Row->addWidget(Inside, 1);
        Level->addLayout(Row);
        Dependent.push_back({Inside, Enabled});
        return std::pair(Box, Bar);
    };
    const auto [DepthBox, DepthBar] =
        AddLimit(QStringLiteral("Check1"), tr("Depth:"), QStringLiteral("Slider4"), tr("Limit the computer by depth"),
                 {QStringLiteral("1"), QStringLiteral("10"), QStringLiteral("20")}, view::DeepestSlider,
                 &OptionsForm::Depth, ByDepthLimit);
    DepthBar->setPageStep(2);
    DepthBar->setTickInterval(1);
    const auto [TimeBox, TimeBar] =
        AddLimit(QStringLiteral("Check2"), tr("Time:"), QStringLiteral("Slider1"), tr("Limit the computer by time"),
                 {QStringLiteral("1"), QStringLiteral("90"), QStringLiteral("180")}, view::LongestSlider,
                 &OptionsForm::Time, ByTimeLimit);
    TimeBar->setTickInterval(15);
    ByDepth = DepthBox;
    ByTime = TimeBox;
    // One of the two is always on: to put off the one is to put on the other, unless it is the last.
    connect(ByDepth, &QCheckBox::clicked, this, [this] {
        Editor.Form.ByDepth = true;
        ShowForm();
    });
    connect(ByTime, &QCheckBox::clicked, this, [this] {
        Editor.Form.ByDepth = false;
        ShowForm();
    });
    Column->addStretch(1);
}

void OptionsDialog::BuildBoard() {
    QVBoxLayout* Column = AddTab(tr("Board"), 1);
    auto* Misc = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Misc "))->layout());
    AddTicks(Misc, OptionsTab::Board, " Misc ");
    auto* Signs = new QHBoxLayout;
    Signs->addWidget(new QLabel(tr("Capture character:")));
    auto* Group = new QButtonGroup(this);
    const QString Captions[] = {QStringLiteral("X"), QStringLiteral(":")};
    for (int Index = 0; Index < 2; ++Index) {
        auto* Button = new QRadioButton(Captions[Index]);
        Button->setObjectName(QStringLiteral("Option1(%1)").arg(Index));
        Button->setAccessibleName(tr("Capture character %1").arg(Captions[Index]));
        Button->setChecked(Editor.Form.ColonCapture == (Index == 1));
        Group->addButton(Button);
        connect(Button, &QRadioButton::clicked, this, [this, Index] { Editor.Form.ColonCapture = Index == 1; });
        Signs->addWidget(Button);
    }
    Signs->addStretch(1);
    Misc->addLayout(Signs);

    auto* Skin = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Skin "))->layout());
    auto* Label = new QLabel(tr("Choose a skin:"));
    auto* Skins = new QComboBox;
    Skins->setObjectName(QStringLiteral("Combo1"));
    Skins->setAccessibleName(tr("Choose a skin"));
    Explain(Skins, tr("The look of the board and the pieces. A skin is taken at once, so that you can look at it."));
    Label->setBuddy(Skins);
    for (const std::string& Name : Editor.Skins()) {
        Skins->addItem(Text(Name));
    }
    Skins->setCurrentText(Text(Editor.Form.SkinName));
    connect(Skins, &QComboBox::activated, this,
            [this, Skins](int Index) { Editor.Combo1_Click(Skins->itemText(Index).toStdString()); });
    Skin->addWidget(Label);
    Skin->addWidget(Skins);
    auto* Colours = static_cast<QVBoxLayout*>(AddFrame(Column, tr("Colours of Highlights"))->layout());
    AddColour(Colours, QStringLiteral("DarkHighlight"), tr("On dark squares:"), &OptionsForm::DarkHighlight,
              view::UsualDarkHighlight);
    AddColour(Colours, QStringLiteral("LightHighlight"), tr("On light squares:"), &OptionsForm::LightHighlight,
              view::UsualLightHighlight);
    Column->addStretch(1);
}

void OptionsDialog::BuildEngine() {
    QVBoxLayout* Column = AddTab(tr("Engine"), 2);
    auto* Search = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Search "))->layout());
    AddTick(Search, view::OptionTicks()[2]);
    const auto Numbers = {
        std::tuple("Text2", "Label15", tr("Plys (default=3) :"), &OptionsForm::Plys,
                   tr("How many half-moves deeper lines are looked into, from 1 to 6.")),
        std::tuple("Text3", "Label16", tr("Balance (default=150) :"), &OptionsForm::Balance,
                   tr("How far from balance a line may be to be looked into, in hundredths of a man, from 1 to 750.")),
    };
    for (const auto& [Name, LabelName, Caption, Field, Tip] : Numbers) {
        QLineEdit* Box = AddNumber(Search, QLatin1String(Name), QLatin1String(LabelName), Caption, Field, Tip);
        Dependent.push_back({Box, Extended});
    }
    AddTick(Search, view::OptionTicks()[3]);
    AddNumber(Search, QStringLiteral("Text4"), QStringLiteral("Label17"), tr("Ply Value Table Search :"),
              &OptionsForm::PlyValueDepth,
              tr("How deep the table of ply values and the search for problems look, from 1 to 20 half-moves."));

    auto* Draw = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Draw "))->layout());
    const auto Rows = view::OptionTicks();
    AddTick(Draw, Rows[4]);
    auto* Limits = new QHBoxLayout;
    Limits->addSpacing(22);
    auto* Label = new QLabel(tr("Number of moves in 50 move rule:"));
    Label->setObjectName(QStringLiteral("Label13"));
    Dependent.push_back({Label, ChessRules});
    Limits->addWidget(Label);
    auto* Group = new QButtonGroup(this);
    for (const view::MoveLimitRow& Row : view::MoveLimitRows()) {
        auto* Button = new QRadioButton(Text(Row.Caption));
        Button->setObjectName(Text(Row.Name));
        Button->setAccessibleName(tr("%1 moves").arg(Button->text()));
        Button->setChecked(Editor.Form.MoveLimitChoice == Row.Code);
        Group->addButton(Button);
        Dependent.push_back({Button, ChessRules});
        connect(Button, &QRadioButton::clicked, this, [this, Code = Row.Code] { Editor.Form.MoveLimitChoice = Code; });
        Limits->addWidget(Button);
    }
    Limits->addStretch(1);
    Draw->addLayout(Limits);
    AddTick(Draw, Rows[5]);
    AddTick(Draw, Rows[6]);
    Column->addStretch(1);
}

void OptionsDialog::BuildMisc() {
    QVBoxLayout* Column = AddTab(tr("Misc"), 3);
    auto* Book = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Book "))->layout());
    AddTicks(Book, OptionsTab::Misc, " Book ");
    auto* Misc = static_cast<QVBoxLayout*>(AddFrame(Column, QStringLiteral(" Misc "))->layout());
    auto* Label = new QLabel(tr("Your Name:"));
    auto* Name = new QLineEdit(Text(Editor.Form.PlayerName));
    Name->setObjectName(QStringLiteral("Text1"));
    Name->setAccessibleName(tr("Your Name"));
    Name->setMaxLength(LongestName);
    Label->setBuddy(Name);
    connect(Name, &QLineEdit::textEdited, this,
            [this](const QString& Typed) { Editor.Form.PlayerName = Typed.toStdString(); });
    auto* NameRow = new QHBoxLayout;
    NameRow->addWidget(Label);
    NameRow->addWidget(Name, 1);
    Misc->addLayout(NameRow);
    auto* SecondLabel = new QLabel(tr("Second Player:"));
    auto* Second = new QLineEdit(Text(Editor.Form.SecondName));
    Second->setObjectName(QStringLiteral("SecondName"));
    Second->setAccessibleName(tr("Second Player"));
    Second->setMaxLength(LongestName);
    Explain(Second, tr("Who plays against you in Player-Player; left empty, both have your name."));
    SecondLabel->setBuddy(Second);
    connect(Second, &QLineEdit::textEdited, this,
            [this](const QString& Typed) { Editor.Form.SecondName = Typed.toStdString(); });
    auto* SecondRow = new QHBoxLayout;
    SecondRow->addWidget(SecondLabel);
    SecondRow->addWidget(Second, 1);
    Misc->addLayout(SecondRow);
    AddTicks(Misc, OptionsTab::Misc, " Misc ");

    // The rating is told by its box, and put back beside it.
    QCheckBox* Rating = nullptr;
    QCheckBox* Sound = nullptr;
    for (const BoundTick& Each : Ticks) {
        Rating = Each.Row->Name == "Check16" ? Each.Box : Rating;
        Sound = Each.Row->Name == "Check18" ? Each.Box : Sound;
    }
    Rating->setText(Text(Editor.RatingCaption()));
    auto* Reset = new QPushButton(tr("Reset"));
    Reset->setObjectName(QStringLiteral("Command1"));
    Reset->setAutoDefault(false);
    Reset->setAccessibleName(tr("Reset the rating"));
    connect(Reset, &QPushButton::clicked, this, [this, Rating] {
        Editor.Command1_Click();
        Rating->setText(Text(Editor.RatingCaption()));
    });
    auto* RatingRow = new QHBoxLayout;
    const int Place = Misc->indexOf(Rating);
    Misc->removeWidget(Rating);
    RatingRow->addWidget(Rating, 1);
    RatingRow->addWidget(Reset);
    Misc->insertLayout(Place, RatingRow);

    auto* Volume = new QSlider(Qt::Horizontal);
    Volume->setObjectName(QStringLiteral("Volume"));
    Volume->setAccessibleName(tr("Volume"));
    Volume->setRange(0, 100);
    Volume->setValue(Editor.Form.Volume);
    Dependent.push_back({Volume, WithSound});
    connect(Volume, &QSlider::valueChanged, this, [this](int Now) { Editor.Form.Volume = Now; });
    auto* SoundRow = new QHBoxLayout;
    const int SoundPlace = Misc->indexOf(Sound);
    Misc->removeWidget(Sound);
    SoundRow->addWidget(Sound);
    SoundRow->addSpacing(12);
    SoundRow->addWidget(new QLabel(tr("Volume:")));
    SoundRow->addWidget(Volume, 1);
    Misc->insertLayout(SoundPlace, SoundRow);
    Column->addStretch(1);
}

void OptionsDialog::BuildButtons(QVBoxLayout* Column) {
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
    Buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    Buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    Buttons->button(QDialogButtonBox::Apply)->setObjectName(QStringLiteral("cmdApply"));
    connect(Buttons, &QDialogButtonBox::accepted, this, [this] {
        Editor.cmdApply_Click();
        accept();
    });
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(Buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, [this] { Editor.cmdApply_Click(); });
    Column->addWidget(Buttons);
}

// --- What it shows --------------------------------------------------------------------------------------------------

void OptionsDialog::ShowForm() {
    for (const BoundTick& Each : Ticks) {
        Each.Box->setChecked(Editor.Form.*Each.Row->Field);
        Each.Box->setEnabled(Each.Row->Enabled == nullptr || Each.Row->Enabled(Editor.Form));
    }
    ByDepth->setChecked(Editor.Form.ByDepth);
    ByTime->setChecked(!Editor.Form.ByDepth);
    for (const BoundWidget& Each : Dependent) {
        Each.Widget->setEnabled(Each.Enabled(Editor.Form));
        if (auto* Box = qobject_cast<QLineEdit*>(Each.Widget)) {
            for (auto* Label : findChildren<QLabel*>()) {
                if (Label->buddy() == Box) {
                    Label->setEnabled(Box->isEnabled());
                }
            }
        }
    }
}

void OptionsDialog::NextTab() {
    Tabs->setCurrentIndex((Tabs->currentIndex() + 1) % Tabs->count());
}

void OptionsDialog::keyPressEvent(QKeyEvent* Event) {
    if (Event->key() == Qt::Key_Tab && Event->modifiers() == Qt::ControlModifier) {
        NextTab();
        return;
    }
    QDialog::keyPressEvent(Event);
}

} // namespace zonterbrook::ui
