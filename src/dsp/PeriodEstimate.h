#pragma once
// The period of a block from its autocorrelation, by the normalised square
// difference function (McLeod and Wyvill, "A smarter way to find pitch",
// 2005):
//   n(t) = 2 r(t) / m(t),  m(t) = sum over the overlap of x[i]^2 + x[i+t]^2,
// which is 1 for a lag that repeats the block exactly and falls towards 0 for
// noise. Between each rise of n through zero and its next fall lies one key
// maximum; the period is the first key maximum within `keyRatio` of the
// highest, which prefers the true period to its multiples, refined by a
// parabola through its neighbours. Its height is the block's clarity.

#include <cstddef>
#include <optional>

namespace zt {

struct PeriodEstimate {
    double lag = 0.0;      // samples
    double clarity = 0.0;  // n at the lag, up to 1
};

// autocorrelation[t] = sum_i x[i] x[i+t] and squares[j] = sum_{i<j} x[i]^2
// (j = 0 ... length) of a block of `length` samples; lags from minLag to
// maxLag (< length) are searched.
std::optional<PeriodEstimate> estimatePeriod(const float* autocorrelation, const double* squares,
                                             std::size_t length, std::size_t minLag,
                                             std::size_t maxLag, double keyRatio);

// The highest n within half a sample of `lag`: how well the block repeats
// after about that many samples. The autocorrelation there and its first
// two derivatives, which put its top, are summed from the block's power
// spectrum (`bins` values of a transform at least twice the block long) as
// a band-limited signal's would be. A parabola through whole lags misjudges
// the top of a period only a few samples long by several hundredths, more
// than a period and its double differ by.
double repetitionAt(const float* power, std::size_t bins, const double* squares, std::size_t length,
                    double lag);

}  // namespace zt
