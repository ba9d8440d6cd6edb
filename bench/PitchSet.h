#pragma once
// The sampled-instrument set that tools/make-pitch-set renders: single notes
// of sampled guitars, basses, a piano and a violin at 8000 Hz. Each note's
// true pitch is measured here from its partials over a second of its steady
// part (a Hann window of 8192 samples, a transform of 65536 points, peaks
// refined by a parabola through log magnitudes, each partial sought where
// those below it put it, and the stiff-string fit), since a sampled
// instrument is not tuned exactly to its nominal pitch.
// Noise (white or pink) is added with a seed per note.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "dsp/HarmonicFit.h"
#include "dsp/PluckedString.h"
#include "dsp/RealTransform.h"

namespace zt::bench {

struct SampledNote {
    std::string file;
    int program = 0;
    int midi = 0;
    bool heldOut = false;
    std::vector<double> signal;  // full scale 1
    std::size_t onset = 0;       // samples
    double truth = 0.0;          // Hz, the first partial
    // The first partial measured around the note's later moments (see
    // truthAt); empty when the truth is taken as one for the whole note.
    std::vector<double> track;

    static constexpr double kTrackStep = 0.1;  // s
    static constexpr std::size_t kTrackWindow = 4096;

    // The truth for a reading whose block ends at `time` (s from the start of
    // the signal): the track at the block's middle, between its points.
    double truthAt(double time) const {
        if (track.empty())
            return truth;
        const double at = (time - 1000.0 / 8000.0 - onset / 8000.0) / kTrackStep;
        if (at <= 0.0)
            return track.front();
        const auto i = static_cast<std::size_t>(at);
        if (i + 1 >= track.size())
            return track.back();
        const double share = at - static_cast<double>(i);
        return track[i] * (1.0 - share) + track[i + 1] * share;
    }
};

inline bool readWave(const std::string& path, std::vector<double>& signal) {
    std::ifstream in(path, std::ios::binary);
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), {});
    for (std::size_t at = 12; at + 8 <= bytes.size();) {
        std::uint32_t size = 0;
        for (int i = 0; i < 4; ++i)
            size |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + 4 + i]))
                    << (8 * i);
        if (std::string(&bytes[at], 4) == "data") {
            const std::size_t count = std::min<std::size_t>(size, bytes.size() - at - 8) / 2;
            signal.resize(count);
            for (std::size_t i = 0; i < count; ++i) {
                const auto lo = static_cast<unsigned char>(bytes[at + 8 + 2 * i]);
                const auto hi = static_cast<unsigned char>(bytes[at + 9 + 2 * i]);
                signal[i] = static_cast<std::int16_t>(lo | (hi << 8)) / 32768.0;
            }
            return count > 0;
        }
        at += 8 + size + (size & 1);
    }
    return false;
}

// The first partial from the partials near the multiples of `nominal`, over
// `window` samples from `from`.
inline double measureTruth(const std::vector<double>& signal, std::size_t from, std::size_t window,
                           double nominal) {
    // Padded to eight times the window at least.
    static RealTransform longer(65536), shorter(32768);
    const RealTransform& transform = window * 8 <= shorter.length() ? shorter : longer;
    const std::size_t kLength = transform.length();
    if (from + window > signal.size())
        return 0.0;
    std::vector<float> padded(kLength, 0.0f);
    for (std::size_t i = 0; i < window; ++i)
        padded[i] =
            static_cast<float>(signal[from + i] * (0.5 - 0.5 * std::cos(2.0 * M_PI * i / window)));
    std::vector<std::complex<float>> bins(kLength / 2 + 1);
    transform.forward(padded.data(), bins.data());
    const double binHz = 8000.0 / static_cast<double>(kLength);
    auto level = [&](std::size_t k) { return std::log(std::abs(bins[k]) + 1e-12); };
    // Partials are sought one by one: the first three within 60 cents of the
    // multiples of the nominal pitch, each further one within a quarter of the
    // spacing of where the partials found so far put it. A fixed guess of the
    // strings' stretch would, high up, land nearer the next multiple and take
    // its partial for this one.
    std::vector<Partial> found;
    double strongest = 0.0;
    HarmonicFit progress;
    auto weighed = [&strongest](HarmonicFit& fit, const std::vector<Partial>& partials) {
        fit.clear();
        for (Partial p : partials) {
            if (p.amplitude < 0.02 * strongest)
                continue;
            p.weight = p.amplitude * p.amplitude / (p.harmonic * p.harmonic);
            fit.add(p);
        }
        return fit.solve();
    };
    for (int h = 1; h <= 16; ++h) {
        const bool guided = progress.size() >= 3;
        const double centre = guided ? progress.predict(h) : h * nominal;
        const double half = guided ? 0.25 * progress.predict(1) : std::min(0.035, 0.3 / h) * centre;
        if (centre + half >= 3800.0)
            break;
        const auto lo = static_cast<std::size_t>((centre - half) / binHz);
        const auto hi = static_cast<std::size_t>((centre + half) / binHz);
        std::size_t k = lo;
        for (std::size_t i = lo; i <= hi; ++i)
            k = std::abs(bins[i]) > std::abs(bins[k]) ? i : k;
        const double l = level(k - 1), c = level(k), r = level(k + 1);
        if (k == lo || k == hi || !(l - 2 * c + r < 0.0))
            continue;
        const double amplitude = std::abs(bins[k]);
        strongest = std::max(strongest, amplitude);
        found.push_back({h, (k + 0.5 * (l - r) / (l - 2 * c + r)) * binHz, 0.0, amplitude});
        weighed(progress, found);
    }
    // A weak peak taken for a partial (a stray, the bleed of a neighbour)
    // bends the fit: the weak partial furthest off is dropped while one lies
    // more than 8 cents from it.
    HarmonicFit fit;
    for (;;) {
        if (!weighed(fit, found))
            return 0.0;
        int worst = 0;
        double furthest = 8.0;
        for (std::size_t i = 0; i < fit.size(); ++i) {
            if (fit[i].amplitude < 0.1 * strongest && std::fabs(fit.residualCents(i)) > furthest) {
                furthest = std::fabs(fit.residualCents(i));
                worst = fit[i].harmonic;
            }
        }
        if (worst == 0)
            break;
        std::erase_if(found, [worst](const Partial& p) { return p.harmonic == worst; });
    }
    // A sound whose strong partials disagree (two detuned layers, a chorus)
    // has no one pitch.
    for (std::size_t i = 0; i < fit.size(); ++i) {
        if (fit[i].amplitude >= 0.1 * strongest && std::fabs(fit.residualCents(i)) > 8.0)
            return 0.0;
    }
    return fit.predict(1);
}

