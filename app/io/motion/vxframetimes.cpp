#include "io/motion/vxframetimes.h"

#include <cmath>

VxFrameTimes::VxFrameTimes(const VxTimeRange &range, VxTime step, double rate)
    : m_start(range.getStart())
    , m_end(range.getEnd())
    , m_rate(rate)
    , m_ticks(rate > 0.0 ? VxTicksPerSecond / rate : double(step))
{
    m_first = std::llround(m_start / m_ticks);
    m_isOnFrame = std::llround(double(m_first) * m_ticks) == m_start;
    // Half a tick more than the range: its end may be a frame that was rounded down.
    const double span = double(m_end) - m_start + (rate > 0.0 ? 0.5 : 0.0);
    m_count = qint64(span / m_ticks) + 1;
    while (m_count > 1 && at(m_count - 1) > m_end)
        --m_count;
}

VxTime VxFrameTimes::at(qint64 frame) const
{
    if (m_isOnFrame)
        return VxTime(std::llround(double(m_first + frame) * m_ticks));
    return VxTime(m_start + std::llround(double(frame) * m_ticks));
}

std::vector<VxTime> VxFrameTimes::all() const
{
    std::vector<VxTime> times;
    times.reserve(std::size_t(m_count) + 1);
    for (qint64 frame = 0; frame < m_count; ++frame)
        times.push_back(at(frame));
    if (times.back() < m_end)
        times.push_back(m_end);
    return times;
}

VxTime VxFrameTimes::middle(VxTime from, VxTime to) const
{
    const double half = (double(from) + to) / 2 - m_start;
    const auto frame = qint64(half / m_ticks);
    for (const qint64 candidate : {frame, frame + 1}) {
        const VxTime time = at(candidate);
        if (time > from && time < to)
            return time;
    }
    return from;
}

double VxFrameTimes::seconds(VxTime time) const
{
    const qint64 frame = m_rate > 0.0 ? std::llround(time / m_ticks) : 0;
    if (m_rate > 0.0 && std::llround(double(frame) * m_ticks) == time)
        return double(frame) / m_rate;
    return double(time) / VxTicksPerSecond;
}
