// Whether the desktop lets things move.
//
// Desktops keep this in settings of their own, which the settings portal hands out on the session's bus.
#include "ui/motion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace zonterbrook::ui {

DesktopMotion::DesktopMotion(QObject* Parent) : QObject(Parent) {
    const QDBusConnection Bus = QDBusConnection::sessionBus();
    if (!Bus.isConnected()) {
        return;
    }
    QDBusMessage Question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    Question << QStringLiteral("org.gnome.desktop.interface") << QStringLiteral("enable-animations");
    auto* Call = new QDBusPendingCallWatcher(Bus.asyncCall(Question), this);
    connect(Call, &QDBusPendingCallWatcher::finished, this, &DesktopMotion::Answered);
}

void DesktopMotion::Answered(QDBusPendingCallWatcher* Call) {
    const QDBusPendingReply<QDBusVariant> Reply = *Call;
    if (!Reply.isError()) {
        // The value comes wrapped once more by portals of the first version.
        QVariant Value = Reply.value().variant();
        if (Value.canConvert<QDBusVariant>()) {
            Value = Value.value<QDBusVariant>().variant();
        }
        Reduced = Value.typeId() == QMetaType::Bool && !Value.toBool();
    }
    Call->deleteLater();
}

bool DesktopMotion::Wanted() const {
    return !Reduced;
}

} // namespace zonterbrook::ui
