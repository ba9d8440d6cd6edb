#include "app/MusicPlayer.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDBusVariant>

#include "framework/Log.h"

namespace zt {

namespace {
const QString kPrefix = QStringLiteral("org.mpris.MediaPlayer2.");
const QString kPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString kPlayer = QStringLiteral("org.mpris.MediaPlayer2.Player");

QString playbackStatus(const QString& service) {
    QDBusInterface props(service, kPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                         QDBusConnection::sessionBus());
    props.setTimeout(500);
    QDBusReply<QDBusVariant> reply =
        props.call(QStringLiteral("Get"), kPlayer, QStringLiteral("PlaybackStatus"));
    return reply.isValid() ? reply.value().variant().toString() : QString();
}
}  // namespace

bool MusicPlayer::pauseIfPlaying() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface())
        return false;
    const QStringList services = bus.interface()->registeredServiceNames().value();
    for (const QString& service : services) {
        if (!service.startsWith(kPrefix) || playbackStatus(service) != QLatin1String("Playing"))
            continue;
        QDBusInterface player(service, kPath, kPlayer, bus);
        player.setTimeout(500);
        player.call(QStringLiteral("Pause"));
        paused_.append(service);
        log("Paused music player " + service.toStdString());
    }
    return !paused_.isEmpty();
}

void MusicPlayer::resume() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    for (const QString& service : std::as_const(paused_)) {
        QDBusInterface player(service, kPath, kPlayer, bus);
        player.setTimeout(500);
        player.call(QStringLiteral("Play"));
    }
    paused_.clear();
}

}  // namespace zt
