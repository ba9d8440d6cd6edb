// Singletons, registries and the facade's forwarding.
#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/Controller.h"
#include "framework/Facade.h"
#include "framework/Model.h"
#include "framework/View.h"

using namespace zt;

namespace {

class FrameworkTest : public ::testing::Test {
protected:
    void SetUp() override { Facade::reset(); }
    void TearDown() override { Facade::reset(); }
};

struct CountingProxy : Proxy {
    static constexpr const char* NAME = "CountingProxy";
    CountingProxy() : Proxy(NAME) {}
    void initializeProxy() override { ++initialized; }
    void onRegister() override { ++registered; }
    void onRemove() override { ++removed; }
    int initialized = 0, registered = 0, removed = 0;
};

class RecordingFacade : public Facade {
public:
    static inline std::vector<std::string> calls;

protected:
    void initializeModel() override {
        calls.push_back("model");
        Facade::initializeModel();
    }
    void initializeController() override {
        calls.push_back("controller");
        Facade::initializeController();
    }
    void initializeView() override {
        calls.push_back("view");
        Facade::initializeView();
    }
};

}  // namespace

TEST_F(FrameworkTest, SecondConstructionOfEverySingletonThrowsItsText) {
    Facade::getInstance();
    auto expectReason = [](auto construct, const std::string& reason) {
        try {
            construct();
            FAIL() << "no exception for " << reason;
        } catch (const std::logic_error& e) {
            EXPECT_EQ(e.what(), reason);
        }
    };
    expectReason([] { Facade f; },
                 "Facade Singleton already constructed! Use getInstance instead.");
    expectReason([] { Model m; }, "Model Singleton already constructed! Use getInstance instead.");
    expectReason([] { View v; }, "View Singleton already constructed! Use getInstance instead.");
    expectReason([] { Controller c; },
                 "Controller Singleton already constructed! Use getInstance instead.");
}

TEST_F(FrameworkTest, SubclassFacadeIsTheOneInstanceAndInitialisesInOrder) {
    RecordingFacade::calls.clear();
    auto& facade = Facade::getInstanceAs<RecordingFacade>();
    EXPECT_EQ(&facade, &Facade::getInstance());
    EXPECT_EQ(RecordingFacade::calls, (std::vector<std::string>{"model", "controller", "view"}));
    EXPECT_EQ(&facade.model(), &Model::getInstance());
    EXPECT_EQ(&facade.view(), &View::getInstance());
    EXPECT_EQ(&facade.controller(), &Controller::getInstance());
}

TEST_F(FrameworkTest, ResetDestroysSingletonsSoTheyCanBeBuiltAgain) {
    auto& facade = Facade::getInstance();
    facade.registerProxy(makeProxy<CountingProxy>());
    Facade::reset();
    EXPECT_FALSE(Facade::hasInstance());
    EXPECT_FALSE(Facade::getInstance().hasProxy(CountingProxy::NAME));
}

TEST_F(FrameworkTest, ProxyLifecycleAndReplacementByName) {
    auto& facade = Facade::getInstance();
    auto first = makeProxy<CountingProxy>();
    EXPECT_EQ(first->initialized, 1);
    facade.registerProxy(first);
    EXPECT_EQ(first->registered, 1);
    EXPECT_EQ(facade.retrieveProxyAs<CountingProxy>("CountingProxy"), first);

    auto second = makeProxy<CountingProxy>();
    facade.registerProxy(second);
    EXPECT_EQ(facade.retrieveProxy("CountingProxy"), second);

    EXPECT_EQ(facade.removeProxy("CountingProxy"), second);
    EXPECT_EQ(second->removed, 1);
    EXPECT_FALSE(facade.hasProxy("CountingProxy"));
    EXPECT_EQ(facade.removeProxy("CountingProxy"), nullptr);
    EXPECT_EQ(facade.retrieveProxy("Nobody"), nullptr);
}

TEST_F(FrameworkTest, DefaultNamesComeFromTheClass) {
    EXPECT_EQ(Proxy::proxy()->proxyName(), "Proxy");
    EXPECT_EQ(Proxy::withProxyName("Named")->proxyName(), "Named");
    EXPECT_EQ(Mediator::mediator()->mediatorName(), "Mediator");
    EXPECT_EQ(makeProxy<CountingProxy>()->proxyName(), "CountingProxy");
}
