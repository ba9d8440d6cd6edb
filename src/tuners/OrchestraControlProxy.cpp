#include "tuners/OrchestraControlProxy.h"

#include <algorithm>
#include <cmath>

#include "dsp/NotationFacade.h"
#include "tuners/NoteChoice.h"

namespace zt {

namespace {
constexpr std::array<const char*, 12> kNoteNames{"C",  "C#", "D",  "D#", "E",  "F",
                                                 "F#", "G",  "G#", "A",  "A#", "B"};
// Farther than any octave's reference can be: the first octave always wins.
constexpr double kFarAway = 9856.0;
}  // namespace

void OrchestraControlProxy::setBaseNote(const Note& note) {
    baseNote_ = note;
    // The reference system has octaves 0 to 7.
    noteOctave_ = std::min<int>(note.getOctave(), 7);
    currentFreq_ = note.getFrequency();
    setNoteIndex(note.getIndex(), false);
}

Note OrchestraControlProxy::getBaseNote() const {
    return Note(static_cast<std::uint16_t>(noteOctave_), static_cast<std::uint16_t>(noteIndex_),
                currentFreq_);
}

void OrchestraControlProxy::setNoteIndex(int index, bool reference) {
    noteIndex_ = index < 0 || index > 11 ? 9 : index;
    listNoteByIndex_ =
        NotationFacade::getEtalonNotes().cutNoteByIndex(static_cast<std::uint16_t>(noteIndex_));
    if (reference) {
        // From A4 up to G#5: octave 5 for C to G#, 4 for A to B.
        noteOctave_ = 5 - noteIndex_ / 9;
        currentFreq_ = listNoteByIndex_[static_cast<std::size_t>(noteOctave_)].getFrequency();
    } else {
        currentFreq_ = baseNote_.getFrequency();
    }
}

NoteDescription OrchestraControlProxy::describe(double f) const {
    NoteDescription d;
    d.fullName = kNoteNames[static_cast<std::size_t>(noteIndex_)];
    d.index = noteIndex_;
    d.frequency = f;
    if (!listNoteByIndex_.empty())
        d.standartFrequency =
            listNoteByIndex_[static_cast<std::size_t>(noteOctave_)].getFrequency();
    // Whole cents on tenths of a hertz with classic detection; else tenths
    // of a cent from the frequency as it is.
    if (f > 0.0) {
        d.cents = classicDetection()
                      ? std::round(NotationFacade::centDifference(d.standartFrequency, f))
                      : displayedCents(d.standartFrequency, f, false);
    }
    return d;
}

NoteDescription OrchestraControlProxy::manualChangeFrequency(double f) {
    currentFreq_ = f;
    if (listNoteByIndex_.empty()) {
        listNoteByIndex_ =
            NotationFacade::getEtalonNotes().cutNoteByIndex(static_cast<std::uint16_t>(noteIndex_));
    }
    double nearest = kFarAway;
    for (std::size_t k = 0; k < listNoteByIndex_.size(); ++k) {
        const double distance = std::fabs(listNoteByIndex_[k].getFrequency() - f);
        if (distance < nearest) {
            nearest = distance;
            noteOctave_ = static_cast<int>(k);
        }
    }
    return describe(f);
}

float OrchestraControlProxy::getMainFrequerncy() {
    return static_cast<float>(measure());
}

double OrchestraControlProxy::measure() {
    FrequencyAnalyzer* analyzer = frequencyAnalyzer();
    const float f = analyzer ? analyzer->frequency() : FrequencyAnalyzer::kNothingCaptured;
    if (f > -1.5f && f <= 0.0f)
        return currentFreq_;
    // The tuner's own smoothing: the value reported becomes the current
    // frequency, as describing it makes it.
    float current = static_cast<float>(currentFreq_);
    const float reported = smoothFrequency(f, current);
    if (f > 0.0f)
        currentFreq_ = current;
    return reported;
}

const NoteDescription& OrchestraControlProxy::getNoteDesctiption() {
    const double f = measure();
    last_ = f > 0.0 ? manualChangeFrequency(f) : describe(f);
    return last_;
}

}  // namespace zt
