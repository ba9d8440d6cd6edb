#include "metronome/PracticeSetup.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace zt {

namespace keys = practice_keys;

BeatKind nextBeatKind(BeatKind kind) {
    switch (kind) {
        case BeatKind::Accented:
            return BeatKind::Normal;
        case BeatKind::Normal:
            return BeatKind::Silent;
        case BeatKind::Silent:
            break;
    }
    return BeatKind::Accented;
}

char beatLetter(BeatKind kind) {
    switch (kind) {
        case BeatKind::Accented:
            return 'A';
        case BeatKind::Silent:
            return 'S';
        case BeatKind::Normal:
            break;
    }
    return 'N';
}

std::optional<BeatKind> beatKindForLetter(char letter) {
    switch (letter) {
        case 'A':
        case 'a':
            return BeatKind::Accented;
        case 'N':
        case 'n':
            return BeatKind::Normal;
        case 'S':
        case 's':
            return BeatKind::Silent;
        default:
            return std::nullopt;
    }
}

bool PracticeSetup::sameRunAs(const PracticeSetup& other) const {
    PracticeSetup a = *this;
    a.beats = other.beats;
    return a == other;
}

BeatKind PracticeSetup::beatKind(int beat, bool firstBeatAccent) const {
    if (beat < 1 || beat > kMaxBeats)
        return BeatKind::Normal;
    const BeatKind kind = beats[beat - 1];
    if (beat == 1 && kind != BeatKind::Silent)
        return firstBeatAccent ? BeatKind::Accented : BeatKind::Normal;
    return kind;
}

int PracticeSetup::tempoForBar(std::int64_t bar, int wheelTempo) const {
    if (!trainerOn)
        return wheelTempo;
    const std::int64_t span = std::abs(trainerEnd - trainerStart);
    const std::int64_t steps = std::max<std::int64_t>(bar, 0) / std::max(trainerBars, 1);
    const std::int64_t moved = std::min(span, steps * std::max(trainerStep, 1));
    const int direction = trainerEnd >= trainerStart ? 1 : -1;
    return trainerStart + direction * static_cast<int>(moved);
}

int PracticeSetup::barsToStep(std::int64_t bar) const {
    if (!trainerOn || tempoForBar(bar, 0) == trainerEnd)
        return 0;
    const int every = std::max(trainerBars, 1);
    return every - static_cast<int>(std::max<std::int64_t>(bar, 0) % every);
}

bool PracticeSetup::isBarMuted(std::int64_t bar) const {
    if (!muteOn)
        return false;
    const std::int64_t cycle = std::max(mutePlayBars, 1) + std::max(muteSilentBars, 0);
    return std::max<std::int64_t>(bar, 0) % cycle >= mutePlayBars;
}

std::string PracticeSetup::beatsText(int count, bool firstBeatAccent) const {
    std::string text;
    for (int beat = 1; beat <= std::clamp(count, 0, kMaxBeats); ++beat)
        text += beatLetter(beatKind(beat, firstBeatAccent));
    return text;
}

bool PracticeSetup::setBeatsText(std::string_view text) {
    if (text.empty() || text.size() > beats.size())
        return false;
    BeatKinds read{};
    for (size_t i = 0; i < text.size(); ++i) {
        const auto kind = beatKindForLetter(text[i]);
        if (!kind)
            return false;
        read[i] = *kind;
    }
    beats = read;
    return true;
}

void PracticeSetup::setSavedData(const Dictionary& data) {
    *this = PracticeSetup{};
    // Beat 1's accent belongs to the accent switch; only its silence is kept here.
    if (setBeatsText(state::read(data, keys::kBeatAccents)) && beats[0] == BeatKind::Accented)
        beats[0] = BeatKind::Normal;
    trainerOn = state::read(data, keys::kTrainerOn);
    trainerStart = state::read(data, keys::kTrainerStart);
    trainerEnd = state::read(data, keys::kTrainerEnd);
    trainerStep = state::read(data, keys::kTrainerStep);
    trainerBars = state::read(data, keys::kTrainerBars);
    muteOn = state::read(data, keys::kMuteOn);
    mutePlayBars = state::read(data, keys::kMutePlayBars);
    muteSilentBars = state::read(data, keys::kMuteSilentBars);
}

void PracticeSetup::addSavedData(Dictionary& data, bool firstBeatAccent, bool onlyWhenUsed) const {
    if (onlyWhenUsed && isDefault())
        return;
    data[keys::kBeatAccents.name] = beatsText(kMaxBeats, firstBeatAccent);
    data[keys::kTrainerOn.name] = trainerOn;
    data[keys::kTrainerStart.name] = trainerStart;
    data[keys::kTrainerEnd.name] = trainerEnd;
    data[keys::kTrainerStep.name] = trainerStep;
    data[keys::kTrainerBars.name] = trainerBars;
    data[keys::kMuteOn.name] = muteOn;
    data[keys::kMutePlayBars.name] = mutePlayBars;
    data[keys::kMuteSilentBars.name] = muteSilentBars;
}

std::string PracticeSetup::stateSuffix(bool firstBeatAccent) const {
    if (isDefault())
        return {};
    char text[96];
    std::snprintf(text, sizeof text, "-%d-%d-%d-%d-%d-%d-%d-%d", trainerOn ? 1 : 0, trainerStart,
                  trainerEnd, trainerStep, trainerBars, muteOn ? 1 : 0, mutePlayBars,
                  muteSilentBars);
    return "-" + beatsText(kMaxBeats, firstBeatAccent) + text;
}

std::string PracticeSetup::trainerStatus(int tempo, int barsToStep) const {
    std::string text = std::to_string(tempo) + " BPM, ";
    if (barsToStep <= 0)
        return text + "holding";
    const int direction = trainerEnd >= tempo ? 1 : -1;
    const int next = direction > 0 ? std::min(tempo + trainerStep, trainerEnd)
                                   : std::max(tempo - trainerStep, trainerEnd);
    return text + std::to_string(barsToStep) + (barsToStep == 1 ? " bar" : " bars") + " to " +
           std::to_string(next);
}

PracticeSetup PracticeSetup::normalized() const {
    PracticeSetup p = *this;
    const auto clamp = [](int value, const state::IntKey& key) {
        return std::clamp(value, key.min, key.max);
    };
    p.trainerStart = clamp(trainerStart, keys::kTrainerStart);
    p.trainerEnd = clamp(trainerEnd, keys::kTrainerEnd);
    p.trainerStep = clamp(trainerStep, keys::kTrainerStep);
    p.trainerBars = clamp(trainerBars, keys::kTrainerBars);
    p.mutePlayBars = clamp(mutePlayBars, keys::kMutePlayBars);
    p.muteSilentBars = clamp(muteSilentBars, keys::kMuteSilentBars);
    return p;
}

}  // namespace zt
