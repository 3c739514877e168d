#ifndef VXTIMERANGE_H
#define VXTIMERANGE_H

#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>

/// A range of time from start to end, in ticks, both included. A plain value: the two ends are kept
/// as given, even when the end is before the start.
class VxTimeRange
{
public:
    /// From 0 to 0.
    constexpr VxTimeRange() = default;
    constexpr VxTimeRange(VxTime start, VxTime end)
        : m_start(start)
        , m_end(end)
    {
    }

    constexpr VxTime getStart() const { return m_start; }
    constexpr VxTime getEnd() const { return m_end; }
    void setStart(int start) { m_start = start; }
    void setEnd(int end) { m_end = end; }

    /// End minus start, in ticks: 0 for a range of one point in time. Wraps when the distance of
    /// the ends exceeds 32 bits.
    constexpr VxTime getDuration() const
    {
        return static_cast<VxTime>(static_cast<quint32>(m_end) - static_cast<quint32>(m_start));
    }

    /// True when start <= time <= end.
    constexpr bool contains(VxTime time) const { return m_start <= time && time <= m_end; }

    /// The time itself, or the nearer end when it is outside.
    constexpr VxTime clamp(VxTime time) const
    {
        return time > m_end ? m_end : (time < m_start ? m_start : time);
    }

    /// The smallest range that contains both.
    constexpr VxTimeRange united(const VxTimeRange &other) const
    {
        return {other.m_start < m_start ? other.m_start : m_start,
                other.m_end > m_end ? other.m_end : m_end};
    }

    friend constexpr bool operator==(const VxTimeRange &a, const VxTimeRange &b)
    {
        return a.m_start == b.m_start && a.m_end == b.m_end;
    }
    friend constexpr bool operator!=(const VxTimeRange &a, const VxTimeRange &b)
    {
        return !(a == b);
    }

    /// The range of all times.
    static constexpr VxTimeRange all() { return {VxTimeMin, VxTimeMax}; }

private:
    VxTime m_start = 0;
    VxTime m_end = 0;
};

Q_DECLARE_METATYPE(VxTimeRange)

#endif
