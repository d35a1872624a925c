// The details of a game.
#include "ui/details_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace zonterbrook::ui {

namespace {

constexpr int BoxWidth = 320;

} // namespace

DetailsDialog::DetailsDialog(QWidget* Parent, const game::Details& Details, StoreFunction InStore)
    : QDialog(Parent), Before(Details), Store(std::move(InStore)) {
    setObjectName(QStringLiteral("dlgDetails"));
    setWindowTitle(QStringLiteral(" Game Details"));
    auto* Column = new QVBoxLayout(this);
    auto* Game = new QGroupBox(tr("Game"));
    auto* Players = new QGroupBox(tr("Players"));
    for (QGroupBox* Frame : {Game, Players}) {
        new QFormLayout(Frame);
        Column->addWidget(Frame);
    }
    Event = AddBox(Game, QStringLiteral("Text1"), tr("&Event:"), Details.Event);
    Site = AddBox(Game, QStringLiteral("Text2"), tr("&Site:"), Details.Site);
    Date = AddBox(Game, QStringLiteral("Text3"), tr("&Date:"), Details.Date);
    Black = AddBox(Players, QStringLiteral("Text4"), tr("&Black:"), Details.Black);
    White = AddBox(Players, QStringLiteral("Text5"), tr("&White:"), Details.White);
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
    Buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("OKButton"));
    Buttons->button(QDialogButtonBox::Apply)->setObjectName(QStringLiteral("Command1"));
    Buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("CancelButton"));
    connect(Buttons, &QDialogButtonBox::accepted, this, [this] {
        Apply();
        accept();
    });
    connect(Buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &DetailsDialog::Apply);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Column->addWidget(Buttons);
}

QLineEdit* DetailsDialog::AddBox(QWidget* Frame, const QString& Name, const QString& Caption,
                                 const std::string& Value) {
    auto* Box = new QLineEdit(QString::fromStdString(Value));
    Box->setObjectName(Name);
    Box->setMinimumWidth(BoxWidth);
    Box->setAccessibleName(QString(Caption).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    static_cast<QFormLayout*>(Frame->layout())->addRow(Caption, Box);
    return Box;
}

void DetailsDialog::Apply() {
    game::Details Now = Before;
    Now.Event = Event->text().toStdString();
    Now.Site = Site->text().toStdString();
    Now.Date = Date->text().toStdString();
    Now.Black = Black->text().toStdString();
    Now.White = White->text().toStdString();
    Store(Now);
}

} // namespace zonterbrook::ui
