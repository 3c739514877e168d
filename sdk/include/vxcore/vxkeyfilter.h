#ifndef VXKEYFILTER_H
#define VXKEYFILTER_H

#include <array>
#include <vector>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxcurvefit.h>

/// Filters of keyed values: pure functions on arrays. Times are ticks, strictly ascending, at any
/// distances; values are finite. Filters work in seconds, never in numbers of keys. The result has
/// a value for each key.

/// A weighted straight line through the keys around each key, the weights a Gaussian of the given
/// standard deviation in seconds times the span of each key (local linear regression: Cleveland,
/// Robust Locally Weighted Regression and Smoothing Scatterplots, 1979). So lines are preserved up
/// to the ends, and dense keys count no more than others. A sine of f Hz, densely keyed, is scaled
/// by exp(-(2 pi f sigma)^2 / 2). Sigma 0, below, or NaN: the values unchanged.
VXCORE_EXPORT std::vector<float> vxSmoothGaussian(const VxTime *times, const float *values,
                                                  int count, double sigma);

/// A second order Butterworth low pass, forwards and backwards, so without phase shift. The
/// gain of both together is 1 / sqrt(2) at `cutoff` Hz (each pass has its own cut-off raised for
/// that: Winter, Biomechanics and Motor Control of Human Movement, 1990), and
///     1 / (1 + (sqrt(2) - 1) (tan(pi f / rate) / tan(pi cutoff / rate))^4)    at f Hz,
/// `rate` being the number of keys a second. Keys at unequal distances are filtered on an even grid
/// as fine as their smallest distance (up to four times as many points as keys). A cut-off of half
/// the rate or more, not above 0, or NaN: the values unchanged.
VXCORE_EXPORT std::vector<float> vxSmoothButterworth(const VxTime *times, const float *values,
                                                     int count, double cutoff);

/// Replaces values that differ by more than `threshold`, in their unit, from the median of the keys
/// within `window` seconds around them (half of it on either side) by the straight line between
/// the keys beside them. `removed` is set to the number of keys that were replaced.
VXCORE_EXPORT std::vector<float> vxRemoveSpikes(const VxTime *times, const float *values, int count,
                                                double window, double threshold,
                                                int *removed = nullptr);

/// Replaces each triple of angles, in place, by the equivalent nearest to the previous triple; see
/// vxNearestEuler(). A triple whose angles differ from the previous one by 90 degrees in sum or
/// less stays. Returns how many were changed.
VXCORE_EXPORT int vxFilterEuler(const std::array<float *, 3> &angles, int count,
                                VxRotationOrder order);

/// The indexes, ascending, of keys that can be removed without any change of the curve because it
/// is level around them: values within `tolerance` of that of the run's first key. The first and
/// last key of such a run stay; with smooth keys two at either end, which shape its ends.
VXCORE_EXPORT std::vector<int> vxFlatKeys(const VxKeyColumns<float> &keys, double tolerance = 0);

/// The values of the curve at many times, ascending; before the first and after the last key its
/// value holds. There must be a key.
VXCORE_EXPORT std::vector<float> vxSampleKeys(const VxKeyColumns<float> &keys, const VxTime *times,
                                              int count);

/// The same curve by keys of one type, within an error at every multiple of `step` ticks counted
/// from each key. All keys stay; more are added where the new type needs them: before a jump, along
/// a bend. To Constant the curve becomes steps. Error and rounding as in vxFitCurve(); a step below
/// 1 counts as 1.
VXCORE_EXPORT VxFittedKeys vxConvertKeys(const VxKeyColumns<float> &keys, VxKeyInterp::Type type,
                                         VxTime step, double error);

#endif
