// The rules window `frmRules` and the about box `frmAbout`.
#pragma once

#include "control/platform.h"

#include <QDialog>
#include <QLabel>

#include <functional>

namespace zonterbrook::ui {

/// A text that opens something, and shows so while the mouse is on it or the keyboard has it.
class LinkLabel : public QLabel {
    Q_OBJECT

public:
    explicit LinkLabel(const QString& Caption, QWidget* Parent = nullptr);

signals:
    void Clicked();

protected:
    void enterEvent(QEnterEvent* Event) override;
    void leaveEvent(QEvent* Event) override;
    void mouseReleaseEvent(QMouseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void focusInEvent(QFocusEvent* Event) override;
    void focusOutEvent(QFocusEvent* Event) override;

private:
    void Colour(bool Touched);
};

using OpenFunction = std::function<void(const QString& Target)>;

class RulesDialog : public QDialog {
    Q_OBJECT

public:
    RulesDialog(QWidget* Parent, const control::RulesPage& Page, const OpenFunction& Open);
};

class AboutDialog : public QDialog {
    Q_OBJECT

public:
    AboutDialog(QWidget* Parent, const OpenFunction& Open);
};

} // namespace zonterbrook::ui
