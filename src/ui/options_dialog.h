// The dialog of the options `frmOptions`: four tabs of settings.
//
// It binds widgets to the form of an `OptionsEditor` and decides nothing.
#pragma once

#include "control/options.h"

#include <QDialog>

#include <array>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QTabWidget;
class QVBoxLayout;

namespace zonterbrook::ui {

class OptionsDialog : public QDialog {
    Q_OBJECT

public:
    OptionsDialog(QWidget* Parent, control::OptionsEditor& InEditor);

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    QVBoxLayout* AddTab(const QString& Caption, int Index);
    QGroupBox* AddFrame(QVBoxLayout* Column, const QString& Caption);
    void BuildComputer();
    void BuildBoard();
    void BuildEngine();
    void BuildMisc();
    void BuildButtons(QVBoxLayout* Column);
    void AddTicks(QVBoxLayout* Column, view::OptionsTab Tab, std::string_view Frame);
    void AddTick(QVBoxLayout* Column, const view::OptionTick& Row);
    QLineEdit* AddNumber(QVBoxLayout* Column, const QString& Name, const QString& LabelName, const QString& Caption,
                         std::string view::OptionsForm::*Field, const QString& Tip);
    QSlider* AddSlider(QVBoxLayout* Column, const QString& Name, const QStringList& Marks, int Lowest, int Highest,
                       std::int32_t view::OptionsForm::*Field, const QString& Says);
    QPushButton* AddColour(QVBoxLayout* Column, const QString& Name, const QString& Caption,
                           std::int32_t view::OptionsForm::*Field, std::int32_t Usual);
    void ShowForm();
    void NextTab();

    struct BoundTick {
        QCheckBox* Box;
        const view::OptionTick* Row;
    };
    struct BoundWidget {
        QWidget* Widget;
        bool (*Enabled)(const view::OptionsForm& Form);
    };

    control::OptionsEditor& Editor;
    QTabWidget* Tabs;
    QCheckBox* ByDepth = nullptr;
    QCheckBox* ByTime = nullptr;
    std::vector<BoundTick> Ticks;
    std::vector<BoundWidget> Dependent;
};

} // namespace zonterbrook::ui
