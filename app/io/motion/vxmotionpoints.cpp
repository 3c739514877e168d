#include "io/motion/vxmotionpoints.h"

#include "io/motion/vxmotiontiming.h"

#include <algorithm>
#include <cmath>

namespace {

/// Slopes of a Kochanek and Bartels key, per second; chords beyond an end equal the one inside.
VxMotionShape slopesOf(const VxMotionCurve &curve, std::size_t i)
{
    const std::size_t last = curve.times.size() - 1;
    const std::size_t before = i > 0 ? i - 1 : i;
    const std::size_t after = i < last ? i + 1 : i;
    double left = curve.values[i] - curve.values[before];
    double right = curve.values[after] - curve.values[i];
    double leftSpan = curve.times[i] - curve.times[before];
    double rightSpan = curve.times[after] - curve.times[i];
    if (i == 0) {
        left = right;
        leftSpan = rightSpan;
    } else if (i == last) {
        right = left;
        rightSpan = leftSpan;
    }
    VxMotionShape shape = curve.shapes[i];
    const double span = leftSpan + rightSpan;
    if (span <= 0.0)
        return shape;
    const double t = 1.0 - double(shape.tcb.tension);
    const double c = double(shape.tcb.continuity);
    const double b = double(shape.tcb.bias);
    shape.inSlope = t * ((1 - c) * (1 + b) * left + (1 + c) * (1 - b) * right) / span;
    shape.outSlope = t * ((1 + c) * (1 + b) * left + (1 - c) * (1 - b) * right) / span;
    return shape;
}

quint8 keyType(VxMotionSegment segment)
{
    switch (segment) {
    case VxMotionSegment::Linear:
        return VxKeyInterp::Linear;
    case VxMotionSegment::Step:
        return VxKeyInterp::Constant;
    default:
        return VxKeyInterp::Tcb;
    }
}

/// The shape of a key with slopes on those sides where the curve is smooth.
VxMotionShape shapeOf(const VxMotionCurve &curve, std::size_t i)
{
    if (curve.shapes.empty())
        return {};
    const VxMotionShape &shape = curve.shapes[i];
    const bool isTcb = shape.segment == VxMotionSegment::Tcb;
    const bool wasTcb = i > 0 && curve.shapes[i - 1].segment == VxMotionSegment::Tcb;
    if (!isTcb && !wasTcb)
        return shape;
    VxMotionShape mixed = slopesOf(curve, i);
    if (!isTcb)
        mixed.outSlope = shape.outSlope;
    if (!wasTcb && i > 0)
        mixed.inSlope = shape.inSlope;
    return mixed;
}

/// Upper bound of the change beside a key from moving it by less than a tick, for linear segments.
double roundingError(const VxMotionCurve &curve, std::size_t i, double moved)
{
    double slope = 0.0;
    if (i > 0)
        slope = std::abs((curve.values[i] - curve.values[i - 1]) /
                         (curve.times[i] - curve.times[i - 1]));
    if (i + 1 < curve.times.size())
        slope = std::max(slope, std::abs((curve.values[i + 1] - curve.values[i]) /
                                         (curve.times[i + 1] - curve.times[i])));
    return slope * std::abs(moved);
}

} // namespace

void VxMotionPoints::append(const VxCurvePoint &point)
{
    if (!points.empty() && points.back().time >= point.time) {
        // The left tangent stays that of the segment that ends here.
        const VxCurvePoint former = points.back();
        points.back() = point;
        points.back().time = former.time;
        points.back().inSlope = former.inSlope;
        points.back().inWeight = former.inWeight;
        ++merged;
        return;
    }
    points.push_back(point);
}

void VxMotionPoints::appendHold(VxTime time, double value)
{
    VxCurvePoint point;
    point.time = time;
    point.value = value;
    point.type = VxKeyInterp::Constant;
    append(point);
}

void vxAppendCurve(const VxMotionCurve &curve, double offset, VxMotionPoints *points)
{
    points->points.reserve(points->points.size() + curve.times.size());
    for (std::size_t i = 0; i < curve.times.size(); ++i) {
        const double seconds = curve.times[i] + offset;
        const VxMotionShape shape = shapeOf(curve, i);
        VxCurvePoint point;
        point.time = VxMotionTiming::ticks(seconds);
        point.value = curve.values[i];
        point.inSlope = shape.inSlope;
        point.outSlope = shape.outSlope;
        point.inWeight = shape.inWeight;
        point.outWeight = shape.outWeight;
        point.type = keyType(shape.segment);
        const double moved = double(point.time) / VxTicksPerSecond - seconds;
        if (shape.segment != VxMotionSegment::Step)
            points->error = std::max(points->error, roundingError(curve, i, moved));
        points->append(point);
    }
}

VxFittedKeys vxKeysOf(const VxMotionPoints &points, double tolerance)
{
    const auto isSmooth = [](const VxCurvePoint &point) { return point.type == VxKeyInterp::Tcb; };
    if (std::any_of(points.points.begin(), points.points.end(), isSmooth))
        return vxFitCurve(points.points, tolerance);
    VxFittedKeys keys;
    keys.times.reserve(points.points.size());
    keys.values.reserve(points.points.size());
    keys.types.reserve(points.points.size());
    for (const VxCurvePoint &point : points.points) {
        keys.times.push_back(point.time);
        keys.values.push_back(float(point.value));
        keys.types.push_back(point.type);
    }
    return keys;
}

VxFittedKeys vxTcbKeysOf(const VxMotionCurve &curve, double offset)
{
    const auto hasSegment = [&curve](VxMotionSegment segment) {
        return std::any_of(
            curve.shapes.begin(), curve.shapes.end(),
            [segment](const VxMotionShape &shape) { return shape.segment == segment; });
    };
    VxFittedKeys keys;
    if (!hasSegment(VxMotionSegment::Tcb) || hasSegment(VxMotionSegment::Cubic))
        return keys;
    for (std::size_t i = 0; i < curve.times.size(); ++i) {
        const VxTime time = VxMotionTiming::ticks(curve.times[i] + offset);
        if (!keys.times.empty() && keys.times.back() >= time)
            return {};
        keys.times.push_back(time);
        keys.values.push_back(float(curve.values[i]));
        keys.types.push_back(keyType(curve.shapes[i].segment));
        keys.tcb.push_back(curve.shapes[i].tcb);
    }
    return keys;
}
