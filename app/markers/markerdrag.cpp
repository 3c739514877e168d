#include "markers/markerdrag.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace {

VxTime boundedTime(qint64 time)
{
    return VxTime(std::clamp<qint64>(time, VxTimeMin, VxTimeMax));
}

std::optional<VxTime> nearestTarget(const MarkerSnap &snap, qint64 time)
{
    std::optional<VxTime> nearest;
    for (const VxTime target : snap.targets) {
        const qint64 distance = std::llabs(target - time);
        if (distance <= snap.reach && (!nearest || distance < std::llabs(*nearest - time)))
            nearest = target;
    }
    return nearest;
}

qint64 nearestFrame(const MarkerSnap &snap, qint64 time)
{
    return snap.step > 0 ? std::llround(double(time) / snap.step) * snap.step : time;
}

/** The start of a moved span of a length. */
qint64 snappedStart(const MarkerSnap &snap, qint64 start, qint64 length)
{
    const auto atStart = nearestTarget(snap, start);
    const auto atEnd = nearestTarget(snap, start + length);
    if (atStart && (!atEnd || std::llabs(*atStart - start) <= std::llabs(*atEnd - start - length)))
        return *atStart;
    return atEnd ? *atEnd - length : nearestFrame(snap, start);
}

} // namespace

VxTime MarkerSnap::snapped(qint64 time) const
{
    return boundedTime(nearestTarget(*this, time).value_or(boundedTime(nearestFrame(*this, time))));
}

QVector<VxTime> MarkerSnap::targetsOf(const VxMarkerList &markers, int exceptId, VxTime time)
{
    QVector<VxTime> targets{time};
    for (const VxMarker &marker : markers) {
        if (marker.id == exceptId)
            continue;
        targets.append(marker.span.getStart());
        if (!marker.isPoint())
            targets.append(marker.span.getEnd());
    }
    return targets;
}

VxTimeRange vxDraggedSpan(const VxTimeRange &span, MarkerPart part, qint64 offset,
                          const MarkerSnap &snap)
{
    if (offset == 0)
        return span;
    if (part == MarkerPart::Start)
        return {qMin(snap.snapped(span.getStart() + offset), span.getEnd()), span.getEnd()};
    if (part == MarkerPart::End)
        return {span.getStart(), qMax(snap.snapped(span.getEnd() + offset), span.getStart())};
    const qint64 length = qint64(span.getEnd()) - span.getStart();
    const qint64 start = std::clamp<qint64>(snappedStart(snap, span.getStart() + offset, length),
                                            VxTimeMin, VxTimeMax - length);
    return {VxTime(start), VxTime(start + length)};
}
