#include "app/ApplicationFacade.h"

#include "app/StartupCommand.h"
#include "state/StateCommands.h"

namespace zt {

void ApplicationFacade::initializeController() {
    Facade::initializeController();
    // The order fixes which observer comes first on each name: a command
    // always runs before any mediator listening to the same name.
    registerCommand("Startup", commandClass<StartupCommand>());
    registerCommand("SaveMetronomeState", commandClass<SaveMetronomeStateCommand>());
    registerCommand("SaveBrainTunerState", commandClass<SaveBrainTunerStateCommand>());
    registerCommand("SaveChromaticTunerState", commandClass<SaveChromaticTunerStateCommand>());
    registerCommand("SaveChordsLibraryState", commandClass<SaveChordsLibraryStateCommand>());
    registerCommand("SaveCommonState", commandClass<SaveCommonStateCommand>());
    registerCommand("GetMetronomeSavedData", commandClass<GetMetronomeSaveDataCommand>());
    registerCommand("GetBrainTunerSavedData", commandClass<GetBrainTunerSaveDataCommand>());
    registerCommand("GetChromaticTunerSavedData", commandClass<GetChromTunerSaveDataCommand>());
    registerCommand("GetChordsLibrarySavedData", commandClass<GetChordsLibraryStateCommand>());
    registerCommand("GetCommonState", commandClass<GetCommonStateCommand>());
}

void ApplicationFacade::startup(Tools* tools) {
    sendNotification("Startup", tools);
}

}  // namespace zt
