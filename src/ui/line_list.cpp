// A list of lines: the game's moves, the moves that may be played, the root moves of a calculation.
//
// The lines are aligned with blanks, so they are set in the desktop's fixed-width font.
#include "ui/line_list.h"

#include <QEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace zonterbrook::ui {

LineList::LineList(const QString& Title, QWidget* Parent) : QListWidget(Parent), Heading(new QLabel(Title, this)) {
    Heading->setTextFormat(Qt::PlainText);
    Heading->setIndent(4);
    Heading->setAutoFillBackground(true);
    Heading->setBackgroundRole(QPalette::Button);
    Heading->setForegroundRole(QPalette::ButtonText);
    UseFixedWidthFont();
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setTextElideMode(Qt::ElideNone);
}

void LineList::UseFixedWidthFont() {
    QFont FixedWidth = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QFont Around = parentWidget() != nullptr ? parentWidget()->font() : font();
    FixedWidth.setPixelSize(QFontInfo(Around).pixelSize());
    setFont(FixedWidth);
    QFont Upright = Around;
    Upright.setFamily(QFontInfo(Around).family()); // or it would take the list's own
    Upright.setPixelSize(QFontInfo(Around).pixelSize());
    Heading->setFont(Upright);
    PlaceHeading();
}

// Within the list's frame, above its lines.
void LineList::PlaceHeading() {
    const int Height = Heading->fontMetrics().height() + 4;
    setViewportMargins(0, Height, 0, 0);
    const QRect Inside = contentsRect();
    Heading->setGeometry(Inside.left(), Inside.top(), Inside.width(), Height);
}

void LineList::resizeEvent(QResizeEvent* Event) {
    QListWidget::resizeEvent(Event);
    PlaceHeading();
}

// A list that is closed for a moment looks as before: only clicks are not taken.
void LineList::changeEvent(QEvent* Event) {
    QListWidget::changeEvent(Event);
    if (Event->type() == QEvent::PaletteChange || Event->type() == QEvent::ApplicationPaletteChange) {
        Heading->setPalette(palette());
    }
}

// The line of the move that was played is told by its weight and a sign beside it.
void LineList::Mark(int Row) {
    for (const int Each : {MarkedRow, Row}) {
        if (Each >= 0 && Each < count()) {
            QFont Weight = font();
            Weight.setBold(Each == Row);
            item(Each)->setFont(Weight);
        }
    }
    MarkedRow = Row;
}

void LineList::Display(const view::ListFields& Fields) {
    const QSignalBlocker Quiet(this);
    const int Wanted = static_cast<int>(Fields.Lines.size());
    while (count() > Wanted) {
        delete takeItem(count() - 1);
    }
    for (int Row = 0; Row < Wanted; ++Row) {
        const QString Line = QString::fromStdString(Fields.Lines[static_cast<std::size_t>(Row)]);
        if (Row >= count()) {
            addItem(Line);
        } else if (item(Row)->text() != Line) {
            item(Row)->setText(Line);
        }
    }
    const int Selected = Fields.Selected < Wanted ? Fields.Selected : -1;
    if (currentRow() != Selected) {
        setCurrentRow(Selected);
        if (Selected < 0) {
            clearSelection();
            scrollToTop(); // nothing is chosen any more: the beginning is
        }
    }
    if (Selected >= 0) {
        scrollToItem(item(Selected));
    }
    Mark(Fields.Marked);
}

void LineList::mouseReleaseEvent(QMouseEvent* Event) {
    QListWidget::mouseReleaseEvent(Event);
    if (Event->button() == Qt::LeftButton) {
        emit Released();
    }
}

void LineList::keyPressEvent(QKeyEvent* Event) {
    if (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter) {
        emit EnterPressed();
        return;
    }
    QListWidget::keyPressEvent(Event);
}

} // namespace zonterbrook::ui
