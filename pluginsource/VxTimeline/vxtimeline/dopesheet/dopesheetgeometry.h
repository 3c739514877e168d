#ifndef DOPESHEETGEOMETRY_H
#define DOPESHEETGEOMETRY_H

#include "vxtimeline/rows/dopesheetrowkeys.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <QtCore/QRect>
#include <vector>
#include <vxcore/vxtime.h>

/// A mark to paint: its left edge in pixels, and its state (DopeSheetRowKeys::stateOf()).
struct DopeSheetMark
{
    int left;
    quint8 state;

    friend bool operator==(const DopeSheetMark &a, const DopeSheetMark &b)
    {
        return a.left == b.left && a.state == b.state;
    }
};

/// The keys of a row under a pixel: the first one, and the first selected one; -1 for none.
struct DopeSheetHit
{
    int first = -1;
    int firstSelected = -1;
};

/// The layout of the keys cell of one row.
///
/// Painting replays its rectangles and marks, hit tests use the same positions. Only items wholly
/// within the cell are listed, and the cost depends on the pixels of the cell, not on the number of
/// keys or frames.
class DopeSheetGeometry
{
public:
    /// cell: defines the coordinates of all arguments and results. playStart: the start of the play
    /// range, at the cell's left edge.
    DopeSheetGeometry(const QRect &cell, const TimelineMetrics &metrics, VxTime playStart);

    /// The line under the row's ticks, from time 0 to a time; empty when not visible.
    QRect baseline(VxTime end) const;
    /// The ticks of whole seconds, as rectangles; adjacent ticks that touch share one.
    std::vector<QRect> secondTicks(VxTime end) const;
    /// The ticks of the frames within a duration, without its first and last one; the same way.
    std::vector<QRect> frameTicks(VxTime duration, VxTime step) const;
    /// The tick of the current time; empty when not visible.
    QRect timeTick(VxTime time) const;

    /// The marks of keys in painting order. Several at one position with the same look are one
    /// mark, in the order of the last.
    std::vector<DopeSheetMark> marks(const DopeSheetRowKeys &keys) const;
    /// The square of a mark.
    QRect markRect(int left) const;

    /// The keys whose marks reach to x, right edge included. They need not be visible.
    DopeSheetHit hit(const DopeSheetRowKeys &keys, int x) const;

private:
    template <typename VisitTicks>
    std::vector<QRect> ticks(int above, int height, VisitTicks visit) const;
    int toPosition(qint64 x) const;

    QRect m_cell;
    TimelineMetrics m_metrics;
    qint64 m_origin; // pixels; left edge of the mark at time 0
    int m_middle;    // y
    int m_half;      // of a mark's side
};

#endif
