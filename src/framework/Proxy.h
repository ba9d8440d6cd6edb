#pragma once
// Model-side component: holds data and is registered under its name.
// Subclasses declare their own NAME and pass it to this constructor; create
// them with makeProxy<T>() so that initializeProxy runs once the object is
// complete.

#include <any>
#include <memory>
#include <string>

#include "framework/Notifier.h"

namespace zt {

class Proxy : public Notifier {
public:
    static constexpr const char* NAME = "Proxy";

    explicit Proxy(std::string proxyName = {}, std::any data = {})
        : proxyName_(proxyName.empty() ? std::string(NAME) : std::move(proxyName)),
          data_(std::move(data)) {}

    static std::shared_ptr<Proxy> proxy() { return withProxyName({}, {}); }
    static std::shared_ptr<Proxy> withProxyName(std::string name, std::any data = {});
    static std::shared_ptr<Proxy> withData(std::any data) {
        return withProxyName({}, std::move(data));
    }

    const std::string& proxyName() const { return proxyName_; }
    const std::any& data() const { return data_; }
    void setData(std::any data) { data_ = std::move(data); }

    virtual void initializeProxy() {}
    virtual void onRegister() {}
    virtual void onRemove() {}

private:
    std::string proxyName_;
    std::any data_;
};

template <class T, class... Args>
std::shared_ptr<T> makeProxy(Args&&... args) {
    auto proxy = std::make_shared<T>(std::forward<Args>(args)...);
    proxy->initializeProxy();
    return proxy;
}

}  // namespace zt
