#include "metronome/ui/PracticeSettings.h"

#include <algorithm>
#include <array>

#include "metronome/ui/MetronomeControls.h"

namespace zt {

namespace {

namespace keys = practice_keys;

struct FieldInfo {
    const state::IntKey* key;
    int PracticeSetup::*member;
    const char* title;
};

const std::array<FieldInfo, 6> kFields = {{
    {&keys::kTrainerStart, &PracticeSetup::trainerStart, "Start tempo"},
    {&keys::kTrainerEnd, &PracticeSetup::trainerEnd, "End tempo"},
    {&keys::kTrainerStep, &PracticeSetup::trainerStep, "Step (BPM)"},
    {&keys::kTrainerBars, &PracticeSetup::trainerBars, "Every (bars)"},
    {&keys::kMutePlayBars, &PracticeSetup::mutePlayBars, "Bars played"},
    {&keys::kMuteSilentBars, &PracticeSetup::muteSilentBars, "Bars silent"},
}};

const FieldInfo* infoFor(int field) {
    return field >= 0 && field < static_cast<int>(kFields.size()) ? &kFields[field] : nullptr;
}

}  // namespace

PracticeSettings::PracticeSettings(MetronomeControls* metronome, QObject* parent)
    : QObject(parent), metronome_(metronome) {}

PracticeSetup PracticeSettings::current() const {
    return metronome_ ? metronome_->practice() : PracticeSetup{};
}

void PracticeSettings::apply(const PracticeSetup& practice) {
    if (!metronome_)
        return;
    metronome_->setPractice(practice);
    emit changed();
}

QList<int> PracticeSettings::values() const {
    const PracticeSetup p = current();
    QList<int> all;
    for (const FieldInfo& info : kFields)
        all.append(p.*(info.member));
    return all;
}

void PracticeSettings::toggleTrainer() {
    PracticeSetup p = current();
    p.trainerOn = !p.trainerOn;
    apply(p);
}

void PracticeSettings::toggleMute() {
    PracticeSetup p = current();
    p.muteOn = !p.muteOn;
    apply(p);
}

int PracticeSettings::value(Field field) const {
    const FieldInfo* info = infoFor(field);
    return info ? current().*(info->member) : 0;
}

void PracticeSettings::step(Field field, int delta) {
    const FieldInfo* info = infoFor(field);
    if (!info || delta == 0)
        return;
    PracticeSetup p = current();
    int& v = p.*(info->member);
    const int stepped = std::clamp(v + delta, info->key->min, info->key->max);
    if (stepped == v)
        return;
    v = stepped;
    apply(p);
}

QString PracticeSettings::title(Field field) const {
    const FieldInfo* info = infoFor(field);
    return info ? info->title : QString();
}

}  // namespace zt
