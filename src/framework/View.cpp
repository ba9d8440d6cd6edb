#include "framework/View.h"

#include <stdexcept>

namespace zt {

View* View::instance_ = nullptr;

View::View() {
    if (instance_)
        throw std::logic_error("View Singleton already constructed! Use getInstance instead.");
    instance_ = this;
}

View::~View() {
    mediatorMap_.clear();
    observerMap_.clear();
    if (instance_ == this)
        instance_ = nullptr;
}

View& View::getInstance() {
    if (!instance_)
        new View();
    return *instance_;
}

void View::destroyInstance() {
    delete instance_;
}

void View::registerObserver(const std::string& name, std::shared_ptr<Observer> observer) {
    observerMap_[name].push_back(std::move(observer));
}

void View::notifyObservers(const Notification& notification) {
    auto it = observerMap_.find(notification.name());
    if (it == observerMap_.end())
        return;
    // Deliver to a copy: observers added or removed during delivery do not
    // change who receives this notification.
    const std::vector<std::shared_ptr<Observer>> observers = it->second;
    for (const auto& observer : observers) {
        observer->notifyObserver(notification);
    }
}

void View::removeObserver(const std::string& name, const void* notifyContext) {
    auto it = observerMap_.find(name);
    if (it == observerMap_.end())
        return;
    auto& list = it->second;
    for (auto o = list.begin(); o != list.end(); ++o) {
        if ((*o)->compareNotifyContext(notifyContext)) {
            list.erase(o);
            break;
        }
    }
    if (list.empty())
        observerMap_.erase(it);
}

void View::registerMediator(std::shared_ptr<Mediator> mediator) {
    if (!mediator || mediatorMap_.count(mediator->mediatorName()))
        return;
    mediatorMap_[mediator->mediatorName()] = mediator;
    const auto interests = mediator->listNotificationInterests();
    if (!interests.empty()) {
        // The observer holds the mediator, so that a notification being
        // delivered to a copy of the list still reaches a live mediator when
        // an earlier observer removes it; it is freed once the last list
        // holding the observer lets go.
        auto observer = Observer::withNotifyMethod(
            [mediator](const Notification& n) { mediator->handleNotification(n); }, mediator.get());
        for (const auto& name : interests)
            registerObserver(name, observer);
    }
    mediator->onRegister();
}

std::shared_ptr<Mediator> View::retrieveMediator(const std::string& name) const {
    auto it = mediatorMap_.find(name);
    return it == mediatorMap_.end() ? nullptr : it->second;
}

std::shared_ptr<Mediator> View::removeMediator(const std::string& name) {
    auto it = mediatorMap_.find(name);
    if (it == mediatorMap_.end())
        return nullptr;
    auto mediator = it->second;
    for (const auto& interest : mediator->listNotificationInterests()) {
        removeObserver(interest, mediator.get());
    }
    mediator->onRemove();
    mediator->setViewComponent({});
    mediatorMap_.erase(name);
    return mediator;
}

bool View::hasMediator(const std::string& name) const {
    auto it = mediatorMap_.find(name);
    return it != mediatorMap_.end() && it->second != nullptr;
}

size_t View::observerCount(const std::string& name) const {
    auto it = observerMap_.find(name);
    return it == observerMap_.end() ? 0 : it->second.size();
}

}  // namespace zt
