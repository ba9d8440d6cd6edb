// The engine through a real sound server whose output goes away and comes
// back (a USB interface unplugged and plugged in again): a metronome-like
// stream is heard again soon after, and its clock kept time meanwhile. Run
// by output_return.sh inside a private PulseAudio server with a null sink
// "zt_tone"; skipped without one.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "sound/SoundEngine.h"

namespace zt::testing {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
constexpr int kRate = SoundEngine::kSampleRate;
constexpr std::int64_t kBeatFrames = kRate / 4;

// A click of 10 ms every quarter second of the stream's clock.
struct ClickRenderer : StreamRenderer {
    void render(float* out, int frames, std::int64_t firstFrame) override {
        for (int i = 0; i < frames; ++i) {
            const std::int64_t inBeat = (firstFrame + i) % kBeatFrames;
            out[i] = inBeat < kRate / 100 ? 0.8f * std::sin(0.14f * float(inBeat)) : 0.0f;
        }
    }
};

std::string run(const std::string& command) {
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char line[256];
        while (fgets(line, sizeof line, pipe))
            output += line;
        pclose(pipe);
    }
    return output;
}

// Listens to the sink's monitor and notes when the first click arrives.
class Listener {
public:
    explicit Listener(const std::string& sink = "zt_tone") {
        const std::string device = "--device=" + sink + ".monitor";
        int ends[2];
        if (pipe(ends) != 0)
            return;
        pid_ = fork();
        if (pid_ == 0) {
            dup2(ends[1], STDOUT_FILENO);
            close(ends[0]);
            execlp("parec", "parec", device.c_str(), "--format=s16le", "--channels=1",
                   "--rate=44100", "--latency-msec=20", "--raw", nullptr);
            _exit(127);
        }
        close(ends[1]);
        pipe_ = fdopen(ends[0], "r");
        thread_ = std::thread([this] {
            std::vector<short> chunk(441);
            while (pipe_) {
                const size_t got = fread(chunk.data(), sizeof(short), chunk.size(), pipe_);
                if (got == 0)
                    break;
                {
                    std::lock_guard guard(mutex_);
                    if (!firstSound_)
                        firstSound_ = Clock::now();
                }
                for (size_t i = 0; i < got; ++i) {
                    if (std::abs(chunk[i]) > 8000) {
                        std::lock_guard guard(mutex_);
                        if (!firstClick_)
                            firstClick_ = Clock::now();
                        break;
                    }
                }
            }
        });
    }
    ~Listener() {
        if (pid_ > 0) {
            kill(pid_, SIGTERM);
            waitpid(pid_, nullptr, 0);
        }
        if (thread_.joinable())
            thread_.join();
        if (pipe_)
            fclose(pipe_);
    }
    // When the first click was heard, waiting up to `limit` for it.
    std::optional<Clock::time_point> firstClick(std::chrono::milliseconds limit) {
        const auto until = Clock::now() + limit;
        while (Clock::now() < until) {
            {
                std::lock_guard guard(mutex_);
                if (firstClick_)
                    return firstClick_;
            }
            std::this_thread::sleep_for(10ms);
        }
        return std::nullopt;
    }
    // When the monitor first gave anything at all, silence included.
    std::optional<Clock::time_point> firstSound() {
        std::lock_guard guard(mutex_);
        return firstSound_;
    }

private:
    pid_t pid_ = -1;
    FILE* pipe_ = nullptr;
    std::mutex mutex_;
    std::optional<Clock::time_point> firstClick_;
    std::optional<Clock::time_point> firstSound_;
    std::thread thread_;
};

double seconds(Clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

TEST(OutputReturn, TheClickIsHeardAgainSoonAfterTheSinkComesBack) {
    if (!std::getenv("PULSE_SERVER") ||
        run("pactl list short sinks").find("zt_tone") == std::string::npos)
        GTEST_SKIP() << "needs the private PulseAudio server of output_return.sh";
    SoundEngine engine;
    ASSERT_TRUE(engine.hasDevice());
    ClickRenderer clicks;
    {
        Listener before;
        std::this_thread::sleep_for(300ms);
        ASSERT_TRUE(engine.startStream(&clicks));
        ASSERT_TRUE(before.firstClick(4s)) << "no click before the sink went";
    }

    const std::string module =
        run("pactl list short modules | awk '/sink_name=zt_tone/{print $1}'");
    ASSERT_FALSE(module.empty());
    const auto goneAt = Clock::now();
    const std::int64_t goneFrame = engine.streamPosition(&clicks);
    run("pactl unload-module " + module);
    std::this_thread::sleep_for(1500ms);
    // Without a device the stream's clock goes on with the wall clock.
    const double outage = seconds(Clock::now() - goneAt);
    const double advanced = double(engine.streamPosition(&clicks) - goneFrame) / kRate;
    EXPECT_NEAR(advanced, outage, 0.15);

    run("pactl load-module module-null-sink sink_name=zt_tone rate=44100 >/dev/null");
    const auto backAt = Clock::now();
    Listener after;
    const auto heard = after.firstClick(4s);
    ASSERT_TRUE(heard) << "no click within 4 s of the sink's return";
    const auto sinkHeard = after.firstSound();
    ASSERT_TRUE(sinkHeard);
    // A returned null sink mixes its first 2 s ahead before anyone asks it
    // for less, so its monitor gives nothing at all, not even silence, for
    // about that long: no program can be heard on it sooner. What the engine
    // owes is the time from then to its click (a click is due every 0.25 s).
    const double delay = seconds(*heard - backAt);
    const double engineShare = seconds(*heard - *sinkHeard);
    std::printf(
        "first click %.3f s after the sink came back; the sink was first heard at all after "
        "%.3f s, the click %.3f s after that\n",
        delay, seconds(*sinkHeard - backAt), engineShare);
    EXPECT_LT(engineShare, 0.5);
    engine.stopStream(&clicks);
}

// Another output chosen in the system while the click plays (headphones
// plugged in): the click moves there, as any other program's sound does.
TEST(OutputReturn, TheClickFollowsTheSystemsChoiceOfOutput) {
    if (!std::getenv("PULSE_SERVER") ||
        run("pactl list short sinks").find("zt_tone") == std::string::npos)
        GTEST_SKIP() << "needs the private PulseAudio server of output_return.sh";
    run("pactl load-module module-null-sink sink_name=zt_phones rate=44100 >/dev/null");
    run("pactl set-default-sink zt_tone");
    SoundEngine engine;
    ASSERT_TRUE(engine.hasDevice());
    ClickRenderer clicks;
    {
        Listener speakers;
        ASSERT_TRUE(engine.startStream(&clicks));
        ASSERT_TRUE(speakers.firstClick(4s)) << "no click on the first output";
    }
    Listener phones("zt_phones");
    std::this_thread::sleep_for(300ms);
    run("pactl set-default-sink zt_phones");
    const auto chosenAt = Clock::now();
    const auto heard = phones.firstClick(4s);
    ASSERT_TRUE(heard) << "the click stayed on the output it started on";
    std::printf("first click on the newly chosen output %.3f s after the choice\n",
                seconds(*heard - chosenAt));
    engine.stopStream(&clicks);
    run("pactl set-default-sink zt_tone");
}

}  // namespace
}  // namespace zt::testing
