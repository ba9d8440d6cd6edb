#pragma once
// The microphone sensitivity screen: the live input level ("Current volume
// level", 0 to 1) beside the threshold slider ("Current threshold", 0 to 1),
// so that the user can set the level below which the detector ignores
// sound. The level and the threshold are drawn on the meter scale every
// level display shares (see LevelScale); the threshold's mark shows from the
// moment the screen opens and follows the slider, the level once Start is
// touched. OK saves the slider as the percentage "Treshold" and goes back;
// Cancel goes back without saving.

#include <QtQml/qqmlregistration.h>

#include <QString>

#include "framework/Value.h"
#include "tuners/ui/MeasuringScreen.h"

namespace zt {

class MicrophoneCalibratingDelegate;

class MicrophoneCalibrating : public zt::MeasuringScreen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(double sliderValue READ sliderValue WRITE setSliderValue NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    // The meter: the level and the threshold mark, both 0 to 1 on one scale.
    Q_PROPERTY(double level READ level NOTIFY changed)
    Q_PROPERTY(double thresholdMark READ thresholdMark NOTIFY changed)

public:
    explicit MicrophoneCalibrating(QObject* parent = nullptr);

    void setDelegate(MicrophoneCalibratingDelegate* delegate) { delegate_ = delegate; }
    MicrophoneCalibratingDelegate* delegate() const { return delegate_; }

    double sliderValue() const { return sliderValue_; }
    void setSliderValue(double value);
    double progress() const { return progress_; }
    double level() const;
    // Follows the slider, so the mark moves while the user drags.
    double thresholdMark() const;
    int tresholdPercent() const { return tresholdPercent_; }
    int taperMode() const { return taperMode_; }

    // From the mediator.
    void setSavedData(const Dictionary& data);
    // level 0 to 100 (not clamped: the bar shows level / 100).
    void showIntensity(int level);
    void setTreshold(int percent);

    void viewWillAppear() override;
    void viewWillDisappear() override;

    // {"Treshold": the slider in whole percent, rounded down}.
    void saveSettings() override;

signals:
    void changed();

protected:
    void startSession() override;
    // The level bar empties when measuring stops.
    void stopSession() override;
    // One level reading.
    void poll() override;

private:
    MicrophoneCalibratingDelegate* delegate_ = nullptr;
    double sliderValue_ = 0.0;
    double progress_ = 0.0;
    int intensity_ = 0;
    int tresholdPercent_ = 0;
    int taperMode_ = 0;
};

}  // namespace zt
