// The manual in a window of its own.
#include "ui/manual_window.h"

#include "ui/palette.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

namespace zonterbrook::ui {

namespace {

constexpr QSize UsualSize(940, 660);
constexpr int ListWidth = 220;
const QString FirstPage = QStringLiteral("manual.md");

// A heading as a link names it: lower case, hyphens for blanks, nothing else but letters and digits.
QString AnchorOf(const QString& Heading) {
    QString Anchor;
    for (const QChar C : Heading.toLower()) {
        Anchor += C.isLetterOrNumber() || C == QLatin1Char('-') ? QString(C) : C.isSpace() ? QStringLiteral("-") : "";
    }
    return Anchor;
}

} // namespace

ManualWindow::ManualWindow(QWidget* Parent, const QString& InFolder, std::function<void(const QString&)> InOpen)
    : QDialog(Parent), Folder(InFolder), Open(std::move(InOpen)), Headings(new QListWidget), Page(new QTextBrowser),
      Words(new QLineEdit) {
    setObjectName(QStringLiteral("frmManual"));
    setWindowTitle(tr("Zonterbrook Manual"));
    Headings->setObjectName(QStringLiteral("Headings"));
    Headings->setAccessibleName(tr("Contents"));
    Page->setObjectName(QStringLiteral("Page"));
    Page->setAccessibleName(tr("Manual"));
    Page->setOpenLinks(false);
    Page->setSearchPaths({Folder});
    Words->setObjectName(QStringLiteral("Find"));
    Words->setAccessibleName(tr("Find in the manual"));
    Words->setPalette(DesktopPalette());
    Words->setPlaceholderText(tr("Find in the manual"));
    Words->setClearButtonEnabled(true);
    auto* Previous = new QToolButton;
    Previous->setText(tr("Previous"));
    Previous->setAccessibleName(tr("Find previous"));
    auto* Next = new QToolButton;
    Next->setText(tr("Next"));
    Next->setAccessibleName(tr("Find next"));
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    Buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);

    auto* Top = new QHBoxLayout;
    Top->addWidget(Words, 1);
    Top->addWidget(Previous);
    Top->addWidget(Next);
    auto* Halves = new QSplitter;
    Halves->addWidget(Headings);
    Halves->addWidget(Page);
    Halves->setSizes({ListWidth, UsualSize.width() - ListWidth});
    Halves->setStretchFactor(1, 1);
    auto* Column = new QVBoxLayout(this);
    Column->addLayout(Top);
    Column->addWidget(Halves, 1);
    Column->addWidget(Buttons);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(Words, &QLineEdit::returnPressed, this, [this] { Find(false); });
    connect(Words, &QLineEdit::textEdited, this, [this] {
        Page->moveCursor(QTextCursor::Start);
        Find(false);
    });
    connect(Next, &QToolButton::clicked, this, [this] { Find(false); });
    connect(Previous, &QToolButton::clicked, this, [this] { Find(true); });
    connect(Page, &QTextBrowser::anchorClicked, this, &ManualWindow::Follow);
    connect(Headings, &QListWidget::currentTextChanged, this, &ManualWindow::GoTo);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, Words, qOverload<>(&QWidget::setFocus));
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, [this] { Find(false); });
    Load(FirstPage);
    Page->setFocus();
    resize(UsualSize);
}

void ManualWindow::Load(const QString& Name) {
    QFile File(QDir(Folder).filePath(Name));
    if (!File.open(QIODevice::ReadOnly)) {
        Page->setPlainText(tr("The manual is not where it should be: %1").arg(File.fileName()));
        return;
    }
    Page->document()->setBaseUrl(QUrl::fromLocalFile(File.fileName()));
    Page->setMarkdown(QString::fromUtf8(File.readAll()));
    ListHeadings();
    Page->moveCursor(QTextCursor::Start);
}

void ManualWindow::ListHeadings() {
    const QSignalBlocker Quiet(Headings);
    Headings->clear();
    for (QTextBlock Block = Page->document()->begin(); Block.isValid(); Block = Block.next()) {
        const int Level = Block.blockFormat().headingLevel();
        if (Level == 1 || Level == 2 || Level == 3) {
            Headings->addItem(QString(qsizetype{2} * (Level - 1), QLatin1Char(' ')) + Block.text());
        }
    }
}

void ManualWindow::GoTo(const QString& Heading) {
    const QString Wanted = AnchorOf(Heading.trimmed());
    for (QTextBlock Block = Page->document()->begin(); Block.isValid() && !Wanted.isEmpty(); Block = Block.next()) {
        if (Block.blockFormat().headingLevel() > 0 && AnchorOf(Block.text()) == Wanted) {
            // From the end upward, so that the heading comes to stand at the top.
            Page->moveCursor(QTextCursor::End);
            Page->setTextCursor(QTextCursor(Block));
            return;
        }
    }
}

void ManualWindow::Find(bool Backward) {
    if (Words->text().isEmpty()) {
        return;
    }
    const auto Way = Backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool Found = Page->find(Words->text(), Way);
    if (!Found) {
        // Once round.
        Page->moveCursor(Backward ? QTextCursor::End : QTextCursor::Start);
        Found = Page->find(Words->text(), Way);
    }
    Words->setStyleSheet(Found ? QString() : QStringLiteral("color: #c62828;"));
}

void ManualWindow::Follow(const QUrl& Link) {
    const QString Name = Link.path();
    if (Name.isEmpty() || QFileInfo(Name).fileName() == FirstPage) {
        GoTo(Link.fragment());
    } else if (Name.endsWith(QLatin1String(".md")) && Link.isRelative()) {
        Load(Name);
        GoTo(Link.fragment());
    } else {
        Open(Link.toString());
    }
}

} // namespace zonterbrook::ui
