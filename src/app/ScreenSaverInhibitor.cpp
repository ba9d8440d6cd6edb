#include "app/ScreenSaverInhibitor.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>

namespace zt {

namespace {
// Calls a method of the session's screensaver; an invalid message when
// there is no bus or no screensaver.
QDBusMessage callScreenSaver(const QString& method, const QList<QVariant>& args) {
    QDBusInterface iface(QStringLiteral("org.freedesktop.ScreenSaver"),
                         QStringLiteral("/org/freedesktop/ScreenSaver"),
                         QStringLiteral("org.freedesktop.ScreenSaver"),
                         QDBusConnection::sessionBus());
    if (!iface.isValid())
        return QDBusMessage();
    iface.setTimeout(500);
    return iface.callWithArgumentList(QDBus::Block, method, args);
}
}  // namespace

void ScreenSaverInhibitor::inhibit() {
    if (cookie_ || !QDBusConnection::sessionBus().isConnected())
        return;
    QDBusReply<quint32> reply =
        callScreenSaver(QStringLiteral("Inhibit"),
                        {QStringLiteral("zebtools"), QStringLiteral("Tuning and practice")});
    if (reply.isValid())
        cookie_ = reply.value();
}

void ScreenSaverInhibitor::release() {
    if (!cookie_)
        return;
    callScreenSaver(QStringLiteral("UnInhibit"), {cookie_});
    cookie_ = 0;
}

}  // namespace zt
