#ifndef KEYDRAGPLAN_H
#define KEYDRAGPLAN_H

#include <QtCore/QPointF>
#include <vxcore/vxtime.h>

// The arithmetic of dragging keys, as plain functions. A drag is computed from its start, never
// from the last step, so steps do not accumulate and a return to the start restores everything.
namespace KeyDragPlan {

// The mouse delta along its longer axis; the horizontal one when both are equal.
QPointF oneAxis(const QPointF &delta);

// The time of a key that began at start after a drag by delta ticks, limited to 32 bits, and to a
// whole frame when timeStep is not 0 (halves away from zero).
VxTime draggedTime(VxTime start, VxTime delta, VxTime timeStep);

} // namespace KeyDragPlan

#endif
