// The rules window and the about box.
#include "ui/rules_dialog.h"

#include "ui/help_page.h"
#include "ui/icons.h"
#include "view/move_lists.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace zonterbrook::ui {

namespace {

constexpr QSize RulesSize(560, 520);
constexpr int PictureSide = 96;
const QColor TouchedOnLight(198, 40, 40);
const QColor TouchedOnDark(239, 122, 114);

// The product's own lines of contact.
constexpr const char* MailAddress = "maintainers@zonterbrook.invalid";
constexpr const char* WebAddress = "https://zonterbrook.invalid/";

QString Text(std::string_view Words) {
    return QString::fromUtf8(Words.data(), static_cast<qsizetype>(Words.size()));
}

QPushButton* OkButton(QDialog* Dialog, const QString& Name) {
    auto* Ok = new QPushButton(QDialog::tr("Ok"));
    Ok->setObjectName(Name);
    Ok->setDefault(true);
    QObject::connect(Ok, &QPushButton::clicked, Dialog, &QDialog::accept);
    return Ok;
}

} // namespace

// --- A link ---------------------------------------------------------------------------------------------------------

LinkLabel::LinkLabel(const QString& Caption, QWidget* Parent) : QLabel(Caption, Parent) {
    setTextFormat(Qt::PlainText);
    if (Caption.isEmpty()) {
        return;
    }
    QFont Underlined = font();
    Underlined.setUnderline(true);
    setFont(Underlined);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    Colour(false);
}

void LinkLabel::Colour(bool Touched) {
    if (text().isEmpty()) {
        return;
    }
    QPalette Colours = QApplication::palette();
    const bool Dark = Colours.color(QPalette::Window).lightness() < 128;
    Colours.setColor(QPalette::WindowText,
                     Touched ? (Dark ? TouchedOnDark : TouchedOnLight) : Colours.color(QPalette::Link));
    setPalette(Colours);
}

void LinkLabel::enterEvent(QEnterEvent* /*Event*/) {
    Colour(true);
}

void LinkLabel::leaveEvent(QEvent* /*Event*/) {
    Colour(hasFocus());
}

void LinkLabel::focusInEvent(QFocusEvent* /*Event*/) {
    Colour(true);
}

void LinkLabel::focusOutEvent(QFocusEvent* /*Event*/) {
    Colour(false);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* Event) {
    if (Event->button() == Qt::LeftButton && rect().contains(Event->position().toPoint()) && !text().isEmpty()) {
        emit Clicked();
    }
}

void LinkLabel::keyPressEvent(QKeyEvent* Event) {
    const bool Opens = Event->key() == Qt::Key_Space || Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter;
    if (Opens && !text().isEmpty()) {
        emit Clicked();
        return;
    }
    QLabel::keyPressEvent(Event);
}

// --- The rules ------------------------------------------------------------------------------------------------------

RulesDialog::RulesDialog(QWidget* Parent, const control::RulesPage& Page, const OpenFunction& Open) : QDialog(Parent) {
    setObjectName(QStringLiteral("frmRules"));
    setWindowTitle(QStringLiteral(" Rules"));
    auto* Words = new QTextBrowser;
    Words->setObjectName(QStringLiteral("Label2"));
    Words->setAccessibleName(tr("Rules"));
    Words->setOpenLinks(false);
    const QString Heading = Text(Page.Heading).trimmed().toHtmlEscaped();
    Words->setHtml((Heading.isEmpty() ? QString() : QStringLiteral("<h2>%1</h2>").arg(Heading)) +
                   HelpAsPage(Page.Help));
    auto* Link = new LinkLabel(Text(Page.Link));
    Link->setObjectName(QStringLiteral("Label1"));
    connect(Link, &LinkLabel::Clicked, this, [Open, Target = Text(Page.Link)] { Open(Target); });
    auto* Row = new QHBoxLayout;
    Row->addWidget(Link);
    Row->addStretch(1);
    Row->addWidget(OkButton(this, QStringLiteral("Command1")));
    auto* Column = new QVBoxLayout(this);
    Column->addWidget(Words, 1);
    Column->addLayout(Row);
    resize(RulesSize);
}

// --- About ----------------------------------------------------------------------------------------------------------

AboutDialog::AboutDialog(QWidget* Parent, const OpenFunction& Open) : QDialog(Parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral(" About"));
    const QString Product = Text(view::ProductName);
    const qsizetype Blank = Product.indexOf(QLatin1Char(' '));
    auto* Picture = new QLabel;
    Picture->setPixmap(ProgramIcon().pixmap(QSize(PictureSide, PictureSide), devicePixelRatioF()));
    Picture->setAlignment(Qt::AlignCenter);
    auto* Name = new QLabel(Product.left(Blank));
    Name->setObjectName(QStringLiteral("lblTitle"));
    QFont Large = Name->font();
    Large.setPointSizeF(Large.pointSizeF() * 2.2);
    Large.setBold(true);
    Name->setFont(Large);
    auto* Version = new QLabel(tr("Version %1").arg(Product.mid(Blank + 1)));
    Version->setObjectName(QStringLiteral("lblVersion"));
    auto* Says = new QLabel(tr("Plays more than eighty variants of draughts on ten by ten squares."));
    Says->setObjectName(QStringLiteral("lblDescription"));
    auto* Column = new QVBoxLayout(this);
    Column->setContentsMargins(36, 24, 36, 18);
    Column->addWidget(Picture);
    for (QLabel* Each : {Name, Version, Says}) {
        Each->setAlignment(Qt::AlignCenter);
        Column->addWidget(Each);
    }
    Column->addSpacing(8);
    const std::pair<const char*, QString> Contacts[] = {
        {MailAddress, QLatin1String("mailto:") + QLatin1String(MailAddress)}, {WebAddress, QLatin1String(WebAddress)}};
    int Number = 1;
    for (const auto& [Caption, Target] : Contacts) {
        auto* Line = new LinkLabel(QLatin1String(Caption));
        Line->setObjectName(QStringLiteral("lblContact%1").arg(Number++));
        connect(Line, &LinkLabel::Clicked, this, [Open, Opened = Target] { Open(Opened); });
        Column->addWidget(Line, 0, Qt::AlignCenter);
    }
    Column->addSpacing(12);
    QPushButton* Ok = OkButton(this, QStringLiteral("cmdOK"));
    Column->addWidget(Ok, 0, Qt::AlignCenter);
    Ok->setFocus();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace zonterbrook::ui
