// The window as a screen reader meets it: what stands in its tree, under which names, in which state.
#pragma once

#include "window_hands.h"

#include <QAccessible>
#include <QObject>

namespace zonterbrook::tests {

class ScreenReaderTest : public QObject, private WindowHands {
    Q_OBJECT

private slots:
    void init() { Open(); }
    void cleanup() { Close(); }

    void BoardIsATable();
    void CellsSayWhatIsOnThem();
    void CellsStandWhereTheyAreSeen();
    void ReaderHearsOfTheCursor();
    void ReaderHearsOfChanges();
    void ReaderCanPressACell();
    void EverythingIsFound();
    void EntriesFollowEvents_data();
    void EntriesFollowEvents();

private:
    QAccessibleInterface* BoardTable() { return QAccessible::queryAccessibleInterface(&Window->BoardOf()); }
    QString Says(const char* Square) {
        return BoardTable()->child(view::CellOfSquare(Game(), SquareNamed(Square)))->text(QAccessible::Name);
    }
};

} // namespace zonterbrook::tests
