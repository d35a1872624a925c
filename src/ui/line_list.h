// A list of lines: the game's moves, the moves that may be played, the root moves of a calculation.
//
// Shows the lines and the selection that it is given, and reports what a person does with them.
#pragma once

#include "view/state.h"

#include <QLabel>
#include <QListWidget>

namespace zonterbrook::ui {

class LineList : public QListWidget {
    Q_OBJECT

public:
    /// `Title` stands above the lines, and stays there while they scroll.
    explicit LineList(const QString& Title, QWidget* Parent = nullptr);

    /// Shows the fields. Lines that stay are not touched, so that adding one to a thousand is no work.
    void Display(const view::ListFields& Fields);

    /// Takes over the size of the font around it.
    void UseFixedWidthFont();

signals:
    /// The mouse has been released on the list, or Enter pressed in it.
    void Released();
    void EnterPressed();

protected:
    void mouseReleaseEvent(QMouseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void changeEvent(QEvent* Event) override;

private:
    void PlaceHeading();
    void Mark(int Row);

    QLabel* Heading;
    int MarkedRow = -1;
};

} // namespace zonterbrook::ui
