// Keeps the rules in hand as a variant of the person's own: its name, its help, its start position.
#pragma once

#include "control/variant_editor.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace zonterbrook::ui {

class OwnVariantDialog : public QDialog {
    Q_OBJECT

public:
    OwnVariantDialog(QWidget* Parent, control::VariantEditor& InEditor);

private:
    void Save();

    control::VariantEditor& Editor;
    QLineEdit* Name;
    QPlainTextEdit* Help;
    QCheckBox* Position;
    QLabel* Complaint;
};

} // namespace zonterbrook::ui
