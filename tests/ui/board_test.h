// The board's widget by itself: where cells stand, what they look like, how the mouse is reported.
#pragma once

#include <QObject>

namespace zonterbrook::tests {

class BoardTest : public QObject {
    Q_OBJECT

private slots:
    void CellsStandWhereTheLayoutSays_data();
    void CellsStandWhereTheLayoutSays();
    void PicturesTellPiecesApart_data();
    void PicturesTellPiecesApart();
    void NoSeamsAtAnyScale_data();
    void NoSeamsAtAnyScale();
    void HighlightComesAndGoes_data();
    void HighlightComesAndGoes();
    void NumberIsPrinted();
    void MouseIsReportedToThePressedCell_data();
    void MouseIsReportedToThePressedCell();
    void LostReleaseDoesNotKeepTheCell();
    void PointerFollowsTheContents();
};

} // namespace zonterbrook::tests
