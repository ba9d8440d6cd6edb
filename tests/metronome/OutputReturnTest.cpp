// The metronome through a real sound server whose output goes away and
// comes back (a USB interface unplugged and plugged in again): its click is
// heard again soon after, and its beats went on counting meanwhile. Run by
// output_return.sh inside a private PulseAudio server with a null sink
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

#include "ClickFiles.h"
#include "metronome/MetronomePlayer.h"
#include "sound/SoundEngine.h"

namespace zt::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// The engine with the metronome's three clicks loaded, as the app has them.
class LoadedClicks {
public:
    LoadedClicks()
        : files_{writeClick("tick", 0.5f), writeClick("tock", 0.8f), writeClick("subtick", 0.3f)} {
        engine.loadBuffersAsync({{51, files_[0]}, {52, files_[1]}, {53, files_[2]}});
        for (int waited = 0; engine.loadProgress() < 1.0f && waited < 1000; ++waited)
            std::this_thread::sleep_for(5ms);
    }
    ~LoadedClicks() {
        for (const auto& f : files_)
            std::filesystem::remove(f);
    }
    SoundEngine engine;

private:
    std::vector<std::filesystem::path> files_;
};

// Beats the player reports heard within `span`.
int beatsHeardWithin(MetronomePlayer& player, std::chrono::milliseconds span) {
    int beats = 0;
    for (const auto until = Clock::now() + span; Clock::now() < until;) {
        while (player.takeHeardBeat())
            ++beats;
        std::this_thread::sleep_for(10ms);
    }
    return beats;
}

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

// Inside output_return.sh's private server, whose sink "zt_tone" may be
// unplugged and plugged in again.
bool onPrivateServer() {
    return std::getenv("PULSE_SERVER") &&
           run("pactl list short sinks").find("zt_tone") != std::string::npos;
}

// The sink "zt_tone" taken away, as a USB interface unplugged; false when it
// was not there.
bool unplugSink() {
    const std::string module =
        run("pactl list short modules | awk '/sink_name=zt_tone/{print $1}'");
    if (module.empty())
        return false;
    run("pactl unload-module " + module);
    return true;
}

void plugSinkIn() {
    run("pactl load-module module-null-sink sink_name=zt_tone rate=44100 >/dev/null");
}

// A null sink loaded with no client mixes its first 2 s ahead and only then
// asks its clients for less, so nothing played into it, by any program, is
// heard for that long; a hardware output starts at once at the latency its
// clients ask for. Waking the sink once a listener is attached makes it start
// as hardware does, so that what is measured is the engine's return, not the
// null sink's first block.
void wakeSink() {
    std::this_thread::sleep_for(50ms);
    run("pactl suspend-sink zt_tone 1; pactl suspend-sink zt_tone 0");
}

TEST(OutputReturn, TheClickIsHeardAgainSoonAfterTheSinkComesBack) {
    if (!onPrivateServer())
        GTEST_SKIP() << "needs the private PulseAudio server of output_return.sh";
    LoadedClicks clicks;
    ASSERT_TRUE(clicks.engine.hasDevice());
    ASSERT_GE(clicks.engine.loadProgress(), 1.0f);
    MetronomePlayer player(clicks.engine);
    {
        Listener before;
        std::this_thread::sleep_for(300ms);
        player.start(setupAt(240));  // a beat every quarter second
        ASSERT_TRUE(before.firstClick(4s)) << "no click before the sink went";
    }

    beatsHeardWithin(player, 0ms);
    const auto goneAt = Clock::now();
    ASSERT_TRUE(unplugSink());
    // Without a device the stream's clock goes on with the wall clock, so
    // the beats go on counting (the beat display keeps its place).
    const int counted = beatsHeardWithin(player, 1500ms);
    EXPECT_NEAR(counted, seconds(Clock::now() - goneAt) * 4.0, 1.5);

    plugSinkIn();
    const auto backAt = Clock::now();
    Listener after;
    wakeSink();
    const auto heard = after.firstClick(4s);
    ASSERT_TRUE(heard) << "no click within 4 s of the sink's return";
    const double delay = seconds(*heard - backAt);
    std::printf(
        "first click %.3f s after the sink came back (the sink first gave sound after %.3f s)\n",
        delay, after.firstSound() ? seconds(*after.firstSound() - backAt) : -1.0);
    EXPECT_LT(delay, 2.0);
    player.stop();
}

// A sound played from its own buffer (the click pack's preview) after the
// output was replaced: the old device's buffers went with it, so the sound
// is heard only if its buffer is made again in the new one.
TEST(OutputReturn, ASoundPlayedFromItsBufferIsHeardAfterTheSinkComesBack) {
    if (!onPrivateServer())
        GTEST_SKIP() << "needs the private PulseAudio server of output_return.sh";
    LoadedClicks clicks;
    ASSERT_TRUE(clicks.engine.hasDevice());
    clicks.engine.defineSourceGroups({1});
    {
        Listener before;
        std::this_thread::sleep_for(300ms);
        ASSERT_TRUE(clicks.engine.playSound(51, 0, 1.0f, 0.0f, 1.0f, true));
        ASSERT_TRUE(before.firstClick(4s)) << "no sound from the buffer before the sink went";
    }
    clicks.engine.stopSourceGroup(0);

    ASSERT_TRUE(unplugSink());
    std::this_thread::sleep_for(1s);
    plugSinkIn();
    Listener after;
    wakeSink();
    // Until the engine has found the new device, a sound started goes to the
    // old one; so it is started again now and then, as a user would tap.
    std::optional<Clock::time_point> heard;
    for (int tries = 0; !heard && tries < 16; ++tries) {
        clicks.engine.playSound(51, 0, 1.0f, 0.0f, 1.0f, true);
        heard = after.firstClick(250ms);
    }
    EXPECT_TRUE(heard) << "the sound's buffer was not made again for the new device";
    clicks.engine.stopSourceGroup(0);
}

// Another output chosen in the system while the click plays (headphones
// plugged in): the click moves there, as any other program's sound does.
TEST(OutputReturn, TheClickFollowsTheSystemsChoiceOfOutput) {
    if (!onPrivateServer())
        GTEST_SKIP() << "needs the private PulseAudio server of output_return.sh";
    run("pactl load-module module-null-sink sink_name=zt_phones rate=44100 >/dev/null");
    run("pactl set-default-sink zt_tone");
    LoadedClicks clicks;
    ASSERT_TRUE(clicks.engine.hasDevice());
    MetronomePlayer player(clicks.engine);
    {
        Listener speakers;
        player.start(setupAt(240));
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
    player.stop();
    run("pactl set-default-sink zt_tone");
}

}  // namespace
}  // namespace zt::test
