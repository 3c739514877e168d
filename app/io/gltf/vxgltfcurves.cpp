#include "io/gltf/vxgltfcurves.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>

namespace {

constexpr double FrameError = 5e-4;       // degrees, at frames
constexpr double BetweenTolerance = 0.05; // degrees, between frames

/// The keys of a property, each with the shape of its curve.
class Curve
{
public:
    explicit Curve(const VxGltfValue &value)
        : m_value(value)
        , m_holder(value.property
                       ? qobject_cast<const VxFloatProperty *>(value.property->getKeyHolder())
                       : nullptr)
    {
        if (m_holder)
            m_keys = m_holder->getKeys();
    }

    const VxKeyColumns<float> &keys() const { return m_keys; }
    bool isLinked() const { return m_value.property && m_value.property->isLinked(); }

    double at(VxTime time) const
    {
        const double value = m_value.property ? double(m_value.property->getValue(time)) : 0.0;
        return value * m_value.factor + m_value.constant;
    }

    /// Type of the segment that begins at a time or contains it: Constant before the first key and
    /// from the last key on.
    int typeAt(VxTime time) const
    {
        const int i = keyAt(time);
        if (i < 0 || i + 1 >= m_keys.count)
            return VxKeyInterp::Constant;
        return typeOf(i);
    }

    /// Slope per second just before (-1) or after (1) a time. The curve is a cubic between keys:
    /// three more of its values determine it exactly.
    double slope(VxTime time, int side) const
    {
        const int i = side > 0 ? keyAt(time) : keyAt(time == VxTimeMin ? time : time - 1);
        if (i < 0 || i + 1 >= m_keys.count || typeOf(i) == VxKeyInterp::Constant)
            return 0.0;
        const double start = m_keys.times[i];
        const double span = double(m_keys.times[i + 1]) - start;
        const double left = double(m_keys.values[i]);
        const double right = double(m_keys.values[i + 1]);
        double perSpan = right - left;
        if (typeOf(i) == VxKeyInterp::Tcb) {
            const double out = tangent(i, true);
            const double in = tangent(i + 1, false);
            const double s = (time - start) / span;
            const double c2 = 3 * perSpan - 2 * out - in;
            const double c3 = out + in - 2 * perSpan;
            perSpan = out + s * (2 * c2 + 3 * c3 * s);
        }
        return perSpan / span * VxTicksPerSecond * m_value.factor;
    }

private:
    int keyAt(VxTime time) const
    {
        const VxTime *end = m_keys.times + m_keys.count;
        return int(std::upper_bound(m_keys.times, end, time) - m_keys.times) - 1;
    }
    int typeOf(int i) const { return m_keys.types ? m_keys.types[i] : int(VxKeyInterp::Linear); }
    VxTcb shapeOf(int i) const
    {
        return m_keys.tcb && typeOf(i) == VxKeyInterp::Tcb ? m_keys.tcb[i] : VxTcb();
    }

    /// Kochanek and Bartels, for unequal key distances: the tangent for the segment after key i
    /// (out) or before it.
    double tangent(int i, bool out) const
    {
        const bool hasLeft = i > 0;
        const bool hasRight = i + 1 < m_keys.count;
        const auto rise = [&](int from) {
            return double(m_keys.values[from + 1]) - double(m_keys.values[from]);
        };
        const auto span = [&](int from) {
            return double(m_keys.times[from + 1]) - double(m_keys.times[from]);
        };
        const double left = hasLeft ? rise(i - 1) : rise(i);
        const double right = hasRight ? rise(i) : left;
        const double leftSpan = hasLeft ? span(i - 1) : span(i);
        const double rightSpan = hasRight ? span(i) : leftSpan;
        const VxTcb tcb = shapeOf(i);
        const double c = (out ? 1 : -1) * double(tcb.continuity);
        const double b = double(tcb.bias);
        const double shape = (1 + c) * (1 + b) * left + (1 - c) * (1 - b) * right;
        const double own = out ? rightSpan : leftSpan;
        return (1 - double(tcb.tension)) * shape * own / (leftSpan + rightSpan);
    }

