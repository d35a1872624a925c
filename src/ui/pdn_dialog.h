// The chooser `dlgPDN`: the games of a PDN file in a list that can be sorted and narrowed while the file is still being
// looked through.
#pragma once

#include "control/platform.h"
#include "view/pdn_chooser.h"

#include <QDialog>

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTimer;
class QTreeView;

namespace zonterbrook::ui {

class PdnModel;

class PdnDialog : public QDialog {
    Q_OBJECT

public:
    PdnDialog(QWidget* Parent, formats::PdnIndex& Games, const QString& Title,
              const std::vector<std::string>& Variants);

    /// Shows the dialog until a game has been chosen; nothing if the person changes their mind.
    std::optional<control::PdnChoice> Choose();

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void Build();
    void GoOn();
    void ShowCount();
    void Narrow(const QString& Words);
    void SortBy(int Column);
    void Select(std::optional<std::size_t> Game);
    std::optional<std::size_t> SelectedGame() const;

    view::PdnChooser Chooser;
    PdnModel* Model;
    QTreeView* List = nullptr;
    QLineEdit* Words = nullptr;
    QLabel* Count = nullptr;
    QProgressBar* Bar = nullptr;
    QComboBox* OpenAs = nullptr;
    QPushButton* Ok = nullptr;
    QTimer* Work = nullptr;
};

} // namespace zonterbrook::ui
