#include "framework/Proxy.h"

namespace zt {

std::shared_ptr<Proxy> Proxy::withProxyName(std::string name, std::any data) {
    return makeProxy<Proxy>(std::move(name), std::move(data));
}

}  // namespace zt
