#pragma once
// The application's life cycle: launch, losing and regaining the foreground,
// and termination, mapped from Qt's application states.

#include <QObject>
#include <QStringList>
#include <memory>

#include "app/AnalyticsLog.h"
#include "app/MusicPlayer.h"
#include "app/ScreenSaverInhibitor.h"

namespace zt {

class Tools;

class ZebToolsAppDelegate : public QObject {
    Q_OBJECT

public:
    explicit ZebToolsAppDelegate(QObject* parent = nullptr);
    ~ZebToolsAppDelegate() override;

    // Pauses playing music, starts the event log, keeps the screen awake,
    // builds the shell and starts the facade. Run once.
    void launch();

    // Maps a change of Qt's application state to the handlers below.
    void applicationStateChanged(Qt::ApplicationState state);

    void willResignActive();
    void didEnterBackground();
    void willEnterForeground() {}
    void didBecomeActive();
    // Resumes paused music, saves the selected tab, stops the event log.
    void willTerminate();

    Tools* tools() const { return tools_; }
    int selectedIndex() const;
    const QStringList& toolItems() const { return toolItems_; }
    bool inBackGround() const { return inBackGround_; }
    bool isMusicPause() const { return isMusicPause_; }

private:
    bool metronomeVisible() const;

    QStringList toolItems_;
    MusicPlayer mpPlayer_;
    bool isMusicPause_ = false;
    bool inBackGround_ = false;
    bool terminated_ = false;
    Tools* tools_ = nullptr;
    AnalyticsLog analytics_;
    ScreenSaverInhibitor screenSaver_;
    Qt::ApplicationState lastState_ = Qt::ApplicationActive;
};

}  // namespace zt
