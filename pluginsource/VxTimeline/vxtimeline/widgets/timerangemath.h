#ifndef TIMERANGEMATH_H
#define TIMERANGEMATH_H

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <vxcore/vxtimerange.h>

/// Layout and drag arithmetic of the time range slider: plain functions of ranges and pixels.
///
/// The whole bar represents 0 to the duration of the animation range. Times are mapped to it as
/// they are, not relative to the animation range's start, which is assumed to be 0.
namespace TimeRangeMath {

/// The part under a point of the bar.
enum class Part { None, Body, StartHandle, EndHandle };

/// The play range in a bar of the given size, in pixels. Its right edge is the last pixel before
/// the position of the end. Null when the animation has no duration; empty for a play range shorter
/// than a pixel.
QRect rangeRect(const QSize &bar, const VxTimeRange &playRange, VxTime animDuration);

/// The handles are squares at the ends, as high as the bar; where they overlap the start has
/// priority.
Part partAt(const QRect &rangeRect, const QPoint &point);

/// The mouse delta in ticks, truncated towards zero. In single precision.
VxTime dragDistance(VxTime animDuration, int barWidth, int pixels);

/// The play range after a drag by distance ticks, from the one at the press:
///   Body         both ends move and keep their distance, from 0 to animDuration
///   StartHandle  from 0 to one step before the end
///   EndHandle    from one step after the start to animDuration
///   None         stays
VxTimeRange dragged(Part part, const VxTimeRange &atPress, VxTime distance, VxTime animDuration,
                    VxTime timeStep);

/// The number of the frame nearest to a time from 0 on. 0 for a step below 1.
int nearestFrame(VxTime time, VxTime timeStep);

/// The layout of all painted parts of the play range.
struct Picture
{
    QRect outline; // for a pen of one pixel: its lines are on the range's edges
    QRect startHandle;
    QRect endHandle;
    QRect startLabel; // right of its handle, one free pixel between
    QRect endLabel;   // left of its handle, one free pixel between
};
/// Label sizes: the width of each text, and the height of the font, in pixels.
Picture picture(const QRect &rangeRect, int startLabelWidth, int endLabelWidth, int textHeight);

} // namespace TimeRangeMath

#endif
