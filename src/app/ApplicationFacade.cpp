#include "app/ApplicationFacade.h"

#include "app/StartupCommand.h"
#include "state/StateCommands.h"

namespace zt {

void ApplicationFacade::initializeController() {
    Facade::initializeController();
    // The command table. Each command's observer is registered here, before
    // any mediator exists, so a command always runs before the mediators
    // listening to the same name.
    registerCommand("Startup", commandClass<StartupCommand>());
    registerStateCommands(*this);
}

void ApplicationFacade::startup(Tools* tools) {
    sendNotification("Startup", tools);
}

}  // namespace zt
