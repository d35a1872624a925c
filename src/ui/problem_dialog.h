// The window of a search for problems `frmProblem`: what has been found, a line each.
#pragma once

#include "control/problems.h"

#include <QDialog>

#include <optional>

class QPlainTextEdit;

namespace zonterbrook::ui {

class ProblemDialog : public QDialog {
    Q_OBJECT

public:
    ProblemDialog(QWidget* Parent, const std::vector<control::Finding>& Found);

    /// Shows it; the place of the finding that the person wants to see on the board, if any.
    std::optional<std::size_t> Choose();

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QPlainTextEdit* List;
    std::optional<std::size_t> Chosen;
};

} // namespace zonterbrook::ui
