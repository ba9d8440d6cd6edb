#pragma once
// A named message with an optional body and an optional type string. The body
// is any value: a Dictionary, a number, a proxy or mediator pointer, a record.

#include <any>
#include <optional>
#include <string>

namespace zt {

class Notification {
public:
    explicit Notification(std::string name, std::any body = {},
                          std::optional<std::string> type = {})
        : name_(std::move(name)), body_(std::move(body)), type_(std::move(type)) {}

    static Notification withName(std::string name) { return Notification(std::move(name)); }
    static Notification withName(std::string name, std::any body) {
        return Notification(std::move(name), std::move(body));
    }
    static Notification withName(std::string name, std::any body, std::string type) {
        return Notification(std::move(name), std::move(body), std::move(type));
    }

    const std::string& name() const { return name_; }
    const std::any& body() const { return body_; }
    const std::optional<std::string>& type() const { return type_; }

    // The body as T when it holds exactly a T, else nullptr.
    template <class T>
    const T* bodyAs() const {
        return std::any_cast<T>(&body_);
    }

    // "Notification Name: <name> \nBody:<body> \nType:<type>"
    std::string description() const;

private:
    std::string name_;
    std::any body_;
    std::optional<std::string> type_;
};

}  // namespace zt
