#include "app/ApplicationProxy.h"

#include "framework/Facade.h"
#include "state/StateProxy.h"

namespace zt {

namespace {
std::shared_ptr<StateProxy> stateProxy(Facade& facade) {
    auto registered = facade.retrieveProxyAs<StateProxy>(StateProxy::NAME);
    return registered ? registered : makeProxy<StateProxy>();
}
}  // namespace

void ApplicationProxy::initializeProxy() {
    activeTabIndex_ = -1;
    sendNotification("ShowContest");
}

std::string ApplicationProxy::getSettingsPath() const {
    return stateProxy(facade())->getStateFilePath();
}

void ApplicationProxy::readActiveTabIndex() {
    const int index = stateProxy(facade())->getSelectedViewController();
    activeTabIndex_ = (index >= 0 && index <= 3) ? index : 0;
    sendNotification("ActiveTabIndexReady");
}

void ApplicationProxy::saveActiveTabIndex(int index) {
    stateProxy(facade())->saveSelectedViewController(index);
}

}  // namespace zt
