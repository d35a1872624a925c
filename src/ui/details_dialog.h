// The dialog `dlgDetails`: what is told of a game beside its moves.
#pragma once

#include "game/details.h"

#include <QDialog>

#include <functional>

class QLineEdit;

namespace zonterbrook::ui {

class DetailsDialog : public QDialog {
    Q_OBJECT

public:
    using StoreFunction = std::function<void(const game::Details&)>;

    /// `Store` is called by OK and by Apply.
    DetailsDialog(QWidget* Parent, const game::Details& Details, StoreFunction InStore);

private:
    QLineEdit* AddBox(QWidget* Frame, const QString& Name, const QString& Caption, const std::string& Value);
    void Apply();

    game::Details Before;
    StoreFunction Store;
    QLineEdit* Event;
    QLineEdit* Site;
    QLineEdit* Date;
    QLineEdit* Black;
    QLineEdit* White;
};

} // namespace zonterbrook::ui