    const VxGltfValue m_value;
    const VxFloatProperty *const m_holder;
    VxKeyColumns<float> m_keys;
};

void sortUnique(std::vector<VxTime> *times)
{
    std::sort(times->begin(), times->end());
    times->erase(std::unique(times->begin(), times->end()), times->end());
}

/// The times of all keys within a range and its ends.
std::vector<VxTime> keyTimes(const std::vector<Curve> &curves, const VxTimeRange &range)
{
    std::vector<VxTime> times{range.getStart(), range.getEnd()};
    for (const Curve &curve : curves) {
        const VxKeyColumns<float> &keys = curve.keys();
        for (int i = 0; i < keys.count; ++i) {
            if (range.contains(keys.times[i]))
                times.push_back(keys.times[i]);
        }
    }
    sortUnique(&times);
    return times;
}

/// Whether a curve jumps at a key: its segment before holds another value.
bool jumpsAt(const Curve &curve, VxTime time)
{
    return curve.typeAt(time - 1) == VxKeyInterp::Constant && curve.at(time - 1) != curve.at(time);
}

/// The times of the keys of some curves, and what kinds of segments are between them.
struct Plan
{
    bool isSampled = false;
    std::vector<VxTime> times;
    bool hasStep = false; ///< a constant segment that is followed by another value
    bool hasLine = false;
    bool hasCurve = false;

    Plan(const std::vector<Curve> &curves, const VxTimeRange &range, const VxFrameTimes &frames)
        : isSampled(std::any_of(curves.begin(), curves.end(),
                                [](const Curve &curve) { return curve.isLinked(); }))
        , times(isSampled ? frames.all() : keyTimes(curves, range))
    {
        if (isSampled)
            return;
        for (const Curve &curve : curves) {
            for (std::size_t i = 0; i + 1 < times.size(); ++i) {
                const int type = curve.typeAt(times[i]);
                hasCurve = hasCurve || type == VxKeyInterp::Tcb;
                hasLine = hasLine || (type == VxKeyInterp::Linear &&
                                      curve.at(times[i]) != curve.at(times[i + 1]));
                hasStep = hasStep || jumpsAt(curve, times[i + 1]);
            }
        }
    }
    bool isOfSteps() const { return hasStep && !hasLine && !hasCurve; }
};

/// Adds the tick before each jump, so that lines and curves can hold up to it.
void addJumps(const std::vector<Curve> &curves, std::vector<VxTime> *times)
{
    std::vector<VxTime> added;
    for (std::size_t i = 1; i < times->size(); ++i) {
        const VxTime time = (*times)[i];
        const bool jumps = std::any_of(curves.begin(), curves.end(),
                                       [time](const Curve &c) { return jumpsAt(c, time); });
        if (jumps && (*times)[i - 1] < time - 1)
            added.push_back(time - 1);
    }
    times->insert(times->end(), added.begin(), added.end());
    sortUnique(times);
}

/** The slope of a straight line between two keys where the curve jumps, else the curve's own. */
double tangentOf(const Curve &curve, VxTime time, VxTime other, int side)
{
    const VxTime right = std::max(time, other);
    if (!jumpsAt(curve, right) || right - std::min(time, other) > 1)
        return curve.slope(time, side);
    return (curve.at(right) - curve.at(right - 1)) * VxTicksPerSecond;
}

void addCubic(const std::vector<Curve> &curves, VxGltfKeys *keys)
{
    const std::vector<VxTime> &times = keys->times;
    for (std::size_t i = 0; i < times.size(); ++i) {
        for (const Curve &curve : curves)
            keys->numbers.push_back(i == 0 ? 0.0f
                                           : float(tangentOf(curve, times[i], times[i - 1], -1)));
        for (const Curve &curve : curves)
            keys->numbers.push_back(float(curve.at(times[i])));
        for (const Curve &curve : curves)
            keys->numbers.push_back(
                i + 1 == times.size() ? 0.0f : float(tangentOf(curve, times[i], times[i + 1], 1)));
    }
}

/// Rotations from three angles, as a file will have them: single precision.
class Rotations
{
public:
    Rotations(const std::array<const VxFloatProperty *, 3> &angles, VxRotationOrder order)
        : m_angles(angles)
        , m_order(order)
    {
    }

    VxQuaternion at(VxTime time) const
    {
        VxEuler angles;
        for (std::size_t axis = 0; axis < 3; ++axis)
            angles[axis] = double(m_angles[axis]->getValue(time));
        return vxQuaternion(angles, m_order);
    }

private:
    const std::array<const VxFloatProperty *, 3> m_angles;
    const VxRotationOrder m_order;
};

/// Adds keys to a linear rotation sampler where it would deviate.
class RotationRefiner
{
public:
    RotationRefiner(const Rotations &rotations, const VxFrameTimes &frames, VxGltfKeys *keys)
        : m_rotations(rotations)
        , m_frames(frames)
        , m_keys(keys)
    {
    }

