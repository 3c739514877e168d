#ifndef KEYGRAPHDRAG_H
#define KEYGRAPHDRAG_H

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxKeyGraphChannel;

/// Moves the selected keys of channels.
///
/// A property and its aliases have channels of their own that show the same keys. A key is moved
/// once, whichever channel it is selected in, and the records of all of them follow.
namespace KeyGraphDrag {

/// One step of a drag, relative to each key's position at its start.
struct Step
{
    VxTime time = 0;       // ticks
    double value = 0.0;    // display units
    VxTime timeStep = 0;   // ticks of the frames that keys snap to; 0: no snapping
    bool fromLast = false; // so that the foremost key in the direction of the mouse moves first
};

/// Moves keys one after the other, each as VxKeyGraphChannel::setKey() does, and returns the
/// channels with changed keys. Keys whose new value does not fit, and those of locked properties,
/// stay. Does not publish the selection.
QVector<VxKeyGraphChannel *> moveSelected(const QVector<VxKeyGraphChannel *> &channels,
                                          const Step &step);

/// The mouse delta along its longer axis; the horizontal one when both are equal.
QPointF oneAxis(const QPointF &delta);
/// The time of a key that began at start after a drag by delta ticks, limited to 32 bits, and to a
/// whole frame when timeStep is not 0 (halves away from zero). A drag is computed from its start,
/// never from the last step, so steps do not accumulate and a return to the start restores
/// everything.
VxTime draggedTime(VxTime start, VxTime delta, VxTime timeStep);

} // namespace KeyGraphDrag

#endif
