#ifndef VXCURVEFIT_H
#define VXCURVEFIT_H

#include <array>
#include <vector>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxeuler.h>
#include <vxcore/vxkeyarrays.h>

/// A key of a piecewise cubic curve with its tangents, the form in which most motion files store
/// curves.
///
/// The segment to the right has the given type; a smooth one (VxKeyInterp::Tcb) is the cubic Bezier
/// curve whose handles are on the tangents, at the weighted part of the segment's span:
///     (time, value), (time + w span, value + w span slope), ... With both weights at 1/3, the
/// usual case, that is the cubic Hermite segment.
struct VxCurvePoint
{
    VxTime time = 0;           ///< ticks
    double value = 0;          ///< in the property's unit
    double inSlope = 0;        ///< slope of the segment on the left at its end, value per second
    double outSlope = 0;       ///< slope of the segment on the right at its start, value per second
    double inWeight = 1.0 / 3; ///< 0 to 1, part of the left segment's span
    double outWeight = 1.0 / 3;     ///< 0 to 1, part of the right segment's span
    quint8 type = VxKeyInterp::Tcb; ///< type of the segment on the right
};

/// The keys of a fit: strictly ascending times, and a type for each key.
struct VxFittedKeys : VxKeyArrays<float>
{
    /// The largest distance from the input, measured on these keys.
    double error = 0;
};

/// Keys whose curve differs from a piecewise cubic one by at most `error` at any whole tick
/// (checked at 31 ticks, evenly distributed, of each segment).
///
/// Every point becomes a key. A key's tangents are expressed by tension, continuity and bias
/// (Kochanek and Bartels, Interpolating Splines with Local Tension, Continuity, and Bias Control,
/// 1984), with the bias at 0 wherever that gives a usual range of the other two. Where they cannot
/// be (sloping tangents between keys of one value, unequal handle weights) keys are added, each at
/// the largest remaining distance. A linear segment right after a smooth one becomes a smooth one
/// of the same straight shape: a key shapes the segment on its left only if it is TCB.
///
/// Points have strictly ascending times and finite numbers. An error below the rounding of the
/// values to single precision, or NaN, counts as that rounding; keys may then be added up to one a
/// tick.
VXCORE_EXPORT VxFittedKeys vxFitCurve(const std::vector<VxCurvePoint> &points, double error);

/// Fewer keys of one type (Linear or Tcb) for densely sampled values: at every sample the curve
/// differs by at most `error`, in the value's unit. The first and the last sample stay; every key's
/// time is the time of a sample.
///
/// Each key is followed by the farthest sample that one segment can reach. For linear keys a cone
/// of slopes decides (as in Sklansky and Gonzalez, Fast polygonal approximation of digitized
/// curves, 1980), in time linear in the number of samples; for TCB keys a cubic by least squares
/// (as in Schneider, An Algorithm for Automatically Fitting Digitized Curves, 1990), with
/// tangents of its own, so that a bend at a key is in proportion to the error.
///
/// Times are strictly ascending, values finite. An error below the rounding of the values to single
/// precision, or NaN, counts as that rounding: then only keys on the curve of their neighbours are
/// removed.
VXCORE_EXPORT VxFittedKeys vxReduceKeys(const VxTime *times, const float *values, int count,
                                        VxKeyInterp::Type type, double error);

/// Sampled rotations: angles in degrees about X, Y and Z, without jumps (see vxNearestEuler()).
struct VxRotationSamples
{
    const VxTime *times = nullptr; ///< ticks, strictly ascending
    std::array<const float *, 3> angles = {};
    int count = 0;
    VxRotationOrder order = VxRotationOrder::XYZ;
};

/// The same for the three angles of a rotation together: all have keys at the same times, and
/// `error` is the angle in degrees between the sampled and the resulting rotation. Each result
/// states the joint error.
VXCORE_EXPORT std::array<VxFittedKeys, 3> vxReduceRotation(const VxRotationSamples &samples,
                                                           VxKeyInterp::Type type, double error);

#endif
