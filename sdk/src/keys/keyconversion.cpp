#include "keys/keysegment.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxkeyfilter.h>

namespace {

/// The curve of keys in plain arrays.
class ColumnCurve
{
public:
    explicit ColumnCurve(const VxKeyColumns<float> &keys)
        : m_keys(keys)
    {
    }

    quint8 type(int i) const
    {
        return m_keys.types ? m_keys.types[i] : quint8(VxKeyInterp::Linear);
    }
    VxTime time(int i) const { return m_keys.times[i]; }
    double value(int i) const { return double(m_keys.values[i]); }
    int count() const { return m_keys.count; }
    CurveSegment segment(int i) const
    {
        return segmentAt(i, count(), type(i), [this](int k) { return key(k); });
    }

private:
    CurveKey key(int i) const
    {
        CurveKey key{double(time(i)), value(i)};
        if (m_keys.tcb && type(i) == VxKeyInterp::Tcb) {
            key.tension = double(m_keys.tcb[i].tension);
            key.continuity = double(m_keys.tcb[i].continuity);
            key.bias = double(m_keys.tcb[i].bias);
        }
        return key;
    }
    VxKeyColumns<float> m_keys;
};

VxFittedKeys toSmooth(const ColumnCurve &curve, double error)
{
    std::vector<VxCurvePoint> points;
    points.reserve(std::size_t(curve.count()));
    double inSlope = 0;
    for (int i = 0; i < curve.count(); ++i) {
        VxCurvePoint point;
        point.time = curve.time(i);
        point.value = curve.value(i);
        point.inSlope = inSlope;
        if (i + 1 == curve.count()) {
            points.push_back(point);
            break;
        }
        const CurveSegment s = curve.segment(i);
        point.outSlope = s.c1 * s.perTick * VxTicksPerSecond;
        inSlope = (s.c1 + 2 * s.c2 + 3 * s.c3) * s.perTick * VxTicksPerSecond;
        points.push_back(point);
        // The value holds up to the tick before the jump.
        const double rise = curve.value(i + 1) - curve.value(i);
        if (curve.type(i) == VxKeyInterp::Constant && rise != 0 &&
            curve.time(i + 1) - 1 > curve.time(i)) {
            inSlope = rise * VxTicksPerSecond;
            points.push_back({curve.time(i + 1) - 1, curve.value(i), 0, inSlope});
        }
    }
    return vxFitCurve(points, error);
}

void appendKey(VxFittedKeys *keys, VxTime time, float value, quint8 type)
{
    keys->times.push_back(time);
    keys->values.push_back(value);
    keys->types.push_back(type);
}

/// Samples of a smooth segment at every step, both ends among them.
void sampleSegment(const ColumnCurve &curve, int i, VxTime step, std::vector<VxTime> *times,
                   std::vector<float> *values)
{
    times->clear();
    values->clear();
    const CurveSegment segment = curve.segment(i);
    for (qint64 t = curve.time(i); t < curve.time(i + 1); t += step) {
        times->push_back(VxTime(t));
        values->push_back(float(segment.at(double(t))));
    }
    times->push_back(curve.time(i + 1));
    values->push_back(float(curve.value(i + 1)));
}

VxFittedKeys toLinear(const ColumnCurve &curve, VxTime step, double error)
{
    VxFittedKeys keys;
    std::vector<VxTime> times;
    std::vector<float> values;
    for (int i = 0; i + 1 < curve.count(); ++i) {
        if (curve.type(i) == VxKeyInterp::Tcb) {
            sampleSegment(curve, i, step, &times, &values);
            const VxFittedKeys part = vxReduceKeys(times.data(), values.data(), int(times.size()),
                                                   VxKeyInterp::Linear, error);
            keys.error = std::max(keys.error, part.error);
            for (std::size_t k = 0; k + 1 < part.times.size(); ++k)
                appendKey(&keys, part.times[k], part.values[k], VxKeyInterp::Linear);
            continue;
        }
        appendKey(&keys, curve.time(i), float(curve.value(i)), VxKeyInterp::Linear);
        const VxTime before = curve.time(i + 1) - 1;
        if (curve.type(i) == VxKeyInterp::Constant && curve.value(i) != curve.value(i + 1) &&
            before > curve.time(i))
            appendKey(&keys, before, float(curve.value(i)), VxKeyInterp::Linear);
    }
    const int last = curve.count() - 1;
    if (last >= 0)
        appendKey(&keys, curve.time(last), float(curve.value(last)), VxKeyInterp::Linear);
    return keys;
}

VxFittedKeys toConstant(const ColumnCurve &curve, VxTime step, double error)
{
    VxFittedKeys keys;
    for (int i = 0; i + 1 < curve.count(); ++i) {
        appendKey(&keys, curve.time(i), float(curve.value(i)), VxKeyInterp::Constant);
        const CurveSegment segment = curve.segment(i);
        for (qint64 t = qint64(curve.time(i)) + step; t < curve.time(i + 1); t += step) {
            const double value = segment.at(double(t));
            const double distance = std::abs(value - double(keys.values.back()));
            if (distance > error)
                appendKey(&keys, VxTime(t), float(value), VxKeyInterp::Constant);
            else
                keys.error = std::max(keys.error, distance);
        }
    }
    const int last = curve.count() - 1;
    if (last >= 0)
        appendKey(&keys, curve.time(last), float(curve.value(last)), VxKeyInterp::Constant);
    return keys;
}

} // namespace

VxFittedKeys vxConvertKeys(const VxKeyColumns<float> &keys, VxKeyInterp::Type type, VxTime step,
                           double error)
{
    const ColumnCurve curve(keys);
    step = std::max<VxTime>(step, 1);
    if (type == VxKeyInterp::Tcb)
        return toSmooth(curve, error);
    return type == VxKeyInterp::Linear ? toLinear(curve, step, error)
                                       : toConstant(curve, step, error > 0 ? error : 0);
}

std::vector<float> vxSampleKeys(const VxKeyColumns<float> &keys, const VxTime *times, int count)
{
    const ColumnCurve curve(keys);
    std::vector<float> values(std::size_t(count), 0.0F);
    int i = 0; // the first key after the time
    for (int k = 0; k < count; ++k) {
        while (i < keys.count && keys.times[i] <= times[k])
            ++i;
        const int key = std::max(i - 1, 0);
        const bool isHeld = i == 0 || i == keys.count || keys.times[key] == times[k];
        values[std::size_t(k)] = isHeld ? keys.values[key] : float(curve.segment(key).at(times[k]));
    }
    return values;
}
