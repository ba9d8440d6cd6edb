#include "app/ApplicationFacade.h"

#include "app/StartupCommand.h"
#include "state/StateCommands.h"
#include "tuners/FrequencyCommands.h"

namespace zt {

void ApplicationFacade::initializeController() {
    Facade::initializeController();
    // The command table. Each command's observer is registered here, before
    // any mediator exists, so a command always runs before the mediators
    // listening to the same name.
    registerCommand("Startup", commandClass<StartupCommand>());
    registerCommand("GetMainFrequerncy", commandClass<GetMainFrequerncyCommand>());
    registerCommand("StartAudioSession", commandClass<StartAudioSessionCommand>());
    registerCommand("StopAudioSession", commandClass<StopAudioSessionCommand>());
    registerStateCommands(*this);
}

void ApplicationFacade::startup(Tools* tools) {
    sendNotification("Startup", tools);
}

}  // namespace zt
