// A tuner reading allocates nothing once the session runs: the capture
// thread's hand-over, the analysis with either detector, and the note choice.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "dsp/FakeCapture.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/MainFrequerncyProxy.h"

namespace {
std::atomic<bool> counting{false};
std::atomic<int> allocations{0};
}  // namespace

// The replacements pair malloc with free; the compiler cannot tell.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

void* operator new(std::size_t size) {
    if (counting)
        ++allocations;
    if (void* p = std::malloc(size ? size : 1))
        return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}

namespace zt {
namespace {

TEST(Allocation, AReadingAllocatesNothing) {
    Facade::reset();
    setLogQuiet(true);
    auto capture = std::make_shared<testing::FakeCapture>();
    auto proxy = makeProxy<MainFrequerncyProxy>(capture);
    proxy->initVariables({});
    proxy->startAudioSession();
    const auto sound = testing::sine(110.0, 8000, 6000.0);
    const std::vector<std::int16_t> start(sound.begin(), sound.begin() + 2400);
    std::vector<std::vector<std::int16_t>> hops;
    for (std::size_t at = 2400; at < sound.size(); at += 400) {
        hops.emplace_back(sound.begin() + static_cast<std::ptrdiff_t>(at),
                          sound.begin() + static_cast<std::ptrdiff_t>(at + 400));
    }
    for (bool classic : {false, true}) {
        for (bool allNotes : {false, true}) {
            proxy->setClassicDetection(classic);
            proxy->setIsAllNotes(allNotes);
            capture->feed(start);
            proxy->getNoteDesctiption();  // the tuning's candidates are made once
            allocations = 0;
            counting = true;
            for (const auto& hop : hops) {
                capture->feed(hop);
                proxy->getNoteDesctiption();
            }
            counting = false;
            EXPECT_EQ(allocations, 0)
                << (classic ? "classic" : "fine") << (allNotes ? ", all notes" : ", strings");
        }
    }
    proxy->stopAudioSession();
    Facade::reset();
    setLogQuiet(false);
}

}  // namespace
}  // namespace zt
