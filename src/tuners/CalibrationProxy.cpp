#include "tuners/CalibrationProxy.h"

#include "dsp/PDAFacade.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "state/StateProxy.h"
#include "tuners/ChromaticSection.h"

namespace zt {

CalibrationProxy::CalibrationProxy(const std::string& name, std::shared_ptr<AudioCapture> capture,
                                   InputSource::DeviceList devices)
    : Proxy(name), input_(std::move(capture), std::move(devices)) {}

void CalibrationProxy::initializeProxy() {
    chooseDetector(false);
}

void CalibrationProxy::chooseDetector(bool classic) {
    taperSettings_.setType(tapersArray_[static_cast<std::size_t>(taperMode_)]);
    pitchDetector_ =
        PDAFacade::getFourierPDA(classic ? PDAFacade::kOvertone : PDAFacade::kFine, taperSettings_);
    pitchDetector_->changeSensitivity(sessionSensitivity());
}

void CalibrationProxy::setTaperMode(int mode) {
    if (mode < 0 || mode >= static_cast<int>(tapersArray_.size())) {
        log(proxyName() + ": no taper mode " + std::to_string(mode) + "; using 0");
        mode = 0;
    }
    taperMode_ = mode;
    taperSettings_.setType(tapersArray_[static_cast<std::size_t>(mode)]);
    if (pitchDetector_)
        pitchDetector_->changeTaperSettings(taperSettings_);
}

Dictionary CalibrationProxy::savedSection() const {
    if (auto state = facade().retrieveProxyAs<StateProxy>(StateProxy::NAME))
        return state->getChromaticTunerData().value_or(Dictionary{});
    return {};
}

bool CalibrationProxy::classicDetection() const {
    return chromatic::classicDetection(savedSection());
}

void CalibrationProxy::startAudioSession() {
    const Dictionary section = savedSection();
    chooseDetector(chromatic::classicDetection(section));
    frequencyAnalyzer_ = &FrequencyAnalyzer::getInstance(pitchDetector_);
    frequencyAnalyzer_->setPitchDetector(pitchDetector_);
    frequencyAnalyzer_->setCapture(input_.capture(chromatic::inputDevice(section)));
    frequencyAnalyzer_->listen();
}

void CalibrationProxy::stopAudioSession() {
    if (frequencyAnalyzer_)
        frequencyAnalyzer_->stop();
    frequencyAnalyzer_ = nullptr;
}

}  // namespace zt
