#pragma once
// Newton's forward and backward difference interpolation over interOrder
// equally spaced values, used to refine a spectral peak between bins.

#include <cstdint>
#include <vector>

namespace zt {

class Interpolator {
public:
    explicit Interpolator(std::uint32_t interOrder);

    std::uint32_t interOrder() const { return interOrder_; }

    // Fills the difference table from values[centre - interOrder/2] onwards;
    // the caller keeps interOrder/2 values on each side of the centre.
    void prepareMatrix(const double* values, std::uint32_t centre);

    // The value at x of the table laid on [first, last] with step h: the
    // forward formula from `first`, the backward one from `last`, and
    // interpolation() picks forward left of the middle, backward from it on.
    double straightInterpolation(double x, double first, double last, double h) const;
    double inverseInterpolation(double x, double first, double last, double h) const;
    double interpolation(double x, double first, double last, double h) const;

private:
    std::uint32_t interOrder_;
    // Row k holds the k-th forward differences.
    std::vector<std::vector<double>> interMatrix_;
};

}  // namespace zt
