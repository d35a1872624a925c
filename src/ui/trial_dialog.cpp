// Tries a rule set out.
#include "ui/trial_dialog.h"

#include "base/fault.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QVBoxLayout>

namespace zonterbrook::ui {

namespace {

constexpr int UsualGames = 20;
constexpr int MostGames = 1000;
constexpr int UsualDepth = 3;
constexpr int DeepestTrial = 8;
constexpr QSize UsualSize(480, 380);

} // namespace

TrialDialog::TrialDialog(QWidget* Parent, const control::VariantEditor& InEditor)
    : QDialog(Parent), Editor(InEditor), Games(new QSpinBox), Depth(new QSpinBox), Bar(new QProgressBar),
      Words(new QLabel), StartButton(new QPushButton(tr("&Start"))), StopButton(new QPushButton(tr("Cancel"))) {
    setObjectName(QStringLiteral("dlgTrial"));
    setWindowTitle(tr("Try It Out"));
    Games->setObjectName(QStringLiteral("Games"));
    Games->setRange(1, MostGames);
    Games->setValue(UsualGames);
    Games->setAccessibleName(tr("Games"));
    Depth->setObjectName(QStringLiteral("Depth"));
    Depth->setRange(1, DeepestTrial);
    Depth->setValue(UsualDepth);
    Depth->setAccessibleName(tr("Depth in half-moves"));
    Bar->setObjectName(QStringLiteral("Progress"));
    Bar->setAccessibleName(tr("Games played"));
    Bar->setValue(0);
    Words->setObjectName(QStringLiteral("Words"));
    Words->setWordWrap(true);
    Words->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Words->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    Words->setText(tr("The computer plays these rules against itself, four half-moves of each game drawn by lot, and "
                      "tells who wins, how long a game takes and what it is like."));
    StartButton->setObjectName(QStringLiteral("Start"));
    StopButton->setObjectName(QStringLiteral("CancelButton"));
    StopButton->setEnabled(false);
    auto* Numbers = new QFormLayout;
    Numbers->addRow(tr("&Games:"), Games);
    Numbers->addRow(tr("&Depth in half-moves:"), Depth);
    auto* Buttons = new QDialogButtonBox;
    Buttons->addButton(StartButton, QDialogButtonBox::ActionRole);
    Buttons->addButton(StopButton, QDialogButtonBox::ActionRole);
    Buttons->addButton(QDialogButtonBox::Close);
    auto* Column = new QVBoxLayout(this);
    Column->addLayout(Numbers);
    Column->addWidget(Bar);
    Column->addWidget(Words, 1);
    Column->addWidget(Buttons);
    connect(StartButton, &QPushButton::clicked, this, &TrialDialog::Start);
    connect(StopButton, &QPushButton::clicked, this, [this] { Stopping = true; });
    connect(Buttons, &QDialogButtonBox::rejected, this, &TrialDialog::reject);
    resize(UsualSize);
}

bool TrialDialog::LetWindowWork() const {
    QCoreApplication::processEvents();
    return !Stopping;
}

void TrialDialog::Start() {
    const auto Survey = Editor.TryOut({Games->value(), Depth->value()}, [this] { return LetWindowWork(); });
    if (Survey == nullptr) {
        Words->setText(tr("One of the boxes holds no square or no direction."));
        return;
    }
    {
        const QScopedValueRollback AtWork(Running, true);
        Stopping = false;
        StartButton->setEnabled(false);
        StopButton->setEnabled(true);
        Bar->setRange(0, Games->value());
        Bar->setValue(0);
        try {
            while (Survey->PlayGame()) {
                Bar->setValue(Survey->Report().Games);
                Show(Survey->Report());
            }
        } catch (const base::Fault& Failure) {
            Words->setText(tr("A capture came up that is longer than the program can play: %1")
                               .arg(QString::fromUtf8(Failure.what())));
        }
        StartButton->setEnabled(true);
        StopButton->setEnabled(false);
    }
    if (Closing) {
        QDialog::reject();
    }
}

void TrialDialog::Show(const view::SurveyReport& Report) {
    QString Page;
    for (const std::string& Sentence : view::SurveyWords(Report)) {
        Page += QStringLiteral("<p>%1</p>").arg(QString::fromStdString(Sentence).toHtmlEscaped());
    }
    Words->setText(Page);
}

void TrialDialog::reject() {
    if (Running) {
        Stopping = true;
        Closing = true;
        return;
    }
    QDialog::reject();
}

} // namespace zonterbrook::ui
