#pragma once
// Registers the proxies and mediators in their fixed order, reads the saved
// settings that start-up needs and starts loading the sound bank. The body
// of "Startup" is the Tools shell.

#include "framework/Command.h"

namespace zt {

class StartupCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

}  // namespace zt