    /// All times behind `from` up to `to`, that included.
    void refine(VxTime from, VxTime to)
    {
        const VxQuaternion a = m_rotations.at(from);
        const VxQuaternion b = m_rotations.at(to);
        const VxTime frame = m_frames.middle(from, to);
        const double limit = frame > from ? FrameError : BetweenTolerance;
        const double error = deviation(from, to, a, b, limit);
        const qint64 span = qint64(to) - from;
        if (span > 1 && error > limit) {
            const VxTime middle = frame > from ? frame : VxTime(from + span / 2);
            refine(from, middle);
            refine(middle, to);
            return;
        }
        m_keys->error = std::max(m_keys->error, error);
        m_keys->times.push_back(to);
    }

private:
    /** Measured at quarters of frames, or of a shorter span; stops at a deviation of `enough`. */
    double deviation(VxTime from, VxTime to, const VxQuaternion &a, const VxQuaternion &b,
                     double enough) const
    {
        const qint64 span = qint64(to) - from;
        const auto frame = qint64(m_frames.ticksPerFrame());
        const qint64 quarter = std::max<qint64>(1, std::min(frame, span) / 4);
        double worst = 0.0;
        for (qint64 at = quarter; at < span && worst <= enough; at += quarter)
            worst = std::max(worst, vxAngleBetween(m_rotations.at(VxTime(from + at)),
                                                   vxSlerp(a, b, double(at) / double(span))));
        return worst;
    }

    const Rotations &m_rotations;
    const VxFrameTimes &m_frames;
    VxGltfKeys *const m_keys;
};

void addQuaternions(const Rotations &rotations, VxGltfKeys *keys)
{
    for (const VxTime time : keys->times) {
        const VxQuaternion q = rotations.at(time);
        for (const double part : {q.x, q.y, q.z, q.w})
            keys->numbers.push_back(float(part));
    }
}

} // namespace

bool vxIsAnimated(const VxFloatProperty *property)
{
    return property->getNumKeys() > 0 || property->isLinked();
}

VxGltfKeys vxGltfKeysOf(const std::vector<VxGltfValue> &values, const VxTimeRange &range,
                        const VxFrameTimes &frames)
{
    const std::vector<Curve> curves(values.begin(), values.end());
    const Plan plan(curves, range, frames);
    VxGltfKeys keys;
    keys.times = plan.times;
    keys.kind = plan.isOfSteps() ? VxGltfKeys::Step
                : plan.hasCurve  ? VxGltfKeys::Cubic
                                 : VxGltfKeys::Linear;
    if (plan.hasStep && !plan.isOfSteps())
        addJumps(curves, &keys.times);
    if (keys.kind == VxGltfKeys::Cubic) {
        addCubic(curves, &keys);
        return keys;
    }
    for (const VxTime time : keys.times) {
        for (const Curve &curve : curves)
            keys.numbers.push_back(float(curve.at(time)));
    }
    return keys;
}

VxGltfKeys vxGltfRotationKeys(const std::array<const VxFloatProperty *, 3> &angles,
                              VxRotationOrder order, const VxTimeRange &range,
                              const VxFrameTimes &frames)
{
    std::vector<Curve> curves;
    curves.reserve(angles.size());
    for (const VxFloatProperty *angle : angles)
        curves.emplace_back(VxGltfValue{angle, 1.0, 0.0});
    const Rotations rotations(angles, order);
    const Plan plan(curves, range, frames);
    std::vector<VxTime> times = plan.times;
    VxGltfKeys keys;
    if (plan.isOfSteps()) {
        keys.kind = VxGltfKeys::Step;
        keys.times = times;
    } else {
        if (plan.hasStep)
            addJumps(curves, &times);
        RotationRefiner refiner(rotations, frames, &keys);
        keys.times.push_back(times.front());
        for (std::size_t i = 1; i < times.size(); ++i)
            refiner.refine(times[i - 1], times[i]);
    }
    addQuaternions(rotations, &keys);
    return keys;
}

VxGltfKeys vxGltfSampledProducts(const VxFloatProperty *common,
                                 const std::vector<VxGltfValue> &values, const VxFrameTimes &frames)
{
    VxGltfKeys keys;
    keys.times = frames.all();
    for (const VxTime time : keys.times) {
        for (const VxGltfValue &value : values)
            keys.numbers.push_back(
                float(double(common->getValue(time)) * double(value.property->getValue(time))));
    }
    return keys;
}