// A sampled note's pitch may move over it: a sample's sustained part is
// often a loop, tuned apart from the attack before it (a piano's D#4 sits a
// steady 7 cents higher once its loop begins), and some strings settle
// after the pluck. One truth for the whole note would then be right for
// neither part, so the truth is also measured around each moment, over half
// a second (never starting before the first 0.2 s, where the attack is),
// every kTrackStep. A moment whose partials give no clear pitch, or one more
// than 20 cents from the note's, keeps the note's truth.
inline void trackTruth(SampledNote& note) {
    const double step = SampledNote::kTrackStep * 8000.0;
    const std::size_t half = SampledNote::kTrackWindow / 2;
    for (int i = 0; i * SampledNote::kTrackStep <= 2.0; ++i) {
        const auto middle = note.onset + static_cast<std::size_t>(i * step);
        const std::size_t from = std::max(middle - std::min(middle, half), note.onset + 1600);
        double local = measureTruth(note.signal, from, SampledNote::kTrackWindow, note.truth);
        if (!(local > 0.0 && std::fabs(1200.0 * std::log2(local / note.truth)) <= 20.0))
            local = note.truth;
        note.track.push_back(local);
    }
}

// The notes of the manifest in `dir`; empty when there is none. With
// `localTruth`, each note's truth is also tracked over its length.
inline std::vector<SampledNote> loadSampledSet(const std::string& dir, bool localTruth = true) {
    std::vector<SampledNote> notes;
    std::ifstream manifest(dir + "/manifest.tsv");
    std::string line;
    while (std::getline(manifest, line)) {
        std::istringstream fields(line);
        SampledNote note;
        double bend = 0.0;
        std::string split;
        if (!(fields >> note.file >> note.program >> note.midi >> bend >> split))
            continue;
        note.heldOut = split == "held";
        if (!readWave(dir + "/" + note.file, note.signal))
            continue;
        // The renderer trims the silence before the note; the tuner has
        // been listening for a while.
        note.signal.insert(note.signal.begin(), 4000, 0.0);
        double peak = 0.0;
        for (double s : note.signal)
            peak = std::max(peak, std::fabs(s));
        while (note.onset < note.signal.size() && std::fabs(note.signal[note.onset]) < 0.01 * peak)
            ++note.onset;
        const double nominal = 440.0 * std::pow(2.0, (note.midi - 69 + bend / 100.0) / 12.0);
        note.truth = measureTruth(note.signal, note.onset + 1600, 8192, nominal);
        if (note.truth > 0.0 && std::fabs(1200.0 * std::log2(note.truth / nominal)) < 60.0) {
            if (localTruth)
                trackTruth(note);
            notes.push_back(std::move(note));
        } else
            std::fprintf(stderr, "pitch set: %s has no clear pitch, left out\n", note.file.c_str());
    }
    return notes;
}

// The note with white or pink noise `snrDb` under its mean power from 0.3
// to 2 s.
inline std::vector<double> withNoise(const SampledNote& note, bool pink, double snrDb,
                                     unsigned seed) {
    std::vector<double> out = note.signal;
    std::mt19937 random(seed);
    testing::addNoise(out, note.onset + 2400, std::min(out.size(), note.onset + 16000), snrDb,
                      random, pink);
    return out;
}

}  // namespace zt::bench
