#pragma once
// The application's life cycle: launch, losing and regaining the foreground,
// and termination, mapped from Qt's application states.

#include <QObject>
#include <QStringList>
#include <memory>
#include <optional>

#include "app/AnalyticsLog.h"
#include "app/MusicPlayer.h"
#include "app/ScreenSaverInhibitor.h"
#include "screen/ScreenEngines.h"

namespace zt {

class ChordPlayer;
class Metronome;
class MetronomePlayer;
class StringTonePlayer;
class Tools;

class ZebToolsAppDelegate : public QObject {
    Q_OBJECT

public:
    explicit ZebToolsAppDelegate(QObject* parent = nullptr);
    ~ZebToolsAppDelegate() override;

    // Pauses playing music, starts the event log, keeps the screen awake,
    // builds the shell and starts the facade. Run once. The screens play on
    // the sound card, or through engines when given (which must outlive
    // this object).
    void launch(std::optional<ScreenEngines> engines = std::nullopt);

    // Maps a change of Qt's application state to the handlers below.
    void applicationStateChanged(Qt::ApplicationState state);

    void willResignActive();
    void didEnterBackground();
    void willEnterForeground() {}
    void didBecomeActive();
    // Lets the screen on show save what was set there, resumes paused music,
    // saves the selected tab, stops the event log.
    void willTerminate();

    Tools* tools() const { return tools_.get(); }
    // The event log's writer runs on a thread of its own until stopped.
    AnalyticsLog& analytics() { return analytics_; }
    int selectedIndex() const;
    const QStringList& toolItems() const { return toolItems_; }
    bool inBackGround() const { return inBackGround_; }
    bool isMusicPause() const { return isMusicPause_; }

private:
    // The metronome, when it or its settings screen is on show.
    Metronome* visibleMetronome() const;

    QStringList toolItems_;
    MusicPlayer mpPlayer_;
    bool isMusicPause_ = false;
    bool inBackGround_ = false;
    bool terminated_ = false;
    AnalyticsLog analytics_;
    ScreenSaverInhibitor screenSaver_;
    Qt::ApplicationState lastState_ = Qt::ApplicationActive;
    // The metronome, the chords' strings and the by-ear tuner's on the sound card, when no
    // engines were given. Declared before the shell, whose screens play
    // through them.
    std::unique_ptr<MetronomePlayer> metronomePlayer_;
    std::unique_ptr<ChordPlayer> chordPlayer_;
    std::unique_ptr<StringTonePlayer> tonePlayer_;
    std::unique_ptr<Tools> tools_;
};

}  // namespace zt
