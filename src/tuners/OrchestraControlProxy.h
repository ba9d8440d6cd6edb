#pragma once
// The base frequency calibration's model: the picked pitch class, its octave
// and frequency, and the description of a frequency against the reference
// system (A4 = 440 Hz). The frequency comes from the user's steps or from
// the microphone, smoothed as the tuner smooths; the octave is always the
// one whose reference is nearest.

#include <array>
#include <vector>

#include "dsp/Note.h"
#include "dsp/NoteDescription.h"
#include "tuners/CalibrationProxy.h"

namespace zt {

class OrchestraControlProxy : public CalibrationProxy, public NoteReader {
public:
    static constexpr const char* NAME = "OrchestraControlProxy";

    explicit OrchestraControlProxy(std::shared_ptr<AudioCapture> capture = nullptr,
                                   InputSource::DeviceList devices = {})
        : CalibrationProxy(NAME, std::move(capture), std::move(devices)) {}

    // Takes the note's octave and frequency, and its pitch class.
    void setBaseNote(const Note& note);
    // A new Note of the current octave, pitch class and frequency.
    Note getBaseNote() const;
    // Picks pitch class `index`. reference: the note from A4 up to G#5 at
    // its reference frequency; otherwise the base note's frequency stays.
    void setNoteIndex(int index, bool reference);
    // Makes f the current frequency and describes it against the nearest
    // octave's reference (cents rounded to whole cents).
    NoteDescription manualChangeFrequency(double f);
    // One measurement, smoothed: -2 passes through; no pitch repeats the
    // current frequency; 0.05 to 0.5 Hz from it reports the mean of the two,
    // which becomes the current frequency.
    float getMainFrequerncy();
    // The measurement described as manualChangeFrequency does (a frequency
    // of 0 or less is reported as it is, without cents).
    const NoteDescription& getNoteDesctiption() override;

    double getCurrentFrequency() const { return currentFreq_; }
    int getNoteIndex() const { return noteIndex_; }
    int getNoteOctave() const { return noteOctave_; }

private:
    NoteDescription describe(double f) const;
    // getMainFrequerncy, holding a repeated frequency at full precision.
    double measure();

    Note baseNote_;
    int noteIndex_ = 9;
    int noteOctave_ = 4;
    std::vector<Note> listNoteByIndex_;
    double currentFreq_ = 440.0;
    NoteDescription last_;
};

}  // namespace zt
