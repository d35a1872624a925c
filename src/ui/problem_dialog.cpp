// The window of a search for problems.
#include "ui/problem_dialog.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>

namespace zonterbrook::ui {

namespace {

constexpr QSize UsualSize(760, 360);

} // namespace

ProblemDialog::ProblemDialog(QWidget* Parent, const std::vector<control::Finding>& Found)
    : QDialog(Parent), List(new QPlainTextEdit) {
    setObjectName(QStringLiteral("frmProblem"));
    setWindowTitle(QStringLiteral("Problems/Combinations"));
    List->setObjectName(QStringLiteral("Text1"));
    List->setAccessibleName(tr("Findings"));
    List->setReadOnly(true);
    List->setLineWrapMode(QPlainTextEdit::NoWrap);
    List->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    List->viewport()->installEventFilter(this);
    QString Lines;
    for (const control::Finding& Each : Found) {
        Lines += QString::fromStdString(Each.Text) + QLatin1Char('\n');
    }
    List->setPlainText(Lines);
    auto* Says = new QLabel(tr("Double-click a line to play it on the board; Restore Previous Game brings the game "
                               "back."));
    Says->setWordWrap(true);
    auto* Ok = new QPushButton(tr("Ok"));
    Ok->setObjectName(QStringLiteral("Command1"));
    Ok->setDefault(true);
    connect(Ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* Row = new QHBoxLayout;
    Row->addWidget(Says, 1);
    Row->addWidget(Ok);
    auto* Column = new QVBoxLayout(this);
    Column->addWidget(List, 1);
    Column->addLayout(Row);
    resize(UsualSize);
}

std::optional<std::size_t> ProblemDialog::Choose() {
    exec();
    return Chosen;
}

bool ProblemDialog::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched == List->viewport() && Event->type() == QEvent::MouseButtonDblClick) {
        const int Line = List->textCursor().blockNumber();
        if (!List->document()->findBlockByNumber(Line).text().isEmpty()) {
            Chosen = static_cast<std::size_t>(Line);
            accept();
            return true;
        }
    }
    return QDialog::eventFilter(Watched, Event);
}

} // namespace zonterbrook::ui
