#include "dsp/FrequencyAnalyzer.h"

#include <algorithm>
#include <cmath>

#include "framework/Log.h"

namespace zt {

FrequencyAnalyzer::FrequencyAnalyzer(FourierPDA* detector) : pitchDetector_(detector) {}

FrequencyAnalyzer::~FrequencyAnalyzer() {
    stop();
}

FrequencyAnalyzer& FrequencyAnalyzer::getInstance(FourierPDA* detector) {
    static FrequencyAnalyzer instance(detector);
    return instance;
}

void FrequencyAnalyzer::setCapture(std::shared_ptr<AudioCapture> capture) {
    if (capture_ != capture)
        stop();
    capture_ = std::move(capture);
}

void FrequencyAnalyzer::listen() {
    if (isListening())
        return;
    buffer_.reset();
    analysedEnd_ = 0;
    captureFailed_ = !capture_ || !capture_->start(buffer_, static_cast<int>(kSampleRate));
    if (captureFailed_)
        log("FrequencyAnalyzer: no capture device can be opened");
}

void FrequencyAnalyzer::pause() {
    if (isListening())
        capture_->stop();
}

void FrequencyAnalyzer::stop() {
    if (capture_)
        capture_->stop();
}

bool FrequencyAnalyzer::isListening() const {
    return capture_ && capture_->state() == AudioCapture::State::Running;
}

std::optional<LevelMeter> FrequencyAnalyzer::levels() const {
    if (!isListening())
        return std::nullopt;
    return buffer_.meter();
}

bool FrequencyAnalyzer::noMicrophone() const {
    return captureFailed_ || (capture_ && capture_->state() == AudioCapture::State::Lost);
}

std::size_t FrequencyAnalyzer::takeBlock() {
    const CaptureBuffer::Block block = buffer_.copyNewest(block_.data());
    if (block.length > 0)
        analysedEnd_ = block.end;
    return block.length;
}

float FrequencyAnalyzer::frequency() {
    if (noMicrophone())
        return kNoMicrophone;
    const std::size_t count = takeBlock();
    peakPower = 0;
    if (count == 0)
        return kNothingCaptured;
    fundamentalFrequency = PitchDetector::NO_FREQUENCY;
    if (pitchDetector_) {
        const std::span<const std::int16_t> samples(block_.data(), count);
        if (pitchDetector_->readsSamples()) {
            pitchDetector_->loadSamples(samples, kSampleRate);
        } else {
            performFFT(samples);
            pitchDetector_->loadForPitch(freq_db.data(), kTransformLength, kSampleRate);
        }
        fundamentalFrequency = pitchDetector_->getFundamentalFrequency();
        peakPower = pitchDetector_->getVolumeLevel();
    }
    return static_cast<float>(fundamentalFrequency);
}

int FrequencyAnalyzer::volumeLevel() {
    if (noMicrophone())
        return static_cast<int>(kNoMicrophone);
    const std::size_t count = takeBlock();
    peakPower = 0;
    if (count == 0 || !pitchDetector_)
        return 0;
    performFFT(std::span<const std::int16_t>(block_.data(), count));
    pitchDetector_->loadForVolume(freq_db.data(), kTransformLength);
    peakPower = pitchDetector_->getVolumeLevel();
    return peakPower;
}

const double* FrequencyAnalyzer::windowFor(std::size_t count) {
    const SignalWindow* window = pitchDetector_ ? pitchDetector_->getTaper() : nullptr;
    if (window != tableWindow_ || count != tableLength_) {
        // Without a window every sample counts fully.
        for (std::size_t i = 0; i < count; ++i) {
            windowTable_[i] =
                window ? window->getValue(static_cast<double>(i), static_cast<std::uint32_t>(count))
                       : 1.0;
        }
        tableWindow_ = window;
        tableLength_ = count;
    }
    return windowTable_.data();
}

void FrequencyAnalyzer::performFFT(std::span<const std::int16_t> samples) {
    const std::size_t count = std::min(samples.size(), windowTable_.size());
    const double* weights = windowFor(count);
    in_fft.fill(0.0f);
    for (std::size_t i = 0; i < count; ++i)
        in_fft[i] = static_cast<float>(samples[i] * weights[i]);
    transform_.forward(in_fft.data(), out_fft.data());
    for (std::size_t k = 0; k < kBins; ++k) {
        const double re = out_fft[k].real();
        const double im = out_fft[k].imag();
        freq_db[k] = std::sqrt(re * re + im * im) / kTransformLength;
    }
}

}  // namespace zt
