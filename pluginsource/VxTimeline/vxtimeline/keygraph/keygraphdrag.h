#ifndef KEYGRAPHDRAG_H
#define KEYGRAPHDRAG_H

#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxKeyGraphChannel;

// Moves the selected keys of channels.
//
// A property and its aliases are channels of their own that show the same keys. A key is moved
// once, whichever of them it is selected in, and the records of all of them follow.
namespace KeyGraphDrag {

// A key and what it is to get.
struct Move
{
    int index = 0;
    VxTime time = 0;    // ticks
    double value = 0.0; // display units of the channel it is selected in
    double displayScale = 1.0;
};

// Moves keys one after the other, each as VxKeyGraphChannel::setKey() does, without publishing the
// selection. channels: all those that show the keys of one holder. moves: indexes ascending or
// descending, no doubles. A key whose value does not fit stays. False when nothing changed.
bool moveKeys(const QVector<VxKeyGraphChannel *> &channels, const QVector<Move> &moves);

// One step of a drag, counted from where each key was at its start.
struct Step
{
    VxTime time = 0;       // ticks
    double value = 0.0;    // display units
    VxTime timeStep = 0;   // ticks of the frames that keys snap to; 0: they do not
    bool fromLast = false; // in the direction of the mouse the foremost key goes first
};

// Returns the channels whose keys have changed. Keys that cannot take their value, and those of
// locked properties, stay. Does not publish the selection.
QVector<VxKeyGraphChannel *> moveSelected(const QVector<VxKeyGraphChannel *> &channels,
                                          const Step &step);

} // namespace KeyGraphDrag

#endif
