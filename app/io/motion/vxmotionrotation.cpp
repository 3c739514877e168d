// Rotation tracks as angles: vxAppendRotation() of vxmotionpoints.h.

#include "io/motion/vxmotionpoints.h"
#include "io/motion/vxmotiontiming.h"

#include <algorithm>
#include <cmath>

namespace {

VxQuaternion quaternion(const VxMotionQuaternion &q)
{
    return {q[3], q[0], q[1], q[2]};
}

/// The rotations of a track between its keys.
class TrackSampler
{
public:
    explicit TrackSampler(const VxMotionRotationTrack &track)
        : m_track(track)
    {
    }

    /// The rotation at a part of segment i, from 0 at its left key to 1 at its right one.
    VxQuaternion at(std::size_t i, double part) const
    {
        if (m_track.segment == VxMotionSegment::Cubic)
            return cubic(i, part, m_track.times[i + 1] - m_track.times[i]);
        return vxSlerp(quaternion(m_track.values[i]), quaternion(m_track.values[i + 1]), part);
    }

private:
    VxQuaternion cubic(std::size_t i, double s, double span) const
    {
        const double s2 = s * s;
        const double s3 = s2 * s;
        VxMotionQuaternion q;
        double square = 0.0;
        for (std::size_t c = 0; c < 4; ++c) {
            q[c] = (2 * s3 - 3 * s2 + 1) * m_track.values[i][c] +
                   (s3 - 2 * s2 + s) * span * m_track.outTangents[i][c] +
                   (3 * s2 - 2 * s3) * m_track.values[i + 1][c] +
                   (s3 - s2) * span * m_track.inTangents[i + 1][c];
            square += q[c] * q[c];
        }
        // A curve through the origin has no direction there.
        const double length = std::sqrt(square);
        if (!(length > 1e-9) || !std::isfinite(length))
            return quaternion(m_track.values[s < 0.5 ? i : i + 1]);
        for (double &part : q)
            part /= length;
        return quaternion(q);
    }

    const VxMotionRotationTrack &m_track;
};

/// Walks over a track from left to right and adds the angles of its keys, and of those in between
/// that are needed.
class AngleWalk
{
public:
    AngleWalk(const VxMotionRotationTrack &track, double offset, VxRotationOrder order,
              double tolerance, std::size_t maxPoints, std::array<VxMotionPoints, 3> *points)
        : m_track(track)
        , m_sampler(track)
        , m_offset(offset)
        , m_order(order)
        , m_tolerance(tolerance)
        , m_maxPoints(maxPoints)
        , m_points(points)
    {
    }

    bool walk(const VxEuler &rest);

private:
    /// An end of a span: its tick and the angles there.
    struct End
    {
        VxTime tick = 0;
        VxEuler angles{};
    };

    /// Within the segment that is walked over. Its ends count as whole ticks: in one of
    /// few ticks the rounding of their times would be a large part of it.
    VxQuaternion at(std::size_t segment, double tick) const
    {
        const double part = (tick - m_start) / (double(m_end) - m_start);
        return m_sampler.at(segment, std::clamp(part, 0.0, 1.0));
    }
    bool isCubic() const { return m_track.segment == VxMotionSegment::Cubic; }
    End reach(std::size_t segment, const End &from, VxTime to);
    End endOf(std::size_t segment, const End &from, VxTime tick) const;
    VxEuler slopes(std::size_t segment, double tick, const VxEuler &angles, double side) const;
    double deviation(std::size_t segment, const End &from, const End &to) const;
    void add(std::size_t segment, const End &from, const End &to);
    void addKey(const End &end);

