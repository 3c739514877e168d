#ifndef TIMERANGEMATH_H
#define TIMERANGEMATH_H

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <vxcore/vxtimerange.h>

// What the time range slider shows and where it is caught: plain functions of ranges and pixels.
//
// The bar as a whole stands for 0 to the duration of the animation range. Times are laid over it
// as they are, not measured from the animation range's start: it is taken to begin at 0.
namespace TimeRangeMath {

// What lies under a point of the bar.
enum class Part { None, Body, StartHandle, EndHandle };

// The play range's stretch in a bar of the given size, in pixels. Its right edge is the last pixel
// before the end's place. Null when the animation has no duration; empty for a play range that is
// too short for a pixel.
QRect rangeRect(const QSize &bar, const VxTimeRange &playRange, VxTime animDuration);

// The handles are squares at the ends, as high as the bar; where they overlap the start's wins.
Part partAt(const QRect &rangeRect, const QPoint &point);

// The way of the mouse in ticks, truncated towards zero. In single precision.
VxTime dragDistance(VxTime animDuration, int barWidth, int pixels);

// The play range after a drag by distance ticks, from what it was at the press:
//   Body         both ends move and keep their distance, from 0 to animDuration
//   StartHandle  from 0 to one step before the end
//   EndHandle    from one step after the start to animDuration
//   None         stays
VxTimeRange dragged(Part part, const VxTimeRange &atPress, VxTime distance, VxTime animDuration,
                    VxTime timeStep);

// The number of the frame nearest to a time from 0 on. 0 for a step below 1.
int nearestFrame(VxTime time, VxTime timeStep);

// Where everything of the play range's stretch is painted.
struct Picture
{
    QRect outline; // to be drawn with a pen of one pixel: its lines end on the stretch's edges
    QRect startHandle;
    QRect endHandle;
    QRect startLabel; // right of its handle, one free pixel between
    QRect endLabel;   // left of its handle, one free pixel between
};
// Label sizes: the width of each text, and the height of the font, in pixels.
Picture picture(const QRect &rangeRect, int startLabelWidth, int endLabelWidth, int textHeight);

} // namespace TimeRangeMath

#endif
