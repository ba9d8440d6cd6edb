#pragma once
// One entry of a notification's observer list: the method to call and the
// object it is called on. The context is only used for identity when an
// observer is removed; the observer does not own it.

#include <functional>
#include <memory>

#include "framework/Notification.h"

namespace zt {

class Observer {
public:
    using NotifyMethod = std::function<void(const Notification&)>;

    Observer(NotifyMethod notifyMethod, const void* notifyContext)
        : notifyMethod_(std::move(notifyMethod)), notifyContext_(notifyContext) {}

    static std::shared_ptr<Observer> withNotifyMethod(NotifyMethod method, const void* context) {
        return std::make_shared<Observer>(std::move(method), context);
    }

    void notifyObserver(const Notification& notification) const {
        if (notifyMethod_)
            notifyMethod_(notification);
    }
    bool compareNotifyContext(const void* object) const { return object == notifyContext_; }
    const void* notifyContext() const { return notifyContext_; }

private:
    NotifyMethod notifyMethod_;
    const void* notifyContext_;
};

}  // namespace zt
