#pragma once
// Commands: stateless logic run for a notification. The controller keeps a
// "class reference" per name, here a factory, and builds a fresh command for
// every notification.

#include <functional>
#include <memory>
#include <vector>

#include "framework/Notification.h"
#include "framework/Notifier.h"

namespace zt {

class Command : public Notifier {
public:
    virtual void execute(const Notification& notification) = 0;
};

using CommandClassRef = std::function<std::unique_ptr<Command>()>;

template <class T>
CommandClassRef commandClass() {
    return [] { return std::unique_ptr<Command>(std::make_unique<T>()); };
}

class SimpleCommand : public Command {
public:
    static std::unique_ptr<SimpleCommand> command() { return std::make_unique<SimpleCommand>(); }
    void execute(const Notification&) override {}
};

// Runs its sub-commands first to last, each as a new instance, with the same
// notification. Subclasses add them in initializeMacroCommand.
class MacroCommand : public Command {
public:
    static std::unique_ptr<MacroCommand> command() { return std::make_unique<MacroCommand>(); }
    void execute(const Notification& notification) final;

protected:
    virtual void initializeMacroCommand() {}
    void addSubCommand(CommandClassRef commandClassRef);

private:
    bool initialized_ = false;
    std::vector<CommandClassRef> subCommands_;
};

}  // namespace zt
