// Delivery-order rules of notifications to commands and mediators.
#include <gtest/gtest.h>

#include "framework/Facade.h"
#include "framework/View.h"

using namespace zt;

namespace {

std::vector<std::string> trace;

class DeliveryTest : public ::testing::Test {
protected:
    void SetUp() override {
        Facade::reset();
        trace.clear();
    }
    void TearDown() override { Facade::reset(); }
};

struct TraceMediator : Mediator {
    TraceMediator(std::string name, std::vector<std::string> interests)
        : Mediator(std::move(name)), interests_(std::move(interests)) {}
    std::vector<std::string> listNotificationInterests() const override { return interests_; }
    void handleNotification(const Notification& n) override {
        trace.push_back(mediatorName() + ":" + n.name());
        if (onHandle)
            onHandle(n);
    }
    void onRegister() override { trace.push_back(mediatorName() + ":registered"); }
    void onRemove() override { trace.push_back(mediatorName() + ":removed"); }
    std::function<void(const Notification&)> onHandle;
    std::vector<std::string> interests_;
};

template <int Tag>
struct TraceCommand : SimpleCommand {
    TraceCommand() { ++constructed; }
    void execute(const Notification& n) override {
        trace.push_back("cmd" + std::to_string(Tag) + ":" + n.name());
    }
    static inline int constructed = 0;
};

struct Macro : MacroCommand {
    void initializeMacroCommand() override {
        addSubCommand(commandClass<TraceCommand<1>>());
        addSubCommand(commandClass<TraceCommand<2>>());
        addSubCommand(commandClass<TraceCommand<1>>());
    }
};

}  // namespace

TEST_F(DeliveryTest, UnobservedNameIsDroppedSilently) {
    Facade::getInstance().sendNotification("Nobody");
    EXPECT_TRUE(trace.empty());
}

TEST_F(DeliveryTest, CommandRunsBeforeMediatorsThenMediatorsInRegistrationOrder) {
    auto& facade = Facade::getInstance();
    facade.registerCommand("Go", commandClass<TraceCommand<1>>());
    facade.registerMediator(makeMediator<TraceMediator>("B", std::vector<std::string>{"Go"}));
    facade.registerMediator(
        makeMediator<TraceMediator>("A", std::vector<std::string>{"Go", "Other"}));
    trace.clear();
    facade.sendNotification("Go");
    EXPECT_EQ(trace, (std::vector<std::string>{"cmd1:Go", "B:Go", "A:Go"}));
}

TEST_F(DeliveryTest, ReplacingACommandKeepsOneObserverAndFreshInstances) {
    auto& facade = Facade::getInstance();
    facade.registerCommand("Go", commandClass<TraceCommand<1>>());
    facade.registerCommand("Go", commandClass<TraceCommand<2>>());
    EXPECT_EQ(facade.view().observerCount("Go"), 1u);
    TraceCommand<2>::constructed = 0;
    facade.sendNotification("Go");
    facade.sendNotification("Go");
    EXPECT_EQ(trace, (std::vector<std::string>{"cmd2:Go", "cmd2:Go"}));
    EXPECT_EQ(TraceCommand<2>::constructed, 2);

    facade.removeCommand("Go");
    EXPECT_FALSE(facade.hasCommand("Go"));
    facade.sendNotification("Go");
    EXPECT_EQ(trace.size(), 2u);
}

TEST_F(DeliveryTest, DuplicateMediatorNameKeepsTheFirst) {
    auto& facade = Facade::getInstance();
    auto first = makeMediator<TraceMediator>("M", std::vector<std::string>{"Go"});
    auto second = makeMediator<TraceMediator>("M", std::vector<std::string>{"Go"});
    facade.registerMediator(first);
    facade.registerMediator(second);
    EXPECT_EQ(facade.retrieveMediator("M"), first);
    EXPECT_EQ(facade.view().observerCount("Go"), 1u);
    EXPECT_EQ(trace, (std::vector<std::string>{"M:registered"}));
}

