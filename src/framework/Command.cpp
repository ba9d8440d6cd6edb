#include "framework/Command.h"

namespace zt {

void MacroCommand::addSubCommand(CommandClassRef commandClassRef) {
    subCommands_.push_back(std::move(commandClassRef));
}

void MacroCommand::execute(const Notification& notification) {
    if (!initialized_) {
        initialized_ = true;
        initializeMacroCommand();
    }
    for (const auto& make : subCommands_) {
        make()->execute(notification);
    }
}

}  // namespace zt
