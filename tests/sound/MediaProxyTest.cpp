// MediaProxy's loading states, timer and log, on an engine
// without an output device (so loading finishes at once and nothing sounds),
// and the engine's own behaviour without a device.
#include <gtest/gtest.h>

#include <algorithm>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "sound/MediaProxy.h"
#include "sound/SoundBank.h"
#include "sound/SoundTesting.h"

using namespace zt;
using namespace std::chrono_literals;

namespace {

struct CompletionCounter : Mediator {
    CompletionCounter() : Mediator("CompletionCounter") {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"LoadSoundBuffersComplete"};
    }
    void handleNotification(const Notification&) override { ++count; }
    int count = 0;
};

struct SilentRenderer : StreamRenderer {
    void render(float*, int, std::int64_t) override { ++calls; }
    int calls = 0;
};

class MediaProxyTest : public ::testing::Test {
protected:
    void SetUp() override {
        zt::testing::disableAudioOutput();
        Facade::reset();
        MainLoop::install(&loop_);
        setLogQuiet(true);
        setLogSink([this](const std::string& line) { lines_.push_back(line); });
        engine_ = std::make_unique<SoundEngine>();
        proxy_ = makeProxy<MediaProxy>("ZebTools", *engine_);
        Facade::getInstance().registerMediator(counter_);
    }
    void TearDown() override {
        proxy_.reset();
        Facade::reset();
        MainLoop::install(nullptr);
        setLogSink({});
        setLogQuiet(false);
    }
    bool logged(const std::string& line) const {
        return std::find(lines_.begin(), lines_.end(), line) != lines_.end();
    }

    ManualLoop loop_;
    std::vector<std::string> lines_;
    std::unique_ptr<SoundEngine> engine_;
    std::shared_ptr<MediaProxy> proxy_;
    std::shared_ptr<CompletionCounter> counter_ = makeMediator<CompletionCounter>();
};

}  // namespace

TEST_F(MediaProxyTest, EngineWithoutDeviceLogsOnceAndDoesNothing) {
    EXPECT_FALSE(engine_->hasDevice());
    ASSERT_EQ(lines_.size(), 1u);
    EXPECT_NE(lines_[0].find("no audio output device"), std::string::npos) << lines_[0];

    engine_->defineSourceGroups({1, 2});
    engine_->loadBuffersAsync({{51, SoundBank::path("1_tick.caf")}, {52, "/no/such.caf"}});
    EXPECT_EQ(engine_->loadProgress(), 1.0f);
    EXPECT_FALSE(engine_->playSound(51, 0, 1.0f, 0.0f, 1.0f, true));
    engine_->stopSourceGroup(0);
    engine_->unloadBuffer(51);
    EXPECT_EQ(engine_->decodedSamples(51), nullptr);
    SilentRenderer renderer;
    EXPECT_FALSE(engine_->startStream(&renderer));
    EXPECT_EQ(engine_->streamPosition(&renderer), 0);
    engine_->stopStream(&renderer);
    EXPECT_EQ(renderer.calls, 0);
    EXPECT_EQ(lines_.size(), 1u);
}

TEST_F(MediaProxyTest, LoadsOnThePollAfterLoadingAndNotifiesOnce) {
    EXPECT_FALSE(proxy_->isBuffersLoaded());
    proxy_->loadSoundBuffers();
    proxy_->loadSoundBuffers();
    EXPECT_EQ(loop_.activeTimers(), 1u) << "a second load must not start a second timer";

    loop_.advance(MediaProxy::kLoadPollInterval - 1ms);
    EXPECT_FALSE(proxy_->isBuffersLoaded());
    loop_.advance(1ms);
    EXPECT_TRUE(proxy_->isBuffersLoaded());
    EXPECT_EQ(loop_.activeTimers(), 0u);
    loop_.advance(1s);
    EXPECT_EQ(counter_->count, 1);

    proxy_->unloadSoundBuffers();
    EXPECT_FALSE(proxy_->isBuffersLoaded());
    proxy_->playSoundByFret(7, 0, false);
    EXPECT_TRUE(logged("fret = 7, string = 0 pitch = 1.498307")) << lines_.back();
}

TEST_F(MediaProxyTest, DestroyingTheProxyStopsItsTimer) {
    proxy_->loadSoundBuffers();
    proxy_.reset();
    EXPECT_EQ(loop_.activeTimers(), 0u);
    loop_.advance(1s);
    EXPECT_EQ(counter_->count, 0);
}
