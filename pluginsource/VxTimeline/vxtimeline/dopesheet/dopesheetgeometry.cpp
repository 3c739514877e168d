#include "vxtimeline/dopesheet/dopesheetgeometry.h"

#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/time/timelinevisible.h"

#include <algorithm>

namespace {

// Extent of ticks above the row's middle, and their height; pixels.
constexpr int SecondAbove = 5;
constexpr int SecondHeight = 10;
constexpr int FrameAbove = 3;
constexpr int FrameHeight = 6;
constexpr int TimeAbove = 2;
constexpr int TimeHeight = 4;

} // namespace

DopeSheetGeometry::DopeSheetGeometry(const QRect &cell, const TimelineMetrics &metrics,
                                     VxTime playStart)
    : m_cell(cell)
    , m_metrics(metrics)
    , m_origin(qint64(cell.x()) + metrics.keysOrigin(playStart))
    , m_middle(cell.y() + cell.height() / 2)
    , m_half(metrics.halfFrame())
{
}

// The position, in the coordinates of TimelineMetrics, for pixel x.
int DopeSheetGeometry::toPosition(qint64 x) const
{
    return TimelineSnap::limited(x - m_origin);
}

QRect DopeSheetGeometry::baseline(VxTime end) const
{
    const qint64 left = m_origin + m_half;
    const qint64 from = std::max<qint64>(left, m_cell.left());
    const qint64 to = std::min<qint64>(left + m_metrics.timeToX(end) - 1, m_cell.right());
    if (to < from || m_middle < m_cell.top() || m_middle > m_cell.bottom())
        return QRect();
    return QRect(int(from), m_middle, int(to - from + 1), 1);
}

// visit(xMin, xMax, add) calls add(from, to, x) for the ticks at these positions.
template <typename VisitTicks>
std::vector<QRect> DopeSheetGeometry::ticks(int above, int height, VisitTicks visit) const
{
    std::vector<QRect> rects;
    const int top = m_middle - above;
    if (top < m_cell.top() || top + height - 1 > m_cell.bottom())
        return rects;
    const qint64 origin = m_origin + m_half;
    const auto add = [&rects, origin, top, height](qint64, qint64, int position) {
        const int x = int(origin + position);
        if (!rects.empty() && rects.back().right() + 1 == x)
            rects.back().setRight(x);
        else
            rects.emplace_back(x, top, 1, height);
    };
    visit(toPosition(m_cell.left() - m_half), toPosition(m_cell.right() - m_half), add);
    return rects;
}

// Seconds are laid out over the width of the line, at most to the cell's edge.
std::vector<QRect> DopeSheetGeometry::secondTicks(VxTime end) const
{
    const qint64 line = qint64(m_half) + m_metrics.timeToX(end);
    const qint64 cell = m_cell.width() - (m_origin - m_cell.x());
    const int count = m_metrics.secondsCount(TimelineSnap::limited(std::min(line, cell)));
    return ticks(SecondAbove, SecondHeight, [this, count](int xMin, int xMax, const auto &add) {
        TimelineVisible::visitTicks(m_metrics, 0, qint64(count) - 1, VxTicksPerSecond, xMin, xMax,
                                    add);
    });
}

std::vector<QRect> DopeSheetGeometry::frameTicks(VxTime duration, VxTime step) const
{
    if (step < 1)
        return {};
    const int last = duration / step - 1;
    return ticks(FrameAbove, FrameHeight, [this, last, step](int xMin, int xMax, const auto &add) {
        TimelineVisible::visitTicks(m_metrics, 1, last, step, xMin, xMax, add);
    });
}

QRect DopeSheetGeometry::timeTick(VxTime time) const
{
    const qint64 x = m_origin + m_half + m_metrics.timeToX(time);
    if (x < m_cell.left() || x > m_cell.right())
        return QRect();
    return QRect(int(x), m_middle - TimeAbove, 1, TimeHeight).intersected(m_cell);
}

std::vector<DopeSheetMark> DopeSheetGeometry::marks(const DopeSheetRowKeys &keys) const
{
    std::vector<DopeSheetMark> found;
    const int side = m_metrics.frameWidth;
    const int top = m_middle - m_half;
    if (side < 1 || side > m_cell.width() || top < m_cell.top() || top + side - 1 > m_cell.bottom())
        return found;
    const auto add = [this, &found, &keys](qint64 from, qint64 to, int position) {
        const int left = int(m_origin + position);
        const auto begin = found.size();
        unsigned seen = 0;
        for (int i = int(to) - 1; i >= from; --i) {
            const quint8 state = keys.stateOf(i);
            if (!(seen & 1u << state))
                found.push_back({left, state});
            seen |= 1u << state;
        }
        std::reverse(found.begin() + qint64(begin), found.end());
    };
    TimelineVisible::visitKeys(m_metrics, keys.times, keys.count, toPosition(m_cell.left()),
                               toPosition(qint64(m_cell.right()) + 1 - side), add);
    return found;
}

QRect DopeSheetGeometry::markRect(int left) const
{
    return QRect(left, m_middle - m_half, m_metrics.frameWidth, m_metrics.frameWidth);
}

DopeSheetHit DopeSheetGeometry::hit(const DopeSheetRowKeys &keys, int x) const
{
    DopeSheetHit found;
    const auto look = [&found, &keys](qint64 from, qint64 to, int) {
        if (found.first < 0)
            found.first = int(from);
        for (int i = int(from); i < to && found.firstSelected < 0; ++i) {
            if (keys.flags[i] & DopeSheetRowKeys::Selected)
                found.firstSelected = i;
        }
    };
    TimelineVisible::visitKeys(m_metrics, keys.times, keys.count,
                               toPosition(qint64(x) - m_metrics.frameWidth), toPosition(x), look);
    return found;
}
