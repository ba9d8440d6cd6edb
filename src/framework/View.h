#pragma once
// Registry of mediators and of the observer lists per notification name.
// Delivery is synchronous, on the sending thread, in registration order.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/Mediator.h"
#include "framework/Observer.h"

namespace zt {

class View {
public:
    // Throws std::logic_error when the singleton already exists.
    View();
    virtual ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    static View& getInstance();
    static void destroyInstance();

    void registerObserver(const std::string& name, std::shared_ptr<Observer> observer);
    void notifyObservers(const Notification& notification);
    void removeObserver(const std::string& name, const void* notifyContext);

    void registerMediator(std::shared_ptr<Mediator> mediator);
    std::shared_ptr<Mediator> retrieveMediator(const std::string& name) const;
    std::shared_ptr<Mediator> removeMediator(const std::string& name);
    bool hasMediator(const std::string& name) const;

    // Number of observers on a name (0 when the name has no list).
    size_t observerCount(const std::string& name) const;

private:
    static View* instance_;
    std::map<std::string, std::shared_ptr<Mediator>> mediatorMap_;
    std::map<std::string, std::vector<std::shared_ptr<Observer>>> observerMap_;
};

}  // namespace zt
