#include "app/ScreenSaverInhibitor.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>

namespace zt {

void ScreenSaverInhibitor::inhibit() {
    if (cookie_ || !QDBusConnection::sessionBus().isConnected())
        return;
    QDBusInterface iface(QStringLiteral("org.freedesktop.ScreenSaver"),
                         QStringLiteral("/org/freedesktop/ScreenSaver"),
                         QStringLiteral("org.freedesktop.ScreenSaver"),
                         QDBusConnection::sessionBus());
    if (!iface.isValid())
        return;
    iface.setTimeout(500);
    QDBusReply<quint32> reply = iface.call(QStringLiteral("Inhibit"), QStringLiteral("zebtools"),
                                           QStringLiteral("Tuning and practice"));
    if (reply.isValid())
        cookie_ = reply.value();
}

void ScreenSaverInhibitor::release() {
    if (!cookie_)
        return;
    QDBusInterface iface(QStringLiteral("org.freedesktop.ScreenSaver"),
                         QStringLiteral("/org/freedesktop/ScreenSaver"),
                         QStringLiteral("org.freedesktop.ScreenSaver"),
                         QDBusConnection::sessionBus());
    iface.setTimeout(500);
    if (iface.isValid())
        iface.call(QStringLiteral("UnInhibit"), cookie_);
    cookie_ = 0;
}

}  // namespace zt
