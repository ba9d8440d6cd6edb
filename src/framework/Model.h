#pragma once
// Registry of proxies by name. One per process.

#include <map>
#include <memory>
#include <string>

#include "framework/Proxy.h"

namespace zt {

class Model {
public:
    // Throws std::logic_error when the singleton already exists.
    Model();
    virtual ~Model();
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    static Model& getInstance();
    static void destroyInstance();

    void registerProxy(std::shared_ptr<Proxy> proxy);
    std::shared_ptr<Proxy> retrieveProxy(const std::string& name) const;
    std::shared_ptr<Proxy> removeProxy(const std::string& name);
    bool hasProxy(const std::string& name) const;

private:
    static Model* instance_;
    std::map<std::string, std::shared_ptr<Proxy>> proxyMap_;
};

}  // namespace zt
