#include "framework/Model.h"

#include <stdexcept>

namespace zt {

Model* Model::instance_ = nullptr;

Model::Model() {
    if (instance_)
        throw std::logic_error("Model Singleton already constructed! Use getInstance instead.");
    instance_ = this;
}

Model::~Model() {
    proxyMap_.clear();
    if (instance_ == this)
        instance_ = nullptr;
}

Model& Model::getInstance() {
    if (!instance_)
        new Model();
    return *instance_;
}

void Model::destroyInstance() {
    delete instance_;
}

void Model::registerProxy(std::shared_ptr<Proxy> proxy) {
    if (!proxy)
        return;
    proxyMap_[proxy->proxyName()] = proxy;
    proxy->onRegister();
}

std::shared_ptr<Proxy> Model::retrieveProxy(const std::string& name) const {
    auto it = proxyMap_.find(name);
    return it == proxyMap_.end() ? nullptr : it->second;
}

std::shared_ptr<Proxy> Model::removeProxy(const std::string& name) {
    auto it = proxyMap_.find(name);
    if (it == proxyMap_.end())
        return nullptr;
    auto proxy = it->second;
    proxy->onRemove();
    proxyMap_.erase(name);
    return proxy;
}

bool Model::hasProxy(const std::string& name) const {
    auto it = proxyMap_.find(name);
    return it != proxyMap_.end() && it->second != nullptr;
}

}  // namespace zt
