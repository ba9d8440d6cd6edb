#include "tuners/ui/MeasuringScreen.h"

namespace zt {

namespace {
constexpr int kPollMs = 50;
}

MeasuringScreen::MeasuringScreen(QString alertMessage, QObject* parent)
    : Screen(parent), alertMessage_(std::move(alertMessage)) {
    timer_.setInterval(kPollMs);
    connect(&timer_, &QTimer::timeout, this, [this] { poll(); });
}

void MeasuringScreen::showMicrophoneDetectAlertView() {
    stopMeasuring();
    alertShown_ = true;
    emit measuringChanged();
}

void MeasuringScreen::dismissAlert() {
    alertShown_ = false;
    emit measuringChanged();
}

void MeasuringScreen::ok() {
    saveSettings();
    emit backRequested();
}

void MeasuringScreen::cancel() {
    emit backRequested();
}

void MeasuringScreen::startMeasuring() {
    if (measuring_)
        return;
    measuring_ = true;
    startSession();
    timer_.start();
    emit measuringChanged();
}

void MeasuringScreen::stopMeasuring() {
    if (!measuring_)
        return;
    measuring_ = false;
    timer_.stop();
    stopSession();
    emit measuringChanged();
}

void MeasuringScreen::endMeasuring() {
    measuring_ = false;
    timer_.stop();
    stopSession();
    emit measuringChanged();
}

}  // namespace zt
