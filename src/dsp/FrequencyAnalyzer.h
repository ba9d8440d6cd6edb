#pragma once
// The analyzer owns the capture: it keeps the newest 2000-sample block of
// 16-bit mono sound at 8000 Hz (renewed every 400 samples, see
// CaptureBuffer) and, on request, turns it into a frequency or a level with
// its pitch detector.
//
// Classic path: the block, weighted by the detector's window, zero-padded to
// 4096 points, a real transform, and 2048 magnitudes |X[k]| / 4096 of
// 1.953125 Hz each handed to the detector. A detector that reads samples
// itself gets the block instead.
//
// Results: frequency() is -2 when no capture device could be opened or the
// device went away, 0 before the first block, else the detected frequency in
// hertz or -1 for no pitch. volumeLevel() is -2, 0, or the percentage level.
//
// Threads: the capture runs on its own thread (or whoever pumps it); every
// other call comes from one thread, which also runs the analysis, on a
// private copy of the block. Nothing on the analysis path allocates.

#include <array>
#include <complex>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "dsp/AudioCapture.h"
#include "dsp/CaptureBuffer.h"
#include "dsp/FourierPDA.h"
#include "dsp/RealTransform.h"

namespace zt {

class FrequencyAnalyzer {
public:
    static constexpr std::uint32_t kSampleRate = 8000;
    static constexpr std::uint32_t kTransformLength = 4096;
    static constexpr std::size_t kBins = kTransformLength / 2;
    static constexpr float kNoMicrophone = -2.0f;
    static constexpr float kNoPitch = -1.0f;
    static constexpr float kNothingCaptured = 0.0f;

    explicit FrequencyAnalyzer(FourierPDA* detector);
    ~FrequencyAnalyzer();
    FrequencyAnalyzer(const FrequencyAnalyzer&) = delete;
    FrequencyAnalyzer& operator=(const FrequencyAnalyzer&) = delete;

    // The shared analyzer, made on the first call with that detector; later
    // arguments are ignored (setPitchDetector changes it).
    static FrequencyAnalyzer& getInstance(FourierPDA* detector);

    // The source listen() starts; set it while not listening.
    void setCapture(std::shared_ptr<AudioCapture> capture);
    // Takes effect at the next analysis.
    void setPitchDetector(FourierPDA* detector) { pitchDetector_ = detector; }
    FourierPDA* pitchDetector() const { return pitchDetector_; }

    // Starts the capture from nothing captured; without a source, or when
    // it cannot be opened, requests answer -2.
    void listen();
    // Stops the capture, keeping the last block.
    void pause();
    // Stops and closes the capture.
    void stop();
    bool isListening() const;
    // The input levels of the newest 50 ms; nullopt when not listening.
    std::optional<LevelMeter> levels() const;

    float frequency();
    int volumeLevel();
    // The detector's level after the last request: 0 ... 10 after
    // frequency(), 0 ... 100 after volumeLevel().
    int getPeakPower() const { return peakPower; }
    // Samples captured up to the newest sample of the block last analysed.
    std::int64_t analysedBlockEnd() const { return analysedEnd_; }

    // The classic transform on its own: `samples` weighted by the detector's
    // window and zero-padded; then magnitudes() holds the spectrum.
    void performFFT(std::span<const std::int16_t> samples);
    std::span<const double> magnitudes() const { return freq_db; }

private:
    bool noMicrophone() const;
    // The block into block_; its length, 0 before the first.
    std::size_t takeBlock();
    // Weights of the detector's window for `count` samples, cached.
    const double* windowFor(std::size_t count);

    FourierPDA* pitchDetector_;
    std::shared_ptr<AudioCapture> capture_;
    bool captureFailed_ = false;
    CaptureBuffer buffer_;
    RealTransform transform_{kTransformLength};

    std::array<std::int16_t, CaptureBuffer::kBlockSamples> block_{};
    std::int64_t analysedEnd_ = 0;
    std::array<float, kTransformLength> in_fft{};
    std::array<std::complex<float>, kBins + 1> out_fft{};
    std::array<double, kBins> freq_db{};
    double fundamentalFrequency = 0.0;
    int peakPower = 0;

    const SignalWindow* tableWindow_ = nullptr;
    std::size_t tableLength_ = 0;
    std::array<double, CaptureBuffer::kBlockSamples> windowTable_{};
};

}  // namespace zt
