#include "dsp/Interpolator.h"

namespace zt {

Interpolator::Interpolator(std::uint32_t interOrder)
    : interOrder_(interOrder), interMatrix_(interOrder, std::vector<double>(interOrder, 0.0)) {}

void Interpolator::prepareMatrix(const double* values, std::uint32_t centre) {
    const double* first = values + centre - interOrder_ / 2;
    for (std::uint32_t i = 0; i < interOrder_; ++i)
        interMatrix_[0][i] = first[i];
    for (std::uint32_t k = 1; k < interOrder_; ++k) {
        for (std::uint32_t j = 0; j + k < interOrder_; ++j)
            interMatrix_[k][j] = interMatrix_[k - 1][j + 1] - interMatrix_[k - 1][j];
    }
}

double Interpolator::straightInterpolation(double x, double first, double, double h) const {
    const double t = (x - first) / h;
    double result = 0.0;
    double term = 1.0;  // t (t-1) ... (t-k+1) / k!
    for (std::uint32_t k = 0; k < interOrder_; ++k) {
        result += interMatrix_[k][0] * term;
        term *= (t - k) / (k + 1);
    }
    return result;
}

double Interpolator::inverseInterpolation(double x, double, double last, double h) const {
    const double t = (x - last) / h;
    double result = 0.0;
    double term = 1.0;  // t (t+1) ... (t+k-1) / k!
    for (std::uint32_t k = 0; k < interOrder_; ++k) {
        result += interMatrix_[k][interOrder_ - 1 - k] * term;
        term *= (t + k) / (k + 1);
    }
    return result;
}

double Interpolator::interpolation(double x, double first, double last, double h) const {
    if ((first + last) / 2.0 > x)
        return straightInterpolation(x, first, last, h);
    return inverseInterpolation(x, first, last, h);
}

}  // namespace zt
