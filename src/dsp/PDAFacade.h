#pragma once
// The shared pitch detectors by kind. Kinds 0 to 3 are the classic family
// (only kind 2, the overtone detector, detects anything); kind 4 is the fine
// detector the live tuner uses by default. Each call applies the given
// window to the detector it returns.

#include "dsp/FourierPDA.h"
#include "dsp/TaperSettings.h"

namespace zt {

class PDAFacade {
public:
    static constexpr int kCepstrum = 0;
    static constexpr int kMaximumLikelihood = 1;
    static constexpr int kOvertone = 2;
    static constexpr int kSingleMaximum = 3;
    static constexpr int kFine = 4;

    // nullptr for any other kind.
    static FourierPDA* getFourierPDA(int kind, const TaperSettings& settings);
};

}  // namespace zt
