#include "vxtimeline/time/timelinemetrics.h"

#include "vxtimeline/time/timelinesnap.h"

namespace {

// Free space at the right of the keys column after a fit, and its minimum width; pixels.
constexpr int FreeEdge = 30;
constexpr int MinWidth = 5;
// A second narrower than this (in pixels) counts as zero.
constexpr double MinSecondWidth = 1e-11;

} // namespace

TimelineMetrics &TimelineMetrics::shared()
{
    static TimelineMetrics metrics;
    return metrics;
}

int TimelineMetrics::timeToX(VxTime time) const
{
    return TimelinePositions(*this)(time);
}

// In double precision, because single precision would be off by whole pixels beyond 2^23 of them,
// which an hour at a close zoom reaches.
int TimelineMetrics::keysOrigin(VxTime playRangeStart) const
{
    return TimelineSnap::saturatedInt(keyMargin * 0.5 - timeToX(playRangeStart));
}

int TimelineMetrics::halfFrame() const
{
    return TimelineSnap::saturatedInt(frameWidth * 0.5);
}

int TimelineMetrics::keyLeft(int cellX, VxTime time, VxTime playRangeStart) const
{
    return TimelineSnap::clampedPixel(qint64(cellX) + keysOrigin(playRangeStart) + timeToX(time));
}

int TimelineMetrics::keyMiddle(int cellX, VxTime time, VxTime playRangeStart) const
{
    return TimelineSnap::clampedPixel(qint64(keyLeft(cellX, time, playRangeStart)) + halfFrame());
}

VxTime TimelineMetrics::xToTime(int distance) const
{
    if (distance == 0 || fps == 0 || zoom == 0.0 || frameWidth == 0)
        return 0;
    const qint64 scaled = qint64(distance) * VxTicksPerSecond / fps * divisor;
    return TimelineSnap::saturatedInt(double(scaled) / zoom / frameWidth);
}

VxTime TimelineMetrics::xToFrameTime(int distance, VxTime timeStep) const
{
    return distance == 0 ? 0 : TimelineSnap::toFrame(xToTime(distance), timeStep);
}

double TimelineMetrics::ticksPerPixel() const
{
    const double pixels = double(fps) * frameWidth / divisor * zoom; // of a second
    return pixels > 0.0 ? VxTicksPerSecond / pixels : 0.0;
}

int TimelineMetrics::secondsCount(int width) const
{
    const double second = static_cast<double>(frameWidth) * 4800.0 * fps / divisor * zoom / 4800.0;
    if (!(second > MinSecondWidth))
        return width;
    return TimelineSnap::saturatedInt(width / second) + 1;
}

bool TimelineMetrics::fit(int keysWidth, VxTime duration)
{
    const int width = keysWidth - FreeEdge;
    if (width <= MinWidth || fps == 0 || frameWidth == 0)
        return false;
    const double ticks = width * 4800.0;
    zoom = (duration < 1 ? ticks : ticks / duration) / frameWidth / fps;
    return true;
}