TEST_F(DeliveryTest, ChangesDuringDeliveryDoNotDisturbTheCurrentDelivery) {
    auto& facade = Facade::getInstance();
    auto self = makeMediator<TraceMediator>("Self", std::vector<std::string>{"Go"});
    self->onHandle = [&](const Notification&) {
        facade.removeMediator("Self");
        facade.registerMediator(
            makeMediator<TraceMediator>("Late", std::vector<std::string>{"Go"}));
    };
    facade.registerMediator(self);
    facade.registerMediator(makeMediator<TraceMediator>("After", std::vector<std::string>{"Go"}));
    trace.clear();
    facade.sendNotification("Go");
    EXPECT_EQ(trace,
              (std::vector<std::string>{"Self:Go", "Self:removed", "Late:registered", "After:Go"}));
    EXPECT_FALSE(self->viewComponent().has_value());

    trace.clear();
    facade.sendNotification("Go");
    EXPECT_EQ(trace, (std::vector<std::string>{"After:Go", "Late:Go"}));
}

// Nobody but the registry holds the removed mediator: it must live until
// the delivery under way has reached it (ASan reports the use otherwise).
TEST_F(DeliveryTest, MediatorRemovedByAnotherDuringDeliveryIsStillAliveForIt) {
    auto& facade = Facade::getInstance();
    auto first = makeMediator<TraceMediator>("First", std::vector<std::string>{"Go"});
    first->onHandle = [&](const Notification&) { facade.removeMediator("Second"); };
    facade.registerMediator(first);
    auto second = makeMediator<TraceMediator>("Second", std::vector<std::string>{"Go"});
    std::weak_ptr<TraceMediator> watch = second;
    facade.registerMediator(std::move(second));
    trace.clear();
    facade.sendNotification("Go");
    EXPECT_EQ(trace, (std::vector<std::string>{"First:Go", "Second:removed", "Second:Go"}));
    EXPECT_TRUE(watch.expired());

    trace.clear();
    facade.sendNotification("Go");
    EXPECT_EQ(trace, (std::vector<std::string>{"First:Go"}));
}

TEST_F(DeliveryTest, RemovingAMediatorRemovesOnlyItsOwnObservers) {
    auto& facade = Facade::getInstance();
    facade.registerCommand("Go", commandClass<TraceCommand<1>>());
    facade.registerMediator(
        makeMediator<TraceMediator>("A", std::vector<std::string>{"Go", "Solo"}));
    facade.registerMediator(makeMediator<TraceMediator>("B", std::vector<std::string>{"Go"}));
    EXPECT_NE(facade.removeMediator("A"), nullptr);
    EXPECT_EQ(facade.view().observerCount("Solo"), 0u);
    EXPECT_EQ(facade.removeMediator("A"), nullptr);
    trace.clear();
    facade.sendNotification("Go");
    EXPECT_EQ(trace, (std::vector<std::string>{"cmd1:Go", "B:Go"}));
}

TEST_F(DeliveryTest, SameObserverTwiceIsDeliveredTwiceAndRemovedOneAtATime) {
    auto& view = Facade::getInstance().view();
    int calls = 0;
    int context = 0;
    auto observer = Observer::withNotifyMethod([&](const Notification&) { ++calls; }, &context);
    view.registerObserver("Go", observer);
    view.registerObserver("Go", observer);
    Facade::getInstance().sendNotification("Go");
    EXPECT_EQ(calls, 2);
    view.removeObserver("Go", &context);
    EXPECT_EQ(view.observerCount("Go"), 1u);
}

TEST_F(DeliveryTest, MacroRunsSubCommandsInOrderAsNewInstances) {
    auto& facade = Facade::getInstance();
    facade.registerCommand("Macro", commandClass<Macro>());
    TraceCommand<1>::constructed = 0;
    facade.sendNotification("Macro", 5);
    EXPECT_EQ(trace, (std::vector<std::string>{"cmd1:Macro", "cmd2:Macro", "cmd1:Macro"}));
    EXPECT_EQ(TraceCommand<1>::constructed, 2);
}

TEST_F(DeliveryTest, BodyAndTypeReachTheObserver) {
    auto& facade = Facade::getInstance();
    auto m = makeMediator<TraceMediator>("M", std::vector<std::string>{"Go"});
    int body = 0;
    std::string type;
    m->onHandle = [&](const Notification& n) {
        body = *n.bodyAs<int>();
        type = n.type().value_or("");
    };
    facade.registerMediator(m);
    facade.sendNotification("Go", 42, "answer");
    EXPECT_EQ(body, 42);
    EXPECT_EQ(type, "answer");
}
