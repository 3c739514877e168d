#ifndef TIMELINEMETRICS_H
#define TIMELINEMETRICS_H

#include "vxtimeline/time/timelinesnap.h"

#include <vxcore/vxtime.h>
#include <vxcore/vxtimerange.h>

/// The horizontal time scale, and every conversion between times and pixels.
///
/// One record is shared by the dope sheet view, its header, its delegates and the playhead, so that
/// a mark, the tick below it and the click on it agree to the pixel; only the pane writes it.
/// Otherwise a plain value: tests and tools make their own.
///
/// Scaled products use 64 bits, so that a play range of many hours keeps its scale.
class TimelineMetrics
{
public:
    qint32 fps = 30;        // frames per second; below 1 for frames longer than a second
    qint32 divisor = 1;     // of the time scale; never 0
    double zoom = 1.0;      // horizontal scale
    qint32 frameWidth = 10; // pixels of a frame at zoom 1; also the side of a key mark
    qint32 keyMargin = 5;   // pixels; half of it is left of the play range's start

    /// The record of this process.
    static TimelineMetrics &shared();

    /// Pixels from time 0 to a time, truncated towards zero; negative for negative times.
    ///   x(t) = t * fps * frameWidth / divisor * zoom / 4800
    int timeToX(VxTime time) const;

    /// The position of time 0 in the keys column, in pixels from its left edge: the play range's
    /// start is half a key margin right of the edge, earlier times left of that.
    int keysOrigin(VxTime playRangeStart) const;

    /// Half a key mark, in whole pixels: from a mark's left edge to its middle.
    int halfFrame() const;

    /// The left edge of the mark of a key, in the coordinates in which cellX is the left edge of
    /// the keys column. Beyond 2^29 pixels either way all marks coincide.
    int keyLeft(int cellX, VxTime time, VxTime playRangeStart) const;
    /// The middle of that mark: the x of ticks and of the line of the current time.
    int keyMiddle(int cellX, VxTime time, VxTime playRangeStart) const;

    /// The time at a distance in pixels from time 0, to the tick, truncated towards zero.
    /// 0 while fps, zoom or frame width is 0: there is no scale then.
    VxTime xToTime(int distance) const;
    /// The same, rounded to whole frames of timeStep ticks.
    VxTime xToFrameTime(int distance, VxTime timeStep) const;

    /// Ticks of a pixel, with a fraction; 0 while there is no scale.
    double ticksPerPixel() const;

    /// The number of ticks of whole seconds in a width in pixels, the one at 0 included. The width
    /// itself when a second has no width.
    int secondsCount(int width) const;

    /// Chooses the zoom that spreads duration ticks over a column of keysWidth pixels, less a free
    /// edge. False, and nothing changes, when the column is too narrow to show anything or there is
    /// no scale. A duration below 1 is ignored in the calculation.
    bool fit(int keysWidth, VxTime duration);
};

/// TimelineMetrics::timeToX() for many times of one scale: an immutable function object, small
/// enough to be copied into loops.
class TimelinePositions
{
public:
    explicit TimelinePositions(const TimelineMetrics &metrics)
        : m_factor(qint64(metrics.fps) * metrics.frameWidth)
        , m_divisor(metrics.divisor)
        , m_zoom(metrics.zoom)
    {
    }

    /// 64 bits, for multiples of a time beyond the range of times.
    int operator()(qint64 time) const
    {
        qint64 scaled = time * m_factor;
        if (m_divisor != 1)
            scaled /= m_divisor;
        const double x = double(scaled) * m_zoom / VxTicksPerSecond;
        const bool fits = x > double(VxTimeMin) && x < double(VxTimeMax);
        return fits ? static_cast<int>(x) : TimelineSnap::saturatedInt(x);
    }

private:
    qint64 m_factor;
    qint32 m_divisor;
    double m_zoom;
};

#endif
