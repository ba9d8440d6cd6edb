// MediaProxy's loading states, timer and fret arithmetic (on an engine
// without a device, so loading finishes at once and nothing sounds).
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "sound/MediaProxy.h"
#include "sound/WaveOutput.h"

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
        counter_ = makeMediator<CompletionCounter>();
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
    std::shared_ptr<CompletionCounter> counter_;
};

struct FretRow {
    const char* name;
    int fret;
    int string;
    const char* line;
};

void PrintTo(const FretRow& row, std::ostream* os) {
    *os << row.name;
}

class MediaProxyFrets : public MediaProxyTest, public ::testing::WithParamInterface<FretRow> {};

}  // namespace

TEST_F(MediaProxyTest, LoadsOnThePollAfterLoadingAndNotifiesOnce) {
    EXPECT_FALSE(proxy_->isBuffersLoaded());
    EXPECT_EQ(proxy_->trackTime(), 0.0f);

    proxy_->loadSoundBuffers();
    proxy_->loadSoundBuffers();
    EXPECT_TRUE(logged("BUFERS LOAD"));
    EXPECT_EQ(loop_.activeTimers(), 1u) << "a second load must not start a second timer";
    EXPECT_FALSE(proxy_->isBuffersLoaded());

    loop_.advance(199ms);
    EXPECT_FALSE(proxy_->isBuffersLoaded());
    loop_.advance(1ms);
    EXPECT_TRUE(proxy_->isBuffersLoaded());
    EXPECT_EQ(counter_->count, 1);
    EXPECT_EQ(loop_.activeTimers(), 0u);

    loop_.advance(1s);
    EXPECT_EQ(counter_->count, 1);

    proxy_->unloadSoundBuffers();
    EXPECT_FALSE(proxy_->isBuffersLoaded());
}

TEST_F(MediaProxyTest, DestroyingTheProxyStopsItsTimer) {
    proxy_->loadSoundBuffers();
    ASSERT_EQ(loop_.activeTimers(), 1u);
    proxy_.reset();
    EXPECT_EQ(loop_.activeTimers(), 0u);
    loop_.advance(1s);
    EXPECT_EQ(counter_->count, 0);
}

TEST_P(MediaProxyFrets, LogsFretStringAndPitch) {
    const auto& row = GetParam();
    proxy_->playSoundByFret(row.fret, row.string, false);
    proxy_->stopSound(row.string + 1);
    EXPECT_TRUE(logged(row.line)) << (lines_.empty() ? "" : lines_.back());
}

INSTANTIATE_TEST_SUITE_P(
    Pitches, MediaProxyFrets,
    ::testing::Values(FretRow{"Open", 0, 0, "fret = 0, string = 0 pitch = 1.000000"},
                      FretRow{"Fifth", 7, 0, "fret = 7, string = 0 pitch = 1.498307"},
                      FretRow{"Octave", 12, 5, "fret = 12, string = 5 pitch = 2.000000"},
                      FretRow{"TwoBelow", -2, 5, "fret = -2, string = 5 pitch = 0.890899"}),
    [](const auto& info) { return std::string(info.param.name); });
