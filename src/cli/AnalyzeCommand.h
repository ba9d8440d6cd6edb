#pragma once
// zebtools-cli analyze: the chromatic tuner without a window. It runs the
// tuner's own capture geometry, analysis, smoothing and note choice on a
// sound file or the microphone and prints a reading every 50 ms (see
// AnalyzeOutput.h for the lines).

#include <string>

#include "cli/CliCommand.h"

namespace zt::cli {

struct AnalyzeJob {
    std::string file;  // empty with the microphone
    bool mic = false;
    double seconds = 0.0;  // microphone: 0 listens until interrupted
    bool allNotes = false;
    int tuning = 0;     // in the tunings catalogue
    int taperMode = 0;  // 0 Gauss, 1 cosine, 2 Hamming, 3 Hann, 4 Lanczos
    int threshold = 10;
    double base = 440.0;  // A4, Hz
    bool classic = false;
    bool raw = false;
    bool json = false;
};

class AnalyzeCommand final : public CliCommand {
public:
    explicit AnalyzeCommand(CLI::App& parent);

    const AnalyzeJob& job() const { return job_; }

    int run(std::ostream& out, std::ostream& err) override;

private:
    void makeJob();

    AnalyzeJob job_;
    std::string tuning_ = "0";
    std::string taper_ = "0";
    std::string detector_ = "fine";
};

}  // namespace zt::cli
