// From a string's pluck to the chromatic tuner's needle settling on it, for
// the fine and the overtone detectors. The real screen, mediator, frequency
// service and analyzer run on a capture driven here in step with the
// screen's poll: every 50 ms the next 400 samples arrive and one reading is
// asked for, as when the tuner is on show. The needle is then moved as the
// view moves it: a straight swing to each target at the screen's speed
// (0.01 s per cent of the target).
//
// Notes: the six open strings of the Standard tuning, each in tune, 15 cents
// sharp and 25 cents flat, plucked at three points within a poll period
// (synthetic plucks, see PluckedString.h), after a second of silence.
// Settled: from then to the end of the note (2 s) the string is lit, its
// frequency shown, and the needle stays within 2 cents of where the true
// deviation puts it. Prints median, 90th
// percentile and worst per detector. The capture device's own latency (tens
// of ms) comes on top. A second or two: the short mode is the whole run.
// Fails when a row has no note that settled, a figure that says nothing.

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "PitchHarness.h"
#include "dsp/FakeCapture.h"
#include "dsp/PluckedString.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/FrequencyCommands.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tuners/ui/TunerChromatic.h"
#include "tuners/ui/TunerChromaticMediator.h"
#include "tuners/ui/TunerDial.h"
#include "tunings/SettingsProxy.h"

namespace {

using namespace zt;

constexpr int kRate = 8000;
constexpr int kHop = 400;  // samples per poll (50 ms)
constexpr double kSilence = 1.0;
constexpr double kNote = 2.0;

struct Swing {
    double start, from, to, seconds;
};

// The drawn angle at time t of a needle given these swings in order.
double drawnAt(const std::vector<Swing>& swings, double t) {
    double angle = 0.0;
    for (const Swing& s : swings) {
        if (s.start > t)
            break;
        const double done = s.seconds <= 0 ? 1.0 : std::min(1.0, (t - s.start) / s.seconds);
        angle = s.from + (s.to - s.from) * done;
    }
    return angle;
}

// Seconds from the pluck to the needle settling, or a negative number.
double settleTime(bool classic, int string, double hertz, double cents, int phase,
                  std::mt19937& random) {
    Facade::reset();
    Facade& f = Facade::getInstance();
    f.registerCommand("GetMainFrequerncy", commandClass<GetMainFrequerncyCommand>());
    f.registerCommand("StartAudioSession", commandClass<StartAudioSessionCommand>());
    f.registerCommand("StopAudioSession", commandClass<StopAudioSessionCommand>());
    f.registerProxy(makeProxy<SettingsProxy>());
    auto capture = std::make_shared<testing::FakeCapture>();
    auto proxy = makeProxy<MainFrequerncyProxy>(capture);
    f.registerProxy(proxy);
    TunerChromatic screen;
    f.registerMediator(makeMediator<TunerChromaticMediator>(&screen));
    proxy->initVariables({});
    // After the saved settings, which choose the fine detector.
    proxy->setClassicDetection(classic);
    proxy->setTresholdPercent(10);
    proxy->startAudioSession();

    std::vector<Swing> swings;
    double now = 0.0;
    double namedFrom = -1.0;
    QObject::connect(&screen, &TunerChromatic::needleMoved, [&] {
        swings.push_back({now, drawnAt(swings, now), screen.needleAngle(), screen.needleSeconds()});
    });

    testing::StringPluck pluck;
    pluck.frequency = hertz * std::pow(2.0, cents / 1200.0);
    pluck.level = 0.2;
    pluck.decay = 1.6 * std::sqrt(110.0 / hertz);
    const double before = kSilence + static_cast<double>(phase) / kRate;
    const auto samples = testing::toSamples(renderPluck(pluck, before, kNote, kRate, random));
    for (std::size_t at = 0; at + kHop <= samples.size(); at += kHop) {
        capture->feed({samples.begin() + static_cast<std::ptrdiff_t>(at),
                       samples.begin() + static_cast<std::ptrdiff_t>(at + kHop)});
        now = static_cast<double>(at + kHop) / kRate;
        f.sendNotification("GetMainFrequerncy", static_cast<Proxy*>(proxy.get()));
        // The string lit and a frequency shown, from this reading on.
        const bool named = screen.activeSlot() == string && !screen.frequencyText().isEmpty();
        if (!named)
            namedFrom = -1.0;
        else if (namedFrom < 0)
            namedFrom = now;
    }
    proxy->stopAudioSession();
    Facade::reset();

    const double low = dial::convertAngle(cents - 2, false);
    const double high = dial::convertAngle(cents + 2, false);
    const double end = static_cast<double>(samples.size()) / kRate;
    double settled = -1.0;
    for (double t = end; t >= before; t -= 0.001) {
        const double a = drawnAt(swings, t);
        if (a < low || a > high)
            break;
        settled = t;
    }
    if (settled < 0 || namedFrom < 0)
        return -1.0;
    return std::max(settled, namedFrom) - before;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    int emptyRows = 0;
    setLogQuiet(true);
    const double strings[] = {82.4069, 110.0, 146.8324, 195.9977, 246.9417, 329.6276};
    const double detunings[] = {0.0, 15.0, -25.0};
    std::printf("detector  cents  notes  median  p90     worst   never settled\n");
    for (bool classic : {false, true}) {
        std::mt19937 random(7);
        for (double cents : detunings) {
            std::vector<double> times;
            int never = 0;
            for (int string = 0; string < 6; ++string) {
                for (int phase : {0, kHop / 3, 2 * kHop / 3}) {
                    const double t =
                        settleTime(classic, string, strings[string], cents, phase, random);
                    if (t < 0) {
                        ++never;
                    } else {
                        times.push_back(t);
                    }
                }
            }
            std::printf("%-8s  %+5.0f  %5zu  %.2f s  %.2f s  %.2f s  %d\n",
                        classic ? "overtone" : "fine", cents,
                        times.size() + static_cast<std::size_t>(never), bench::quantile(times, 0.5),
                        bench::quantile(times, 0.9),
                        times.empty() ? 0.0 : *std::max_element(times.begin(), times.end()), never);
            emptyRows += times.empty();
        }
    }
    if (emptyRows > 0) {
        std::fprintf(stderr, "Not measured: %d rows without a note that settled\n", emptyRows);
        return 1;
    }
    return 0;
}
