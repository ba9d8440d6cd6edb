#pragma once
// Base of proxies, mediators and commands: the one way they send
// notifications, through the facade taken when they were constructed.

#include <any>
#include <string>

namespace zt {

class Facade;

class Notifier {
public:
    Notifier();
    virtual ~Notifier() = default;

    void sendNotification(const std::string& name);
    void sendNotification(const std::string& name, std::any body);
    void sendNotification(const std::string& name, const std::string& type);
    void sendNotification(const std::string& name, std::any body, const std::string& type);

    Facade& facade() const { return *facade_; }

private:
    Facade* facade_;
};

}  // namespace zt
