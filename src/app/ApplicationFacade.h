#pragma once
// The program's facade: the framework's facade with the command table.

#include "framework/Facade.h"

namespace zt {

class Tools;

class ApplicationFacade : public Facade {
public:
    static ApplicationFacade& getInstance() { return Facade::getInstanceAs<ApplicationFacade>(); }
    // Sends "Startup" with the shell as body.
    void startup(Tools* tools);

protected:
    void initializeController() override;
};

}  // namespace zt
