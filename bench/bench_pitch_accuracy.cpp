// Accuracy of the two pitch detectors on synthetic plucked strings and pure
// sines, read through the tuner's own capture geometry. Prints a table.
//
// Strings (see PluckedString.h): every open string of the 53 tunings, and
// A1 to E6 three times each; each note detuned by up to +-40 cents, with a
// weak fundamental (-20 to -9 dB), inharmonicity 2e-5 to 3e-4, plucked at 8
// to 30 % of its length, partials off the law by up to 2 cents and +-8 dB,
// twins 0.3 to 1.5 cents sharp at -20 to -10 dB, peaking at -24 to -6 dBFS
// and decaying with a time constant of 1.6 s * sqrt(110 Hz / f) (0.3 to
// 2.5 s) +-30 %; clean, and with white noise 20 and 10 dB under the note's
// mean power from 0.3 to 2 s.
// Readings from 0.3 to 2 s after the pluck are scored against the first
// partial: median and 95th percentile of the cent error of good readings,
// gross errors (over 50 cents off, octave slips among them) among readings,
// and readings among frames. Onset: from the pluck to the first reading
// within 5 cents.
// The short mode takes every 9th note of each set (a few seconds). Fails
// when a row had nothing to score.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "BenchRun.h"
#include "PitchHarness.h"
#include "PitchSet.h"
#include "dsp/FinePDA.h"
#include "dsp/NotationFacade.h"
#include "dsp/OvertonePDA.h"
#include "dsp/PluckedString.h"
#include "tunings/TuningCatalogue.h"

