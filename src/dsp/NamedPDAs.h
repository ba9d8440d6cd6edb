#pragma once
// Spectral detectors that exist by name only: they set their threshold scale
// (0 ... 100) and detect nothing, so after an analysis they report no pitch.

#include "dsp/FourierPDA.h"

namespace zt {

class CepstrumPDA final : public FourierPDA {
public:
    explicit CepstrumPDA(const TaperSettings& settings) : FourierPDA(0.0, 100.0, settings) {}
    static CepstrumPDA& getInstance(const TaperSettings& settings);
};

class MaximumLikelihoodPDA final : public FourierPDA {
public:
    explicit MaximumLikelihoodPDA(const TaperSettings& settings)
        : FourierPDA(0.0, 100.0, settings) {}
    static MaximumLikelihoodPDA& getInstance(const TaperSettings& settings);
};

class SingleMaximumPDA final : public FourierPDA {
public:
    explicit SingleMaximumPDA(const TaperSettings& settings) : FourierPDA(0.0, 100.0, settings) {}
    static SingleMaximumPDA& getInstance(const TaperSettings& settings);
};

}  // namespace zt
