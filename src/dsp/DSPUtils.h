#pragma once
// Small numeric helpers of the spectral code.

namespace zt::DSPUtils {

inline constexpr double EPS = 1e-6;

// sin(pi x) / (pi x), and 1 within EPS of 0.
double sinc(double x);

}  // namespace zt::DSPUtils
