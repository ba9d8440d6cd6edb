#pragma once
// The single entry point of the notification framework: forwards to the
// model (proxies), the controller (commands) and the view (mediators and
// observers). getInstanceAs<T>() creates the one facade as a T on first use;
// getInstance() returns it (creating a plain Facade when none exists).

#include <any>
#include <memory>
#include <string>

#include "framework/Command.h"
#include "framework/Mediator.h"
#include "framework/Notification.h"
#include "framework/Proxy.h"

namespace zt {

class Model;
class View;
class Controller;

class Facade {
public:
    // Throws std::logic_error when the singleton already exists.
    Facade();
    virtual ~Facade();
    Facade(const Facade&) = delete;
    Facade& operator=(const Facade&) = delete;

    static Facade& getInstance();
    template <class T>
    static T& getInstanceAs();
    static bool hasInstance() { return instance_ != nullptr; }

    // Destroys the facade and the three registries, with everything they hold.
    static void reset();

    void registerProxy(std::shared_ptr<Proxy> proxy);
    std::shared_ptr<Proxy> retrieveProxy(const std::string& name) const;
    std::shared_ptr<Proxy> removeProxy(const std::string& name);
    bool hasProxy(const std::string& name) const;

    void registerCommand(const std::string& name, CommandClassRef commandClassRef);
    void removeCommand(const std::string& name);
    bool hasCommand(const std::string& name) const;

    void registerMediator(std::shared_ptr<Mediator> mediator);
    std::shared_ptr<Mediator> retrieveMediator(const std::string& name) const;
    std::shared_ptr<Mediator> removeMediator(const std::string& name);
    bool hasMediator(const std::string& name) const;

    void notifyObservers(const Notification& notification);
    void sendNotification(const std::string& name);
    void sendNotification(const std::string& name, std::any body);
    void sendNotification(const std::string& name, const std::string& type);
    void sendNotification(const std::string& name, std::any body, const std::string& type);

    // Typed look-ups: the registered proxy or mediator of that name as T.
    template <class T>
    std::shared_ptr<T> retrieveProxyAs(const std::string& name) const {
        return std::dynamic_pointer_cast<T>(retrieveProxy(name));
    }
    template <class T>
    std::shared_ptr<T> retrieveMediatorAs(const std::string& name) const {
        return std::dynamic_pointer_cast<T>(retrieveMediator(name));
    }

    Model& model() const { return *model_; }
    View& view() const { return *view_; }
    Controller& controller() const { return *controller_; }

protected:
    virtual void initializeFacade();
    virtual void initializeModel();
    virtual void initializeController();
    virtual void initializeView();

private:
    static Facade* instance_;
    Model* model_ = nullptr;
    Controller* controller_ = nullptr;
    View* view_ = nullptr;
};

template <class T>
T& Facade::getInstanceAs() {
    if (!instance_) {
        auto* facade = new T();
        // Initialisation runs on the complete object so that a subclass's
        // initializeController registers its commands; the instance is stored
        // only once construction has returned.
        facade->initializeFacade();
        instance_ = facade;
    }
    return dynamic_cast<T&>(*instance_);
}

}  // namespace zt
