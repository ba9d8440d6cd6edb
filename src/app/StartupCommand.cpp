#include "app/StartupCommand.h"

#include "app/ApplicationProxy.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "app/ToolsMediator.h"
#include "chords/ChordsProxy.h"
#include "framework/Facade.h"
#include "metronome/MetronomeProxy.h"
#include "sound/MediaProxy.h"
#include "state/StateProxy.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tuners/MicrophoneProxy.h"
#include "tuners/OrchestraControlProxy.h"
#include "tunings/SettingsProxy.h"

namespace zt {

void StartupCommand::execute(const Notification& notification) {
    Tools* const* toolsBody = notification.bodyAs<Tools*>();
    Tools* tools = toolsBody ? *toolsBody : nullptr;
    Facade& f = facade();

    f.registerProxy(makeProxy<ApplicationProxy>());
    f.registerProxy(makeProxy<StateProxy>());
    f.registerProxy(makeProxy<ChordsProxy>());
    f.registerProxy(makeProxy<SettingsProxy>());
    auto mainFrequerncy = makeProxy<MainFrequerncyProxy>();
    f.registerProxy(mainFrequerncy);

    sendNotification("GetChromaticTunerSavedData", static_cast<Proxy*>(mainFrequerncy.get()));

    f.registerProxy(makeProxy<MediaProxy>());
    f.registerProxy(makeProxy<MetronomeProxy>());
    f.registerProxy(makeProxy<OrchestraControlProxy>());
    f.registerProxy(makeProxy<MicrophoneProxy>());

    sendNotification("GetCommonState");

    f.retrieveProxyAs<ApplicationProxy>(ApplicationProxy::NAME)->readActiveTabIndex();
    f.retrieveProxyAs<MediaProxy>(MediaProxy::NAME)->loadSoundBuffers();
    f.retrieveProxyAs<MetronomeProxy>(MetronomeProxy::NAME)->loadPresetsArray();

    if (!tools)
        return;
    // The shell's mediator first, then one per screen in the table's order.
    f.registerMediator(makeMediator<ToolsMediator>(tools, tools->analytics()));
    for (const ScreenRow& row : screenTable()) {
        if (row.makeMediator)
            f.registerMediator(row.makeMediator(tools->screen(QString::fromUtf8(row.key))));
    }
}

}  // namespace zt
