#ifndef DOPESHEETGEOMETRY_H
#define DOPESHEETGEOMETRY_H

#include <QtCore/QRect>
#include <vector>
#include <vxcore/vxtime.h>

#include "vxtimeline/dopesheet/dopesheetrowkeys.h"
#include "vxtimeline/time/timelinemetrics.h"

// A mark to paint: its left edge in pixels, and what it looks like (DopeSheetRowKeys::stateOf()).
struct DopeSheetMark
{
    int left;
    quint8 state;

    friend bool operator==(const DopeSheetMark &a, const DopeSheetMark &b)
    {
        return a.left == b.left && a.state == b.state;
    }
};

// The keys of a row that lie under a pixel: the first one, and the first one that is selected; -1
// for none.
struct DopeSheetHit
{
    int first = -1;
    int firstSelected = -1;
};

// Where everything stands in the keys cell of one row.
//
// Painting asks for rectangles and marks and replays them, the mouse asks what lies under it; both
// answers come from the same positions. Only what lies wholly within the cell is listed, and the
// work done is that for the pixels of the cell, not for the keys or frames there are.
class DopeSheetGeometry
{
public:
    // cell: in the coordinates in which everything is asked and answered. playStart: the start of
    // the play range, which lies at the cell's left edge.
    DopeSheetGeometry(const QRect &cell, const TimelineMetrics &metrics, VxTime playStart);

    // The line on which the row's ticks stand, from time 0 to a time; empty when none of it shows.
    QRect baseline(VxTime end) const;
    // The ticks of whole seconds, as rectangles; neighbouring ticks that touch make one of them.
    std::vector<QRect> secondTicks(VxTime end) const;
    // The ticks of the frames within a duration, without its first and last one; the same way.
    std::vector<QRect> frameTicks(VxTime duration, VxTime step) const;
    // The tick of the current time; empty when it does not show.
    QRect timeTick(VxTime time) const;

    // The marks of keys in the order in which they are to be painted. Of several that stand at one
    // place and look the same there is one, where the last of them would be.
    std::vector<DopeSheetMark> marks(const DopeSheetRowKeys &keys) const;
    // The square of a mark.
    QRect markRect(int left) const;

    // The keys whose marks reach to x, right edge included. They need not be visible.
    DopeSheetHit hit(const DopeSheetRowKeys &keys, int x) const;

private:
    template <typename VisitTicks>
    std::vector<QRect> ticks(int above, int height, VisitTicks visit) const;
    int toPosition(qint64 x) const;

    QRect m_cell;
    TimelineMetrics m_metrics;
    qint64 m_origin; // pixels; where the mark of time 0 begins
    int m_middle;    // y
    int m_half;      // of a mark's side
};

#endif
