// A list of lines: the game's moves, the moves that may be played, the root moves of a calculation.
//
// Shows the lines and the selection that it is given, and reports what a person does with them.
#pragma once

#include "view/state.h"

#include <QListWidget>

namespace zonterbrook::ui {

class LineList : public QListWidget {
    Q_OBJECT

public:
    explicit LineList(QWidget* Parent = nullptr);

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
};

} // namespace zonterbrook::ui
