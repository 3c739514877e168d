#include "io/fbx/vxfbxblend.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxeuler.h>

namespace {

constexpr double degreeTolerance = 0.01;
constexpr double relativeTolerance = 1e-4;

// Keeps the sign, as scales below 0 mirror.
double power(double base, double exponent)
{
    return std::copysign(std::pow(std::abs(base), exponent), base);
}

double sampleChannel(const VxFbxChannel &channel, double time, VxCurveSide side)
{
    return channel.hasKeys() ? vxSampleCurve(channel.curve, time, side).value : channel.value;
}

double largest(const VxMotionCurve &curve)
{
    double most = 0.0;
    for (const double value : curve.values)
        most = std::max(most, std::abs(value));
    return most;
}

bool isRotationBlend(const VxFbxTarget &target, const VxFbxLayer &layer)
{
    return target.property == VxFbxTarget::Rotation && !layer.isPerChannel;
}

bool isScaleBlend(const VxFbxTarget &target, const VxFbxLayer &layer)
{
    return target.property == VxFbxTarget::Scale && !layer.addsScale;
}

VxQuaternion blended(const VxQuaternion &below, const VxQuaternion &above, VxFbxLayer::Blend blend,
                     double weight)
{
    if (blend == VxFbxLayer::Passthrough)
        return vxSlerp(below, above, weight);
    return below * vxSlerp(VxQuaternion{}, above, weight);
}

double blendedScale(double below, double above, VxFbxLayer::Blend blend, double weight)
{
    if (blend == VxFbxLayer::Passthrough)
        return power(below, 1.0 - weight) * power(above, weight);
    return below * power(above, weight);
}

double blendedNumber(double below, double above, VxFbxLayer::Blend blend, double weight)
{
    if (blend == VxFbxLayer::Passthrough)
        return (1.0 - weight) * below + weight * above;
    return below + weight * above;
}

void scaleBy(VxCurveSum *sum, double factor)
{
    sum->offset *= factor;
    for (VxCurveSum::Term &term : sum->terms)
        term.factor *= factor;
}

void add(VxCurveSum *sum, const VxFbxChannel &channel, double factor)
{
    if (channel.hasKeys() && factor != 0.0)
        sum->terms.push_back({factor, &channel.curve});
    else
        sum->offset += factor * channel.value;
}

// A product of which at most one factor has keys.
bool multiply(VxCurveSum *sum, const VxFbxChannel &channel, VxFbxLayer::Blend blend, double weight)
{
    if (blend == VxFbxLayer::Passthrough)
        return false;
    if (!channel.hasKeys()) {
        scaleBy(sum, power(channel.value, weight));
        return true;
    }
    if (!sum->terms.empty() || weight != 1.0)
        return false;
    sum->terms.push_back({sum->offset, &channel.curve});
    sum->offset = 0.0;
    return true;
}

} // namespace

bool VxFbxChannel::isAlways(double constant) const
{
    const auto isSame = [constant](double number) {
        return std::abs(number - constant) <= 1e-6 * std::max(1.0, std::abs(constant));
    };
    const auto isLevel = [](const VxMotionShape &shape) {
        return shape.segment != VxMotionSegment::Cubic ||
               (shape.inSlope == 0.0 && shape.outSlope == 0.0);
    };
    if (!hasKeys())
        return isSame(value);
    return std::all_of(curve.values.begin(), curve.values.end(), isSame) &&
           std::all_of(curve.shapes.begin(), curve.shapes.end(), isLevel);
}

VxFbxChannel vxFbxProduct(const VxFbxChannel &a, const VxFbxChannel &b)
{
    if (!a.hasKeys() || !b.hasKeys()) {
        const VxFbxChannel &keyed = a.hasKeys() ? a : b;
        const double factor = a.hasKeys() ? b.value : a.value;
        VxCurveSum sum;
        add(&sum, keyed, factor);
        return {factor * keyed.value, sum.toCurve(0.0)};
    }
    const std::vector<double> times = vxKeyTimes({&a.curve, &b.curve});
    const double tolerance = relativeTolerance * largest(a.curve) * largest(b.curve);
    const auto product = [&](double time, VxCurveSide side) {
        return sampleChannel(a, time, side) * sampleChannel(b, time, side);
    };
    return {0.0, vxSampledCurve(times, product, tolerance)};
}

VxFbxBlend::VxFbxBlend(const VxFbxStack &stack, const VxFbxObjects &objects, VxFbxCurves &curves,
                       VxFbxBlendCounts *counts)
    : m_stack(stack)
    , m_objects(objects)
    , m_curves(curves)
    , m_counts(counts)
{
}

bool VxFbxBlend::readCurve(int object, VxMotionCurve *curve)
{
    VxFbxCurve read;
    if (!m_curves.read(m_objects.record(object), &read))
        return false;
    if (read.keys.times.size() > 1 && read.isExtrapolated)
        ++m_counts->extrapolated;
    *curve = std::move(read.keys);
    return true;
}

bool VxFbxBlend::readWeights()
{
    m_weights.resize(m_stack.layers.size());
    for (std::size_t i = 0; i < m_weights.size(); ++i) {
        const int object = m_stack.layers[i].weightCurve;
        if (object != 0 && !readCurve(object, &m_weights[i]))
            return false;
    }
    return true;
}

bool VxFbxBlend::readParts(const VxFbxTarget &target)
{
    m_parts.clear();
    for (std::size_t i = 0; i < m_stack.layers.size(); ++i) {
        const VxFbxLayer &layer = m_stack.layers[i];
        const auto found = layer.targets.find(target);
        if (found == layer.targets.end())
            continue;
        const VxMotionCurve *weight = m_weights[i].isEmpty() ? nullptr : &m_weights[i];
        Part part{&layer, weight, i == 0, {}};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            part.track[axis].value = found->second.values[axis];
            const int curve = found->second.curves[axis];
            if (curve != 0 && !readCurve(curve, &part.track[axis].curve))
                return false;
        }
        m_parts.push_back(std::move(part));
    }
    return true;
}

