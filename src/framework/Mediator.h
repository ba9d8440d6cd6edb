#pragma once
// View-side component: owns the link to one screen (its view component),
// lists the notification names it wants, and handles them. Create subclasses
// with makeMediator<T>() so that initializeMediator runs on the whole object.

#include <any>
#include <memory>
#include <string>
#include <vector>

#include "framework/Notification.h"
#include "framework/Notifier.h"

namespace zt {

class Mediator : public Notifier {
public:
    static constexpr const char* NAME = "Mediator";

    explicit Mediator(std::string mediatorName = {}, std::any viewComponent = {})
        : mediatorName_(mediatorName.empty() ? std::string(NAME) : std::move(mediatorName)),
          viewComponent_(std::move(viewComponent)) {}

    static std::shared_ptr<Mediator> mediator() { return withMediatorName({}, {}); }
    static std::shared_ptr<Mediator> withMediatorName(std::string name, std::any view = {});
    static std::shared_ptr<Mediator> withViewComponent(std::any view) {
        return withMediatorName({}, std::move(view));
    }

    const std::string& mediatorName() const { return mediatorName_; }
    const std::any& viewComponent() const { return viewComponent_; }
    void setViewComponent(std::any view) { viewComponent_ = std::move(view); }

    // The view component as T* when it holds one, else nullptr.
    template <class T>
    T* viewAs() const {
        auto p = std::any_cast<T*>(&viewComponent_);
        return p ? *p : nullptr;
    }

    virtual void initializeMediator() {}
    virtual void handleNotification(const Notification&) {}
    virtual void onRegister() {}
    virtual void onRemove() {}
    virtual std::vector<std::string> listNotificationInterests() const { return {}; }

private:
    std::string mediatorName_;
    std::any viewComponent_;
};

template <class T, class... Args>
std::shared_ptr<T> makeMediator(Args&&... args) {
    auto mediator = std::make_shared<T>(std::forward<Args>(args)...);
    mediator->initializeMediator();
    return mediator;
}

}  // namespace zt
