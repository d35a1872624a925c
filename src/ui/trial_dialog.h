// Tries a rule set out: the computer plays it against itself, and the window tells what happens.
#pragma once

#include "control/variant_editor.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace zonterbrook::ui {

class TrialDialog : public QDialog {
    Q_OBJECT

public:
    TrialDialog(QWidget* Parent, const control::VariantEditor& InEditor);

public slots:
    /// Closes; a game that is being played stops first.
    void reject() override;

private:
    void Start();
    void Show(const view::SurveyReport& Report);
    bool LetWindowWork() const;

    const control::VariantEditor& Editor;
    bool Running = false;
    bool Stopping = false;
    bool Closing = false;
    QSpinBox* Games;
    QSpinBox* Depth;
    QProgressBar* Bar;
    QLabel* Words;
    QPushButton* StartButton;
    QPushButton* StopButton;
};

} // namespace zonterbrook::ui
