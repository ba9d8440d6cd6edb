#include "state/StateKeys.h"

#include <cmath>

#include "framework/Log.h"

namespace zt::state {

namespace {

constexpr bool inRange(const IntKey& k) {
    return k.min <= k.fallback && k.fallback <= k.max;
}

static_assert(inRange(kSelectedViewController));
static_assert(inRange(metronome::kPackNumber) && inRange(metronome::kTimeSig1Value) &&
              inRange(metronome::kTimeSig2Value) && inRange(metronome::kNotesPerBeat) &&
              inRange(metronome::kBPM));
static_assert(inRange(chromatic::kTaper) && inRange(chromatic::kBaseOctave) &&
              inRange(chromatic::kBaseIndex) && inRange(chromatic::kTreshold));
static_assert(chromatic::kBaseFrequency.min <= chromatic::kBaseFrequency.fallback);
static_assert(inRange(common::kTuning));
static_assert(inRange(brain::kCapo) && inRange(chords::kCapo));

void reportInvalid(const char* key, const Value& v) {
    log(std::string("saved value ") + v.describe() + " of \"" + key +
        "\" is not usable; using the default");
}

template <class Key>
void put(Dictionary& section, const Key& key) {
    section[key.name] = Value(key.fallback);
}

}  // namespace

int read(const Dictionary& section, const IntKey& key) {
    const Value& v = valueFor(section, key.name);
    if (v.isNull())
        return key.fallback;
    // A string that does not parse gives each fallback back unchanged.
    const std::int64_t a = v.toInt(0);
    const bool parsed = a == v.toInt(1) && (!v.isReal() || std::isfinite(v.toDouble()));
    if (!parsed || a < key.min || a > key.max) {
        reportInvalid(key.name, v);
        return key.fallback;
    }
    return static_cast<int>(a);
}

double read(const Dictionary& section, const RealKey& key) {
    const Value& v = valueFor(section, key.name);
    if (v.isNull())
        return key.fallback;
    const double d = v.toDouble(0.0);
    if (d != v.toDouble(1.0) || !std::isfinite(d) || d < key.min || d > key.max) {
        reportInvalid(key.name, v);
        return key.fallback;
    }
    return d;
}

bool read(const Dictionary& section, const BoolKey& key) {
    const Value& v = valueFor(section, key.name);
    if (v.isNull())
        return key.fallback;
    const bool b = v.toBool(false);
    if (b != v.toBool(true)) {
        reportInvalid(key.name, v);
        return key.fallback;
    }
    return b;
}

std::string read(const Dictionary& section, const TextKey& key) {
    const Value& v = valueFor(section, key.name);
    if (v.isNull())
        return key.fallback;
    if (v.isArray() || v.isDictionary()) {
        reportInvalid(key.name, v);
        return key.fallback;
    }
    return v.toString(key.fallback);
}

Dictionary defaultSavedState() {
    Dictionary metronomeSection;
    put(metronomeSection, metronome::kPackNumber);
    put(metronomeSection, metronome::kTimeSig1Value);
    put(metronomeSection, metronome::kTimeSig2Value);
    put(metronomeSection, metronome::kNotesPerBeat);
    put(metronomeSection, metronome::kIsFirstBeatNeed);
    put(metronomeSection, metronome::kIsTempoX2);
    put(metronomeSection, metronome::kBPM);

    Dictionary chromaticSection;
    put(chromaticSection, chromatic::kAllNotes);
    put(chromaticSection, chromatic::kTaper);
    put(chromaticSection, chromatic::kBaseOctave);
    put(chromaticSection, chromatic::kBaseIndex);
    put(chromaticSection, chromatic::kBaseFrequency);
    put(chromaticSection, chromatic::kLinearScale);
    put(chromaticSection, chromatic::kTreshold);

    Dictionary brainSection;
    put(brainSection, brain::kLoop);

    Dictionary chordsSection;
    put(chordsSection, chords::kChordName);
    put(chordsSection, chords::kCurrentVariationsIndex);
    for (const auto& key : chords::kCanPlayString)
        put(chordsSection, key);
    for (const auto& key : chords::kLockedString)
        put(chordsSection, key);
    put(chordsSection, chords::kChordPart1);
    put(chordsSection, chords::kChordPart2);
    put(chordsSection, chords::kNotes);
    put(chordsSection, chords::kPickerComponent0Row);
    put(chordsSection, chords::kPickerComponent1Row);

    Dictionary commonSection;
    put(commonSection, common::kTuning);

    return {
        {metronome::kSection, metronomeSection},
        {chromatic::kSection, chromaticSection},
        {brain::kSection, brainSection},
        {chords::kSection, chordsSection},
        {common::kSection, commonSection},
        {kSelectedViewController.name, kSelectedViewController.fallback},
    };
}

bool repairSections(Dictionary& root) {
    bool repaired = false;
    for (const auto& [name, defaults] : defaultSavedState()) {
        Value& value = root[name];
        if (!defaults.isDictionary()) {
            if (!value.isNumber()) {
                value = defaults;
                repaired = true;
            }
            continue;
        }
        if (!value.isDictionary()) {
            warn("warning: saveState.plist: section \"" + name + "\" " +
                 (value.isNull() ? "was missing" : "was not a dictionary") +
                 "; its default values are used");
            value = defaults;
            repaired = true;
            continue;
        }
        for (const auto& [key, fallback] : defaults.dictionary()) {
            if (value.dictionary().emplace(key, fallback).second) {
                log("saveState.plist: \"" + name + "\" had no \"" + key + "\"; default used");
                repaired = true;
            }
        }
    }
    return repaired;
}

}  // namespace zt::state
