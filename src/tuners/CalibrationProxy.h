#pragma once
// What the two calibration proxies (base frequency, microphone threshold)
// share: a listening session of their own on the shared analyzer, with the
// detector and window chosen as for the tuner. Each session takes the saved
// chromatic section afresh, so the detector ("ClassicDetection") and the
// microphone ("InputDevice") are those the settings screen chose last.

#include <array>
#include <memory>
#include <string>

#include "dsp/FourierPDA.h"
#include "dsp/FrequencyAnalyzer.h"
#include "dsp/TaperSettings.h"
#include "framework/Proxy.h"
#include "framework/Value.h"
#include "tuners/FrequencyReaders.h"
#include "tuners/InputSource.h"

namespace zt {

class CalibrationProxy : public Proxy, public AudioSessionOwner {
public:
    // capture: nullptr for the microphone on the saved input device.
    CalibrationProxy(const std::string& name, std::shared_ptr<AudioCapture> capture,
                     InputSource::DeviceList devices);

    // The fine detector (the overtone one with classic detection), the
    // Gauss window, sensitivity 50.
    void initializeProxy() override;
    void startAudioSession() override;
    void stopAudioSession() override;

    // Taper modes 0 to 4 choose Gauss, cosine, Hamming, Hann, Lanczos;
    // anything else is 0.
    void setTaperMode(int mode);
    int getTaperMode() const { return taperMode_; }

    FourierPDA* pitchDetector() const { return pitchDetector_; }
    FrequencyAnalyzer* frequencyAnalyzer() const { return frequencyAnalyzer_; }
    const std::string& inputDevice() const { return input_.deviceName(); }

protected:
    // The sensitivity a session starts with.
    virtual int sessionSensitivity() const { return 50; }
    // Whether classic detection is saved as chosen.
    bool classicDetection() const;

private:
    void chooseDetector(bool classic);
    Dictionary savedSection() const;

    InputSource input_;
    FrequencyAnalyzer* frequencyAnalyzer_ = nullptr;
    FourierPDA* pitchDetector_ = nullptr;
    TaperSettings taperSettings_{1};
    const std::array<int, 5> tapersArray_{1, 0, 3, 2, 4};
    int taperMode_ = 0;
};

}  // namespace zt
