#include "vxtimeline/time/playrangeview.h"

#include "vxtimeline/time/timelinesnap.h"

#include <algorithm>
#include <cmath>

void PlayRangeView::begin(const VxTimeRange &range)
{
    if (range == m_result)
        return;
    m_start = range.getStart();
    m_end = range.getEnd();
}

// Rounds each end to the nearest frame, the end at least a frame after the start.
VxTimeRange PlayRangeView::result(const Limits &limits)
{
    const VxTime step = std::max(limits.step, 1);
    const VxTime start =
        TimelineSnap::toFrame(TimelineSnap::saturatedInt(std::round(m_start)), step);
    VxTime end = TimelineSnap::toFrame(TimelineSnap::saturatedInt(std::round(m_end)), step);
    end = std::max(end, TimelineSnap::limited(qint64(start) + step));
    m_result = VxTimeRange(start, end);
    return m_result;
}

VxTimeRange PlayRangeView::zoomed(const VxTimeRange &range, double time, double factor,
                                  const Limits &limits)
{
    begin(range);
    const double low = std::min<double>(limits.animRange.getStart(), m_start);
    const double high = std::max<double>(limits.animRange.getEnd(), m_end);
    const double shortest = std::max(limits.step, 1);
    // The time's share of the visible range, so that the exact range is zoomed about the same
    // point.
    const double shown = range.getDuration();
    const double share =
        shown > 0.0 ? std::clamp((time - range.getStart()) / shown, 0.0, 1.0) : 0.0;
    const double about = m_start + (m_end - m_start) * share;
    const double length = std::max(shortest, (m_end - m_start) * factor);
    m_start = std::clamp(about - length * share, low, std::max(low, high - shortest));
    m_end = std::clamp(m_start + length, m_start + shortest, std::max(high, m_start + shortest));
    return result(limits);
}

VxTimeRange PlayRangeView::shifted(const VxTimeRange &range, double ticks, const Limits &limits)
{
    begin(range);
    const double low = std::min<double>(limits.animRange.getStart(), m_start);
    const double high = std::max<double>(limits.animRange.getEnd(), m_end);
    const double way = std::clamp(ticks, low - m_start, high - m_end);
    m_start += way;
    m_end += way;
    return result(limits);
}
