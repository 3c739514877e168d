#ifndef KEYDRAGPLAN_H
#define KEYDRAGPLAN_H

#include <QtCore/QPointF>
#include <vxcore/vxtime.h>

// Where dragged keys go, as plain functions. A drag is reckoned from where it began, never from
// the last step, so steps do not add up and coming back to the start puts everything back.
namespace KeyDragPlan {

// One key on its way.
struct Move
{
    int index = 0;      // of the key
    VxTime time = 0;    // where it should go, ticks
    double value = 0.0; // display units
};

// The way of the mouse, or only its longer half; two halves of one length keep the horizontal one.
QPointF oneAxis(const QPointF &delta);

// The time of a key that began at start after a way of delta ticks, limited to 32 bits, and to a
// whole frame when timeStep is not 0 (halves away from zero).
VxTime draggedTime(VxTime start, VxTime delta, VxTime timeStep);

// The nearest free time from target back to where key index is now, which counts as free:
//     key at `a`, target where `c` is:   a . b c   ->   . . b c with a just before c
VxTime freeTime(const VxTime *times, int count, int index, VxTime target);

// Puts into each move the time at which its key comes to lie when the keys are moved one after the
// other, each as in freeTime(). moves: indexes ascending or descending, no doubles; each names the
// key that had the index before the first move. A key already at its time stays there.
void placeKeys(const VxTime *times, int count, Move *moves, int moveCount);

} // namespace KeyDragPlan

#endif
