// Keeps the rules in hand as a variant of the person's own.
#include "ui/own_variant_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace zonterbrook::ui {

namespace {

constexpr QSize UsualSize(520, 400);

} // namespace

OwnVariantDialog::OwnVariantDialog(QWidget* Parent, control::VariantEditor& InEditor)
    : QDialog(Parent), Editor(InEditor), Name(new QLineEdit), Help(new QPlainTextEdit),
      Position(new QCheckBox(tr("Start from the position that I have set up"))), Complaint(new QLabel) {
    setObjectName(QStringLiteral("dlgOwnVariant"));
    setWindowTitle(tr("Save as User Variant"));
    auto* Rows = new QFormLayout(this);
    const QString Chosen = QString::fromStdString(Editor.Chosen());
    Name->setObjectName(QStringLiteral("VariantName"));
    Name->setText(Editor.ChosenIsUsers() ? Chosen : tr("My %1").arg(Chosen));
    Name->setAccessibleName(tr("Name"));
    Name->selectAll();
    Help->setObjectName(QStringLiteral("VariantHelp"));
    Help->setPlainText(QString::fromStdString(Editor.HelpText()));
    Help->setAccessibleName(tr("Help"));
    Help->setTabChangesFocus(true);
    Help->setToolTip(tr("What others should know of the rules. A line such as \"Origin: ...\" gets a heading, lines "
                        "that begin with \"- \" become a list."));
    Position->setObjectName(QStringLiteral("UsePosition"));
    Position->setVisible(Editor.HasSetUpPosition());
    Position->setChecked(Editor.HasSetUpPosition());
    Complaint->setObjectName(QStringLiteral("Complaint"));
    Complaint->setWordWrap(true);
    Rows->addRow(tr("&Name:"), Name);
    Rows->addRow(tr("&Help:"), Help);
    Rows->addRow(Position);
    Rows->addRow(Complaint);
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    Buttons->button(QDialogButtonBox::Save)->setObjectName(QStringLiteral("OKButton"));
    Buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("CancelButton"));
    connect(Buttons, &QDialogButtonBox::accepted, this, &OwnVariantDialog::Save);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Rows->addRow(Buttons);
    resize(UsualSize);
}

void OwnVariantDialog::Save() {
    const std::string Said =
        Editor.SaveUserVariant(Name->text().toStdString(), Help->toPlainText().toStdString(), Position->isChecked());
    Complaint->setText(QString::fromStdString(Said));
    if (Said.empty()) {
        accept();
    }
}

} // namespace zonterbrook::ui
