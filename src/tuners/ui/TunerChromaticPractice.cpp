// The chromatic tuner's practice views: what the strobe band and the pitch
// history are fed, and the pitch pipe. See TunerChromatic.h.
#include <array>

#include "state/StateKeys.h"
#include "tuners/ByEarStrings.h"
#include "tuners/ChromaticSection.h"
#include "tuners/ui/TunerChromatic.h"
#include "tuners/ui/TunerChromaticDelegate.h"
#include "tuners/ui/TunerDial.h"
#include "tunings/TuningCatalogue.h"

namespace zt {

namespace {

// How often a silent pipe is asked whether it may let the sound device go.
constexpr int kReleasePollMs = 1000;
// With all notes and nothing heard yet, the panel's notes are in octave 4.
constexpr int kFirstOctave = 4;
constexpr std::array<const char*, 12> kNames{"C",  "C#", "D",  "D#", "E",  "F",
                                             "F#", "G",  "G#", "A",  "A#", "B"};

int floorDiv(int a, int b) {
    return a >= 0 ? a / b : -((-a + b - 1) / b);
}

}  // namespace

void TunerChromatic::setUpPractice() {
    clock_.start();
    releaseTimer_.setInterval(kReleasePollMs);
    connect(&releaseTimer_, &QTimer::timeout, this, [this] {
        if (tone_.release())
            releaseTimer_.stop();
    });
}

void TunerChromatic::readDisplay(const Dictionary& data) {
    namespace keys = state::chromatic;
    const bool strobe = state::read(data, keys::kStrobeView);
    const bool history = state::read(data, keys::kPitchHistory);
    if (strobe == strobeView_ && history == pitchHistory_)
        return;
    strobeView_ = strobe;
    pitchHistory_ = history;
    emit displayChanged();
}

void TunerChromatic::recordReading(const NoteDescription& note) {
    const double now = clockSeconds();
    if (!(note.frequency > 0.0)) {
        strobe_.silence(now);
        trace_.gap(now);
        return;
    }
    std::string token = note.fullName;
    if (token.find_first_of("0123456789") == std::string::npos)
        token += dial::octaveOf(note, baseNote_);
    heardPosition_ = notePosition(token);
    strobe_.reading(note.cents, now);
    trace_.add(now, note.cents, heardPosition_);
}

int TunerChromatic::slotPosition(int slot) const {
    if (slot < 0 || slot >= NotePanel::kSlots)
        return -1;
    if (!isAllNotes_) {
        if (tuning_ < 0 || tuning_ >= static_cast<int>(tuningStrings_.size()))
            return -1;
        const std::vector<std::string> notes = tunings::tokens(tuningStrings_[tuning_]);
        return slot < static_cast<int>(notes.size()) ? notePosition(notes[slot]) : -1;
    }
    // The window's six pitch classes rise from its first; they are taken in
    // the octave that puts the note last heard in or after the window.
    const int begin = panel_.beginIndex();
    const int octave = heardPosition_ >= 0 ? floorDiv(heardPosition_ - begin, 12) : kFirstOctave;
    return 12 * octave + begin + slot;
}

void TunerChromatic::touchSlot(int slot) {
    if (tone_.sounding() && tone_.slot() == slot) {
        stopTone(true);
        return;
    }
    const int position = slotPosition(slot);
    const double a4 = chromatic::concertPitchOf(baseNote_);
    if (position < 0 || !tone_.toggle(slot, position, a4))
        return;
    releaseTimer_.stop();
    lastToneSlot_ = slot;
    const double frequency = ReferenceTone::frequencyOf(position, a4);
    toneText_ = QStringLiteral("%1%2  %3 Hz")
                    .arg(QString::fromLatin1(kNames[static_cast<std::size_t>(position % 12)]))
                    .arg(position / 12)
                    .arg(frequency, 0, 'f', 1);
    if (polling()) {
        // The microphone would hear the pipe: listening stops while it
        // sounds, and the needle and labels show no note.
        setPolling(false);
        cancelPanelRefresh();
        tonePaused_ = true;
        if (delegate_)
            delegate_->stopAudioSession();
        NoteDescription none;
        none.frequency = -1.0;
        rotationArrow(none);
        updateLabel(none);
        recordReading(none);
    }
    emit toneChanged();
}

void TunerChromatic::stopTone(bool resume) {
    if (tone_.sounding()) {
        tone_.stop();
        releaseTimer_.start();
        toneText_.clear();
        emit toneChanged();
    }
    if (!tonePaused_)
        return;
    tonePaused_ = false;
    if (resume && delegate_) {
        delegate_->startAudioSession();
        setPolling(true);
    }
}

bool TunerChromatic::keyPressed(int key) {
    if (key != Qt::Key_Space)
        return false;
    int slot = tone_.sounding() ? tone_.slot() : panel_.activeSlot();
    if (slot < 0)
        slot = lastToneSlot_ >= 0 ? lastToneSlot_ : 0;
    touchSlot(slot);
    return true;
}

}  // namespace zt
