#include "metronome/MetronomeSetup.h"

#include <algorithm>
#include <cstdio>

#include "framework/Log.h"
#include "metronome/ClickSounds.h"
#include "metronome/TempoRules.h"

namespace zt {

namespace keys = state::metronome;

namespace {

constexpr int kEighthNoteDenominator = 8;
constexpr int kQuarterNoteDenominator = 4;

bool isDenominator(int d) {
    return d == kQuarterNoteDenominator || d == kEighthNoteDenominator;
}

}  // namespace

int MetronomeSetup::tempo() const {
    return tempoForRow(BPM);
}

int MetronomeSetup::beatsPerMinute() const {
    return isTempoX2 ? 2 * tempo() : tempo();
}

void MetronomeSetup::setBeatKind(int beat, BeatKind kind) {
    if (beat < 1 || beat > kMaxBeats)
        return;
    if (beat == 1) {
        isFirstBeatNeed = kind == BeatKind::Accented;
        practice.beats[0] = kind == BeatKind::Silent ? BeatKind::Silent : BeatKind::Normal;
    } else {
        practice.beats[beat - 1] = kind;
    }
}

void MetronomeSetup::setIsFirstBeatNeed(bool need) {
    isFirstBeatNeed = need;
    practice.followFirstBeatAccent(need);
}

void MetronomeSetup::setCurrentPack(int pack) {
    packNumber = clickSoundsForPack(pack).packNumber;
}

bool MetronomeSetup::setTimeSig1Value(int numerator) {
    if (numerator < keys::kTimeSig1Value.min || numerator > keys::kTimeSig1Value.max)
        return false;
    timeSig1Value = numerator;
    return true;
}

bool MetronomeSetup::setTimeSig2Value(int denominator) {
    if (!isDenominator(denominator))
        return false;
    timeSig2Value = denominator;
    isTempoX2 = denominator == kEighthNoteDenominator;
    if (isTempoX2 && notesPerBeat > 3 && notesPerBeat != 6)
        notesPerBeat = 3;
    return true;
}

bool MetronomeSetup::isPatternOffered(int pattern) const {
    if (pattern < keys::kNotesPerBeat.min || pattern > keys::kNotesPerBeat.max)
        return false;
    return timeSig2Value != kEighthNoteDenominator || pattern <= 3 || pattern == 6;
}

bool MetronomeSetup::setNotesPerBeat(int pattern) {
    if (!isPatternOffered(pattern))
        return false;
    notesPerBeat = pattern;
    return true;
}

void MetronomeSetup::setSavedData(const Dictionary& data) {
    *this = MetronomeSetup{};
    if (data.empty())
        return;

    // The pack goes through setCurrentPack so that an unknown number means pack 1.
    const Value& pack = valueFor(data, keys::kPackNumber.name);
    setCurrentPack(pack.isNull() ? keys::kPackNumber.fallback
                                 : static_cast<int>(pack.toInt(keys::kPackNumber.fallback)));
    timeSig1Value = state::read(data, keys::kTimeSig1Value);
    practice.setSavedData(data);
    setIsFirstBeatNeed(state::read(data, keys::kIsFirstBeatNeed));

    // A row beyond the wheel is most likely a tempo saved in its place; the
    // nearest end of the wheel is closer to what was meant than the default.
    const Value& row = valueFor(data, keys::kBPM.name);
    if (row.isNumber() || row.isString()) {
        BPM = static_cast<int>(
            std::clamp<std::int64_t>(row.toInt(keys::kBPM.fallback), 0, kWheelRows - 1));
    }

    const int denominator = state::read(data, keys::kTimeSig2Value);
    timeSig2Value = isDenominator(denominator) ? denominator : keys::kTimeSig2Value.fallback;
    const bool savedX2 = state::read(data, keys::kIsTempoX2);
    isTempoX2 = timeSig2Value == kEighthNoteDenominator;
    if (!valueFor(data, keys::kIsTempoX2.name).isNull() && savedX2 != isTempoX2) {
        log("saved isTempoX2 does not match the denominator " + std::to_string(timeSig2Value) +
            "; following the denominator");
    }

    const int pattern = state::read(data, keys::kNotesPerBeat);
    notesPerBeat = isPatternOffered(pattern) ? pattern : 3;
    if (notesPerBeat != pattern) {
        log("pattern " + std::to_string(pattern) + " is not offered in eighth-note time; using 3");
    }
}

Dictionary MetronomeSetup::plainData() const {
    return {
        {keys::kPackNumber.name, packNumber},
        {keys::kTimeSig1Value.name, timeSig1Value},
        {keys::kTimeSig2Value.name, timeSig2Value},
        {keys::kNotesPerBeat.name, notesPerBeat},
        {keys::kIsFirstBeatNeed.name, isFirstBeatNeed},
        {keys::kIsTempoX2.name, isTempoX2},
        {keys::kBPM.name, BPM},
    };
}

Dictionary MetronomeSetup::savedData() const {
    Dictionary data = plainData();
    practice.addSavedData(data, isFirstBeatNeed, false);
    return data;
}

Dictionary MetronomeSetup::currentSettings() const {
    Dictionary settings = plainData();
    practice.addSavedData(settings, isFirstBeatNeed, true);
    settings["state"] = currentState();
    return settings;
}

std::string MetronomeSetup::currentState() const {
    char text[96];
    std::snprintf(text, sizeof text, "%d-%d-%d-%d-%d-%d-%d", packNumber, timeSig1Value,
                  timeSig2Value, notesPerBeat, isFirstBeatNeed ? 1 : 0, isTempoX2 ? 1 : 0, BPM);
    return text + practice.stateSuffix(isFirstBeatNeed);
}

MetronomeSetup MetronomeSetup::normalized() const {
    MetronomeSetup s = *this;
    s.setCurrentPack(packNumber);
    s.timeSig1Value = std::clamp(timeSig1Value, keys::kTimeSig1Value.min, keys::kTimeSig1Value.max);
    s.notesPerBeat = std::clamp(notesPerBeat, keys::kNotesPerBeat.min, keys::kNotesPerBeat.max);
    s.BPM = std::clamp(BPM, 0, kWheelRows - 1);
    s.practice = practice.normalized();
    s.practice.followFirstBeatAccent(isFirstBeatNeed);
    return s;
}

}  // namespace zt
