#include "tuners/ui/MicrophoneCalibrating.h"

#include <algorithm>
#include <cmath>

#include "state/StateKeys.h"
#include "tuners/ChromaticSection.h"
#include "tuners/LevelScale.h"
#include "tuners/ui/MicrophoneCalibratingDelegate.h"

namespace zt {

namespace {
// A slider value a hair below a whole percent (0.35 held as 0.3499999)
// still counts as that percent.
constexpr double kPercentSlack = 1e-6;

// The whole percent a slider value saves as (floor, so 0.999 saves 99).
int percentOf(double slider) {
    return static_cast<int>(std::floor(slider * 100.0 + kPercentSlack));
}
}  // namespace

MicrophoneCalibrating::MicrophoneCalibrating(QObject* parent)
    : MeasuringScreen(QStringLiteral("The microphone sensitivity calibrating requires a microphone "
                                     "to work. If you are using a device which does not include "
                                     "a built-in microphone, you must connect an external "
                                     "microphone via the headset jack."),
                      parent) {}

void MicrophoneCalibrating::startSession() {
    if (delegate_)
        delegate_->startAudioSession();
}

void MicrophoneCalibrating::stopSession() {
    progress_ = 0.0;
    intensity_ = 0;
    emit changed();
    if (delegate_)
        delegate_->stopAudioSession();
}

void MicrophoneCalibrating::poll() {
    if (delegate_)
        delegate_->getVolumeLevel();
}

void MicrophoneCalibrating::setSliderValue(double value) {
    value = std::clamp(value, 0.0, 1.0);
    if (value == sliderValue_)
        return;
    sliderValue_ = value;
    emit changed();
}

void MicrophoneCalibrating::setSavedData(const Dictionary& data) {
    taperMode_ = chromatic::taperMode(data);
    setTreshold(chromatic::tresholdPercent(data));
}

void MicrophoneCalibrating::setTreshold(int percent) {
    tresholdPercent_ = percent;
    sliderValue_ = percent / 100.0;
    emit changed();
}

void MicrophoneCalibrating::showIntensity(int level) {
    progress_ = level / 100.0;
    intensity_ = level;
    emit changed();
}

double MicrophoneCalibrating::level() const {
    return level::ofPercent(intensity_);
}

double MicrophoneCalibrating::thresholdMark() const {
    return level::ofPercent(percentOf(sliderValue_));
}

void MicrophoneCalibrating::saveSettings() {
    tresholdPercent_ = percentOf(sliderValue_);
    if (delegate_)
        delegate_->saveChromaticTunerSettings(
            {{state::chromatic::kTreshold.name, tresholdPercent_}});
}

void MicrophoneCalibrating::viewWillAppear() {
    if (delegate_)
        delegate_->setMicrophoneSavedData();
    progress_ = 0.0;
    intensity_ = 0;
    if (delegate_) {
        delegate_->setTaperDelegate(taperMode_);
        delegate_->setTresholdDelegate(tresholdPercent_);
    }
    emit changed();
}

void MicrophoneCalibrating::viewWillDisappear() {
    endMeasuring();
}

}  // namespace zt
