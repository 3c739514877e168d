#include "vxtimeline/keygraph/paint/keygraphscale.h"

#include "vxtimeline/time/timelinesnap.h"

#include <QtCore/qglobal.h>
#include <cmath>

namespace {

// Beyond these a scale shows nothing useful, and its inverse would not be finite.
constexpr double SmallestValuePerPixel = 1e-9;
constexpr double LargestValuePerPixel = 1e9;
constexpr double SmallestTicksPerPixel = 0.01;
constexpr double LargestTicksPerPixel = 500000.0;

constexpr double PixelsPerDoubling = 200.0;
constexpr double FrameMargin = 20.0;
constexpr double SmallestFrameHeight = 40.0;

double limitedValueScale(double scale)
{
    const double size = qBound(SmallestValuePerPixel, std::abs(scale), LargestValuePerPixel);
    return std::signbit(scale) ? -size : size;
}

double limitedTimeScale(double scale)
{
    return qBound(SmallestTicksPerPixel, scale, LargestTicksPerPixel);
}

} // namespace

VxTime KeyGraphScale::time(double pixelX) const
{
    return TimelineSnap::saturatedInt(ticks(pixelX));
}

VxTimeRange KeyGraphScale::timesBetween(double left, double right) const
{
    return {TimelineSnap::saturatedInt(std::floor(ticks(left - MarkReach))),
            TimelineSnap::saturatedInt(std::ceil(ticks(right + MarkReach)))};
}

void KeyGraphScale::frameValues(double low, double high, double height)
{
    if (high - low < 0.001) {
        low -= 1.0;
        high += 1.0;
    }
    double available = height - 2.0 * FrameMargin;
    if (available < SmallestFrameHeight + 1.0)
        available = SmallestFrameHeight;
    valuePerPixel = (low - high) / available;
    offsetY = originY - low / valuePerPixel - FrameMargin;
}

void KeyGraphScale::zoomValues(const KeyGraphScale &start, double deltaY)
{
    // The scale at the start offsets the delta; it is far below a pixel for most curves.
    const double requested = std::exp2(-(deltaY - start.valuePerPixel) / PixelsPerDoubling);
    valuePerPixel = limitedValueScale(start.valuePerPixel * requested);
    const double factor = valuePerPixel / start.valuePerPixel;
    offsetX = start.offsetX;
    offsetY = start.offsetY / factor;
}

bool KeyGraphScale::followAxis(const TimelineMetrics &metrics, double zero)
{
    const double ticks = metrics.ticksPerPixel();
    if (!(ticks > 0.0))
        return false;
    m_axis = {double(metrics.fps) * metrics.frameWidth / metrics.divisor, metrics.zoom};
    ticksPerPixel = ticks;
    offsetX = zero - originX;
    return true;
}

void KeyGraphScale::fitTimes(const VxTimeRange &range, double left, double right)
{
    const double duration = double(range.getEnd()) - double(range.getStart());
    ticksPerPixel = limitedTimeScale(qMax(1.0, duration) / qMax(1.0, right - left));
    const double middle = double(range.getStart()) + duration * 0.5;
    offsetX = (left + right) * 0.5 - originX - middle / ticksPerPixel;
}

void KeyGraphScale::centerTimes(double duration, double width)
{
    offsetX = width * 0.5 - duration / ticksPerPixel * 0.5;
}

void KeyGraphScale::zoomTimes(double amount, double pixelX)
{
    const double former = ticksPerPixel;
    ticksPerPixel = limitedTimeScale(former * std::exp2(-amount / PixelsPerDoubling));
    const double distance = pixelX - offsetX - originX;
    offsetX = pixelX - originX - distance * (former / ticksPerPixel);
}
