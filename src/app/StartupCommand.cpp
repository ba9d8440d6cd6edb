#include "app/StartupCommand.h"

#include "app/ApplicationProxy.h"
#include "app/Tools.h"
#include "app/ToolsMediator.h"
#include "framework/Facade.h"
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
    f.registerProxy(makeProxy<SettingsProxy>());

    f.registerProxy(makeProxy<MediaProxy>());

    sendNotification("GetCommonState");

    f.retrieveProxyAs<ApplicationProxy>(ApplicationProxy::NAME)->readActiveTabIndex();
    f.retrieveProxyAs<MediaProxy>(MediaProxy::NAME)->loadSoundBuffers();

    if (!tools)
        return;
    f.registerMediator(makeMediator<ToolsMediator>(tools, tools->analytics()));
    if (auto* screen = qobject_cast<CommonSettings*>(tools->screen("commonSettings"))) {
        f.registerMediator(makeMediator<CommonSettingsMediator>(screen));
    }
}

}  // namespace zt
