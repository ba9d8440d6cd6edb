#pragma once
// The main frequency service: the tuner's way to the microphone. It owns the
// analysis session (detector, window, sensitivity, the shared analyzer),
// smooths the raw frequency and names the nearest note, among all 96 notes
// of octaves 0 to 7 or among the strings of the current tuning, with its
// deviation in cents (see NoteChoice.h).
//
// The detector is the fine one unless classic detection is chosen, which
// puts back the overtone detector. With the fine detector the cents are
// reckoned from the frequency as measured, and a reading without pitch is
// held for at most kHoldSamples of sound (1 s, on the capture's own clock)
// before the service reports no pitch (-1) on the note last named. Classic
// detection compares whole tenths of a hertz and holds the last reading for
// as long as the sound stays without pitch. Taper modes (the settings screen's rows)
// choose the windows Gauss, cosine, Hamming, Hann, Lanczos, in that order.
//
// Everything runs on the main thread; the analyzer's capture thread stays
// behind FrequencyAnalyzer. A reading allocates nothing once the session's
// candidates exist (a change of tuning rebuilds them).

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "dsp/AudioCapture.h"
#include "dsp/FourierPDA.h"
#include "dsp/FrequencyAnalyzer.h"
#include "dsp/Note.h"
#include "dsp/NoteDescription.h"
#include "dsp/TaperSettings.h"
#include "framework/Proxy.h"
#include "state/SavedDataReceiver.h"
#include "tuners/FrequencyReaders.h"
#include "tuners/InputSource.h"

namespace zt {

class SettingsProxy;

class MainFrequerncyProxy : public Proxy,
                            public SavedDataReceiver,
                            public AudioSessionOwner,
                            public NoteReader {
public:
    static constexpr const char* NAME = "MainFrequerncyProxy";
    static constexpr std::int64_t kHoldSamples = 8000;

    // capture: where the session's sound comes from; nullptr for the
    // microphone on the saved input device (see InputSource).
    explicit MainFrequerncyProxy(std::shared_ptr<AudioCapture> capture = nullptr,
                                 InputSource::DeviceList devices = {});

    // The fine detector with the Gauss window at sensitivity 50; the
    // settings proxy, when registered, for the current tuning.
    void initializeProxy() override;

    // The chromatic section: "AllNotes", "Taper", the base note
    // ("baseOctave", "baseIndex", "baseFrequency"; A4 = 440 Hz when the
    // frequency is below 1 or missing), from which the 96 candidates are
    // made; the reading starts over (no frequency yet). Also our own keys:
    // "ClassicDetection" (the detector) and "InputDevice" (the microphone
    // the next session opens).
    void initVariables(const Dictionary& savedData) override;

    // Loads the saved settings (through "GetChromaticTunerSavedData"), then
    // starts the shared analyzer with this proxy's detector and capture.
    void startAudioSession() override;
    // Stops the analyzer and drops the candidates.
    void stopAudioSession() override;

    // The smoothed frequency in hertz, or -2 without a microphone; -1 before
    // the first pitch of a session, and once a hold has run out.
    float getMainFrequerncy();
    // The nearest candidate, filled with this reading; the record is the
    // candidate list's own, not a copy. Without candidates, a record of its
    // own with only the frequency and level.
    const NoteDescription& getNoteDesctiption() override;
    // The candidates named by note tokens ("E2", "C#3"), each given its
    // position in the list as index; unknown tokens are left out.
    std::vector<NoteDescription*> getNotes(const std::vector<std::string>& names);

    void setTaperMode(int mode);
    int getTaperMode() const { return taperMode_; }
    void setTresholdPercent(int percent);
    int getTresholdPercent() const { return tresholdPercent_; }
    // Classic detection: the overtone detector instead of the fine one.
    void setClassicDetection(bool classic);
    bool isClassicDetection() const { return classic_; }
    // The capture device the session opens; empty for the default.
    const std::string& inputDevice() const { return input_.deviceName(); }

    bool isAllNotes() const { return isAllNotes_; }
    void setIsAllNotes(bool allNotes) { isAllNotes_ = allNotes; }
    int volumeLevel() const { return volumeLevel_; }
    void setVolumeLevel(int level) { volumeLevel_ = level; }
    float currentFreq() const { return currentFreq_; }
    void setCurrentFreq(float frequency) { currentFreq_ = frequency; }
    const std::vector<NoteDescription>& noteObjects() const { return noteObjects_; }
    const std::array<const char*, 12>& noteNames() const { return noteNames_; }
    bool isAudioSessionStop() const { return isAudioSessionStop_; }
    void setIsAudioSessionStop(bool stop) { isAudioSessionStop_ = stop; }
    const Note& getBaseNote() const { return baseNote_; }
    void setBaseNote(const Note& note) { baseNote_ = note; }

    // The octave of a candidate returned by getNoteDesctiption.
    int octaveOf(const NoteDescription& note) const;
    FourierPDA* pitchDetector() const { return pitchDetector_; }
    FrequencyAnalyzer* frequencyAnalyzer() const { return frequencyAnalyzer_; }

private:
    // The candidates of this reading, by tuning or all notes.
    void gatherCandidates();
    void applyDetectorSettings();
    // The held frequency, or -1 once the sound has been without pitch for
    // longer than a hold (not with classic detection).
    float endHold(float detected, float reported);
    // The note last named, if it is still a candidate.
    NoteDescription* lastNamed() const;

    InputSource input_;
    std::shared_ptr<AudioCapture> capture_;
    FrequencyAnalyzer* frequencyAnalyzer_ = nullptr;
    const std::array<const char*, 12> noteNames_{"C",  "C#", "D",  "D#", "E",  "F",
                                                 "F#", "G",  "G#", "A",  "A#", "B"};
    std::vector<NoteDescription> noteObjects_;
    FourierPDA* pitchDetector_ = nullptr;
    TaperSettings taperSettings_{1};
    const std::array<int, 5> tapersArray_{1, 0, 3, 2, 4};
    int taperMode_ = 0;
    float currentFreq_ = -1.0f;
    Note baseNote_;
    int tresholdPercent_ = 50;
    int volumeLevel_ = 0;
    bool isAudioSessionStop_ = false;
    bool isAllNotes_ = false;
    bool classic_ = false;
    std::shared_ptr<SettingsProxy> settingsProxy_;

    // The current tuning's candidates, rebuilt when the tuning changes.
    std::string candidatesTuning_;
    std::vector<NoteDescription*> tuningCandidates_;
    std::vector<NoteDescription*> allCandidates_;
    const std::vector<NoteDescription*>* candidates_ = &allCandidates_;
    NoteDescription unnamed_;
    // The end of the last block that had a pitch, in captured samples.
    std::int64_t lastPitchEnd_ = 0;
    NoteDescription* named_ = nullptr;
};

}  // namespace zt
