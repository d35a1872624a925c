// Whether the desktop lets things move.
#pragma once

#include <QObject>

class QDBusPendingCallWatcher;

namespace zonterbrook::ui {

/// Asks the desktop once, without waiting for it: until it has answered, and where nobody answers, motion is wanted.
class DesktopMotion : public QObject {
    Q_OBJECT

public:
    explicit DesktopMotion(QObject* Parent = nullptr);

    /// False if the person has asked the desktop for reduced motion.
    bool Wanted() const;

private:
    void Answered(QDBusPendingCallWatcher* Call);

    bool Reduced = false;
};

} // namespace zonterbrook::ui
