#include "framework/Notification.h"

#include "framework/Value.h"

namespace zt {

namespace {
std::string describeBody(const std::any& body) {
    if (!body.has_value())
        return "(null)";
    if (auto v = std::any_cast<Value>(&body))
        return v->describe();
    if (auto d = std::any_cast<Dictionary>(&body))
        return Value(*d).describe();
    if (auto s = std::any_cast<std::string>(&body))
        return *s;
    if (auto i = std::any_cast<int>(&body))
        return std::to_string(*i);
    if (auto f = std::any_cast<double>(&body))
        return std::to_string(*f);
    if (auto f = std::any_cast<float>(&body))
        return std::to_string(*f);
    if (auto b = std::any_cast<bool>(&body))
        return *b ? "1" : "0";
    return std::string("<") + body.type().name() + ">";
}
}  // namespace

std::string Notification::description() const {
    return "Notification Name: " + name_ + " \nBody:" + describeBody(body_) +
           " \nType:" + (type_ ? *type_ : std::string("(null)"));
}

}  // namespace zt
