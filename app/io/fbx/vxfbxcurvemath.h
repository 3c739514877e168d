#ifndef VXFBXCURVEMATH_H
#define VXFBXCURVEMATH_H

#include "io/motion/vximportedmotion.h"

#include <functional>

/// One tick of the scene's time, in seconds.
constexpr double VxFbxSceneTick = 1.0 / 4800.0;

/// Value and slope of a curve at a time, as a one-sided limit: at a step or a corner the two sides
/// differ.
struct VxCurveSample
{
    double value = 0.0;
    double slope = 0.0; ///< per second
};
enum class VxCurveSide { Left, Right };

/// The end values hold outside of the keys. The curve has keys, but no Tcb segment.
VxCurveSample vxSampleCurve(const VxMotionCurve &curve, double time, VxCurveSide side);

/// Replaces every value by factor * value + offset.
void vxScaleCurve(VxMotionCurve *curve, double factor, double offset = 0.0);

/// offset + the sum of factor * curve.
struct VxCurveSum
{
    struct Term
    {
        double factor;
        const VxMotionCurve *curve; ///< borrowed
    };
    double offset = 0.0;
    std::vector<Term> terms;

    /// The sum as one curve; empty without terms. With one term the keys stay unchanged. With
    /// several there is a key wherever one of them has one, and the segments are exact unless
    /// handles are weighted: these become cubic segments within `tolerance` of the true value, with
    /// more keys where needed.
    VxMotionCurve toCurve(double tolerance) const;
};

/// The limit of keys for sampling a function with so many breaks.
std::size_t vxMaxSampledKeys(std::size_t breakCount);

/// A function of time, sampled into keys: cubic segments between the times in `breaks` (ascending),
/// halved until they differ from the function by at most `tolerance`. Between breaks the function
/// is smooth; at breaks its sides may differ. The tolerance is exceeded where it would need more
/// than vxMaxSampledKeys().
VxMotionCurve vxSampledCurve(const std::vector<double> &breaks,
                             const std::function<double(double, VxCurveSide)> &function,
                             double tolerance);

/// The union of the curves' key times.
std::vector<double> vxKeyTimes(const std::vector<const VxMotionCurve *> &curves);

#endif
