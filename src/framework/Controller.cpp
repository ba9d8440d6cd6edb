#include "framework/Controller.h"

#include <stdexcept>

#include "framework/View.h"

namespace zt {

Controller* Controller::instance_ = nullptr;

Controller::Controller() {
    if (instance_) {
        throw std::logic_error(
            "Controller Singleton already constructed! Use getInstance instead.");
    }
    instance_ = this;
    initializeController();
}

Controller::~Controller() {
    commandMap_.clear();
    view_ = nullptr;
    if (instance_ == this)
        instance_ = nullptr;
}

Controller& Controller::getInstance() {
    if (!instance_)
        new Controller();
    return *instance_;
}

void Controller::destroyInstance() {
    delete instance_;
}

void Controller::initializeController() {
    view_ = &View::getInstance();
}

void Controller::registerCommand(const std::string& name, CommandClassRef commandClassRef) {
    if (!commandMap_.count(name)) {
        view_->registerObserver(
            name,
            Observer::withNotifyMethod([this](const Notification& n) { executeCommand(n); }, this));
    }
    commandMap_[name] = std::move(commandClassRef);
}

void Controller::executeCommand(const Notification& notification) {
    auto it = commandMap_.find(notification.name());
    if (it == commandMap_.end() || !it->second)
        return;
    auto command = it->second();
    command->execute(notification);
}

void Controller::removeCommand(const std::string& name) {
    if (!hasCommand(name))
        return;
    view_->removeObserver(name, this);
    commandMap_.erase(name);
}

bool Controller::hasCommand(const std::string& name) const {
    auto it = commandMap_.find(name);
    return it != commandMap_.end() && it->second != nullptr;
}

}  // namespace zt
