#include "app/StartupCommand.h"

#include "app/ApplicationProxy.h"
#include "app/Tools.h"
#include "app/ToolsMediator.h"
#include "chords/ChordsProxy.h"
#include "framework/Facade.h"
#include "metronome/Metronome.h"
#include "metronome/MetronomeMediator.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/MetronomeSettings.h"
#include "metronome/MetronomeSettingsMediator.h"
#include "sound/MediaProxy.h"
#include "state/StateProxy.h"
#include "tuners/CommonSettings.h"
#include "tuners/CommonSettingsMediator.h"
#include "tuners/SettingsProxy.h"

namespace zt {

void StartupCommand::execute(const Notification& notification) {
    Tools* const* toolsBody = notification.bodyAs<Tools*>();
    Tools* tools = toolsBody ? *toolsBody : nullptr;
    Facade& f = facade();

    f.registerProxy(makeProxy<ApplicationProxy>());
    f.registerProxy(makeProxy<StateProxy>());
    f.registerProxy(makeProxy<ChordsProxy>());
    f.registerProxy(makeProxy<SettingsProxy>());

    f.registerProxy(makeProxy<MediaProxy>());
    f.registerProxy(makeProxy<MetronomeProxy>());

    sendNotification("GetCommonState");

    f.retrieveProxyAs<ApplicationProxy>(ApplicationProxy::NAME)->readActiveTabIndex();
    f.retrieveProxyAs<MediaProxy>(MediaProxy::NAME)->loadSoundBuffers();
    f.retrieveProxyAs<MetronomeProxy>(MetronomeProxy::NAME)->loadPresetsArray();

    if (!tools)
        return;
    // One mediator per screen, in this order, after the shell's own.
    f.registerMediator(makeMediator<ToolsMediator>(tools, tools->analytics()));
    if (auto* screen = qobject_cast<Metronome*>(tools->screen("metronome"))) {
        f.registerMediator(makeMediator<MetronomeMediator>(screen));
    }
    if (auto* screen = qobject_cast<MetronomeSettings*>(tools->screen("metronomeSettings"))) {
        f.registerMediator(makeMediator<MetronomeSettingsMediator>(screen));
    }
    if (auto* screen = qobject_cast<CommonSettings*>(tools->screen("commonSettings"))) {
        f.registerMediator(makeMediator<CommonSettingsMediator>(screen));
    }
}

}  // namespace zt