    const VxMotionRotationTrack &m_track;
    const TrackSampler m_sampler;
    const double m_offset;
    const VxRotationOrder m_order;
    const double m_tolerance;
    const std::size_t m_maxPoints;
    std::array<VxMotionPoints, 3> *const m_points;
    VxTime m_start = 0; // of the segment that is walked over
    VxTime m_end = 0;
    bool m_isTooLong = false;
};

AngleWalk::End AngleWalk::endOf(std::size_t segment, const End &from, VxTime tick) const
{
    return {tick, vxEulerAngles(at(segment, tick), m_order, from.angles)};
}

/** Angles per second on one side of a time, -1 left or 1 right, by a small step into the segment.
 */
VxEuler AngleWalk::slopes(std::size_t segment, double tick, const VxEuler &angles,
                          double side) const
{
    const double step = side * 1e-3;
    const VxEuler near = vxEulerAngles(at(segment, tick + 2 * step), m_order, angles);
    const VxEuler middle = vxEulerAngles(at(segment, tick + step), m_order, angles);
    VxEuler slopes;
    // Second order: exact for parabolas.
    for (std::size_t axis = 0; axis < 3; ++axis)
        slopes[axis] =
            (4 * middle[axis] - near[axis] - 3 * angles[axis]) / (2 * step) * VxTicksPerSecond;
    return slopes;
}

double AngleWalk::deviation(std::size_t segment, const End &from, const End &to) const
{
    const double span = double(to.tick) - from.tick;
    VxEuler out{};
    VxEuler in{};
    if (isCubic()) {
        out = slopes(segment, from.tick, from.angles, 1);
        in = slopes(segment, to.tick, to.angles, -1);
    }
    const double scale = span / VxTicksPerSecond;
    const int parts = isCubic() ? 8 : 4;
    double worst = 0.0;
    for (int i = 1; i < parts; ++i) {
        const double s = double(i) / parts;
        VxEuler angles;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double line = from.angles[axis] + s * (to.angles[axis] - from.angles[axis]);
            const double chord = to.angles[axis] - from.angles[axis];
            const double bend =
                s * (1 - s) *
                ((1 - s) * (out[axis] * scale - chord) - s * (in[axis] * scale - chord));
            angles[axis] = isCubic() ? line + bend : line;
        }
        worst = std::max(worst, vxAngleBetween(vxQuaternion(angles, m_order),
                                               at(segment, from.tick + s * span)));
    }
    return worst;
}

/** Adds keys up to a tick, with halves where a span would deviate. Depth: 32 halvings. */
AngleWalk::End AngleWalk::reach(std::size_t segment, const End &from, VxTime to)
{
    const End end = endOf(segment, from, to);
    const bool canSplit = qint64(to) - from.tick > 1 && !m_isTooLong;
    const double error = deviation(segment, from, end);
    if (canSplit && error > m_tolerance) {
        const End middle = reach(segment, from, VxTime(from.tick + (qint64(to) - from.tick) / 2));
        return reach(segment, middle, to);
    }
    // Between neighbouring ticks there is no time at which it could be seen.
    for (VxMotionPoints &points : *m_points)
        points.error = std::max(points.error, qint64(to) - from.tick > 1 ? error : 0.0);
    add(segment, from, end);
    return end;
}

void AngleWalk::add(std::size_t segment, const End &from, const End &to)
{
    if (isCubic()) {
        const VxEuler out = slopes(segment, from.tick, from.angles, 1);
        for (std::size_t axis = 0; axis < 3; ++axis)
            (*m_points)[axis].points.back().outSlope = out[axis];
    }
    addKey(to);
    if (isCubic()) {
        const VxEuler in = slopes(segment, to.tick, to.angles, -1);
        for (std::size_t axis = 0; axis < 3; ++axis)
            (*m_points)[axis].points.back().inSlope = in[axis];
    }
    m_isTooLong = m_isTooLong || m_points->front().points.size() > m_maxPoints;
}

void AngleWalk::addKey(const End &end)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        VxCurvePoint point;
        point.time = end.tick;
        point.value = end.angles[axis];
        point.type = m_track.segment == VxMotionSegment::Linear ? VxKeyInterp::Linear
                     : isCubic()                                ? VxKeyInterp::Tcb
                                                                : VxKeyInterp::Constant;
        (*m_points)[axis].append(point);
    }
}

bool AngleWalk::walk(const VxEuler &rest)
{
    End last{VxMotionTiming::ticks(m_track.times.front() + m_offset), rest};
    last.angles = vxEulerAngles(quaternion(m_track.values.front()), m_order, rest);
    addKey(last);
    for (std::size_t i = 0; i + 1 < m_track.times.size() && !m_isTooLong; ++i) {
        const VxTime tick = VxMotionTiming::ticks(m_track.times[i + 1] + m_offset);
        if (tick <= last.tick) {
            for (VxMotionPoints &points : *m_points)
                ++points.merged;
            continue;
        }
        if (m_track.segment == VxMotionSegment::Step) {
            last = {tick, vxEulerAngles(quaternion(m_track.values[i + 1]), m_order, last.angles)};
            addKey(last);
        } else {
            m_start = last.tick;
            m_end = tick;
            last = reach(i, last, tick);
        }
    }
    return !m_isTooLong;
}

} // namespace

bool vxAppendRotation(const VxMotionRotationTrack &track, double offset, VxRotationOrder order,
                      const VxEuler &rest, double tolerance, std::size_t maxPoints,
                      std::array<VxMotionPoints, 3> *points)
{
    AngleWalk walk(track, offset, order, tolerance, maxPoints, points);
    return walk.walk(rest);
}
