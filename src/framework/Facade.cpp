#include "framework/Facade.h"

#include <stdexcept>

#include "framework/Controller.h"
#include "framework/Model.h"
#include "framework/View.h"

namespace zt {

Facade* Facade::instance_ = nullptr;

namespace {
// Set while a facade is being built, so a second construction is caught even
// before the first one is stored as the instance.
bool constructing = false;
}  // namespace

Facade::Facade() {
    if (instance_ || constructing) {
        throw std::logic_error("Facade Singleton already constructed! Use getInstance instead.");
    }
    constructing = true;
}

Facade::~Facade() {
    model_ = nullptr;
    controller_ = nullptr;
    view_ = nullptr;
    if (instance_ == this)
        instance_ = nullptr;
    constructing = false;
}

Facade& Facade::getInstance() {
    return getInstanceAs<Facade>();
}

void Facade::reset() {
    delete instance_;
    instance_ = nullptr;
    constructing = false;
    Controller::destroyInstance();
    View::destroyInstance();
    Model::destroyInstance();
}

void Facade::initializeFacade() {
    initializeModel();
    initializeController();
    initializeView();
    constructing = false;
}

void Facade::initializeModel() {
    if (!model_)
        model_ = &Model::getInstance();
}

void Facade::initializeController() {
    if (!controller_)
        controller_ = &Controller::getInstance();
}

void Facade::initializeView() {
    if (!view_)
        view_ = &View::getInstance();
}

void Facade::registerProxy(std::shared_ptr<Proxy> proxy) {
    model_->registerProxy(std::move(proxy));
}
std::shared_ptr<Proxy> Facade::retrieveProxy(const std::string& name) const {
    return model_->retrieveProxy(name);
}
std::shared_ptr<Proxy> Facade::removeProxy(const std::string& name) {
    return model_->removeProxy(name);
}
bool Facade::hasProxy(const std::string& name) const {
    return model_->hasProxy(name);
}

void Facade::registerCommand(const std::string& name, CommandClassRef commandClassRef) {
    controller_->registerCommand(name, std::move(commandClassRef));
}
void Facade::removeCommand(const std::string& name) {
    controller_->removeCommand(name);
}
bool Facade::hasCommand(const std::string& name) const {
    return controller_->hasCommand(name);
}

void Facade::registerMediator(std::shared_ptr<Mediator> mediator) {
    view_->registerMediator(std::move(mediator));
}
std::shared_ptr<Mediator> Facade::retrieveMediator(const std::string& name) const {
    return view_->retrieveMediator(name);
}
std::shared_ptr<Mediator> Facade::removeMediator(const std::string& name) {
    return view_->removeMediator(name);
}
bool Facade::hasMediator(const std::string& name) const {
    return view_->hasMediator(name);
}

void Facade::notifyObservers(const Notification& notification) {
    if (view_)
        view_->notifyObservers(notification);
}
void Facade::sendNotification(const std::string& name) {
    notifyObservers(Notification(name));
}
void Facade::sendNotification(const std::string& name, std::any body) {
    notifyObservers(Notification(name, std::move(body)));
}
void Facade::sendNotification(const std::string& name, const std::string& type) {
    notifyObservers(Notification(name, {}, type));
}
void Facade::sendNotification(const std::string& name, std::any body, const std::string& type) {
    notifyObservers(Notification(name, std::move(body), type));
}

}  // namespace zt
