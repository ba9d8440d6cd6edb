#include "app/ZebToolsAppDelegate.h"

#include <QGuiApplication>

#include "app/ApplicationFacade.h"
#include "app/ApplicationProxy.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "app/ToolsDelegate.h"
#include "chords/ChordPlayer.h"
#include "framework/Log.h"
#include "framework/Paths.h"
#include "metronome/MetronomePlayer.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/ui/Metronome.h"
#include "sound/SoundEngine.h"
#include "tuners/StringTonePlayer.h"

namespace zt {

ZebToolsAppDelegate::ZebToolsAppDelegate(QObject* parent) : QObject(parent) {}

ZebToolsAppDelegate::~ZebToolsAppDelegate() = default;

void ZebToolsAppDelegate::launch(std::optional<ScreenEngines> engines) {
    if (tools_)
        return;
    isMusicPause_ = mpPlayer_.pauseIfPlaying();
    inBackGround_ = false;
    // Without a data folder there is nowhere to keep the event log.
    if (const auto dataDir = paths::dataDir(); !dataDir.empty())
        analytics_.start(dataDir / "events.log", 10);
    screenSaver_.inhibit();
    toolItems_.clear();
    for (const ToolTab& tab : toolTabs())
        toolItems_.append(QString::fromUtf8(tab.item));

    if (!engines) {
        metronomePlayer_ = std::make_unique<MetronomePlayer>(SoundEngine::shared());
        chordPlayer_ = std::make_unique<ChordPlayer>(SoundEngine::shared());
        tonePlayer_ = std::make_unique<StringTonePlayer>(SoundEngine::shared());
        engines.emplace(
            ScreenEngines{*metronomePlayer_, steadyTickClock(), *chordPlayer_, *tonePlayer_});
    }
    tools_ = std::make_unique<Tools>(*engines);
    tools_->setAnalytics(&analytics_);
    ApplicationFacade::getInstance().startup(tools_.get());

    if (auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        lastState_ = app->applicationState();
        connect(app, &QGuiApplication::applicationStateChanged, this,
                &ZebToolsAppDelegate::applicationStateChanged);
    }
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            &ZebToolsAppDelegate::willTerminate);
}

int ZebToolsAppDelegate::selectedIndex() const {
    return tools_ ? tools_->selectedIndex() : 0;
}

// Qt reports states, not transitions. A desktop window that loses focus keeps
// running, like a phone application sent to the background, so "inactive"
// counts as resigning and then entering the background; a running metronome
// goes on sounding.
void ZebToolsAppDelegate::applicationStateChanged(Qt::ApplicationState state) {
    const Qt::ApplicationState previous = lastState_;
    lastState_ = state;
    if (state == previous)
        return;
    if (state == Qt::ApplicationActive) {
        if (previous != Qt::ApplicationInactive)
            willEnterForeground();
        didBecomeActive();
        return;
    }
    if (previous == Qt::ApplicationActive)
        willResignActive();
    if (!inBackGround_)
        didEnterBackground();
}

Metronome* ZebToolsAppDelegate::visibleMetronome() const {
    if (!tools_)
        return nullptr;
    const QString visible = tools_->visibleScreen();
    if (visible != QLatin1String("metronome") && visible != QLatin1String("metronomeSettings"))
        return nullptr;
    return tools_->screenAs<Metronome>("metronome");
}

void ZebToolsAppDelegate::willResignActive() {
    inBackGround_ = false;
    if (Metronome* metronome = visibleMetronome())
        metronome->endMetronome();
}

void ZebToolsAppDelegate::didEnterBackground() {
    inBackGround_ = true;
    if (Metronome* metronome = visibleMetronome())
        metronome->runMetronome();
}

void ZebToolsAppDelegate::didBecomeActive() {
    if (!inBackGround_)
        return;
    if (tools_ && tools_->delegate())
        tools_->delegate()->registerRateAlert();
    inBackGround_ = false;
}

void ZebToolsAppDelegate::willTerminate() {
    if (terminated_)
        return;
    terminated_ = true;
    if (tools_)
        tools_->close();
    log("Will terminate");
    log("someController = " + std::to_string(selectedIndex()));
    if (isMusicPause_) {
        mpPlayer_.resume();
        isMusicPause_ = false;
    }
    screenSaver_.release();
    if (auto proxy = ApplicationFacade::getInstance().retrieveProxyAs<ApplicationProxy>(
            ApplicationProxy::NAME)) {
        proxy->saveActiveTabIndex(selectedIndex());
    }
    // A last try for presets that could not be written during the run.
    if (auto presets = ApplicationFacade::getInstance().retrieveProxyAs<MetronomeProxy>(
            MetronomeProxy::NAME)) {
        presets->flush();
    }
    analytics_.stop();
}

}  // namespace zt
