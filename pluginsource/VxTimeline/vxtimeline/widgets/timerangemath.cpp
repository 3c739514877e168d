#include "vxtimeline/widgets/timerangemath.h"

#include "vxtimeline/time/timelinesnap.h"

namespace TimeRangeMath {

namespace {

// Sums of times use 64 bits: a play range may have any times.
qint64 bodyDistance(qint64 start, qint64 end, qint64 distance, qint64 animDuration)
{
    if (distance >= 1 && end + distance > animDuration)
        distance -= end + distance - animDuration;
    if (distance <= 0 && start + distance < 0)
        distance = -start;
    return distance;
}

qint64 startDistance(qint64 start, qint64 end, qint64 distance, VxTime timeStep)
{
    if (distance < 0 && start + distance < 0)
        distance = -start;
    if (distance >= 0 && start + distance > end - timeStep)
        distance = end - timeStep - start;
    return distance;
}

qint64 endDistance(qint64 start, qint64 end, qint64 distance, qint64 animDuration, VxTime timeStep)
{
    if (distance >= 1 && end + distance > animDuration)
        distance = animDuration - end;
    if (distance <= 0 && end + distance < start + timeStep)
        distance = start + timeStep - end;
    return distance;
}

} // namespace

QRect rangeRect(const QSize &bar, const VxTimeRange &playRange, VxTime animDuration)
{
    if (animDuration < 1)
        return QRect();
    const double scale = double(bar.width()) / double(animDuration);
    const qint64 x1 = TimelineSnap::saturatedInt(double(playRange.getStart()) * scale);
    const qint64 length = TimelineSnap::saturatedInt(double(playRange.getDuration()) * scale);
    return QRect(QPoint(TimelineSnap::clampedPixel(x1), 0),
                 QPoint(TimelineSnap::clampedPixel(x1 + length - 1), bar.height() - 1));
}

Part partAt(const QRect &rangeRect, const QPoint &point)
{
    if (!rangeRect.contains(point))
        return Part::None;
    const int side = rangeRect.height();
    if (point.x() - rangeRect.left() < side)
        return Part::StartHandle;
    return rangeRect.right() - point.x() < side ? Part::EndHandle : Part::Body;
}

VxTime dragDistance(VxTime animDuration, int barWidth, int pixels)
{
    const float ticksPerPixel = static_cast<float>(animDuration) / static_cast<float>(barWidth);
    const float distance = ticksPerPixel * static_cast<float>(pixels);
    return TimelineSnap::saturatedInt(double(distance));
}

VxTimeRange dragged(Part part, const VxTimeRange &atPress, VxTime distance, VxTime animDuration,
                    VxTime timeStep)
{
    const qint64 start = atPress.getStart();
    const qint64 end = atPress.getEnd();
    const auto at = [](qint64 from, qint64 to) {
        return VxTimeRange(TimelineSnap::limited(from), TimelineSnap::limited(to));
    };
    switch (part) {
    case Part::Body: {
        const qint64 allowed = bodyDistance(start, end, distance, animDuration);
        return at(start + allowed, end + allowed);
    }
    case Part::StartHandle:
        return at(start + startDistance(start, end, distance, timeStep), end);
    case Part::EndHandle:
        return at(start, end + endDistance(start, end, distance, animDuration, timeStep));
    case Part::None:
        break;
    }
    return atPress;
}

int nearestFrame(VxTime time, VxTime timeStep)
{
    return timeStep < 1 ? 0 : static_cast<int>((qint64(timeStep / 2) + time) / timeStep);
}

Picture picture(const QRect &rangeRect, int startLabelWidth, int endLabelWidth, int textHeight)
{
    Picture result;
    result.outline = rangeRect.adjusted(0, 0, -1, -1);
    const QRect &outline = result.outline;
    const int side = outline.bottom() - outline.top();
    const int top = outline.top() + 1;
    result.startHandle = QRect(outline.left() + 1, top, side, side);
    result.endHandle = QRect(outline.right() - side, top, side, side);

    const int labelTop = top + (side - textHeight) / 2;
    const auto label = [labelTop](const QRect &handle, int left, int right) {
        return QRect(QPoint(left, labelTop), QPoint(right, handle.bottom()));
    };
    const QRect &start = result.startHandle;
    const QRect &end = result.endHandle;
    result.startLabel =
        label(start, start.left() + side + 1, start.right() + side + startLabelWidth + 1);
    result.endLabel = label(end, end.left() - endLabelWidth - 1, end.right() - side - 1);
    return result;
}

} // namespace TimeRangeMath