bool VxFbxBlend::read(const VxFbxTarget &target, const Vector &rest, VxNode::RotationOrder order,
                      VxFbxTrack *track)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        (*track)[axis] = {rest[axis], {}};
    if (!readParts(target))
        return false;
    if (m_parts.empty())
        return true;
    // The usual case; nothing is copied.
    if (m_parts.size() == 1 && m_parts.front().isLowest) {
        *track = std::move(m_parts.front().track);
        return true;
    }
    std::array<VxCurveSum, 3> sums;
    for (std::size_t axis = 0; axis < 3; ++axis)
        sums[axis].offset = rest[axis];
    if (!combine(target, &sums)) {
        sampleInto(target, rest, order, track);
        return true;
    }
    for (std::size_t axis = 0; axis < 3; ++axis)
        (*track)[axis] = {sums[axis].offset, sums[axis].toCurve(degreeTolerance * 0.01)};
    return true;
}

// The parts as sums of curves; false if they cannot be expressed so.
bool VxFbxBlend::combine(const VxFbxTarget &target, std::array<VxCurveSum, 3> *sums) const
{
    return std::all_of(m_parts.begin(), m_parts.end(),
                       [&](const Part &part) { return combinePart(target, part, sums); });
}

bool VxFbxBlend::combinePart(const VxFbxTarget &target, const Part &part,
                             std::array<VxCurveSum, 3> *sums) const
{
    const VxFbxLayer &layer = *part.layer;
    const bool replaces =
        part.isLowest || layer.blend == VxFbxLayer::Override ||
        (layer.blend == VxFbxLayer::Passthrough && layer.weight == 1.0 && !part.weight);
    const auto isNeutral = [](const VxFbxChannel &channel) { return channel.isAlways(0.0); };
    const bool isNothing =
        layer.weight == 0.0 && !part.weight && layer.blend != VxFbxLayer::Override;
    if (replaces) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            (*sums)[axis] = {};
            add(&(*sums)[axis], part.track[axis], 1.0);
        }
        return true;
    }
    if (isNothing)
        return true;
    if (isRotationBlend(target, layer))
        return layer.blend == VxFbxLayer::Additive &&
               std::all_of(part.track.begin(), part.track.end(), isNeutral);
    if (part.weight)
        return false;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        VxCurveSum &sum = (*sums)[axis];
        if (isScaleBlend(target, layer)) {
            if (!multiply(&sum, part.track[axis], layer.blend, layer.weight))
                return false;
            continue;
        }
        if (layer.blend == VxFbxLayer::Passthrough)
            scaleBy(&sum, 1.0 - layer.weight);
        add(&sum, part.track[axis], layer.weight);
    }
    return true;
}

VxFbxBlend::Vector VxFbxBlend::sample(const VxFbxTarget &target, const Vector &rest,
                                      VxNode::RotationOrder order, double time,
                                      VxCurveSide side) const
{
    Vector value = rest;
    for (const Part &part : m_parts) {
        const VxFbxLayer &layer = *part.layer;
        Vector above;
        for (std::size_t axis = 0; axis < 3; ++axis)
            above[axis] = sampleChannel(part.track[axis], time, side);
        if (part.isLowest || layer.blend == VxFbxLayer::Override) {
            value = above;
            continue;
        }
        const double weight =
            part.weight
                ? std::clamp(vxSampleCurve(*part.weight, time, side).value / 100.0, 0.0, 1.0)
                : layer.weight;
        Vector sum;
        for (std::size_t axis = 0; axis < 3; ++axis)
            sum[axis] = isScaleBlend(target, layer)
                            ? blendedScale(value[axis], above[axis], layer.blend, weight)
                            : blendedNumber(value[axis], above[axis], layer.blend, weight);
        if (isRotationBlend(target, layer)) {
            // The sums of the angles select the equivalent angles that continue the curve.
            const VxRotationOrder euler = vxRotationOrder(order);
            sum = vxEulerAngles(blended(vxQuaternion(value, euler), vxQuaternion(above, euler),
                                        layer.blend, weight),
                                euler, sum);
        }
        value = sum;
    }
    return value;
}

void VxFbxBlend::sampleInto(const VxFbxTarget &target, const Vector &rest,
                            VxNode::RotationOrder order, VxFbxTrack *track)
{
    ++m_counts->sampled;
    std::vector<const VxMotionCurve *> curves;
    for (const Part &part : m_parts) {
        for (const VxFbxChannel &channel : part.track)
            curves.push_back(&channel.curve);
        if (part.weight)
            curves.push_back(part.weight);
    }
    const std::vector<double> times = vxKeyTimes(curves);
    if (times.empty()) {
        const Vector constant = sample(target, rest, order, 0.0, VxCurveSide::Right);
        for (std::size_t axis = 0; axis < 3; ++axis)
            (*track)[axis].value = constant[axis];
        return;
    }
    bool isCoarse = false;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double range = 1e-6;
        for (const Part &part : m_parts)
            range = std::max(range, largest(part.track[axis].curve));
        const double tolerance =
            target.property == VxFbxTarget::Rotation ? degreeTolerance : relativeTolerance * range;
        const auto function = [&](double time, VxCurveSide side) {
            return sample(target, rest, order, time, side)[axis];
        };
        (*track)[axis].curve = vxSampledCurve(times, function, tolerance);
        isCoarse = isCoarse || (*track)[axis].curve.times.size() >= vxMaxSampledKeys(times.size());
    }
    m_counts->coarse += isCoarse;
}