namespace {

using namespace zt;
using bench::score;
using bench::Tally;

constexpr int kRate = 8000;
constexpr double kBefore = 0.5;
constexpr double kAfter = 2.2;
constexpr int kSensitivity = 10;   // the saved default
constexpr int kDefaultWindow = 1;  // taper mode 0: Gauss

int unmeasuredRows = 0;

void row(const char* detector, const char* set, const char* noise, const Tally& tally) {
    bench::printRow(detector, set, noise, tally);
    unmeasuredRows += tally.readings == 0;
}

// Every 9th element in the short mode, all of them otherwise. 9 has no
// factor in common with the 56 semitones of a chromatic pass, so that the
// passes sample different notes.
template <typename T>
std::vector<T> sample(std::vector<T> all) {
    if (!bench::shortMode())
        return all;
    std::vector<T> some;
    for (std::size_t i = 0; i < all.size(); i += 9)
        some.push_back(std::move(all[i]));
    return some;
}

double noteFrequency(const std::string& token) {
    static const char* names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    const int octave = token.back() - '0';
    const std::string name = token.substr(0, token.size() - 1);
    for (int step = 0; step < 12; ++step) {
        if (name == names[step])
            return NotationFacade::getEtalonNotes()
                .getListNotes()[octave * 12 + step]
                .getFrequency();
    }
    return 0.0;
}

std::vector<double> stringSet(bool openStrings) {
    std::vector<double> notes;
    if (openStrings) {
        for (const auto& tuning : tunings::catalogue()) {
            for (const auto& token : tunings::tokens(tuning.notes))
                notes.push_back(noteFrequency(token));
        }
    } else {
        for (int repeat = 0; repeat < 3; ++repeat) {
            for (int semitone = 0; semitone <= 55; ++semitone)
                notes.push_back(55.0 * std::pow(2.0, semitone / 12.0));
        }
    }
    return notes;
}

Tally runStrings(FourierPDA& detector, const std::vector<double>& notes, double snr,
                 unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    Tally tally;
    for (double nominal : notes) {
        testing::StringPluck pluck;
        pluck.frequency = nominal * std::pow(2.0, (uniform(random) * 80.0 - 40.0) / 1200.0);
        pluck.inharmonicity = 2e-5 * std::pow(15.0, uniform(random));
        pluck.pluckPosition = 0.08 + 0.22 * uniform(random);
        pluck.fundamentalGain = std::pow(10.0, (-20.0 + 11.0 * uniform(random)) / 20.0);
        pluck.level = std::pow(10.0, (-24.0 + 18.0 * uniform(random)) / 20.0);
        pluck.decay = std::clamp(1.6 * std::pow(110.0 / pluck.frequency, 0.5), 0.3, 2.5) *
                      (0.7 + 0.6 * uniform(random));
        pluck.twinCents = 0.3 + 1.2 * uniform(random);
        pluck.twinGain = std::pow(10.0, (-20.0 + 10.0 * uniform(random)) / 20.0);
        const double before = kBefore + uniform(random) * 0.05;
        auto signal = testing::renderPluck(pluck, before, kAfter, kRate, random);
        if (snr < 100.0) {
            const auto onset = static_cast<std::size_t>(before * kRate);
            testing::addNoise(signal, onset + static_cast<std::size_t>(0.3 * kRate),
                              onset + static_cast<std::size_t>(2.0 * kRate), snr, random);
        }
        const auto readings = bench::readAll(detector, testing::toSamples(signal));
        score(tally, readings, static_cast<std::size_t>(before * kRate) / double(kRate),
              pluck.frequency);
    }
    return tally;
}

// ZT_PITCH_NOTES=GROUP prints a line per note of the groups whose name holds
// GROUP, to see where a row's figures come from. Never for held-out notes:
// they are only scored, so that they stay out of the tuning.
bool perNote(const char* group) {
    const char* wanted = std::getenv("ZT_PITCH_NOTES");
    const std::string name = group;
    return wanted && name.find(wanted) != std::string::npos &&
           name.find("held") == std::string::npos;
}

// A note's readings: its gross ones among those scored (with the median ratio
// of their frequency to the truth, 2 for an octave high), the p95 of the rest,
// and its gross ones in the first 0.3 s.
void printNote(const char* detector, const bench::SampledNote& note, const char* noise,
               const std::vector<bench::Reading>& readings) {
    Tally tally;
    const double onset = static_cast<double>(note.onset) / kRate;
    score(tally, readings, onset, [&note](double t) { return note.truthAt(t); });
    std::vector<double> scored, early, signedCents;
    for (const auto& r : readings) {
        const double t = r.time - onset;
        if (t < 0.0 || t > 2.0 || r.frequency <= 0.0)
            continue;
        const double truth = note.truthAt(r.time);
        const double cents = bench::centsOff(r.frequency, truth);
        if (std::fabs(cents) <= 50.0) {
            if (t >= 0.3)
                signedCents.push_back(cents);
            continue;
        }
        (t < 0.3 ? early : scored).push_back(r.frequency / truth);
    }
    std::printf(
        "note %-8s %-12s %-8s %8.2f Hz  gross %3ld of %3ld (x%.3f)  p95 %6.2f c  median %+6.2f c  "
        "early %zu of %ld (x%.3f)\n",
        detector, note.file.c_str(), noise, note.truth, tally.gross, tally.readings,
        bench::quantile(scored, 0.5), bench::quantile(tally.good, 0.95),
        bench::quantile(signedCents, 0.5), early.size(), tally.earlyReadings,
        bench::quantile(early, 0.5));
}

// The sampled set in groups of instruments; guitars split into the programs
// the detector was tuned on and those held out.
void runSampled(const char* name, FourierPDA& detector,
                const std::vector<bench::SampledNote>& set) {
    const struct {
        const char* name;
        bool (*member)(const bench::SampledNote&);
    } groups[] = {
        {"guitars, dev",
         [](const bench::SampledNote& n) {
             return n.program >= 24 && n.program <= 31 && !n.heldOut;
         }},
        {"guitars, held",
         [](const bench::SampledNote& n) {
             return n.program >= 24 && n.program <= 31 && n.heldOut;
         }},
        {"basses", [](const bench::SampledNote& n) { return n.program >= 32 && n.program <= 39; }},
        {"piano", [](const bench::SampledNote& n) { return n.program == 0; }},
        {"violin", [](const bench::SampledNote& n) { return n.program == 40; }},
        {"other plucked",
         [](const bench::SampledNote& n) {
             return n.program == 6 || n.program == 7 || n.program == 45 || n.program == 46 ||
                    n.program == 104;
         }},
        {"dulcimer", [](const bench::SampledNote& n) { return n.program == 15; }},
    };
    const struct {
        const char* name;
        bool pink;
        double snr;
    } noises[] = {{"clean", false, 1000.0},
                  {"white 20", false, 20.0},
                  {"white 10", false, 10.0},
                  {"pink 20", true, 20.0},
                  {"pink 10", true, 10.0}};
    for (const auto& g : groups) {
        // A set rendered before a group was added lacks its notes.
        if (std::none_of(set.begin(), set.end(), g.member))
            continue;
        for (const auto& n : noises) {
            Tally tally;
            unsigned seed = 1;
            for (const auto& note : set) {
                if (!g.member(note))
                    continue;
                const auto signal =
                    n.snr < 100.0 ? bench::withNoise(note, n.pink, n.snr, seed++) : note.signal;
                const auto readings = bench::readAll(detector, testing::toSamples(signal));
                score(tally, readings, static_cast<double>(note.onset) / kRate,
                      [&note](double t) { return note.truthAt(t); });
                if (perNote(g.name))
                    printNote(name, note, n.name, readings);
            }
            row(name, g.name, n.name, tally);
        }
    }
}

void sines(const char* name, FourierPDA& detector) {
    double worst = 0.0;
    int missed = 0, readings = 0;
    for (int i = 0; i <= 48; ++i) {
        const double hertz = 40.0 * std::pow(50.0, i / 48.0);
        std::vector<double> signal(kRate);
        for (std::size_t n = 0; n < signal.size(); ++n)
            signal[n] = 0.25 * std::sin(2.0 * std::numbers::pi * hertz * n / kRate + 0.3 * i);
        for (const auto& r : bench::readAll(detector, testing::toSamples(signal))) {
            if (r.time < 0.5)
                continue;
            ++readings;
            if (r.frequency <= 0.0) {
                ++missed;
                continue;
            }
            worst = std::max(worst, std::fabs(bench::centsOff(r.frequency, hertz)));
        }
    }
    std::printf(
        "| %-8s | pure sines 40 Hz to 2 kHz, -12 dBFS | largest error %.3f cents | %d readings "
        "without pitch |\n",
        name, worst, missed);
    unmeasuredRows += readings == 0;
}

int report() {
    if (unmeasuredRows == 0)
        return 0;
    std::fprintf(stderr, "Not measured: %d rows without a reading to score\n", unmeasuredRows);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    const TaperSettings window(kDefaultWindow);
    FinePDA fine(window);
    OvertonePDA overtone(window);
    fine.changeSensitivity(kSensitivity);
    overtone.changeSensitivity(kSensitivity);
    const struct {
        const char* name;
        FourierPDA* detector;
    } detectors[] = {{"fine", &fine}, {"overtone", &overtone}};
    const struct {
        const char* name;
        double snr;
    } noises[] = {{"clean", 1000.0}, {"20 dB", 20.0}, {"10 dB", 10.0}};
    const auto open = sample(stringSet(true));
    const auto chromatic = sample(stringSet(false));

    std::printf(
        "Pitch detectors on synthetic plucked strings (%zu open strings of the 53 tunings, "
        "%zu notes A1 to E6), window Gauss, sensitivity %d%s\n\n",
        open.size(), chromatic.size(), kSensitivity,
        bench::shortMode() ? "; short mode, every 9th note" : "");
    std::printf(
        "| detector | strings | noise | median cents | p95 cents | gross | readings | onset median "
        "/ p95 | never | gross in the first 0.3 s |\n");
    std::printf("|---|---|---|---|---|---|---|---|---|---|\n");
    for (const auto& d : detectors) {
        for (const auto& n : noises) {
            row(d.name, "open strings", n.name, runStrings(*d.detector, open, n.snr, 11));
            row(d.name, "A1 to E6", n.name, runStrings(*d.detector, chromatic, n.snr, 12));
        }
    }
    std::printf("\n");
    for (const auto& d : detectors)
        sines(d.name, *d.detector);

    const char* env = std::getenv("ZT_PITCH_SET");
    const std::string dir = argc > 1 ? argv[1] : env ? env : "build/pitch-set";
    // ZT_PITCH_TRUTH=note scores against one truth per note, as before the
    // truth followed the note.
    const char* truthMode = std::getenv("ZT_PITCH_TRUTH");
    const bool perNoteTruth = truthMode && std::string(truthMode) == "note";
    const auto sampled = sample(bench::loadSampledSet(dir, !perNoteTruth));
    if (sampled.empty()) {
        std::printf(
            "\nNo sampled-instrument set in %s, not measured: render it with tools/make-pitch-set "
            "(needs freepats and timidity), or name its folder as the argument or in "
            "ZT_PITCH_SET.\n",
            dir.c_str());
        return report();
    }
    std::printf(
        "\nSampled instruments (%zu notes from %s; truth measured from the partials %s; noise "
        "under the note's mean power)\n\n",
        sampled.size(), dir.c_str(),
        perNoteTruth ? "over one second of each note" : "around each reading");
    std::printf(
        "| detector | notes | noise | median cents | p95 cents | gross | readings | onset median "
        "/ p95 | never | gross in the first 0.3 s |\n");
    std::printf("|---|---|---|---|---|---|---|---|---|---|\n");
    for (const auto& d : detectors)
        runSampled(d.name, *d.detector, sampled);
    return report();
}
