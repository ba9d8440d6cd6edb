#include "tuners/MainFrequerncyProxy.h"

#include <cmath>

#include "dsp/NotationFacade.h"
#include "dsp/PDAFacade.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tuners/ChromaticSection.h"
#include "tuners/NoteChoice.h"
#include "tunings/SettingsProxy.h"
#include "tunings/TuningCatalogue.h"

namespace zt {

namespace {
constexpr int kOctaves = 8;
}

MainFrequerncyProxy::MainFrequerncyProxy(std::shared_ptr<AudioCapture> capture,
                                         InputSource::DeviceList devices)
    : Proxy(NAME), input_(std::move(capture), std::move(devices)), capture_(input_.capture({})) {}

void MainFrequerncyProxy::initializeProxy() {
    isAudioSessionStop_ = false;
    taperSettings_.setType(tapersArray_[static_cast<std::size_t>(taperMode_)]);
    pitchDetector_ = PDAFacade::getFourierPDA(PDAFacade::kFine, taperSettings_);
    pitchDetector_->changeSensitivity(50);
    settingsProxy_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
}

void MainFrequerncyProxy::initVariables(const Dictionary& savedData) {
    log("!!!!!dict = " + Value(savedData).describe());
    namespace keys = state::chromatic;
    isAllNotes_ = state::read(savedData, keys::kAllNotes);
    setTaperMode(chromatic::taperMode(savedData));
    baseNote_ = chromatic::baseNote(savedData);
    if (chromatic::classicDetection(savedData) != classic_)
        setClassicDetection(!classic_);
    capture_ = input_.capture(chromatic::inputDevice(savedData));
    log("callFromProxy");
    const auto system =
        NotationFacade::generateNoteSystem(NotationFacade::kEqualTemperament, baseNote_, 12);
    noteObjects_.clear();
    allCandidates_.clear();
    for (int octave = 0; octave < kOctaves; ++octave) {
        for (int step = 0; step < 12; ++step) {
            noteObjects_.push_back(NoteDescription::withFreqAndNote(
                noteNames_[static_cast<std::size_t>(step)],
                system->getListNotes()[static_cast<std::size_t>(octave * 12 + step)].getFrequency(),
                0.0, 0.0, 0, step));
        }
    }
    for (auto& note : noteObjects_)
        allCandidates_.push_back(&note);
    candidatesTuning_.clear();
    currentFreq_ = -1.0f;
    lastPitchEnd_ = 0;
    named_ = nullptr;
}

void MainFrequerncyProxy::startAudioSession() {
    sendNotification("GetChromaticTunerSavedData", static_cast<Proxy*>(this));
    frequencyAnalyzer_ = &FrequencyAnalyzer::getInstance(pitchDetector_);
    frequencyAnalyzer_->setPitchDetector(pitchDetector_);
    frequencyAnalyzer_->setCapture(capture_);
    frequencyAnalyzer_->listen();
}

void MainFrequerncyProxy::stopAudioSession() {
    named_ = nullptr;
    noteObjects_.clear();
    allCandidates_.clear();
    tuningCandidates_.clear();
    candidatesTuning_.clear();
    if (frequencyAnalyzer_)
        frequencyAnalyzer_->stop();
    frequencyAnalyzer_ = nullptr;
}

void MainFrequerncyProxy::setTaperMode(int mode) {
    if (mode < 0 || mode >= static_cast<int>(tapersArray_.size())) {
        log("MainFrequerncyProxy: no taper mode " + std::to_string(mode) + "; using 0");
        mode = 0;
    }
    taperMode_ = mode;
    taperSettings_.setType(tapersArray_[static_cast<std::size_t>(mode)]);
    if (pitchDetector_)
        pitchDetector_->changeTaperSettings(taperSettings_);
}

void MainFrequerncyProxy::setTresholdPercent(int percent) {
    tresholdPercent_ = percent;
    if (pitchDetector_)
        pitchDetector_->changeSensitivity(percent);
}

void MainFrequerncyProxy::setClassicDetection(bool classic) {
    classic_ = classic;
    pitchDetector_ =
        PDAFacade::getFourierPDA(classic ? PDAFacade::kOvertone : PDAFacade::kFine, taperSettings_);
    pitchDetector_->changeSensitivity(tresholdPercent_);
    if (frequencyAnalyzer_)
        frequencyAnalyzer_->setPitchDetector(pitchDetector_);
}

float MainFrequerncyProxy::getMainFrequerncy() {
    const float f = frequencyAnalyzer_ ? frequencyAnalyzer_->frequency() : 0.0f;
    volumeLevel_ = frequencyAnalyzer_ ? frequencyAnalyzer_->getPeakPower() : 0;
    return endHold(f, smoothFrequency(f, currentFreq_));
}

float MainFrequerncyProxy::endHold(float detected, float reported) {
    if (classic_ || !frequencyAnalyzer_ || detected < -1.5f)
        return reported;
    const std::int64_t end = frequencyAnalyzer_->analysedBlockEnd();
    if (detected > 0.0f) {
        lastPitchEnd_ = end;
        return reported;
    }
    if (reported > 0.0f && end - lastPitchEnd_ >= kHoldSamples) {
        // The sound stopped: the tuner starts over, as before the first pitch.
        currentFreq_ = -1.0f;
        return -1.0f;
    }
    return reported;
}

NoteDescription* MainFrequerncyProxy::lastNamed() const {
    for (NoteDescription* candidate : *candidates_) {
        if (candidate == named_)
            return named_;
    }
    return nullptr;
}

std::vector<NoteDescription*> MainFrequerncyProxy::getNotes(const std::vector<std::string>& names) {
    std::vector<NoteDescription*> notes;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& token = names[i];
        const int octave = token.empty() ? -1 : token.back() - '0';
        const std::string name = token.substr(0, token.empty() ? 0 : token.size() - 1);
        int step = 0;
        while (step < 12 && name != noteNames_[static_cast<std::size_t>(step)])
            ++step;
        const auto position = static_cast<std::size_t>(octave * 12 + step);
        if (octave < 0 || octave >= kOctaves || step == 12 || position >= noteObjects_.size()) {
            log("MainFrequerncyProxy: no note \"" + token + "\"");
            continue;
        }
        NoteDescription& note = noteObjects_[position];
        note.index = static_cast<std::int32_t>(i);
        notes.push_back(&note);
    }
    return notes;
}

