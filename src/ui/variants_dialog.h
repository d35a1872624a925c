// The dialog of the variants `dlgVariants`: a list to find one in, what the chosen one is like, and all of its rules.
//
// It binds widgets to the form of a `VariantEditor` and decides nothing.
#pragma once

#include "control/variant_editor.h"
#include "ui/artwork.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTextBrowser;

namespace zonterbrook::ui {

class BoardPreview;

class VariantsDialog : public QDialog {
    Q_OBJECT

public:
    /// Both must live as long as this.
    VariantsDialog(QWidget* Parent, control::VariantEditor& InEditor, Artwork& Art);

signals:
    void ManualWanted();

private:
    QWidget* BuildChoice();
    QWidget* BuildPortrait(Artwork& Art);
    QWidget* BuildRules();
    QWidget* BuildButtons();
    QGroupBox* BuildFrame(view::RuleFrame Frame);
    QGroupBox* BuildPromotions();
    QGroupBox* BuildMovements();
    QLineEdit* BuildBox(const QString& Name, view::EntryBox& Entry, std::string_view Key, const QString& Says,
                        int Letters);
    void OrderTabs();

    /// Runs a click; then the widgets follow the form, and the dialog goes if the program does.
    template <typename Click>
    void Do(Click&& What);
    void ShowForm();
    void ShowChosen();
    void ShowWarnings();
    void ShowConcerned(const QListWidgetItem* Line);
    QWidget* ConcernedBy(const std::string& Key) const;
    void ListFolder();
    void Narrow();
    void ChooseListed();
    void SaveAsUserVariant();
    void DrawTypedSeed();

    struct Bound {
        QLineEdit* Box;
        view::EntryBox* Entry;
        std::string_view Key;
    };

    control::VariantEditor& Editor;
    bool Showing = false;
    QComboBox* Combo = nullptr;
    QRadioButton* Classic = nullptr;
    QRadioButton* User = nullptr;
    QLineEdit* Filter = nullptr;
    QListWidget* List = nullptr;
    QLabel* Count = nullptr;
    QLabel* Title = nullptr;
    QLabel* State = nullptr;
    QLabel* RulesLine = nullptr;
    QTextBrowser* Help = nullptr;
    BoardPreview* Preview = nullptr;
    QTabWidget* Tabs = nullptr;
    QListWidget* Warnings = nullptr;
    QLineEdit* SeedBox = nullptr;
    QPushButton* Delete = nullptr;
    std::array<QCheckBox*, view::HighestTick + 1> Ticks{};
    std::array<QLabel*, view::HighestNumber + 1> NumberLabels{};
    std::vector<Bound> Boxes;
};

} // namespace zonterbrook::ui
