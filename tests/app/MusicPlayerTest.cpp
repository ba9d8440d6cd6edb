// Pausing the user's music at launch and resuming it at exit, against a
// player on a private session bus (the test runs under dbus-run-session).
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QObject>

#include "app/MusicPlayer.h"
#include "app/ScreenSaverInhibitor.h"

namespace {

// A media player as the desktop exposes it: playback status and play/pause.
class FakePlayer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)

public:
    QString status = "Playing";
    QString playbackStatus() const { return status; }

public slots:
    void Pause() { status = "Paused"; }
    void Play() { status = "Playing"; }
};

class FakeScreenSaver : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    int inhibited = 0;

public slots:
    uint Inhibit(const QString&, const QString&) { return ++inhibited; }
    void UnInhibit(uint) { --inhibited; }
};

bool publish(QObject* object, const QString& service, const QString& path) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.registerService(service) &&
           bus.registerObject(
               path, object,
               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
}

}  // namespace

TEST(MusicPlayerTest, PlayingPlayersArePausedAndResumedOthersAreLeftAlone) {
    ASSERT_TRUE(QDBusConnection::sessionBus().isConnected()) << "run under dbus-run-session";
    FakePlayer playing;
    ASSERT_TRUE(publish(&playing, "org.mpris.MediaPlayer2.fakeone", "/org/mpris/MediaPlayer2"));

    zt::MusicPlayer player;
    EXPECT_TRUE(player.pauseIfPlaying());
    EXPECT_EQ(playing.status, "Paused");
    EXPECT_TRUE(player.isMusicPause());
    player.resume();
    EXPECT_EQ(playing.status, "Playing");
    EXPECT_FALSE(player.isMusicPause());

    playing.status = "Stopped";
    EXPECT_FALSE(player.pauseIfPlaying());
    EXPECT_EQ(playing.status, "Stopped");
}

TEST(MusicPlayerTest, ScreenSaverIsInhibitedWhileRunning) {
    FakeScreenSaver saver;
    ASSERT_TRUE(publish(&saver, "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"));
    {
        zt::ScreenSaverInhibitor inhibitor;
        inhibitor.inhibit();
        EXPECT_TRUE(inhibitor.active());
        EXPECT_EQ(saver.inhibited, 1);
    }
    EXPECT_EQ(saver.inhibited, 0);
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "MusicPlayerTest.moc"
