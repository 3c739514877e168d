#ifndef KEYGRAPHSCALE_H
#define KEYGRAPHSCALE_H

#include "vxtimeline/time/timelinemetrics.h"

#include <QtCore/QRect>
#include <vxcore/vxtime.h>
#include <vxcore/vxtimerange.h>

/// The two scales of the key graph, and every conversion between times and values and pixels.
///
/// A plain value: painting, hit tests and dragging use one record. Pixels are those of the widget,
/// as real numbers; x grows with the time, and y decreases as the value grows because valuePerPixel
/// is negative. The scales are never 0. In the pane the time scale is that of the dope sheet: marks
/// and lines at one time have the same pixel column in both.
class KeyGraphScale
{
public:
    double ticksPerPixel = 10.0;  // above 0
    double valuePerPixel = -0.02; // display units a pixel
    double offsetX = 0.0;         // time 0 and value 0, in pixels from the origin
    double offsetY = 0.0;
    double originX = 0.0;
    double originY = 0.0; // half the height, so that value 0 is initially in the middle

    /// The side of a key mark in pixels, and the farthest extent of a mark from its key.
    static constexpr double MarkSide = 9.0;
    static constexpr int MarkReach = 6;

    /// The x of a key or a line at a time: rounded like the pane's time axis when the scale follows
    /// it, else exactX().
    double x(double time) const
    {
        return m_axis.isSet() ? originX + offsetX + m_axis.pixels(time) : exactX(time);
    }
    double exactX(double time) const { return originX + offsetX + time / ticksPerPixel; }
    double y(double value) const { return originY + offsetY + value / valuePerPixel; }
    /// Ticks at a pixel column, with a fraction; and in whole ticks, truncated towards zero and
    /// limited to 32 bits.
    double ticks(double pixelX) const { return (pixelX - offsetX - originX) * ticksPerPixel; }
    VxTime time(double pixelX) const;
    double value(double pixelY) const { return (pixelY - offsetY - originY) * valuePerPixel; }

    /// The rectangle of the mark around a point: a MarkSide square, on whole pixels.
    static QRect markRect(double x, double y)
    {
        return QRect(markCorner(x), markCorner(y), int(MarkSide), int(MarkSide));
    }
    QRect markRectOf(VxTime time, double value) const { return markRect(x(time), y(value)); }

    /// All times whose marks can touch the pixel columns from left to right, both included.
    VxTimeRange timesBetween(double left, double right) const;

    /// The values from low to high over a height, with 20 pixels free above and below. A span below
    /// 0.001 is widened by 1 each way; a height below 81 is taken as 80.
    void frameValues(double low, double high, double height);

    /// The value axis of start zoomed by a mouse delta in pixels: 200 pixels downwards halve
    /// valuePerPixel. The position of value 0 moves away from the origin as the scale grows.
    void zoomValues(const KeyGraphScale &start, double deltaY);

    /// Adopts the time scale of the dope sheet. zero: the pixel column of the middle of a mark at
    /// time 0. False, and nothing changes, when there is no such scale.
    bool followAxis(const TimelineMetrics &metrics, double zero);

    /// Fits the whole range between two pixel columns.
    void fitTimes(const VxTimeRange &range, double left, double right);
    /// Centres a duration from time 0 on in a width.
    void centerTimes(double duration, double width);
    /// Zooms the time axis about a pixel column; 200 make a factor of two, positive zooms in.
    void zoomTimes(double amount, double pixelX);

    friend bool operator==(const KeyGraphScale &a, const KeyGraphScale &b)
    {
        return a.hasTimesOf(b) && a.valuePerPixel == b.valuePerPixel &&
               a.offsetY + a.originY == b.offsetY + b.originY;
    }
    /// True when the time axes agree.
    bool hasTimesOf(const KeyGraphScale &other) const
    {
        return ticksPerPixel == other.ticksPerPixel && m_axis.isSet() == other.m_axis.isSet() &&
               offsetX + originX == other.offsetX + other.originX;
    }

private:
    /// The arithmetic of TimelinePositions, step by step, so that no rounding differs.
    struct Axis
    {
        double factor = 0.0; // 0: none
        double zoom = 0.0;

        bool isSet() const { return factor != 0.0; }
        double pixels(double time) const
        {
            return double(static_cast<qint64>(time * factor * zoom / VxTicksPerSecond));
        }
    };
    Axis m_axis;

    /// Half a mark before a coordinate, rounded; a far coordinate for NaN. Inline, because it is
    /// called twice for every painted key.
    static int markCorner(double position)
    {
        constexpr double far = 1e6;
        constexpr int shift = 1 << 21; // so that truncation applies to a positive number
        const double exact = position - (MarkSide - 1.0) / 2.0;
        const double above = exact > -far ? exact : -far;
        return static_cast<int>((above < far ? above : far) + shift) - shift;
    }
};

#endif
