#pragma once
// The real-input fast Fourier transform of the analysis, over kissfft
// (single precision). Both directions are unnormalised:
//   forward X[k] = sum_n x[n] e^(-2 pi i n k / L), k = 0 ... L/2;
//   inverse x[n] = sum over all L bins of X[k] e^(+2 pi i n k / L).
// Its tables are made once, at construction; transforms allocate nothing.

#include <complex>
#include <cstddef>

namespace zt {

class RealTransform {
public:
    // length: even number of real values.
    explicit RealTransform(std::size_t length);
    ~RealTransform();
    RealTransform(const RealTransform&) = delete;
    RealTransform& operator=(const RealTransform&) = delete;

    std::size_t length() const { return length_; }

    // in: length() values; out: length() / 2 + 1 bins.
    void forward(const float* in, std::complex<float>* out) const;
    // in: length() / 2 + 1 bins; out: length() values.
    void inverse(const std::complex<float>* in, float* out) const;

private:
    std::size_t length_;
    void* forward_;
    void* inverse_;
};

}  // namespace zt
