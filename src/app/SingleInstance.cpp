#include "app/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QWindow>

#include "framework/Log.h"

namespace zt {

bool SingleInstance::claim() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface())
        return true;
    bus.registerObject(kPath, this, QDBusConnection::ExportAllSlots);
    const auto owned =
        bus.interface()->registerService(kService, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (owned.isValid() && owned.value() == QDBusConnectionInterface::ServiceRegistered)
        return true;
    bus.unregisterObject(kPath);

    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.Application", "Activate");
    call << QVariantMap{};
    const QDBusMessage reply = bus.call(call, QDBus::Block, 5000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        warn("another ZebTools holds " + std::string(kService) + " but did not answer (" +
             reply.errorMessage().toStdString() + "); starting anyway");
        return true;
    }
    log("ZebTools is already running: its window was raised");
    return false;
}

void SingleInstance::Activate(const QVariantMap&) {
    log("raised by another launch");
    if (!window_)
        return;
    window_->show();
    window_->raise();
    window_->requestActivate();
}

}  // namespace zt