void MainFrequerncyProxy::gatherCandidates() {
    if (isAllNotes_) {
        candidates_ = &allCandidates_;
        return;
    }
    // Asked on every reading, so compared where it lies, without a copy.
    static const std::string standard(tunings::catalogue()[0].notes);
    const std::string& notes = settingsProxy_ ? settingsProxy_->getTuning() : standard;
    if (notes != candidatesTuning_) {
        candidatesTuning_ = notes;
        tuningCandidates_ = getNotes(tunings::tokens(notes));
    }
    // The records are shared with the chromatic list: each reading gives them
    // their string numbers again.
    for (std::size_t i = 0; i < tuningCandidates_.size(); ++i)
        tuningCandidates_[i]->index = static_cast<std::int32_t>(i);
    candidates_ = &tuningCandidates_;
}

const NoteDescription& MainFrequerncyProxy::getNoteDesctiption() {
    const float f = getMainFrequerncy();
    gatherCandidates();
    // Without pitch after one, the note stays the one last named (unlit), so
    // that silence does not move the note panel.
    NoteDescription* chosen = nullptr;
    if (!classic_ && f == -1.0f)
        chosen = lastNamed();
    if (!chosen)
        chosen = nearestNote(*candidates_, f);
    if (!chosen) {
        unnamed_ = NoteDescription{};
        chosen = &unnamed_;
    }
    if (f > 0.0f) {
        currentFreq_ = f;
        if (classic_ || chosen != named_) {
            chosen->cents = displayedCents(chosen->standartFrequency, currentFreq_, classic_);
        } else {
            chosen->cents = steadyCents(
                1200.0 * std::log2(currentFreq_ / chosen->standartFrequency), chosen->cents);
        }
        named_ = chosen;
    }
    chosen->frequency = f;
    chosen->volumeLevel = volumeLevel_;
    return *chosen;
}

int MainFrequerncyProxy::octaveOf(const NoteDescription& note) const {
    if (noteObjects_.empty() || &note < noteObjects_.data() ||
        &note >= noteObjects_.data() + noteObjects_.size())
        return -1;
    return static_cast<int>((&note - noteObjects_.data()) / 12);
}

}  // namespace zt
