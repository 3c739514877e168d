#ifndef TIMELINEVISIBLE_H
#define TIMELINEVISIBLE_H

#include "vxtimeline/time/timelinemetrics.h"

#include <algorithm>
#include <vxcore/vxtime.h>

/// Finds the visible ones of items along time, without visiting the rest.
///
/// Positions ascend with time, so the first item within a span of pixels is found by bisection,
/// and all that share a pixel are skipped together: the result is that of a loop over everything,
/// in the same order.
namespace TimelineVisible {

/// The first index in low .. high - 1 whose position is not left of x; high without one.
template <typename Position>
qint64 firstFrom(qint64 low, qint64 high, qint64 x, const Position &position)
{
    while (low < high) {
        const qint64 middle = low + (high - low) / 2;
        if (position(middle) < x)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

/// The first index after from whose position is right of x, the position of from; end without one.
/// nextX receives its position. The next few are tried one by one, as there are seldom more.
template <typename Position>
qint64 firstAfter(qint64 from, qint64 end, int x, const Position &position, int *nextX)
{
    constexpr qint64 Few = 8;
    const qint64 near = std::min(from + Few, end);
    qint64 to = from + 1;
    for (; to < near; ++to) {
        *nextX = position(to);
        if (*nextX != x)
            return to;
    }
    qint64 stride = 1;
    while (to + stride < end && position(to + stride) == x)
        stride *= 2;
    to = firstFrom(to, std::min(to + stride, end), x + qint64(1), position);
    if (to < end)
        *nextX = position(to);
    return to;
}

/// Calls visit(from, to, x) for each pixel x within xMin .. xMax (both included) with items at it:
/// indexes from .. to - 1. position(i), for i in first .. end - 1, must ascend.
template <typename Position, typename Visit>
void visitAscending(qint64 first, qint64 end, int xMin, int xMax, const Position &position,
                    const Visit &visit)
{
    qint64 from = firstFrom(first, end, xMin, position);
    int x = from < end ? position(from) : 0;
    while (from < end && x <= xMax) {
        int nextX = x;
        const qint64 to = firstAfter(from, end, x, position, &nextX);
        visit(from, to, x);
        from = to;
        x = nextX;
    }
}

/// The same for the keys at ascending times: visit(from, to, x) gets keys from .. to - 1.
template <typename Visit>
void visitKeys(const TimelineMetrics &metrics, const VxTime *times, int count, int xMin, int xMax,
               const Visit &visit)
{
    const TimelinePositions toX(metrics);
    const auto position = [toX, times](qint64 i) { return toX(times[i]); };
    visitAscending(0, count, xMin, xMax, position, visit);
}

/// The same for ticks at the times number * spacing, number being first .. last.
template <typename Visit>
void visitTicks(const TimelineMetrics &metrics, qint64 first, qint64 last, VxTime spacing, int xMin,
                int xMax, const Visit &visit)
{
    const TimelinePositions toX(metrics);
    const auto position = [toX, spacing](qint64 i) { return toX(i * spacing); };
    visitAscending(first, last + 1, xMin, xMax, position, visit);
}

} // namespace TimelineVisible

#endif
