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
    // The saved-state key's range is the tabs'; anything else reads as 0.
    activeTabIndex_ = stateProxy(facade())->getSelectedViewController();
    sendNotification("ActiveTabIndexReady");
}

void ApplicationProxy::saveActiveTabIndex(int index) {
    stateProxy(facade())->saveSelectedViewController(index);
}

}  // namespace zt
