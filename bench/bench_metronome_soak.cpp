// Soak run of the metronome as its screen drives it: MetronomeCore over a
// MetronomePlayer streaming through the sound engine (openal-soft's wave
// backend writing to /dev/null, unless --device), in real time. Every few
// seconds the tempo, pattern, time signature or pack changes, and now and
// then the window is hidden and shown again (pause, release of the idle
// stream, resume). Prints the grid error of every rendered beat within its
// run (samples), stream underruns, dropped commands, peak memory and CPU time.
//
//   bench_metronome_soak [--minutes M] [--device] [--seed S]
// (half a minute by default, a tenth in the short mode). Fails when a beat
// is off its grid, a command was dropped, or nothing played.
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "BenchRun.h"
#include "framework/Log.h"
#include "metronome/MetronomeCore.h"
#include "metronome/MetronomePlayer.h"
#include "sound/SoundBank.h"
#include "sound/SoundEngine.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Usage {
    double cpuSeconds;
    long peakKiB;
};

Usage usage() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    const auto seconds = [](timeval t) { return double(t.tv_sec) + t.tv_usec * 1e-6; };
    return {seconds(u.ru_utime) + seconds(u.ru_stime), u.ru_maxrss};
}

// Beats of one run sit at start + k * 60 * rate / bpm, rounded. A run is
// measured from the first beat taken after a change was asked for, or from
// a beat that does not follow the period. A new tempo begins its grid at the
// last beat before it, itself rounded, so up to one sample of error is exact
// timing; more would be drift.
class GridCheck {
public:
    explicit GridCheck(int rate) : rate_(rate) {}
    void restarted() { anchorNext_ = true; }
    void beat(std::int64_t frame, int bpm) {
        const double period = 60.0 * rate_ / bpm;
        if (!anchorNext_ && count_ > 0 && std::abs(double(frame - last_) - period_) <= 1.0) {
            ++k_;
            worst_ = std::max(worst_, std::abs(double(frame - start_) - k_ * period_));
        } else {
            ++runs_;
            start_ = frame;
            period_ = period;
            k_ = 0;
            anchorNext_ = false;
        }
        last_ = frame;
        ++count_;
    }
    long beats() const { return count_; }
    long runs() const { return runs_; }
    double worst() const { return worst_; }

private:
    int rate_;
    long count_ = 0, runs_ = 0;
    std::int64_t start_ = 0, last_ = 0, k_ = 0;
    double period_ = 0.0, worst_ = 0.0;
    bool anchorNext_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    double minutes = zt::bench::shortMode() ? 0.1 : 0.5;
    bool device = false;
    unsigned seed = 1;
    for (int i = 1; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--minutes") && i + 1 < argc)
            minutes = std::atof(argv[++i]);
        else if (!std::strcmp(argv[i], "--device"))
            device = true;
        else if (!std::strcmp(argv[i], "--seed") && i + 1 < argc)
            seed = unsigned(std::atoi(argv[++i]));
    }
    const auto config =
        std::filesystem::temp_directory_path() / ("zt-soak-" + std::to_string(getpid()) + ".conf");
    if (!device) {
        std::ofstream(config) << "[general]\nchannels = mono\nfrequency = 44100\n"
                                 "sample-type = float32\n[wave]\nfile = /dev/null\n";
        setenv("ALSOFT_CONF", config.c_str(), 1);
        setenv("ALSOFT_DRIVERS", "wave", 1);
    }
    long dropped = 0;
    zt::setLogQuiet(true);
    zt::setLogSink([&dropped](const std::string& line) {
        dropped += line.find("command dropped") != std::string::npos;
    });

    zt::SoundEngine sound;
    std::vector<zt::SoundRequest> clicks;
    for (int id = zt::SoundBank::kFirstClickId; id <= zt::SoundBank::kLastId; ++id)
        clicks.push_back({id, zt::SoundBank::path(zt::SoundBank::fileName(id))});
    sound.loadBuffersAsync(clicks);
    while (sound.loadProgress() < 1.0f)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    if (!sound.hasDevice()) {
        std::fprintf(stderr, "no sound output\n");
        return 1;
    }

    zt::MetronomePlayer player(sound);
    zt::MetronomeCore core(player);
    core.setSavedData({});
    core.startMetronome();

    std::mt19937 random(seed);
    auto pick = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    GridCheck grid(sound.streamSampleRate());
    const auto begin = Clock::now();
    const auto end = begin + std::chrono::duration<double>(minutes * 60.0);
    auto nextChange = begin + std::chrono::seconds(3);
    Clock::time_point showAt{};
    long changes = 0, hides = 0, releases = 0;
    bool released = false;
    int underruns = 0, bpm = core.setup().beatsPerMinute();
    const Usage atStart = usage();
    long peakAfterFirstMinute = 0;

    while (Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const auto now = Clock::now();
        while (auto beat = player.engine().takeRenderedBeat())
            grid.beat(beat->frame, bpm);
        if (showAt != Clock::time_point{}) {
            if (!released && !core.isPlaying() && player.releaseWhenSilent()) {
                released = true;
                ++releases;
            }
            if (now >= showAt) {
                core.runMetronome();
                grid.restarted();
                showAt = {};
            }
            continue;
        }
        if (now < nextChange)
            continue;
        nextChange = now + std::chrono::milliseconds(pick(2000, 5000));
        ++changes;
        const int change = pick(0, 5);
        const bool packOnly = change == 4;  // every other change moves the grid
        switch (change) {
            case 0:
            case 1:
                core.selectRow(pick(0, 220));
                break;
            case 2:
                core.setNotesPerBeat(pick(1, 6));
                break;
            case 3:
                core.setTimeSig1Value(pick(1, 16));
                core.setTimeSig2Value(pick(0, 1) ? 8 : 4);
                break;
            case 4:
                core.setCurrentPack(pick(1, 5));
                break;
            case 5:
                underruns += sound.streamUnderruns();
                core.endMetronome();
                showAt = now + std::chrono::milliseconds(pick(500, 2000));
                released = false;
                ++hides;
                break;
        }
        if (!packOnly)
            grid.restarted();
        bpm = core.setup().beatsPerMinute();
        if (peakAfterFirstMinute == 0 && now - begin > std::chrono::minutes(1))
            peakAfterFirstMinute = usage().peakKiB;
    }
    underruns += sound.streamUnderruns();
    core.stopMetronome();
    const Usage done = usage();
    const double wall = std::chrono::duration<double>(Clock::now() - begin).count();
    std::filesystem::remove(config);

    std::printf(
        "metronome soak: %.1f min of real time, %ld changes, %ld hides (%ld streams "
        "released while hidden)\n",
        wall / 60.0, changes, hides, releases);
    std::printf("  beats rendered %ld in %ld runs; largest grid error %.3f samples\n", grid.beats(),
                grid.runs(), grid.worst());
    std::printf("  stream underruns %d; commands dropped %ld\n", underruns, dropped);
    std::printf(
        "  peak memory %ld KiB (%ld KiB before playing, %ld KiB after the first "
        "minute)\n",
        done.peakKiB, atStart.peakKiB, peakAfterFirstMinute);
    std::printf("  CPU time %.2f s (%.2f %% of one core)\n", done.cpuSeconds - atStart.cpuSeconds,
                100.0 * (done.cpuSeconds - atStart.cpuSeconds) / wall);
    if (grid.beats() == 0 || changes == 0) {
        std::fprintf(stderr, "nothing measured: no beat rendered or no change made\n");
        return 1;
    }
    return grid.worst() <= 1.0 && dropped == 0 ? 0 : 1;
}
