#include "dsp/RealTransform.h"

#include <kiss_fftr.h>

#include <stdexcept>

namespace zt {

static_assert(sizeof(kiss_fft_cpx) == sizeof(std::complex<float>),
              "kissfft's complex values are laid out as std::complex<float>");

RealTransform::RealTransform(std::size_t length)
    : length_(length),
      forward_(kiss_fftr_alloc(static_cast<int>(length), 0, nullptr, nullptr)),
      inverse_(kiss_fftr_alloc(static_cast<int>(length), 1, nullptr, nullptr)) {
    if (!forward_ || !inverse_) {
        kiss_fftr_free(forward_);
        kiss_fftr_free(inverse_);
        throw std::invalid_argument("no real transform of that length");
    }
}

RealTransform::~RealTransform() {
    kiss_fftr_free(forward_);
    kiss_fftr_free(inverse_);
}

void RealTransform::forward(const float* in, std::complex<float>* out) const {
    kiss_fftr(static_cast<kiss_fftr_cfg>(forward_), in, reinterpret_cast<kiss_fft_cpx*>(out));
}

void RealTransform::inverse(const std::complex<float>* in, float* out) const {
    kiss_fftri(static_cast<kiss_fftr_cfg>(inverse_), reinterpret_cast<const kiss_fft_cpx*>(in),
               out);
}

}  // namespace zt
