#include "framework/Notifier.h"

#include "framework/Facade.h"

namespace zt {

Notifier::Notifier() : facade_(&Facade::getInstance()) {}

void Notifier::sendNotification(const std::string& name) {
    facade_->sendNotification(name);
}

void Notifier::sendNotification(const std::string& name, std::any body) {
    facade_->sendNotification(name, std::move(body));
}

void Notifier::sendNotification(const std::string& name, const std::string& type) {
    facade_->sendNotification(name, type);
}

void Notifier::sendNotification(const std::string& name, std::any body, const std::string& type) {
    facade_->sendNotification(name, std::move(body), type);
}

}  // namespace zt
