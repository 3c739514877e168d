#include "vxtimeline/keygraph/keydragplan.h"

#include <cmath>

#include "vxtimeline/time/timelinesnap.h"

namespace KeyDragPlan {

QPointF oneAxis(const QPointF &delta)
{
    if (std::abs(delta.y()) > std::abs(delta.x()))
        return QPointF(0.0, delta.y());
    return QPointF(delta.x(), 0.0);
}

VxTime draggedTime(VxTime start, VxTime delta, VxTime timeStep)
{
    const VxTime time = TimelineSnap::limited(qint64(start) + delta);
    return timeStep > 0 ? TimelineSnap::toFrame(time, timeStep) : time;
}

} // namespace KeyDragPlan
