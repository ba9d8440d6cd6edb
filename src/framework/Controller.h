#pragma once
// Registry of commands by notification name. A registered name gets one
// observer (the controller itself) the first time; later registrations only
// replace the command class.

#include <map>
#include <string>

#include "framework/Command.h"

namespace zt {

class View;

class Controller {
public:
    // Throws std::logic_error when the singleton already exists.
    Controller();
    virtual ~Controller();
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    static Controller& getInstance();
    static void destroyInstance();

    void registerCommand(const std::string& name, CommandClassRef commandClassRef);
    void executeCommand(const Notification& notification);
    void removeCommand(const std::string& name);
    bool hasCommand(const std::string& name) const;

protected:
    virtual void initializeController();

private:
    static Controller* instance_;
    View* view_ = nullptr;
    std::map<std::string, CommandClassRef> commandMap_;
};

}  // namespace zt
