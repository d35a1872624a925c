// The window of the ply value table `frmPV`: the report, the curve of the values, and the road to each position.
#pragma once

#include "control/ply_values.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace zonterbrook::ui {

/// The value of each half-move at the shallowest and at the deepest ply, flagged rows marked.
class PlyCurve : public QWidget {
    Q_OBJECT

public:
    explicit PlyCurve(QWidget* Parent = nullptr);

    /// `InRows` must live as long as this.
    void Display(const std::vector<view::PlyRow>& InRows, int InDepth);

signals:
    void RowClicked(std::size_t Row);

protected:
    void paintEvent(QPaintEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;

private:
    QPointF Place(std::size_t Row, int Ply) const;

    const std::vector<view::PlyRow>* Rows = nullptr;
    int Depth = 1;
    double Edge = 1;
};

class PlyDialog : public QDialog {
    Q_OBJECT

public:
    PlyDialog(QWidget* Parent, control::PlyValueTool& InTool);

public slots:
    /// Closes; while the table is being built it ends that first.
    void reject() override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void Build();
    void ShowReport();
    void GoToLine();
    void SaveReport();

    control::PlyValueTool& Tool;
    bool Closing = false;
    QLabel* Says;
    QComboBox* Order;
    PlyCurve* Curve;
    QPlainTextEdit* Report;
    QPushButton* Close;
    QPushButton* Cancel;
    QPushButton* Save;
};

} // namespace zonterbrook::ui
