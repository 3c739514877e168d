#include "vxtimeline/time/timelinesnap.h"

#include <QtCore/qglobal.h>
#include <cmath>

namespace TimelineSnap {

int saturatedInt(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(qBound(double(VxTimeMin), value, double(VxTimeMax)));
}

VxTime limited(qint64 ticks)
{
    return static_cast<VxTime>(qBound(qint64(VxTimeMin), ticks, qint64(VxTimeMax)));
}

int clampedPixel(qint64 pixels)
{
    constexpr qint64 FarAway = 1 << 29;
    return static_cast<int>(qBound(-FarAway, pixels, FarAway));
}

VxTime toFrame(VxTime time, VxTime timeStep)
{
    if (timeStep < 1)
        return time;
    const qint64 half = timeStep / 2;
    const qint64 moved = time < 1 ? time - half : time + half;
    return limited(moved / timeStep * timeStep);
}

VxTime toFrameUpwards(VxTime time, VxTime timeStep)
{
    if (timeStep < 1)
        return time;
    return limited((qint64(time) + timeStep / 2) / timeStep * timeStep);
}

int frameOf(VxTime time, VxTime timeStep)
{
    return timeStep < 1 ? 0 : time / timeStep;
}

VxTime timeOf(qint64 frame, VxTime timeStep)
{
    return limited(frame * timeStep);
}

} // namespace TimelineSnap
